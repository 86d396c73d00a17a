#include "reports/output.h"

#include "reports/output_file.h"
#include "reports/paper.h"

#include <QCoreApplication>
#include <QFileInfo>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportOutput)
};

using Kind = ReportProblem::Kind;

bool Fail(ReportProblem &problem, RunControl &control, const QString &text)
{
    problem = {control.IsCancelled() ? Kind::Cancelled : Kind::Output, text};
    return false;
}

bool WriteDevice(const ReportTablePtr &table,
                 OutputFormat format,
                 const OutputOptions &options,
                 QIODevice &device,
                 RunControl &control,
                 QString &words)
{
    switch (format) {
    case OutputFormat::Pdf:
        return WritePdf(table, device, control);
    case OutputFormat::Csv:
        return WriteCsv(*table, device, control, options);
    case OutputFormat::Html:
        return WriteHtml(*table, device, control);
    case OutputFormat::Xlsx:
        return WriteXlsx(*table, device, control, words);
    }
    return false;
}

} // namespace

bool WriteReport(const ReportTablePtr &table,
                 const QString &fileName,
                 RunControl &control,
                 ReportProblem &problem,
                 const OutputOptions &options)
{
    const auto format = FormatOf(fileName);
    const QFileInfo folder(QFileInfo(fileName).absolutePath());
    if (!format) {
        return Fail(problem,
                    control,
                    Words::tr("%1: the name must end in %2").arg(fileName, EndingsInWords()));
    }
    if (!folder.isDir()) {
        return Fail(
            problem, control, Words::tr("the folder %1 does not exist").arg(folder.filePath()));
    }
    if (*format == OutputFormat::Pdf && paper::HasNoFonts()) {
        return Fail(problem, control, Words::tr("no font is installed; install fonts-dejavu-core"));
    }
    QString words;
    OutputFile file(options.groupReads);
    const bool written =
        file.Open(fileName) && WriteDevice(table, *format, options, file.Device(), control, words);
    words = words.isEmpty() ? table->rows.ReadProblem() : words; // the file lacks rows then
    if (written && words.isEmpty() && (options.isTrial || file.Keep())) {
        return true;
    }
    for (const QString &reason : {file.Problem(), file.Device().errorString()}) {
        words = words.isEmpty() ? reason : words;
    }
    return Fail(problem, control, Words::tr("%1 cannot be written: %2").arg(fileName, words));
}

Result<qint64>
SaveRows(const ReportTablePtr &table, const QString &fileName, const OutputOptions &options)
{
    RunControl control;
    ReportProblem problem;
    if (!WriteReport(table, fileName, control, problem, options)) {
        return tl::unexpected(OutputFailure(problem.text));
    }
    return table->rows.Count();
}
