// A report as a table of values: what the database gave, summed and grouped, before any of it is
// painted.
#pragma once

#include "reports/report_subject.h"
#include "reports/row_store.h"

#include <QDateTime>

#include <algorithm>
#include <memory>

struct ReportGroup
{
    CellRow keys; // as a row, with the group's columns filled
    qint64 first = 0; // row
    qint64 count = 0; // rows
    CellRow totals;
};

// How far a column's cells reach, over all rows and sums: what is known of their width before any of
// them is drawn.
struct ColumnReach
{
    double least = 0; // of numbers; never above 0
    double most = 0; // never below 0
    double ems = 0; // of texts; no less than the widest takes (EmsOf)

    void Take(double number)
    {
        least = std::min(least, number);
        most = std::max(most, number);
    }
};

// A row with a text that may need more than one line.
struct LongRow
{
    qint64 row;
    float need; // how many times its column's least width (LeastEms) a text of it may take
};

struct ChartPanel
{
    QString title;
    std::vector<std::vector<double>> series; // for each value, one number for each label or step
};

// What one step of an area's axis stands for.
enum class ChartStep { Day, Week, Month };

struct ReportChart
{
    ChartKind kind = ChartKind::None;
    QString title;
    QString unit;
    int decimals = 0;
    QStringList seriesNames;
    QStringList labels; // of bars
    ChartStep step = ChartStep::Day;
    std::vector<QDate> steps; // of an area: the first day of each, one behind the other
    std::vector<ChartPanel> panels; // one, or one for each label; none where all would be zero
};

// Rows hold a cell for each column of the layout.
struct ReportTable : ReportSubject
{
    Layout layout;
    QDateTime made;
    int schemaVersion = 0; // of the database that the rows come from (db/schema_version.h)

    RowStore rows;
    std::vector<ColumnReach> reach; // for each column (RowCollector)
    std::vector<LongRow> longRows; // in order
    std::vector<qint64> largestRows; // by the first column with a total, the largest first; a few
    std::vector<ReportGroup> groups; // empty without groups
    CellRow totals; // of the rows printed
    qint64 allCount = 0; // rows before the first were taken, and their totals
    CellRow allTotals;
    ReportChart chart;

    [[nodiscard]] bool IsEmpty() const { return rows.Count() == 0; }
    [[nodiscard]] bool HasTotals() const; // any column with one
    [[nodiscard]] bool IsCut() const { return allCount > rows.Count(); }
};

using ReportTablePtr = std::shared_ptr<const ReportTable>;

// An upper bound of a text's width in the pages' font, in ems (sizes of the type). Needs no font.
[[nodiscard]] double EmsOf(QStringView text);

// The least width that a printed column of texts is given, in ems.
[[nodiscard]] double LeastEms(const Layout &layout, int column);

// The group's columns in words, for its heading: "anna, 10.0.0.7".
[[nodiscard]] QString GroupTitle(const ReportTable &table, const ReportGroup &group);

// The whole table as text, a line for each thing on it, as tests and people compare it.
[[nodiscard]] QString AsText(const ReportTable &table);
