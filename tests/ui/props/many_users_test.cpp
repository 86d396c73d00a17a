#include "props_fixture.h"
#include "support/windows/keyboard.h"

#include <QComboBox>
#include <QLocale>
#include <QProgressBar>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

class ManyUsersTest : public PropsFixture
{
protected:
    [[nodiscard]] bool Open(std::initializer_list<quint32> numbers, const Act &act) const
    {
        const WhileModal dialog(act);
        return OpenAccessForUsers(Services(), {numbers.begin(), numbers.end()}, nullptr);
    }

    [[nodiscard]] static QStringList Stored()
    {
        return RowsOf("SELECT user_id, mode, traflim, timelim, trafperiod, timeperiod FROM users "
                      "ORDER BY user_id");
    }
};

} // namespace

TEST_F(ManyUsersTest, NamesTheUsersAndWritesToEachByKeyboard)
{
    EXPECT_TRUE(Open({9, 1}, [](QDialog &dialog) {
        EXPECT_EQ(dialog.windowTitle(), u"Access properties for multiple users"_s);
        EXPECT_THAT(RowTexts(Find<QListWidget>(dialog, "users")), ElementsAre(u"zoe"_s, u"anna"_s));
        EXPECT_EQ(Find<QProgressBar>(dialog, "progress").maximum(), 2);
        TabTo(dialog, "noControl");
        Press(Qt::Key_Down);
        PressButton(dialog, "trafficControl");
        PressButton(dialog, "timeControl");
        TabTo(dialog, "period");
        Press(Qt::Key_Up);
        TypeInto(dialog, "trafficLimit", u"50"_s);
        TypeInto(dialog, "timeLimit", u"6"_s);
        Press(Qt::Key_Return);
    }));
    EXPECT_THAT(Stored(), ElementsAre(u"1|5|50|6|1|1"_s, u"2|0|0|0|2|2"_s, u"9|5|50|6|1|1"_s));
}

TEST_F(ManyUsersTest, TheAccessTypeOpensItsLimits)
{
    (void)Open({1, 2}, [](QDialog &dialog) {
        const auto open = [&dialog] {
            return std::array {Find(dialog, "period").isEnabled(),
                               Find(dialog, "trafficLimit").isEnabled(),
                               Find(dialog, "timeLimit").isEnabled()};
        };
        EXPECT_EQ(open(), (std::array {false, false, false}));
        Click(dialog, "corporate");
        Click(dialog, "timeControl");
        EXPECT_EQ(open(), (std::array {true, false, true}));
        Click(dialog, "trafficControl");
        EXPECT_EQ(open(), (std::array {true, true, true}));
        Click(dialog, "provider");
        EXPECT_EQ(open(), (std::array {false, false, false}));
        dialog.reject();
    });
}

TEST_F(ManyUsersTest, RefusesWhatIsNotWholeAndWritesNothing)
{
    Execute("UPDATE users SET trafperiod = 0 WHERE user_id = 1");
    const QStringList before = EveryRow();
    EXPECT_FALSE(Open({1, 2}, [this](QDialog &dialog) {
        Click(dialog, "corporate");
        Click(dialog, "ok");
        EXPECT_THAT(prompt.TakeSaid(),
                    ElementsAre(u"Please select one of the corporate type access options"_s));
        Click(dialog, "trafficControl");
        Click(dialog, "ok");
        EXPECT_THAT(prompt.TakeSaid(), ElementsAre(u"Please choose an accounting period"_s));
        Choose(Find<QComboBox>(dialog, "period"), u"Month"_s);
        Type(Find(dialog, "trafficLimit"), QString());
        Click(dialog, "ok");
        EXPECT_EQ(prompt.TakeSaid().size(), 1);
        Press(Qt::Key_Escape);
    }));
    EXPECT_EQ(EveryRow(), before);
}

TEST_F(ManyUsersTest, ValuesThatCannotBeEnteredStayEachUsersOwn)
{
    Execute("UPDATE users SET traflim = user_id * 10, timelim = user_id, trafperiod = 1, "
            "timeperiod = 2");
    EXPECT_TRUE(Open({1, 2}, [](QDialog &dialog) {
        Click(dialog, "corporate");
        Click(dialog, "timeControl");
        Choose(Find<QComboBox>(dialog, "period"), u"Month"_s);
        Type(Find(dialog, "timeLimit"), u"6"_s);
        Click(dialog, "ok");
    }));
    EXPECT_TRUE(Open({2, 9}, [](QDialog &dialog) {
        Click(dialog, "provider");
        Click(dialog, "ok");
    }));
    EXPECT_THAT(Stored(), ElementsAre(u"1|4|10|6|2|2"_s, u"2|2|20|6|2|2"_s, u"9|2|90|9|1|2"_s));
}

TEST_F(ManyUsersTest, UsersThatAreGoneAreLeftOut)
{
    EXPECT_TRUE(Open({77, 2}, [](QDialog &dialog) {
        EXPECT_THAT(RowTexts(Find<QListWidget>(dialog, "users")), ElementsAre(u"bert"_s));
        Click(dialog, "provider");
        Click(dialog, "ok");
    }));
    EXPECT_THAT(Stored(), ElementsAre(u"1|0|0|0|2|2"_s, u"2|2|0|0|2|2"_s, u"9|0|0|0|2|2"_s));
    EXPECT_FALSE(OpenAccessForUsers(Services(), {UserId {77}}, nullptr));
    EXPECT_THAT(prompt.TakeSaid(), ElementsAre(u"These users have been deleted meanwhile."_s));
}

TEST_F(ManyUsersTest, UsersDeletedWhileItIsOpenAreToldAbout)
{
    EXPECT_TRUE(Open({1, 2, 9}, [](QDialog &dialog) {
        Click(dialog, "provider");
        Execute("DELETE FROM users WHERE user_id = 2");
        Click(dialog, "ok");
    }));
    EXPECT_THAT(
        prompt.TakeSaid(),
        ElementsAre(u"Some of these users have been deleted meanwhile. 2 of 3 are changed."_s));
    EXPECT_THAT(Stored(), ElementsAre(u"1|2|0|0|2|2"_s, u"9|2|0|0|2|2"_s));
}

// Nobody reads thousands of names: the first are named, and all are written to.
TEST_F(ManyUsersTest, NamesTheFirstOfThousands)
{
    Execute("INSERT INTO users (user_id, username, group_id) WITH RECURSIVE n(i) AS (SELECT 101 "
            "UNION ALL SELECT i + 1 FROM n WHERE i < 2300) SELECT i, 'user' || i, 80 FROM n");
    std::vector<UserId> userIds {UserId {9}, UserId {77}};
    for (quint32 id = 101; id <= 2300; ++id) {
        userIds.emplace_back(id);
    }
    {
        const WhileModal open([](QDialog &dialog) {
            EXPECT_EQ(Find<QLabel>(dialog, "manyUsers").text(),
                      u"These %1 users will be changed:\nzoe, user101, user102, user103, user104 "
                      "and %2 more"_s.arg(QLocale().toString(2202), QLocale().toString(2197)));
            EXPECT_EQ(dialog.findChild<QListWidget *>(u"users"_s), nullptr);
            Grab(dialog, u"thousands-of-users"_s);
            Click(dialog, "provider");
            Click(dialog, "ok");
        });
        EXPECT_TRUE(OpenAccessForUsers(Services(), userIds, nullptr));
    }
    EXPECT_THAT(prompt.TakeSaid(),
                ElementsAre(u"Some of these users have been deleted meanwhile. 2201 of 2202 are "
                            "changed."_s));
    EXPECT_THAT(RowsOf("SELECT COUNT(*) FROM users WHERE mode = 2"), ElementsAre(u"2201"_s));
}
