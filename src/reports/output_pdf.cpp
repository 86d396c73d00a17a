#include "reports/output.h"
#include "reports/pdf_outline.h"
#include "reports/report_pages.h"
#include "reports/wording.h"

#include <QPainter>
#include <QPdfWriter>

using namespace Qt::StringLiterals;

namespace {

constexpr int kDotsPerInch = 600;

// The page of each group, for readers that list them beside the pages.
std::vector<PdfBookmark> BookmarksOf(const ReportPages &pages, double scale)
{
    const ReportTable &table = pages.Table();
    const double height = pages.Size().height();
    std::vector<PdfBookmark> bookmarks;
    for (size_t group = 0; group < table.groups.size(); ++group) {
        bookmarks.push_back({GroupTitle(table, table.groups[group]),
                             pages.PageOfGroup(group),
                             (height - pages.TopOfGroup(group)) * scale});
    }
    return bookmarks;
}

} // namespace

bool WritePdf(const ReportTablePtr &table, QIODevice &device, RunControl &control)
{
    const ReportPages pages(table, &control);
    TailKeeper file(device, PdfTailBytes(pages.Count()));
    QPdfWriter writer(&file);
    writer.setResolution(kDotsPerInch);
    const QString period = table->period.isEmpty() ? QString() : u", "_s + table->period;
    writer.setTitle(table->layout.title + period);
    writer.setCreator(u"Tollbrook Administrator"_s);
    writer.setPageLayout(pages.Sheet());
    // Paper that is too small for a table's least room holds a page made smaller.
    const double scale = pages.Sheet().fullRect(QPageLayout::Point).width() / pages.Size().width();
    QPainter painter;
    if (!painter.begin(&writer)) {
        return false;
    }
    for (int page = 0; page < pages.Count() && !control.IsCancelled(); ++page) {
        if (page > 0 && !writer.newPage()) {
            return false;
        }
        pages.Paint(painter, page, scale * kDotsPerInch / 72.0);
        control.SetProgress(page + 1, pages.Count());
    }
    return painter.end() && !control.IsCancelled()
        && AppendToPdf(file, BookmarksOf(pages, scale), LanguageOfTexts());
}
