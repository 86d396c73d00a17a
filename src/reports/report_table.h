// A report as a table of values: what the database gave, summed and grouped, before any of it is
// painted.
#pragma once

#include "reports/row_store.h"

#include <QDate>
#include <QDateTime>

#include <memory>

struct ReportGroup
{
    CellRow keys; // as a row, with the group's columns filled
    qint64 first = 0; // row
    qint64 count = 0; // rows
    CellRow totals;
};

struct ChartPanel
{
    QString title;
    std::vector<std::vector<double>> series; // for each value, one number for each label or day
};

struct ReportChart
{
    ChartKind kind = ChartKind::None;
    QString title;
    QString unit;
    int decimals = 0;
    QStringList seriesNames;
    QStringList labels; // of bars
    QDate firstDay; // of an area
    std::vector<ChartPanel> panels; // one, or one for each label
};

// Rows hold a cell for each column of the layout.
struct ReportTable
{
    Layout layout;
    QString period; // in words, for the heading
    QString filter; // in words; empty for none
    QDateTime made;
    int schemaVersion = 0; // of the database that the rows come from (db/schema_version.h)

    RowStore rows;
    std::vector<qint64> longRows; // those with a text that may need more than one line, in order
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

// How many characters of a column surely fit on one printed line; 0 for a column not printed in
// rows.
[[nodiscard]] qsizetype LineCharacters(const Layout &layout, int column);

// The group's columns in words, for its heading: "anna, 10.0.0.7".
[[nodiscard]] QString GroupTitle(const ReportTable &table, const ReportGroup &group);

// The whole table as text, a line for each thing on it, as tests and people compare it.
[[nodiscard]] QString AsText(const ReportTable &table);
