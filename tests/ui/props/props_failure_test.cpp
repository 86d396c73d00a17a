// The windows of users and groups while the database fails them, holds them up, or is changed by
// somebody else.
#include "props_fixture.h"
#include "support/core/faulty_driver.h"
#include "support/windows/window_promises.h"
#include "ui/props/change_group_dialog.h"

#include <QComboBox>
#include <QProgressBar>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::HasSubstr;

namespace {

class PropsFailures : public PropsFixture
{
protected:
    void SetUp() override
    {
        PropsFixture::SetUp();
        LetSessionFinish(); // opening itself: its statements are none of a window's
    }

    // What was told since the last call, as one text.
    std::string Told() { return prompt.TakeSaid().join(u" / ").toStdString(); }

    void ExpectUserSheetKeeps(QDialog &sheet, const QString &fullName)
    {
        EXPECT_EQ(TextOf(sheet, "fullName"), fullName);
        EXPECT_EQ(TextOf(sheet, "ipAddress"), u"10.0.0.77"_s);
        EXPECT_EQ(Find<QLabel>(sheet, "ipChanged").text(), u"(Changed)"_s);
        EXPECT_TRUE(Find<QAbstractButton>(sheet, "authentication").isChecked());
        EXPECT_EQ(Find<QTreeWidget>(sheet, "ranges").topLevelItemCount(), 1);
    }

    static void ChangeAddress(QDialog &sheet)
    {
        const WhileModal dialog([](QDialog &ip) {
            Type(Find(ip, "address"), u"10.0.0.77"_s);
            Click(ip, "ok");
        });
        Click(sheet, "changeIp");
    }

    static void AddRange(QDialog &sheet)
    {
        const WhileModal dialog([](QDialog &range) {
            Choose(Find<QComboBox>(range, "day"), u"Monday"_s);
            Click(range, "ok");
        });
        Click(sheet, "addRange");
    }

    // Something of every page, and a credit.
    static void ChangeUser(QDialog &sheet)
    {
        Type(Find(sheet, "fullName"), u"Anna Holm"_s);
        ChangeAddress(sheet);
        TurnTo(sheet, "Access");
        Click(sheet, "authentication");
        Click(sheet, "provider");
        StageOnHiddenAccount<CAdministratorUserPAcc>();
        TurnTo(sheet, "Time");
        AddRange(sheet);
        TurnTo(sheet, "Protocols");
        ClickCell(Find<QListWidget>(sheet, "available"), 0, 0);
        Click(sheet, "select");
    }
};

} // namespace

TEST_F(PropsFailures, AWindowThatCannotBeReadDoesNotOpen)
{
    Execute("INSERT INTO port_blocked (user_id, port_id) VALUES (1, 21)");
    ExpectOpensOrTells(
        Dsn(),
        prompt,
        [this] { OpenUserSheet(Services(), UserId {1}, user_page::kGeneral, nullptr); },
        u"The user could not be read.\n\nThe database refused it.\n"_s);
    ExpectOpensOrTells(
        Dsn(),
        prompt,
        [this] { OpenGroupSheet(Services(), GroupId {81}, group_page::kGeneral, nullptr); },
        u"The group could not be read.\n\nThe database refused it.\n"_s);
    ExpectOpensOrTells(
        Dsn(),
        prompt,
        [this] {
            OpenAccessForUsers(Services(), {UserId {1}, UserId {9}}, nullptr);
        },
        u"The users could not be read.\n\nThe database refused it.\n"_s);
    ExpectOpensOrTells(
        Dsn(),
        prompt,
        [this] { EXPECT_FALSE(ChooseGroupFor(Services(), {UserId {1}}, nullptr)); },
        u"The groups could not be read.\n\nThe database refused it.\n"_s);
}

TEST_F(PropsFailures, TheUserSheetStoresAllOrStaysOpenWithEverything)
{
    EXPECT_TRUE(UserSheet(user_page::kGeneral, [this](QDialog &sheet) {
        ChangeUser(sheet);
        ExpectStoresOrKeeps(
            Dsn(),
            prompt,
            sheet,
            u"The user's properties were not stored. Nothing was changed in the database."_s,
            [&] { ExpectUserSheetKeeps(sheet, u"Anna Holm"_s); });
    }));
    EXPECT_THAT(RowsOf("SELECT fullname, ip_addr, authreq, mode FROM users WHERE user_id = 1"),
                ElementsAre(u"Anna Holm|10.0.0.77|1|2"_s));
    EXPECT_THAT(RowsOf("SELECT dayofweek FROM time_blocked"), ElementsAre(u"1"_s));
    EXPECT_THAT(RowsOf("SELECT port_id FROM port_blocked ORDER BY port_id"),
                ElementsAre(u"20"_s, u"21"_s));
    EXPECT_THAT(RowsOf("SELECT object_id, data FROM billing"), ElementsAre(u"1|5.0"_s));
}

TEST_F(PropsFailures, TheGroupSheetStoresAllOrStaysOpenWithEverything)
{
    EXPECT_TRUE(GroupSheet(group_page::kGeneral, [this](QDialog &sheet) {
        Type(Find(sheet, "name"), u"Front office"_s);
        prompt.AnswerWith({true});
        ClickCell(Find<QListWidget>(sheet, "members"), 0, 0);
        Click(sheet, "removeMember");
        TurnTo(sheet, "Access");
        Click(sheet, "corporate");
        Click(sheet, "block");
        (void)prompt.TakeSaid();
        ExpectStoresOrKeeps(
            Dsn(),
            prompt,
            sheet,
            u"The group's properties were not stored. Nothing was changed in the database."_s,
            [&] {
                EXPECT_EQ(TextOf(sheet, "name"), u"Front office"_s);
                EXPECT_THAT(RowTexts(Find<QListWidget>(sheet, "members")), ElementsAre(u"bert"_s));
                EXPECT_TRUE(Find<QAbstractButton>(sheet, "block").isChecked());
            });
    }));
    EXPECT_THAT(RowsOf("SELECT name, mode, blocked FROM groups WHERE group_id = 81"),
                ElementsAre(u"Front office|1|1"_s));
    EXPECT_THAT(RowsOf("SELECT user_id, group_id, blocked FROM users ORDER BY user_id"),
                ElementsAre(u"1|80|0"_s, u"2|81|1"_s, u"9|80|0"_s));
}

TEST_F(PropsFailures, AccessForSeveralUsersChangesAllOrStaysOpen)
{
    const WhileModal dialog([this](QDialog &access) {
        Click(access, "corporate");
        Click(access, "trafficControl");
        Type(Find(access, "trafficLimit"), u"250"_s);
        ExpectStoresOrKeeps(Dsn(),
                            prompt,
                            access,
                            u"No user's access properties were changed. Nothing was changed"_s,
                            [&] {
                                EXPECT_EQ(TextOf(access, "trafficLimit"), u"250"_s);
                                EXPECT_EQ(Find<QProgressBar>(access, "progress").value(), 0);
                            });
    });
    EXPECT_TRUE(OpenAccessForUsers(Services(), {UserId {1}, UserId {9}}, nullptr));
    EXPECT_THAT(RowsOf("SELECT user_id, mode, traflim FROM users ORDER BY user_id"),
                ElementsAre(u"1|1|250"_s, u"2|0|0"_s, u"9|1|250"_s));
}

TEST_F(PropsFailures, AGroupThatWasNotAddedOrDeletedIsListedAsBefore)
{
    const WhileModal choice([this](QDialog &groups) {
        auto &list = Find<QListWidget>(groups, "groups");
        const QStringList before = RowTexts(list);
        {
            const WhileModal adding([&](QDialog &dialog) {
                Type(Find(dialog, "name"), u"Guests"_s);
                ExpectStoresOrKeeps(Dsn(), prompt, dialog, u"The group was not added."_s, [&] {
                    EXPECT_EQ(TextOf(dialog, "name"), u"Guests"_s);
                    EXPECT_EQ(RowTexts(list), before);
                });
            });
            Click(groups, "addGroup");
        }
        EXPECT_THAT(RowTexts(list), ElementsAre(u"Everybody"_s, u"Guests"_s, u"Office"_s));

        FaultyDriver driver(Dsn());
        const QStringList rows = EveryRow();
        ClickCell(list, 0, 0);
        driver.Refuse(1);
        Click(groups, "deleteGroup");
        EXPECT_THAT(Told(), HasSubstr("The group's name could not be read."));
        prompt.AnswerWith({true, true});
        driver.Refuse(2);
        Click(groups, "deleteGroup");
        EXPECT_THAT(prompt.TakeSaid(),
                    ElementsAre(u"You are going to remove the group. Continue?"_s,
                                u"You can not delete 'Everybody' group"_s,
                                testing::ResultOf(
                                    [](const QString &text) { return text.toStdString(); },
                                    HasSubstr("The group was not deleted. Nothing was changed"))));
        ClickCell(list, 1, 0);
        driver.Refuse(2);
        Click(groups, "deleteGroup");
        EXPECT_THAT(Told(), HasSubstr("The group was not deleted."));
        EXPECT_EQ(list.count(), 3);
        EXPECT_EQ(EveryRow(), rows);
        groups.reject();
    });
    EXPECT_FALSE(ChooseGroupFor(Services(), {UserId {1}}, nullptr));
}

TEST_F(PropsFailures, LimitsThatCannotBeReadStayAsTheyWereShown)
{
    Execute("UPDATE users SET mode = 5, trafperiod = 1, traflim = 500 WHERE user_id = 1");
    (void)UserSheet(user_page::kGeneral, [this](QDialog &sheet) {
        FaultyDriver driver(Dsn());
        driver.Refuse(1);
        TurnTo(sheet, "Limits");
        EXPECT_THAT(Told(), HasSubstr("The limits could not be read.\n\nThe database refused it."));
        EXPECT_EQ(TextOf(sheet, "trafficLimit"), u"500"_s);
        EXPECT_EQ(TextOf(sheet, "period"), u"Day"_s);
        TurnTo(sheet, "General");
        Execute("UPDATE users SET traflim = 600 WHERE user_id = 1");
        TurnTo(sheet, "Limits");
        EXPECT_EQ(TextOf(sheet, "trafficLimit"), u"600"_s);

        TurnTo(sheet, "General");
        Execute("DELETE FROM users WHERE user_id = 1");
        TurnTo(sheet, "Limits");
        EXPECT_EQ(Told(), "This user has been deleted meanwhile.");
        EXPECT_EQ(TextOf(sheet, "trafficLimit"), u"600"_s);
        sheet.reject();
    });
}

TEST_F(PropsFailures, TimeRangesThatCannotBeReadStayAndAreSaidToBeUnread)
{
    Execute("INSERT INTO time_blocked (tb_id, user_id, dayofweek, timestart, timestop) VALUES "
            "(1, 1, 3, '09:00:00', '10:00:00')");
    (void)UserSheet(user_page::kTime, [this](QDialog &sheet) {
        const auto &list = Find<QTreeWidget>(sheet, "ranges");
        EXPECT_FALSE(IsShown(sheet, "unread"));
        TurnTo(sheet, "General");
        Execute("UPDATE time_blocked SET dayofweek = 4");
        {
            FaultyDriver driver(Dsn());
            driver.Refuse(1);
            TurnTo(sheet, "Time");
        }
        EXPECT_THAT(Told(), HasSubstr("The time ranges could not be read."));
        EXPECT_TRUE(IsShown(sheet, "unread"));
        EXPECT_THAT(RowTexts(list), ElementsAre(u"Wednesday|09:00:00|10:00:00"_s));
        TurnTo(sheet, "General");
        TurnTo(sheet, "Time");
        EXPECT_FALSE(IsShown(sheet, "unread"));
        EXPECT_THAT(RowTexts(list), ElementsAre(u"Thursday|09:00:00|10:00:00"_s));
        sheet.reject();
    });
    EXPECT_EQ(Told(), "");
}

TEST_F(PropsFailures, CandidatesThatCannotBeReadOpenNoWindow)
{
    (void)GroupSheet(group_page::kGeneral, [this](QDialog &sheet) {
        ExpectOpensOrTells(
            Dsn(),
            prompt,
            [&] { Click(sheet, "addMember"); },
            u"The users of other groups could not be read."_s);
        EXPECT_THAT(RowTexts(Find<QListWidget>(sheet, "members")),
                    ElementsAre(u"anna"_s, u"bert"_s));
        sheet.reject();
    });
}

TEST_F(PropsFailures, WhatSomebodyElseChangedTooIsAskedAndAllElseIsKept)
{
    const auto question = u"Full name: changed meanwhile to \"Anna Ek\". Overwrite?"_s;
    for (const bool overwrite : {false, true}) {
        Execute("UPDATE users SET fullname = 'Anna Berg', descrip = 'reception' WHERE user_id = 1");
        prompt.AnswerWith({overwrite});
        EXPECT_TRUE(UserSheet(user_page::kGeneral, [](QDialog &sheet) {
            Execute("UPDATE users SET fullname = 'Anna Ek', descrip = 'desk 9' WHERE user_id = 1");
            Type(Find(sheet, "fullName"), u"Anna Holm"_s);
            Click(sheet, "ok");
        }));
        EXPECT_THAT(prompt.TakeSaid(), ElementsAre(question));
        EXPECT_THAT(RowsOf("SELECT fullname, descrip FROM users WHERE user_id = 1"),
                    ElementsAre(overwrite ? u"Anna Holm|desk 9"_s : u"Anna Ek|desk 9"_s));
    }
}
