// Why a user may send or may not: the rule by which access is decided, as tables of cases.
#include "access/access_facts.h"

#include <functional>
#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

constexpr LimitPeriod kDaily = LimitPeriod::Day;
constexpr LimitPeriod kMonthly = LimitPeriod::Month;

// Sunday, the 22nd of November 2026.
const QDate kToday(2026, 11, 22);
const QDate kFirst(2026, 11, 1);
const QDate kLast(2026, 11, 30);

Moment At(const char *time, QDate day = kToday)
{
    return {day, QTime::fromString(QLatin1StringView(time), u"hh:mm:ss"_s)};
}

QString Name(FactKind kind)
{
    static const QStringList names {u"unmonitored"_s,
                                    u"administrator"_s,
                                    u"service"_s,
                                    u"shown as allowed"_s,
                                    u"traffic"_s,
                                    u"time"_s,
                                    u"pre-paid"_s,
                                    u"week"_s,
                                    u"login"_s,
                                    u"block"_s,
                                    u"protocols"_s,
                                    u"nothing wrong"_s};
    return names.at(static_cast<int>(kind));
}

// Such as "administrator! traffic group week!": a mark after each fact that has an effect, and a star
// before the one that decides.
QString Text(const AccessFindings &findings)
{
    static const QStringList marks {u""_s, u"~"_s, u"?"_s, u"!"_s, u"+"_s};
    QStringList texts;
    for (size_t i = 0; i < findings.facts.size(); ++i) {
        const Fact &fact = findings.facts[i];
        texts << (i == findings.decidedBy ? u"*"_s : u""_s) + (fact.ofGroup ? u"group "_s : u""_s)
                + Name(fact.kind) + marks.at(static_cast<int>(fact.effect));
    }
    return texts.join(u' ');
}

void Block(OwnerRules &owner, int reason)
{
    owner.block = {true, static_cast<BlockReason>(reason)};
}

// A limit of 500 of which so much is used, counted this month.
void Traffic(OwnerRules &owner, double used, LimitPeriod period = kMonthly)
{
    owner.mode = AccountingMode::Traffic;
    owner.traffic = {
        Megabytes {500}, period, CountedUse<Megabytes> {Megabytes {used}, false, kToday}, {}};
}

void Time(OwnerRules &owner, double used)
{
    owner.mode = AccountingMode::Time;
    owner.time = {Hours {20}, kMonthly, CountedUse<Hours> {Hours {used}, false, kToday}, {}};
}

void Both(OwnerRules &owner, double traffic, double time)
{
    Traffic(owner, traffic);
    Time(owner, time);
    owner.mode = AccountingMode::TrafficAndTime;
}

void PrePaid(OwnerRules &owner, const std::vector<PrePaidCredit> &credits, double price = 1)
{
    owner.mode = AccountingMode::Provider;
    owner.credits = credits;
    owner.price = price;
}

PrePaidCredit OfTraffic(double given, double used, const CreditExpiry &expiry = {})
{
    return {{}, {}, Megabytes {given}, Megabytes {used}, expiry};
}

PrePaidCredit OfMoney(double given, double used)
{
    return {BaseUnits {given}, BaseUnits {used}, {}, {}, {}};
}

const CreditExpiry kYesterday {false, u"2026.11.21"_s};
const CreditExpiry kUntilToday {false, u"2026.11.22"_s};

OwnerRules &Group(UserRules &user)
{
    return user.group.emplace();
}

struct Case
{
    const char *name;
    std::function<void(UserRules &)> change;
    Verdict verdict;
    const char *facts;
    AccessState listed = AccessState::Allowed;
};

const std::vector<Case> &Cases() // NOLINT(readability-function-size): it is a table
{
    using enum Verdict;
    using enum AccessState;
    static const std::vector<Case> cases {
        {"nothing", [](UserRules &) {}, MaySend, "*nothing wrong"},
        {"unmonitored comes before everything",
         [](UserRules &user) {
             user.monitored = false;
             Block(user.own, 3);
             Traffic(user.own, 600);
         },
         MaySend,
         "*unmonitored+",
         Blocked},
        {"reason 0", [](UserRules &user) { Block(user.own, 0); }, MayNotSend, "*service!", Blocked},
        {"reason 1 of no limit",
         [](UserRules &user) { Block(user.own, 1); },
         MayNotSend,
         "*service!",
         Blocked},
        {"reason 3",
         [](UserRules &user) { Block(user.own, 3); },
         MayNotSend,
         "*administrator!",
         Blocked},
        {"reason 4 is let through although marked",
         [](UserRules &user) { Block(user.own, 4); },
         MaySend,
         "shown as allowed *nothing wrong"},
        {"a reason of no meaning",
         [](UserRules &user) { Block(user.own, 5); },
         MayNotSend,
         "*administrator!",
         Blocked},
        {"a reason left over from an earlier block",
         [](UserRules &user) {
             user.own.block = {false, BlockReason::Administrator};
         },
         MaySend,
         "*nothing wrong"},

        {"a limit with something left",
         [](UserRules &user) { Traffic(user.own, 499.9); },
         MaySend,
         "traffic *nothing wrong"},
        {"a limit that is used up, not yet marked",
         [](UserRules &user) { Traffic(user.own, 500); },
         MayNotSend,
         "*traffic!"},
        {"a limit that is used up, and marked",
         [](UserRules &user) {
             Traffic(user.own, 512.4);
             Block(user.own, 1);
         },
         MayNotSend,
         "*traffic!",
         Blocked},
        {"marked for a limit of which something is left again",
         [](UserRules &user) {
             Traffic(user.own, 100);
             Block(user.own, 1);
         },
         MayNotSend,
         "*service! traffic",
         Blocked},
        {"marked for time, used up is traffic",
         [](UserRules &user) {
             Both(user.own, 600, 1);
             Block(user.own, 2);
         },
         MayNotSend,
         "*service! traffic! time",
         Blocked},
        {"the administrator's block comes before the limit",
         [](UserRules &user) {
             Traffic(user.own, 600);
             Block(user.own, 3);
         },
         MayNotSend,
         "*administrator! traffic!",
         Blocked},
        {"a limit of another mode",
         [](UserRules &user) {
             Traffic(user.own, 600);
             user.own.mode = AccountingMode::NoControl;
         },
         MaySend,
         "*nothing wrong"},
        {"a limit of nothing",
         [](UserRules &user) { user.own.mode = AccountingMode::Traffic; },
         MayNotSend,
         "*traffic!"},
        {"short of the limit by less than a packet, which was refused",
         [](UserRules &user) {
             Traffic(user.own, 499.97);
             user.own.traffic.use->reached = true;
         },
         MayNotSend,
         "*traffic!"},
        {"the note of a limit that was raised since",
         [](UserRules &user) {
             Traffic(user.own, 400);
             user.own.traffic.use->reached = true;
         },
         MaySend,
         "traffic *nothing wrong"},
        {"used up in the month before",
         [](UserRules &user) {
             Traffic(user.own, 600);
             user.own.traffic.use->countedOn = QDate(2026, 10, 31);
         },
         MaySend,
         "traffic *nothing wrong"},
        {"used up yesterday of a day's limit",
         [](UserRules &user) {
             Traffic(user.own, 600, kDaily);
             user.own.traffic.use->countedOn = kToday.addDays(-1);
         },
         MaySend,
         "traffic *nothing wrong"},
        {"used up on the first of the month",
         [](UserRules &user) {
             Traffic(user.own, 600);
             user.own.traffic.use->countedOn = kFirst;
         },
         MayNotSend,
         "*traffic!"},
        {"time used up", [](UserRules &user) { Time(user.own, 20); }, MayNotSend, "*time!"},
        {"of both, traffic is used up",
         [](UserRules &user) { Both(user.own, 500, 1); },
         MayNotSend,
         "*traffic! time"},
        {"of both, time is used up",
         [](UserRules &user) { Both(user.own, 1, 20); },
         MayNotSend,
         "traffic *time!"},
        {"of both something is left",
         [](UserRules &user) { Both(user.own, 1, 1); },
         MaySend,
         "traffic time *nothing wrong"},
        {"a credit extends the limit",
         [](UserRules &user) {
             Traffic(user.own, 500);
             user.own.traffic.credits = {{Megabytes {100}, Megabytes {40}, {}}};
         },
         MaySend,
         "traffic *nothing wrong"},
        {"a credit that is used up",
         [](UserRules &user) {
             Traffic(user.own, 500);
             user.own.traffic.credits = {{Megabytes {100}, Megabytes {100}, {}}};
         },
         MayNotSend,
         "*traffic!"},
        {"an expired credit is none",
         [](UserRules &user) {
             Traffic(user.own, 500);
             user.own.traffic.credits = {{Megabytes {100}, {}, kYesterday}};
         },
         MayNotSend,
         "*traffic!"},
        {"a credit on its last day",
         [](UserRules &user) {
             Traffic(user.own, 500);
             user.own.traffic.credits = {{Megabytes {100}, {}, kUntilToday}};
         },
         MaySend,
         "traffic *nothing wrong"},

        {"pre-paid without a credit",
         [](UserRules &user) { PrePaid(user.own, {}); },
         MayNotSend,
         "*pre-paid!"},
        {"pre-paid traffic",
         [](UserRules &user) { PrePaid(user.own, {OfTraffic(10, 9)}); },
         MaySend,
         "pre-paid *nothing wrong"},
        {"pre-paid traffic used up, and marked",
         [](UserRules &user) {
             PrePaid(user.own, {OfTraffic(10, 10)});
             Block(user.own, 1);
         },
         MayNotSend,
         "*pre-paid!",
         Blocked},
        {"pre-paid and expired",
         [](UserRules &user) { PrePaid(user.own, {OfTraffic(10, 0, kYesterday)}); },
         MayNotSend,
         "*pre-paid!"},
        {"pre-paid money used up",
         [](UserRules &user) { PrePaid(user.own, {OfMoney(10, 10)}); },
         MayNotSend,
         "*pre-paid!"},
        {"money that costs nothing",
         [](UserRules &user) { PrePaid(user.own, {OfMoney(10, 10)}, 0); },
         MaySend,
         "pre-paid *nothing wrong"},
        {"a credit without a bound",
         [](UserRules &user) { PrePaid(user.own, {OfTraffic(0, 0)}); },
         MaySend,
         "pre-paid *nothing wrong"},

        {"outside the granted times",
         [](UserRules &user) {
             user.own.times = {true, {{7, u"08:00"_s, u"11:00"_s}}};
         },
         MayNotSend,
         "*week!",
         OutsideAllowedTime},
        {"in the granted times, which the service has marked",
         [](UserRules &user) {
             user.own.times = {true, {{7, u"08:00"_s, u"13:00"_s}}};
             user.timeBlocked = true;
         },
         MaySend,
         "week *nothing wrong"},
        {"in a denied time",
         [](UserRules &user) {
             user.own.times = {false, {{7, u"08:00"_s, u"13:00"_s}}};
         },
         MayNotSend,
         "*week!"},
        {"grant without ranges is no restriction, whatever the list shows",
         [](UserRules &user) { user.own.times.grant = true; },
         MaySend,
         "*nothing wrong",
         OutsideAllowedTime},
        {"the time image comes first in the list, the block in the decision",
         [](UserRules &user) {
             Block(user.own, 3);
             user.timeBlocked = true;
         },
         MayNotSend,
         "*administrator!",
         OutsideAllowedTime},

        {"a login, of which only the service knows",
         [](UserRules &user) { user.authRequired = true; },
         AfterLogin,
         "*login?"},
        {"not logged in",
         [](UserRules &user) {
             user.authRequired = true;
             user.loggedIn = false;
         },
         MayNotSend,
         "*login!"},
        {"logged in",
         [](UserRules &user) {
             user.authRequired = true;
             user.loggedIn = true;
         },
         MaySend,
         "login *nothing wrong"},
        {"a login would not help against the group's block",
         [](UserRules &user) {
             user.authRequired = true;
             Block(Group(user), 3);
         },
         MayNotSend,
         "login? *group block!"},
        {"a block comes before the login",
         [](UserRules &user) {
             user.authRequired = true;
             Block(user.own, 3);
         },
         MayNotSend,
         "*administrator! login?",
         Blocked},

        {"the group's block, of which the list knows nothing",
         [](UserRules &user) { Block(Group(user), 3); },
         MayNotSend,
         "*group block!"},
        {"of a group reason 4 denies",
         [](UserRules &user) { Block(Group(user), 4); },
         MayNotSend,
         "*group block!"},
        {"the group's limit is used up, and marked",
         [](UserRules &user) {
             Traffic(Group(user), 500);
             Block(*user.group, 1);
         },
         MayNotSend,
         "*group traffic!"},
        {"the group's limit is marked as used up and is not",
         [](UserRules &user) {
             Traffic(Group(user), 1);
             Block(*user.group, 1);
         },
         MayNotSend,
         "*group block! group traffic"},
        {"the group pays for a user without control",
         [](UserRules &user) { PrePaid(Group(user), {}); },
         MayNotSend,
         "*group pre-paid!"},
        {"the group does not pay for a user with a limit",
         [](UserRules &user) {
             Traffic(user.own, 1);
             PrePaid(Group(user), {});
         },
         MaySend,
         "traffic *nothing wrong"},
        {"a group has no time limit",
         [](UserRules &user) { Time(Group(user), 30); },
         MaySend,
         "*nothing wrong"},
        {"outside the group's times",
         [](UserRules &user) {
             Group(user).times = {false, {{7, u"08:00"_s, u"13:00"_s}}};
         },
         MayNotSend,
         "*group week!"},

        {"denied protocols",
         [](UserRules &user) {
             user.own.ports = {false, {u"FTP"_s}};
         },
         MaySend,
         "*protocols~"},
        {"protocols of a user who is blocked",
         [](UserRules &user) {
             user.own.ports = {true, {u"HTTP"_s}};
             Group(user).ports = {false, {u"FTP"_s}};
             Block(user.own, 3);
         },
         MayNotSend,
         "*administrator! protocols~ group protocols~",
         Blocked},
        {"allowed protocols of which none is picked",
         [](UserRules &user) {
             user.own.ports = {true, {}};
         },
         MaySend,
         "*nothing wrong"},
    };
    return cases;
}

} // namespace

TEST(AccessFacts, AreInTheOrderOfTheDecision)
{
    for (const Case &each : Cases()) {
        SCOPED_TRACE(each.name);
        UserRules user;
        each.change(user);
        const AccessFindings findings = DecideAccess(user, At("12:00:00"));
        EXPECT_EQ(Text(findings).toStdString(), each.facts);
        EXPECT_EQ(findings.verdict, each.verdict);
        EXPECT_EQ(findings.listed, each.listed);
    }
}

TEST(AccessFacts, SayHowMuchOfWhatLimitIsUsed)
{
    struct Row
    {
        const char *name;
        std::function<void(LimitRules<Megabytes> &)> change;
        QDate today;
        LimitFact<Megabytes> expected;
    };
    const auto mb = [](double number) { return Megabytes {number}; };
    const std::vector<Row> rows {
        {"of a month", [](auto &) {}, kToday, {mb(500), mb(120), mb(380), {}, {}, kFirst, kLast}},
        {"on the last day of it",
         [](auto &) {},
         kLast,
         {mb(500), mb(120), mb(380), {}, {}, kFirst, kLast}},
        {"on the first of the next",
         [](auto &) {},
         QDate(2026, 12, 1),
         {mb(500), {}, mb(500), {}, {}, QDate(2026, 12, 1), QDate(2026, 12, 31)}},
        {"of a short month in a leap year",
         [](auto &rules) { rules.use->countedOn = QDate(2028, 2, 1); },
         QDate(2028, 2, 29),
         {mb(500), mb(120), mb(380), {}, {}, QDate(2028, 2, 1), QDate(2028, 2, 29)}},
        {"of a day",
         [](auto &rules) { rules.period = kDaily; },
         kToday,
         {mb(500), mb(120), mb(380), {}, {}, kToday, kToday}},
        {"of a period of no meaning",
         [](auto &rules) { rules.period = LimitPeriod::None; },
         kToday,
         {mb(500), mb(120), mb(380), {}, {}, {}, {}}},
        {"nothing was counted",
         [](auto &rules) { rules.use.reset(); },
         kToday,
         {mb(500), {}, mb(500), {}, {}, kFirst, kLast}},
        {"with credits, of which two are over",
         [&](auto &rules) {
             rules.use->used = mb(510);
             rules.credits = {{mb(100), mb(40), {}},
                              {mb(30), {}, kUntilToday},
                              {mb(70), {}, {false, u"2026.11.09"_s}},
                              {mb(70), {}, kYesterday}};
         },
         kToday,
         {mb(500), mb(510), mb(90), mb(90), {2, kToday.addDays(-1)}, kFirst, kLast}},
        {"credits of the month before are gone with it",
         [&](auto &rules) {
             rules.use->countedOn = QDate(2026, 10, 5);
             rules.credits = {{mb(100), mb(40), {}}};
         },
         kToday,
         {mb(500), {}, mb(500), {}, {}, kFirst, kLast}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        UserRules user;
        Traffic(user.own, 120);
        row.change(user.own.traffic);
        const auto findings = DecideAccess(user, At("12:00:00", row.today));
        EXPECT_EQ(std::get<LimitFact<Megabytes>>(findings.facts.front().values), row.expected);
    }
}

TEST(AccessFacts, SayWhatIsLeftOfPrePaidCredits)
{
    struct Row
    {
        std::vector<PrePaidCredit> credits;
        PrePaidFact expected;
    };
    const CreditExpiry later {false, u"2026.12.24"_s};
    const std::vector<Row> rows {
        {{}, {}},
        {{OfTraffic(10, 4), OfTraffic(5, 9), OfMoney(3, 1)},
         {false, Megabytes {6}, BaseUnits {2}, {}, {}}},
        {{OfTraffic(10, 4, later), OfTraffic(5, 0, kUntilToday)},
         {false, Megabytes {11}, {}, {}, QDate(2026, 12, 24)}},
        {{OfTraffic(10, 4, later), OfTraffic(5, 5)},
         {false, Megabytes {6}, {}, {}, QDate(2026, 12, 24)}},
        {{OfTraffic(10, 4, later), OfTraffic(5, 0)}, {false, Megabytes {11}, {}, {}, {}}},
        {{OfTraffic(10, 4, kYesterday)}, {false, {}, {}, {1, kToday.addDays(-1)}, {}}},
        {{OfTraffic(0, 0, kUntilToday), OfTraffic(0, 0, later)},
         {true, {}, {}, {}, QDate(2026, 12, 24)}},
    };
    for (const Row &row : rows) {
        UserRules user;
        PrePaid(user.own, row.credits);
        const auto findings = DecideAccess(user, At("00:00:00"));
        EXPECT_EQ(std::get<PrePaidFact>(findings.facts.front().values), row.expected);
    }
}

TEST(WeekTimes, SayUntilWhenAndWhatFollows)
{
    struct Row
    {
        const char *name;
        bool grant;
        std::vector<TimeRange> ranges;
        Moment now;
        WeekState expected;
    };
    const TimeRange morning {7, u"08:00:00"_s, u"11:30:00"_s};
    const TimeRange evening {7, u"20.00"_s, u"23:59"_s};
    const TimeRange monday {1, u"00:00:00"_s, u"06:00:00"_s};
    const QDate next = kToday.addDays(1);
    const std::vector<Row> rows {
        {"none", true, {}, At("12:00:00"), {}},
        {"before", true, {morning}, At("07:59:59"), {false, At("08:00:00"), At("11:30:00"), 0}},
        {"its first second",
         true,
         {morning},
         At("08:00:00"),
         {true, At("11:30:00"), At("08:00:00", kToday.addDays(7)), 0}},
        {"its last second",
         true,
         {morning},
         At("11:29:59"),
         {true, At("11:30:00"), At("08:00:00", kToday.addDays(7)), 0}},
        {"its stop is outside",
         true,
         {morning, evening},
         At("11:30:00"),
         {false, At("20:00:00"), At("00:00:00", next), 0}},
        {"a stop of 23:59 reaches midnight, where the next begins",
         true,
         {evening, monday},
         At("23:59:30"),
         {true, At("06:00:00", next), At("20:00:00", kToday.addDays(7)), 0}},
        {"denied",
         false,
         {morning},
         At("09:00:00"),
         {false, At("11:30:00"), At("08:00:00", kToday.addDays(7)), 0}},
        {"denied later",
         false,
         {morning},
         At("00:00:00"),
         {true, At("08:00:00"), At("11:30:00"), 0}},
        {"overlapping",
         true,
         {morning, {7, u"10:00"_s, u"12:00"_s}},
         At("09:00:00"),
         {true, At("12:00:00"), At("08:00:00", kToday.addDays(7)), 0}},
        {"unreadable ranges grant nothing",
         true,
         {{7, u"morning"_s, u"11:00"_s}, {9, u"08:00"_s, u"11:00"_s}, {7, u"22:00"_s, u"02:00"_s}},
         At("09:00:00"),
         {false, {}, {}, 3}},
    };
    for (const Row &row : rows) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(TimesAt({row.grant, row.ranges}, row.now), row.expected);
    }
    const std::vector<TimeRange> always {{1, u"00:00"_s, u"23:59"_s},
                                         {2, u"00:00"_s, u"23:59"_s},
                                         {3, u"00:00"_s, u"23:59"_s},
                                         {4, u"00:00"_s, u"23:59"_s},
                                         {5, u"00:00"_s, u"23:59"_s},
                                         {6, u"00:00"_s, u"23:59"_s},
                                         {7, u"00:00"_s, u"23:59:59"_s}};
    EXPECT_EQ(TimesAt({true, always}, At("23:59:59")), (WeekState {true, {}, {}, 0}));
}

TEST(WeekTimes, UnderstandEveryWayInWhichTimesAreStored)
{
    const std::vector<std::pair<const char *, int>> rows {{"08:30:00", 30600},
                                                          {"08.30", 30600},
                                                          {"8:30", 30600},
                                                          {"00:00", 0},
                                                          {"23:59:59", 86399},
                                                          {"", -1},
                                                          {"24:00", -1},
                                                          {"08:60", -1},
                                                          {"8", -1},
                                                          {"08:30:00 PM", -1}};
    for (const auto &[text, seconds] : rows) {
        EXPECT_EQ(SecondsOfDay(QLatin1StringView(text)).value_or(-1), seconds) << text;
    }
}
