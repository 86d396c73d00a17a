#include "access/group_record.h"
#include "props_fixture.h"
#include "support/windows/keyboard.h"
#include "ui/props/time_page.h"

#include <QComboBox>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class GroupSheetTest : public PropsFixture
{
protected:
    // Works every page with the keyboard alone, from the general page on.
    static void ChangeEverything(QDialog &sheet)
    {
        TypeInto(sheet, "name", u"Front office"_s);
        TypeInto(sheet, "description", u"ground floor"_s);
        {
            const WhileModal dialog([](QDialog &add) {
                TabTo(add, "users");
                Press(Qt::Key_Space);
                PressButton(add, "ok");
            });
            PressButton(sheet, "addMember");
        }
        TabTo(sheet, "members");
        Press(Qt::Key_Home);
        Press(Qt::Key_Space);
        PressButton(sheet, "removeMember");
        Press(Qt::Key_Tab, Qt::ControlModifier);
        TabTo(sheet, "noControl");
        Press(Qt::Key_Down);
        PressButton(sheet, "block");
        Press(Qt::Key_Tab, Qt::ControlModifier);
        const WhileModal dialog([](QDialog &limit) {
            TypeInto(limit, "limit", u"900"_s);
            Press(Qt::Key_Return);
        });
        PressButton(sheet, "changeTraffic");
    }
};

} // namespace

TEST_F(GroupSheetTest, EveryPageIsWorkedByKeyboardAndStoredOnOk)
{
    prompt.AnswerWith({true});
    EXPECT_TRUE(GroupSheet(group_page::kGeneral, [](QDialog &sheet) {
        EXPECT_EQ(sheet.windowTitle(), u"Group's properties"_s);
        ChangeEverything(sheet);
        PressButton(sheet, "ok");
    }));
    EXPECT_THAT(prompt.TakeSaid(), ElementsAre(u"Move user out of this group?"_s));
    EXPECT_THAT(RowsOf("SELECT name, descrip, mode, traflim, blocked, blockreason FROM groups "
                       "WHERE group_id = 81"),
                ElementsAre(u"Front office|ground floor|1|900|1|3"_s));
    EXPECT_THAT(RowsOf("SELECT user_id, group_id, blocked FROM users ORDER BY user_id"),
                ElementsAre(u"1|80|0"_s, u"2|81|1"_s, u"9|81|1"_s));
}

TEST_F(GroupSheetTest, ANameLosesItsBlanksWhenItIsTouched)
{
    Execute("UPDATE groups SET name = ' Office ' WHERE group_id = 81");
    EXPECT_TRUE(GroupSheet(group_page::kGeneral, [](QDialog &sheet) {
        TypeInto(sheet, "description", u"ground floor"_s);
        PressButton(sheet, "ok");
    }));
    EXPECT_THAT(RowsOf("SELECT name, descrip FROM groups WHERE group_id = 81"),
                ElementsAre(u" Office |ground floor"_s));
    EXPECT_TRUE(GroupSheet(group_page::kGeneral, [](QDialog &sheet) {
        TypeInto(sheet, "name", u"  Front office "_s);
        PressButton(sheet, "ok");
    }));
    EXPECT_THAT(RowsOf("SELECT name FROM groups WHERE group_id = 81"),
                ElementsAre(u"Front office"_s));
}

TEST_F(GroupSheetTest, CancelLeavesEveryTableUntouched)
{
    prompt.AnswerWith({true});
    const QStringList before = EveryRow();
    EXPECT_FALSE(GroupSheet(group_page::kGeneral, [](QDialog &sheet) {
        ChangeEverything(sheet);
        Press(Qt::Key_Escape);
    }));
    EXPECT_EQ(EveryRow(), before);
}

TEST_F(GroupSheetTest, ShowsThreePagesOnlyAndAppliesTheHiddenProtocols)
{
    Execute("INSERT INTO port_blocked (group_id, port_id) VALUES (81, 21)");
    Execute("INSERT INTO time_blocked (tb_id, group_id, dayofweek, timestart, timestop) VALUES "
            "(1, 81, 1, '09.00', '10.00')");
    EXPECT_TRUE(GroupSheet(group_page::kLimits, [](QDialog &sheet) {
        const auto &tabs = Find<QTabWidget>(sheet, "pages");
        ASSERT_EQ(tabs.count(), 3);
        EXPECT_EQ(tabs.tabText(0) + tabs.tabText(1) + tabs.tabText(2), u"GeneralAccessLimits"_s);
        EXPECT_EQ(tabs.currentIndex(), group_page::kLimits);
        EXPECT_EQ(sheet.findChild<QWidget *>(u"timeLimit"_s), nullptr);
        EXPECT_EQ(sheet.findChild<QWidget *>(u"timeControl"_s), nullptr);
        EXPECT_EQ(sheet.findChild<QWidget *>(u"authentication"_s), nullptr);
        PressButton(sheet, "ok");
    }));
    EXPECT_THAT(RowsOf("SELECT group_id, port_id FROM port_blocked ORDER BY port_id"),
                ElementsAre(u"81|20"_s, u"81|21"_s));
    EXPECT_THAT(RowsOf("SELECT tb_id FROM time_blocked"), ElementsAre(u"1"_s));
}

TEST_F(GroupSheetTest, WhatTheAccountPageStagesIsStoredAfterTheSheet)
{
    Execute("UPDATE groups SET mode = 2 WHERE group_id = 81");
    EXPECT_TRUE(GroupSheet(group_page::kGeneral, [](QDialog &sheet) {
        StageOnHiddenAccount<CAdministratorGroupPAcc>();
        Click(sheet, "ok");
    }));
    EXPECT_THAT(RowsOf("SELECT credit, creditvalue FROM groups WHERE group_id = 81"),
                ElementsAre(u"1.0|5.0"_s));
    EXPECT_THAT(RowsOf("SELECT mode, group_id, data FROM billing"), ElementsAre(u"2|81|5.0"_s));
}

TEST_F(GroupSheetTest, MembersAreAskedAboutAndOffered)
{
    (void)GroupSheet(group_page::kGeneral, [this](QDialog &sheet) {
        auto &members = Find<QListWidget>(sheet, "members");
        EXPECT_THAT(RowTexts(members), ElementsAre(u"anna"_s, u"bert"_s));
        EXPECT_FALSE(Find<QPushButton>(sheet, "removeMember").isEnabled());
        ClickCell(members, 1, 0);
        Click(sheet, "removeMember");
        EXPECT_EQ(members.count(), 2) << "answered No";
        prompt.AnswerWith({true});
        Click(sheet, "removeMember");
        EXPECT_THAT(RowTexts(members), ElementsAre(u"anna"_s));
        const WhileModal dialog([](QDialog &add) {
            EXPECT_EQ(add.windowTitle(), u"Add user to the group"_s);
            auto &users = Find<QListWidget>(add, "users");
            EXPECT_THAT(RowTexts(users), ElementsAre(u"bert"_s, u"zoe"_s));
            EXPECT_FALSE(Find<QPushButton>(add, "ok").isEnabled());
            ClickCell(users, 0, 0);
            ClickCell(users, 1, 0, Qt::ControlModifier);
            Click(add, "ok");
        });
        Click(sheet, "addMember");
        EXPECT_THAT(RowTexts(members), ElementsAre(u"anna"_s, u"bert"_s, u"zoe"_s));
        Click(sheet, "ok");
    });
    EXPECT_THAT(RowsOf("SELECT user_id FROM users WHERE group_id = 81 ORDER BY user_id"),
                ElementsAre(u"1"_s, u"2"_s, u"9"_s));
}

TEST_F(GroupSheetTest, TheFirstThousandMembersAreShown)
{
    Execute("INSERT INTO users (username, group_id) WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL "
            "SELECT i + 1 FROM n WHERE i < 999) SELECT 'u' || i, 81 FROM n");
    ASSERT_THAT(RowsOf("SELECT count(*) FROM users WHERE group_id = 81"), ElementsAre(u"1001"_s));
    (void)GroupSheet(group_page::kGeneral, [this](QDialog &sheet) {
        const auto &members = Find<QListWidget>(sheet, "members");
        EXPECT_EQ(members.count(), 1000);
        const WhileModal dialog([](QDialog &add) {
            ClickCell(Find<QListWidget>(add, "users"), 0, 0);
            Click(add, "ok");
        });
        Click(sheet, "addMember");
        EXPECT_EQ(members.count(), 1000);
        EXPECT_EQ(prompt.TakeSaid().size(), 1);
        sheet.reject();
    });
}

TEST_F(GroupSheetTest, AccessAndLimitsFollowTheMode)
{
    struct Case
    {
        quint32 mode;
        quint32 reason; // 0: not blocked
        const char *radio;
        const char *mode_text;
        bool boxOpen;
        std::array<bool, 3> open; // period, traffic, rates
    };
    const Case cases[] = {
        {0, 0, "noControl", "No control", true, {false, false, false}},
        {1, 1, "corporate", "Corporate", false, {true, true, false}},
        {2, 3, "provider", "Provider", true, {false, false, true}},
        {1, 4, "corporate", "Corporate", false, {true, true, false}},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.radio);
        Execute(
            "UPDATE groups SET mode = (?), blocked = (?), blockreason = (?) WHERE group_id = 81",
            each.mode,
            quint32 {each.reason != 0},
            each.reason);
        (void)GroupSheet(group_page::kGeneral, [&](QDialog &sheet) {
            EXPECT_EQ(TextOf(sheet, "mode"), QString::fromLatin1(each.mode_text));
            TurnTo(sheet, "Access");
            EXPECT_TRUE(Find<QRadioButton>(sheet, each.radio).isChecked());
            const auto &block = Find<QCheckBox>(sheet, "block");
            EXPECT_EQ(WithoutMark(block.text()), u"Block group imminently"_s);
            EXPECT_EQ(block.isChecked(), each.reason != 0);
            EXPECT_EQ(block.isEnabled(), each.boxOpen);
            EXPECT_EQ(Find<QLabel>(sheet, "accessState").text(),
                      each.reason != 0 ? u"Access is denied"_s : u"Access is allowed"_s);
            TurnTo(sheet, "Limits");
            EXPECT_EQ((std::array {Find(sheet, "changePeriod").isEnabled(),
                                   Find(sheet, "changeTraffic").isEnabled(),
                                   Find(sheet, "useGlobal").isEnabled()}),
                      each.open);
            sheet.reject();
        });
    }
}

TEST_F(GroupSheetTest, AGroupDeletedMeanwhileIsToldAndNothingIsWritten)
{
    QStringList before;
    prompt.AnswerWith({true});
    EXPECT_FALSE(GroupSheet(group_page::kGeneral, [&](QDialog &sheet) {
        ChangeEverything(sheet);
        Execute("DELETE FROM groups WHERE group_id = 81");
        before = EveryRow();
        PressButton(sheet, "ok");
        EXPECT_TRUE(sheet.isVisible());
        EXPECT_EQ(TextOf(sheet, "name"), u"Front office"_s);
        sheet.reject();
    }));
    EXPECT_THAT(prompt.TakeSaid(),
                ElementsAre(u"Move user out of this group?"_s,
                            u"This group has been deleted meanwhile. Nothing was changed."_s));
    EXPECT_EQ(EveryRow(), before);
    EXPECT_FALSE(OpenGroupSheet(Services(), GroupId {81}, group_page::kGeneral, nullptr));
    EXPECT_THAT(prompt.TakeSaid(), ElementsAre(u"This group has been deleted meanwhile."_s));
}

TEST_F(GroupSheetTest, TheTimePageThatIsNotShownWritesItsTimesShorter)
{
    GroupRecord record = LoadGroup(GroupId {81}).value().value();
    CAdministratorGroupPTime page(Services(), record);
    page.Load();
    page.Activate();
    page.show();
    const WhileModal dialog([](QDialog &range) {
        Choose(Find<QComboBox>(range, "day"), u"Monday"_s);
        Click(range, "ok");
    });
    Click(page, "addRange");
    EXPECT_THAT(record.times.Added(), ElementsAre(TimeRange {1, u"08.00"_s, u"17.00"_s}));
}
