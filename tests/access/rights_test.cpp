#include "access/access_mode.h"
#include "access/block_state.h"
#include "access/limits.h"
#include "access/many_users.h"
#include "access/member_table.h"
#include "access/stored_protocols.h"
#include "access/time_ranges.h"
#include "actions/action_run.h"
#include "db/value_codes.h"
#include "support/core/database_fixture.h"
#include "support/core/statement_recorder.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

constexpr UserId kUser {1};
constexpr GroupId kGroup {81};

class Rights : public DatabaseFixture
{
protected:
    void SetUp() override
    {
        DatabaseFixture::SetUp();
        Execute("INSERT INTO groups (group_id, name, timeaccess) VALUES (81, 'Office', 1)");
        Execute("INSERT INTO users (user_id, username, group_id, traflim, timelim) VALUES "
                "(1, 'anna', 81, 100, 10), (2, 'bert', 81, 0, 0), (9, 'zoe', 80, 0, 0)");
    }
};

// `count` rows of one statement, the number of each bound to its marker.
void InsertMany(const char *sqlText, quint32 first, quint32 count)
{
    Execute("BEGIN");
    for (quint32 i = first; i < first + count; ++i) {
        Execute(sqlText, i);
    }
    Execute("COMMIT");
}

} // namespace

TEST(AccessMode, EveryChoiceHasItsCodeAndBack)
{
    const std::pair<AccessChoice, AccountingMode> cases[] = {
        {{AccessType::NoControl, false, false}, AccountingMode::NoControl},
        {{AccessType::Corporate, true, false}, AccountingMode::Traffic},
        {{AccessType::Provider, false, false}, AccountingMode::Provider},
        {{AccessType::Corporate, false, true}, AccountingMode::Time},
        {{AccessType::Corporate, true, true}, AccountingMode::TrafficAndTime},
    };
    for (const auto &[choice, mode] : cases) {
        EXPECT_EQ(ModeFor(choice), mode);
        EXPECT_EQ(ChoiceFor(mode), choice) << static_cast<quint32>(mode);
    }
    EXPECT_EQ(ModeFor({AccessType::Corporate, false, false}), std::nullopt);
    EXPECT_EQ(ModeFor({AccessType::Provider, true, true}), AccountingMode::Provider);
    EXPECT_EQ(ChoiceFor(AccountingMode {3}), AccessChoice {});
}

TEST(BlockState, TheBoxOpensByWhoBlocked)
{
    struct Case
    {
        bool blocked;
        BlockReason reason;
        std::pair<bool, bool> user; // requested, editable
        std::pair<bool, bool> group;
    };
    const Case cases[] = {
        {false, BlockReason::None, {false, true}, {false, true}},
        {false, BlockReason::Administrator, {false, true}, {false, true}},
        {true, BlockReason::TrafficUsedUp, {true, false}, {true, false}},
        {true, BlockReason::TimeUsedUp, {true, false}, {true, false}},
        {true, BlockReason::Administrator, {true, true}, {true, true}},
        {true, BlockReason::ShownAsAllowed, {false, true}, {true, false}},
    };
    for (const auto &[blocked, reason, user, group] : cases) {
        SCOPED_TRACE(static_cast<quint32>(reason));
        const BlockState userState = UserBlockState({blocked, reason});
        EXPECT_EQ(std::pair(userState.requested, userState.editable), user);
        const BlockState groupState = GroupBlockState({blocked, reason});
        EXPECT_EQ(std::pair(groupState.requested, groupState.editable), group);
    }
}

TEST(Limits, EachModeOpensItsFields)
{
    const std::pair<AccountingMode, LimitFields> cases[] = {
        {AccountingMode::NoControl, {}},
        {AccountingMode::Traffic, {.period = true, .traffic = true}},
        {AccountingMode::Provider, {.rates = true}},
        {AccountingMode::Time, {.period = true, .time = true}},
        {AccountingMode::TrafficAndTime, {.period = true, .traffic = true, .time = true}},
    };
    for (const auto &[mode, fields] : cases) {
        EXPECT_EQ(FieldsFor(mode), fields) << static_cast<quint32>(mode);
    }
}

TEST_F(Rights, LimitsAreShownAsTheyAreNowWhereNothingWasChanged)
{
    LimitsDraft draft;
    draft.stored = ReadLimits(kUser).value().value();
    EXPECT_EQ(draft.stored,
              (Limits {.period = LimitPeriod::Month,
                       .timePeriod = LimitPeriod::Month,
                       .traffic = WholeMegabytes {100},
                       .time = WholeHours {10},
                       .ownPrice = false,
                       .price = 0}));
    draft.traffic = WholeMegabytes {150};
    draft.period = LimitPeriod::Day;
    Execute("UPDATE users SET traflim = 300, timelim = 30, trafperiod = 0, timeperiod = 0, "
            "own_price = 1, trafprice = 2.5 WHERE user_id = 1");
    draft.TakeStored(ReadLimits(kUser).value().value());
    EXPECT_EQ(draft.Staged(),
              (Limits {.period = LimitPeriod::Day,
                       .timePeriod = LimitPeriod::Day,
                       .traffic = WholeMegabytes {150},
                       .time = WholeHours {30},
                       .ownPrice = true,
                       .price = 2.5}));
    EXPECT_EQ(draft.stored.traffic, WholeMegabytes {100}) << "what it was changed from";
    EXPECT_EQ(draft.stored.period, LimitPeriod::Month);
    EXPECT_EQ(draft.stored.timePeriod, LimitPeriod::Month);
}

TEST_F(Rights, OfAnOwnerThatIsGoneNothingIsRead)
{
    for (const Owner &owner : {Owner {UserId {77}}, Owner {GroupId {77}}}) {
        EXPECT_EQ(ReadLimits(owner).value(), std::nullopt);
        EXPECT_EQ(ReadTimeAccess(owner).value(), std::nullopt);
        EXPECT_FALSE(ReadProtocolChoice(owner).value());
    }
}

TEST_F(Rights, AddedRangesBeyondTheHundredthAreShownButNotKept)
{
    TimeRanges ranges;
    ranges.Open(false);
    ranges.Rebuild({});
    for (quint32 i = 0; i < 101; ++i) {
        ranges.Add({1 + i % 7, u"08:00:00"_s, u"09:00:%1"_s.arg(i, 2, 10, QChar(u'0'))});
    }
    EXPECT_EQ(ranges.Shown().size(), 101U);
    EXPECT_EQ(ranges.Added().size(), 100U);
    ranges.Delete(100);
    ranges.Add({1, u"10:00:00"_s, u"11:00:00"_s});
    ranges.Rebuild({});
    EXPECT_EQ(ranges.Shown().size(), 100U);
    EXPECT_EQ(ranges.Added().size(), 100U);
}

TEST_F(Rights, DeletedRangesAreForgottenOrRemoved)
{
    Execute(
        "INSERT INTO time_blocked (tb_id, user_id, group_id, dayofweek, timestart, timestop) VALUES "
        "(1, 1, NULL, 2, '09:00:00', '10:00:00'), (2, 1, NULL, 1, '09:00:00', '10:00:00'), "
        "(3, NULL, 81, 1, '09.00', '10.00'), (4, 1, NULL, 1, '07:00:00', '08:00:00')");
    const auto stored = ReadTimeRanges(kUser).value();
    TimeRanges ranges;
    ranges.Open(ReadTimeAccess(kUser).value().value());
    EXPECT_FALSE(ranges.grant);
    ranges.Rebuild(stored);
    const TimeRange monday {1, u"12:00:00"_s, u"13:00:00"_s};
    const TimeRange sunday {7, u"12:00:00"_s, u"13:00:00"_s};
    ranges.Add(monday);
    ranges.Add(sunday);
    EXPECT_THAT(ranges.Shown(),
                ElementsAre(TimeRange {1, u"07:00:00"_s, u"08:00:00"_s},
                            TimeRange {1, u"09:00:00"_s, u"10:00:00"_s},
                            TimeRange {2, u"09:00:00"_s, u"10:00:00"_s},
                            monday,
                            sunday));
    ranges.Delete(3);
    ranges.Delete(2);
    ranges.Delete(0);
    EXPECT_THAT(ranges.Added(), ElementsAre(sunday));
    EXPECT_THAT(ranges.Deleted(), ElementsAre(RangeId {1}, RangeId {4}));
    ranges.Rebuild(stored);
    EXPECT_EQ(ranges.Shown().size(), 2U);

    ranges.Open(ReadTimeAccess(kGroup).value().value());
    EXPECT_TRUE(ranges.grant);
    EXPECT_TRUE(ranges.StoredGrant());
    EXPECT_THAT(ranges.Deleted(), IsEmpty());
    EXPECT_THAT(ReadTimeRanges(kGroup).value(),
                ElementsAre(StoredRange {RangeId {3}, {1, u"09.00"_s, u"10.00"_s}}));
}

TEST_F(Rights, AThousandRangesAreTheMostThatAreLoaded)
{
    InsertMany(
        "INSERT INTO time_blocked (user_id, dayofweek, timestart) VALUES (1, 1, (?))", 1000, 1001);
    EXPECT_EQ(ReadTimeRanges(kUser).value().size(), TimeRanges::kMostLoaded);
}

TEST(TimeRanges, DaysAreCountedFromMonday)
{
    EXPECT_EQ(DayName(1), u"Monday"_s);
    EXPECT_EQ(DayName(7), u"Sunday"_s);
    EXPECT_EQ(DayName(0), QString());
    EXPECT_EQ(DayName(8), QString());
}

TEST_F(Rights, OnlyTheFirstHundredProtocolsAndPortsCount)
{
    Execute("DELETE FROM protocols");
    Execute("DELETE FROM ports");
    InsertMany("INSERT INTO protocols (proto_name) VALUES ('p' || (?))", 1000, 101);
    Execute("INSERT INTO protocols (id, proto_name) VALUES (1, 'first')");
    InsertMany("INSERT INTO ports (proto_id, port_number) VALUES (1, (?))", 1, 101);
    Execute("INSERT INTO ports (port_id, proto_id, port_number) "
            "SELECT 5000, id, 9 FROM protocols WHERE proto_name = 'p1100'");
    Execute("INSERT INTO port_blocked (user_id, port_id) VALUES (1, 5000)");
    Execute("INSERT INTO port_blocked (user_id, port_id) SELECT 1, port_id FROM ports "
            "WHERE port_number = 50");

    ProtocolChoice choice = ReadProtocolChoice(kUser).value().value();
    ASSERT_EQ(choice.protocols.size(), 100U);
    EXPECT_EQ(choice.protocols.back().name, u"p1098"_s);
    EXPECT_EQ(choice.protocols.front().ports.size(), 100U);
    EXPECT_THAT(choice.Names(true), ElementsAre(u"first"_s));
    const auto store = [&] {
        const ProtocolChoice now = ReadProtocolsToStore(kUser).value().value();
        const ProtocolChoice settled = SettleProtocols(choice, now);
        EXPECT_TRUE(RunAction({ActionId::ApplyUser,
                               [&](ActionRun &run) { WriteProtocols(run, kUser, settled); }},
                              {},
                              nullptr)
                        .IsDone());
        return settled.ChangesPorts();
    };
    EXPECT_TRUE(store());
    EXPECT_THAT(RowsOf("SELECT count(*) FROM port_blocked WHERE user_id = 1"),
                ElementsAre(u"101"_s));
    const QStringList stored = EveryRow();
    EXPECT_FALSE(store());
    EXPECT_EQ(EveryRow(), stored);

    choice.Select(u"first"_s, false);
    choice.Select(u"no such"_s, true);
    EXPECT_TRUE(store());
    EXPECT_THAT(RowsOf("SELECT port_id FROM port_blocked"), ElementsAre(u"5000"_s));
}

TEST_F(Rights, OfTwoProtocolsOfOneNameTheFirstIsMarked)
{
    ProtocolChoice choice;
    choice.protocols = {{.name = u"X"_s, .id = ProtocolId {1}, .selected = false, .ports = {}},
                        {.name = u"X"_s, .id = ProtocolId {2}, .selected = false, .ports = {}},
                        {.name = u"x"_s, .id = ProtocolId {3}, .selected = false, .ports = {}}};
    choice.Select(u"X"_s, true);
    EXPECT_THAT(choice.Names(true), ElementsAre(u"X"_s));
    EXPECT_TRUE(choice.protocols.front().selected);
    choice.Select(u"x"_s, true);
    EXPECT_TRUE(choice.protocols.back().selected);
}

TEST_F(Rights, MembersAreStaged)
{
    const Member anna {UserId {1}, u"anna"_s, GroupId {81}};
    const Member bert {UserId {2}, u"bert"_s, GroupId {81}};
    const Member zoe {UserId {9}, u"zoe"_s, kEverybodyGroup};
    MemberTable members;
    members.Open(GroupId {81}, ReadMembers(GroupId {81}).value());
    EXPECT_THAT(members.Listed(), ElementsAre(anna, bert));
    EXPECT_THAT(ReadCandidates(members).value(), ElementsAre(zoe));
    members.Remove(0);
    EXPECT_TRUE(members.Add(zoe));
    EXPECT_THAT(ReadCandidates(members).value(), ElementsAre(anna));
    EXPECT_THAT(members.Removed(), ElementsAre(anna));
    EXPECT_THAT(members.Added(), ElementsAre(zoe));

    members.Remove(1);
    EXPECT_TRUE(members.Add(anna));
    EXPECT_THAT(members.Listed(), ElementsAre(bert, anna));
    EXPECT_THAT(members.Removed(), IsEmpty()) << "back where it was";
    EXPECT_THAT(members.Added(), IsEmpty());
}

TEST_F(Rights, AUserThatWasRemovedIsOfferedOnce)
{
    MemberTable members;
    members.Open(GroupId {81}, ReadMembers(GroupId {81}).value());
    members.Remove(0);
    Execute("UPDATE users SET group_id = 80 WHERE user_id = 1"); // by another console
    EXPECT_EQ(ReadCandidates(members).value().size(), 2U);
}

TEST_F(Rights, AThousandMembersAreTheMost)
{
    InsertMany("INSERT INTO users (username, group_id) VALUES ('u' || (?), 81)", 1, 998);
    MemberTable members;
    members.Open(GroupId {81}, ReadMembers(GroupId {81}).value());
    EXPECT_EQ(members.Listed().size(), MemberTable::kMost);
    EXPECT_FALSE(members.Add({UserId {9}, u"zoe"_s, kEverybodyGroup}));
    InsertMany("INSERT INTO users (username, group_id) VALUES ('v' || (?), 81)", 1, 1);
    EXPECT_EQ(ReadMembers(GroupId {81}).value().size(), MemberTable::kMost);
}

TEST_F(Rights, AThousandCandidatesAreTheMost)
{
    MemberTable members;
    members.Open(GroupId {81}, ReadMembers(GroupId {81}).value());
    InsertMany("INSERT INTO users (username, group_id) VALUES ('u' || (?), 80)", 1, 999);
    EXPECT_EQ(ReadCandidates(members).value().size(), 1000U) << "exactly as many as there are";
    InsertMany("INSERT INTO users (username, group_id) VALUES ('v' || (?), 80)", 1, 2);
    EXPECT_EQ(ReadCandidates(members).value().size(), 1000U);

    members.Remove(0);
    const auto withRemoved = ReadCandidates(members).value();
    EXPECT_EQ(withRemoved.size(), 1000U);
    EXPECT_EQ(withRemoved.front().name, u"anna"_s);

    ASSERT_TRUE(members.Add(withRemoved[1]));
    ASSERT_TRUE(members.Add(withRemoved[2]));
    EXPECT_EQ(ReadCandidates(members).value().size(), 1000U)
        << "those that were added make room for others";
}

TEST_F(Rights, SeveralUsersAreNamedAndTheFirstIsShown)
{
    EXPECT_THAT(NamesOfUsers({UserId {9}, UserId {77}, UserId {1}}).value(),
                ElementsAre(NamedUser {UserId {9}, u"zoe"_s}, NamedUser {UserId {1}, u"anna"_s}));
    Execute("UPDATE users SET mode = 4, trafperiod = 1, timeperiod = 2 WHERE user_id = 1");
    const ModeAndLimits first = ReadModeAndLimits(UserId {1}).value().value();
    EXPECT_EQ(first.mode, AccountingMode::Time);
    EXPECT_EQ(first.traffic, WholeMegabytes {100});
    EXPECT_EQ(first.time, WholeHours {10});
    EXPECT_EQ(first.period, LimitPeriod::Month);
    EXPECT_FALSE(ReadModeAndLimits(UserId {77}).value());
}

TEST_F(Rights, SeveralUsersGetOneMode)
{
    const ModeAndLimits values {.mode = AccountingMode::TrafficAndTime,
                                .traffic = WholeMegabytes {7},
                                .time = WholeHours {8},
                                .period = LimitPeriod::Day};
    StatementRecorder recorder;
    EXPECT_TRUE(RunAction(SetModeAndLimitsAction({UserId {9}, UserId {77}, UserId {1}}, values),
                          {},
                          nullptr)
                    .IsDone());
    const QString write = u"UPDATE users SET mode = (?), traflim = (?), timelim=(?), "
                          "trafperiod = (?), timeperiod = (?) WHERE user_id = (?)"_s;
    EXPECT_THAT(recorder.TakeChanging(), ElementsAre(write, write));
    EXPECT_THAT(RowsOf("SELECT user_id, mode, traflim, timelim, trafperiod, timeperiod FROM users "
                       "WHERE mode <> 0 ORDER BY user_id"),
                ElementsAre(u"1|5|7|8|1|1"_s, u"9|5|7|8|1|1"_s));

    const Outcome gone =
        RunAction(SetModeAndLimitsAction({UserId {77}, UserId {78}}, values), {}, nullptr);
    EXPECT_EQ(gone.state, Outcome::State::Refused);
    EXPECT_EQ(gone.refusal, u"These users have been deleted meanwhile. Nothing was changed."_s);
}
