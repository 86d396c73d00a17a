#include "reports/chart_builder.h"

#include "base/text.h"

#include <algorithm>
#include <map>

using namespace Qt::StringLiterals;

namespace {

constexpr qint64 kMostDays = 36'600; // a hundred years; days before them are left out

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
            const bool counted = table.layout.columns.at(place).type == ColumnType::Count;
            values.push_back(counted ? static_cast<double>(row.count) : row.sums[sum++].Value());
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
        chart.panels.push_back(std::move(panel));
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

    [[nodiscard]] ChartPanel PanelOf(const DayValues &days, qint64 first, qint64 last) const
    {
        ChartPanel panel;
        panel.series.resize(static_cast<size_t>(wanted.values.size()),
                            std::vector<double>(static_cast<size_t>(last - first + 1)));
        for (auto day = days.lower_bound(first); day != days.end(); ++day) {
            for (size_t value = 0; value < panel.series.size(); ++value) {
                panel.series[value][static_cast<size_t>(day->first - first)] = day->second[value];
            }
        }
        return panel;
    }

    [[nodiscard]] bool BuildDays()
    {
        DayValues days;
        const bool done = query.Sum(SumBy({wanted.day}),
                                    [&](SummedRow &&row) { AddDay(days, row.keys.front(), row); });
        if (!days.empty()) {
            const qint64 last = days.rbegin()->first;
            const qint64 first = std::max(days.begin()->first, last - kMostDays);
            chart.firstDay = QDate::fromJulianDay(first);
            chart.panels.push_back(PanelOf(days, first, last));
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
        qint64 first = std::numeric_limits<qint64>::max();
        qint64 last = 0;
        for (const auto &[label, days] : daysOf) {
            if (!days.empty()) {
                first = std::min(first, days.begin()->first);
                last = std::max(last, days.rbegin()->first);
            }
        }
        if (last == 0) {
            return;
        }
        first = std::max(first, last - kMostDays);
        chart.firstDay = QDate::fromJulianDay(first);
        for (const LabelSums &label : labels) {
            ChartPanel panel = PanelOf(daysOf[label.label.toCaseFolded()], first, last);
            panel.title = label.label;
            chart.panels.push_back(std::move(panel));
        }
    }

    ReportTable &table;
    ReportQuery &query;
    const LayoutChart &wanted;
    ReportChart &chart;
};

} // namespace

bool BuildChart(ReportTable &table, ReportQuery &query)
{
    return ChartBuilder(table, query).Build();
}
