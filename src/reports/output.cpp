#include "reports/output.h"

#include "reports/paper.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QSaveFile>
#include <QTemporaryFile>

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <fcntl.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace {

using Kind = ReportProblem::Kind;

bool Fail(ReportProblem &problem, RunControl &control, const QString &text)
{
    problem = {control.IsCancelled() ? Kind::Cancelled : Kind::Output, text};
    return false;
}

bool WriteDevice(const ReportTablePtr &table,
                 OutputFormat format,
                 QIODevice &device,
                 RunControl &control)
{
    switch (format) {
    case OutputFormat::Pdf:
        return WritePdf(table, device, control);
    case OutputFormat::Csv:
        return WriteCsv(*table, device, control);
    case OutputFormat::Html:
        return WriteHtml(*table, device, control);
    case OutputFormat::Xlsx:
        break;
    }
    return false;
}

// The library of this format writes a named file itself.
bool WriteXlsxBeside(const ReportTable &table,
                     const QString &fileName,
                     RunControl &control,
                     QString &words)
{
    QTemporaryFile temporary(QFileInfo(fileName).absolutePath() + u"/.tollbrook-report-XXXXXX"_s);
    if (!temporary.open()) {
        words = temporary.errorString();
        return false;
    }
    const QString name = temporary.fileName();
    if (!WriteXlsx(table, name, control, words)) {
        return false;
    }
    const QByteArray from = QFile::encodeName(name);
    const int written = ::open(from.constData(), O_RDONLY | O_CLOEXEC);
    const bool safe = written >= 0 && ::fsync(written) == 0;
    ::close(written);
    temporary.setPermissions(QFile::ReadOwner | QFile::WriteOwner | QFile::ReadGroup
                             | QFile::ReadOther);
    if (!safe || std::rename(from.constData(), QFile::encodeName(fileName).constData()) != 0) {
        words = QString::fromLocal8Bit(std::strerror(errno));
        return false;
    }
    temporary.setAutoRemove(false);
    return true;
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
                    u"%1: the name must end in .pdf, .csv, .html or .xlsx"_s.arg(fileName));
    }
    if (!folder.isDir()) {
        return Fail(problem, control, u"the folder %1 does not exist"_s.arg(folder.filePath()));
    }
    if (*format == OutputFormat::Pdf && paper::HasNoFonts()) {
        return Fail(problem, control, u"no font is installed; install fonts-dejavu-core"_s);
    }
    const QString cannot = u"%1 cannot be written: %2"_s;
    if (*format == OutputFormat::Xlsx) {
        QString words;
        return WriteXlsxBeside(*table, fileName, control, words)
            || Fail(problem, control, cannot.arg(fileName, words));
    }
    QSaveFile file(fileName);
    // A commit does not notice that what was left in the buffer found no room.
    const bool written = file.open(QIODevice::WriteOnly)
        && WriteDevice(table, *format, file, control) && file.flush();
    if (!written) {
        file.cancelWriting();
    }
    return (file.commit() && written)
        || Fail(problem, control, cannot.arg(fileName, file.errorString()));
}
