// Blocks as both sides see them: the order in which word goes to the service and statements run.
#include "access/blocking.h"

#include "service/service_link.h"
#include "support/core/engine_fixture.h"
#include "support/core/fake_service.h"
#include "support/core/private_bus.h"

#include <QLoggingCategory>

#include <functional>
#include <gtest/gtest.h>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

// A reason, a user and a group cannot stand in each other's place, nor can a number in any of theirs.
static_assert(std::is_invocable_v<decltype(BlockUser), ActionRun &, UserId, BlockReason>);
static_assert(!std::is_invocable_v<decltype(BlockUser), ActionRun &, BlockReason, UserId>);
static_assert(!std::is_invocable_v<decltype(BlockUser), ActionRun &, GroupId, BlockReason>);
static_assert(!std::is_invocable_v<decltype(BlockUser), ActionRun &, quint32, BlockReason>);
static_assert(!std::is_invocable_v<decltype(BlockUser), ActionRun &, UserId, quint32>);
static_assert(!std::is_invocable_v<decltype(BlockUser), ActionRun &, UserId, AccountingMode>);
static_assert(!std::is_invocable_v<decltype(BlockGroup), ActionRun &, UserId, BlockReason>);
static_assert(!std::is_invocable_v<decltype(BlockGroup), ActionRun &, BlockReason, GroupId>);
static_assert(
    !std::is_invocable_v<decltype(&ServiceLink::BlockUser), const ServiceLink *, quint32>);

FakeService *witness = nullptr;

// Puts each statement among the calls, through the same connection, so that their order shows.
void Witness(QtMsgType, const QMessageLogContext &context, const QString &text)
{
    if (qstrcmp(context.category, "tollbrook.db.statement") == 0) {
        witness->Mark(text);
    }
}

struct BlockingTest : EngineFixture
{
    PrivateBus bus;
    FakeService service {bus};
    std::unique_ptr<ServiceLink> link;

    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO groups (group_id, name) VALUES (90, 'Office')");
        Execute("INSERT INTO groups (group_id, name) VALUES (91, 'Empty')");
        Execute("INSERT INTO users (username, group_id) VALUES ('anna', 90)");
        Execute("INSERT INTO users (username, group_id) VALUES ('bert', 90)");
        Execute("INSERT INTO users (username, group_id) VALUES ('otto', 80)");
        service.OfferAccounting();
        link = ServiceLink::Create(bus.Connection());
        witness = &service;
        QLoggingCategory::setFilterRules(u"tollbrook.db.statement.debug=true"_s);
        previous = qInstallMessageHandler(Witness);
    }

    void TearDown() override
    {
        qInstallMessageHandler(previous);
        QLoggingCategory::setFilterRules({});
        EngineFixture::TearDown();
    }

    // What reached the service and the driver in order, without the transaction's begin and end.
    QStringList CallsOf(const std::function<void(ActionRun &)> &body, const ServiceLink *told)
    {
        static_cast<void>(service.TakeCalls());
        EXPECT_TRUE(RunAction({ActionId::ApplyUser, body}, {}, told).IsDone());
        const QStringList calls = service.TakeCalls();
        return calls.mid(1, calls.size() - 2);
    }

    QStringList CallsOf(const std::function<void(ActionRun &)> &body)
    {
        return CallsOf(body, link.get());
    }

    QtMessageHandler previous = nullptr;
};
TB_ON_EVERY_ENGINE(BlockingTest);

const char kUsers[] = "SELECT user_id, blocked, blockreason FROM users ORDER BY user_id";
const char kGroups[] = "SELECT group_id, blocked, blockreason FROM groups ORDER BY group_id";
const QString kMembers = u"SELECT user_id FROM users WHERE group_id = (?)"_s;
const QString kBlock = u"UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)"_s;
const QString kUnblock = u"UPDATE users SET blocked = false WHERE user_id = (?)"_s;

} // namespace

TEST_P(BlockingTest, TheServiceIsToldBeforeTheRowChanges)
{
    const QStringList block = CallsOf([](ActionRun &run) {
        EXPECT_TRUE(BlockUser(run, UserId {2}, BlockReason::Administrator));
    });
    EXPECT_EQ(block, (QStringList {u"BlockUser 2"_s, kBlock}));
    EXPECT_EQ(RowsOf(kUsers), (QStringList {u"1|0|0"_s, u"2|1|3"_s, u"3|0|0"_s}));
    const QStringList unblock =
        CallsOf([](ActionRun &run) { EXPECT_TRUE(UnblockUser(run, UserId {2})); });
    EXPECT_EQ(unblock, (QStringList {u"UnblockUser 2"_s, kUnblock}));
    EXPECT_EQ(RowsOf(kUsers), (QStringList {u"1|0|0"_s, u"2|0|3"_s, u"3|0|0"_s}));
}

TEST_P(BlockingTest, WithoutAConnectionOnlyTheDatabaseChanges)
{
    const auto calls = CallsOf(
        [](ActionRun &run) {
            EXPECT_FALSE(BlockUser(run, UserId {1}, BlockReason::Administrator));
            EXPECT_FALSE(UnblockUser(run, UserId {2}));
        },
        nullptr);
    EXPECT_EQ(calls, (QStringList {kBlock, kUnblock}));
    EXPECT_EQ(RowsOf(kUsers), (QStringList {u"1|1|3"_s, u"2|0|0"_s, u"3|0|0"_s}));
}

TEST_P(BlockingTest, EveryMemberOfAGroupIsTold)
{
    EXPECT_EQ(
        CallsOf([](ActionRun &run) { BlockGroup(run, GroupId {90}, BlockReason::Administrator); }),
        (QStringList {u"UPDATE groups SET blocked = true, blockreason = (?) WHERE group_id = (?)"_s,
                      u"UPDATE users SET blocked = true, blockreason = (?) WHERE group_id = (?)"_s,
                      kMembers,
                      u"BlockUser 1"_s,
                      kBlock,
                      u"BlockUser 2"_s,
                      kBlock}));
    EXPECT_EQ(RowsOf(kUsers), (QStringList {u"1|1|3"_s, u"2|1|3"_s, u"3|0|0"_s}));
    EXPECT_EQ(RowsOf(kGroups), (QStringList {u"80|0|0"_s, u"90|1|3"_s, u"91|0|0"_s}));

    EXPECT_EQ(CallsOf([](ActionRun &run) { UnblockGroup(run, GroupId {90}); }),
              (QStringList {u"UPDATE groups SET blocked = false WHERE group_id = (?)"_s,
                            u"UPDATE users SET blocked = false WHERE group_id = (?)"_s,
                            kMembers,
                            u"UnblockUser 1"_s,
                            kUnblock,
                            u"UnblockUser 2"_s,
                            kUnblock}));
    EXPECT_EQ(RowsOf(kUsers), (QStringList {u"1|0|3"_s, u"2|0|3"_s, u"3|0|0"_s}));
}

TEST_P(BlockingTest, AMemberBlockedByTheAdministratorOutlivesALiftedBlock)
{
    Execute("UPDATE groups SET blocked = 1, blockreason = 1 WHERE group_id = 90");
    Execute("UPDATE users SET blocked = 1, blockreason = 1 WHERE user_id = 1");
    Execute("UPDATE users SET blocked = 1, blockreason = 3 WHERE user_id = 2");
    EXPECT_EQ(CallsOf([](ActionRun &run) { LiftGroupBlock(run, GroupId {90}); }),
              (QStringList {u"UPDATE groups SET blocked = false WHERE group_id = (?)"_s,
                            u"SELECT user_id FROM users WHERE group_id = (?) AND (blocked = 0 OR "
                            "blockreason <> 3)"_s,
                            u"UnblockUser 1"_s,
                            kUnblock}));
    EXPECT_EQ(RowsOf(kUsers), (QStringList {u"1|0|1"_s, u"2|1|3"_s, u"3|0|0"_s}));
    EXPECT_EQ(RowsOf(kGroups), (QStringList {u"80|0|0"_s, u"90|0|1"_s, u"91|0|0"_s}));
}

TEST_P(BlockingTest, AGroupWithoutMembersIsBlockedAlone)
{
    const auto calls =
        CallsOf([](ActionRun &run) { BlockGroup(run, GroupId {91}, BlockReason::Administrator); });
    EXPECT_EQ(calls.filter(u"BlockUser"_s), QStringList());
    EXPECT_EQ(RowsOf(kUsers), (QStringList {u"1|0|0"_s, u"2|0|0"_s, u"3|0|0"_s}));
    EXPECT_EQ(RowsOf(kGroups), (QStringList {u"80|0|0"_s, u"90|0|0"_s, u"91|1|3"_s}));
}
