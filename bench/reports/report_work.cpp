// A report in a program of its own, so that its memory can be told:
//   report_work stream LAYOUT DSN QUERY        sums every row itself, as when the engine refuses to
//   report_work pdf    LAYOUT DSN QUERY FILE
#include "reports/engine.h"
#include "reports/output.h"
#include "reports/table_builder.h"
#include "support/must.h"

#include <QGuiApplication>

#include <clocale>

using namespace Qt::StringLiterals;

namespace {

void Stream(const ReportRequest &request, const QString &dsn)
{
    LayoutError error;
    QString words;
    RunControl control;
    ReportTable table;
    table.layout = ReadLayout(request.layoutPath, error).value();
    const auto connection = ReportConnection::Open(dsn, u"system"_s, {}, words);
    if (!connection) {
        Fail(words);
    }
    ReportQuery query(table.layout, request.query, *connection, control);
    query.SumHere();
    TableBuilder builder(table, query);
    if (!builder.Build()) {
        Fail(builder.Problem().text);
    }
}

void Export(const ReportRequest &request, const QString &fileName)
{
    RunControl control;
    ReportProblem problem;
    const auto table = MakeReport(request, control, problem);
    if (!table || !WriteReport(table, fileName, control, problem)) {
        Fail(problem.text);
    }
}

} // namespace

int main(int argc, char **argv)
{
    const QGuiApplication application(argc, argv);
    std::setlocale(LC_NUMERIC, "C");
    const QStringList arguments = QGuiApplication::arguments();
    ReportRequest request;
    request.layoutPath = arguments.value(2);
    request.connectionText = ReportConnectionText(arguments.value(3));
    request.query = arguments.value(4);
    if (arguments.value(1) == u"stream") {
        Stream(request, arguments.value(3));
    } else {
        Export(request, arguments.value(5));
    }
}
