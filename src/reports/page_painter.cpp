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

} // namespace

QString ContinuedTitle(const QString &title)
{
    return Words::tr("%1 (continued)").arg(title);
}

PagePainter::PagePainter(const ReportPages &ofPages, QPainter &onPainter, int pageNumber)
    : pages(ofPages)
    , table(*ofPages.table)
    , painter(onPainter)
    , page(pageNumber)
    , width(ofPages.Size().width() * 10)
    , height(ofPages.Size().height() * 10)
{ }

void PagePainter::Paint(double scale)
{
    painter.save();
    painter.scale(scale, scale);
    painter.setRenderHint(QPainter::Antialiasing);
    if (page == 0) {
        PaintFirstHeading();
        PaintChart();
    } else {
        PaintOtherHeading();
    }
    if (table.IsEmpty()) {
        PaintEmpty();
    }
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
    PaintFooter();
    painter.restore();
}

// A text on one line at the middle of its place, cut when it is too long.
void PagePainter::Write(const QRectF &place, const QString &text, Style style, bool right)
{
    WriteFitting(place, paper::Elided(text, style, place.width()), style, right);
}

void PagePainter::WriteFitting(const QRectF &place, const QString &text, Style style, bool right)
{
    if (text.isEmpty()) {
        return;
    }
    const QFontMetricsF &metrics = paper::Metrics(style);
    painter.setFont(paper::Font(style));
    const double left = right ? place.right() - metrics.horizontalAdvance(text) : place.left();
    const double line = place.center().y() + (metrics.ascent() - metrics.descent()) / 2;
    painter.drawText(QPointF(left, line), text);
}

void PagePainter::Rule(double thickness, const QColor &colour)
{
    painter.setPen(QPen(colour, thickness));
    painter.drawLine(QPointF(paper::kMargin, top), QPointF(width - paper::kMargin, top));
    painter.setPen(paper::kInk);
}

void PagePainter::PaintFirstHeading()
{
    const QRectF whole(paper::kMargin, top, width - 2 * paper::kMargin, 260);
    painter.setPen(paper::kAccent);
    Write(whole, table.layout.title, Style::Title);
    painter.setPen(paper::kFaint);
    const QString made = table.made.toString(u"yyyy-MM-dd HH:mm:ss"_s);
    Write(QRectF(whole.left(), top + 270, whole.width(), 140),
          Words::tr("Made %1").arg(made),
          Style::Period,
          true);
    painter.setPen(paper::kInk);
    const QRectF left(whole.left(), top + 270, whole.width() * 0.7, 140);
    if (!table.period.isEmpty()) {
        Write(left, Words::tr("Period: %1").arg(table.period), Style::Period);
    }
    const QString filter =
        table.filter.isEmpty() ? Words::tr("all users and groups") : table.filter;
    const auto lines = paper::Wrapped(
        Words::tr("Filter: %1").arg(OneLine(filter)), Style::Period, whole.width(), 2);
    for (qsizetype line = 0; line < lines.size(); ++line) {
        Write(QRectF(whole.left(), top + 420 + 130 * static_cast<double>(line), whole.width(), 130),
              lines.at(line),
              Style::Period);
    }
    top += paper::kFirstHeading - 60;
    Rule(14, paper::kAccent);
    top += 60;
}

void PagePainter::PaintOtherHeading()
{
    const QRectF line(paper::kMargin, top, width - 2 * paper::kMargin, 150);
    painter.setPen(paper::kFaint);
    Write(line, table.layout.title, Style::Heading);
    Write(line.adjusted(line.width() / 2, 0, 0, 0), table.period, Style::Small, true);
    top += paper::kOtherHeading - 60;
    Rule(6, paper::kRule);
    top += 60;
}

void PagePainter::PaintChart()
{
    const double chartHeight = pages.ChartHeight();
    if (chartHeight > 0) {
        PaintReportChart(painter,
                         QRectF(paper::kMargin, top, width - 2 * paper::kMargin, chartHeight - 160),
                         table.chart);
        top += chartHeight;
    }
}

void PagePainter::PaintEmpty()
{
    const QRectF box(paper::kMargin, top + 400, width - 2 * paper::kMargin, 900);
    painter.setPen(QPen(paper::kRule, 8));
    painter.setBrush(Qt::NoBrush);
    painter.drawRoundedRect(box, 60, 60);
    painter.setPen(paper::kInk);
    painter.setFont(paper::Font(Style::Title));
    painter.drawText(
        box.adjusted(0, 150, 0, -450), Qt::AlignCenter, Words::tr("Nothing to report"));
    painter.setPen(paper::kFaint);
    painter.setFont(paper::Font(Style::Period));
    painter.drawText(box.adjusted(0, 450, 0, -200),
                     Qt::AlignCenter,
                     Words::tr("The database holds no data for this period and filter."));
}

QRectF PagePainter::CellPlace(const ReportPages::PrintedColumn &column, double cellHeight) const
{
    return {
        column.left + paper::kCellPadding, top, column.width - 2 * paper::kCellPadding, cellHeight};
}

void PagePainter::PaintColumnHeadings()
{
    painter.fillRect(
        QRectF(paper::kMargin, top, width - 2 * paper::kMargin, paper::kColumnHeading - 30),
        paper::kBand);
    for (const auto &column : pages.columns) {
        const LayoutColumn &told = table.layout.columns.at(column.place);
        const QRectF place = CellPlace(column, paper::kColumnHeading - 30);
        painter.setPen(paper::kInk);
        const bool hasUnit = !told.unit.isEmpty();
        Write(hasUnit ? place.adjusted(0, 20, 0, -110) : place,
              told.heading,
              Style::Heading,
              told.IsNumber());
        painter.setPen(paper::kFaint);
        Write(place.adjusted(0, 130, 0, -15), told.unit, Style::Unit, told.IsNumber());
    }
    top += paper::kColumnHeading;
    painter.setPen(paper::kInk);
}

void PagePainter::PaintItem(const PageItem &item)
{
    switch (item.kind) {
    case PageItem::Kind::Heading:
    case PageItem::Kind::Continued:
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
        PaintSums(Counted(group.count), group.totals, 5);
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
    const QRectF line(paper::kMargin, top, width - 2 * paper::kMargin, paper::kLine);
    Write(line, Words::tr("(this row cannot be read)"), Style::Text);
}

void PagePainter::PaintGroupHeading(const PageItem &item)
{
    const QRectF place(paper::kMargin, top, width - 2 * paper::kMargin, paper::kLine * item.lines);
    QString title = GroupTitle(table, table.groups[static_cast<size_t>(item.index)]);
    if (item.kind == PageItem::Kind::Continued) {
        title = ContinuedTitle(title);
    }
    const double textWidth = place.width() - 2 * paper::kCellPadding;
    const auto lines = paper::Wrapped(title, Style::Strong, textWidth, kMostHeadingLines);
    painter.setPen(paper::kAccent);
    for (qsizetype line = 0; line < lines.size(); ++line) {
        WriteFitting(QRectF(place.left() + paper::kCellPadding,
                            top + paper::kLine * static_cast<double>(line),
                            textWidth,
                            paper::kLine),
                     lines.at(line),
                     Style::Strong,
                     false);
    }
    painter.setPen(paper::kInk);
}

void PagePainter::PaintRow(const PageItem &item)
{
    const CellRow &row = rows[static_cast<size_t>(item.index - firstRow)];
    for (const auto &column : pages.columns) {
        const LayoutColumn &told = table.layout.columns.at(column.place);
        const QString text = OneLine(DisplayText(told, row[static_cast<size_t>(column.place)]));
        QRectF place = CellPlace(column, paper::kLine);
        if (item.lines == 1) {
            Write(place, text, Style::Text, told.IsNumber());
            continue;
        }
        for (const QString &line : paper::Wrapped(text, Style::Text, place.width(), item.lines)) {
            WriteFitting(place, line, Style::Text, told.IsNumber());
            place.translate(0, paper::kLine);
        }
    }
    const double below = top + paper::kLine * item.lines;
    painter.setPen(QPen(paper::kRule, 3));
    painter.drawLine(QPointF(paper::kMargin, below), QPointF(width - paper::kMargin, below));
    painter.setPen(paper::kInk);
}

void PagePainter::PaintSums(const QString &label, const CellRow &sums, double ruleWidth)
{
    Rule(ruleWidth, paper::kInk);
    double labelEnd = width - paper::kMargin;
    for (const auto &column : pages.columns) {
        const Cell &cell = sums[static_cast<size_t>(column.place)];
        if (cell.index() == 0) {
            continue;
        }
        labelEnd = std::min(labelEnd, column.left);
        const LayoutColumn &told = table.layout.columns.at(column.place);
        Write(CellPlace(column, paper::kLine), DisplayText(told, cell), Style::Strong, true);
    }
    const double left = paper::kMargin + paper::kCellPadding;
    Write(QRectF(left, top, labelEnd - left, paper::kLine), label, Style::Strong);
}

void PagePainter::PaintClosing()
{
    top += paper::kLine / 2;
    const bool cut = table.IsCut();
    QString label = Words::tr("Total, %1").arg(Counted(table.rows.Count()));
    if (!table.groups.empty()) {
        label = Words::tr("Grand total, %1").arg(Counted(table.rows.Count()));
    } else if (cut) {
        label = Words::tr("Total of these %1").arg(table.rows.Count());
    }
    PaintSums(label, table.totals, 12);
    if (cut) {
        top += paper::kLine;
        PaintSums(Words::tr("Total of all %1").arg(Counted(table.allCount)), table.allTotals, 3);
    }
}

QString PagePainter::Counted(qint64 count) const
{
    LayoutColumn number;
    number.type = ColumnType::Count;
    QString noun = table.layout.noun;
    if (count == 1 && noun.endsWith(u's')) {
        noun.chop(1);
    }
    return DisplayText(number, count) + u' ' + noun;
}

void PagePainter::PaintFooter()
{
    top = height - paper::kMargin - 150;
    Rule(3, paper::kRule);
    const QRectF line(paper::kMargin, top + 30, width - 2 * paper::kMargin, 120);
    painter.setPen(paper::kFaint);
    Write(line, u"Tollbrook Administrator"_s, Style::Small);
    Write(line, Words::tr("Page %1 of %2").arg(page + 1).arg(pages.Count()), Style::Small, true);
}
