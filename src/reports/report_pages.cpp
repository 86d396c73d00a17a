#include "reports/report_pages.h"

#include "reports/chart_painter.h"
#include "reports/page_painter.h"
#include "reports/report_run.h"

#include <QPainter>

#include <algorithm>
#include <numeric>

using namespace Qt::StringLiterals;

namespace {

constexpr int kSumLines = 2; // the sum and a blank one behind it
constexpr int kPagesWithoutSummary = 20;

// What surrounds the rows of a page.
constexpr double kFrame = 2 * paper::kMargin + paper::kColumnHeading + paper::kFooter;

// Enlarged until the least number of lines finds room.
QSizeF Enlarged(QSizeF sheet, double leastOfFirst)
{
    constexpr double kLeastWidth = 4000;
    constexpr double kLeastHeight =
        kFrame + paper::kOtherHeading + PageMap::kLeastLines * paper::kLine;
    const QSizeF page = sheet * 10;
    const double least = std::max(kLeastHeight, leastOfFirst);
    return page * std::max({1.0, kLeastWidth / page.width(), least / page.height()});
}

QSizeF UsualSheet(const ReportTable &table)
{
    return table.setup.SheetFor(table.layout.landscape).fullRect(QPageLayout::Point).size();
}

int HeadingLines(const QString &title, double width)
{
    constexpr double kEm = 85 * 1.2; // strong type is wider
    if (EmsOf(title) * kEm < width) {
        return 1; // there may be a million of them
    }
    return static_cast<int>(
        paper::Wrapped(title, paper::Style::Strong, width, kMostHeadingLines).size());
}

// What stands before the first sum of a line of sums, at its longest.
QStringList Leads(const ReportTable &table)
{
    QStringList leads = {ClosingLabel(table), AllLabel(table)};
    qint64 most = 0;
    for (const ReportGroup &group : table.groups) {
        most = std::max(most, group.count);
    }
    return leads << CountedRows(table, most);
}

} // namespace

ReportPages::ReportPages(const ReportTablePtr &ofTable, const RunControl *control)
    : ReportPages(ofTable, UsualSheet(*ofTable), control)
{ }

ReportPages::ReportPages(ReportTablePtr ofTable, QSizeF sheet, const RunControl *control)
    : table(std::move(ofTable))
    , size(Enlarged(sheet, LeastOfLetter()))
    , plan(PlanColumns(*table, Room(), Leads(*table)))
    , map(Outline(control),
          LinesBelow(FirstHeadingHeight() + ChartRoom()),
          LinesBelow(paper::kOtherHeading))
    , hasSummary(!table->layout.pageForEach && map.Count() > kPagesWithoutSummary)
{
    if (hasSummary) {
        map.LeaveFirstBlank();
        summaryPlan = PlanColumns(*table, Room(), SummaryLeads());
    }
}

QPageLayout ReportPages::Sheet() const
{
    return table->setup.SheetFor(table->layout.landscape);
}

int ReportPages::PageOfGroup(size_t group) const
{
    return map.PageOfRow(table->groups[group].first);
}

bool ReportPages::HasAllHeadings(int page) const
{
    return page == 0 || (table->layout.pageForEach && map.BeginsGroup(page));
}

std::pair<int, int> ReportPages::NumberOf(int page) const
{
    if (!table->layout.pageForEach || table->groups.empty()) {
        return {page + 1, Count()};
    }
    const size_t group = map.GroupOfPage(page);
    const int first = PageOfGroup(group);
    const int end = group + 1 < table->groups.size() ? PageOfGroup(group + 1) : Count();
    return {page - first + 1, end - first};
}

QString ReportPages::LetterTitle(int page) const
{
    return table->layout.pageForEach && !table->groups.empty()
        ? GroupTitle(*table, table->groups[map.GroupOfPage(page)])
        : QString();
}

// A letter's first page holds a few lines below its headings.
double ReportPages::LeastOfLetter() const
{
    return table->layout.pageForEach
        ? kFrame + FirstHeadingHeight() + PageMap::kLeastFirstLines * paper::kLine
        : 0;
}

// The upper edge of the first line below the columns' headings.
double ReportPages::TopOfItems(int page) const
{
    return paper::kMargin + paper::kColumnHeading
        + (page == 0 ? FirstHeadingHeight() + ChartRoom() : paper::kOtherHeading);
}

std::optional<qint64> ReportPages::RowAt(int page, QPointF place) const
{
    const double across = place.x() * 10;
    if (across < paper::kMargin || across > size.width() - paper::kMargin) {
        return std::nullopt;
    }
    double top = TopOfItems(page);
    for (const PageItem &item : map.Page(page)) {
        const double bottom = top + paper::kLine * item.lines;
        if (place.y() * 10 >= top && place.y() * 10 < bottom) {
            return item.kind == PageItem::Kind::Row ? std::optional(item.index) : std::nullopt;
        }
        top = bottom;
    }
    return std::nullopt;
}

double ReportPages::TopOfGroup(size_t group) const
{
    if (table->layout.pageForEach) {
        return 0;
    }
    const int page = PageOfGroup(group);
    double top = TopOfItems(page);
    for (const PageItem &item : map.Page(page)) {
        if (item.kind == PageItem::Kind::Heading && item.index == static_cast<qint64>(group)) {
            break;
        }
        top += paper::kLine * item.lines;
    }
    return top / 10;
}

// On low sheets a chart is made lower, and stands alone on the first page.
double ReportPages::ChartRoom() const
{
    const double room = size.height() - 2 * paper::kMargin - paper::kFooter - FirstHeadingHeight();
    return std::min(ChartHeight(table->chart), room);
}

QStringList ReportPages::AddressLines() const
{
    constexpr int kMostLines = 5;
    return table->setup.address.split(u'\n', Qt::SkipEmptyParts).mid(0, kMostLines);
}

QStringList ReportPages::NoteLines() const
{
    constexpr int kMostLines = 4;
    return table->layout.note.isEmpty()
        ? QStringList()
        : paper::Wrapped(table->layout.note, paper::Style::Period, Room(), kMostLines);
}

double ReportPages::FirstHeadingHeight() const
{
    return paper::kFirstHeading + paper::kHeadingLine * static_cast<double>(NoteLines().size())
        + (table->setup.HasHead() ? HeadHeight(*table, AddressLines().size()) : 0);
}

int ReportPages::LinesBelow(double headingHeight) const
{
    return static_cast<int>((size.height() - kFrame - headingHeight) / paper::kLine);
}

int ReportPages::RowLines(const CellRow &row) const
{
    qsizetype lines = 1;
    for (const PlannedColumn &column : plan.columns) {
        if (const auto *text = std::get_if<QString>(&row[static_cast<size_t>(column.place)])) {
            const double width = column.width - 2 * paper::kCellPadding;
            lines = std::max(
                lines,
                paper::Wrapped(
                    OneLine(*text), paper::Style::Text, width, PageMap::kMostRowLines, plan.pixels)
                    .size());
        }
    }
    return static_cast<int>(lines);
}

// How many times the least width of its column each column of texts has at least.
double ReportPages::RoomForTexts() const
{
    double room = std::numeric_limits<double>::max();
    for (const PlannedColumn &column : plan.columns) {
        if (table->layout.columns.at(column.place).type == ColumnType::Text) {
            const double ems = (column.width - 2 * paper::kCellPadding) / plan.pixels;
            room = std::min(room, ems / LeastEms(table->layout, column.place));
        }
    }
    return room;
}

PageOutline ReportPages::Outline(const RunControl *control) const
{
    const double width = Room() - 2 * paper::kCellPadding;
    PageOutline outline;
    outline.pageForEach = table->layout.pageForEach;
    for (const ReportGroup &group : table->groups) {
        const QString title = GroupTitle(*table, group);
        outline.groups.push_back(
            {group.first,
             group.count,
             outline.pageForEach ? 0 : HeadingLines(title, width),
             HasSumLine(group) ? kSumLines : kSumLines - 1,
             outline.pageForEach ? 0 : HeadingLines(ContinuedTitle(title), width)});
    }
    if (table->groups.empty() && !table->IsEmpty()) {
        outline.groups.push_back({0, table->rows.Count(), 0, 0});
    }
    const auto room = static_cast<float>(RoomForTexts());
    for (const auto &[row, need] : table->longRows) {
        if (control != nullptr && control->IsCancelled()) {
            break;
        }
        if (need <= room) {
            continue;
        }
        for (const CellRow &read : table->rows.Read(row, 1)) {
            if (const int lines = RowLines(read); lines > 1) {
                outline.tallRows.emplace_back(row, lines);
            }
        }
    }
    const bool hasClosing = !table->IsEmpty() && !outline.pageForEach;
    outline.closingLines = !hasClosing ? 0 : table->IsCut() ? 3 : 2;
    return outline;
}

// The names of its largest groups take more room than those of columns; no more than they can spare.
QStringList ReportPages::SummaryLeads() const
{
    constexpr double kMostOfRoom = 0.45;
    QStringList leads = Leads(*table);
    for (const size_t group : LargestGroups(kMostSummaryLines)) {
        leads << paper::Elided(
            SummaryLine(*this, group), paper::Style::Strong, kMostOfRoom * Room());
    }
    return leads;
}

const ColumnPlan &ReportPages::PlanOf(int page) const
{
    return page == 0 && hasSummary ? summaryPlan : plan;
}

std::vector<size_t> ReportPages::LargestGroups(size_t most) const
{
    const auto &columns = table->layout.columns;
    const auto summed =
        std::find_if(plan.columns.begin(), plan.columns.end(), [&](const PlannedColumn &column) {
            return columns.at(column.place).total;
        });
    const auto sizeOf = [&](size_t group) {
        const ReportGroup &told = table->groups[group];
        return summed == plan.columns.end()
            ? static_cast<double>(told.count)
            : NumberIn(told.totals[static_cast<size_t>(summed->place)]);
    };
    std::vector<size_t> groups(table->groups.size());
    std::iota(groups.begin(), groups.end(), size_t {0});
    const auto end = groups.begin() + static_cast<qsizetype>(std::min(most, groups.size()));
    std::partial_sort(groups.begin(), end, groups.end(), [&](size_t one, size_t other) {
        return sizeOf(one) != sizeOf(other) ? sizeOf(one) > sizeOf(other) : one < other;
    });
    groups.erase(end, groups.end());
    return groups;
}

void ReportPages::Paint(QPainter &painter, int page, double pixelsPerPoint) const
{
    painter.save();
    painter.scale(pixelsPerPoint / 10, pixelsPerPoint / 10);
    painter.setRenderHint(QPainter::Antialiasing);
    PainterCanvas canvas(painter);
    PagePainter(*this, canvas, page).Paint();
    painter.restore();
}

std::vector<PlacedText> ReportPages::Texts(int page) const
{
    TextCanvas canvas;
    PagePainter(*this, canvas, page).Paint();
    return std::move(canvas.texts);
}

QString ReportPages::PageText(int page) const
{
    QString words;
    double line = -1;
    for (const PlacedText &text : Texts(page)) {
        const double top = text.place.center().y();
        const bool goesOn = std::abs(top - line) < 1;
        words += (words.isEmpty() ? QString() : goesOn ? u"\t"_s : u"\n"_s) + text.text;
        line = top;
    }
    return words;
}

std::optional<PageHit> ReportPages::FindText(const QString &text,
                                             int from,
                                             const std::optional<PageHit> &after,
                                             const RunControl *control) const
{
    // The page on which it begins is looked at twice: behind the last hit, and in the end before it.
    for (int step = 0; step <= Count() && (control == nullptr || !control->IsCancelled()); ++step) {
        const int page = (from + step) % Count();
        const auto texts = Texts(page);
        const bool behind = step == 0 && after && after->page == page;
        for (size_t place = behind ? static_cast<size_t>(after->text) : 0; place < texts.size();
             ++place) {
            const bool sameText = behind && static_cast<int>(place) == after->text;
            const qsizetype letter = texts[place].text.indexOf(
                text, sameText ? after->letter + 1 : 0, Qt::CaseInsensitive);
            if (letter >= 0) {
                const QRectF found = texts[place].PlaceOf(letter, text.size());
                return PageHit {page,
                                static_cast<int>(place),
                                letter,
                                {found.topLeft() / 10, found.size() / 10}};
            }
        }
    }
    return std::nullopt;
}
