// The main window itself: start, menus, timers, status bar, settings.
#include "db/failure_log.h"
#include "list_fixture.h"
#include "support/windows/modal.h"
#include "ui/common/number_field.h"
#include "ui/main/command.h"
#include "ui/main/status_pane.h"

#include <QClipboard>
#include <QDialog>
#include <QLabel>
#include <QMenuBar>
#include <QTextBlock>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

namespace {

class Frame : public ListFixture
{
protected:
    void SetUp() override
    {
        ListFixture::SetUp();
        FailureLog::Instance().Clear();
    }

    [[nodiscard]] ConfigStore &Config() const { return Settings(); }

    [[nodiscard]] QTimer &Timer(const char *name) const { return Find<QTimer>(*frame, name); }

    // Lets the timer's time be up.
    void Fire(const char *name) const
    {
        QTimer &timer = Timer(name);
        ASSERT_TRUE(timer.isActive()) << name;
        QTimerEvent event(timer.timerId());
        QCoreApplication::sendEvent(&timer, &event);
    }

    // -1 for a timer that does not run.
    [[nodiscard]] int RefreshPeriod() const
    {
        const QTimer &timer = Timer("refreshTimer");
        return timer.isActive() ? timer.interval() : -1;
    }

    // The pictures of the service and the connection.
    [[nodiscard]] QString Pictures() const
    {
        return Pane("servicePane").PictureName() + u' ' + Pane("connectionPane").PictureName();
    }

    [[nodiscard]] StatusPane &Pane(const char *name) const
    {
        return Find<StatusPane>(*frame, name);
    }

    void DoubleClick(const char *pane) const { QTest::mouseDClick(&Pane(pane), Qt::LeftButton); }

    [[nodiscard]] QMenu &Menu(const QString &title) const
    {
        for (QMenu *menu : frame->findChildren<QMenu *>()) {
            if (menu->title().remove(u'&') == title) {
                emit menu->aboutToShow();
                LetSessionFinish();
                return *menu;
            }
        }
        qFatal("no menu %s", qPrintable(title));
    }

    void ChooseFrom(const QString &menu, const QString &entry) const
    {
        QMenu &shown = Menu(menu);
        for (QAction *action : shown.actions()) {
            if (action->text().remove(u'&') == entry) {
                action->trigger();
                return;
            }
        }
        FAIL() << qPrintable(entry);
    }

    [[nodiscard]] QString Notice() const { return Find<QLabel>(*frame, "messagePane").text(); }
};

} // namespace

TEST_F(Frame, HasItsMenus)
{
    ShowFrame();
    EXPECT_EQ(frame->windowTitle(), u"Tollbrook Administrator"_s);
    QStringList titles;
    for (const QAction *action : frame->menuBar()->actions()) {
        titles << action->text().remove(u'&');
    }
    EXPECT_EQ(
        titles,
        QStringList({u"File"_s, u"User"_s, u"View"_s, u"Configure"_s, u"Reports..."_s, u"Help"_s}));
    EXPECT_EQ(MenuTexts(Menu(u"File"_s)),
              QStringList({u"Purge database..."_s,
                           u"Import..."_s,
                           u"Export users..."_s,
                           u"Export list..."_s,
                           u"Print list..."_s,
                           u"-"_s,
                           u"Exit"_s}));
    EXPECT_EQ(MenuTexts(Menu(u"User"_s)),
              QStringList({u"New user..."_s,
                           u"~Properties..."_s,
                           u"~Account..."_s,
                           u"~Change group..."_s,
                           u"-"_s,
                           u"~Do not monitor"_s,
                           u"~Delete"_s,
                           u"-"_s,
                           u"~Select all matching"_s}));
    EXPECT_EQ(MenuTexts(Menu(u"View"_s)),
              QStringList({u"Columns"_s,
                           u"Sort by"_s,
                           u"Refresh "_s,
                           u"-"_s,
                           u"*No auto refresh"_s,
                           u"Each minute"_s,
                           u"Each 3 minutes"_s,
                           u"Each 5 minutes"_s,
                           u"Each 10 minutes"_s,
                           u"Custom period..."_s,
                           u"-"_s,
                           u"Why, and until when"_s}));
    EXPECT_EQ(MenuTexts(Menu(u"Sort by"_s)),
              QStringList({u"*Usernames"_s, u"Workstations"_s, u"Full names"_s}));
    EXPECT_EQ(MenuTexts(Menu(u"Columns"_s)),
              QStringList({u"*Username"_s,
                           u"*Workstation"_s,
                           u"*Full name"_s,
                           u"*IP Address"_s,
                           u"*MAC Address"_s,
                           u"*Group"_s,
                           u"*Access"_s,
                           u"Used"_s,
                           u"Left"_s}));
    EXPECT_EQ(
        MenuTexts(Menu(u"Configure"_s)),
        QStringList({u"Options"_s, u"Unmonitored"_s, u"Login manager"_s, u"Network adapter"_s}));
    EXPECT_EQ(
        MenuTexts(Menu(u"Help"_s)),
        QStringList(
            {u"Help topics"_s, u"Setup wizard..."_s, u"-"_s, u"About Tollbrook Administrator"_s}));
}

TEST_F(Frame, EachCommandOpensItsWindow)
{
    ShowFrame();
    for (const QString &name : {u"purge"_s,
                                u"importUsers"_s,
                                u"exportUsers"_s,
                                u"newUser"_s,
                                u"options"_s,
                                u"unmonitored"_s,
                                u"logins"_s,
                                u"adapter"_s,
                                u"globalOptions"_s,
                                u"reports"_s,
                                u"about"_s}) {
        opened.clear();
        Command(name.toLatin1().constData()).trigger();
        EXPECT_EQ(opened, QStringList(name));
    }
    opened.clear();
    QTest::keyClick(frame.get(), Qt::Key_F1);
    Command("wizard").trigger();
    EXPECT_EQ(opened, QStringList({u"helpTopics"_s, u"setupWizard"_s}));
    Command("exit").trigger();
    EXPECT_FALSE(frame->isVisible());
}

TEST_F(Frame, ACommandWithoutItsWindowIsNotShown)
{
    dialogs.purge = {};
    dialogs.setupWizard = {};
    dialogs.reports = {};
    ShowFrame();
    EXPECT_EQ(MenuTexts(Menu(u"File"_s)),
              QStringList({u"Import..."_s,
                           u"Export users..."_s,
                           u"Export list..."_s,
                           u"Print list..."_s,
                           u"-"_s,
                           u"Exit"_s}));
    EXPECT_FALSE(MenuTexts(Menu(u"Help"_s)).contains(u"Setup wizard..."_s));
    EXPECT_FALSE(Command("reports").isVisible());
    EXPECT_FALSE(Command("toolbarReports").isVisible());
}

TEST_F(Frame, CommandsFollowTheSelectionOfTheListInUse)
{
    AddUser({.name = "anna", .mode = AccountingMode::Provider});
    AddUser({.name = "bert"});
    ShowFrame();
    const auto enabled = [this] {
        Settle();
        QStringList names;
        for (const auto *name : {"properties",
                                 "toolbarProperties",
                                 "account",
                                 "changeGroup",
                                 "doNotMonitor",
                                 "delete"}) {
            if (Command(name).isEnabled()) {
                names << QString::fromLatin1(name);
            }
        }
        return names.join(u' ');
    };
    EXPECT_EQ(enabled(), QString());
    ClickCell(Users(), 0, 0);
    EXPECT_EQ(enabled(), u"properties toolbarProperties account changeGroup doNotMonitor delete"_s);
    ClickCell(Users(), 1, 0, Qt::ControlModifier);
    EXPECT_EQ(enabled(), u"properties account changeGroup doNotMonitor delete"_s);
    ClickCell(Users(), 1, 0);
    EXPECT_EQ(enabled(), u"properties toolbarProperties changeGroup doNotMonitor delete"_s);
    ClickCell(Groups(), 0, 0);
    EXPECT_EQ(enabled(), u"properties toolbarProperties delete"_s);
    opened.clear();
    Command("toolbarProperties").trigger();
    EXPECT_EQ(opened, QStringList(u"groupProperties 80"_s));
    ClickCell(Users(), 0, 0);
    Command("account").trigger();
    EXPECT_EQ(opened.back(), u"userAccount 1"_s);
    // The account of a user may change under the list.
    Execute("UPDATE users SET mode = 0 WHERE user_id = 1");
    EXPECT_TRUE(MenuTexts(Menu(u"User"_s)).contains(u"~Account..."_s));
}

TEST_F(Frame, SortByRefillsAscendingAndIsKept)
{
    AddUser({.name = "anna", .station = "pc-2", .fullName = "Zed"});
    AddUser({.name = "bert", .station = "pc-1", .fullName = "Yan"});
    AddUser({.name = "carl", .station = "pc-3", .fullName = "Xed"});
    ShowFrame();
    ChooseFrom(u"Sort by"_s, u"Full names"_s);
    EXPECT_EQ(Names(), QStringList({u"carl"_s, u"bert"_s, u"anna"_s}));
    ChooseFrom(u"Sort by"_s, u"Workstations"_s);
    EXPECT_EQ(Names(), QStringList({u"bert"_s, u"anna"_s, u"carl"_s}));
    EXPECT_EQ(MenuTexts(Menu(u"Sort by"_s))[1], u"*Workstations"_s);
    CloseFrame();
    EXPECT_EQ(Config().ReadText(values::kSortBy), u"1"_s);

    ShowFrame(); // the lists start by "refresh", not by the order that was chosen
    EXPECT_EQ(Names().front(), u"anna"_s);
    Command("refresh").trigger();
    EXPECT_EQ(Names().front(), u"bert"_s);
}

TEST_F(Frame, TheListStartsByItsOwnOrder)
{
    AddUser({.name = "anna", .ip = "10.0.0.9"});
    AddUser({.name = "bert", .ip = "10.0.0.1", .blocked = true});
    Config().WriteText(values::kRefresh, u"3"_s);
    ShowFrame();
    EXPECT_EQ(Names(), QStringList({u"bert"_s, u"anna"_s})); // by address
    QTest::keyClick(&Users(), Qt::Key_F5);
    EXPECT_EQ(Names(),
              QStringList({u"anna"_s, u"bert"_s})); // by access: no other order was used yet
}

TEST_F(Frame, RefreshReadsGroupsThenUsers)
{
    AddUser({.name = "anna"});
    ShowFrame();
    Config().WriteText(values::kSortBy, u"2"_s);
    StatementRecorder recorder;
    Command("refresh").trigger();
    LetSessionFinish();
    const QStringList statements = recorder.Take();
    ASSERT_EQ(statements.size(), 3);
    EXPECT_TRUE(statements[0].endsWith(u"FROM groups"_s));
    EXPECT_TRUE(
        statements[1].endsWith(u"ORDER BY username ASC"_s)); // the store is read at start only
    EXPECT_TRUE(statements[2].startsWith(u"SELECT name FROM groups"_s));
}

TEST_F(Frame, TheTimerLeavesTheListsAloneWhileOtherWorkHoldsTheDatabase)
{
    Config().WriteText(values::kPaneAutoRefreshMode, u"1"_s);
    ShowFrame();
    Fire("startDelay");
    StatementRecorder recorder;
    Services().database.Start(
        frame.get(), []() -> Result<int> { return 0; }, [](const Result<int> &) {});
    Fire("refreshTimer");
    LetSessionFinish();
    EXPECT_EQ(recorder.Take(), QStringList());
    Fire("refreshTimer");
    LetSessionFinish();
    EXPECT_FALSE(recorder.Take().isEmpty());
}

// Also in a language whose texts end otherwise.
TEST_F(Frame, AToolButtonIsNamedWithoutTheMarksOfTheMenu)
{
    const std::pair<QString, QString> texts[] = {{u"&Account..."_s, u"Account"_s},
                                                 {u"&Konto \u2026"_s, u"Konto"_s},
                                                 {u"Re&fresh "_s, u"Refresh"_s}};
    for (const auto &[text, name] : texts) {
        QObject owner;
        const QAction *command = MakeCommand(
            {"command", text, {}}, [] {}, &owner);
        EXPECT_EQ(command->iconText(), name);
        EXPECT_EQ(command->text(), text);
        EXPECT_EQ(command->toolTip(), name);
    }
}

TEST_F(Frame, TimersStartAMomentAfterTheWindow)
{
    Config().WriteText(values::kPaneAutoRefreshMode, u"2"_s);
    ShowFrame();
    EXPECT_FALSE(Timer("pollTimer").isActive());
    EXPECT_EQ(RefreshPeriod(), -1);
    EXPECT_EQ(Timer("startDelay").interval(), 2000);
    Fire("startDelay");
    EXPECT_EQ(Timer("pollTimer").interval(), 60000);
    EXPECT_TRUE(Timer("pollTimer").isActive());
    EXPECT_EQ(RefreshPeriod(), 180000);
    AddUser({.name = "new"});
    Fire("refreshTimer");
    EXPECT_EQ(Names(), QStringList(u"new"_s));
    EXPECT_EQ(Find<QLabel>(*frame, "usersPane").text(), u"Active users: 1 "_s);
}

TEST_F(Frame, StoredRefreshModesStartTheirTimers)
{
    struct Case
    {
        const char16_t *mode, *period;
        int milliseconds;
    };
    const Case cases[] = {
        {u"0", u"5", -1},
        {u"1", u"0", 60000},
        {u"2", u"0", 180000},
        {u"3", u"0", 300000},
        {u"4", u"0", 600000},
        {u"5", u"10", 10000}, // seconds here
        {u"5", u"1", 1000},
        {u"5", u"0", 1000},
        {u"5", u"-7", 1000},
        {u"6", u"10", -1},
        {u"-1", u"10", -1},
        {u"x", u"10", -1},
        {u"5", u"2147483647", 2147483647},
    };
    for (const auto &[mode, period, milliseconds] : cases) {
        Config().WriteText(values::kPaneAutoRefreshMode, QString::fromUtf16(mode));
        Config().WriteText(values::kPaneAutoRefreshPeriod, QString::fromUtf16(period));
        ShowFrame();
        Fire("startDelay");
        EXPECT_EQ(RefreshPeriod(), milliseconds) << qPrintable(QString::fromUtf16(period));
        CloseFrame();
    }
}

TEST_F(Frame, ChoosingAPeriodReplacesTheTimer)
{
    ShowFrame();
    const std::tuple<QString, int> choices[] = {{u"Each minute"_s, 60000},
                                                {u"Each 3 minutes"_s, 180000},
                                                {u"Each 5 minutes"_s, 300000},
                                                {u"Each 10 minutes"_s, 600000},
                                                {u"No auto refresh"_s, -1}};
    for (const auto &[entry, milliseconds] : choices) {
        ChooseFrom(u"View"_s, entry);
        EXPECT_EQ(RefreshPeriod(), milliseconds) << qPrintable(entry);
        EXPECT_TRUE(MenuTexts(Menu(u"View"_s)).contains(u'*' + entry));
    }
    {
        const WhileModal period([](QDialog &dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Refresh period"_s);
            auto &field = Find<NumberField>(dialog, "period");
            EXPECT_EQ(field.accessibleName(), u"Enter refresh period, min"_s);
            QTest::keyClicks(&field, u"10"_s);
            Grab(dialog, u"refresh-period"_s);
            QTest::keyClick(&field, Qt::Key_Return);
        });
        ChooseFrom(u"View"_s, u"Custom period..."_s);
    }
    EXPECT_EQ(RefreshPeriod(), 600000); // minutes here
    {
        const WhileModal period([](QDialog &dialog) { Click(dialog, "cancel"); });
        ChooseFrom(u"View"_s, u"Custom period..."_s);
    }
    Fire("startDelay"); // the choice made meanwhile stands
    EXPECT_EQ(RefreshPeriod(), 600000);
    CloseFrame();
    EXPECT_EQ(Config().ReadText(values::kPaneAutoRefreshMode), u"5"_s);
    EXPECT_EQ(Config().ReadText(values::kPaneAutoRefreshPeriod), u"10"_s);
}

TEST_F(Frame, TheRefreshPeriodLiesBetween1And30)
{
    ShowFrame();
    const WhileModal period([this](QDialog &dialog) {
        auto &field = Find<NumberField>(dialog, "period");
        for (const QString &typed : {u"31"_s, u"0"_s, u"2,5"_s, u""_s}) {
            Type(field, typed);
            QTest::keyClick(&field, Qt::Key_Return);
            EXPECT_EQ(prompt.TakeSaid(),
                      QStringList(u"Please enter an integer between 1 and 30."_s))
                << qPrintable(typed);
            EXPECT_TRUE(dialog.isVisible());
            EXPECT_EQ(field.text(), typed);
        }
        Type(field, u"29"_s);
        QTest::keyClick(&field, Qt::Key_Up);
        QTest::keyClick(&field, Qt::Key_Up);
        QTest::keyClick(&field, Qt::Key_Return);
    });
    ChooseFrom(u"View"_s, u"Custom period..."_s);
    EXPECT_EQ(RefreshPeriod(), 30 * 60000);
}

TEST_F(Frame, ColumnsAreLoadedWithTheVerdictBefore)
{
    AddUser({.name = "anna", .station = "pc", .fullName = "Anna", .ip = "10.0.0.1"});
    Config().WriteText(values::kViewUserHdr, u"0"_s); // "ViewWksHdr" is missing: hidden too
    Config().WriteText(values::kViewNameHdr, u"1"_s);
    Config().WriteText(values::kViewMACHdr, u"no"_s); // anything but "0" shows
    Config().WriteText(values::kViewAccessHdr, u"0"_s);
    Config().WriteText(values::kIPHdrWidth, u"180"_s);
    ShowFrame();
    EXPECT_EQ(RowTexts(Users()), QStringList(u"Anna|10.0.0.1||Everybody"_s));
    EXPECT_EQ(Users().columnWidth(0), 150);
    EXPECT_EQ(Users().columnWidth(1), 180);
    Users().setColumnWidth(1, 333); // dragged
    CloseFrame();
    const std::pair<TextValue, QString> kept[] = {
        {values::kViewUserHdr, u"0"_s},
        {values::kViewWksHdr, u"0"_s},
        {values::kViewNameHdr, u"1"_s},
        {values::kViewIPHdr, u"1"_s},
        {values::kViewMACHdr, u"1"_s},
        {values::kViewGroupHdr, u"1"_s},
        {values::kViewAccessHdr, u"0"_s},
        {values::kUserHdrWidth, u"150"_s},
        {values::kWksHdrWidth, u"150"_s},
        {values::kNameHdrWidth, u"150"_s},
        {values::kIPHdrWidth, u"180"_s},
        {values::kMACHdrWidth, u"100"_s},
        {values::kGroupHdrWidth, u"100"_s},
        {values::kAccessHdrWidth, u"75"_s},
    };
    for (const auto &[value, text] : kept) {
        EXPECT_EQ(Config().ReadText(value), text) << value.name;
    }
}

TEST_F(Frame, WithoutAColumnOfTheUsersOwnTheListStaysEmpty)
{
    AddUser({.name = "anna"});
    ShowFrame();
    for (const QString &column :
         {u"Username"_s, u"Workstation"_s, u"Full name"_s, u"IP Address"_s, u"MAC Address"_s}) {
        EXPECT_EQ(Users().RowCount(), 1) << qPrintable(column);
        ChooseFrom(u"Columns"_s, column);
    }
    StatementRecorder recorder;
    Command("refresh").trigger();
    EXPECT_EQ(Users().RowCount(), 0);
    EXPECT_FALSE(IsShown(Users(), "emptyNote")) << "there may be users";
    EXPECT_EQ(Users().model()->columnCount(), 2);
    EXPECT_EQ(recorder.Take(),
              QStringList(u"SELECT name, descrip, blocked, group_id FROM groups"_s));
    ChooseFrom(u"Columns"_s, u"MAC Address"_s);
    EXPECT_EQ(Users().RowCount(), 1);
    EXPECT_EQ(MenuTexts(Menu(u"Columns"_s))[4], u"*MAC Address"_s);
}

TEST_F(Frame, WithoutAStoreEverythingHasItsDefault)
{
    UseConfigFolder(folder.filePath(u"nowhere"_s));
    AddUser({.name = "anna"});
    ShowFrame();
    EXPECT_EQ(Users().model()->columnCount(), 7);
    EXPECT_EQ(Users().columnWidth(6), 75);
    EXPECT_EQ(frame->SortOrder(), 0);
    CloseFrame();
    EXPECT_FALSE(Config().HasKey(ConfigKeyId::Base)); // the console makes no keys
}

TEST_F(Frame, FirstStartRunsTheWizardOrOffersToReconnect)
{
    Config().WriteText(values::kFirstStart, u"1"_s);
    ShowFrame();
    EXPECT_EQ(opened, QStringList(u"setupWizard"_s));
    EXPECT_EQ(Config().ReadText(values::kFirstStart), u"0"_s);
    CloseFrame();
    opened.clear();
    reconnectOutcome = {.serviceRunning = true, .connected = true};
    ShowFrame();
    EXPECT_EQ(opened, QStringList(u"reconnect"_s));
    EXPECT_EQ(Pictures(), u"SERVICEON CONN"_s);
    EXPECT_EQ(Config().ReadText(values::kFirstStart), u"0"_s);
}

TEST_F(Frame, TheStatusBarFollowsTheServiceDialogs)
{
    ShowFrame();
    EXPECT_EQ(Pictures(), u"SERVICEOFF NOCONN"_s);
    opened.clear();
    reconnectOutcome = {.serviceRunning = true, .connected = false};
    DoubleClick("connectionPane");
    EXPECT_EQ(Pictures(), u"SERVICEON NOCONN"_s);
    reconnectOutcome = {.serviceRunning = true, .connected = true};
    Pane("connectionPane").setFocus();
    QTest::keyClick(&Pane("connectionPane"), Qt::Key_Return);
    EXPECT_EQ(Pictures(), u"SERVICEON CONN"_s);
    EXPECT_EQ(Pane("connectionPane").accessibleName(), u"Connected to the service"_s);
    EXPECT_EQ(opened.size(), 2);
    DoubleClick("connectionPane"); // while connected nothing happens
    EXPECT_EQ(opened.size(), 2);

    const std::tuple<ControlOutcome, QString> outcomes[] = {
        {{.serviceRunning = true, .stopped = false}, u"SERVICEON CONN"_s},
        {{.serviceRunning = true, .stopped = true},
         u"SERVICEON NOCONN"_s}, // stopped and started again
        {{.serviceRunning = false, .stopped = true}, u"SERVICEOFF NOCONN"_s},
    };
    for (const auto &[outcome, pictures] : outcomes) {
        controlOutcome = outcome;
        DoubleClick("servicePane");
        EXPECT_EQ(Pictures(), pictures);
    }
    opened.clear();
    QTest::keyClick(&Pane("servicePane"), Qt::Key_Space);
    EXPECT_EQ(opened, QStringList(u"serviceControl"_s));
}

TEST_F(Frame, ThePollShowsAServiceThatIsGone)
{
    reconnectOutcome = {.serviceRunning = true, .connected = true};
    ShowFrame(); // nobody answers on the bus
    EXPECT_EQ(Pictures(), u"SERVICEON CONN"_s);
    Fire("startDelay");
    Fire("pollTimer");
    EXPECT_EQ(Pictures(), u"SERVICEOFF NOCONN"_s);
    opened.clear();
    DoubleClick("connectionPane"); // kept: the flag still says connected
    EXPECT_EQ(opened, QStringList());
}

TEST_F(Frame, ThePanesAreReachedByTab)
{
    ShowFrame();
    QSet<QString> reached;
    Find<QWidget>(*frame, "findUser").setFocus();
    for (int step = 0; step < 14; ++step) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab, Qt::ShiftModifier);
        reached.insert(QApplication::focusWidget()->objectName());
    }
    for (const QString &name : {u"servicePane"_s,
                                u"connectionPane"_s,
                                u"usersList"_s,
                                u"groupsList"_s,
                                u"findUser"_s,
                                u"find"_s,
                                u"savedFilters"_s}) {
        EXPECT_TRUE(reached.contains(name)) << qPrintable(name);
    }
}

TEST_F(Frame, FullListsSayHowManyThereAre)
{
    Execute(
        "INSERT INTO users (username, group_id) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT "
        "i + 1 FROM n WHERE i < 1000) SELECT 'user' || i, 80 FROM n");
    ShowFrame();
    Settle();
    EXPECT_EQ(Notice(), u"Ready"_s); // all of them are listed
    Execute(
        "INSERT INTO groups (name) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n "
        "WHERE i < 500) SELECT 'group' || i FROM n");
    AddUser({.name = "one more"});
    Command("refresh").trigger();
    Settle();
    const QLocale locale;
    EXPECT_EQ(Notice(),
              u"The first %1 of %2 users are listed. The first 500 of 501 groups are listed."_s.arg(
                  locale.toString(1000), locale.toString(1001)));
    EXPECT_EQ(Find<QLabel>(*frame, "usersPane").text(), u"Active users: 1000 "_s);
}

TEST_F(Frame, FailedStatementsAreCountedAndListed)
{
    ShowFrame();
    EXPECT_FALSE(IsShown(*frame, "failuresPane"));
    for (int number = 0; number < 201; ++number) {
        FailureLog::Instance().Add({.statement = u"SELECT %1 FROM nowhere"_s.arg(number),
                                    .sqlState = u"42S02"_s,
                                    .text = u"no such table: nowhere"_s});
    }
    EXPECT_EQ(Find<QAbstractButton>(*frame, "failuresPane").text(), u"Failed statements: 201"_s);
    const WhileModal list([](QDialog &dialog) {
        const auto rows = RowTexts(Find<QTreeWidget>(dialog, "failures"));
        EXPECT_EQ(rows.size(), 200);
        EXPECT_TRUE(rows.front().contains(u"|SELECT 200 FROM nowhere|42S02|"_s));
        Click(dialog, "copy");
        EXPECT_EQ(QApplication::clipboard()->text().count(u'\n'), 200);
        Grab(dialog, u"failed-statements"_s);
        Click(dialog, "close");
    });
    Click(*frame, "failuresPane");
}

TEST_F(Frame, TheProgramsOwnWindowsAreConnected)
{
    const FrameDialogs own = StandardDialogs(Services());
    EXPECT_TRUE(own.serviceControl && own.reconnect && own.purge && own.unmonitored && own.logins
                && own.helpTopics && own.about && own.userAccount && own.groupStatistics);
    dialogs = own;
    const WhileModal reconnect([](QDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Try to reconnect?"_s);
        dialog.reject();
    });
    ShowFrame();
    EXPECT_EQ(Pictures(), u"SERVICEOFF NOCONN"_s);
}
