// What the windows of logins, unmonitored users and the purge do while a statement fails.
#include "app/waiting.h"
#include "support/core/fake_service.h"
#include "support/windows/modal.h"
#include "support/windows/widgets.h"
#include "support/windows/window_fixture.h"
#include "ui/options/login_manager.h"
#include "ui/options/purge_dialog.h"
#include "ui/options/unmonitored_dialog.h"

#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalSpy>
#include <QTreeWidget>

using namespace Qt::StringLiterals;

class AdminFailures : public WindowFixture
{
protected:
    // The one message since the last call.
    QString Message()
    {
        const QStringList said = prompt.TakeSaid();
        EXPECT_EQ(said.size(), 1) << said.join(u" | "_s).toStdString();
        return said.value(0);
    }

    static void SelectText(QTreeWidget &tree, const QString &text)
    {
        const auto found = tree.findItems(text, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_EQ(found.size(), 1) << qPrintable(text);
        tree.setCurrentItem(found.first());
    }
};

class UnmonitoredFailures : public AdminFailures
{
protected:
    void SetUp() override
    {
        AdminFailures::SetUp();
        Execute("INSERT INTO users (username, group_id, monitored) VALUES ('ann', 80, false)");
        Execute("INSERT INTO users (username, group_id, monitored) VALUES ('bob', 80, false)");
    }
};

TEST_F(UnmonitoredFailures, UsersThatCannotBeReadOpenNothing)
{
    Execute("ALTER TABLE users RENAME TO away");
    OpenUnmonitored(Services(), nullptr);
    const QString told = Message();
    EXPECT_TRUE(told.startsWith(u"The unmonitored users could not be read."_s));
    EXPECT_TRUE(told.contains(u"no such table: users"_s)) << told.toStdString();
}

TEST_F(UnmonitoredFailures, UsersLeaveTheListOnlyWhenTheyAreBack)
{
    const QSignalSpy stored(&Services().news, &ChangeNews::Stored);
    UnmonitoredDialog dialog(Services(), LoadUnmonitored().value(), nullptr);
    dialog.show();
    auto &list = Find<QListWidget>(dialog, "users");
    list.selectAll();
    Execute("CREATE TRIGGER refuse BEFORE UPDATE ON users WHEN NEW.username = 'bob' BEGIN "
            "SELECT RAISE(ABORT, 'not bob'); END");
    Click(dialog, "monitor");
    const QString told = Message();
    EXPECT_TRUE(told.startsWith(u"No user was brought back under monitoring."_s));
    EXPECT_TRUE(told.contains(u"not bob"_s)) << told.toStdString();
    EXPECT_EQ(list.selectedItems().size(), 2);
    EXPECT_TRUE(RowsOf("SELECT username FROM users WHERE monitored = true").isEmpty());
    EXPECT_TRUE(stored.isEmpty());
    Execute("DROP TRIGGER refuse");
    Click(dialog, "monitor");
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    EXPECT_EQ(list.count(), 0);
    EXPECT_EQ(RowsOf("SELECT username FROM users WHERE monitored = true").size(), 2);
    EXPECT_EQ(stored.size(), 1);
}

class PurgeFailures : public AdminFailures
{
protected:
    void SetUp() override
    {
        AdminFailures::SetUp();
        UseBus(bus.Connection());
        for (const Day day : {Day {2026, 3, 1}, Day {2026, 3, 2}, Day {2026, 3, 9}}) {
            Execute("INSERT INTO traffic_use (user_id, period, current_time, data) VALUES "
                    "(1, 0, (?), 1)",
                    day);
            Execute("INSERT INTO time_use (user_id, period, current_time, data) VALUES "
                    "(1, 0, (?), 1)",
                    day);
        }
    }

    void TearDown() override
    {
        UseBus(QDBusConnection(u"nobody"_s));
        AdminFailures::TearDown();
    }

    // Presses "Purge" and says Yes; the rows as they are shown then.
    QStringList Purge(QDialog &dialog)
    {
        prompt.AnswerWith({true});
        Click(dialog, "purge");
        return RowTexts(Find<QTreeWidget>(dialog, "outcome"));
    }

    PrivateBus bus;
    FakeService service {bus}; // stopped
    const TodayOverride today {{2026, 3, 9}};
};

TEST_F(PurgeFailures, ACountThatFailedIsNotZeroAndStepsThatFailAreNamed)
{
    PurgeDialog dialog(Services(), nullptr);
    dialog.show();
    Click(dialog, "today");
    Execute("ALTER TABLE time_use RENAME TO away");
    EXPECT_EQ(Purge(dialog),
              (QStringList {u"Traffic records|not known|2"_s,
                            u"Time records|not known|failed"_s,
                            u"Limits and credits|not known|0"_s}));
    const QStringList said = prompt.TakeSaid();
    ASSERT_EQ(said.size(), 3) << said.join(u" | "_s).toStdString();
    EXPECT_TRUE(said[0].startsWith(u"The rows to remove could not be counted."_s));
    EXPECT_TRUE(
        said[2].startsWith(u"The purge is not complete. What is not named here was removed.\n"
                           "Not removed: Time records\n"_s))
        << said[2].toStdString();
    EXPECT_TRUE(said[2].contains(u"no such table: time_use"_s));
    EXPECT_EQ(RowsOf("SELECT current_time FROM traffic_use"), QStringList(u"2026-03-09"_s));
    EXPECT_EQ(RowsOf("SELECT current_time FROM away").size(), 3);
}

TEST_F(PurgeFailures, ATableOfWhichOnlyAPartWentSaysSo)
{
    PurgeDialog dialog(Services(), nullptr);
    dialog.show();
    Click(dialog, "custom");
    Type(Find(dialog, "since"), u"2026-03-02"_s);
    Type(Find(dialog, "until"), u"2026-03-02"_s);
    Execute("CREATE TRIGGER refuse BEFORE DELETE ON traffic_use WHEN OLD.current_time > "
            "'2026-03-02' BEGIN SELECT RAISE(ABORT, 'kept'); END");
    EXPECT_EQ(Purge(dialog).value(0), u"Traffic records|2|1, failed"_s);
    EXPECT_TRUE(prompt.TakeSaid().last().startsWith(u"The purge is not complete."_s));
    Execute("DROP TRIGGER refuse");
    EXPECT_EQ(Purge(dialog).value(0), u"Traffic records|1|1"_s);
    EXPECT_EQ(prompt.TakeSaid().last(), u"Purge complete"_s);
}

TEST_F(PurgeFailures, AfterACancelTheRestIsNotTried)
{
    const WaitDelayOverride soon(std::chrono::milliseconds(300));
    PurgeDialog dialog(Services(), nullptr);
    dialog.show();
    Click(dialog, "today");
    Execute("CREATE VIEW endless AS WITH RECURSIVE n(x) AS (SELECT 1 UNION ALL SELECT x + 1 FROM n "
            "WHERE x < 1000000000) SELECT x FROM n");
    Execute("CREATE TRIGGER slow BEFORE DELETE ON traffic_use BEGIN SELECT COUNT(*) FROM endless; "
            "END");
    const WhileWaiting cancelling([](QDialog &wait) { Click(wait, "cancel"); });
    const QStringList rows = Purge(dialog);
    const QString told = prompt.TakeSaid().last();
    EXPECT_TRUE(told.startsWith(u"The purge is not complete."_s)) << told.toStdString();
    EXPECT_TRUE(told.contains(u"Not tried after you cancelled: Time records, Limits and credits"_s))
        << told.toStdString();
    EXPECT_EQ(rows.value(1), u"Time records|2|"_s);
    EXPECT_EQ(RowsOf("SELECT current_time FROM time_use").size(), 3);
}

class LoginFailures : public AdminFailures
{
protected:
    void SetUp() override
    {
        AdminFailures::SetUp();
        Execute("INSERT INTO users (username, group_id) VALUES ('ann', 80)");
        Execute("INSERT INTO Logins (login, Pwd, userid) SELECT 'ann1', 'old', user_id FROM users");
        Execute("INSERT INTO users (username, group_id) VALUES ('bob', 80)");
    }
};

TEST_F(LoginFailures, LoginsThatCannotBeReadOpenNothing)
{
    for (const auto *table : {"logins", "users", "groups"}) {
        const QString name = QLatin1String(table);
        Execute(u"ALTER TABLE %1 RENAME TO away"_s.arg(name).toLatin1().constData());
        OpenLoginManager(Services(), nullptr);
        const QString told = Message();
        EXPECT_TRUE(told.startsWith(u"The logins could not be read."_s));
        EXPECT_TRUE(told.contains(u"no such table: "_s + name)) << told.toStdString();
        Execute(u"ALTER TABLE away RENAME TO %1"_s.arg(name).toLatin1().constData());
    }
}

TEST_F(LoginFailures, AFailedSaveKeepsTheManagerOpenWithWhatWasNotSaved)
{
    LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
    manager.show();
    auto &list = Find<QTreeWidget>(manager, "logins");
    for (const auto &name : {u"new"_s, u"other"_s}) {
        const WhileModal creating([&name](QDialog &dialog) {
            Type(Find(dialog, "name"), name);
            Click(dialog, "ok");
        });
        Click(manager, "create");
    }
    Execute("ALTER TABLE Logins RENAME TO logins_away");
    Click(manager, "ok");
    QString told = Message();
    EXPECT_TRUE(told.startsWith(u"Error writing information to the database\n"_s));
    EXPECT_TRUE(told.contains(u"The login new was not saved."_s)) << told.toStdString();
    EXPECT_TRUE(told.contains(u"no such table"_s));
    EXPECT_TRUE(manager.isVisible());
    EXPECT_EQ(RowTexts(list), (QStringList {u"ann1|ann|"_s, u"new||"_s, u"other||"_s}));
    Execute("ALTER TABLE logins_away RENAME TO Logins");
    Execute("CREATE TRIGGER refuse BEFORE INSERT ON Logins WHEN NEW.login = 'other' BEGIN "
            "SELECT RAISE(ABORT, 'not this one'); END");
    Click(manager, "ok");
    told = Message();
    EXPECT_FALSE(told.contains(u"The login new was not saved."_s));
    EXPECT_TRUE(told.contains(u"The login other was not saved."_s)) << told.toStdString();
    EXPECT_TRUE(manager.isVisible());
    Execute("DROP TRIGGER refuse");
    Click(manager, "ok");
    EXPECT_EQ(prompt.TakeSaid(), QStringList());
    EXPECT_FALSE(manager.isVisible());
    EXPECT_EQ(RowsOf("SELECT login FROM logins ORDER BY login"),
              (QStringList {u"ann1"_s, u"new"_s, u"other"_s}));
}

TEST_F(LoginFailures, UsersThatCannotBeReadAreNeverSaidToBeGone)
{
    LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
    manager.show();
    const WhileModal creating([this](QDialog &dialog) {
        Type(Find(dialog, "name"), u"bob1"_s);
        Click(dialog, "bindToUser");
        Execute("ALTER TABLE users RENAME TO away");
        Click(dialog, "browse");
        EXPECT_TRUE(Message().startsWith(u"The users could not be read."_s));
        Execute("ALTER TABLE away RENAME TO users");
        const WhileModal browsing([this](QDialog &browser) {
            SelectText(Find<QTreeWidget>(browser, "users"), u"bob"_s);
            for (const auto *table : {"users", "logins"}) {
                const QString name = QLatin1String(table);
                Execute(u"ALTER TABLE %1 RENAME TO away"_s.arg(name).toLatin1().constData());
                Click(browser, "ok");
                const QString told = Message();
                EXPECT_TRUE(told.startsWith(u"Whether this user has a login could not be read."_s));
                EXPECT_TRUE(told.contains(u"no such table: "_s + name)) << told.toStdString();
                EXPECT_TRUE(browser.isVisible());
                Execute(u"ALTER TABLE away RENAME TO %1"_s.arg(name).toLatin1().constData());
            }
            Execute("UPDATE users SET username = 'rob' WHERE username = 'bob'");
            Click(browser, "ok");
            EXPECT_EQ(Message(), u"This user is no longer in the database"_s);
            Execute("UPDATE users SET username = 'bob' WHERE username = 'rob'");
            Click(browser, "ok");
        });
        Click(dialog, "browse");
        EXPECT_EQ(Find<QLineEdit>(dialog, "user").text(), u"bob"_s);
        Click(dialog, "ok");
    });
    Click(manager, "create");
    Click(manager, "ok");
    EXPECT_EQ(RowsOf("SELECT login, username FROM logins, users WHERE userid = user_id AND "
                     "username = 'bob'"),
              QStringList(u"bob1|bob"_s));
}

TEST_F(LoginFailures, WhatSomebodyElseChangedMeanwhileIsAsked)
{
    for (const bool overwrite : {false, true}) {
        LoginManager manager(Services(), LoginManager::Read().value(), nullptr);
        manager.show();
        const WhileModal editing([overwrite](QDialog &dialog) {
            Click(dialog, "byMac");
            Paste(Find(dialog, "mac"), overwrite ? u"0011AABBCC02"_s : u"0011AABBCC01"_s);
            Click(dialog, "ok");
        });
        ClickCell(Find<QTreeWidget>(manager, "logins"), 0, 0);
        Click(manager, "edit");
        Execute(
            "UPDATE logins SET LimitPC = 1, LimitPCMode = 1, LimitMAC = (?) WHERE login = 'ann1'",
            overwrite ? u"CCCCCCCCCCC2"_s : u"CCCCCCCCCCC1"_s);
        prompt.AnswerWith({overwrite});
        Click(manager, "ok");
        EXPECT_GE(prompt.TakeSaid().size(), 1);
        EXPECT_EQ(RowsOf("SELECT LimitMAC FROM logins WHERE login = 'ann1'"),
                  QStringList(overwrite ? u"0011AABBCC02"_s : u"CCCCCCCCCCC1"_s));
    }
}
