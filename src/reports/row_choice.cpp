#include "reports/row_choice.h"

#include "base/ipv4.h"
#include "reports/total.h"

#include <QHash>

#include <algorithm>
#include <iterator>
#include <limits>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kAtOnce = 4096; // rows

// The places of rows by one column: numbers as they are, texts by their place among all texts of the column,
// so that each text is compared with few others.
class RowOrder
{
public:
    void Add(const Cell &cell)
    {
        const auto *text = std::get_if<QString>(&cell);
        if (text == nullptr) {
            keys.push_back({cell.index() == 0 ? kNothing : NumberIn(cell), kNoText});
            return;
        }
        const auto next = static_cast<quint32>(texts.size());
        const auto known = places.constFind(*text);
        keys.push_back({0, known == places.constEnd() ? next : *known});
        if (known == places.constEnd()) {
            places.insert(*text, next);
            texts.push_back(*text);
        }
    }

    // Sorts what was added in this order.
    void Sort(std::vector<quint32> &rows, bool descending)
    {
        RankTexts();
        std::vector<quint32> order(rows.size());
        std::iota(order.begin(), order.end(), 0);
        std::stable_sort(order.begin(), order.end(), [&](quint32 one, quint32 other) {
            return descending ? keys[other] < keys[one] : keys[one] < keys[other];
        });
        std::vector<quint32> sorted;
        sorted.reserve(rows.size());
        for (const quint32 place : order) {
            sorted.push_back(rows[place]);
        }
        rows = std::move(sorted);
    }

private:
    static constexpr double kNothing = -std::numeric_limits<double>::infinity();
    static constexpr int kNoText = -1; // before any text

    struct Key
    {
        double number;
        qint64 text;

        bool operator<(const Key &other) const
        {
            return text != other.text ? text < other.text : number < other.number;
        }
    };

    void RankTexts()
    {
        std::vector<quint32> order(texts.size());
        std::iota(order.begin(), order.end(), 0);
        std::vector<std::optional<Ipv4>> addresses;
        std::ranges::transform(texts, std::back_inserter(addresses), Ipv4From);
        std::sort(order.begin(), order.end(), [&](quint32 one, quint32 other) {
            // Addresses by their numbers, before all other texts.
            if (addresses[one] && addresses[other]) {
                return *addresses[one] < *addresses[other];
            }
            return addresses[one].has_value() != addresses[other].has_value()
                ? addresses[one].has_value()
                : Compare(texts[one], texts[other]) < 0;
        });
        std::vector<qint64> ranks(texts.size());
        for (size_t rank = 0; rank < order.size(); ++rank) {
            ranks[order[rank]] = static_cast<qint64>(rank);
        }
        for (Key &key : keys) {
            key.text = key.text == kNoText ? kNoText : ranks[static_cast<size_t>(key.text)];
        }
    }

    std::vector<Key> keys;
    std::vector<QString> texts;
    QHash<QString, quint32> places;
};

bool Holds(const Layout &layout, const QList<int> &columns, const CellRow &row, const QString &text)
{
    return std::any_of(columns.begin(), columns.end(), [&](int place) {
        const LayoutColumn &column = layout.columns.at(place);
        const Cell &cell = row[static_cast<size_t>(place)];
        return OneLine(DisplayText(column, cell)).contains(text, Qt::CaseInsensitive)
            || (column.IsNumber() && PlainText(column, cell).contains(text)); // as it is copied
    });
}

} // namespace

std::optional<ChosenRows>
ChooseRows(const ReportTable &table, const RowWish &wish, RunControl &control)
{
    const QList<int> columns =
        wish.column == RowWish::kNone ? table.layout.DataColumns() : QList<int> {wish.column};
    const qint64 count = table.rows.Count();
    ChosenRows chosen;
    RowTotals totals(table.layout.columns);
    RowOrder order;
    for (qint64 first = 0; first < count; first += kAtOnce) {
        const auto rows = table.rows.Read(first, kAtOnce);
        if (control.IsCancelled() || rows.empty()) {
            return std::nullopt;
        }
        for (size_t place = 0; place < rows.size(); ++place) {
            const CellRow &row = rows[place];
            if (!wish.text.isEmpty() && !Holds(table.layout, columns, row, wish.text)) {
                continue;
            }
            chosen.rows.push_back(static_cast<quint32>(first) + static_cast<quint32>(place));
            totals.Add(row);
            if (wish.orderBy != RowWish::kNone) {
                order.Add(row[static_cast<size_t>(wish.orderBy)]);
            }
        }
        control.SetProgress(first, count);
    }
    if (wish.orderBy != RowWish::kNone) {
        order.Sort(chosen.rows, wish.descending);
    }
    // A letter's lines are balances as well as amounts: their sum is none of anything.
    chosen.totals = table.layout.pageForEach
        ? CellRow(static_cast<size_t>(table.layout.columns.size()))
        : totals.Cells();
    return chosen;
}

QString TotalsInWords(const Layout &layout, const CellRow &totals)
{
    QStringList words;
    for (const int place : layout.DataColumns()) {
        const LayoutColumn &column = layout.columns.at(place);
        const Cell &cell = totals[static_cast<size_t>(place)];
        if (cell.index() != 0) {
            words += u"%1: %2 %3"_s.arg(column.heading, DisplayText(column, cell), column.unit)
                         .trimmed();
        }
    }
    return words.join(u"; "_s);
}

QString HeadingOf(const LayoutColumn &column)
{
    return column.unit.isEmpty() ? column.heading : u"%1 (%2)"_s.arg(column.heading, column.unit);
}
