#include "support/core/fake_service.h"
#include "support/windows/keyboard.h"
#include "support/windows/modal.h"
#include "support/windows/widgets.h"
#include "support/windows/window_fixture.h"
#include "ui/common/ip_address_field.h"
#include "ui/options/login_manager.h"
#include "ui/options/purge_dialog.h"
#include "ui/options/unmonitored_dialog.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QHeaderView>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QRadioButton>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

class AdminDialogs : public WindowFixture
{
protected:
    static void Press(QDialog &dialog, QDialogButtonBox::StandardButton which)
    {
        Click(*dialog.findChild<QDialogButtonBox *>()->button(which));
    }

    static QStringList Rows(const char *sql) { return RowsOf(sql); }
};

class UnmonitoredWindow : public AdminDialogs
{ };

TEST_F(UnmonitoredWindow, BringsBackTheSelectedUsersOnly)
{
    for (const auto *name : {"ann", "bob", "cid", "dan"}) {
        Execute("INSERT INTO users (username, ip_addr, group_id, monitored) VALUES ((?), "
                "'10.0.0.1', 80, false)",
                QString::fromLatin1(name));
    }
    UnmonitoredDialog dialog(Services(), LoadUnmonitored().value(), nullptr);
    dialog.show();
    auto &list = Find<QListWidget>(dialog, "users");
    EXPECT_EQ(RowTexts(list)[0], u"ann(10.0.0.1)"_s);
    EXPECT_FALSE(Find<QPushButton>(dialog, "monitor").isEnabled());
    EXPECT_FALSE(IsShown(dialog, "emptyNote"));
    ClickCell(list, 1, 0);
    ClickCell(list, 3, 0, Qt::ControlModifier);
    Grab(dialog, u"unmonitored"_s);
    Click(dialog, "monitor");
    EXPECT_FALSE(Find<QPushButton>(dialog, "monitor").isEnabled());
    EXPECT_EQ(Rows("SELECT username FROM users WHERE monitored = true ORDER BY username"),
              (QStringList {u"bob"_s, u"dan"_s}));
    // The list and its ids still correspond row for row.
    ClickCell(list, 1, 0);
    Click(dialog, "monitor");
    EXPECT_EQ(Rows("SELECT username FROM users WHERE monitored = false"), QStringList {u"ann"_s});
}

TEST_F(UnmonitoredWindow, TheKeyboardAloneIsEnough)
{
    for (const auto *name : {"ann", "bob"}) {
        Execute("INSERT INTO users (username, group_id, monitored) VALUES ((?), 80, false)",
                QString::fromLatin1(name));
    }
    const WhileModal watch([](QDialog &dialog) {
        TabTo(dialog, "users");
        ::Press(Qt::Key_Down);
        ExpectKeyboardReachesAll(dialog);
        TabTo(dialog, "users");
        ::Press(Qt::Key_Home);
        ::Press(Qt::Key_End, Qt::ShiftModifier);
        PressButton(dialog, "monitor");
        EXPECT_EQ(Find<QListWidget>(dialog, "users").count(), 0);
        EXPECT_TRUE(IsShown(dialog, "emptyNote"));
        ::Press(Qt::Key_Escape);
    });
    OpenUnmonitored(Services(), nullptr);
    EXPECT_TRUE(Rows("SELECT username FROM users WHERE monitored = false").isEmpty());
}

class PurgeWindow : public AdminDialogs
{
protected:
    void SetUp() override
    {
        AdminDialogs::SetUp();
        service.SetStates({u"inactive"_s});
        UseBus(bus.Connection());
        for (const Day day : {Day {2026, 3, 1}, Day {2026, 3, 2}, Day {2026, 3, 9}}) {
            Execute("INSERT INTO traffic_use (user_id, period, current_time, data) VALUES "
                    "(1, 0, (?), 1)",
                    day);
        }
        Execute("INSERT INTO users (username, group_id) VALUES ('ann', 80)");
        Execute("INSERT INTO sites (sitename) VALUES ('example.org')");
    }

    void TearDown() override
    {
        UseBus(QDBusConnection(u"nobody"_s));
        AdminDialogs::TearDown();
    }

    PrivateBus bus;
    FakeService service {bus};
    const TodayOverride today {{2026, 3, 9}};
};

TEST_F(PurgeWindow, ShowsWhatWouldGoAndLeavesItOnNo)
{
    PurgeDialog dialog(Services(), nullptr);
    dialog.show();
    EXPECT_FALSE(Find<QLineEdit>(dialog, "since").isEnabled());
    EXPECT_FALSE(Find<QCheckBox>(dialog, "deleteUsers").isEnabled());
    Click(dialog, "today");
    const QStringList before = EveryRow();
    Click(dialog, "purge");
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList {
                  u"This will erase the particular information from your database. Continue?"_s});
    EXPECT_EQ(RowTexts(Find<QTreeWidget>(dialog, "outcome"))[0], u"Traffic records|2|"_s);
    EXPECT_EQ(EveryRow(), before);
}

TEST_F(PurgeWindow, RemovesWhatIsOlderThanThePeriod)
{
    PurgeDialog dialog(Services(), nullptr);
    dialog.show();
    Click(dialog, "lastWeek"); // from 3 March on
    prompt.AnswerWith({true});
    Click(dialog, "purge");
    EXPECT_EQ(prompt.TakeSaid().last(), u"Purge complete"_s);
    EXPECT_EQ(RowTexts(Find<QTreeWidget>(dialog, "outcome"))[0], u"Traffic records|2|2"_s);
    Grab(dialog, u"purge"_s);
    EXPECT_EQ(Rows("SELECT current_time FROM traffic_use"), QStringList {u"2026-03-09"_s});
    EXPECT_EQ(Rows("SELECT sitename FROM sites").size(), 1);
}

TEST_F(PurgeWindow, RefusesAPeriodThatEndsBeforeItBegins)
{
    PurgeDialog dialog(Services(), nullptr);
    dialog.show();
    Click(dialog, "custom");
    Type(Find(dialog, "until"), u"2026-03-01"_s);
    Type(Find(dialog, "since"), u"2026-03-02"_s);
    Click(dialog, "purge");
    EXPECT_EQ(
        prompt.TakeSaid(),
        QStringList {u"You entered incorrect time period. Please re-enter one of the dates"_s});
    EXPECT_EQ(Find<QLineEdit>(dialog, "until").text(), u"2026-03-02"_s);
    EXPECT_EQ(Find<QLineEdit>(dialog, "until").selectedText(), u"2026-03-02"_s);
    EXPECT_EQ(Rows("SELECT current_time FROM traffic_use").size(), 3);
    // The same day at both ends keeps exactly that day.
    prompt.AnswerWith({true});
    Click(dialog, "purge");
    EXPECT_EQ(Rows("SELECT current_time FROM traffic_use"), QStringList {u"2026-03-02"_s});
    EXPECT_EQ(dialog.focusWidget()->objectName(), u"close"_s) << "not at Help";
}

TEST_F(PurgeWindow, DaysStayAsTheyAreTypedAndAreRefusedWhenTheyAreNone)
{
    PurgeDialog dialog(Services(), nullptr);
    dialog.show();
    Click(dialog, "custom");
    Type(Find(dialog, "until"), u"2027-01-05"_s);
    const std::pair<QString, QString> days[] = {
        {u"2025-03-31"_s, u"Monday, 31 March 2025"_s},
        {u"2024-02-29"_s, u"Thursday, 29 February 2024"_s},
        {u"31.12.2025"_s, u"Wednesday, 31 December 2025"_s},
    };
    for (const auto &[typed, words] : days) {
        TypeInto(dialog, "since", typed);
        EXPECT_EQ(Find<QLineEdit>(dialog, "since").text(), typed);
        Click(dialog, "purge"); // No
        EXPECT_EQ(prompt.TakeGoing(),
                  QStringList(u"Kept are the days from %1 to Tuesday, 5 January 2027. All records "
                              "before and after go."_s.arg(words)));
        EXPECT_EQ(prompt.TakeSaid().size(), 1);
    }
    const QStringList before = EveryRow();
    for (const char *field : {"since", "until"}) {
        for (const QString &typed : {u"2025-02-30"_s, u"31.12"_s, u""_s}) {
            Type(Find(dialog, field), typed);
            Click(dialog, "purge");
            EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Please enter a day, as in 2026-03-09."_s));
            EXPECT_EQ(Find<QLineEdit>(dialog, field).text(), typed);
            EXPECT_TRUE(Find(dialog, field).hasFocus());
        }
        TypeInto(dialog, field, u"2026-03-09"_s);
    }
    EXPECT_EQ(EveryRow(), before);
}

TEST_F(PurgeWindow, AllInformationGoesAndUsersOnlyWhenAsked)
{
    for (const bool users : {false, true}) {
        PurgeDialog dialog(Services(), nullptr);
        dialog.show();
        Click(dialog, "all");
        if (users) {
            Click(dialog, "deleteUsers");
        }
        prompt.AnswerWith({true});
        Click(dialog, "purge");
        EXPECT_TRUE(Rows("SELECT current_time FROM traffic_use").isEmpty());
        EXPECT_TRUE(Rows("SELECT sitename FROM sites").isEmpty());
        EXPECT_EQ(Rows("SELECT username FROM users").isEmpty(), users);
    }
}

TEST_F(PurgeWindow, OpensOnlyWhileTheServiceIsStopped)
{
    for (const auto &state : {u"active"_s, u"activating"_s, u"deactivating"_s}) {
        service.SetStates({state});
        OpenPurge(Services(), nullptr);
        EXPECT_EQ(prompt.TakeSaid(),
                  QStringList(u"Please stop the Tollbrook Service before proceeding"_s));
    }
    service.SetStates({u"inactive"_s});
    {
        const WhileModal watch([](QDialog &dialog) {
            Click(dialog, "all");
            ExpectKeyboardReachesAll(dialog);
            Click(dialog, "byPeriod");
            Click(dialog, "custom");
            ExpectKeyboardReachesAll(dialog);
            ::Press(Qt::Key_Escape);
        });
        OpenPurge(Services(), nullptr);
        EXPECT_TRUE(prompt.TakeSaid().isEmpty());
    }
    service.ForgetUnit();
    OpenPurge(Services(), nullptr);
    EXPECT_EQ(prompt.TakeSaid(), QStringList(u"Can not find records about Tollbrook Service!"_s));
}

TEST_F(PurgeWindow, AsksForTheServiceAgainWhenPurgeIsPressed)
{
    PurgeDialog dialog(Services(), nullptr);
    dialog.show();
    const QStringList before = EveryRow();
    service.SetStates({u"active"_s});
    Click(dialog, "purge");
    const QString refused = u"Please stop the Tollbrook Service before proceeding"_s;
    EXPECT_EQ(prompt.TakeSaid(), QStringList(refused));
    service.SetStates({u"inactive"_s, u"active"_s}); // it is started while the question stands
    prompt.AnswerWith({true});
    Click(dialog, "purge");
    EXPECT_EQ(prompt.TakeSaid().last(), refused);
    EXPECT_EQ(EveryRow(), before);
}

TEST_F(PurgeWindow, ReturnClosesWhereverTheFocusIs)
{
    for (const auto *name : {"byPeriod", "today", "purge", "help", "close"}) {
        PurgeDialog dialog(Services(), nullptr);
        dialog.show();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&dialog));
        Find<QWidget>(dialog, name).setFocus(Qt::TabFocusReason);
        ::Press(Qt::Key_Return);
        EXPECT_FALSE(dialog.isVisible()) << name;
        EXPECT_TRUE(prompt.TakeSaid().isEmpty()) << name;
    }
}

TEST_F(PurgeWindow, SaysTheDaysAsTheyAreComputed)
{
    struct Case
    {
        QDate today;
        const char *chosen; // at first
        QString week, month;
    };
    const Case cases[] = {
        {{2026, 3, 9},
         "lastMonth",
         u"from Tuesday, 3 March 2026"_s,
         u"from Monday, 9 February 2026"_s},
        // 30 February stands for the day after the month.
        {{2026, 3, 6},
         "lastMonth",
         u"from Sunday, 1 March 2026"_s,
         u"from Friday, 6 February 2026"_s},
        {{2026, 1, 9},
         nullptr,
         u"from Saturday, 3 January 2026"_s,
         u"from Wednesday, 9 December 2026, after today"_s},
        {{2026, 1, 5},
         nullptr,
         u"from Tuesday, 29 December 2026, after today"_s,
         u"from Saturday, 5 December 2026, after today"_s},
    };
    for (const Case &each : cases) {
        const TodayOverride another(each.today);
        PurgeDialog dialog(Services(), nullptr);
        dialog.show();
        EXPECT_EQ(Find<QLabel>(dialog, "lastWeekDay").text(), each.week);
        EXPECT_EQ(Find<QLabel>(dialog, "lastMonthDay").text(), each.month);
        for (const auto *name : {"today", "lastWeek", "lastMonth", "custom"}) {
            const bool isChosen = each.chosen != nullptr && qstrcmp(name, each.chosen) == 0;
            EXPECT_EQ(Find<QRadioButton>(dialog, name).isChecked(), isChosen) << name;
        }
        EXPECT_EQ(Find<QPushButton>(dialog, "purge").isEnabled(), each.chosen != nullptr);
    }
}

TEST_F(PurgeWindow, TheQuestionNamesTheDaysThatAreKept)
{
    PurgeDialog dialog(Services(), nullptr);
    dialog.show();
    const auto named = [&](const char *choice) {
        Click(dialog, choice);
        Click(dialog, "purge");
        return prompt.TakeGoing();
    };
    EXPECT_EQ(named("lastWeek"),
              QStringList(u"Kept are the days from Tuesday, 3 March 2026 to today, Monday, 9 March "
                          "2026. All records before go."_s));
    Click(dialog, "custom");
    Type(Find(dialog, "since"), u"2026-03-01"_s);
    Type(Find(dialog, "until"), u"2026-03-02"_s);
    EXPECT_EQ(named("custom"),
              QStringList(u"Kept are the days from Sunday, 1 March 2026 to Monday, 2 March 2026. "
                          "All records before and after go."_s));
    EXPECT_EQ(named("all"), QStringList(u"No record is kept."_s));
    Click(dialog, "deleteUsers");
    Click(dialog, "purge");
    EXPECT_EQ(prompt.TakeGoing(), QStringList(u"No record is kept, and no user."_s));
}

TEST_F(PurgeWindow, InJanuaryLastMonthAsksBeforeThisYearsRecordsGo)
{
    const TodayOverride january({2026, 1, 9});
    Execute("INSERT INTO traffic_use (user_id, period, current_time, data) VALUES (1, 0, (?), 1)",
            Day {2026, 1, 8});
    PurgeDialog dialog(Services(), nullptr);
    dialog.show();
    Click(dialog, "lastMonth");
    const QStringList before = EveryRow();
    Click(dialog, "purge"); // No
    const QString late = u"The period that is kept begins on Wednesday, 9 December 2026, which is "
                         "after today. All records up to today would go. Continue?"_s;
    EXPECT_EQ(prompt.TakeSaid(), QStringList(late));
    EXPECT_EQ(prompt.TakeGoing().size(), 1) << "a question on a removal";
    EXPECT_EQ(EveryRow(), before);
    prompt.AnswerWith({true, true});
    Click(dialog, "purge");
    EXPECT_EQ(prompt.TakeSaid().last(), u"Purge complete"_s);
    EXPECT_EQ(prompt.TakeGoing().last(),
              u"Kept is nothing up to today, Friday, 9 January 2026: all records before Wednesday, "
              "9 December 2026 go."_s);
    EXPECT_TRUE(Rows("SELECT current_time FROM traffic_use").isEmpty());
}

TEST_F(PurgeWindow, FitsASmallScreen)
{
    PurgeDialog dialog(Services(), nullptr);
    dialog.show();
    EXPECT_LE(dialog.minimumSizeHint().height(), 560);
    EXPECT_LE(dialog.minimumSizeHint().width(), 1024);
    EXPECT_LE(dialog.height(), 560);
    Grab(dialog, u"purge-days"_s);
}

class LoginWindow : public AdminDialogs
{
protected:
    void SetUp() override
    {
        AdminDialogs::SetUp();
        Execute("INSERT INTO users (username, group_id) VALUES ('ann', 80)");
        Execute("INSERT INTO users (username, group_id) VALUES ('bob', 80)");
        Execute("INSERT INTO Logins (login, Pwd, userid) VALUES ('ann1', 'old', (?))",
                (*FindUserByName(u"ann"_s))->userId);
        Execute("INSERT INTO Logins (login, Pwd, userid, Virtual) VALUES ('g', 'old', 0, 1)");
    }

    // The tree's entry with this text becomes the current one.
    static void Browse(QTreeWidget &tree, const QString &text)
    {
        const auto found = tree.findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(found.size(), 1) << qPrintable(text);
        tree.setCurrentItem(found.first());
    }
};

TEST_F(LoginWindow, TheTreeFiltersTheList)
{
    LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
    manager.show();
    auto &tree = Find<QTreeWidget>(manager, "groups");
    auto &list = Find<QTreeWidget>(manager, "logins");
    const std::pair<QString, QStringList> shown[] = {
        {u"All groups"_s, {u"ann1|ann|"_s, u"g||"_s}},
        {u"Everybody"_s, {u"ann1|ann|"_s}},
        {u"Guest"_s, {u"g||"_s}},
        {u"With no bind"_s, {u"g||"_s}},
    };
    for (const auto &[entry, rows] : shown) {
        Browse(tree, entry);
        EXPECT_EQ(RowTexts(list), rows) << qPrintable(entry);
    }
}

TEST_F(LoginWindow, ANewLoginIsBoundLimitedAndStoredOnOk)
{
    LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
    manager.show();
    const WhileModal creating([&](QDialog &dialog) {
        Type(Find(dialog, "name"), u"bob1"_s);
        Type(Find(dialog, "password"), u"secret"_s);
        Type(Find(dialog, "retyped"), u"secret"_s);
        Click(dialog, "bindToUser");
        {
            const WhileModal browsing([&](QDialog &browser) {
                auto &users = Find<QTreeWidget>(browser, "users");
                Press(browser, QDialogButtonBox::Ok);
                EXPECT_EQ(prompt.TakeSaid(),
                          QStringList {u"Please select username, not the groupname"_s});
                Browse(users, u"ann"_s);
                Press(browser, QDialogButtonBox::Ok);
                EXPECT_EQ(
                    prompt.TakeSaid(),
                    QStringList {u"This user already has login. Please select another user"_s});
                Browse(users, u"bob"_s);
                Press(browser, QDialogButtonBox::Ok);
            });
            Click(dialog, "browse");
        }
        Click(dialog, "byIp");
        Press(dialog, QDialogButtonBox::Ok);
        EXPECT_EQ(prompt.TakeSaid(),
                  QStringList {u"You entered incorrect IP address. Please re-enter address"_s});
        Find<IpAddressField>(dialog, "ip").SetAddress(0x0A000007);
        Grab(dialog, u"create-login"_s);
        Press(dialog, QDialogButtonBox::Ok);
    });
    Click(manager, "create");
    EXPECT_EQ(Rows("SELECT login FROM logins").size(), 2); // not before OK
    Grab(manager, u"login-manager"_s);
    Press(manager, QDialogButtonBox::Ok);
    EXPECT_EQ(Rows("SELECT login, LimitPC, LimitPCMode, LimitIP, Pwd FROM logins WHERE login = "
                   "'bob1'"),
              QStringList {u"bob1|1|0|10.0.0.7|b 6d1c2fee12fde2cf6fd690a11b24c3"_s});
}

TEST_F(LoginWindow, AnEditedLoginKeepsItsPasswordUnlessItIsTyped)
{
    for (const bool typed : {false, true}) {
        LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
        manager.show();
        auto &list = Find<QTreeWidget>(manager, "logins");
        const WhileModal editing([&](QDialog &dialog) {
            EXPECT_FALSE(Find<QCheckBox>(dialog, "guest").isEnabled());
            Click(dialog, "allowStats");
            if (typed) {
                Type(Find(dialog, "password"), u"secret"_s);
                Type(Find(dialog, "retyped"), u"secret"_s);
            }
            Press(dialog, QDialogButtonBox::Ok);
        });
        ClickCell(list, 0, 0);
        Click(manager, "edit");
        Press(manager, QDialogButtonBox::Ok);
        EXPECT_EQ(Rows("SELECT Pwd FROM logins WHERE login = 'ann1'"),
                  QStringList {typed ? u"b 6d1c2fee12fde2cf6fd690a11b24c3"_s : u"old"_s});
    }
}

TEST_F(LoginWindow, RemoveAsksAndCancelKeepsEverything)
{
    const QStringList before = EveryRow();
    LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
    manager.show();
    auto &list = Find<QTreeWidget>(manager, "logins");
    ClickCell(list, 0, 0);
    Click(manager, "remove");
    EXPECT_EQ(prompt.TakeSaid(), QStringList {u"Remove this login from the database?"_s});
    EXPECT_EQ(prompt.TakeGoing(), QStringList {RowTexts(list)[0].section(u'|', 0, 0)});
    EXPECT_EQ(RowTexts(list).size(), 2);
    prompt.AnswerWith({true});
    ClickCell(list, 0, 0);
    Click(manager, "remove");
    EXPECT_EQ(RowTexts(list), QStringList {u"g||"_s});
    EXPECT_EQ(list.currentItem()->text(0), u"g"_s) << "took the place of the one that went";
    (void)prompt.TakeSaid();
    (void)prompt.TakeGoing();
    ::Press(Qt::Key_Escape); // No
    EXPECT_TRUE(manager.isVisible());
    EXPECT_EQ(prompt.TakeSaid(),
              QStringList {u"The changes of these logins are not saved. Drop them?"_s});
    EXPECT_EQ(prompt.TakeGoing(), QStringList {u"ann1"_s});
    prompt.AnswerWith({true});
    Press(manager, QDialogButtonBox::Cancel);
    EXPECT_FALSE(manager.isVisible());
    EXPECT_EQ(EveryRow(), before);
}

TEST_F(LoginWindow, TheKeysOfTheListWorkOnTheCurrentLogin)
{
    LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
    manager.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&manager));
    auto &list = Find<QTreeWidget>(manager, "logins");
    const auto press = [&](Qt::Key key) {
        manager.activateWindow(); // a dialog that closes leaves no active window here
        EXPECT_TRUE(QTest::qWaitForWindowActive(&manager));
        list.setFocus();
        QTest::keyClick(&list, key);
    };
    ClickCell(list, 1, 0);
    for (const Qt::Key key : {Qt::Key_Return, Qt::Key_Enter}) {
        const WhileModal editing([&](QDialog &dialog) {
            EXPECT_EQ(dialog.windowTitle(), u"Login properties"_s);
            EXPECT_EQ(Find<QLineEdit>(dialog, "name").text(), u"g"_s);
            dialog.reject();
        });
        press(key);
        EXPECT_TRUE(manager.isVisible());
    }
    prompt.AnswerWith({true});
    press(Qt::Key_Delete);
    EXPECT_EQ(prompt.TakeGoing(), QStringList {u"g"_s});
    EXPECT_EQ(RowTexts(list), QStringList {u"ann1|ann|"_s});
    list.clearSelection();
    press(Qt::Key_Return);
    press(Qt::Key_Delete);
    EXPECT_TRUE(prompt.TakeGoing().isEmpty());
    EXPECT_TRUE(manager.isVisible());
}

TEST_F(LoginWindow, EscapeClosesWhenNothingIsUnsaved)
{
    LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
    manager.show();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&manager));
    ::Press(Qt::Key_Escape);
    EXPECT_FALSE(manager.isVisible());
    EXPECT_TRUE(prompt.TakeSaid().isEmpty());
}

TEST_F(LoginWindow, TheHeadersSort)
{
    for (const auto &[name, address] : {std::pair {u"Zoe"_s, u"10.0.0.10"_s},
                                        std::pair {u"adam"_s, u"10.0.0.9"_s},
                                        std::pair {u"Bea"_s, u"9.1.1.1"_s}}) {
        Execute("INSERT INTO Logins (login, Pwd, userid, LimitPC, LimitIP) VALUES ((?), 'x', -1, "
                "1, (?))",
                name,
                address);
    }
    LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
    manager.show();
    auto &list = Find<QTreeWidget>(manager, "logins");
    const auto names = [&list] {
        QStringList shown;
        for (const QString &row : RowTexts(list)) {
            shown << row.section(u'|', 0, 0);
        }
        return shown;
    };
    const auto click = [&list](int section) {
        QTest::mouseClick(list.header()->viewport(),
                          Qt::LeftButton,
                          {},
                          QPoint(list.header()->sectionViewportPosition(section) + 10, 5));
    };
    EXPECT_EQ(names(), QStringList({u"adam"_s, u"ann1"_s, u"Bea"_s, u"g"_s, u"Zoe"_s}));
    click(0);
    EXPECT_EQ(names().first(), u"Zoe"_s);
    click(2);
    EXPECT_EQ(names().mid(2), QStringList({u"Bea"_s, u"adam"_s, u"Zoe"_s})) << "by number";

    ClickCell(list, 3, 0);
    const WhileModal editing([](QDialog &dialog) {
        EXPECT_EQ(Find<QLineEdit>(dialog, "name").text(), u"adam"_s);
        EXPECT_FALSE(Find<QCheckBox>(dialog, "bindToUser").isChecked()) << "-1 is no user";
        dialog.reject();
    });
    Click(manager, "edit");
}

// And not "Browse for user...", whose dialog would wait for an answer.
TEST_F(LoginWindow, ReturnInAFieldIsOk)
{
    const auto pressReturn = [](const QDialog &dialog) {
        ClosedDialogs opened;
        ::Press(Qt::Key_Return);
        EXPECT_EQ(opened.Take(), 0);
        EXPECT_FALSE(dialog.isVisible());
    };
    LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
    manager.show();
    {
        const WhileModal creating([&](QDialog &dialog) {
            Click(dialog, "bindToUser"); // "Browse for user..." can be pressed from now on
            Click(dialog, "bindToUser");
            TypeInto(dialog, "name", u"bob1"_s);
            TypeInto(dialog, "password", u"secret"_s);
            TypeInto(dialog, "retyped", u"secret"_s);
            pressReturn(dialog);
        });
        Click(manager, "create");
    }
    auto &list = Find<QTreeWidget>(manager, "logins");
    EXPECT_EQ(list.topLevelItemCount(), 3);
    list.setCurrentItem(list.topLevelItem(0)); // bound to ann
    const WhileModal editing([&](QDialog &dialog) {
        EXPECT_TRUE(Find(dialog, "browse").isEnabled());
        Type(Find(dialog, "password"), u"other"_s);
        Type(Find(dialog, "retyped"), u"other"_s);
        pressReturn(dialog);
    });
    Click(manager, "edit");
}

TEST_F(LoginWindow, APasswordThatIsTooLongIsMarkedWhileItIsTyped)
{
    LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
    manager.show();
    const WhileModal creating([](QDialog &dialog) {
        const std::pair<QString, bool> cases[] = {{QString(256, u'p'), false},
                                                  {QString(257, u'p'), true},
                                                  {QString(129, u'\u00e9'), true},
                                                  {u"short"_s, false}};
        for (const auto *field : {"password", "retyped"}) {
            for (const auto &[text, tooLong] : cases) {
                Paste(Find(dialog, field), text);
                EXPECT_EQ(IsShown(dialog, "passwordNote"), tooLong) << text.size();
                if (tooLong) {
                    Grab(dialog, u"long-password"_s);
                }
            }
        }
        dialog.reject();
    });
    Click(manager, "create");
}

TEST_F(LoginWindow, PasswordsOfUpTo256CharactersAreTaken)
{
    const std::pair<qsizetype, bool> cases[] = {
        {0, true}, {1, true}, {255, true}, {256, true}, {300, false}};
    LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
    manager.show();
    for (const auto &[length, taken] : cases) {
        const WhileModal creating([length = length, taken = taken, this](QDialog &dialog) {
            Type(Find(dialog, "name"), u"of %1"_s.arg(length));
            Paste(Find(dialog, "password"), QString(length, u'p'));
            Paste(Find(dialog, "retyped"), QString(length, u'p'));
            Press(dialog, QDialogButtonBox::Ok);
            EXPECT_EQ(dialog.isVisible(), !taken) << length;
            EXPECT_EQ(prompt.TakeSaid().join(u'|').startsWith(u"The password is too long"_s),
                      !taken);
            dialog.reject();
        });
        Click(manager, "create");
    }
    Press(manager, QDialogButtonBox::Ok);
    EXPECT_EQ(Rows("SELECT login FROM logins WHERE login LIKE 'of%' ORDER BY login"),
              (QStringList {u"of 0"_s, u"of 1"_s, u"of 255"_s, u"of 256"_s}));
}

TEST_F(LoginWindow, The1001stLoginAndAWrongMacAreRefused)
{
    for (int number = 2; number < 1000; ++number) {
        Execute("INSERT INTO Logins (login, Pwd) VALUES ((?), 'x')", u"login%1"_s.arg(number));
    }
    LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
    manager.show();
    EXPECT_EQ(Find<QTreeWidget>(manager, "logins").topLevelItemCount(), 1000);
    const WhileModal creating([this](QDialog &dialog) {
        Type(Find(dialog, "name"), u"one more"_s);
        Click(dialog, "byMac");
        for (const auto &mac : {u"0011AABBCCD"_s, u"0011AABBCCDDE"_s}) {
            Paste(Find(dialog, "mac"), mac);
            Press(dialog, QDialogButtonBox::Ok);
            EXPECT_EQ(
                prompt.TakeSaid(),
                QStringList(
                    u"You have entered incorrect MAC address. Please re-enter the address"_s));
        }
        Paste(Find(dialog, "mac"), u"0011AABBCCDD"_s);
        Press(dialog, QDialogButtonBox::Ok);
        EXPECT_EQ(prompt.TakeSaid(),
                  QStringList(u"There is no more space to enter new login record"_s));
        dialog.reject();
    });
    Click(manager, "create");
}

TEST_F(LoginWindow, ARefusedAddressIsGoneToWhereItIsIncomplete)
{
    LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
    manager.show();
    const WhileModal creating([this](QDialog &dialog) {
        Click(dialog, "byIp");
        auto &ip = Find<IpAddressField>(dialog, "ip");
        Paste(*ip.findChild<QLineEdit *>(), u"10.0.0.7"_s);
        QLineEdit &third = *ip.findChildren<QLineEdit *>().at(2);
        Type(third, u"x"_s);
        Press(dialog, QDialogButtonBox::Ok);
        EXPECT_EQ(prompt.TakeSaid(),
                  QStringList(u"You entered incorrect IP address. Please re-enter address"_s));
        EXPECT_EQ(dialog.focusWidget(), &third);
        dialog.reject();
    });
    Click(manager, "create");
}

TEST_F(LoginWindow, AListWithoutLoginsSaysWhy)
{
    LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
    manager.show();
    const auto &note = Find<QLabel>(manager, "emptyNote");
    EXPECT_FALSE(note.isVisible());
    Execute("DELETE FROM Logins WHERE Virtual = 1");
    LoginManager one(Services(), LoginManager::Read().value(), nullptr);
    one.show();
    Browse(Find<QTreeWidget>(one, "groups"), u"Guest"_s);
    EXPECT_TRUE(IsShown(one, "emptyNote"));
    EXPECT_EQ(Find<QLabel>(one, "emptyNote").text(), u"None of the logins belongs here."_s);
    Execute("DELETE FROM Logins");
    LoginManager none(Services(), LoginManager::Read().value(), nullptr);
    none.show();
    EXPECT_TRUE(IsShown(none, "emptyNote"));
    EXPECT_EQ(Find<QLabel>(none, "emptyNote").text(), u"There are no logins yet."_s);
    Grab(none, u"no-logins"_s);
}

TEST_F(LoginWindow, TheKeyboardAloneIsEnough)
{
    const WhileModal managing([this](QDialog &manager) {
        TabTo(manager, "logins");
        ::Press(Qt::Key_Down);
        ExpectKeyboardReachesAll(manager);
        const WhileModal creating([this](QDialog &dialog) {
            TypeInto(dialog, "name", u"bob1"_s);
            PressButton(dialog, "bindToUser");
            TabTo(dialog, "noLimit");
            ::Press(Qt::Key_Down);
            TypeInto(dialog, "ip", u"10.0.0.7"_s);
            ExpectKeyboardReachesAll(dialog);
            const WhileModal browsing([](QDialog &browser) {
                ExpectKeyboardReachesAll(browser);
                TabTo(browser, "users");
                ::Press(Qt::Key_Home);
                ::Press(Qt::Key_Right);
                ::Press(Qt::Key_Down);
                ::Press(Qt::Key_Down);
                PressButton(browser, "ok");
            });
            PressButton(dialog, "browse");
            EXPECT_EQ(Find<QLineEdit>(dialog, "user").text(), u"bob"_s);
            PressButton(dialog, "ok");
            EXPECT_TRUE(prompt.TakeSaid().isEmpty());
        });
        PressButton(manager, "create");
        PressButton(manager, "ok");
    });
    OpenLoginManager(Services(), nullptr);
    EXPECT_EQ(Rows("SELECT login, username, LimitIP FROM logins, users WHERE userid = user_id AND "
                   "login = 'bob1'"),
              QStringList(u"bob1|bob|10.0.0.7"_s));
}
