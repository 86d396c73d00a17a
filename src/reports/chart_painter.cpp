#include "reports/chart_painter.h"

#include "reports/unit_scale.h"

#include <QCoreApplication>

#include <algorithm>
#include <cmath>

using namespace Qt::StringLiterals;
using paper::Style;

double ChartHeight(const ReportChart &chart)
{
    if (chart.panels.empty()) {
        return 0;
    }
    switch (chart.kind) {
    case ChartKind::Bars:
        return 420.0 + 220.0 * static_cast<double>(chart.labels.size());
    case ChartKind::Days:
        return 2300;
    case ChartKind::DaysOfEach: {
        const size_t lines = (chart.panels.size() + 1) / 2;
        return 420.0 + 720.0 * static_cast<double>(lines);
    }
    case ChartKind::None:
        break;
    }
    return 0;
}

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

std::vector<size_t> MarkedSteps(const ReportChart &chart, int most)
{
    const size_t steps = chart.steps.size();
    const bool isMonths = chart.step == ChartStep::Month;
    size_t every = 1;
    const auto room = static_cast<size_t>(std::max(most, 1));
    const size_t days[] = {1, 2, 7, 14, 28, 56, 112};
    const size_t weeks[] = {1, 2, 4, 8, 13, 26, 52};
    const size_t months[] = {1, 2, 3, 6, 12, 24, 60, 120, 240, 600, 1200};
    const auto choose = [&](const auto &distances) {
        for (const size_t distance : distances) {
            every = distance;
            if ((steps + distance - 1) / distance <= room) {
                return;
            }
        }
    };
    if (isMonths) {
        choose(months);
    } else if (chart.step == ChartStep::Week) {
        choose(weeks);
    } else {
        choose(days);
    }
    std::vector<size_t> marked;
    size_t first = 0;
    while (isMonths && first < steps
           && (chart.steps[first].month() - 1) % std::min<int>(static_cast<int>(every), 12) != 0) {
        ++first;
    }
    for (size_t step = first; step < steps; step += every) {
        marked.push_back(step);
    }
    return marked;
}

namespace {

struct Words
{
    Q_DECLARE_TR_FUNCTIONS(ReportChart)
};

constexpr double kTitleHeight = 200;
constexpr double kAxisHeight = 150;
constexpr double kLegendGap = 140; // before each colour
constexpr double kLegendMark = 120; // the colour, and what stands between it and its name

QString Number(double value, int decimals)
{
    LayoutColumn column;
    column.type = ColumnType::Amount;
    column.decimals = decimals;
    return DisplayText(column, value);
}

// As few decimals as tell all ticks of an axis exactly.
int DecimalsOf(const std::vector<double> &ticks)
{
    constexpr int kMostDecimals = 6;
    double scaled = ticks.at(1);
    int decimals = 0;
    while (decimals < kMostDecimals && std::abs(scaled - std::round(scaled)) > 1e-6) {
        scaled *= 10;
        ++decimals;
    }
    return decimals;
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

QString WithUnit(const QString &number, const QString &unit)
{
    return unit.isEmpty() ? number : number + QChar(QChar::Nbsp) + unit;
}

class ChartPainter
{
public:
    ChartPainter(Canvas &onCanvas, const ReportChart &ofChart) : canvas(onCanvas), chart(ofChart)
    {
        for (const ChartPanel &panel : chart.panels) {
            most = std::max(most, HighestOf(panel));
        }
    }

    void Paint(QRectF place)
    {
        const bool hasAxis = chart.kind != ChartKind::Bars;
        if (hasAxis) {
            ChooseUnit();
        }
        PaintTitle(place, hasAxis);
        place.setTop(place.top() + kTitleHeight);
        switch (chart.kind) {
        case ChartKind::Bars:
            PaintBars(place);
            break;
        case ChartKind::Days:
            PaintArea(place, chart.panels.front(), AxisTicks(most / scale.divisor, 5));
            break;
        case ChartKind::DaysOfEach:
            PaintPanels(place);
            break;
        case ChartKind::None:
            break;
        }
    }

private:
    [[nodiscard]] QString Unit() const { return scale.steps > 0 ? scale.unit : chart.unit; }

    // An axis has no room for more digits than these.
    void ChooseUnit()
    {
        constexpr double kTooMany = 1e6;
        while (most / scale.divisor >= kTooMany) {
            const auto larger = scale.Larger(chart.unit);
            if (!larger) {
                return;
            }
            scale = *larger;
        }
    }

    // The title at the left, what the colours mean at the right.
    void PaintTitle(const QRectF &place, bool hasAxis)
    {
        QString title = chart.title;
        if (hasAxis && !Unit().isEmpty()) {
            title += u", "_s + Unit();
        }
        if (hasAxis && chart.step != ChartStep::Day) {
            title += u", "_s
                + (chart.step == ChartStep::Week ? Words::tr("summed by week")
                                                 : Words::tr("summed by month"));
        }
        const double legend = LegendWidth();
        canvas.WriteWhole({place.left(), place.top(), place.width() - legend, 150},
                          title,
                          {.style = Style::Strong});
        double left = place.right() - legend;
        for (qsizetype series = 0; series < chart.seriesNames.size() && legend > 0; ++series) {
            const QString &name = chart.seriesNames.at(series);
            const double width = paper::Metrics(Style::Small).horizontalAdvance(name);
            canvas.Fill({left + kLegendGap, place.top() + 40, 80, 70}, paper::kSeries[series]);
            left += kLegendGap + kLegendMark;
            canvas.Write({left, place.top(), width + 1, 150}, name, {.style = Style::Small});
            left += width;
        }
    }

    // What the colours mean; nothing where there is one.
    [[nodiscard]] double LegendWidth() const
    {
        double width = 0;
        for (const QString &name : chart.seriesNames) {
            width +=
                kLegendGap + kLegendMark + paper::Metrics(Style::Small).horizontalAdvance(name);
        }
        return chart.seriesNames.size() < 2 ? 0 : width + 1;
    }

    void PaintBars(const QRectF &place)
    {
        const double labelWidth = place.width() * 0.26;
        const ChartPanel &panel = chart.panels.front();
        const auto bars = static_cast<size_t>(chart.labels.size());
        QStringList numbers;
        double numberWidth = 0;
        for (size_t bar = 0; bar < bars; ++bar) {
            numbers += WithUnit(Number(StackAt(panel, bar), chart.decimals), chart.unit);
            numberWidth = std::max(numberWidth,
                                   paper::Metrics(Style::Text).horizontalAdvance(numbers.back()));
        }
        numberWidth = std::min(numberWidth + 80, place.width() * 0.45);
        const QRectF plot = place.adjusted(labelWidth, 0, -numberWidth, 0);
        const double step = place.height() / static_cast<double>(std::max<size_t>(bars, 1));
        for (size_t bar = 0; bar < bars; ++bar) {
            const double top = place.top() + step * static_cast<double>(bar);
            canvas.Write({place.left(), top, labelWidth - 80, step},
                         OneLine(chart.labels.at(static_cast<qsizetype>(bar))),
                         {.style = Style::Text, .side = Qt::AlignRight});
            double left = plot.left();
            for (size_t series = 0; series < panel.series.size(); ++series) {
                const double value = std::max(panel.series[series][bar], 0.0);
                const double length = most > 0 ? plot.width() * value / most : 0;
                if (length > 0) {
                    canvas.Fill({left, top + step * 0.16, length, step * 0.68},
                                paper::kSeries[series]);
                }
                left += length;
            }
            canvas.WriteWhole({left + 60, top, numberWidth - 60, step},
                              numbers.at(static_cast<qsizetype>(bar)),
                              {.style = Style::Text});
        }
        canvas.Line(plot.topLeft(), plot.bottomLeft(), 6, paper::kFaint);
    }

    // Two beside each other, or more where the place is low; all with one scale, so that heights compare.
    void PaintPanels(const QRectF &place)
    {
        constexpr double kGap = 200;
        constexpr double kLeastHeight = 540;
        constexpr size_t kMostBeside = 5;
        const auto ticks = AxisTicks(most / scale.divisor, 3);
        const size_t panels = chart.panels.size();
        size_t beside = 2;
        const auto heightOf = [&] {
            const size_t below = (panels + beside - 1) / beside;
            return place.height() / static_cast<double>(below);
        };
        while (heightOf() < kLeastHeight && beside < kMostBeside) {
            ++beside;
        }
        const auto count = static_cast<double>(beside);
        const QSizeF size((place.width() - kGap * (count - 1)) / count, heightOf());
        for (size_t number = 0; number < panels; ++number) {
            const double left =
                place.left() + (size.width() + kGap) * static_cast<double>(number % beside);
            const size_t above = number / beside;
            const double top = place.top() + size.height() * static_cast<double>(above);
            const QRectF whole(QPointF(left, top), size);
            const ChartPanel &panel = chart.panels[number];
            const QString peak = PeakText(panel);
            const double peakWidth = std::min(
                paper::Metrics(Style::Small).horizontalAdvance(peak) + 4, size.width() * 0.7);
            canvas.Write({left, top, size.width() - peakWidth - 60, 130},
                         OneLine(panel.title),
                         {.style = Style::Heading});
            canvas.WriteWhole(
                {whole.right() - peakWidth, top, peakWidth, 130},
                peak,
                {.style = Style::Small, .colour = paper::kFaint, .side = Qt::AlignRight});
            PaintArea(whole.adjusted(0, 140, 0, -40), panel, ticks);
        }
    }

    [[nodiscard]] QString PeakText(const ChartPanel &panel) const
    {
        size_t peak = 0;
        for (size_t step = 0; step < panel.series.front().size(); ++step) {
            peak = StackAt(panel, step) > StackAt(panel, peak) ? step : peak;
        }
        const QString number =
            Number(StackAt(panel, peak) / scale.divisor, std::max(chart.decimals, 0));
        const QDate day = chart.steps[peak];
        switch (chart.step) {
        case ChartStep::Week:
            return Words::tr("peak %1 in the week of %2").arg(number, day.toString(Qt::ISODate));
        case ChartStep::Month:
            return Words::tr("peak %1 in %2").arg(number, day.toString(u"yyyy-MM"_s));
        case ChartStep::Day:
            break;
        }
        return Words::tr("peak %1 on %2").arg(number, day.toString(Qt::ISODate));
    }

    void PaintArea(const QRectF &place, const ChartPanel &panel, const std::vector<double> &ticks)
    {
        const int decimals = DecimalsOf(ticks);
        double axisWidth = 0;
        for (const double tick : ticks) {
            axisWidth = std::max(
                axisWidth, paper::Metrics(Style::Small).horizontalAdvance(Number(tick, decimals)));
        }
        const QRectF plot = place.adjusted(axisWidth + 70, 20, -20, -kAxisHeight);
        for (const double tick : ticks) {
            const double y = plot.bottom() - plot.height() * tick / ticks.back();
            canvas.Line({plot.left(), y},
                        {plot.right(), y},
                        tick == 0 ? 6 : 3,
                        tick == 0 ? paper::kFaint : paper::kRule);
            canvas.WriteWhole(
                {place.left(), y - 60, axisWidth + 20, 120},
                Number(tick, decimals),
                {.style = Style::Small, .colour = paper::kFaint, .side = Qt::AlignRight});
        }
        for (size_t series = panel.series.size(); series-- > 0;) {
            canvas.FillPath(Outline(plot, panel, series, ticks.back() * scale.divisor),
                            paper::kSeries[series]);
        }
        PaintDayAxis(plot);
    }

    // A flat top for each step, from the ground up to the sum of this series and those below it.
    [[nodiscard]] static QPainterPath
    Outline(const QRectF &plot, const ChartPanel &panel, size_t upTo, double top)
    {
        const size_t steps = panel.series.front().size();
        const double width = plot.width() / static_cast<double>(steps);
        QPainterPath path(plot.bottomLeft());
        for (size_t step = 0; step < steps; ++step) {
            double sum = 0;
            for (size_t series = 0; series <= upTo; ++series) {
                sum += std::max(panel.series[series][step], 0.0);
            }
            const double y = plot.bottom() - plot.height() * sum / top;
            path.lineTo(plot.left() + width * static_cast<double>(step), y);
            path.lineTo(plot.left() + width * static_cast<double>(step + 1), y);
        }
        path.lineTo(plot.bottomRight());
        path.closeSubpath();
        return path;
    }

    void PaintDayAxis(const QRectF &plot)
    {
        const QString form = chart.step == ChartStep::Month ? u"yyyy-MM"_s : u"yyyy-MM-dd"_s;
        const double labelWidth =
            paper::Metrics(Style::Small).horizontalAdvance(chart.steps.front().toString(form));
        const double width = plot.width() / static_cast<double>(chart.steps.size());
        for (const size_t step :
             MarkedSteps(chart, static_cast<int>(plot.width() / (labelWidth * 1.25)))) {
            const double x = plot.left() + width * static_cast<double>(step);
            canvas.Line({x, plot.bottom()}, {x, plot.bottom() + 30}, 4, paper::kFaint);
            // The last one may stand so far to the right that its text begins before its mark.
            const double left = std::min(x, plot.right() + 16 - labelWidth);
            canvas.WriteWhole({left, plot.bottom() + 30, labelWidth + 4, 110},
                              chart.steps[step].toString(form),
                              {.style = Style::Small, .colour = paper::kFaint});
        }
    }

    Canvas &canvas;
    const ReportChart &chart;
    double most = 0; // the highest of all stacks
    UnitScale scale;
};

} // namespace

void PaintReportChart(Canvas &canvas, const QRectF &place, const ReportChart &chart)
{
    ChartPainter(canvas, chart).Paint(place);
}
