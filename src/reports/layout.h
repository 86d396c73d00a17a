// A report's layout: what it asks the database and how the answer is put on paper. Read from a TOML
// file; docs/guide-reports.md tells every key. A layout is data: it can neither write to the
// database nor run anything.
#pragma once

#include <QList>
#include <QString>
#include <QStringList>

#include <optional>

enum class ColumnType {
    Text,
    Integer, // whole numbers
    Amount, // numbers with decimals
    Day, // shown as 2026-11-21
    Time, // a day and a time of day, shown as 2026-11-21 09:30:00
    Flag, // 0 or 1, shown by the column's two words
    Count, // how many rows of the query stand behind the printed one
    Rank, // 1 for the first printed row, 2 for the next; of summed rows
    Share, // what a row's number is of that of all rows, in percent; of summed rows
};

struct LayoutColumn
{
    QString name; // of the query's column; any word for a count or a computed column
    QString heading;
    ColumnType type = ColumnType::Text;
    QString unit; // printed under the heading; empty for none
    bool isMoney = false; // its unit is named by the site's settings, where they are known
    int decimals = 2; // of an amount, 0 to 6
    double width = 1; // share of the page's width
    bool total = false; // summed for groups and the report; in summed rows also within the row
    bool hidden = false; // read for the order or the chart, not printed
    QList<int> adds; // a computed column: the sum of these columns ...
    QList<int> less; // ... less these
    int of = -1; // the column with a total that a share is of
    QString blank; // shown in a row whose text or day is empty
    QStringList words {QStringLiteral("no"), QStringLiteral("yes")}; // of a flag: for 0, for 1

    [[nodiscard]] bool IsComputed() const { return !adds.isEmpty() || !less.isEmpty(); }
    [[nodiscard]] bool IsNumber() const
    {
        return type == ColumnType::Integer || type == ColumnType::Amount
            || type == ColumnType::Count || type == ColumnType::Rank || type == ColumnType::Share;
    }
    // Has decimals.
    [[nodiscard]] bool IsFraction() const
    {
        return type == ColumnType::Amount || type == ColumnType::Share;
    }
    // Read from the query, rather than counted or computed from what was.
    [[nodiscard]] bool IsRead() const
    {
        return type != ColumnType::Count && type != ColumnType::Rank && type != ColumnType::Share
            && !IsComputed();
    }
};

enum class RowRule {
    Each, // a printed row for each row of the query
    Summed, // one for each distinct set of the columns that are not summed
};

enum class ChartKind {
    None,
    Bars, // one bar for each label, the longest first
    Days, // an area over the days
    DaysOfEach, // a small area over the days for each label
};

struct LayoutChart
{
    ChartKind kind = ChartKind::None;
    QString title;
    int label = -1; // column; bars and days of each
    int day = -1; // column; days and days of each
    QList<int> values; // columns with a total, drawn in this order
    int top = 10; // the labels with the largest values; 1 to 20
};

struct OrderKey
{
    int column = 0;
    bool descending = false;
};

// Columns are named by their place in `columns` throughout.
struct Layout
{
    QString file;
    QString title;
    bool landscape = false;
    QString query;
    RowRule rows = RowRule::Each;
    QList<LayoutColumn> columns;
    QList<int> group; // printed as headings with a sum of their own; for rows of each
    bool pageForEach =
        false; // each group is a letter of its own: it begins on a page with all headings
    QList<OrderKey> order; // behind the group
    int top = 0; // the first rows in that order; 0 for all; for summed rows
    QString noun; // what a printed row is one of, such as "users"
    QString
        note; // printed below the heading: what a reader could take for an error; empty for none
    LayoutChart chart;

    // Columns that stand in a row of data files, and those in a printed row, where a group's are
    // headings.
    [[nodiscard]] QList<int> DataColumns() const;
    [[nodiscard]] QList<int> PrintedColumns() const;
};

struct LayoutError
{
    QString file;
    int line = 0; // 0: of the file as a whole
    QString text;

    [[nodiscard]] QString Message() const; // "trafall.rpt:12: ..."
};

// Keys of as many parts as find room in it do not yet exhaust the reader's stack.
constexpr qint64 kMaxLayoutBytes = qint64(32) * 1024;

// The layout in `path`, whose folders may be separated by back-slashes; nothing, and `error`
// filled, when it is missing, larger than kMaxLayoutBytes, not TOML, or says anything that a layout
// cannot.
[[nodiscard]] std::optional<Layout> ReadLayout(const QString &path, LayoutError &error);

// The same from a text; `file` is only named in errors.
[[nodiscard]] std::optional<Layout>
ParseLayout(const QByteArray &text, const QString &file, LayoutError &error);
