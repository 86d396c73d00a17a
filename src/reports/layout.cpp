#include "reports/layout.h"

#include "reports/catalogue.h"
#include "reports/layout_table.h"
#include "reports/query_check.h"

#include <QCoreApplication>
#include <QFile>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Layout)
};

// A text of a layout file as it is shown: in the language of the program, where it is one of the
// prepared reports' texts, which tools/update_translations collects.
QString Shown(const QString &text)
{
    return text.isEmpty() ? text
                          : QCoreApplication::translate("ReportLayouts", text.toUtf8().constData());
}

constexpr int kMaxColumns = 15;
constexpr auto kMoneyUnit = u"base units"; // what a layout calls money

bool IsReadOrCounted(const LayoutColumn &column)
{
    return column.IsRead() || column.type == ColumnType::Count;
}

class LayoutReader
{
public:
    explicit LayoutReader(LayoutError &firstError) : error(firstError) { }

    [[nodiscard]] std::optional<Layout> Read(const toml::table &root)
    {
        const LayoutTable top(root, error);
        top.AllowOnly({u"title"_s,
                       u"orientation"_s,
                       u"query"_s,
                       u"rows"_s,
                       u"group"_s,
                       u"order"_s,
                       u"top"_s,
                       u"noun"_s,
                       u"note"_s,
                       u"column"_s,
                       u"chart"_s});
        ReadTop(top);
        ReadColumns(top, root);
        ReadGroup(top);
        CheckPrinted(top);
        ReadOrder(top);
        ReadChart(top, root);
        return error.text.isEmpty() ? std::optional(layout) : std::nullopt;
    }

private:
    void ReadTop(const LayoutTable &top)
    {
        layout.file = error.file;
        layout.title = Shown(top.Text("title"));
        layout.landscape = top.Choice("orientation", {u"portrait"_s, u"landscape"_s}) == 1;
        layout.rows =
            top.Choice("rows", {u"each"_s, u"summed"_s}) == 1 ? RowRule::Summed : RowRule::Each;
        layout.top = top.Integer("top", 0, 0, 1000);
        layout.noun = Shown(top.Text("noun", u"rows"_s));
        layout.note = Shown(top.Text("note"));
        layout.query = top.Text("query").trimmed();
        if (layout.title.isEmpty()) {
            top.Fail(1, Words::tr("\"title\" is missing"));
        }
        if (const auto problem = QueryProblem(layout.query)) {
            top.Fail(top.Line("query"), *problem);
        }
        if (layout.top > 0 && layout.rows == RowRule::Each) {
            top.Fail(top.Line("top"), Words::tr("\"top\" needs rows = \"summed\""));
        }
    }

    void ReadColumns(const LayoutTable &top, const toml::table &root)
    {
        const toml::array *columns = root.get_as<toml::array>("column");
        const bool counted =
            columns != nullptr && columns->is_array_of_tables() && columns->size() <= kMaxColumns;
        if (!counted) {
            top.Fail(top.Line("column"),
                     Words::tr("there must be 1 to %1 [[column]] tables").arg(kMaxColumns));
            return;
        }
        for (const auto &element : *columns) {
            ReadColumn(LayoutTable(*element.as_table(), error));
        }
    }

    void ReadColumn(const LayoutTable &table)
    {
        table.AllowOnly({u"name"_s,
                         u"heading"_s,
                         u"type"_s,
                         u"unit"_s,
                         u"decimals"_s,
                         u"width"_s,
                         u"total"_s,
                         u"hidden"_s,
                         u"adds"_s,
                         u"less"_s,
                         u"of"_s,
                         u"blank"_s,
                         u"words"_s});
        LayoutColumn column;
        column.name = table.Text("name");
        column.heading = Shown(table.Text("heading", column.name));
        column.type = static_cast<ColumnType>(table.Choice("type",
                                                           {u"text"_s,
                                                            u"integer"_s,
                                                            u"amount"_s,
                                                            u"day"_s,
                                                            u"time"_s,
                                                            u"flag"_s,
                                                            u"count"_s,
                                                            u"rank"_s,
                                                            u"share"_s}));
        column.isMoney = table.Text("unit") == kMoneyUnit;
        column.unit = Shown(table.Text("unit"));
        const bool isShare = column.type == ColumnType::Share;
        column.decimals =
            column.IsFraction() ? table.Integer("decimals", isShare ? 1 : 2, 0, 6) : 0;
        column.width = table.Number("width", 1, 0.1, 100);
        column.total = table.Flag("total");
        column.hidden = table.Flag("hidden");
        column.adds = ColumnsNamed(table, "adds");
        column.less = ColumnsNamed(table, "less");
        column.of = isShare ? Column(table, "of", table.Text("of")) : -1;
        column.blank = Shown(table.Text("blank"));
        if (table.Has("words")) {
            column.words = table.Texts("words");
        }
        std::ranges::transform(column.words, column.words.begin(), Shown);
        CheckColumn(table, column);
        layout.columns += column;
    }

    void CheckColumn(const LayoutTable &table, const LayoutColumn &column) const
    {
        if (column.name.isEmpty()) {
            table.Fail(table.Line("name"), Words::tr("a column's \"name\" is missing"));
        }
        // It is written between the engine's quotes, whichever those are.
        const bool isQuotable = std::ranges::none_of(column.name, [](QChar c) {
            return u"`\"'\\"_s.contains(c) || c.category() == QChar::Other_Control;
        });
        if (!isQuotable || Find(column.name) >= 0) {
            table.Fail(table.Line("name"),
                       Words::tr("\"%1\" is no name, or a second one").arg(column.name.left(80)));
        }
        if (column.total && !column.IsNumber()) {
            table.Fail(table.Line("total"), Words::tr("only numbers have a total"));
        }
        if (column.IsComputed() && column.type != ColumnType::Amount
            && column.type != ColumnType::Integer) {
            table.Fail(table.Line("type"),
                       Words::tr("a computed column is an amount or an integer"));
        }
        if (column.type == ColumnType::Rank && column.total) {
            table.Fail(table.Line("total"), Words::tr("a rank has no total"));
        }
        if (column.of >= 0 && !layout.columns.at(column.of).total) {
            table.Fail(table.Line("of"), Words::tr("a share is of a column with a total"));
        }
        if ((column.type == ColumnType::Rank || column.type == ColumnType::Share)
            && layout.rows == RowRule::Each) {
            table.Fail(table.Line("type"), Words::tr("ranks and shares need rows = \"summed\""));
        }
        if (column.words.size() != 2) {
            table.Fail(table.Line("words"), Words::tr("\"words\" are two: for 0 and for 1"));
        }
        for (const int part : column.adds + column.less) {
            if (!layout.columns.at(part).IsNumber() || !IsReadOrCounted(layout.columns.at(part))) {
                table.Fail(table.Line("adds"),
                           Words::tr("a column is computed from numbers that are read"));
            }
        }
    }

    void ReadGroup(const LayoutTable &top)
    {
        layout.group = ColumnsNamed(top, "group");
        if (layout.group.isEmpty()) {
            return;
        }
        if (layout.rows == RowRule::Summed) {
            top.Fail(top.Line("group"), Words::tr("\"group\" needs rows = \"each\""));
        }
        for (const int column : layout.group) {
            if (layout.columns.at(column).IsNumber()) {
                top.Fail(top.Line("group"), Words::tr("rows are not grouped by numbers"));
            }
        }
    }

    void CheckPrinted(const LayoutTable &top) const
    {
        if (layout.PrintedColumns().isEmpty()) {
            top.Fail(top.Line("column"), Words::tr("no column is left to be printed"));
        }
    }

    void ReadOrder(const LayoutTable &top)
    {
        for (const QString &name : top.Texts("order")) {
            const bool descending = name.startsWith(u'-');
            const int column = Column(top, "order", descending ? name.sliced(1) : name);
            if (column < 0) {
                return;
            }
            if (layout.rows == RowRule::Each && !layout.columns.at(column).IsRead()) {
                top.Fail(top.Line("order"),
                         Words::tr("rows of each are ordered by columns that are read"));
            }
            layout.order += OrderKey {column, descending};
        }
    }

    void ReadChart(const LayoutTable &top, const toml::table &root)
    {
        if (!top.Has("chart")) {
            return;
        }
        const toml::table *source = root.get_as<toml::table>("chart");
        if (source == nullptr) {
            top.Fail(top.Line("chart"), Words::tr("\"chart\" is not a table"));
            return;
        }
        const LayoutTable table(*source, error);
        table.AllowOnly({u"kind"_s, u"title"_s, u"label"_s, u"day"_s, u"values"_s, u"top"_s});
        LayoutChart &chart = layout.chart;
        chart.kind = static_cast<ChartKind>(
            table.Choice("kind", {u"none"_s, u"bars"_s, u"days"_s, u"days-of-each"_s}));
        chart.title = Shown(table.Text("title"));
        chart.top = table.Integer("top", 10, 1, 20);
        chart.values = ColumnsNamed(table, "values");
        if (chart.kind != ChartKind::Days) {
            chart.label = Column(table, "label", table.Text("label"));
        }
        if (chart.kind != ChartKind::Bars) {
            chart.day = Column(table, "day", table.Text("day"));
        }
        CheckChart(table);
    }

    void CheckChart(const LayoutTable &table) const
    {
        const LayoutChart &chart = layout.chart;
        if (chart.values.isEmpty() || chart.values.size() > 2) {
            table.Fail(table.Line("values"), Words::tr("a chart draws one or two values"));
        }
        for (const int value : chart.values) {
            if (!layout.columns.at(value).total || !IsReadOrCounted(layout.columns.at(value))) {
                table.Fail(table.Line("values"),
                           Words::tr("a chart draws read or counted columns with a total"));
            }
        }
        if (chart.day >= 0 && layout.columns.at(chart.day).type != ColumnType::Day
            && layout.columns.at(chart.day).type != ColumnType::Time) {
            table.Fail(table.Line("day"), Words::tr("\"day\" is not a column of days"));
        }
        if (chart.label >= 0 && layout.columns.at(chart.label).type != ColumnType::Text) {
            table.Fail(table.Line("label"), Words::tr("\"label\" is not a column of texts"));
        }
    }

    [[nodiscard]] int Find(const QString &name) const
    {
        for (int place = 0; place < layout.columns.size(); ++place) {
            if (layout.columns.at(place).name == name) {
                return place;
            }
        }
        return -1;
    }

    [[nodiscard]] int Column(const LayoutTable &table, const char *key, const QString &name) const
    {
        const int place = Find(name);
        if (place < 0 && !layout.columns.isEmpty()) {
            QStringList known;
            for (const auto &column : layout.columns) {
                known += column.name;
            }
            table.Fail(table.Line(key),
                       Words::tr("\"%1\" names no column \"%2\"; the nearest is \"%3\"")
                           .arg(QLatin1StringView(key), name.left(80), NearestName(name, known)));
        } else if (place < 0) {
            table.Fail(
                table.Line(key),
                Words::tr("\"%1\" names a column that is not there").arg(QLatin1StringView(key)));
        }
        return place;
    }

    [[nodiscard]] QList<int> ColumnsNamed(const LayoutTable &table, const char *key) const
    {
        QList<int> places;
        for (const QString &name : table.Texts(key)) {
            const int place = Column(table, key, name);
            if (place < 0) {
                return {};
            }
            places += place;
        }
        return places;
    }

    Layout layout;
    LayoutError &error;
};

} // namespace

QList<int> Layout::DataColumns() const
{
    QList<int> places;
    for (int place = 0; place < columns.size(); ++place) {
        if (!columns.at(place).hidden) {
            places += place;
        }
    }
    return places;
}

QList<int> Layout::PrintedColumns() const
{
    QList<int> places = DataColumns();
    places.removeIf([this](int place) { return group.contains(place); });
    return places;
}

QString LayoutError::Message() const
{
    return line > 0 ? u"%1:%2: %3"_s.arg(file).arg(line).arg(text) : u"%1: %2"_s.arg(file, text);
}

std::optional<Layout> ParseLayout(const QByteArray &text, const QString &file, LayoutError &error)
{
    error = {file, 0, {}};
    try {
        const auto root =
            toml::parse(std::string_view(text.constData(), static_cast<size_t>(text.size())));
        return LayoutReader(error).Read(root);
    } catch (const toml::parse_error &problem) {
        const auto words = problem.description();
        error.line = static_cast<int>(problem.source().begin.line);
        error.text = QString::fromUtf8(words.data(), static_cast<qsizetype>(words.size()));
        return std::nullopt;
    }
}

std::optional<Layout> ReadLayout(const QString &path, LayoutError &error)
{
    const QString name = FileNameOf(path);
    error = {name, 0, {}};
    QFile file(name);
    if (!QFileInfo(name).isFile() || !file.open(QIODevice::ReadOnly)) {
        error.text = QFileInfo::exists(name) ? Words::tr("the layout file cannot be read")
                                             : Words::tr("there is no such layout file");
        return std::nullopt;
    }
    const QByteArray text = file.read(kMaxLayoutBytes + 1);
    if (text.size() > kMaxLayoutBytes) {
        error.text = Words::tr("the file is larger than a layout can be (%1 KiB)")
                         .arg(kMaxLayoutBytes / 1024);
        return std::nullopt;
    }
    return ParseLayout(text, name, error);
}
