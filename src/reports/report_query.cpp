#include "reports/report_query.h"

#include "reports/query_check.h"

#include <QSet>

#include <deque>
#include <unordered_map>

using namespace Qt::StringLiterals;

namespace {

// With its table: one of the engines takes a lone quoted name that it does not know for a text.
QString Quoted(const QString &name)
{
    return u"report.`"_s + name + u'`';
}

ReadAs HowToRead(ColumnType type)
{
    switch (type) {
    case ColumnType::Integer:
    case ColumnType::Flag:
        return ReadAs::Integer;
    case ColumnType::Amount:
        return ReadAs::Amount;
    default:
        return ReadAs::Text;
    }
}

char FoldedCase(char c)
{
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + ('a' - 'A')) : c;
}

// The groups made here: names that differ only in the case of a to z are one, as in the database.
class Groups
{
public:
    SummedRow &Find(const std::string &key)
    {
        if (last != nullptr && key == lastKey) {
            return *last;
        }
        const auto [place, isNew] = places.try_emplace(key, rows.size());
        if (isNew) {
            rows.emplace_back();
        }
        lastKey = key;
        last = &rows[place->second];
        return *last;
    }

    std::deque<SummedRow> rows;

private:
    std::unordered_map<std::string, size_t> places;
    std::string lastKey;
    SummedRow *last = nullptr;
};

void AppendKey(std::string &key, std::string_view text, bool isNull)
{
    key += isNull ? '\1' : '\2';
    for (const char c : text) {
        key += FoldedCase(c);
    }
    key += '\0';
}

} // namespace

ReportQuery::ReportQuery(const Layout &ofLayout,
                         const QString &text,
                         ReportConnection &useConnection,
                         RunControl &useControl)
    : layout(ofLayout)
    , query(text.isEmpty() ? ofLayout.query : text)
    , connection(useConnection)
    , control(useControl)
{ }

QString ReportQuery::SummingStatement(const Summing &summing) const
{
    QStringList keys;
    for (const int key : summing.keys) {
        keys += Quoted(layout.columns.at(key).name);
    }
    QStringList wanted = keys;
    for (const int sum : summing.sums) {
        wanted += u"SUM(%1)"_s.arg(Quoted(layout.columns.at(sum).name));
    }
    wanted += u"COUNT(*)"_s;
    const QString statement =
        u"SELECT %1 FROM (\n%2\n) report"_s.arg(wanted.join(u", "_s), WithoutOrder(query));
    return keys.isEmpty() ? statement : statement + u" GROUP BY " + keys.join(u", "_s);
}

QString ReportQuery::RowsStatement() const
{
    QStringList wanted;
    for (const LayoutColumn &column : layout.columns) {
        if (column.IsRead()) {
            wanted += Quoted(column.name);
        }
    }
    QStringList order;
    QSet<int> ordered;
    for (const int group : layout.group) {
        order += Quoted(layout.columns.at(group).name);
        ordered.insert(group);
    }
    for (const auto &[column, descending] : layout.order) {
        order += Quoted(layout.columns.at(column).name) + (descending ? u" DESC"_s : QString());
        ordered.insert(column);
    }
    // Rows that are alike so far follow by what else they show: two runs must not differ in their order.
    for (int column = 0; !order.isEmpty() && column < layout.columns.size(); ++column) {
        if (layout.columns.at(column).IsRead() && !ordered.contains(column)) {
            order += Quoted(layout.columns.at(column).name);
        }
    }
    const QString statement =
        u"SELECT %1 FROM (\n%2\n) report"_s.arg(wanted.join(u", "_s), WithoutOrder(query));
    return order.isEmpty() ? statement : statement + u" ORDER BY " + order.join(u", "_s);
}

bool ReportQuery::RunPlain(const QString &statement, RowOrder order)
{
    return connection.RunForRows(statement, order) || FailWithDatabase();
}

bool ReportQuery::FailWithDatabase()
{
    problem.kind =
        control.IsCancelled() ? ReportProblem::Kind::Cancelled : ReportProblem::Kind::Database;
    problem.text = connection.Problem();
    return false;
}

bool ReportQuery::Sum(const Summing &summing, const std::function<void(SummedRow &&)> &take)
{
    // What was gathered is summed again: the database may have changed since.
    if (connection.HasGathered()) {
        return (connection.ReadGathered() || FailWithDatabase()) && SumStream(summing, take);
    }
    wrapped = wrapped && connection.Run(SummingStatement(summing));
    if (wrapped) {
        return TakeSums(summing, take);
    }
    return RunPlain(WithoutOrder(query), RowOrder::Any) && SumStream(summing, take);
}

Cell ReportQuery::CellAt(int row, int chosen, const LayoutColumn &column) const
{
    if (connection.IsNull(row, chosen)) {
        return {};
    }
    switch (HowToRead(column.type)) {
    case ReadAs::Integer:
        return connection.Integer(row, chosen);
    case ReadAs::Amount:
        return connection.Amount(row, chosen);
    case ReadAs::Text:
        break;
    }
    return CellFrom(column, connection.Text(row, chosen));
}

bool ReportQuery::Accepts(const Summing &summing, int row) const
{
    return !summing.accept
        || summing.accept(connection.IsNull(row, 0) ? "" : connection.Text(row, 0));
}

CellRow ReportQuery::KeysAt(const Summing &summing, int row) const
{
    CellRow keys;
    for (const int place : summing.keys) {
        const int chosen = static_cast<int>(keys.size());
        keys.push_back(connection.IsNull(row, chosen)
                           ? Cell()
                           : CellFrom(layout.columns.at(place), connection.Text(row, chosen)));
    }
    return keys;
}

void ReportQuery::AddSums(const Summing &summing, int row, std::vector<Total> &sums) const
{
    sums.resize(summing.sums.size());
    int chosen = static_cast<int>(summing.keys.size());
    for (size_t place = 0; place < sums.size(); ++place, ++chosen) {
        if (connection.IsNull(row, chosen)) {
            continue;
        }
        if (HowToRead(layout.columns.at(summing.sums[place]).type) == ReadAs::Integer) {
            sums[place].Add(connection.Integer(row, chosen));
        } else {
            sums[place].Add(connection.Amount(row, chosen));
        }
    }
}

bool ReportQuery::TakeSums(const Summing &summing, const std::function<void(SummedRow &&)> &take)
{
    std::vector<ReadColumn> positions;
    const auto choose = [&](ReadAs as) {
        positions.push_back({static_cast<int>(positions.size()) + 1, as});
    };
    for (size_t key = 0; key < summing.keys.size(); ++key) {
        choose(ReadAs::Text);
    }
    for (const int sum : summing.sums) {
        choose(HowToRead(layout.columns.at(sum).type));
    }
    choose(ReadAs::Integer);
    connection.Choose(positions);
    const int counted = static_cast<int>(positions.size()) - 1;
    int rows = 0;
    while ((rows = connection.FetchBlock()) > 0) {
        for (int row = 0; row < rows; ++row) {
            if (!Accepts(summing, row)) {
                continue;
            }
            SummedRow summed {KeysAt(summing, row), {}, connection.Integer(row, counted)};
            AddSums(summing, row, summed.sums);
            rowsRead += summed.count;
            take(std::move(summed));
        }
        control.SetProgress(rowsRead);
    }
    return rows == 0 || FailWithDatabase();
}

bool ReportQuery::PositionsOf(const std::vector<int> &columns,
                              bool asText,
                              std::vector<ReadColumn> &positions)
{
    const QStringList names = connection.ColumnNames();
    for (const int place : columns) {
        const LayoutColumn &column = layout.columns.at(place);
        const auto found = names.indexOf(column.name, Qt::CaseInsensitive);
        if (found < 0) {
            problem = {ReportProblem::Kind::Layout,
                       u"%1: the query gives no column \"%2\""_s.arg(layout.file, column.name)};
            return false;
        }
        positions.push_back(
            {static_cast<int>(found) + 1, asText ? ReadAs::Text : HowToRead(column.type)});
    }
    return true;
}

bool ReportQuery::SumStream(const Summing &summing, const std::function<void(SummedRow &&)> &take)
{
    std::vector<ReadColumn> positions;
    if (!PositionsOf(summing.keys, true, positions)
        || !PositionsOf(summing.sums, false, positions)) {
        return false;
    }
    connection.Choose(positions);
    const int keys = static_cast<int>(summing.keys.size());
    Groups groups;
    std::string key;
    int rows = 0;
    while ((rows = connection.FetchBlock()) > 0) {
        for (int row = 0; row < rows; ++row) {
            if (!Accepts(summing, row)) {
                continue;
            }
            key.clear();
            for (int place = 0; place < keys; ++place) {
                const bool isNull = connection.IsNull(row, place);
                AppendKey(key, isNull ? std::string_view() : connection.Text(row, place), isNull);
            }
            SummedRow &group = groups.Find(key);
            if (group.count++ == 0) {
                group.keys = KeysAt(summing, row);
            }
            AddSums(summing, row, group.sums);
        }
        rowsRead += rows;
        control.SetProgress(rowsRead);
    }
    for (SummedRow &group : groups.rows) {
        take(std::move(group));
    }
    return rows == 0 || FailWithDatabase();
}

bool ReportQuery::Rows(const std::function<bool(CellRow &&)> &take)
{
    std::vector<int> read;
    for (int place = 0; place < layout.columns.size(); ++place) {
        if (layout.columns.at(place).IsRead()) {
            read.push_back(place);
        }
    }
    std::vector<ReadColumn> positions;
    wrapped = wrapped && connection.RunForRows(RowsStatement(), RowOrder::AsAsked);
    if (wrapped) {
        for (const int place : read) {
            positions.push_back(
                {static_cast<int>(positions.size()) + 1, HowToRead(layout.columns.at(place).type)});
        }
    } else if (!RunPlain(query, RowOrder::AsAsked) || !PositionsOf(read, false, positions)) {
        return false;
    }
    return TakeRows(positions, take);
}

CellRow ReportQuery::CellsAt(int row) const
{
    CellRow cells(static_cast<size_t>(layout.columns.size()));
    int chosen = 0;
    for (int place = 0; place < layout.columns.size(); ++place) {
        const LayoutColumn &column = layout.columns.at(place);
        if (column.IsRead()) {
            cells[static_cast<size_t>(place)] = CellAt(row, chosen++, column);
        } else if (column.type == ColumnType::Count) {
            cells[static_cast<size_t>(place)] = qint64 {1};
        }
    }
    Compute(layout.columns, cells);
    return cells;
}

bool ReportQuery::TakeRows(const std::vector<ReadColumn> &positions,
                           const std::function<bool(CellRow &&)> &take)
{
    connection.Choose(positions);
    int rows = 0;
    while ((rows = connection.FetchBlock()) > 0) {
        for (int row = 0; row < rows; ++row) {
            if (!take(CellsAt(row))) {
                return false;
            }
        }
        rowsRead += rows;
        control.SetProgress(rowsRead);
    }
    return rows == 0 || FailWithDatabase();
}
