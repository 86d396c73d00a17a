#include "reports/chart_painter.h"

#include "reports/paper.h"

#include <QCoreApplication>
#include <QPainter>
#include <QPainterPath>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using paper::Style;

std::vector<double> AxisTicks(double most, int ticks)
{
    if (!(most > 0) || !std::isfinite(most)) {
        return {0, 1};
    }
    const double rough = most / ticks;
    const double power = std::pow(10.0, std::floor(std::log10(rough)));
    double step = 10 * power;
    for (const double nice : {1.0, 2.0, 2.5, 5.0}) {
        if (nice * power >= rough * 0.999999) {
            step = nice * power;
            break;
        }
    }
    std::vector<double> values;
    for (int tick = 0; values.empty() || values.back() < most * 0.999999; ++tick) {
        values.push_back(step * tick);
    }
    return values;
}

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportChart)
};

constexpr double kTitleHeight = 200;
constexpr double kAxisHeight = 150;
constexpr double kAxisWidth = 520;

QString Number(const ReportChart &chart, double value)
{
    LayoutColumn column;
    column.type = ColumnType::Amount;
    column.decimals = chart.decimals;
    return DisplayText(column, value);
}

QString TickText(double value)
{
    LayoutColumn column;
    column.type = ColumnType::Amount;
    const double rest = value - std::floor(value);
    column.decimals = rest == 0 ? 0 : value < 1 ? 2 : 1;
    return DisplayText(column, value);
}

double StackAt(const ChartPanel &panel, size_t point)
{
    double sum = 0;
    for (const auto &values : panel.series) {
        sum += std::max(values[point], 0.0);
    }
    return sum;
}

double HighestOf(const ChartPanel &panel)
{
    double highest = 0;
    const size_t points = panel.series.empty() ? 0 : panel.series.front().size();
    for (size_t point = 0; point < points; ++point) {
        highest = std::max(highest, StackAt(panel, point));
    }
    return highest;
}

class ChartPainter
{
public:
    ChartPainter(QPainter &onPainter, const ReportChart &ofChart)
        : painter(onPainter)
        , chart(ofChart)
    { }

    void Paint(QRectF place)
    {
        PaintTitle(place);
        place.setTop(place.top() + kTitleHeight);
        switch (chart.kind) {
        case ChartKind::Bars:
            PaintBars(place);
            break;
        case ChartKind::Days: {
            const auto ticks = AxisTicks(HighestOf(chart.panels.front()), 5);
            PaintArea(place, chart.panels.front(), ticks);
            break;
        }
        case ChartKind::DaysOfEach:
            PaintPanels(place);
            break;
        case ChartKind::None:
            break;
        }
    }

private:
    void Write(const QRectF &place, const QString &text, Style style, Qt::Alignment alignment)
    {
        painter.setFont(paper::Font(style));
        painter.drawText(place,
                         static_cast<int>(alignment | Qt::AlignVCenter),
                         paper::Elided(text, style, place.width()));
    }

    // The title at the left, what the colours mean at the right.
    void PaintTitle(const QRectF &place)
    {
        painter.setPen(paper::kInk);
        const QString unit = chart.unit.isEmpty() ? QString() : u", "_s + chart.unit;
        Write(QRectF(place.left(), place.top(), place.width() * 0.7, 150),
              chart.title + unit,
              Style::Strong,
              Qt::AlignLeft);
        if (chart.seriesNames.size() < 2) {
            return;
        }
        double right = place.right();
        for (qsizetype series = chart.seriesNames.size() - 1; series >= 0; --series) {
            const QString &name = chart.seriesNames.at(series);
            const double textWidth = paper::Metrics(Style::Small).horizontalAdvance(name);
            Write(QRectF(right - textWidth - 4, place.top(), textWidth + 4, 150),
                  name,
                  Style::Small,
                  Qt::AlignLeft);
            painter.fillRect(QRectF(right - textWidth - 120, place.top() + 40, 80, 70),
                             paper::kSeries[series]);
            right -= textWidth + 260;
        }
    }

    void PaintBars(const QRectF &place)
    {
        const double labelWidth = place.width() * 0.26;
        const double numberWidth = 700;
        const QRectF plot = place.adjusted(labelWidth, 0, -numberWidth, 0);
        const ChartPanel &panel = chart.panels.front();
        const double most = HighestOf(panel);
        const auto bars = static_cast<size_t>(chart.labels.size());
        const double step = place.height() / static_cast<double>(std::max<size_t>(bars, 1));
        for (size_t bar = 0; bar < bars; ++bar) {
            const double top = place.top() + step * static_cast<double>(bar);
            const QRectF line(place.left(), top, place.width(), step);
            painter.setPen(paper::kInk);
            Write(QRectF(line.left(), top, labelWidth - 80, step),
                  OneLine(chart.labels.at(static_cast<qsizetype>(bar))),
                  Style::Text,
                  Qt::AlignRight);
            double left = plot.left();
            for (size_t series = 0; series < panel.series.size(); ++series) {
                const double value = std::max(panel.series[series][bar], 0.0);
                const double length = most > 0 ? plot.width() * value / most : 0;
                painter.fillRect(QRectF(left, top + step * 0.16, length, step * 0.68),
                                 paper::kSeries[series]);
                left += length;
            }
            Write(QRectF(left + 60, top, numberWidth - 60, step),
                  Number(chart, StackAt(panel, bar)),
                  Style::Text,
                  Qt::AlignLeft);
        }
        painter.setPen(QPen(paper::kFaint, 6));
        painter.drawLine(plot.topLeft(), plot.bottomLeft());
        painter.setPen(paper::kInk);
    }

    // Two beside each other; all with one scale, so that heights compare.
    void PaintPanels(const QRectF &place)
    {
        double most = 0;
        for (const ChartPanel &panel : chart.panels) {
            most = std::max(most, HighestOf(panel));
        }
        const auto ticks = AxisTicks(most, 3);
        const size_t lines = (chart.panels.size() + 1) / 2;
        const QSizeF size((place.width() - 200) / 2, place.height() / static_cast<double>(lines));
        for (size_t number = 0; number < chart.panels.size(); ++number) {
            const double left = place.left() + (number % 2 == 0 ? 0 : size.width() + 200);
            const size_t line = number / 2;
            const double top = place.top() + size.height() * static_cast<double>(line);
            const QRectF whole(QPointF(left, top), size);
            const ChartPanel &panel = chart.panels[number];
            painter.setPen(paper::kInk);
            Write(QRectF(whole.left(), whole.top(), size.width() * 0.5, 130),
                  OneLine(panel.title),
                  Style::Heading,
                  Qt::AlignLeft);
            painter.setPen(paper::kFaint);
            Write(QRectF(whole.left() + size.width() * 0.5, whole.top(), size.width() * 0.5, 130),
                  PeakText(panel),
                  Style::Small,
                  Qt::AlignRight);
            PaintArea(whole.adjusted(0, 140, 0, -40), panel, ticks);
        }
    }

    [[nodiscard]] QString PeakText(const ChartPanel &panel) const
    {
        size_t peak = 0;
        for (size_t day = 0; day < panel.series.front().size(); ++day) {
            peak = StackAt(panel, day) > StackAt(panel, peak) ? day : peak;
        }
        const QString day = chart.firstDay.addDays(static_cast<qint64>(peak)).toString(Qt::ISODate);
        return Words::tr("peak %1 on %2").arg(Number(chart, StackAt(panel, peak)), day);
    }

    void PaintArea(const QRectF &place, const ChartPanel &panel, const std::vector<double> &ticks)
    {
        const QRectF plot = place.adjusted(kAxisWidth, 20, -20, -kAxisHeight);
        PaintValueAxis(plot, ticks);
        const size_t days = panel.series.front().size();
        const double step = plot.width() / static_cast<double>(days);
        painter.setPen(Qt::NoPen);
        for (size_t series = panel.series.size(); series-- > 0;) {
            painter.setBrush(paper::kSeries[series]);
            painter.drawPath(Outline(plot, panel, series, ticks.back()));
        }
        painter.setBrush(Qt::NoBrush);
        if (HighestOf(panel) <= 0) {
            painter.setPen(paper::kFaint);
            Write(plot, Words::tr("All values are zero"), Style::Small, Qt::AlignHCenter);
        }
        PaintDayAxis(plot, static_cast<qint64>(days), step);
    }

    // Steps of a day's width from the ground up to the sum of this series and those below it.
    [[nodiscard]] static QPainterPath
    Outline(const QRectF &plot, const ChartPanel &panel, size_t upTo, double most)
    {
        const size_t days = panel.series.front().size();
        const double step = plot.width() / static_cast<double>(days);
        QPainterPath path(plot.bottomLeft());
        for (size_t day = 0; day < days; ++day) {
            double sum = 0;
            for (size_t series = 0; series <= upTo; ++series) {
                sum += std::max(panel.series[series][day], 0.0);
            }
            const double y = plot.bottom() - plot.height() * sum / most;
            path.lineTo(plot.left() + step * static_cast<double>(day), y);
            path.lineTo(plot.left() + step * static_cast<double>(day + 1), y);
        }
        path.lineTo(plot.bottomRight());
        path.closeSubpath();
        return path;
    }

    void PaintValueAxis(const QRectF &plot, const std::vector<double> &ticks)
    {
        for (const double tick : ticks) {
            const double y = plot.bottom() - plot.height() * tick / ticks.back();
            painter.setPen(QPen(tick == 0 ? paper::kFaint : paper::kRule, tick == 0 ? 6 : 3));
            painter.drawLine(QPointF(plot.left(), y), QPointF(plot.right(), y));
            painter.setPen(paper::kFaint);
            Write(QRectF(plot.left() - kAxisWidth, y - 60, kAxisWidth - 50, 120),
                  TickText(tick),
                  Style::Small,
                  Qt::AlignRight);
        }
    }

    // The first days of months or years as far as they stand apart; days when there are few.
    void PaintDayAxis(const QRectF &plot, qint64 days, double step)
    {
        constexpr double kLabelWidth = 480;
        const double room = kLabelWidth * 1.2;
        double freeFrom = plot.left();
        for (qint64 day = 0; day < days; ++day) {
            const QDate date = chart.firstDay.addDays(day);
            const double x = plot.left() + step * static_cast<double>(day);
            const bool marked = days <= 45 || date.day() == 1;
            if (!marked || x < freeFrom || x + kLabelWidth > plot.right() + 120) {
                continue;
            }
            painter.setPen(QPen(paper::kFaint, 4));
            painter.drawLine(QPointF(x, plot.bottom()), QPointF(x, plot.bottom() + 30));
            painter.setPen(paper::kFaint);
            Write(QRectF(x, plot.bottom() + 30, kLabelWidth, 110),
                  date.toString(Qt::ISODate),
                  Style::Small,
                  Qt::AlignLeft);
            freeFrom = x + room;
        }
    }

    QPainter &painter;
    const ReportChart &chart;
};

} // namespace

void PaintReportChart(QPainter &painter, const QRectF &place, const ReportChart &chart)
{
    ChartPainter(painter, chart).Paint(place);
}
