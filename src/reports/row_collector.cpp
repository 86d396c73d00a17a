#include "reports/row_collector.h"

#include <algorithm>

RowCollector::RowCollector(ReportTable &toFill) : table(toFill)
{
    const Layout &layout = table.layout;
    table.reach.resize(static_cast<size_t>(layout.columns.size()));
    for (const int column : layout.PrintedColumns()) {
        const auto place = static_cast<size_t>(column);
        const LayoutColumn &told = layout.columns.at(column);
        if (told.IsNumber()) {
            numbers.push_back(place);
            measure = !measure && told.total ? place : measure;
        } else if (told.type == ColumnType::Text) {
            texts.emplace_back(place, LeastEms(layout, column));
        } else if (told.type == ColumnType::Flag) {
            for (const QString &word : told.words) {
                table.reach[place].ems = std::max(table.reach[place].ems, EmsOf(word));
            }
        } else {
            table.reach[place].ems = EmsOf(told.blank);
            days.emplace_back(place, 0);
        }
    }
}

bool RowCollector::Store(const CellRow &row)
{
    float need = 0;
    for (const auto &[place, fits] : texts) {
        if (const auto *text = std::get_if<QString>(&row[place])) {
            const double ems = EmsOf(*text);
            table.reach[place].ems = std::max(table.reach[place].ems, ems);
            need = std::max(need, static_cast<float>(ems / fits));
        }
    }
    if (need > 1) {
        table.longRows.push_back({table.rows.Count(), need});
    }
    for (auto &[place, longest] : days) {
        const auto *text = std::get_if<QString>(&row[place]);
        if (text != nullptr && text->size() > longest) { // nearly all are of one length
            longest = text->size();
            table.reach[place].ems = std::max(table.reach[place].ems, EmsOf(*text));
        }
    }
    for (const size_t place : numbers) {
        table.reach[place].Take(NumberIn(row[place]));
    }
    if (measure) {
        NoteLargest(row);
    }
    return table.rows.Append(row);
}

void RowCollector::NoteLargest(const CellRow &row)
{
    constexpr size_t kMost = 10;
    const double size = NumberIn(row[*measure]);
    if (largest.size() == kMost && size <= largest.back()) {
        return;
    }
    const auto place = std::upper_bound(largest.begin(), largest.end(), size, std::greater<>());
    table.largestRows.insert(table.largestRows.begin() + (place - largest.begin()),
                             table.rows.Count());
    largest.insert(place, size);
    if (largest.size() > kMost) {
        largest.pop_back();
        table.largestRows.pop_back();
    }
}
