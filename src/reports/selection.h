// What a report is made on, and the query text that says so.
#pragma once

#include "base/day.h"
#include "db/ids.h"

#include <QList>
#include <QString>

enum class PeriodChoice { All, Today, LastWeek, LastMonth, Custom };

// A period as it is chosen: both days belong to it. The simple arithmetic of "last week" and "last
// month" can name a day that does not exist, which goes into the text as it is.
struct ReportPeriod
{
    PeriodChoice choice = PeriodChoice::All;
    Day from; // not used for All
    Day to;
};

// The period of a choice other than Custom, up to and including `today`.
[[nodiscard]] ReportPeriod PeriodUpTo(QDate today, PeriodChoice choice);

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

// What a layout file stores for the row: the base statement in its order.
[[nodiscard]] QString StoredQuery(int row);
