// Fills a report's table with users' statements: a group of rows for each, that goes to its user as a
// letter.
#pragma once

#include "db/report_connection.h"
#include "reports/report_run.h"
#include "reports/row_collector.h"
#include "reports/statement_rows.h"
#include "reports/total.h"

#include <unordered_map>

// Whom statements are made for, as clauses of a report's query (selection.h). Without a clause it is
// everybody of whom the period has anything to state.
struct StatementFilter
{
    QString userClause;
    QString groupClause;
};

class StatementBuilder
{
public:
    // The table has the statement's layout, its period, its currency and no rows.
    StatementBuilder(ReportTable &toFill,
                     const StatementFilter &chosen,
                     ReportConnection &useConnection,
                     RunControl &useControl);

    // A few statements for all users together: users and credits are kept, days pass by. False, with
    // Problem() filled, when the database or the temporary folder fails.
    [[nodiscard]] bool Build();
    [[nodiscard]] const ReportProblem &Problem() const { return problem; }

private:
    struct User
    {
        qint64 id = 0;
        CellRow named; // a row with the columns that say who it is
        bool isPrePaid = false;
        std::vector<StatementCredit> credits;
    };

    // A day's row before it is written: the records of traffic and of time come one behind the other.
    struct DayRow
    {
        QString day;
        double received = 0;
        double sent = 0;
        double hours = 0;
    };

    using TakeRow = std::function<bool(int row)>;

    [[nodiscard]] bool ReadUsers();
    [[nodiscard]] bool ReadCredits();
    [[nodiscard]] bool ReadFirstDay();
    [[nodiscard]] bool ReadUse();
    [[nodiscard]] bool ReadDays();
    [[nodiscard]] bool
    Read(const QString &statement, const std::vector<ReadAs> &columns, const TakeRow &take);
    [[nodiscard]] bool TakeDay(int row);
    [[nodiscard]] bool FinishDay();
    [[nodiscard]] std::vector<StatementLine> LinesOf(const User &user) const;
    [[nodiscard]] bool Begin(const User &user, const std::vector<StatementLine> &account);
    [[nodiscard]] bool Finish(const User &user);
    [[nodiscard]] bool FinishUpTo(size_t place);
    [[nodiscard]] bool Store(const CellRow &row);
    [[nodiscard]] QString Clauses() const;

    ReportTable &table;
    const StatementFilter &filter;
    ReportConnection &connection;
    RunControl &control;
    RowCollector collector;
    RowTotals totals;
    RowTotals groupTotals; // of the last user
    StatementPeriod period;
    std::vector<User> users; // in the order of the statements
    std::unordered_map<qint64, std::pair<size_t, size_t>> credits; // by bill: user, place
    size_t current = 0; // the user whose rows are written
    bool hasBegun = false; // that user's group
    DayRow day;
    qint64 rowsRead = 0;
    ReportProblem problem;
};
