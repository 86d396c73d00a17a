// What a report is made on, and the query text that says so.
#pragma once

#include "base/day.h"
#include "db/ids.h"

#include <QList>
#include <QStringList>

#include <optional>

enum class PeriodChoice { All, Today, LastWeek, LastMonth, Custom, PreviousMonth, ThisYear };

// A period as it is chosen: both days belong to it.
struct ReportPeriod
{
    PeriodChoice choice = PeriodChoice::All;
    Day from; // not used for All
    Day to;
};

// The period of a choice other than Custom, by the calendar. Last week is `today` and the six days before
// it; last month begins on its day of the month before, or that month's last; the previous month is that
// of the calendar, and ends before `today`.
[[nodiscard]] ReportPeriod PeriodUpTo(QDate today, PeriodChoice choice);

// A period as it is named where nobody clicks: a word of PeriodWords(), or FROM..TO in days such as
// 2026-11-21. Nothing for another text.
[[nodiscard]] std::optional<ReportPeriod> PeriodNamed(const QString &text, QDate today);
[[nodiscard]] QStringList PeriodWords();

// The text that PeriodNamed() reads as this period, on whatever day.
[[nodiscard]] QString NameOf(const ReportPeriod &period);

// The ids of the two lists of a filter dialog.
template <typename IdType>
struct ReportFilter
{
    QList<IdType> taken;
    QList<IdType> left;
};

// The clause that a filter adds, with its leading blank: the shorter list is written, exclusion on
// a tie; empty when one of the lists is.
[[nodiscard]] QString UserFilterClause(const ReportFilter<UserId> &filter);
[[nodiscard]] QString GroupFilterClause(const ReportFilter<GroupId> &filter);

// The clause that keeps exactly these, however many others there are; empty for none.
[[nodiscard]] QString OnlyUsersClause(const QList<UserId> &ids);
[[nodiscard]] QString OnlyGroupsClause(const QList<GroupId> &ids);

// What a filter makes a report be of: everybody, for want of a clause; only those taken; all but those
// left, and so also whoever was not offered; or everybody in spite of its clause.
enum class FilterEffect { None, Only, AllBut, Everybody };

// By how many stand in the two lists.
[[nodiscard]] FilterEffect UserFilterEffect(qsizetype taken, qsizetype left);
[[nodiscard]] FilterEffect GroupFilterEffect(qsizetype taken, qsizetype left);

// A filter as its clause says it: the ids that are named, and whether only those are taken or all but those.
template <typename IdType>
struct KeptFilter
{
    FilterEffect effect = FilterEffect::None; // None, Only or AllBut
    QList<IdType> ids;

    bool operator==(const KeptFilter &) const = default;
};

template <typename IdType>
[[nodiscard]] KeptFilter<IdType> Kept(const ReportFilter<IdType> &filter);
extern template KeptFilter<UserId> Kept(const ReportFilter<UserId> &);
extern template KeptFilter<GroupId> Kept(const ReportFilter<GroupId> &);

// The two lists again, out of those that are offered now. Ids of the filter that are not offered stand in
// their list all the same, unless `all` lacks them too.
template <typename IdType>
[[nodiscard]] ReportFilter<IdType>
ListsOf(const KeptFilter<IdType> &filter, const QList<IdType> &offered, const QList<IdType> &all);
extern template ReportFilter<UserId>
ListsOf(const KeptFilter<UserId> &, const QList<UserId> &, const QList<UserId> &);
extern template ReportFilter<GroupId>
ListsOf(const KeptFilter<GroupId> &, const QList<GroupId> &, const QList<GroupId> &);

// The clauses of such filters; of ids that are gone too.
[[nodiscard]] QString KeptUsersClause(const KeptFilter<UserId> &filter);
[[nodiscard]] QString KeptGroupsClause(const KeptFilter<GroupId> &filter);

// Which of the two further filters the dialog offers for a row of the catalogue.
struct FilterUse
{
    bool users = false;
    bool groups = false;
};
[[nodiscard]] FilterUse FiltersOf(int row);

// The fixed parts of a row's query. The order text is empty for the rows that have none.
[[nodiscard]] QString BaseStatement(int row);
[[nodiscard]] QString OrderText(int row);

// The row's whole text: base statement, period, users, groups, order. Empty when the period is All:
// the layout then runs its own stored query, and the filters do not count.
[[nodiscard]] QString QueryText(int row,
                                const ReportPeriod &period,
                                const QString &userClause,
                                const QString &groupClause);

// The same, whose filters hold for all that there is too.
[[nodiscard]] QString NarrowedQueryText(int row,
                                        const ReportPeriod &period,
                                        const QString &userClause,
                                        const QString &groupClause);

// What a layout file stores for the row: the base statement in its order.
[[nodiscard]] QString StoredQuery(int row);
