// What the engine asks of the database: a layout's query, summed there where that can be, else
// here.
#pragma once

#include "db/report_connection.h"
#include "reports/report_run.h"
#include "reports/total.h"

#include <functional>
#include <string_view>

// Distinct values of some columns, each with its sums over all rows of the query.
struct Summing
{
    std::vector<int> keys; // columns of the layout
    std::vector<int> sums;
    // Called with the first key before a row counts; rows that it refuses are left out. Null takes
    // all.
    std::function<bool(std::string_view firstKey)> accept;
};

struct SummedRow
{
    CellRow keys; // in the order of Summing::keys
    std::vector<Total> sums;
    qint64 count = 0; // rows of the query
};

class ReportQuery
{
public:
    // `text` is what the layout's query was replaced by; the layout's own when it is empty.
    ReportQuery(const Layout &ofLayout,
                const QString &text,
                ReportConnection &useConnection,
                RunControl &useControl);

    // All sets of keys in no certain order. False, with Problem() filled, when the database fails.
    [[nodiscard]] bool Sum(const Summing &summing, const std::function<void(SummedRow &&)> &take);

    // Every row, those of a group together, in the layout's order where the database can sort them.
    // `take` returns false to stop.
    [[nodiscard]] bool Rows(const std::function<bool(CellRow &&)> &take);

    // Forces the sums to be made here, as when an engine refuses the query in parentheses.
    void SumHere() { wrapped = false; }
    [[nodiscard]] bool IsSummedByDatabase() const { return wrapped; }

    [[nodiscard]] bool IsCancelled() const { return control.IsCancelled(); }
    [[nodiscard]] const ReportProblem &Problem() const { return problem; }

private:
    [[nodiscard]] QString SummingStatement(const Summing &summing) const;
    [[nodiscard]] QString RowsStatement() const;
    [[nodiscard]] bool RunPlain(const QString &statement, RowOrder order);
    [[nodiscard]] bool Accepts(const Summing &summing, int row) const;
    [[nodiscard]] CellRow KeysAt(const Summing &summing, int row) const;
    void AddSums(const Summing &summing, int row, std::vector<Total> &sums) const;
    [[nodiscard]] bool TakeSums(const Summing &summing,
                                const std::function<void(SummedRow &&)> &take);
    [[nodiscard]] bool SumStream(const Summing &summing,
                                 const std::function<void(SummedRow &&)> &take);
    [[nodiscard]] bool TakeRows(const std::vector<ReadColumn> &positions,
                                const std::function<bool(CellRow &&)> &take);
    [[nodiscard]] CellRow CellsAt(int row) const; // a whole row of the fetched block
    [[nodiscard]] Cell CellAt(int row, int chosen, const LayoutColumn &column) const;
    [[nodiscard]] bool
    PositionsOf(const std::vector<int> &columns, bool asText, std::vector<ReadColumn> &positions);
    [[nodiscard]] bool FailWithDatabase();

    const Layout &layout;
    QString query;
    ReportConnection &connection;
    RunControl &control;
    bool wrapped = true;
    qint64 rowsRead = 0;
    ReportProblem problem;
};
