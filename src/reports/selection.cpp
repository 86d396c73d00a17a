#include "reports/selection.h"

#include "reports/catalogue.h"

#include <QSet>

using namespace Qt::StringLiterals;

namespace {

struct RowQuery
{
    QStringView base;
    QStringView order;
};

// Kept: the two credit statements join on the mode alone, so each user is shown the records of all,
// and the groups statement counts the records of every period.
constexpr RowQuery kTrafficWithAddress {
    u"SELECT users.`username`, users.`ip_addr`, traffic_use.`data`, traffic_use.`senddata` FROM `users` "
    u"users INNER JOIN `traffic_use` traffic_use ON users.`user_id` = traffic_use.`user_id` WHERE "
    u"traffic_use.period = 0 and (traffic_use.data<>0 or traffic_use.senddata<>0)",
    u"ORDER BY users.`username` ASC"};
constexpr RowQuery kTrafficTopTen {
    u"SELECT users.`username`, traffic_use.`data`, traffic_use.`senddata` FROM `users` users INNER JOIN "
    u"`traffic_use` traffic_use ON users.`user_id` = traffic_use.`user_id` WHERE traffic_use.period = 0",
    {}};
constexpr RowQuery kTrafficPerDay {
    u"SELECT users.`username`, users.`ip_addr`, traffic_use.`data`, traffic_use.`current_time`, "
    u"traffic_use.`senddata` FROM `users` users INNER JOIN `traffic_use` traffic_use ON users.`user_id` = "
    u"traffic_use.`user_id` WHERE traffic_use.period = 0  and (traffic_use.data <>0 or "
    u"traffic_use.senddata <>0)",
    u"ORDER BY users.`username` ASC, traffic_use.`current_time` DESC"};
constexpr RowQuery kTrafficPerDayTopTen {
    u"SELECT users.`username`, traffic_use.`data`, traffic_use.`current_time`, traffic_use.`senddata` FROM "
    u"`users` users INNER JOIN `traffic_use` traffic_use ON users.`user_id` = traffic_use.`user_id` WHERE "
    u"traffic_use.period = 0",
    {}};
constexpr RowQuery kGroups {
    u"SELECT traffic_use.`data`, traffic_use.`senddata`, groups.`name` FROM (`traffic_use` traffic_use "
    u"INNER JOIN `users` users ON traffic_use.`user_id` = users.`user_id`) INNER JOIN `groups` groups ON "
    u"users.`group_id` = groups.`group_id` WHERE (traffic_use.data<>0 or traffic_use.senddata<>0)",
    u"ORDER BY groups.`name` ASC"};
constexpr RowQuery kTrafficCredits {
    u"SELECT users.`username`, users.`ip_addr`, billing.`data`, billing.`date`, billing.`usage` FROM "
    u"`users` users INNER JOIN `billing` billing ON users.`mode` = billing.`mode` WHERE billing.mode = 1",
    u"ORDER BY users.`username` ASC, billing.`date` ASC"};
constexpr RowQuery kTimeWithAddress {
    u"SELECT users.`username`, users.`ip_addr`, time_use.`data` FROM `users` users INNER JOIN `time_use` "
    u"time_use ON users.`user_id` = time_use.`user_id` WHERE  time_use.data <>0  and time_use.period = 0",
    {}};
constexpr RowQuery kTimeTopTen {
    u"SELECT users.`username`, time_use.`data` FROM `users` users INNER JOIN `time_use` time_use ON "
    u"users.`user_id` = time_use.`user_id` WHERE time_use.period = 0",
    {}};
constexpr RowQuery kTimePerDay {
    u"SELECT users.`username`, users.`ip_addr`, time_use.`data`, time_use.`current_time` FROM `users` users "
    u"INNER JOIN `time_use` time_use ON users.`user_id` = time_use.`user_id` WHERE time_use.period = 0 and "
    u"time_use.data <>0",
    {}};
constexpr RowQuery kTimePerDayTopTen {
    u"SELECT users.`username`, time_use.`data`, time_use.`current_time` FROM `users` users INNER JOIN "
    u"`time_use` time_use ON users.`user_id` = time_use.`user_id` WHERE time_use.period = 0",
    {}};
constexpr RowQuery kTimeCredits {
    u"SELECT users.`username`, users.`ip_addr`, billing.`data`, billing.`date`, billing.`usage` FROM "
    u"`users` users INNER JOIN `billing` billing ON users.`mode` = billing.`mode` WHERE billing.mode = 4",
    {}};
constexpr RowQuery kBillingMode {
    u"SELECT users.`username`, users.`ip_addr`, billing.`data`, billing.`date`, billing.`closed`, "
    u"billing.`usage`, billing.`expiredday`, billing.`moneyusage` FROM `users` users INNER JOIN `billing` "
    u"billing ON users.`mode` = billing.`mode` WHERE billing.mode = 2 AND users.user_id = "
    u"billing.object_id",
    {}};
constexpr RowQuery kSiteAccess {
    u"SELECT users.`username`, SiteAccess.`access_time`, Sites.`sitename`, Sites.`site_ip` FROM (`users` "
    u"users INNER JOIN `SiteAccess` SiteAccess ON users.`user_id` = SiteAccess.`user_id`) INNER JOIN "
    u"`Sites` Sites ON SiteAccess.`site_id` = Sites.`site_id` WHERE SiteAccess.`site_id` = "
    u"Sites.`site_id`",
    u"ORDER BY users.`username`,  SiteAccess.`access_time` ASC"};

constexpr std::array<const RowQuery *, kReportCount> kQueryOfRow {&kTrafficWithAddress,
                                                                  &kTrafficTopTen,
                                                                  &kTrafficPerDay,
                                                                  &kTrafficPerDayTopTen,
                                                                  &kGroups,
                                                                  &kTrafficCredits,
                                                                  &kTimeWithAddress,
                                                                  &kTimeTopTen,
                                                                  &kTimePerDay,
                                                                  &kTimePerDayTopTen,
                                                                  &kTimeCredits,
                                                                  &kBillingMode,
                                                                  &kBillingMode,
                                                                  &kSiteAccess,
                                                                  &kSiteAccess,
                                                                  &kSiteAccess};

const RowQuery &QueryOf(int row)
{
    return *kQueryOfRow.at(static_cast<size_t>(row));
}

// The column of each category with what stands around a day of it.
struct DateColumn
{
    QStringView name;
    QStringView opening;
    QChar separator;
    QStringView lowerEnd;
    QStringView upperEnd;
};

// Kept: the upper bound of site access is " 59:59:59'", hours included.
constexpr DateColumn kDateColumns[] = {
    {u"traffic_use.current_time", u"#", u'/', u"#", u"#"},
    {u"time_use.current_time", u"#", u'/', u"#", u"#"},
    {u"billing.date", u"#", u'/', u"#", u"#"},
    {u"SiteAccess.access_time", u"'", u'.', u" 00:00:00'", u" 59:59:59'"},
};

QString DayText(const DateColumn &column, Day day, QStringView end)
{
    return u"%1%2%3%4%3%5%6"_s.arg(column.opening)
        .arg(day.year, 4, 10, QChar(u'0'))
        .arg(column.separator)
        .arg(day.month, 2, 10, QChar(u'0'))
        .arg(day.day, 2, 10, QChar(u'0'))
        .arg(end);
}

QString PeriodCondition(ReportCategory category, const ReportPeriod &period)
{
    const DateColumn &column = kDateColumns[static_cast<int>(category)];
    const QString start = u" and "_s + column.name;
    if (period.choice == PeriodChoice::Today && category != ReportCategory::SiteAccess) {
        return start + u" = " + DayText(column, period.to, column.upperEnd);
    }
    return start + u" >= " + DayText(column, period.from, column.lowerEnd) //
        + start + u" <= " + DayText(column, period.to, column.upperEnd);
}

struct PeriodWord
{
    QStringView word;
    PeriodChoice choice;
};

constexpr PeriodWord kPeriodWords[] = {{u"all", PeriodChoice::All},
                                       {u"today", PeriodChoice::Today},
                                       {u"week", PeriodChoice::LastWeek},
                                       {u"month", PeriodChoice::LastMonth},
                                       {u"previous-month", PeriodChoice::PreviousMonth},
                                       {u"this-year", PeriodChoice::ThisYear}};

struct ClauseTexts
{
    QStringView firstOf; // of the ids that are wanted
    QStringView nextOf;
    QStringView firstNotOf; // of the ids that are not
    QStringView nextNotOf;
};

constexpr ClauseTexts kUserTexts {u" AND (users.user_id = ",
                                  u" OR users.user_id = ",
                                  u" AND (users.user_id <> ",
                                  u" AND users.user_id <> "};

// Kept: the exclusion of groups is joined with "or", unlike that of users.
constexpr ClauseTexts kGroupTexts {u" and (users.group_id = ",
                                   u" or users.group_id = ",
                                   u" and (users.group_id <> ",
                                   u" or users.group_id <> "};

template <typename IdType>
QString Joined(const QList<IdType> &ids, QStringView first, QStringView next)
{
    QString clause;
    for (const IdType id : ids) {
        clause += (clause.isEmpty() ? first : next) + QString::number(id.value);
    }
    return clause.isEmpty() ? clause : clause + u')';
}

template <typename IdType>
QString Clause(const KeptFilter<IdType> &filter, const ClauseTexts &texts)
{
    switch (filter.effect) {
    case FilterEffect::None:
        return {};
    case FilterEffect::Only:
        return Joined(filter.ids, texts.firstOf, texts.nextOf);
    default:
        return Joined(filter.ids, texts.firstNotOf, texts.nextNotOf);
    }
}

} // namespace

ReportPeriod PeriodUpTo(QDate today, PeriodChoice choice)
{
    const auto until = [choice](QDate from, QDate to) {
        return ReportPeriod {choice, DayOf(from), DayOf(to)};
    };
    const QDate month(today.year(), today.month(), 1);
    switch (choice) {
    case PeriodChoice::LastWeek:
        return until(today.addDays(-6), today);
    case PeriodChoice::LastMonth:
        return until(today.addMonths(-1), today);
    case PeriodChoice::PreviousMonth:
        return until(month.addMonths(-1), month.addDays(-1));
    case PeriodChoice::ThisYear:
        return until({today.year(), 1, 1}, today);
    default:
        return until(today, today);
    }
}

QStringList PeriodWords()
{
    QStringList words;
    for (const PeriodWord &period : kPeriodWords) {
        words += period.word.toString();
    }
    return words;
}

QString NameOf(const ReportPeriod &period)
{
    for (const PeriodWord &each : kPeriodWords) {
        if (each.choice == period.choice) {
            return each.word.toString();
        }
    }
    const auto text = [](Day day) { return ExistingDate(day).toString(Qt::ISODate); };
    return text(period.from) + u".." + text(period.to);
}

std::optional<ReportPeriod> PeriodNamed(const QString &text, QDate today)
{
    for (const PeriodWord &period : kPeriodWords) {
        if (text == period.word) {
            return PeriodUpTo(today, period.choice);
        }
    }
    const QStringList ends = text.split(u".."_s);
    const QDate from = QDate::fromString(ends.first(), Qt::ISODate);
    const QDate to = QDate::fromString(ends.last(), Qt::ISODate);
    if (ends.size() != 2 || !from.isValid() || !to.isValid() || from > to) {
        return std::nullopt;
    }
    return ReportPeriod {PeriodChoice::Custom, DayOf(from), DayOf(to)};
}

FilterEffect UserFilterEffect(qsizetype taken, qsizetype left)
{
    if (taken == 0 || left == 0) {
        return FilterEffect::None;
    }
    return taken < left ? FilterEffect::Only : FilterEffect::AllBut;
}

FilterEffect GroupFilterEffect(qsizetype taken, qsizetype left)
{
    const FilterEffect effect = UserFilterEffect(taken, left);
    return effect == FilterEffect::AllBut && left > 1 ? FilterEffect::Everybody : effect;
}

QString UserFilterClause(const ReportFilter<UserId> &filter)
{
    return KeptUsersClause(Kept(filter));
}

QString GroupFilterClause(const ReportFilter<GroupId> &filter)
{
    return KeptGroupsClause(Kept(filter));
}

QString OnlyUsersClause(const QList<UserId> &ids)
{
    return KeptUsersClause({FilterEffect::Only, ids});
}

QString OnlyGroupsClause(const QList<GroupId> &ids)
{
    return KeptGroupsClause({FilterEffect::Only, ids});
}

template <typename IdType>
KeptFilter<IdType> Kept(const ReportFilter<IdType> &filter)
{
    const FilterEffect effect = UserFilterEffect(filter.taken.size(), filter.left.size());
    switch (effect) {
    case FilterEffect::None:
        return {};
    case FilterEffect::Only:
        return {effect, filter.taken};
    default:
        return {effect, filter.left};
    }
}

template KeptFilter<UserId> Kept(const ReportFilter<UserId> &);
template KeptFilter<GroupId> Kept(const ReportFilter<GroupId> &);

template <typename IdType>
ReportFilter<IdType>
ListsOf(const KeptFilter<IdType> &filter, const QList<IdType> &offered, const QList<IdType> &all)
{
    if (filter.effect == FilterEffect::None) {
        return {};
    }
    const QSet<IdType> present(all.begin(), all.end());
    QList<IdType> named = filter.ids;
    named.removeIf([&](IdType id) { return !present.contains(id); });
    const QSet<IdType> isNamed(named.begin(), named.end());
    QList<IdType> others = offered;
    others.removeIf([&](IdType id) { return isNamed.contains(id); });
    return filter.effect == FilterEffect::Only ? ReportFilter<IdType> {named, others}
                                               : ReportFilter<IdType> {others, named};
}

template ReportFilter<UserId>
ListsOf(const KeptFilter<UserId> &, const QList<UserId> &, const QList<UserId> &);
template ReportFilter<GroupId>
ListsOf(const KeptFilter<GroupId> &, const QList<GroupId> &, const QList<GroupId> &);

QString KeptUsersClause(const KeptFilter<UserId> &filter)
{
    return Clause(filter, kUserTexts);
}

QString KeptGroupsClause(const KeptFilter<GroupId> &filter)
{
    return Clause(filter, kGroupTexts);
}

FilterUse FiltersOf(int row)
{
    const bool offered =
        row != 1 && row != 3; // kept: though their statements read the users as well
    return {offered, offered};
}

QString BaseStatement(int row)
{
    return QueryOf(row).base.toString();
}

QString OrderText(int row)
{
    return QueryOf(row).order.toString();
}

QString QueryText(int row,
                  const ReportPeriod &period,
                  const QString &userClause,
                  const QString &groupClause)
{
    return period.choice == PeriodChoice::All
        ? QString()
        : NarrowedQueryText(row, period, userClause, groupClause);
}

QString NarrowedQueryText(int row,
                          const ReportPeriod &period,
                          const QString &userClause,
                          const QString &groupClause)
{
    const ReportCategory category = ReportCatalogue().at(static_cast<size_t>(row)).category;
    const QString within =
        period.choice == PeriodChoice::All ? QString() : PeriodCondition(category, period);
    const QString text = BaseStatement(row) + within + userClause + groupClause;
    const QString order = OrderText(row);
    return order.isEmpty() ? text : text + u' ' + order;
}

QString StoredQuery(int row)
{
    const QString order = OrderText(row);
    return order.isEmpty() ? BaseStatement(row) : BaseStatement(row) + u' ' + order;
}
