#include "reports/selection.h"

#include "reports/catalogue.h"
#include "reports/connection_text.h"
#include "reports/filter_choices.h"
#include "reports/report_fixture.h"
#include "reports/wording.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace {

const Day kFrom {2026, 11, 1};
const Day kTo {2026, 11, 21};
const ReportPeriod kRange {PeriodChoice::Custom, kFrom, kTo};

QString ConditionOf(int row, const ReportPeriod &period)
{
    QString text = QueryText(row, period, {}, {});
    EXPECT_TRUE(text.startsWith(BaseStatement(row))) << row;
    text.remove(0, BaseStatement(row).size());
    const QString order = OrderText(row);
    EXPECT_TRUE(order.isEmpty() || text.endsWith(u' ' + order)) << row;
    return order.isEmpty() ? text : text.chopped(order.size() + 1);
}

} // namespace

TEST(Catalogue, RowsStandAsTheyAreListed)
{
    struct Row
    {
        QStringView title;
        QStringView file;
        ReportCategory category;
    };
    using enum ReportCategory;
    const Row rows[] = {
        {u"Traffic (Summary) ", u"reports\\trafall.rpt", Traffic},
        {u"Top 10 Users (Traffic)", u"reports\\trafalltop.rpt", Traffic},
        {u"Traffic (Detailed) ", u"reports\\traffordays.rpt", Traffic},
        {u"Traffic (Chart)", u"reports\\traftopfordays.rpt", Traffic},
        {u"Groups Traffic (Summary)", u"reports\\trafall-groups.rpt", Traffic},
        {u"Account Balance (Traffic)", u"reports\\billtraffordays.rpt", Billing},
        {u"Time (Summary)", u"reports\\timeall.rpt", Time},
        {u"Top 10 Users (Time)", u"reports\\timealltop.rpt", Time},
        {u"Time (Detail)", u"reports\\timefordays.rpt", Time},
        {u"Detail Time Top10", u"reports\\timetopfordays.rpt", Time},
        {u"Time (Chart)", u"reports\\billtimefordays.rpt", Billing},
        {u"Provider mode activity", u"reports\\provbill.rpt", Billing},
        {u"Top 10 Payers", u"reports\\provbilltop10.rpt", Billing},
        {u"Site Access", u"reports\\webhits.rpt", SiteAccess},
        {u"Top 10 Sites", u"reports\\webtop.rpt", SiteAccess},
        {u"User Site Access", u"reports\\webuser.rpt", SiteAccess},
    };
    for (size_t row = 0; row < std::size(rows); ++row) {
        const ReportEntry &entry = ReportCatalogue()[row];
        EXPECT_EQ(QString::fromUtf8(entry.title), rows[row].title) << row;
        EXPECT_EQ(entry.layoutFile, rows[row].file) << row;
        EXPECT_EQ(entry.category, rows[row].category) << row;
    }
    // Kept: descriptions of rows 9 to 12 do not all speak of what their titles say.
    EXPECT_EQ(DescriptionOf(ReportCatalogue()[10]),
              u"Report shows users' accounts in Provider mode: usage and updates");
    EXPECT_EQ(DescriptionOf(ReportCatalogue()[11]),
              u"Report shows Top 10 users' accounts by usage in Provider mode");
}

TEST(Catalogue, LayoutsAreFoundBelowTheFolderAndByName)
{
    EXPECT_EQ(LayoutPath(u"/usr/share/tollbrook/"_s, 4),
              u"/usr/share/tollbrook/reports\\trafall-groups.rpt"_s);
    EXPECT_EQ(LayoutPath(u"/srv"_s, 6), u"/srvreports\\timeall.rpt"_s);
    EXPECT_EQ(LayoutPath({}, 6), u"reports\\timeall.rpt"_s);
    EXPECT_EQ(FileNameOf(u"C\\reports\\timeall.rpt"_s), u"C/reports/timeall.rpt"_s);
    const std::pair<const char16_t *, int> names[] = {{u"0", 0},
                                                      {u"15", 15},
                                                      {u"16", kStatementRow},
                                                      {u"Statement ", kStatementRow},
                                                      {u"17", -1},
                                                      {u"-1", -1},
                                                      {u"traffic (summary)", 0},
                                                      {u"WEBTOP", 14},
                                                      {u"reports\\webtop.rpt", 14},
                                                      {u"reports/webtop.rpt", 14},
                                                      {u"webtop.rpt", 14},
                                                      {u"provbilltop10", 12},
                                                      {u"Time", -1},
                                                      {u"", -1}};
    for (const auto &[name, row] : names) {
        EXPECT_EQ(FindReport(QString::fromUtf16(name)), row)
            << QString::fromUtf16(name).toStdString();
    }
}

TEST(Selection, EachRowHasItsStatementAndOrder)
{
    struct Row
    {
        int row;
        const char *start;
        const char *end;
        const char *order;
    };
    const Row rows[] = {
        {0,
         "SELECT users.`username`, users.`ip_addr`, traffic_use.`data`, traffic_use.`senddata` FROM",
         "traffic_use.period = 0 and (traffic_use.data<>0 or traffic_use.senddata<>0)",
         "ORDER BY users.`username` ASC"},
        {1,
         "SELECT users.`username`, traffic_use.`data`, traffic_use.`senddata` FROM",
         "traffic_use.period = 0",
         ""},
        {2,
         "SELECT users.`username`, users.`ip_addr`, traffic_use.`data`, traffic_use.`current_time`, ",
         "traffic_use.period = 0  and (traffic_use.data <>0 or traffic_use.senddata <>0)",
         "ORDER BY users.`username` ASC, traffic_use.`current_time` DESC"},
        {3,
         "SELECT users.`username`, traffic_use.`data`, traffic_use.`current_time`, traffic_use.`senddata`",
         "traffic_use.period = 0",
         ""},
        // Kept: groups count the records of every period.
        {4,
         "SELECT traffic_use.`data`, traffic_use.`senddata`, groups.`name` FROM (`traffic_use` traffic_use",
         " WHERE (traffic_use.data<>0 or traffic_use.senddata<>0)",
         "ORDER BY groups.`name` ASC"},
        // Kept: credits are joined with users by the mode alone.
        {5,
         "SELECT users.`username`, users.`ip_addr`, billing.`data`, billing.`date`, billing.`usage` FROM",
         "INNER JOIN `billing` billing ON users.`mode` = billing.`mode` WHERE billing.mode = 1",
         "ORDER BY users.`username` ASC, billing.`date` ASC"},
        {6,
         "SELECT users.`username`, users.`ip_addr`, time_use.`data` FROM",
         " WHERE  time_use.data <>0  and time_use.period = 0",
         ""},
        {7, "SELECT users.`username`, time_use.`data` FROM", "WHERE time_use.period = 0", ""},
        {8,
         "SELECT users.`username`, users.`ip_addr`, time_use.`data`, time_use.`current_time` FROM",
         "WHERE time_use.period = 0 and time_use.data <>0",
         ""},
        {9,
         "SELECT users.`username`, time_use.`data`, time_use.`current_time` FROM",
         "WHERE time_use.period = 0",
         ""},
        {10,
         "SELECT users.`username`, users.`ip_addr`, billing.`data`, billing.`date`, billing.`usage` FROM",
         "INNER JOIN `billing` billing ON users.`mode` = billing.`mode` WHERE billing.mode = 4",
         ""},
        {11,
         "SELECT users.`username`, users.`ip_addr`, billing.`data`, billing.`date`, billing.`closed`, ",
         "WHERE billing.mode = 2 AND users.user_id = billing.object_id",
         ""},
        {13,
         "SELECT users.`username`, SiteAccess.`access_time`, Sites.`sitename`, Sites.`site_ip` FROM (",
         "WHERE SiteAccess.`site_id` = Sites.`site_id`",
         "ORDER BY users.`username`,  SiteAccess.`access_time` ASC"},
    };
    for (const auto &[row, start, end, order] : rows) {
        EXPECT_TRUE(BaseStatement(row).startsWith(QLatin1StringView(start))) << row;
        EXPECT_TRUE(BaseStatement(row).endsWith(QLatin1StringView(end))) << row;
        EXPECT_EQ(OrderText(row), QLatin1StringView(order)) << row;
    }
    EXPECT_EQ(BaseStatement(12), BaseStatement(11));
    EXPECT_EQ(BaseStatement(14), BaseStatement(13));
    EXPECT_EQ(BaseStatement(15), BaseStatement(13));
}

TEST(Selection, APeriodComparesTheColumnOfTheCategory)
{
    struct Case
    {
        int row;
        const char *today;
        const char *range;
    };
    const Case cases[] = {
        {0,
         " and traffic_use.current_time = #2026/11/21#",
         " and traffic_use.current_time >= #2026/11/01# and traffic_use.current_time <= #2026/11/21#"},
        {8,
         " and time_use.current_time = #2026/11/21#",
         " and time_use.current_time >= #2026/11/01# and time_use.current_time <= #2026/11/21#"},
        {5,
         " and billing.date = #2026/11/21#",
         " and billing.date >= #2026/11/01# and billing.date <= #2026/11/21#"},
        // Kept: the upper bound is 59 o'clock.
        {15,
         " and SiteAccess.access_time >= '2026.11.21 00:00:00' and SiteAccess.access_time <= '2026.11.21 59:59:59'",
         " and SiteAccess.access_time >= '2026.11.01 00:00:00' and SiteAccess.access_time <= '2026.11.21 59:59:59'"},
    };
    const ReportPeriod today = PeriodUpTo({2026, 11, 21}, PeriodChoice::Today);
    for (const auto &[row, day, range] : cases) {
        EXPECT_EQ(ConditionOf(row, today), QLatin1StringView(day));
        EXPECT_EQ(ConditionOf(row, kRange), QLatin1StringView(range));
    }
    for (int row = 0; row < kReportCount; ++row) {
        EXPECT_TRUE(QueryText(row, {}, u" AND (users.user_id = 1)"_s, {}).isEmpty()) << row;
    }
}

TEST(Selection, PeriodsGoByTheCalendar)
{
    struct Case
    {
        QDate today;
        const char *word;
        Day from;
        Day to;
    };
    const Case cases[] = {
        {{2026, 11, 21}, "today", {2026, 11, 21}, {2026, 11, 21}},
        {{2026, 11, 21}, "week", {2026, 11, 15}, {2026, 11, 21}},
        {{2026, 3, 6}, "week", {2026, 2, 28}, {2026, 3, 6}},
        {{2026, 1, 5}, "week", {2025, 12, 30}, {2026, 1, 5}},
        {{2026, 11, 21}, "month", {2026, 10, 21}, {2026, 11, 21}},
        {{2026, 1, 5}, "month", {2025, 12, 5}, {2026, 1, 5}},
        {{2026, 3, 31}, "month", {2026, 2, 28}, {2026, 3, 31}},
        {{2028, 3, 31}, "month", {2028, 2, 29}, {2028, 3, 31}},
        {{2026, 3, 31}, "previous-month", {2026, 2, 1}, {2026, 2, 28}},
        {{2026, 1, 1}, "previous-month", {2025, 12, 1}, {2025, 12, 31}},
        {{2026, 11, 21}, "this-year", {2026, 1, 1}, {2026, 11, 21}},
        {{2026, 1, 1}, "this-year", {2026, 1, 1}, {2026, 1, 1}},
        {{2026, 1, 1}, "2024-02-29..2026-11-21", {2024, 2, 29}, {2026, 11, 21}},
    };
    for (const auto &[today, word, from, to] : cases) {
        const auto period = PeriodNamed(QString::fromLatin1(word), today);
        ASSERT_TRUE(period) << word;
        EXPECT_EQ(period->from, from) << word << qPrintable(today.toString());
        EXPECT_EQ(period->to, to) << word << qPrintable(today.toString());
    }
    EXPECT_EQ(PeriodNamed(u"all"_s, {2026, 1, 1})->choice, PeriodChoice::All);
    for (const char *other :
         {"", "yesterday", "2026-02-30..2026-03-01", "2026-03-01..2026-02-01"}) {
        EXPECT_FALSE(PeriodNamed(QString::fromLatin1(other), {2026, 1, 1})) << other;
    }
}

TEST(Selection, TheShorterListIsWritten)
{
    struct Case
    {
        FilterNumbers filter;
        const char *users;
        const char *groups;
    };
    const Case cases[] = {
        {{{7}, {8, 9}}, " AND (users.user_id = 7)", " and (users.group_id = 7)"},
        {{{1, 2}, {3, 4, 5}},
         " AND (users.user_id = 1 OR users.user_id = 2)",
         " and (users.group_id = 1 or users.group_id = 2)"},
        // A tie excludes. Kept: groups are excluded with "or", which excludes none of two.
        {{{1, 2}, {3, 4}},
         " AND (users.user_id <> 3 AND users.user_id <> 4)",
         " and (users.group_id <> 3 or users.group_id <> 4)"},
        {{{1, 2, 3}, {4}}, " AND (users.user_id <> 4)", " and (users.group_id <> 4)"},
        {{{1, 2}, {}}, "", ""},
        {{{}, {1, 2}}, "", ""},
    };
    for (const auto &[filter, users, groups] : cases) {
        EXPECT_EQ(UserFilterClause(filter.Filter<UserId>()), QLatin1StringView(users));
        EXPECT_EQ(GroupFilterClause(filter.Filter<GroupId>()), QLatin1StringView(groups));
    }
    EXPECT_EQ(
        QueryText(2, kRange, u" AND (U)"_s, u" and (G)"_s),
        BaseStatement(2)
            + u" and traffic_use.current_time >= #2026/11/01# and traffic_use.current_time <= #2026/11/21#"
              " AND (U) and (G) "
            + OrderText(2));
}

TEST(Selection, RowsOneAndThreeOfferNoFilter)
{
    for (int row = 0; row < kReportCount; ++row) {
        const bool offered = row != 1 && row != 3;
        EXPECT_EQ(FiltersOf(row).users, offered) << row;
        EXPECT_EQ(FiltersOf(row).groups, offered) << row;
    }
}

TEST(ConnectionText, IsReadWithItsBlanksAndCapitals)
{
    EXPECT_EQ(ReportConnectionText(), u"DSN = bill;UID = System;PWD;DSQ="_s);
    struct Case
    {
        const char16_t *text;
        const char16_t *dsn;
        const char16_t *user;
        const char16_t *password;
    };
    const Case cases[] = {
        {u"DSN = bill;UID = System;PWD;DSQ=", u"bill", u"system", u""},
        {u"dsn=two words ;uid=ada;pwd= a=b ;other=1", u"two words", u"ada", u"a=b"},
        {u"", u"", u"", u""},
        {u";;=;DSN", u"", u"", u""},
    };
    for (const auto &[text, dsn, user, password] : cases) {
        const ConnectionText parsed = ParseConnectionText(QString::fromUtf16(text));
        EXPECT_EQ(parsed.dsn, QString::fromUtf16(dsn));
        EXPECT_EQ(parsed.user, QString::fromUtf16(user));
        EXPECT_EQ(parsed.password, QString::fromUtf16(password));
    }
}

TEST(Filters, NamesAreReadAndFound)
{
    EXPECT_EQ(NamesFrom(u"anna,bert"_s), QStringList({u"anna"_s, u"bert"_s}));
    EXPECT_EQ(NamesFrom(u"\"O'Hara, \"\"Frank\"\"\",x"_s),
              QStringList({u"O'Hara, \"Frank\""_s, u"x"_s}));
    EXPECT_EQ(NamesFrom(u" anna , bert b "_s), QStringList({u"anna"_s, u"bert b"_s}));
    EXPECT_EQ(NamesFrom(u"anna\",5\" disk"_s), QStringList({u"anna\""_s, u"5\" disk"_s}));
    EXPECT_EQ(NamesFrom(u"bert,\"anna, x "_s), QStringList({u"bert"_s, u"\"anna, x "_s}));
    EXPECT_EQ(NamesFrom(u"\" anna \" ,\t\"b\"\"\" "_s), QStringList({u" anna "_s, u"b\""_s}));
    for (const char *nobody : {"", ",,", " , ", "\"\""}) {
        EXPECT_EQ(NamesFrom(QString::fromLatin1(nobody)), QStringList());
    }
    QStringList unknown;
    const std::vector<Named<UserId>> offered = {{UserId {1}, u"anna"_s},
                                                {UserId {2}, u"Bert"_s},
                                                {UserId {3}, u"anna"_s},
                                                {UserId {4}, u"eva"_s}};
    const auto bearers = BearersOf({u"ANNA"_s, u"zoe"_s}, offered, unknown);
    ASSERT_EQ(bearers.size(), 2U);
    EXPECT_EQ(bearers[0].id, UserId {1});
    EXPECT_EQ(bearers[1].id, UserId {3});
    EXPECT_EQ(unknown, QStringList(u"zoe"_s));
    EXPECT_EQ(OnlyUsersClause({UserId {1}, UserId {3}}),
              u" AND (users.user_id = 1 OR users.user_id = 3)"_s);
    EXPECT_EQ(OnlyGroupsClause({GroupId {7}}), u" and (users.group_id = 7)"_s);
    EXPECT_EQ(PeriodInWords({}), u"all available"_s);
    EXPECT_EQ(PeriodInWords(kRange), u"2026-11-01 to 2026-11-21"_s);
}

// The heading names what the clause leaves in the table, which is not always what was chosen.
TEST(Filters, WordsSayWhatIsInTheTable)
{
    std::vector<Named<UserId>> users;
    std::vector<Named<GroupId>> groups;
    for (quint32 number = 1; number <= 5; ++number) {
        users.push_back({UserId {number}, u"u%1"_s.arg(number)});
        groups.push_back({GroupId {number}, u"g%1"_s.arg(number)});
    }
    struct Case
    {
        FilterNumbers filter;
        const char16_t *ofUsers;
        const char16_t *ofGroups;
        bool warnsOfUsers;
        bool warnsOfGroups;
    };
    const Case cases[] = {
        {{{1, 2}, {3, 4, 5}}, u"users u1, u2", u"groups g1, g2", false, false},
        {{{1, 2, 3}, {4, 5}}, u"all users but u4, u5", u"all users and groups", true, true},
        {{{1}, {5}}, u"all users but u5", u"all groups but g5", true, true},
        {{{1, 2, 3, 4}, {5}}, u"all users but u5", u"all groups but g5", true, true},
        {{{1, 2, 3, 4, 5}, {}}, u"all users and groups", u"all users and groups", false, false},
        {{{}, {1, 2, 3, 4, 5}}, u"all users and groups", u"all users and groups", false, false},
    };
    for (const auto &[filter, ofUsers, ofGroups, warnsOfUsers, warnsOfGroups] : cases) {
        const auto userScope = ScopeOf(filter.Filter<UserId>(), users);
        const auto groupScope = ScopeOf(filter.Filter<GroupId>(), groups);
        EXPECT_EQ(FilterInWords(userScope, {}), QString::fromUtf16(ofUsers));
        EXPECT_EQ(FilterInWords({}, groupScope), QString::fromUtf16(ofGroups));
        EXPECT_EQ(!UserFilterWarning(userScope.effect).isEmpty(), warnsOfUsers);
        EXPECT_EQ(!GroupFilterWarning(groupScope.effect).isEmpty(), warnsOfGroups);
    }
}

TEST(KeptFilter, SaysWhatItsListsSay)
{
    const QList<UserId> offered {UserId {1}, UserId {2}, UserId {3}, UserId {4}};
    const QList<UserId> all = offered + QList {UserId {5}};
    struct Case
    {
        ReportFilter<UserId> lists;
        FilterEffect effect;
    };
    const Case cases[] = {
        {{{}, offered}, FilterEffect::None},
        {{{UserId {2}}, {UserId {1}, UserId {3}, UserId {4}}}, FilterEffect::Only},
        {{{UserId {1}, UserId {2}}, {UserId {3}, UserId {4}}}, FilterEffect::AllBut},
    };
    for (const auto &[lists, effect] : cases) {
        const auto kept = Kept(lists);
        EXPECT_EQ(kept.effect, effect);
        EXPECT_EQ(KeptUsersClause(kept), UserFilterClause(lists));
        const auto again = ListsOf(kept, offered, all);
        EXPECT_EQ(again.taken, effect == FilterEffect::None ? QList<UserId>() : lists.taken);
        EXPECT_EQ(again.left, effect == FilterEffect::None ? QList<UserId>() : lists.left);
    }
    // One that is not offered stays; one that is gone does not.
    const KeptFilter<UserId> odd {FilterEffect::Only, {UserId {5}, UserId {9}}};
    EXPECT_EQ(ListsOf(odd, offered, all).taken, QList {UserId {5}});
    EXPECT_EQ(ListsOf(odd, offered, all).left, offered);
}

TEST(PeriodName, IsReadAsThePeriodThatItIsOf)
{
    const QDate today(2026, 11, 21);
    for (const QString &word : PeriodWords() + QStringList {u"2026-11-01..2026-11-05"_s}) {
        EXPECT_EQ(NameOf(*PeriodNamed(word, today)), word);
    }
}
