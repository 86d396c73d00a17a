#include "reports/chart_builder.h"

#include "base/text.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostDays = 36'600; // a hundred years; days before them are left out
constexpr qint64 kDaysByDay = 90; // longer periods are summed by week
constexpr qint64 kDaysByWeek = 366; // longer ones by month

struct LabelSums
{
    QString label;
    std::vector<double> values; // one for each value of the chart

    [[nodiscard]] double Whole() const
    {
        double sum = 0;
        for (const double value : values) {
            sum += value;
        }
        return sum;
    }
};

// Values of each day, by the number of the day.
using DayValues = std::map<qint64, std::vector<double>>;

class ChartBuilder
{
public:
    ChartBuilder(ReportTable &ofTable, ReportQuery &fromQuery)
        : table(ofTable)
        , query(fromQuery)
        , wanted(ofTable.layout.chart)
        , chart(ofTable.chart)
    { }

    [[nodiscard]] bool Build()
    {
        Describe();
        switch (wanted.kind) {
        case ChartKind::Bars:
            return BuildBars();
        case ChartKind::Days:
            return BuildDays();
        case ChartKind::DaysOfEach:
            return BuildDaysOfEach();
        case ChartKind::None:
            break;
        }
        return true;
    }

private:
    void Describe()
    {
        chart.kind = wanted.kind;
        chart.title = wanted.title;
        for (const int place : wanted.values) {
            const LayoutColumn &column = table.layout.columns.at(place);
            chart.seriesNames += column.heading;
            chart.unit = column.unit;
            chart.decimals = column.decimals;
        }
    }

    [[nodiscard]] Summing SumBy(std::vector<int> keys) const
    {
        Summing summing;
        summing.keys = std::move(keys);
        for (const int place : wanted.values) {
            if (table.layout.columns.at(place).type != ColumnType::Count) {
                summing.sums.push_back(place);
            }
        }
        return summing;
    }

    [[nodiscard]] std::vector<double> ValuesOf(const SummedRow &row) const
    {
        std::vector<double> values;
        size_t sum = 0;
        for (const int place : wanted.values) {
            const LayoutColumn &column = table.layout.columns.at(place);
            const double rate = column.isMoney ? table.currency.rate : 1;
            values.push_back(column.type == ColumnType::Count ? static_cast<double>(row.count)
                                                              : row.sums[sum++].Value() * rate);
        }
        return values;
    }

    [[nodiscard]] static QString TextOf(const Cell &cell)
    {
        const auto *text = std::get_if<QString>(&cell);
        return text != nullptr ? *text : QString();
    }

    // The labels with the largest values, the largest first.
    [[nodiscard]] bool FindTop(std::vector<LabelSums> &labels)
    {
        const bool done = query.Sum(SumBy({wanted.label}), [&](SummedRow &&row) {
            labels.push_back({TextOf(row.keys.front()), ValuesOf(row)});
        });
        std::sort(labels.begin(), labels.end(), [](const LabelSums &one, const LabelSums &other) {
            return one.Whole() != other.Whole() ? one.Whole() > other.Whole()
                                                : one.label < other.label;
        });
        const auto top = static_cast<size_t>(wanted.top);
        if (labels.size() > top) {
            labels.resize(top);
        }
        return done;
    }

    [[nodiscard]] bool BuildBars()
    {
        std::vector<LabelSums> labels;
        if (!FindTop(labels)) {
            return false;
        }
        ChartPanel panel;
        panel.series.resize(static_cast<size_t>(wanted.values.size()));
        for (const LabelSums &label : labels) {
            chart.labels += label.label;
            for (size_t value = 0; value < panel.series.size(); ++value) {
                panel.series[value].push_back(label.values[value]);
            }
        }
        Add(std::move(panel));
        return true;
    }

    void AddDay(DayValues &days, const Cell &day, const SummedRow &row) const
    {
        const QDate date = QDate::fromString(TextOf(day).left(10), Qt::ISODate);
        if (!date.isValid()) {
            return;
        }
        auto &values = days[date.toJulianDay()];
        const auto more = ValuesOf(row);
        values.resize(more.size());
        for (size_t value = 0; value < more.size(); ++value) {
            values[value] += more[value];
        }
    }

    // Where an axis begins and ends: with the period, or with the days that there are.
    void LayOutSteps(qint64 firstOfData, qint64 lastOfData)
    {
        const bool bounded = table.firstDay.isValid() && table.lastDay.isValid();
        const qint64 last = bounded ? table.lastDay.toJulianDay() : lastOfData;
        first = bounded ? table.firstDay.toJulianDay() : firstOfData;
        first = std::max(first, last - kMostDays);
        const qint64 days = last - first + 1;
        chart.step = days > kDaysByWeek ? ChartStep::Month
            : days > kDaysByDay         ? ChartStep::Week
                                        : ChartStep::Day;
        stepOfDay.resize(static_cast<size_t>(days));
        for (qint64 day = first; day <= last; ++day) {
            const QDate date = QDate::fromJulianDay(day);
            const bool begins = chart.steps.empty() || chart.step == ChartStep::Day
                || (chart.step == ChartStep::Week && date.dayOfWeek() == Qt::Monday)
                || (chart.step == ChartStep::Month && date.day() == 1);
            if (begins) {
                chart.steps.push_back(date);
            }
            stepOfDay[static_cast<size_t>(day - first)] = chart.steps.size() - 1;
        }
    }

    [[nodiscard]] ChartPanel PanelOf(const DayValues &days) const
    {
        ChartPanel panel;
        panel.series.resize(static_cast<size_t>(wanted.values.size()),
                            std::vector<double>(chart.steps.size()));
        for (auto day = days.lower_bound(first); day != days.end(); ++day) {
            const auto place = static_cast<size_t>(day->first - first);
            for (size_t value = 0; value < panel.series.size() && place < stepOfDay.size();
                 ++value) {
                panel.series[value][stepOfDay[place]] += day->second[value];
            }
        }
        return panel;
    }

    [[nodiscard]] static bool IsAllZero(const ChartPanel &panel)
    {
        return std::ranges::all_of(panel.series, [](const std::vector<double> &values) {
            return std::ranges::all_of(values, [](double value) { return value <= 0; });
        });
    }

    void Add(ChartPanel panel)
    {
        if (!IsAllZero(panel)) {
            chart.panels.push_back(std::move(panel));
        }
    }

    [[nodiscard]] bool BuildDays()
    {
        DayValues days;
        const bool done = query.Sum(SumBy({wanted.day}),
                                    [&](SummedRow &&row) { AddDay(days, row.keys.front(), row); });
        if (!days.empty()) {
            LayOutSteps(days.begin()->first, days.rbegin()->first);
            Add(PanelOf(days));
        }
        return done;
    }

    [[nodiscard]] bool BuildDaysOfEach()
    {
        std::vector<LabelSums> labels;
        if (!FindTop(labels)) {
            return false;
        }
        std::map<QString, DayValues> daysOf;
        for (const LabelSums &label : labels) {
            daysOf[label.label.toCaseFolded()];
        }
        Summing summing = SumBy({wanted.label, wanted.day});
        summing.accept = [&](std::string_view label) {
            return daysOf.contains(TextFromUtf8(label).toCaseFolded());
        };
        const bool done = query.Sum(summing, [&](SummedRow &&row) {
            AddDay(daysOf[TextOf(row.keys.front()).toCaseFolded()], row.keys.back(), row);
        });
        AddPanels(labels, daysOf);
        return done;
    }

    // All panels show the same days, so that peaks of the same day stand above each other.
    void AddPanels(const std::vector<LabelSums> &labels, std::map<QString, DayValues> &daysOf)
    {
        qint64 firstOfData = std::numeric_limits<qint64>::max();
        qint64 lastOfData = 0;
        for (const auto &[label, days] : daysOf) {
            if (!days.empty()) {
                firstOfData = std::min(firstOfData, days.begin()->first);
                lastOfData = std::max(lastOfData, days.rbegin()->first);
            }
        }
        if (lastOfData == 0) {
            return;
        }
        LayOutSteps(firstOfData, lastOfData);
        for (const LabelSums &label : labels) {
            ChartPanel panel = PanelOf(daysOf[label.label.toCaseFolded()]);
            panel.title = label.label;
            Add(std::move(panel));
        }
    }

    ReportTable &table;
    ReportQuery &query;
    const LayoutChart &wanted;
    ReportChart &chart;
    qint64 first = 0; // day of the axis
    std::vector<size_t> stepOfDay; // for each day of the axis
};

} // namespace

bool BuildChart(ReportTable &table, ReportQuery &query)
{
    return ChartBuilder(table, query).Build();
}
