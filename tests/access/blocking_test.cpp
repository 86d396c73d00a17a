// Blocks as both sides see them: the order in which word goes to the service and statements run.
#include "access/blocking.h"

#include "support/core/engine_fixture.h"
#include "support/core/fake_service.h"
#include "support/core/private_bus.h"

#include <QLoggingCategory>

#include <gtest/gtest.h>
#include <type_traits>

using namespace Qt::StringLiterals;

namespace {

using Link = const ServiceLink *;

// A reason, a user and a group cannot stand in each other's place, nor can a number in any of theirs.
static_assert(std::is_invocable_v<decltype(BlockUser), Link, UserId, BlockReason>);
static_assert(!std::is_invocable_v<decltype(BlockUser), Link, BlockReason, UserId>);
static_assert(!std::is_invocable_v<decltype(BlockUser), Link, GroupId, BlockReason>);
static_assert(!std::is_invocable_v<decltype(BlockUser), Link, quint32, BlockReason>);
static_assert(!std::is_invocable_v<decltype(BlockUser), Link, UserId, quint32>);
static_assert(!std::is_invocable_v<decltype(BlockUser), Link, UserId, AccountingMode>);
static_assert(!std::is_invocable_v<decltype(BlockGroup), Link, UserId, BlockReason>);
static_assert(!std::is_invocable_v<decltype(BlockGroup), Link, BlockReason, GroupId>);
static_assert(!std::is_invocable_v<decltype(&ServiceLink::BlockUser), Link, quint32>);

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

    QtMessageHandler previous = nullptr;
};
TB_ON_EVERY_ENGINE(BlockingTest);

const char kUsers[] = "SELECT user_id, blocked, blockreason FROM users ORDER BY user_id";
const char kGroups[] = "SELECT group_id, blocked, blockreason FROM groups ORDER BY group_id";

} // namespace

TEST_P(BlockingTest, TheServiceIsToldBeforeTheRowChanges)
{
    EXPECT_TRUE(BlockUser(link.get(), UserId {2}, BlockReason::Administrator));
    EXPECT_EQ(service.TakeCalls(),
              (QStringList {
                  u"BlockUser 2, no reply"_s,
                  u"UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)"_s}));
    EXPECT_EQ(RowsOf(kUsers), (QStringList {u"1|0|0"_s, u"2|1|3"_s, u"3|0|0"_s}));
    static_cast<void>(service.TakeCalls());
    EXPECT_TRUE(UnblockUser(link.get(), UserId {2}));
    EXPECT_EQ(service.TakeCalls(),
              (QStringList {u"UnblockUser 2, no reply"_s,
                            u"UPDATE users SET blocked = false WHERE user_id = (?)"_s}));
    EXPECT_EQ(RowsOf(kUsers), (QStringList {u"1|0|0"_s, u"2|0|3"_s, u"3|0|0"_s}));
}

TEST_P(BlockingTest, WithoutAConnectionOnlyTheDatabaseChanges)
{
    EXPECT_FALSE(BlockUser(nullptr, UserId {1}, BlockReason::Administrator));
    EXPECT_FALSE(UnblockUser(nullptr, UserId {2}));
    EXPECT_EQ(service.TakeCalls().filter(u"no reply"_s), QStringList());
    EXPECT_EQ(RowsOf(kUsers), (QStringList {u"1|1|3"_s, u"2|0|0"_s, u"3|0|0"_s}));
}

TEST_P(BlockingTest, EveryMemberOfAGroupIsTold)
{
    const QString members = u"SELECT user_id FROM users WHERE group_id = (?)"_s;
    const QString block =
        u"UPDATE users SET blocked = true, blockreason = (?) WHERE user_id = (?)"_s;
    BlockGroup(link.get(), GroupId {90}, BlockReason::Administrator);
    EXPECT_EQ(
        service.TakeCalls(),
        (QStringList {u"UPDATE groups SET blocked = true, blockreason = (?) WHERE group_id = (?)"_s,
                      u"UPDATE users SET blocked = true, blockreason = (?) WHERE group_id = (?)"_s,
                      members,
                      u"BlockUser 1, no reply"_s,
                      block,
                      u"BlockUser 2, no reply"_s,
                      block}));
    EXPECT_EQ(RowsOf(kUsers), (QStringList {u"1|1|3"_s, u"2|1|3"_s, u"3|0|0"_s}));
    EXPECT_EQ(RowsOf(kGroups), (QStringList {u"80|0|0"_s, u"90|1|3"_s, u"91|0|0"_s}));

    static_cast<void>(service.TakeCalls());
    const QString unblock = u"UPDATE users SET blocked = false WHERE user_id = (?)"_s;
    UnblockGroup(link.get(), GroupId {90});
    EXPECT_EQ(service.TakeCalls(),
              (QStringList {u"UPDATE groups SET blocked = false WHERE group_id = (?)"_s,
                            u"UPDATE users SET blocked = false WHERE group_id = (?)"_s,
                            members,
                            u"UnblockUser 1, no reply"_s,
                            unblock,
                            u"UnblockUser 2, no reply"_s,
                            unblock}));
    EXPECT_EQ(RowsOf(kUsers), (QStringList {u"1|0|3"_s, u"2|0|3"_s, u"3|0|0"_s}));
}

TEST_P(BlockingTest, AGroupWithoutMembersIsBlockedAlone)
{
    BlockGroup(link.get(), GroupId {91}, BlockReason::Administrator);
    EXPECT_EQ(service.TakeCalls().filter(u"no reply"_s), QStringList());
    EXPECT_EQ(RowsOf(kUsers), (QStringList {u"1|0|0"_s, u"2|0|0"_s, u"3|0|0"_s}));
    EXPECT_EQ(RowsOf(kGroups), (QStringList {u"80|0|0"_s, u"90|0|0"_s, u"91|1|3"_s}));
}
