#include "reports/page_painter.h"

#include "reports/chart_painter.h"

#include <QCoreApplication>

using namespace Qt::StringLiterals;
using paper::Style;

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportPage)
};

constexpr double kLogoHeight = 420;
constexpr double kOrganisationLine = 150;

TextLook Faint(Style style, Qt::AlignmentFlag side = Qt::AlignLeft)
{
    return {style, paper::kFaint, side};
}

} // namespace

QString ContinuedTitle(const QString &title)
{
    return Words::tr("%1 (continued)").arg(title);
}

QString CountedRows(const ReportTable &table, qint64 count)
{
    LayoutColumn number;
    number.type = ColumnType::Count;
    QString noun = table.layout.noun;
    if (count == 1 && noun.endsWith(u's')) {
        noun.chop(1);
    }
    return DisplayText(number, count) + u' ' + noun;
}

QString ClosingLabel(const ReportTable &table)
{
    const qint64 count = table.rows.Count();
    if (!table.groups.empty()) {
        return Words::tr("Grand total, %1").arg(CountedRows(table, count));
    }
    return table.IsCut() ? Words::tr("Total of these %1").arg(count)
                         : Words::tr("Total, %1").arg(CountedRows(table, count));
}

QString AllLabel(const ReportTable &table)
{
    return table.IsCut() ? Words::tr("Total of all %1").arg(CountedRows(table, table.allCount))
                         : QString();
}

QString SummaryLine(const ReportPages &pages, size_t group)
{
    const ReportTable &table = pages.Table();
    const ReportGroup &told = table.groups[group];
    const QString name = table.HasTotals()
        ? GroupTitle(table, told)
        : Words::tr("%1: %2").arg(GroupTitle(table, told), CountedRows(table, told.count));
    return Words::tr("page %1: %2").arg(pages.PageOfGroup(group) + 1).arg(name);
}

double HeadHeight(const ReportTable &table, qsizetype addressLines)
{
    const double texts = kOrganisationLine * (table.setup.organisation.isEmpty() ? 0 : 1)
        + paper::kHeadingLine * static_cast<double>(addressLines);
    return std::max(texts, table.setup.logo.isNull() ? 0 : kLogoHeight) + 160;
}

PagePainter::PagePainter(const ReportPages &ofPages, Canvas &onCanvas, int pageNumber)
    : pages(ofPages)
    , table(*ofPages.table)
    , canvas(onCanvas)
    , page(pageNumber)
    , plan(ofPages.PlanOf(pageNumber))
    , width(ofPages.Size().width() * 10)
    , height(ofPages.Size().height() * 10)
{ }

void PagePainter::Paint()
{
    if (pages.HasAllHeadings(page)) {
        PaintHead();
        PaintFirstHeading();
        PaintChart();
    } else {
        PaintOtherHeading();
    }
    if (table.IsEmpty()) {
        PaintEmpty();
    } else if (page == 0 && pages.HasSummary()) {
        PaintSummary();
    } else {
        PaintItems();
    }
    PaintFooter();
}

QRectF PagePainter::Line(double lineHeight) const
{
    return {paper::kMargin, top, width - 2 * paper::kMargin, lineHeight};
}

void PagePainter::Rule(double thickness, const QColor &colour, double length)
{
    canvas.Line({paper::kMargin, top}, {paper::kMargin + length, top}, thickness, colour);
}

void PagePainter::PaintHead()
{
    const PageSetup &setup = table.setup;
    if (!setup.HasHead()) {
        return;
    }
    const QStringList address = pages.AddressLines();
    const double below = top + HeadHeight(table, address.size());
    QRectF line = Line(kOrganisationLine);
    if (!setup.logo.isNull()) {
        const QSizeF shown =
            QSizeF(setup.logo.size()).scaled(line.width() / 3, kLogoHeight, Qt::KeepAspectRatio);
        canvas.Picture({QPointF(line.right() - shown.width(), top), shown}, setup.logo);
        line.setRight(line.right() - shown.width() - 120);
    }
    canvas.Write(line, setup.organisation, {.style = Style::Strong});
    if (!setup.organisation.isEmpty()) {
        line.translate(0, kOrganisationLine);
    }
    line.setHeight(paper::kHeadingLine);
    for (const QString &text : address) {
        canvas.Write(line, text, Faint(Style::Period));
        line.translate(0, paper::kHeadingLine);
    }
    top = below;
}

void PagePainter::PaintFirstHeading()
{
    const double ends = top + pages.FirstHeadingHeight()
        - (table.setup.HasHead() ? HeadHeight(table, pages.AddressLines().size()) : 0);
    canvas.WriteWhole(
        Line(260), table.layout.title, {.style = Style::Title, .colour = paper::kAccent});
    top += 270;
    QRectF line = Line(140);
    const QString made = table.made.toString(u"yyyy-MM-dd HH:mm:ss"_s);
    if (!table.period.isEmpty()) {
        canvas.WriteWhole(line.adjusted(0, 0, -line.width() * 0.3, 0),
                          Words::tr("Period: %1").arg(table.period),
                          {.style = Style::Period});
    }
    canvas.Write(line, Words::tr("Made %1").arg(made), Faint(Style::Period, Qt::AlignRight));
    top += 150;
    const TextLook look {.style = table.layout.pageForEach ? Style::Strong : Style::Period};
    const QString whom = FilterOrAddressee();
    line = Line(paper::kHeadingLine);
    canvas.Say(line.adjusted(0, 0, 0, line.height()), whom, look);
    QStringList lines = paper::Wrapped(whom, look.style, line.width(), 2);
    for (const QString &text : std::as_const(lines)) {
        canvas.Draw(line, text, look);
        line.translate(0, paper::kHeadingLine);
    }
    lines = pages.NoteLines();
    if (!lines.isEmpty()) {
        canvas.Say(line, table.layout.note, Faint(Style::Period));
    }
    for (const QString &text : std::as_const(lines)) {
        canvas.Draw(line, text, Faint(Style::Period));
        line.translate(0, paper::kHeadingLine);
    }
    top = ends - 60;
    Rule(14, paper::kAccent, line.width());
    top = ends;
}

// A letter does not name whom else there are letters for.
QString PagePainter::FilterOrAddressee() const
{
    if (table.layout.pageForEach && !table.groups.empty()) {
        return pages.LetterTitle(page);
    }
    return Words::tr("Filter: %1")
        .arg(OneLine(table.filter.isEmpty() ? Words::tr("all users and groups") : table.filter));
}

void PagePainter::PaintOtherHeading()
{
    const QRectF line = Line(150);
    const QString whom = pages.LetterTitle(page);
    canvas.Write(line.adjusted(0, 0, -line.width() / 2, 0),
                 whom.isEmpty() ? table.layout.title : table.layout.title + u", "_s + whom,
                 Faint(Style::Heading));
    canvas.WriteWhole(line.adjusted(line.width() / 2, 0, 0, 0),
                      table.period,
                      Faint(Style::Small, Qt::AlignRight));
    top += paper::kOtherHeading - 60;
    Rule(6, paper::kRule, line.width());
    top += 60;
}

void PagePainter::PaintChart()
{
    const double room = pages.ChartRoom();
    if (room > 0) {
        PaintReportChart(canvas, Line(room - 160), table.chart);
        top += room;
    }
}

// What the report comes to, and its largest groups with their pages, or its largest rows.
void PagePainter::PaintSummary()
{
    constexpr int kOtherLines = 6; // the title, the closing lines and what stands between
    const int room =
        std::clamp(pages.LinesBelow(top - paper::kMargin) - kOtherLines, 0, kMostSummaryLines);
    const bool hasGroups = !table.groups.empty();
    canvas.Write(Line(paper::kLine),
                 Words::tr("Summary"),
                 {.style = Style::Strong, .colour = paper::kAccent});
    top += 1.5 * paper::kLine;
    if (!hasGroups || table.HasTotals()) {
        PaintColumnHeadings(hasGroups);
    }
    const int shown = hasGroups ? PaintLargestGroups(room) : PaintLargestRows(room);
    const qint64 all = hasGroups ? static_cast<qint64>(table.groups.size()) : table.rows.Count();
    if (shown > 0 && all > shown) {
        LayoutColumn number;
        number.type = ColumnType::Count;
        canvas.Write(Line(paper::kLine).adjusted(paper::kCellPadding, 0, 0, 0),
                     Words::tr("These are the largest of %1.").arg(DisplayText(number, all)),
                     Faint(Style::Small));
        top += paper::kLine;
    }
    PaintClosing();
}

int PagePainter::PaintLargestGroups(int most)
{
    const auto groups = pages.LargestGroups(static_cast<size_t>(most));
    for (const size_t group : groups) {
        PaintSums(SummaryLine(pages, group), table.groups[group].totals, Style::Text);
        top += paper::kLine;
        Rule(3, paper::kRule, plan.width);
    }
    return static_cast<int>(groups.size());
}

int PagePainter::PaintLargestRows(int most)
{
    int painted = 0;
    for (const qint64 number : table.largestRows) {
        if (painted == most) {
            break;
        }
        const auto read = table.rows.Read(number, 1);
        for (const CellRow &row : read) {
            for (const PlannedColumn &column : plan.columns) {
                PaintCell(column, row, 1);
            }
        }
        if (read.empty()) {
            PaintUnread();
        }
        top += paper::kLine;
        Rule(3, paper::kRule, plan.width);
        ++painted;
    }
    return painted;
}

void PagePainter::PaintEmpty()
{
    const QRectF box(paper::kMargin, top + 400, width - 2 * paper::kMargin, 900);
    for (const auto &[from, to] : {std::pair(box.topLeft(), box.topRight()),
                                   std::pair(box.topRight(), box.bottomRight()),
                                   std::pair(box.bottomRight(), box.bottomLeft()),
                                   std::pair(box.bottomLeft(), box.topLeft())}) {
        canvas.Line(from, to, 8, paper::kRule);
    }
    canvas.WriteWhole(box.adjusted(60, 150, -60, -450),
                      Words::tr("Nothing to report"),
                      {.style = Style::Title, .side = Qt::AlignHCenter});
    canvas.WriteWhole(box.adjusted(60, 450, -60, -200),
                      Words::tr("The database holds no data for this period and filter."),
                      Faint(Style::Period, Qt::AlignHCenter));
}

void PagePainter::PaintItems()
{
    const auto items = pages.map.Page(page);
    for (const PageItem &item : items) {
        if (item.kind == PageItem::Kind::Row) {
            firstRow = item.index;
            rows = table.rows.Read(firstRow, static_cast<qint64>(items.size()));
            break;
        }
    }
    if (!items.empty()) {
        PaintColumnHeadings();
    }
    for (const PageItem &item : items) {
        PaintItem(item);
    }
}

QRectF PagePainter::CellPlace(const PlannedColumn &column, double cellHeight) const
{
    return {paper::kMargin + column.left + paper::kCellPadding,
            top,
            column.width - 2 * paper::kCellPadding,
            cellHeight};
}

void PagePainter::PaintColumnHeadings(bool onlyOfSums)
{
    constexpr double kBandHeight = paper::kColumnHeading - 30;
    canvas.Fill({paper::kMargin, top, plan.width, kBandHeight}, paper::kBand);
    for (const PlannedColumn &column : plan.columns) {
        const LayoutColumn &told = table.layout.columns.at(column.place);
        if (onlyOfSums && !told.total) {
            continue;
        }
        const QRectF place = CellPlace(column, kBandHeight);
        const auto side = told.IsNumber() ? Qt::AlignRight : Qt::AlignLeft;
        const QString unit = ColumnPlan::UnitOf(column, told);
        canvas.Write(unit.isEmpty() ? place : place.adjusted(0, 20, 0, -110),
                     told.heading,
                     {.style = Style::Heading, .side = side});
        canvas.WriteWhole(place.adjusted(0, 130, 0, -15), unit, Faint(Style::Unit, side));
    }
    top += paper::kColumnHeading;
}

void PagePainter::PaintItem(const PageItem &item)
{
    switch (item.kind) {
    case PageItem::Kind::Heading:
    case PageItem::Kind::Continued:
        isTinted = false;
        PaintGroupHeading(item);
        break;
    case PageItem::Kind::Row:
        if (item.index - firstRow < static_cast<qint64>(rows.size())) {
            PaintRow(item);
        } else {
            PaintUnread();
        }
        break;
    case PageItem::Kind::Sum: {
        const ReportGroup &group = table.groups[static_cast<size_t>(item.index)];
        if (HasSumLine(group)) {
            Rule(5, paper::kInk, plan.width);
            PaintSums(table.layout.pageForEach ? Words::tr("Total")
                                               : CountedRows(table, group.count),
                      group.totals,
                      Style::Strong);
        }
        break;
    }
    case PageItem::Kind::Closing:
        PaintClosing();
        return;
    }
    top += paper::kLine * item.lines;
}

// The temporary file has failed, of which RowStore::ReadProblem() tells.
void PagePainter::PaintUnread()
{
    canvas.Write(
        Line(paper::kLine), Words::tr("(this row cannot be read)"), {.style = Style::Text});
}

void PagePainter::PaintGroupHeading(const PageItem &item)
{
    QString title = GroupTitle(table, table.groups[static_cast<size_t>(item.index)]);
    if (item.kind == PageItem::Kind::Continued) {
        title = ContinuedTitle(title);
    }
    QRectF line = Line(paper::kLine).adjusted(paper::kCellPadding, 0, -paper::kCellPadding, 0);
    const TextLook look {.style = Style::Strong, .colour = paper::kAccent};
    canvas.Say(line.adjusted(0, 0, 0, paper::kLine * (item.lines - 1)), title, look);
    for (const QString &text :
         paper::Wrapped(title, Style::Strong, line.width(), kMostHeadingLines)) {
        canvas.Draw(line, text, look);
        line.translate(0, paper::kLine);
    }
}

void PagePainter::PaintRow(const PageItem &item)
{
    const double high = paper::kLine * item.lines;
    if (isTinted) {
        canvas.Fill({paper::kMargin, top, plan.width, high}, paper::kTint);
    }
    isTinted = !isTinted;
    const CellRow &row = rows[static_cast<size_t>(item.index - firstRow)];
    for (const PlannedColumn &column : plan.columns) {
        PaintCell(column, row, item.lines);
    }
    const QPointF below(paper::kMargin, top + high);
    canvas.Line(below, below + QPointF(plan.width, 0), 3, paper::kRule);
}

void PagePainter::PaintCell(const PlannedColumn &column, const CellRow &row, int lines)
{
    const LayoutColumn &told = table.layout.columns.at(column.place);
    const QString text = ColumnPlan::TextOf(column, told, row[static_cast<size_t>(column.place)]);
    const TextLook look {.style = Style::Text,
                         .side = told.IsNumber() ? Qt::AlignRight : Qt::AlignLeft,
                         .pixels = plan.pixels};
    QRectF place = CellPlace(column, paper::kLine);
    if (told.IsNumber()) {
        canvas.WriteFitting(place, text, look); // the plan has seen to that
        return;
    }
    if (told.type != ColumnType::Text) {
        canvas.WriteWhole(place, text, look);
        return;
    }
    if (lines == 1) {
        canvas.Write(place, text, look);
        return;
    }
    canvas.Say(place.adjusted(0, 0, 0, paper::kLine * (lines - 1)), text, look);
    for (const QString &line :
         paper::Wrapped(text, look.style, place.width(), lines, look.pixels)) {
        canvas.Draw(place, line, look);
        place.translate(0, paper::kLine);
    }
}

void PagePainter::PaintSums(const QString &label, const CellRow &sums, Style style)
{
    double labelEnd = width - paper::kMargin;
    for (const PlannedColumn &column : plan.columns) {
        if (sums[static_cast<size_t>(column.place)].index() != 0) {
            labelEnd = std::min(labelEnd, CellPlace(column, 0).left());
        }
    }
    const double left = paper::kMargin + paper::kCellPadding;
    if (labelEnd > left) { // else the first column has a sum itself
        canvas.Write({left, top, labelEnd - left, paper::kLine},
                     label,
                     {.style = style, .pixels = plan.pixels});
    }
    for (const PlannedColumn &column : plan.columns) {
        const Cell &cell = sums[static_cast<size_t>(column.place)];
        const LayoutColumn &told = table.layout.columns.at(column.place);
        canvas.WriteWhole(CellPlace(column, paper::kLine),
                          cell.index() == 0 ? QString() : ColumnPlan::TextOf(column, told, cell),
                          {.style = style, .side = Qt::AlignRight, .pixels = plan.pixels});
    }
}

void PagePainter::PaintClosing()
{
    top += paper::kLine / 2;
    Rule(12, paper::kInk, plan.width);
    PaintSums(ClosingLabel(table), table.totals, Style::Strong);
    if (table.IsCut()) {
        top += paper::kLine;
        Rule(3, paper::kInk, plan.width);
        PaintSums(AllLabel(table), table.allTotals, Style::Strong);
    }
}

void PagePainter::PaintFooter()
{
    top = height - paper::kMargin - 150;
    Rule(3, paper::kRule, width - 2 * paper::kMargin);
    top += 30;
    canvas.Write(Line(120), u"Tollbrook Administrator"_s, Faint(Style::Small));
    const auto [number, count] = pages.NumberOf(page);
    canvas.WriteWhole(Line(120),
                      Words::tr("Page %1 of %2").arg(number).arg(count),
                      Faint(Style::Small, Qt::AlignRight));
}
