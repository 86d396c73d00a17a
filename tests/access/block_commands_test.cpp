// "Block", "Unblock" and their "Undo", the same on every engine.
#include "access/block_commands.h"

#include "db/value_codes.h"
#include "service/service_link.h"
#include "support/core/engine_fixture.h"
#include "support/core/fake_service.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;

namespace {

const std::vector<UserId> kAll {
    UserId {1}, UserId {2}, UserId {3}, UserId {4}, UserId {5}, UserId {77}};
const char kUsers[] = "SELECT user_id, blocked, blockreason FROM users ORDER BY user_id";

constexpr StoredBlock kByAdministrator {true, BlockReason::Administrator};

class BlockCommands : public EngineFixture
{
protected:
    // Not blocked; blocked for traffic; by the administrator; shown as allowed; of no meaning.
    void SetUp() override
    {
        EngineFixture::SetUp();
        Execute("INSERT INTO users (user_id, username, blocked, blockreason) VALUES "
                "(1, 'anna', 0, 2), (2, 'bert', 1, 1), (3, 'carl', 1, 3), (4, 'dora', 1, 4), "
                "(5, 'emil', 1, 9)");
        service.OfferAccounting();
        link = ServiceLink::Create(bus.Connection());
    }

    Outcome Run(const Action &action) { return RunAction(action, {}, link.get()); }

    QString Refusal(const Action &action)
    {
        const QStringList before = EveryRow();
        static_cast<void>(service.TakeCalls());
        const Outcome outcome = Run(action);
        EXPECT_EQ(outcome.state, Outcome::State::Refused);
        EXPECT_EQ(EveryRow(), before);
        EXPECT_EQ(service.TakeCalls(), QStringList());
        return outcome.refusal;
    }

    PrivateBus bus;
    FakeService service {bus};
    std::shared_ptr<ServiceLink> link;
    BlockChanges changed = std::make_shared<std::vector<BlockChange>>();
    std::shared_ptr<QStringList> since = std::make_shared<QStringList>();
};

} // namespace

TB_ON_EVERY_ENGINE(BlockCommands);

TEST_P(BlockCommands, BlockWhomTheAdministratorHasNotBlocked)
{
    EXPECT_TRUE(Run(BlockUsersAction(kAll, changed)).IsDone());
    EXPECT_EQ(RowsOf(kUsers),
              QStringList({u"1|1|3"_s, u"2|1|3"_s, u"3|1|3"_s, u"4|1|3"_s, u"5|1|3"_s}));
    EXPECT_THAT(service.TakeCalls(),
                testing::ElementsAre(
                    u"BlockUser 1"_s, u"BlockUser 2"_s, u"BlockUser 4"_s, u"BlockUser 5"_s));
    EXPECT_THAT(*changed, testing::SizeIs(4));
    EXPECT_EQ(changed->at(1),
              (BlockChange {UserId {2}, {true, BlockReason::TrafficUsedUp}, kByAdministrator}));
}

TEST_P(BlockCommands, UnblockWhomTheAccessPageCouldUnblock)
{
    EXPECT_TRUE(Run(UnblockUsersAction(kAll, changed)).IsDone());
    EXPECT_EQ(RowsOf(kUsers),
              QStringList({u"1|0|2"_s, u"2|1|1"_s, u"3|0|3"_s, u"4|1|4"_s, u"5|0|9"_s}));
    EXPECT_THAT(service.TakeCalls(), testing::ElementsAre(u"UnblockUser 3"_s, u"UnblockUser 5"_s));
}

TEST_P(BlockCommands, AreRefusedWhereNobodyIsConcerned)
{
    EXPECT_EQ(Refusal(BlockUsersAction({UserId {3}}, changed)),
              u"The administrator has blocked these users already. Nothing was changed."_s);
    EXPECT_EQ(
        Refusal(UnblockUsersAction({UserId {1}, UserId {2}, UserId {4}}, changed)),
        u"The administrator has not blocked any of these users. A block for a limit is lifted by "
        u"a higher limit or a credit. Nothing was changed."_s);
    EXPECT_EQ(Refusal(BlockUsersAction({UserId {77}}, changed)),
              u"This user has been deleted meanwhile. Nothing was changed."_s);
}

TEST_P(BlockCommands, AreUndoneForThoseWhomTheyChanged)
{
    ASSERT_TRUE(Run(BlockUsersAction(kAll, changed)).IsDone());
    static_cast<void>(service.TakeCalls());
    EXPECT_TRUE(Run(UndoBlocksAction(*changed, since)).IsDone());
    EXPECT_EQ(RowsOf(kUsers),
              QStringList({u"1|0|2"_s, u"2|1|1"_s, u"3|1|3"_s, u"4|1|4"_s, u"5|1|9"_s}));
    EXPECT_THAT(service.TakeCalls(),
                testing::ElementsAre(
                    u"UnblockUser 1"_s, u"BlockUser 2"_s, u"BlockUser 4"_s, u"BlockUser 5"_s));
    ASSERT_TRUE(Run(UnblockUsersAction({UserId {3}}, changed)).IsDone());
    EXPECT_TRUE(Run(UndoBlocksAction(*changed, since)).IsDone());
    EXPECT_EQ(RowsOf(kUsers).at(2), u"3|1|3"_s);
}

TEST_P(BlockCommands, AreNotUndoneOverWhatSomebodyElseDidMeanwhile)
{
    struct Case
    {
        const char *meanwhile;
        QStringList left; // of both users
        QStringList told; // whose block stays
    };
    const Case cases[] = {
        {"UPDATE users SET blocked = false WHERE user_id = 2", {u"1|0"_s, u"2|0"_s}, {u"bert"_s}},
        {"UPDATE users SET blockreason = 1 WHERE user_id = 1", {u"1|1"_s, u"2|1"_s}, {u"anna"_s}},
        {"DELETE FROM users WHERE user_id = 2", {u"1|0"_s}, {}}};
    for (const auto &[meanwhile, left, told] : cases) {
        Execute("UPDATE users SET blocked = false WHERE user_id = 1");
        Execute("UPDATE users SET blocked = true, blockreason = 1 WHERE user_id = 2");
        ASSERT_TRUE(Run(BlockUsersAction({UserId {1}, UserId {2}}, changed)).IsDone());
        RunBeside(meanwhile);
        EXPECT_TRUE(Run(UndoBlocksAction(*changed, since)).IsDone()) << meanwhile;
        EXPECT_EQ(RowsOf("SELECT user_id, blocked FROM users WHERE user_id < 3 ORDER BY user_id"),
                  left)
            << meanwhile;
        EXPECT_EQ(*since, told) << meanwhile;
    }
    Execute("UPDATE users SET blocked = false");
    ASSERT_TRUE(Run(BlockUsersAction({UserId {1}}, changed)).IsDone());
    RunBeside("UPDATE users SET blockreason = 1 WHERE user_id = 1");
    EXPECT_EQ(Refusal(UndoBlocksAction(*changed, since)),
              u"The block of these users was changed meanwhile. Nothing was undone."_s);
}

TEST_P(BlockCommands, TellWhoseBlockIsTheAdministrators)
{
    const auto changedBy = [this](const Action &action) {
        return ChangedBlocksIn(Run(action).changes);
    };
    EXPECT_THAT(changedBy(BlockUsersAction(kAll, changed)),
                testing::UnorderedElementsAre(ChangedBlock {UserId {1}, true},
                                              ChangedBlock {UserId {2}, true},
                                              ChangedBlock {UserId {4}, true},
                                              ChangedBlock {UserId {5}, true}));
    EXPECT_THAT(changedBy(UndoBlocksAction(*changed, since)),
                testing::UnorderedElementsAre(ChangedBlock {UserId {1}, false},
                                              ChangedBlock {UserId {2}, false},
                                              ChangedBlock {UserId {4}, false},
                                              ChangedBlock {UserId {5}, false}));
    EXPECT_THAT(changedBy(UnblockUsersAction({UserId {3}}, changed)),
                testing::ElementsAre(ChangedBlock {UserId {3}, false}));
    EXPECT_THAT(changedBy(BlockUsersAction({UserId {3}}, changed)), // the reason was kept
                testing::ElementsAre(ChangedBlock {UserId {3}, true}));
    EXPECT_EQ(ChangedBlocksIn({{u"users"_s, u"3"_s, {u"user_id=3"_s}, {}}}),
              std::vector({ChangedBlock {UserId {3}, false}}));
    EXPECT_TRUE(
        ChangedBlocksIn({{u"groups"_s, u"3"_s, {u"blocked=0"_s}, {u"blocked=1"_s}}}).empty());
}
