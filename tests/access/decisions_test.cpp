// What is decided without a database: whose value is stored, and what becomes of a block.
#include "access/block_step.h"
#include "access/group_mode_step.h"
#include "access/group_plan.h"
#include "access/many_users.h"
#include "access/settle.h"
#include "access/stored_protocols.h"
#include "access/user_mode_step.h"
#include "access/user_plan.h"

#include <gmock/gmock.h>

using namespace Qt::StringLiterals;
using testing::ElementsAre;

namespace {

// Gives one answer to everything and keeps what was asked.
struct Asked
{
    bool answer = true;
    QList<Question> questions;

    [[nodiscard]] Settler Settle(const Owner &owner = UserId {1})
    {
        return Settler(owner, [this](const Question &question) {
            questions << question;
            return answer;
        });
    }

    [[nodiscard]] QStringList Texts() const
    {
        QStringList texts;
        for (const Question &question : questions) {
            texts << question.text;
        }
        return texts;
    }
};

UserRecord Opened()
{
    UserRecord record;
    record.userId = UserId {1};
    record.base.fullName = u"Anna"_s;
    record.base.description = u"desk"_s;
    record.base.ipAddress = u"10.0.0.1"_s;
    record.base.macAddress = u"000000000001"_s;
    record.base.groupId = GroupId {81};
    record.base.groupName = u"Office"_s;
    record.base.mode = AccountingMode::TrafficAndTime;
    record.limits.stored = {.period = LimitPeriod::Day,
                            .timePeriod = LimitPeriod::Month,
                            .traffic = WholeMegabytes {100},
                            .time = WholeHours {10}};
    record.draft = record.base;
    record.block = UserBlockState({false, BlockReason::None});
    return record;
}

} // namespace

TEST(Settle, WhoeverTouchedItAloneIsFollowed)
{
    struct Case
    {
        QString base, draft, now;
        bool asks;
        QString afterYes, afterNo;
    };
    const Case cases[] = {
        {u"a"_s, u"a"_s, u"a"_s, false, u"a"_s, u"a"_s},
        {u"a"_s, u"b"_s, u"a"_s, false, u"b"_s, u"b"_s},
        {u"a"_s, u"a"_s, u"c"_s, false, u"c"_s, u"c"_s},
        {u"a"_s, u"b"_s, u"b"_s, false, u"b"_s, u"b"_s},
        {u"a"_s, u"b"_s, u"c"_s, true, u"b"_s, u"c"_s},
    };
    for (const Case &each : cases) {
        for (const bool answer : {true, false}) {
            Asked asked {answer, {}};
            EXPECT_EQ(asked.Settle()(u"Full name"_s, each.base, each.draft, each.now),
                      answer ? each.afterYes : each.afterNo);
            EXPECT_EQ(asked.Texts(),
                      each.asks
                          ? QStringList(u"Full name: changed meanwhile to \"c\". Overwrite?"_s)
                          : QStringList());
        }
    }
}

TEST(Settle, AQuestionIsOneOfItsOwnerItsFieldAndItsValue)
{
    const auto keyOf = [](const Owner &owner, const QString &label, const QString &now) {
        Asked asked;
        (void)asked.Settle(owner)(label, u"a"_s, u"b"_s, now);
        return asked.questions.constFirst().key;
    };
    const QString key = keyOf(UserId {1}, u"Name"_s, u"c"_s);
    EXPECT_EQ(key, keyOf(UserId {1}, u"Name"_s, u"c"_s));
    EXPECT_NE(key, keyOf(UserId {2}, u"Name"_s, u"c"_s));
    EXPECT_NE(key, keyOf(GroupId {1}, u"Name"_s, u"c"_s));
    EXPECT_NE(key, keyOf(UserId {1}, u"Other"_s, u"c"_s));
    EXPECT_NE(key, keyOf(UserId {1}, u"Name"_s, u"d"_s));
}

TEST(Settle, AFlagIsNeverAsked)
{
    for (const bool base : {false, true}) {
        for (const bool now : {false, true}) {
            EXPECT_EQ(Settler::Flag(base, !base, now), !base) << "touched";
            EXPECT_EQ(Settler::Flag(base, base, now), now) << "untouched";
        }
    }
}

TEST(Settle, LimitsThatTheModeDoesNotHaveStayAsTheyAre)
{
    LimitsDraft draft = Opened().limits;
    draft.period = LimitPeriod::Month;
    draft.traffic = WholeMegabytes {200};
    draft.time = WholeHours {20};
    draft.ownPrice = true;
    draft.price = 2.5;
    const Limits now = draft.stored;
    using enum AccountingMode;
    const auto settled = [&](AccountingMode mode) {
        return SettleLimits(Asked().Settle(), mode, draft, now);
    };
    EXPECT_EQ(settled(NoControl), now);
    Limits expected = now;
    expected.period = LimitPeriod::Month;
    expected.traffic = WholeMegabytes {200};
    EXPECT_EQ(settled(Traffic), expected);
    expected = now;
    expected.time = WholeHours {20};
    EXPECT_EQ(settled(Time), expected);
    expected.period = LimitPeriod::Month;
    expected.traffic = WholeMegabytes {200};
    EXPECT_EQ(settled(TrafficAndTime), expected);
    expected = now;
    expected.ownPrice = true;
    expected.price = 2.5;
    EXPECT_EQ(settled(Provider), expected);
}

TEST(Settle, EveryFieldOfAUserIsAskedByItsName)
{
    UserRecord sheet = Opened();
    sheet.draft.fullName = u"A"_s;
    sheet.draft.description = u"B"_s;
    sheet.draft.ipAddress = u"10.0.0.7"_s;
    sheet.draft.macAddress = u"000000000007"_s;
    sheet.draft.groupId = GroupId {82};
    sheet.limits.period = LimitPeriod::Month;
    sheet.limits.traffic = WholeMegabytes {500};
    sheet.limits.time = WholeHours {50};
    UserRecord now = Opened();
    now.base.fullName = u"Zoe"_s;
    now.base.description = u"window"_s;
    now.base.ipAddress = u"10.0.0.8"_s;
    now.base.macAddress = u"000000000008"_s;
    now.base.groupId = GroupId {83};
    now.base.groupName = u"Sales"_s;
    now.limits.stored.period = LimitPeriod::None;
    now.limits.stored.traffic = WholeMegabytes {700};
    now.limits.stored.time = WholeHours {70};
    Asked yes {true, {}};
    const UserPlan taken = PlanUser(sheet, now, yes.Settle());
    EXPECT_THAT(yes.Texts(),
                ElementsAre(u"Full name: changed meanwhile to \"Zoe\". Overwrite?"_s,
                            u"Description: changed meanwhile to \"window\". Overwrite?"_s,
                            u"Group: changed meanwhile to \"Sales\". Overwrite?"_s,
                            u"IP Address: changed meanwhile to \"10.0.0.8\". Overwrite?"_s,
                            u"MAC Address: changed meanwhile to \"000000000008\". Overwrite?"_s,
                            u"Accounting period: changed meanwhile to \"0\". Overwrite?"_s,
                            u"Traffic limit, Mb: changed meanwhile to \"700\". Overwrite?"_s,
                            u"Time limit, Hr: changed meanwhile to \"70\". Overwrite?"_s));
    EXPECT_EQ(taken.fullName, u"A"_s);
    EXPECT_EQ(taken.group, GroupId {82});
    EXPECT_EQ(taken.ipAddress, u"10.0.0.7"_s);
    EXPECT_EQ(taken.macAddress, u"000000000007"_s);
    EXPECT_EQ(taken.limits.traffic, WholeMegabytes {500});

    Asked no {false, {}};
    const UserPlan left = PlanUser(sheet, now, no.Settle());
    EXPECT_EQ(left.fullName, u"Zoe"_s);
    EXPECT_EQ(left.description, u"window"_s);
    EXPECT_EQ(left.group, std::nullopt);
    EXPECT_EQ(left.ipAddress, std::nullopt);
    EXPECT_EQ(left.macAddress, std::nullopt);
    EXPECT_EQ(left.limits, now.limits.stored);
}

TEST(Settle, AModeThatWasChangedTwiceIsAsked)
{
    UserRecord sheet = Opened();
    sheet.draft.mode = AccountingMode::Provider;
    UserRecord now = Opened();
    now.base.mode = AccountingMode::Time;
    Asked no {false, {}};
    const UserPlan left = PlanUser(sheet, now, no.Settle());
    EXPECT_THAT(no.Texts(),
                ElementsAre(u"Access type: changed meanwhile to \"Corporate, time control\". "
                            "Overwrite?"_s));
    EXPECT_EQ(left.mode, AccountingMode::Time);
    EXPECT_FALSE(left.modeChanged);
    Asked yes;
    const UserPlan taken = PlanUser(sheet, now, yes.Settle());
    EXPECT_EQ(taken.mode, AccountingMode::Provider);
    EXPECT_TRUE(taken.modeChanged);
}

TEST(BlockStep, AClickCountsAndAnUntouchedBoxOnlyWhileTheBlockIsAsItWas)
{
    using enum BlockReason;
    const StoredBlock open {false, None};
    const StoredBlock byService {true, TrafficUsedUp};
    const StoredBlock byAdministrator {true, Administrator};
    const StoredBlock released {false, Administrator};
    struct Case
    {
        const char *name;
        StoredBlock opened;
        bool clicked;
        StoredBlock now;
        BlockStep afterYes, afterNo; // the same where nothing is asked
    };
    using enum BlockStep;
    const Case cases[] = {
        {"open", open, false, open, Unblock, Unblock},
        {"open, clicked", open, true, open, Block, Block},
        {"open, blocked by the service", open, false, byService, Leave, Leave},
        {"open, blocked by another administrator", open, false, byAdministrator, Leave, Leave},
        {"clicked, blocked by the service", open, true, byService, Block, Leave},
        {"clicked, blocked so already", open, true, byAdministrator, Block, Block},
        {"open, blocked and released", open, false, released, Leave, Leave},
        {"clicked, blocked and released", open, true, released, Block, Leave},
        {"blocked", byAdministrator, false, byAdministrator, Block, Block},
        {"blocked, clicked", byAdministrator, true, byAdministrator, Unblock, Unblock},
        {"blocked, released", byAdministrator, false, released, Leave, Leave},
        {"blocked, clicked, released", byAdministrator, true, released, Unblock, Unblock},
        {"blocked, clicked, by the service", byAdministrator, true, byService, Unblock, Leave},
        {"closed box", byService, false, byService, Leave, Leave},
        {"closed box, released", byService, false, open, Leave, Leave},
    };
    for (const Case &each : cases) {
        SCOPED_TRACE(each.name);
        BlockState sheet = UserBlockState(each.opened);
        sheet.requested = sheet.opened != each.clicked;
        for (const bool answer : {true, false}) {
            Asked asked {answer, {}};
            EXPECT_EQ(StepFor(sheet, each.now, asked.Settle()),
                      answer ? each.afterYes : each.afterNo);
            EXPECT_EQ(asked.questions.size(), each.afterYes == each.afterNo ? 0 : 1);
        }
    }
}

TEST(BlockStep, LeavesABlockOfItsOwn)
{
    const StoredBlock byService {true, BlockReason::TimeUsedUp};
    EXPECT_EQ(After(BlockStep::Leave, byService), byService);
    EXPECT_EQ(After(BlockStep::Block, byService), (StoredBlock {true, BlockReason::Administrator}));
    EXPECT_EQ(After(BlockStep::Unblock, byService), (StoredBlock {false, BlockReason::TimeUsedUp}));
}

TEST(Protocols, WhatTheSheetDidNotTouchStaysAsItIsNow)
{
    const auto protocol = [](quint32 id, bool selected, std::vector<ChosenPort> ports) {
        return ChosenProtocol {QString::number(id), ProtocolId {id}, selected, std::move(ports)};
    };
    const PortId a {1};
    const PortId b {2};
    ProtocolChoice sheet;
    sheet.protocols = {protocol(1, false, {{a, false}}),
                       protocol(2, true, {{b, false}}),
                       protocol(3, false, {{PortId {3}, true}}),
                       protocol(4, true, {{PortId {4}, true}})};
    ProtocolChoice now;
    now.storedAllow = true;
    now.protocols = {protocol(9, true, {{PortId {9}, true}}),
                     protocol(1, true, {{a, true}, {PortId {11}, false}}),
                     protocol(2, false, {{PortId {12}, false}}),
                     protocol(3, true, {{PortId {3}, true}})};
    const ProtocolChoice settled = SettleProtocols(sheet, now);
    EXPECT_TRUE(settled.allow);
    ASSERT_EQ(settled.protocols.size(), 3U) << "the removed one, and the one that is new, left out";
    EXPECT_TRUE(settled.protocols[0].selected) << "selected by somebody else";
    EXPECT_EQ(settled.protocols[0].ports.size(), 2U) << "its ports of now";
    EXPECT_TRUE(settled.protocols[1].selected) << "selected here";
    EXPECT_EQ(settled.protocols[1].ports.front().id, PortId {12});
    EXPECT_FALSE(settled.protocols[2].selected) << "released here";
}

TEST(Members, ThoseMovedByBothAreAsked)
{
    const GroupId office {81};
    const std::vector<MovedMember> members {
        {UserId {1}, u"anna"_s, office, office, {}},
        {UserId {2}, u"bert"_s, office, GroupId {82}, u"Sales"_s},
        {UserId {3}, u"carl"_s, office, kEverybodyGroup, u"Everybody"_s}};
    Asked yes;
    EXPECT_THAT(PlanMoves(members, kEverybodyGroup, yes.Settle(office)),
                ElementsAre(UserId {1}, UserId {2}, UserId {3}));
    EXPECT_THAT(yes.Texts(),
                ElementsAre(u"Group of bert: changed meanwhile to \"Sales\". Overwrite?"_s));
    Asked no {false, {}};
    EXPECT_THAT(PlanMoves(members, kEverybodyGroup, no.Settle(office)),
                ElementsAre(UserId {1}, UserId {3}));
}

TEST(ManyUsers, WhatTheModeDoesNotUseStaysTheUsersOwn)
{
    const Limits own {.period = LimitPeriod::Day,
                      .timePeriod = LimitPeriod::Month,
                      .traffic = WholeMegabytes {1},
                      .time = WholeHours {2},
                      .ownPrice = true,
                      .price = 3};
    using enum AccountingMode;
    for (const AccountingMode mode : {NoControl, Traffic, Provider, Time, TrafficAndTime}) {
        const Limits limits = LimitsFor({.mode = mode,
                                         .traffic = WholeMegabytes {7},
                                         .time = WholeHours {8},
                                         .period = LimitPeriod::Month},
                                        own);
        const bool hasTraffic = mode == Traffic || mode == TrafficAndTime;
        const bool hasTime = mode == Time || mode == TrafficAndTime;
        EXPECT_EQ(limits.traffic, WholeMegabytes {hasTraffic ? 7U : 1U});
        EXPECT_EQ(limits.time, WholeHours {hasTime ? 8U : 2U});
        EXPECT_EQ(limits.period, hasTraffic || hasTime ? LimitPeriod::Month : LimitPeriod::Day);
        EXPECT_EQ(limits.timePeriod, LimitPeriod::Month);
        EXPECT_EQ(LimitsFor({.mode = mode}, own), own);
    }
}

TEST(Lift, NeedsAChangeAndSomethingLeft)
{
    UserPlan plan;
    plan.blockNow = {true, BlockReason::TrafficUsedUp};
    UserModeFacts facts;
    facts.reason = BlockReason::TrafficUsedUp;
    facts.creditLeft = true;
    facts.traffic.left = true;
    facts.time.left = true;
    using enum AccountingMode;
    for (const AccountingMode mode : {NoControl, Traffic, Provider, Time, TrafficAndTime}) {
        plan.mode = mode;
        EXPECT_FALSE(LiftsBlock(plan, facts)) << static_cast<quint32>(mode);
    }
    plan.mode = TrafficAndTime;
    facts.time.raised = true;
    EXPECT_TRUE(LiftsBlock(plan, facts));
    facts.traffic.left = false;
    EXPECT_FALSE(LiftsBlock(plan, facts));
    plan.mode = Time;
    EXPECT_TRUE(LiftsBlock(plan, facts));
    facts.reason = BlockReason::Administrator;
    EXPECT_FALSE(LiftsBlock(plan, facts));
    plan.mode = AccountingMode {3};
    facts.reason = BlockReason::TrafficUsedUp;
    EXPECT_FALSE(LiftsBlock(plan, facts));
}
