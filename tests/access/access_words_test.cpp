// Why a user may send or not, as a person reads it.
#include "access/access_words.h"

#include <gtest/gtest.h>
#include <tuple>
#include <utility>

using namespace Qt::StringLiterals;

namespace {

const QDate kToday(2026, 11, 22); // a Sunday
const WordsStyle kStyle {kToday, QLocale(QLocale::English, QLocale::UnitedKingdom), 2, u"euro"_s};

QString Said(const Fact &fact, const WordsStyle &style = kStyle)
{
    return LinesOf({.facts = {fact}}, style).front().text;
}

LimitFact<Megabytes>
Month(double used, double left, double credit = 0, const ExpiredCredits &expired = {})
{
    return {Megabytes {500},
            Megabytes {used},
            Megabytes {left},
            Megabytes {credit},
            expired,
            QDate(2026, 11, 1),
            QDate(2026, 11, 30)};
}

WeekFact Week(bool allowed, const Moment &until, const Moment &back, int unreadable = 0)
{
    return {true, {allowed, until, back, unreadable}};
}

} // namespace

TEST(AccessWords, SayEachFact)
{
    using enum FactKind;
    constexpr auto kNone = FactEffect::None;
    constexpr auto kRefuses = FactEffect::Refuses;
    const QDate monday = kToday.addDays(1);
    const BlockFact since {BlockReason::Administrator,
                           QDateTime(QDate(2025, 12, 24), QTime(18, 5))};
    const LimitFact<Hours> day {Hours {2}, Hours {0.5}, Hours {1.5}, {}, {}, kToday, kToday};
    const LimitFact<Megabytes> noPeriod {Megabytes {1}, Megabytes {1}, {}, {}, {}, {}, {}};
    const std::vector<std::pair<Fact, const char *>> rows {
        {{Unmonitored, FactEffect::LetsPass, false, {}},
         "This user is not monitored: nothing is counted, limited or blocked."},
        {{AdministratorBlock, kRefuses, false, BlockFact {BlockReason::Administrator, {}}},
         "Blocked by the administrator."},
        {{AdministratorBlock, kRefuses, false, since},
         "Blocked by the administrator since 24 December 2025, 18:05."},
        {{AdministratorBlock, kRefuses, false, BlockFact {BlockReason {7}, {}}},
         "Blocked for a reason without a meaning (7)."},
        {{ServiceBlock, kRefuses, false, BlockFact {BlockReason::TrafficUsedUp, {}}},
         "Blocked by the accounting service for traffic, though by now nothing that limits it is used "
         "up. The block stays until the service lifts it."},
        {{TrafficLimit, kRefuses, false, Month(512.4, 0)},
         "The traffic limit of 500 Mb is used up (512.4 Mb since 1 November). The period ends on 30 "
         "November."},
        {{TrafficLimit, kRefuses, false, Month(500, 0, 0, {1, QDate(2026, 11, 9)})},
         "The traffic limit of 500 Mb is used up (500 Mb since 1 November). A credit has expired: its "
         "last day was 9 November. The period ends on 30 November."},
        {{TrafficLimit, kNone, true, Month(499.97, 60.03, 60, {2, QDate(2025, 1, 2)})},
         "Of the traffic limit of 500 Mb that the group shares, 60.03 Mb is left (used: 499.97 Mb since "
         "1 November). Of that, credits give 60 Mb. 2 credits have expired: the last one's last day "
         "was 2 January 2025. The period ends on 30 November."},
        {{TrafficLimit, kRefuses, false, noPeriod}, "The traffic limit of 1 Mb is used up (1 Mb)."},
        {{TimeLimit, kNone, false, day},
         "Of the time limit of 2 h, 1.5 h is left (used: 0.5 h today). The period ends today."},
        {{PrePaid, kRefuses, false, PrePaidFact {}}, "No pre-paid credit is left."},
        {{PrePaid,
          kNone,
          false,
          PrePaidFact {false, Megabytes {6}, BaseUnits {2.5}, {}, QDate(2026, 12, 24)}},
         "Of the pre-paid credit, 6 Mb and 5 euro is left. Its last day is 24 December."},
        {{PrePaid, kNone, true, PrePaidFact {true, {}, {}, {}, {}}},
         "The group has a pre-paid credit without a bound."},
        {{TimesOfWeek, kRefuses, false, Week(false, {kToday, {20, 0}}, {monday, {0, 0}})},
         "Outside the allowed time until 20:00 today. The next allowed time lasts until midnight."},
        {{TimesOfWeek, kNone, true, Week(true, {monday, {6, 30}}, {kToday.addDays(7), {8, 0}}, 2)},
         "Within the allowed time, until 06:30 on Monday. These are the times of the group. Time ranges "
         "that cannot be read: 2."},
        {{TimesOfWeek,
          kRefuses,
          false,
          Week(false, {kToday.addDays(7), {8, 0}}, {kToday.addDays(7), {9, 0}})},
         "Outside the allowed time until 08:00 on 29 November. The next allowed time lasts until 09:00 on "
         "29 November."},
        {{TimesOfWeek, kRefuses, false, WeekFact {true, {false, {}, {}, 0}}},
         "No time of the week is an allowed one."},
        {{Login, FactEffect::NeedsLogin, false, LoginFact {1}},
         "The user must log in. Whether that was done, only the service knows."},
        {{Login, kRefuses, false, LoginFact {0}},
         "The user is not logged in. No login belongs to this user."},
        {{GroupBlock, kRefuses, true, BlockFact {BlockReason::Administrator, {}}},
         "The user's group is blocked by the administrator."},
        {{Protocols, FactEffect::Narrows, false, PortRules {false, {u"FTP"_s, u"SSH"_s}}},
         "These protocols are denied: FTP, SSH."},
        {{Protocols, FactEffect::Narrows, true, PortRules {true, {u"HTTP"_s}}},
         "Only these protocols are allowed to the group: HTTP."},
        {{NothingWrong, kNone, false, {}}, "Nothing stands against access."},
    };
    for (const auto &[fact, expected] : rows) {
        EXPECT_EQ(Said(fact).toStdString(), expected);
    }
}

TEST(AccessWords, WriteNumbersAndDaysByTheLocale)
{
    WordsStyle german = kStyle;
    german.locale = QLocale(QLocale::German);
    EXPECT_EQ(Said({FactKind::TrafficLimit, FactEffect::Refuses, false, Month(1512.4, 0)}, german),
              u"The traffic limit of 500 Mb is used up (1.512,4 Mb since 1 November). "
              u"The period ends on 30 November."_s);
}

TEST(AccessWords, NameTheCommandsThatChangeAFact)
{
    const AccessFindings findings {
        .facts = {{FactKind::TrafficLimit, FactEffect::Refuses, true, Month(500, 0)},
                  {FactKind::TimesOfWeek, FactEffect::None, true, WeekFact {}}},
        .verdict = Verdict::MayNotSend};
    const auto lines = LinesOf(findings, kStyle);
    EXPECT_EQ(lines[0].commands, QList({WhyCommand::RaiseLimit, WhyCommand::AddCredit}));
    EXPECT_TRUE(lines[0].ofGroup);
    EXPECT_TRUE(lines[0].decides);
    EXPECT_FALSE(lines[1].decides);
    EXPECT_TRUE(lines[1].commands.isEmpty());
    EXPECT_EQ(WhyCommandText(WhyCommand::RaiseLimit, true), u"Raise limit..."_s);
    EXPECT_EQ(WhyCommandText(WhyCommand::Unblock, false), u"Unblock"_s);
}

// The access page cannot lift a block by the service.
TEST(AccessWords, NameTheCommandsThatLiftABlock)
{
    using enum AccountingMode;
    using enum WhyCommand;
    const QList<WhyCommand> limits {RaiseLimit, AddCredit};
    const std::tuple<BlockReason, AccountingMode, QList<WhyCommand>, QList<WhyCommand>> cases[] = {
        {BlockReason::TrafficUsedUp, Traffic, limits, limits},
        {BlockReason::TimeUsedUp, Time, limits, {}},
        {BlockReason::None, TrafficAndTime, limits, {}},
        {BlockReason::TrafficUsedUp, Provider, {AddCredit}, {AddCredit}},
        {BlockReason::None, NoControl, {Access}, {Access}},
        {BlockReason::Administrator, Traffic, {Unblock}, {Unblock}},
    };
    for (const auto &[reason, mode, ofUser, ofGroup] : cases) {
        UserRules user;
        user.own.mode = mode;
        user.own.block = {true, reason};
        user.own.traffic.limit = Megabytes {500};
        user.own.time.limit = Hours {5};
        user.own.credits.push_back({}); // without a bound
        const Moment now {kToday, QTime(12, 0)};
        EXPECT_EQ(LinesOf(DecideAccess(user, now), kStyle).front().commands, ofUser);
        const OwnerRules group = std::exchange(user.own, {});
        if (!ofGroup.isEmpty()) { // a group has no limit of time
            user.group = group;
            EXPECT_EQ(LinesOf(DecideAccess(user, now), kStyle).front().commands, ofGroup);
        }
    }
}

TEST(AccessWords, SayWhereTheListDiffersFromTheDecision)
{
    struct Row
    {
        FactKind decides;
        Verdict verdict;
        AccessState listed;
        bool differs;
    };
    using enum FactKind;
    using enum Verdict;
    using enum AccessState;
    for (const Row &row : {Row {NothingWrong, MaySend, Allowed, false},
                           Row {NothingWrong, MaySend, OutsideAllowedTime, true},
                           Row {Login, AfterLogin, Allowed, false},
                           Row {GroupBlock, MayNotSend, Allowed, true},
                           Row {AdministratorBlock, MayNotSend, Blocked, false},
                           Row {AdministratorBlock, MayNotSend, OutsideAllowedTime, true},
                           Row {TimesOfWeek, MayNotSend, OutsideAllowedTime, false},
                           Row {TimesOfWeek, MayNotSend, Allowed, true}}) {
        const AccessFindings findings {.facts = {{row.decides, FactEffect::None, false, {}}},
                                       .verdict = row.verdict,
                                       .decidedBy = 0,
                                       .listed = row.listed};
        EXPECT_EQ(!DifferenceText(findings).isEmpty(), row.differs)
            << static_cast<int>(row.decides) << ' ' << static_cast<int>(row.listed);
    }
    for (const AccessState kept : {Allowed, Blocked, OutsideAllowedTime}) {
        EXPECT_EQ(DifferenceText(
                      {.facts = {{Unmonitored, FactEffect::LetsPass, false, {}}}, .listed = kept}),
                  u"The users list does not show this user: it holds monitored users alone."_s);
    }
}
