#include "reports/output_format.h"

#include <QCoreApplication>
#include <QFileInfo>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(OutputFormat)
};

constexpr std::array<FormatEntry, 4> kFormats {{
    {OutputFormat::Pdf, u"pdf", QT_TRANSLATE_NOOP("OutputFormat", "PDF (*.pdf)")},
    {OutputFormat::Csv, u"csv", QT_TRANSLATE_NOOP("OutputFormat", "Text with commas (*.csv)")},
    {OutputFormat::Html, u"html", QT_TRANSLATE_NOOP("OutputFormat", "Web page (*.html)")},
    {OutputFormat::Xlsx, u"xlsx", QT_TRANSLATE_NOOP("OutputFormat", "Spreadsheet (*.xlsx)")},
}};

const FormatEntry &EntryOf(OutputFormat format)
{
    return *std::ranges::find(kFormats, format, &FormatEntry::format);
}

} // namespace

const std::array<FormatEntry, 4> &OutputFormats()
{
    return kFormats;
}

std::optional<OutputFormat> FormatOf(const QString &fileName)
{
    const QString ending = QFileInfo(fileName).suffix().toLower();
    const auto *const found =
        std::ranges::find(kFormats, QStringView(ending), &FormatEntry::ending);
    return found == kFormats.end() ? std::nullopt : std::optional(found->format);
}

QString KindOf(OutputFormat format)
{
    return Words::tr(EntryOf(format).kind);
}

QString EndingOf(OutputFormat format)
{
    return EntryOf(format).ending.toString();
}

QString EndingsInWords()
{
    QStringList endings;
    for (const FormatEntry &entry : kFormats) {
        endings += u'.' + entry.ending.toString();
    }
    const QString last = endings.takeLast();
    return Words::tr("%1 or %2").arg(endings.join(u", "_s), last);
}
