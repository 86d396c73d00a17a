#include "base/wait.h"
#include "service/service_connection.h"
#include "support/core/fake_service.h"
#include "support/core/private_bus.h"
#include "support/core/scripted_prompt.h"
#include "support/windows/dark_palette.h"
#include "support/windows/widgets.h"
#include "ui/service/progress_window.h"
#include "ui/service/reconnect_dialog.h"
#include "ui/service/service_control_dialog.h"

#include <QLabel>
#include <QProgressBar>
#include <QPushButton>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

struct ServiceWindowTest : testing::Test
{
    PrivateBus bus;
    FakeService service {bus};
    ServiceControl control {bus.Connection()};
    std::function<void(int)> duringWait = [](int) {};
    const WaitOverride instant {[this](int milliseconds) { duringWait(milliseconds); }};
};

QString TextOf(const QWidget &window, const char *name)
{
    return Find<QLabel>(window, name).text();
}

bool IsEnabled(const QWidget &window, const char *name)
{
    return Find<QPushButton>(window, name).isEnabled();
}

// The state as it stands in the dialog: text, picture, and which command is offered.
QStringList Shown(const ServiceControlDialog &dialog)
{
    QStringList shown {TextOf(dialog, "status")};
    for (const auto *picture : {"service-started", "service-stopped"}) {
        if (IsShown(dialog, picture)) {
            shown << QString::fromLatin1(picture);
        }
    }
    for (const auto *button : {"start", "stop"}) {
        if (IsEnabled(dialog, button)) {
            shown << QString::fromLatin1(button);
        }
    }
    return shown;
}

const QStringList kShownStarted {u"Service is started"_s, u"service-started"_s, u"stop"_s};
const QStringList kShownStopped {u"Service is stopped"_s, u"service-stopped"_s, u"start"_s};

void Open(QDialog &dialog)
{
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
}

} // namespace

TEST_F(ServiceWindowTest, ControlShowsTheStateItFinds)
{
    const std::pair<QString, bool> states[] = {{u"active"_s, true},
                                               {u"inactive"_s, false},
                                               {u"activating"_s, false},
                                               {u"failed"_s, false}};
    for (const auto &[state, running] : states) {
        service.SetStates({state});
        ServiceControlDialog dialog(control);
        Open(dialog);
        EXPECT_EQ(dialog.windowTitle(), u"Service control"_s);
        EXPECT_EQ(Shown(dialog), running ? kShownStarted : kShownStopped) << qPrintable(state);
        EXPECT_EQ(dialog.IsServiceRunning(), running);
        EXPECT_EQ(dialog.focusWidget()->objectName(), running ? u"close"_s : u"start"_s)
            << "Return stops no service";
        EXPECT_FALSE(dialog.WasStopped());
    }
    bus.Stop();
    ServiceControlDialog dialog(control);
    Open(dialog);
    EXPECT_EQ(Shown(dialog), kShownStopped);
}

TEST_F(ServiceWindowTest, StartAndStopChangeWhatIsShown)
{
    ServiceControlDialog dialog(control);
    Open(dialog);
    Click(dialog, "start");
    EXPECT_EQ(Shown(dialog), kShownStarted);
    EXPECT_TRUE(dialog.IsServiceRunning());
    EXPECT_FALSE(dialog.WasStopped());
    EXPECT_EQ(dialog.findChild<ProgressWindow *>(), nullptr);
    EXPECT_EQ(dialog.focusWidget(), &Find(dialog, "close"));
    Click(dialog, "stop");
    EXPECT_EQ(Shown(dialog), kShownStopped);
    EXPECT_FALSE(dialog.IsServiceRunning());
    EXPECT_TRUE(dialog.WasStopped());
    Click(dialog, "start");
    EXPECT_TRUE(dialog.WasStopped()); // the connection is lost even so
    Click(dialog, "close");
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ServiceWindowTest, ARefusedStopLeavesStopOffered)
{
    service.SetStates({u"active"_s});
    service.RefuseCommands();
    ServiceControlDialog dialog(control);
    Open(dialog);
    QString lastText;
    duringWait = [&](int) { lastText = TextOf(dialog, "progressText"); };
    Click(dialog, "stop");
    EXPECT_EQ(lastText, u"Failed to stop the service"_s);
    EXPECT_EQ(Shown(dialog), kShownStarted);
    EXPECT_FALSE(dialog.WasStopped());
}

TEST_F(ServiceWindowTest, ProgressStandsBesideTheDialogWhileASequenceRuns)
{
    ServiceControlDialog dialog(control);
    Open(dialog);
    QStringList steps;
    duringWait = [&](int milliseconds) {
        const auto &window = Find<ProgressWindow>(dialog, "progressWindow");
        EXPECT_TRUE(window.isVisible());
        EXPECT_FALSE(window.isModal());
        EXPECT_EQ(window.windowTitle().trimmed(), QString());
        const auto &bar = Find<QProgressBar>(window, "progressBar");
        EXPECT_EQ(bar.accessibleDescription(), TextOf(window, "progressText"));
        steps
            << u"%1 %2 %3"_s.arg(milliseconds).arg(bar.value()).arg(TextOf(window, "progressText"));
    };
    Click(dialog, "start");
    EXPECT_EQ(steps,
              (QStringList {u"1300 10 Trying to start the service..."_s,
                            u"100 10 Trying to start the service..."_s,
                            u"400 35 Service started successfully"_s,
                            u"800 100 Service started successfully"_s}));
}

TEST_F(ServiceWindowTest, ASecondClickDuringAWaitStartsNothing)
{
    ServiceControlDialog dialog(control);
    Open(dialog);
    duringWait = [&](int) {
        Find<QPushButton>(dialog, "start").click();
        dialog.reject();
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(dialog.findChildren<ProgressWindow *>().size(), 1);
    };
    Click(dialog, "start");
    EXPECT_EQ(service.TakeCalls(),
              QStringList {u"StartUnit tollbrooksvc.service replace, interactive"_s});
    dialog.reject();
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ServiceWindowTest, AClickThatWaitedForTheEndOfTheSequenceStartsNothing)
{
    service.RefuseCommands(); // so that "Start" is still offered at the end
    ServiceControlDialog dialog(control);
    Open(dialog);
    auto &start = Find<QPushButton>(dialog, "start");
    duringWait = [&](int milliseconds) {
        if (milliseconds == 800) {
            QMetaObject::invokeMethod(&start, &QPushButton::click, Qt::QueuedConnection);
        }
    };
    start.click();
    QCoreApplication::processEvents();
    EXPECT_EQ(service.TakeCalls().size(), 1);
}

TEST_F(ServiceWindowTest, StartOfARunningServiceLeavesTheProgressWindow)
{
    ServiceControlDialog dialog(control);
    Open(dialog);
    service.SetStates({u"active"_s}); // by somebody else
    Click(dialog, "start");
    EXPECT_EQ(service.TakeCalls(), QStringList());
    EXPECT_EQ(Shown(dialog), kShownStopped); // kept: nothing else happens
    auto &left = Find<ProgressWindow>(dialog, "progressWindow");
    EXPECT_TRUE(left.isVisible());
    EXPECT_EQ(TextOf(left, "progressText"), u"Status"_s);
    EXPECT_EQ(Find<QProgressBar>(left, "progressBar").value(), 0);

    Click(dialog, "start"); // another one takes its place
    EXPECT_EQ(dialog.findChildren<ProgressWindow *>().size(), 1);
    auto *second = &Find<ProgressWindow>(dialog, "progressWindow");
    QTest::keyClick(second, Qt::Key_Escape); // and a person can close it
    EXPECT_FALSE(second->isVisible());
    EXPECT_TRUE(dialog.isVisible());
}

TEST_F(ServiceWindowTest, ReconnectRestoresTheConnection)
{
    int connections = 0;
    ReconnectDialog dialog(control, [&] {
        ++connections;
        return 0;
    });
    Open(dialog);
    EXPECT_EQ(dialog.windowTitle(), u"Try to reconnect?"_s);
    EXPECT_EQ(TextOf(dialog, "message"), u"Try to reconnect?"_s);
    EXPECT_EQ(TextOf(dialog, "text"),
              u"The Tollbrook service is currently unavailable. This may be caused by the service "
              "being stopped or by communication problems. You still can administer users and set "
              "options, but they will not be enforced until you restart the service. "_s);
    EXPECT_TRUE(IsShown(dialog, "connection-lost"));
    EXPECT_FALSE(IsShown(dialog, "connection-restored"));
    EXPECT_FALSE(dialog.Flags().serviceRunning);

    Click(dialog, "reconnect");
    EXPECT_EQ(connections, 1);
    EXPECT_TRUE(dialog.Flags().Restored());
    EXPECT_EQ(dialog.windowTitle(), u"Connection restored"_s);
    EXPECT_EQ(TextOf(dialog, "message"), u"Connection restored"_s);
    EXPECT_EQ(TextOf(dialog, "text"),
              u"Tollbrook Administrator successfully connected to the service. Since now all "
              "changes in user set up will be enforced immediately"_s);
    EXPECT_FALSE(IsShown(dialog, "connection-lost"));
    EXPECT_TRUE(IsShown(dialog, "connection-restored"));
    EXPECT_FALSE(IsEnabled(dialog, "reconnect"));
    EXPECT_TRUE(dialog.isVisible());
    Click(dialog, "close");
    EXPECT_FALSE(dialog.isVisible());
}

TEST_F(ServiceWindowTest, AReconnectThatFailsCanBeTriedAgain)
{
    service.RefuseCommands();
    ReconnectDialog dialog(control, [] { return 0; });
    Open(dialog);
    QString lastText;
    duringWait = [&](int) { lastText = TextOf(dialog, "progressText"); };
    Click(dialog, "reconnect");
    EXPECT_EQ(lastText, u"Failed to complete the process"_s);
    EXPECT_EQ(dialog.windowTitle(), u"Try to reconnect?"_s);
    EXPECT_TRUE(TextOf(dialog, "text").startsWith(u"The Tollbrook service is currently"));
    EXPECT_TRUE(IsShown(dialog, "connection-lost"));
    EXPECT_FALSE(dialog.Flags().serviceRunning);
    EXPECT_FALSE(dialog.Flags().connected);
    EXPECT_EQ(dialog.findChild<ProgressWindow *>(), nullptr);

    service.SetStates({u"active"_s});
    Click(dialog, "reconnect");
    EXPECT_TRUE(dialog.Flags().Restored());
}

TEST_F(ServiceWindowTest, FlagsTellWhatTheReconnectDialogFound)
{
    service.SetStates({u"active"_s});
    ReconnectDialog dialog(control, [] { return 1; });
    Open(dialog);
    EXPECT_TRUE(dialog.Flags().serviceRunning);
    EXPECT_FALSE(dialog.Flags().connected);
    Click(dialog, "reconnect"); // the service runs, but nothing connects to it
    EXPECT_EQ(dialog.windowTitle(), u"Try to reconnect?"_s);
    EXPECT_TRUE(IsEnabled(dialog, "reconnect"));
    EXPECT_FALSE(dialog.Flags().connected);
}

TEST_F(ServiceWindowTest, AReconnectWithoutTheServicesObjectCountsAsRestored)
{
    service.SetStates({u"active"_s}); // and nobody owns the accounting service's name
    ScriptedPrompt prompt;
    ServiceConnection connection(bus.Connection());
    ReconnectDialog dialog(control, [&] { return connection.Connect(prompt); });
    Open(dialog);
    Click(dialog, "reconnect");
    EXPECT_EQ(prompt.TakeSaid(), QStringList {u"Could not create instance"_s});
    EXPECT_EQ(dialog.windowTitle(), u"Connection restored"_s); // kept: it counts as connected
    EXPECT_TRUE(dialog.Flags().connected);
    EXPECT_EQ(connection.Link(), nullptr);
}

TEST_F(ServiceWindowTest, EveryPictureIsDrawnAndSaysInWordsWhatItShows)
{
    ServiceControlDialog controlDialog(control);
    ReconnectDialog reconnectDialog(control, [] { return 0; });
    const std::tuple<const QDialog &, const char *, QString> pictures[] = {
        {controlDialog, "service-started", u"Service is started"_s},
        {controlDialog, "service-stopped", u"Service is stopped"_s},
        {reconnectDialog, "connection-lost", u"Not connected"_s},
        {reconnectDialog, "connection-restored", u"Connected"_s},
    };
    for (const auto &[dialog, name, words] : pictures) {
        const auto &picture = Find<QLabel>(dialog, name);
        EXPECT_EQ(picture.accessibleName(), words);
        EXPECT_EQ(picture.toolTip(), words);
        const QImage image = picture.pixmap().toImage();
        const QImage average = image.scaled(1, 1, Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
        EXPECT_GT(average.pixelColor(0, 0).alpha(), 10) << name; // something is drawn
    }
}

TEST_F(ServiceWindowTest, Screens)
{
    const auto grabAll = [this](const QString &suffix) {
        service.SetStates({u"inactive"_s});
        ServiceControlDialog dialog(control);
        Open(dialog);
        Grab(dialog, u"service-control-stopped"_s + suffix);
        duringWait = [&](int milliseconds) {
            if (milliseconds == 400) {
                Grab(Find<ProgressWindow>(dialog, "progressWindow"), u"progress"_s + suffix);
            }
        };
        Click(dialog, "start");
        Grab(dialog, u"service-control"_s + suffix);
        duringWait = [](int) {};
        ReconnectDialog lost(control, [] { return 0; });
        Open(lost);
        Grab(lost, u"reconnect"_s + suffix);
        Click(lost, "reconnect");
        Grab(lost, u"reconnect-restored"_s + suffix);
        EXPECT_TRUE(lost.Flags().Restored());
    };
    grabAll({});
    const DarkPalette dark;
    grabAll(u"-dark"_s);
}
