#include "reports/table_builder.h"

#include <algorithm>

namespace {

bool SameGroup(const QList<int> &columns, const CellRow &one, const CellRow &other)
{
    return std::all_of(columns.begin(), columns.end(), [&](int place) {
        const auto *text = std::get_if<QString>(&one[static_cast<size_t>(place)]);
        const auto *otherText = std::get_if<QString>(&other[static_cast<size_t>(place)]);
        // Names that differ only in case are one to the database and stand mixed in its order.
        return text != nullptr && otherText != nullptr
            ? text->compare(*otherText, Qt::CaseInsensitive) == 0
            : Compare(one[static_cast<size_t>(place)], other[static_cast<size_t>(place)]) == 0;
    });
}

bool Precedes(const QList<OrderKey> &order, const CellRow &one, const CellRow &other)
{
    for (const auto &[column, descending] : order) {
        const auto place = static_cast<size_t>(column);
        const int result = Compare(one[place], other[place]);
        if (result != 0) {
            return (result < 0) != descending;
        }
    }
    return false;
}

} // namespace

// Money comes in base units.
void TableBuilder::Convert(CellRow &row) const
{
    if (table.currency.rate == 1) {
        return;
    }
    for (size_t place = 0; place < row.size(); ++place) {
        if (table.layout.columns.at(static_cast<qsizetype>(place)).isMoney
            && row[place].index() != 0) {
            row[place] = NumberIn(row[place]) * table.currency.rate;
        }
    }
}

bool TableBuilder::Build()
{
    const bool built = table.layout.rows == RowRule::Summed ? BuildSummed() : BuildEach();
    return built && (table.rows.Finish() || Failed(true));
}

bool TableBuilder::Failed(bool inStore)
{
    problem = inStore ? ReportProblem {ReportProblem::Kind::Output, table.rows.Problem()}
                      : query.Problem();
    return false;
}

TableBuilder::TableBuilder(ReportTable &toFill, ReportQuery &fromQuery)
    : table(toFill)
    , query(fromQuery)
    , collector(toFill)
    , totals(toFill.layout.columns)
    , groupTotals(toFill.layout.columns)
{ }

bool TableBuilder::Store(const CellRow &row)
{
    return collector.Store(row) || Failed(true);
}

// Sums take more room than what they are the sums of.
void TableBuilder::NoteSums(const CellRow &sums)
{
    for (size_t place = 0; place < sums.size(); ++place) {
        table.reach[place].Take(NumberIn(sums[place]));
    }
}

bool TableBuilder::BuildSummed()
{
    const auto &columns = table.layout.columns;
    Summing summing;
    for (int place = 0; place < columns.size(); ++place) {
        if (columns.at(place).IsRead() && !columns.at(place).hidden) {
            (columns.at(place).total ? summing.sums : summing.keys).push_back(place);
        }
    }
    std::vector<CellRow> rows;
    const bool done = query.Sum(summing, [&](SummedRow &&summed) {
        CellRow row(static_cast<size_t>(columns.size()));
        for (size_t key = 0; key < summing.keys.size(); ++key) {
            row[static_cast<size_t>(summing.keys[key])] = std::move(summed.keys[key]);
        }
        for (size_t sum = 0; sum < summing.sums.size(); ++sum) {
            const int place = summing.sums[sum];
            row[static_cast<size_t>(place)] = summed.sums[sum].AsCell(columns.at(place).type);
        }
        for (int place = 0; place < columns.size(); ++place) {
            if (columns.at(place).type == ColumnType::Count) {
                row[static_cast<size_t>(place)] = summed.count;
            }
        }
        Convert(row);
        Compute(columns, row);
        rows.push_back(std::move(row));
    });
    if (!done) {
        return Failed(false);
    }
    std::stable_sort(rows.begin(), rows.end(), [&](const CellRow &one, const CellRow &other) {
        return Precedes(table.layout.order, one, other);
    });
    RowTotals all(columns);
    for (const CellRow &row : rows) {
        all.Add(row);
    }
    table.allCount = static_cast<qint64>(rows.size());
    table.allTotals = all.Cells();
    if (table.layout.top > 0 && rows.size() > static_cast<size_t>(table.layout.top)) {
        rows.resize(static_cast<size_t>(table.layout.top));
    }
    RowTotals printed(columns);
    for (size_t place = 0; place < rows.size(); ++place) {
        Rate(rows[place], static_cast<qint64>(place) + 1);
        printed.Add(rows[place]);
        if (!Store(rows[place])) {
            return false;
        }
    }
    Rate(table.allTotals, 0);
    table.totals = printed.Cells();
    NoteSums(table.totals);
    NoteSums(table.allTotals);
    return true;
}

// Fills in a row's rank, and its shares of all rows; rank 0 is that of a sum, which has none.
void TableBuilder::Rate(CellRow &row, qint64 rank) const
{
    for (size_t place = 0; place < row.size(); ++place) {
        const LayoutColumn &column = table.layout.columns.at(static_cast<qsizetype>(place));
        if (column.type == ColumnType::Rank) {
            row[place] = rank > 0 ? Cell(rank) : Cell();
        } else if (column.type == ColumnType::Share) {
            const auto of = static_cast<size_t>(column.of);
            const double whole = NumberIn(table.allTotals[of]);
            row[place] = whole != 0 ? Cell(100 * NumberIn(row[of]) / whole) : Cell();
        }
    }
}

bool TableBuilder::BuildEach()
{
    const bool grouped = !table.layout.group.isEmpty();
    const bool done = query.Rows([&](CellRow &&row) {
        Convert(row);
        return grouped && !query.IsSummedByDatabase() ? Collect(row) : TakeInOrder(row);
    });
    if (!done || !Regroup()) {
        return problem.kind == ReportProblem::Kind::None ? Failed(false) : false;
    }
    FinishGroup();
    table.allCount = table.rows.Count();
    table.totals = totals.Cells();
    table.allTotals = table.totals;
    NoteSums(table.totals);
    return true;
}

bool TableBuilder::TakeInOrder(const CellRow &row)
{
    if (!table.layout.group.isEmpty()) {
        const bool same =
            !table.groups.empty() && SameGroup(table.layout.group, table.groups.back().keys, row);
        if (!same) {
            FinishGroup();
            groupTotals = RowTotals(table.layout.columns);
            table.groups.push_back({row, table.rows.Count(), 0, {}});
        }
        ++table.groups.back().count;
        groupTotals.Add(row);
    }
    totals.Add(row);
    return Store(row);
}

void TableBuilder::FinishGroup()
{
    if (!table.groups.empty()) {
        table.groups.back().totals = groupTotals.Cells();
        NoteSums(table.groups.back().totals);
    }
}

// Rows that come in the query's own order wait until all are there: a group's may stand apart.
bool TableBuilder::Collect(const CellRow &row)
{
    QString key;
    for (const int place : table.layout.group) {
        key += PlainText(table.layout.columns.at(place), row[static_cast<size_t>(place)])
                   .toCaseFolded();
        key += QChar(u'\0');
    }
    const auto group =
        collectedGroups.emplace(key, static_cast<quint32>(collectedGroups.size())).first;
    groupOfRow.push_back(group->second);
    return collected.Append(row) || FailedToCollect();
}

bool TableBuilder::FailedToCollect()
{
    problem = {ReportProblem::Kind::Output, collected.Problem()};
    return false;
}

bool TableBuilder::Regroup()
{
    if (!collected.Finish()) {
        return FailedToCollect();
    }
    std::vector<std::vector<quint32>> rowsOf(collectedGroups.size());
    for (size_t row = 0; row < groupOfRow.size(); ++row) {
        rowsOf[groupOfRow[row]].push_back(static_cast<quint32>(row));
    }
    for (const auto &[key, group] : collectedGroups) {
        for (const quint32 row : rowsOf[group]) {
            const auto read = collected.Read(row, 1);
            if (read.empty()) {
                problem = {ReportProblem::Kind::Output, collected.ReadProblem()};
                return false;
            }
            if (query.IsCancelled() || !TakeInOrder(read.front())) {
                return false;
            }
        }
    }
    return true;
}
