#include "reports/output.h"

#include "reports/paper.h"

#include <QCoreApplication>
#include <QFileInfo>
#include <QSaveFile>

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
                 QIODevice &device,
                 RunControl &control,
                 QString &words)
{
    switch (format) {
    case OutputFormat::Pdf:
        return WritePdf(table, device, control);
    case OutputFormat::Csv:
        return WriteCsv(*table, device, control);
    case OutputFormat::Html:
        return WriteHtml(*table, device, control);
    case OutputFormat::Xlsx:
        return WriteXlsx(*table, device, control, words);
    }
    return false;
}

} // namespace

std::optional<OutputFormat> FormatOf(const QString &fileName)
{
    const QString suffix = QFileInfo(fileName).suffix().toLower();
    const QStringList known {u"pdf"_s, u"csv"_s, u"html"_s, u"xlsx"_s};
    const auto place = known.indexOf(suffix);
    return place < 0 ? std::nullopt : std::optional(static_cast<OutputFormat>(place));
}

bool WriteReport(const ReportTablePtr &table,
                 const QString &fileName,
                 RunControl &control,
                 ReportProblem &problem)
{
    const auto format = FormatOf(fileName);
    const QFileInfo folder(QFileInfo(fileName).absolutePath());
    if (!format) {
        return Fail(problem,
                    control,
                    Words::tr("%1: the name must end in .pdf, .csv, .html or .xlsx").arg(fileName));
    }
    if (!folder.isDir()) {
        return Fail(
            problem, control, Words::tr("the folder %1 does not exist").arg(folder.filePath()));
    }
    if (*format == OutputFormat::Pdf && paper::HasNoFonts()) {
        return Fail(problem, control, Words::tr("no font is installed; install fonts-dejavu-core"));
    }
    QString words;
    QSaveFile file(fileName);
    // A commit does not notice that what was left in the buffer found no room.
    const bool written = file.open(QIODevice::WriteOnly)
        && WriteDevice(table, *format, file, control, words) && file.flush();
    if (!written) {
        words = words.isEmpty() ? file.errorString() : words; // closing forgets it
        file.cancelWriting();
    }
    if (file.commit() && written) {
        return true;
    }
    words = words.isEmpty() ? file.errorString() : words;
    return Fail(problem, control, Words::tr("%1 cannot be written: %2").arg(fileName, words));
}
