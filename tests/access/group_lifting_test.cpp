// When storing a group's sheet blocks and unblocks its members, the same on every database engine.
#include "lifting_fixture.h"
#include "service/service_link.h"
#include "support/core/fake_service.h"

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::UnorderedElementsAreArray;

namespace {

class GroupLifting : public LiftingFixture
{ };

} // namespace

TB_ON_EVERY_ENGINE(GroupLifting);

TEST_P(GroupLifting, TheBlockFollowsBoxAndLimit)
{
    struct Case
    {
        const char *name;
        bool blocked;
        BlockReason reason;
        std::optional<bool> click;
        std::optional<quint32> newLimit;
        const char *group;
        const char *member;
        bool clears = false; // the usage record
    };
    using enum BlockReason;
    const Case cases[] = {
        {"blocked by the box", false, None, true, {}, "1|3", "1"},
        {"released by the box", true, Administrator, false, {}, "0|3", "0"},
        {"the service's block stays", true, TrafficUsedUp, {}, {}, "1|1", "1"},
        {"reason 4 is no box either", true, ShownAsAllowed, {}, {}, "1|4", "1"},
        {"lifted by a raised limit", true, TrafficUsedUp, {}, 200, "0|1", "0", true},
        {"still used up", true, TrafficUsedUp, {}, 150, "1|1", "1", true},
        {"below the stored limit", true, TrafficUsedUp, {}, 90, "1|1", "1"},
        {"never the administrator's", true, Administrator, {}, 200, "1|3", "1", true},
        {"not what the box just blocked", false, None, true, 200, "1|3", "1", true},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.name);
        Execute("DELETE FROM traffic_use");
        Execute("UPDATE groups SET mode = 1, traflim = 100, blocked = (?), blockreason = (?) "
                "WHERE group_id = 81",
                quint32 {each.blocked},
                each.reason);
        Execute("UPDATE users SET blocked = (?), blockreason = 1 WHERE group_id = 81",
                quint32 {each.blocked});
        Execute("INSERT INTO traffic_use (group_id, period, data, blocked) VALUES (81, 2, 150, 1)");
        GroupRecord record = Group();
        record.block.requested = each.click.value_or(record.block.requested);
        if (each.newLimit) {
            record.limits.traffic = WholeMegabytes {*each.newLimit};
        }
        Store(record);
        EXPECT_THAT(RowsOf("SELECT blocked, blockreason FROM groups WHERE group_id = 81"),
                    ElementsAre(QString::fromLatin1(each.group)));
        EXPECT_THAT(RowsOf("SELECT blocked FROM users WHERE user_id = 1"),
                    ElementsAre(QString::fromLatin1(each.member)));
        EXPECT_THAT(RowsOf("SELECT blocked FROM traffic_use"),
                    ElementsAre(each.clears ? u"0"_s : u"1"_s));
    }
}

TEST_P(GroupLifting, ComparesWithTheLimitThatIsStoredNow)
{
    for (const quint32 limit : {300U, 301U}) {
        Execute("DELETE FROM traffic_use");
        Execute("INSERT INTO traffic_use (group_id, period, data, blocked) VALUES (81, 2, 150, 1)");
        Execute("UPDATE groups SET mode = 1, traflim = 100, blocked = 1, blockreason = 1 "
                "WHERE group_id = 81");
        GroupRecord record = Group();
        record.limits.traffic = WholeMegabytes {limit};
        Execute("UPDATE groups SET traflim = 300 WHERE group_id = 81");
        EXPECT_TRUE(RunAnswering(GroupAction(record), true).IsDone());
        EXPECT_THAT(RowsOf("SELECT blocked, traflim FROM groups WHERE group_id = 81"),
                    ElementsAre(limit == 300 ? u"1|300"_s : u"0|301"_s));
        EXPECT_THAT(RowsOf("SELECT blocked FROM traffic_use"),
                    ElementsAre(limit == 300 ? u"1"_s : u"0"_s));
    }
}

TEST_P(GroupLifting, ByACreditNeedsOneThatHasNotExpired)
{
    struct Case
    {
        AccountingMode mode;
        const char *credit; // columns and values
        bool lifts;
    };
    using enum AccountingMode;
    const Case cases[] = {
        {Traffic, "(closed) VALUES (0)", true},
        {Traffic, "(closed) VALUES (1)", false},
        {Traffic, "(expiredday) VALUES ('2026.11.20')", false},
        {Provider, "(data) VALUES (1)", true},
        {Provider, "(data, closed) VALUES (1, 1)", false},
        {Provider, "(data, expiredday) VALUES (1, '2026.11.20')", false},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.credit);
        Execute("DELETE FROM traffic_use");
        Execute("DELETE FROM billing");
        Execute("INSERT INTO traffic_use (group_id, period, data, blocked) VALUES (81, 2, 150, 1)");
        Execute("UPDATE groups SET mode = 1, traflim = 100, blocked = 1, blockreason = 1 "
                "WHERE group_id = 81");
        AddCredit(each.credit);
        Execute("UPDATE billing SET group_id = 81, mode = (?)", each.mode);
        GroupRecord record = Group();
        record.draft.mode = each.mode;
        record.limits.traffic = WholeMegabytes {120};
        Store(record);
        EXPECT_THAT(RowsOf("SELECT blocked FROM groups WHERE group_id = 81"),
                    ElementsAre(each.lifts ? u"0"_s : u"1"_s));
    }
}

// As the group's raised limit or credit lifts it; its block box opens it for all.
TEST_P(GroupLifting, LeavesMembersThatTheAdministratorBlocked)
{
    struct Case
    {
        const char *name;
        BlockReason reason;
        void (*change)(GroupRecord &);
        const char *bert;
        QStringList told;
    };
    const QString anna = u"UnblockUser 1"_s;
    const QString bert = u"UnblockUser 2"_s;
    const Case cases[] = {
        {"raised limit",
         BlockReason::TrafficUsedUp,
         [](GroupRecord &record) { record.limits.traffic = WholeMegabytes {200}; },
         "1|3",
         {anna}},
        {"credit",
         BlockReason::TrafficUsedUp,
         [](GroupRecord &record) { record.draft.mode = AccountingMode::Provider; },
         "1|3",
         {anna}},
        {"no control",
         BlockReason::TrafficUsedUp,
         [](GroupRecord &record) { record.draft.mode = AccountingMode::NoControl; },
         "0|3",
         {anna, bert}},
        {"block box",
         BlockReason::Administrator,
         [](GroupRecord &record) { record.block.requested = false; },
         "0|3",
         {anna, bert}},
    };
    PrivateBus bus;
    FakeService service(bus);
    service.OfferAccounting();
    const auto link = ServiceLink::Create(bus.Connection());
    for (const Case &each : cases) {
        SCOPED_TRACE(each.name);
        Execute("DELETE FROM billing");
        Execute("INSERT INTO billing (group_id, mode, data) VALUES (81, 2, 10)");
        Execute("UPDATE groups SET mode = 1, traflim = 100, blocked = 1, blockreason = (?) "
                "WHERE group_id = 81",
                each.reason);
        Execute("UPDATE users SET blocked = 1, blockreason = 1 WHERE user_id = 1");
        Execute("UPDATE users SET blocked = 1, blockreason = 3 WHERE user_id = 2");
        GroupRecord record = Group();
        each.change(record);
        EXPECT_TRUE(RunAnswering(GroupAction(record), false, link.get()).IsDone());
        EXPECT_THAT(RowsOf("SELECT blocked FROM groups WHERE group_id = 81"), ElementsAre(u"0"_s));
        EXPECT_THAT(RowsOf("SELECT blocked, blockreason FROM users ORDER BY user_id"),
                    ElementsAre(u"0|1"_s, QString::fromLatin1(each.bert)));
        EXPECT_THAT(service.TakeCalls(), UnorderedElementsAreArray(each.told));
    }
}

TEST_P(GroupLifting, NeedsThatSomethingChanged)
{
    for (const AccountingMode mode : {AccountingMode::NoControl, AccountingMode::Provider}) {
        Execute("DELETE FROM billing");
        Execute("INSERT INTO billing (group_id, mode, data) VALUES (81, 2, 10)");
        Execute("UPDATE groups SET mode = (?), blocked = 1, blockreason = 1 WHERE group_id = 81",
                mode);
        GroupRecord record = Group();
        Store(record);
        EXPECT_THAT(RowsOf("SELECT blocked FROM groups WHERE group_id = 81"), ElementsAre(u"1"_s));
        if (mode == AccountingMode::Provider) {
            record.account.credits.push_back({BaseUnits {5}, true, {}});
            Store(record);
            EXPECT_THAT(RowsOf("SELECT blocked FROM groups WHERE group_id = 81"),
                        ElementsAre(u"0"_s));
        }
    }
}
