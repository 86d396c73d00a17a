// tollbrook-admin, the administration console.
#include "app/administrator_app.h"
#include "base/wait.h"
#include "startup/language.h"
#include "ui/common/message_box_prompt.h"
#include "ui/common/window_memory.h"
#include "ui/main/splitter_frame.h"
#include "ui/main/upgrade_dialog.h"

#include <QCommandLineParser>
#include <QWindow>

#include <cstdio>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace {

constexpr int kBadArguments = 2;

struct Options
{
    QCommandLineOption config {
        u"config"_s,
        u"The configuration folder; otherwise $TOLLBROOK_CONFIG names it, or "
        "it is /etc/tollbrook."_s,
        u"DIR"_s};
    QCommandLineOption bus {u"bus"_s,
                            u"The message bus of the service: system or session."_s,
                            u"system|session"_s,
                            u"system"_s};
    QCommandLineOption globalOptions {u"global-options"_s,
                                      u"Open the global options once the console is up."_s};
};

void Say(std::FILE *stream, const QString &text)
{
    std::fputs(qPrintable(text), stream);
}

[[noreturn]] void Refuse(const QString &problem)
{
    Say(stderr, u"tollbrook-admin: %1\nTry 'tollbrook-admin --help'.\n"_s.arg(problem));
    std::exit(kBadArguments);
}

// The toolkit ends the program itself when it finds no display; this gives it readable last words.
void TellNoDisplay(QtMsgType type, const QMessageLogContext & /*context*/, const QString &text)
{
    if (type == QtFatalMsg) {
        std::fputs("tollbrook-admin: there is no display to open the console on. Start it in a "
                   "desktop session, or with QT_QPA_PLATFORM=vnc for a VNC viewer.\n",
                   stderr);
        std::_Exit(EXIT_FAILURE);
    }
    if (type != QtInfoMsg && type != QtDebugMsg) {
        Say(stderr, text + u'\n');
    }
}

// What needs no display is answered without one.
void AnswerQuestions(QCommandLineParser &parser, int argc, char **argv)
{
    QStringList arguments;
    for (int index = 0; index < argc; ++index) {
        arguments << QString::fromLocal8Bit(argv[index]);
    }
    parser.parse(arguments); // with the toolkit's own arguments, which are no errors
    if (parser.isSet(u"help"_s)) {
        Say(stdout, parser.helpText().replace(u"<executable_name>"_s, u"tollbrook-admin"_s));
        std::exit(EXIT_SUCCESS);
    }
    if (parser.isSet(u"version"_s)) {
        Say(stdout, u"tollbrook-admin " TB_VERSION "\n"_s);
        std::exit(EXIT_SUCCESS);
    }
}

QDBusConnection Bus(const QCommandLineParser &parser, const Options &options)
{
    const QString name = parser.value(options.bus);
    const auto bus = BusNamed(name);
    if (!bus) {
        Refuse(u"there is no message bus called '%1'; it is system or session."_s.arg(name));
    }
    return *bus;
}

// A window manager paints and places the window in its own time; what is asked at the start should
// stand over it.
void WaitUntilSeen(const QWidget &window)
{
    constexpr int kLookAgainMs = 10;
    constexpr int kLooks = 50;
    for (int look = 0; look < kLooks && !window.windowHandle()->isExposed(); ++look) {
        PacedWait(kLookAgainMs);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const Options options;
    QCommandLineParser parser;
    parser.setApplicationDescription(u"Administration console of Tollbrook Network."_s);
    parser.addOptions({options.config, options.bus, options.globalOptions});
    parser.addHelpOption();
    parser.addVersionOption();
    AnswerQuestions(parser, argc, argv);

    const QtMessageHandler usual = qInstallMessageHandler(TellNoDisplay);
    CAdministratorApp app(argc, argv);
    SpeakTheSystemsLanguage();
    qInstallMessageHandler(usual);
    app.setApplicationVersion(QStringLiteral(TB_VERSION));
    KeepWindowsFor(u"Tollbrook"_s, u"Administrator"_s);
    if (!parser.parse(app.arguments())) {
        Refuse(parser.errorText());
    }
    if (!parser.positionalArguments().isEmpty()) {
        Refuse(u"'%1' is not expected."_s.arg(parser.positionalArguments().first()));
    }

    MessageBoxPrompt prompt;
    std::unique_ptr<CSplitterFrame> frame;
    const StartUpOptions startUp {.configFolder = parser.value(options.config),
                                  .bus = Bus(parser, options)};
    const auto show = [&] {
        frame = std::make_unique<CSplitterFrame>(app.Services(), StandardDialogs(app.Services()));
        frame->show();
        WaitUntilSeen(*frame);
        return true;
    };
    const auto begin = [&] {
        frame->FirstStart({.running = app.IsServiceRunning(), .connected = app.IsConnected()});
        if (parser.isSet(options.globalOptions)) {
            frame->RunAndRefresh(frame->Dialogs().globalOptions);
        }
    };
    const auto offerUpgrade = [&](int version) {
        const bool isUpgraded = OfferUpgrade(app.Services(), version, frame.get());
        frame->Refresh(); // what was being read meanwhile was dropped
        return isUpgraded;
    };
    app.SetUp(startUp, prompt, {.show = show, .begin = begin, .offerUpgrade = offerUpgrade});
    const int status = app.InitInstance() ? QApplication::exec() : EXIT_FAILURE;
    frame.reset();
    if (SessionThread::AbandonedCalls() > 0) {
        std::_Exit(status); // a server that does not answer must not keep the program
    }
    return status;
}
