#include "list_fixture.h"

#include "support/windows/modal.h"
#include "ui/common/window_memory.h"

#include <QContextMenuEvent>
#include <QDialog>
#include <QTimer>

using namespace Qt::StringLiterals;

void ListFixture::SetUp()
{
    WindowFixture::SetUp();
    KeepWindowsFor(u"Tollbrook"_s, u"Tests"_s);
}

void ListFixture::TearDown()
{
    frame.reset();
    KeepWindowsFor({}, {});
    WindowFixture::TearDown();
}

UserId ListFixture::AddUser(const SampleUser &user)
{
    const auto text = [](const char *utf8) { return QString::fromUtf8(utf8); };
    const auto flag = [](bool on) { return quint32 {on}; };
    Execute(
        "INSERT INTO users (username, stationname, fullname, ip_addr, mac_addr, group_id, blocked, "
        "blockreason, TimeAccess, timeblocked, monitored, mode) VALUES ((?), (?), (?), (?), (?), "
        "(?), (?), (?), (?), (?), (?), (?))",
        text(user.name),
        text(user.station),
        text(user.fullName),
        text(user.ip),
        text(user.mac),
        user.group,
        flag(user.blocked),
        user.reason,
        flag(user.timeAccess),
        flag(user.timeBlocked),
        flag(user.monitored),
        user.mode);
    RunQuery("SELECT MAX(user_id) FROM users", FetchMode::All);
    return queryResult.Id<UserId>(1);
}

GroupId
ListFixture::AddGroupNamed(const QString &name, const QString &description, AccountingMode mode)
{
    Execute("INSERT INTO groups (name) VALUES (?)", name);
    RunQuery("SELECT MAX(group_id) FROM groups", FetchMode::All);
    const GroupId id = queryResult.Id<GroupId>(1);
    Execute(
        "UPDATE groups SET descrip = (?), mode = (?) WHERE group_id = (?)", description, mode, id);
    return id;
}

CSplitterFrame &ListFixture::ShowFrame()
{
    Services().database.Open(Dsn()); // a frame that goes closes it
    frame = std::make_unique<CSplitterFrame>(Services(), dialogs);
    frame->show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(frame.get()));
    frame->FirstStart({});
    Settle();
    return *frame;
}

CAdministratorView &ListFixture::Users() const
{
    LetSessionFinish();
    auto &users = Find<CAdministratorView>(*frame, "usersList");
    EXPECT_TRUE(QTest::qWaitFor(
        [&users] { return !users.Finder().IsSearching() && !users.Matching().IsLooking(); },
        10000));
    return users;
}

void ListFixture::TypeFilter(const QString &text) const
{
    Type(Find<QWidget>(*frame, "findUser"), text);
    auto &pause = Find<QTimer>(*frame, "findPause");
    if (pause.isActive()) {
        pause.setInterval(0);
        EXPECT_TRUE(QTest::qWaitFor([&pause] { return !pause.isActive(); }));
        pause.setInterval(150);
    }
    (void)Users();
}

CAdministratorViewGrp &ListFixture::Groups() const
{
    LetSessionFinish();
    return Find<CAdministratorViewGrp>(*frame, "groupsList");
}

QStringList ListFixture::Names() const
{
    QStringList names;
    for (const QString &row : RowTexts(Users())) {
        names << row.section(u'|', 0, 0);
    }
    return names;
}

QAction &ListFixture::Command(const char *name) const
{
    Settle();
    return Find<QAction>(*frame, name);
}

void ListFixture::OpenPopUp(ListPane &pane, int row, const std::function<void(QMenu &)> &act) const
{
    const WhileMenu menu([&](QMenu &shown) {
        LetSessionFinish(); // an entry may wait for what the database says
        act(shown);
    });
    const QPoint place = pane.visualRect(pane.model()->index(row, 0)).center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, place, pane.viewport()->mapToGlobal(place));
    QApplication::sendEvent(pane.viewport(), &event);
}

void ListFixture::LetMessagesTakeTheFocus()
{
    prompt.meanwhile = [this] {
        QDialog box(frame.get());
        QTimer::singleShot(0, &box, [&box] {
            EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
            QTest::keyClick(&box, Qt::Key_Escape);
        });
        box.exec();
        frame->activateWindow(); // as a desktop does
        EXPECT_TRUE(QTest::qWaitForWindowActive(frame.get()));
    };
}

void ListFixture::Settle() const
{
    for (int turn = 0; turn < 2; ++turn) {
        QCoreApplication::processEvents();
        LetSessionFinish();
    }
}

template <typename IdType>
std::function<void(IdType, QWidget *)> ListFixture::Noting(const char *what)
{
    return [this, what](IdType id, QWidget *parent) {
        EXPECT_EQ(parent, frame.get());
        opened << u"%1 %2"_s.arg(QLatin1StringView(what)).arg(id.value);
    };
}

FrameDialogs::ForNothing ListFixture::NotingPlain(const char *what)
{
    return [this, what](QWidget * /*parent*/) { opened << QLatin1StringView(what); };
}

FrameDialogs ListFixture::NotingDialogs()
{
    FrameDialogs noting;
    noting.userProperties = Noting<UserId>("userProperties");
    noting.userPage = [this](UserId id, int page, QWidget * /*parent*/) {
        opened << u"userPage %1 %2"_s.arg(id.value).arg(page);
    };
    noting.groupPage = [this](GroupId id, int page, QWidget * /*parent*/) {
        opened << u"groupPage %1 %2"_s.arg(id.value).arg(page);
    };
    noting.userAccount = Noting<UserId>("userAccount");
    noting.userStatistics = Noting<UserId>("userStatistics");
    noting.userLimits = [this](const QList<UserId> &ids, QWidget * /*parent*/) {
        QStringList texts;
        for (const UserId id : ids) {
            texts << QString::number(id.value);
        }
        opened << u"userLimits "_s + texts.join(u',');
    };
    noting.groupProperties = Noting<GroupId>("groupProperties");
    noting.groupAccount = Noting<GroupId>("groupAccount");
    noting.groupStatistics = Noting<GroupId>("groupStatistics");
    noting.purge = NotingPlain("purge");
    noting.importUsers = NotingPlain("importUsers");
    noting.exportUsers = NotingPlain("exportUsers");
    noting.newUser = NotingPlain("newUser");
    noting.options = NotingPlain("options");
    noting.globalOptions = NotingPlain("globalOptions");
    noting.unmonitored = NotingPlain("unmonitored");
    noting.logins = NotingPlain("logins");
    noting.adapter = NotingPlain("adapter");
    noting.reports = NotingPlain("reports");
    noting.setupWizard = NotingPlain("setupWizard");
    noting.helpTopics = NotingPlain("helpTopics");
    noting.about = NotingPlain("about");
    noting.serviceControl = [this](QWidget * /*parent*/) {
        opened << u"serviceControl"_s;
        return controlOutcome;
    };
    noting.reconnect = [this](QWidget * /*parent*/) {
        opened << u"reconnect"_s;
        return reconnectOutcome;
    };
    return noting;
}
