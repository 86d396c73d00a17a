#include "reports/engine.h"

#include "db/account.h"
#include "db/data_source.h"
#include "reports/chart_builder.h"
#include "reports/query_check.h"
#include "reports/table_builder.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(Engine)
};

ReportTablePtr
Fail(ReportProblem &problem, RunControl &control, ReportProblem::Kind kind, const QString &text)
{
    problem = {control.IsCancelled() ? ReportProblem::Kind::Cancelled : kind, text};
    return nullptr;
}

// A layout cannot know what a site calls its money.
void NameMoney(ReportTable &table)
{
    for (LayoutColumn &column : table.layout.columns) {
        if (column.isMoney && !table.currency.name.isEmpty()) {
            column.unit = table.currency.name;
        }
    }
}

ReportTablePtr Fill(const std::shared_ptr<ReportTable> &table,
                    ReportQuery &query,
                    RunControl &control,
                    ReportProblem &problem)
{
    TableBuilder builder(*table, query);
    if (!builder.Build()) {
        return Fail(problem, control, builder.Problem().kind, builder.Problem().text);
    }
    if (!table->IsEmpty() && !BuildChart(*table, query)) {
        return Fail(problem, control, query.Problem().kind, query.Problem().text);
    }
    return control.IsCancelled() ? Fail(problem, control, ReportProblem::Kind::Cancelled, {})
                                 : table;
}

ReportTablePtr FillStatements(const std::shared_ptr<ReportTable> &table,
                              StatementBuilder builder,
                              RunControl &control,
                              ReportProblem &problem)
{
    if (!builder.Build()) {
        return Fail(problem, control, builder.Problem().kind, builder.Problem().text);
    }
    return table;
}

QString UnopenedText(const QString &dsn, const QString &words)
{
    const QString advice = MissingSourceAdvice(dsn);
    const QString text = Words::tr("data source \"%1\": %2").arg(dsn, words);
    return advice.isEmpty() ? text : text + u'\n' + advice;
}

} // namespace

ReportTablePtr MakeReport(const ReportRequest &request, RunControl &control, ReportProblem &problem)
{
    using Kind = ReportProblem::Kind;
    LayoutError error;
    const auto layout = request.statement ? std::optional(StatementLayout())
                                          : ReadLayout(request.layoutPath, error);
    if (!layout) {
        return Fail(problem, control, Kind::Layout, error.Message());
    }
    if (const auto refused = request.query.isEmpty() ? std::nullopt : QueryProblem(request.query)) {
        return Fail(problem, control, Kind::Arguments, *refused);
    }
    const ConnectionText source = ParseConnectionText(request.connectionText);
    QString words;
    const QString account = source.user == kUsualAccount ? AccountOf(source.dsn) : source.user;
    const auto connection = ReportConnection::Open(source.dsn, account, source.password, words);
    if (!connection) {
        return Fail(problem, control, Kind::Database, UnopenedText(source.dsn, words));
    }
    const RunControl::Stopper stopper(control, [&] { connection->Cancel(); });
    const auto table = std::make_shared<ReportTable>();
    table->layout = *layout;
    static_cast<ReportSubject &>(*table) = static_cast<const ReportSubject &>(request);
    NameMoney(*table);
    table->made = request.made;
    table->schemaVersion = connection->SchemaVersion();
    if (request.statement) {
        return FillStatements(
            table, {*table, *request.statement, *connection, control}, control, problem);
    }
    ReportQuery query(table->layout, request.query, *connection, control);
    return Fill(table, query, control, problem);
}
