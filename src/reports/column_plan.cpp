#include "reports/column_plan.h"

#include "reports/paper.h"

#include <cmath>
#include <numeric>

using paper::Style;

namespace {

constexpr int kUsualPixels = 85;
constexpr int kLeastPixels = 62; // smaller type would be hard to read: larger units come first
constexpr int kPixelStep = 4;
constexpr double kPadding = 2 * paper::kCellPadding;
constexpr double kNumberPadding =
    kPadding + 40; // two numbers beside each other are not read as one
constexpr double kAddressEms = 9; // texts as short as an address are never broken
constexpr double kNameEms =
    22; // longer ones take several lines before a table takes the whole page
constexpr double kMostHeading = 620; // longer headings may be cut
constexpr double kShortHeading = 240; // one of a short word is, where nothing else helps
constexpr double kBetween = 190; // columns of a table that is narrower than the page
constexpr double kNarrow = 0.78; // of the room: a table that needs more takes all of it

class Planner
{
public:
    Planner(const ReportTable &ofTable, double ofRoom, const QStringList &leads)
        : table(ofTable)
        , room(ofRoom)
        , leadTexts(leads)
    {
        for (const int place : table.layout.PrintedColumns()) {
            plan.columns.push_back({place, 0, 0, {}});
        }
    }

    [[nodiscard]] ColumnPlan Plan()
    {
        plan.pixels = kUsualPixels;
        while (!Fits() && MakeSmaller()) { }
        Spread();
        double left = 0;
        for (PlannedColumn &column : plan.columns) {
            column.left = left;
            left += column.width;
        }
        plan.width = left;
        return plan;
    }

private:
    [[nodiscard]] const LayoutColumn &Told(const PlannedColumn &column) const
    {
        return table.layout.columns.at(column.place);
    }

    // Nothing is known of a table that no RowCollector has filled.
    [[nodiscard]] ColumnReach ReachOf(const PlannedColumn &column) const
    {
        const auto place = static_cast<size_t>(column.place);
        return place < table.reach.size() ? table.reach[place] : ColumnReach();
    }

    [[nodiscard]] static double HeadingWidth(const PlannedColumn &column, const LayoutColumn &told)
    {
        const double heading = paper::Metrics(Style::Heading).horizontalAdvance(told.heading);
        const double unit =
            paper::Metrics(Style::Unit).horizontalAdvance(ColumnPlan::UnitOf(column, told));
        return std::max(heading, unit);
    }

    // What the column needs so that nothing of it is cut; texts may take several lines.
    [[nodiscard]] double Least(const PlannedColumn &column) const
    {
        const LayoutColumn &told = Told(column);
        const ColumnReach reached = ReachOf(column);
        const double heading = std::min(HeadingWidth(column, told), roomForHeadings);
        if (told.type == ColumnType::Text) {
            const double whole = std::min(reached.ems, kAddressEms);
            const double ems = std::max(LeastEms(table.layout, column.place), whole);
            return std::max(heading, ems * plan.pixels) + kPadding;
        }
        if (!told.IsNumber()) {
            constexpr double kMostEms = 24; // a text in place of a day
            return std::max(heading, std::min(reached.ems, kMostEms) * plan.pixels) + kPadding;
        }
        const QFontMetricsF &metrics = paper::Metrics(Style::Strong, plan.pixels);
        double width = std::max(
            heading,
            paper::Metrics(Style::Unit).horizontalAdvance(ColumnPlan::UnitOf(column, told)));
        for (const double number : {reached.least, reached.most}) {
            width = std::max(
                width,
                metrics.horizontalAdvance(ColumnPlan::TextOf(column, told, CellOf(told, number))));
        }
        return width + kNumberPadding;
    }

    [[nodiscard]] static Cell CellOf(const LayoutColumn &told, double number)
    {
        constexpr double kSafely = 9e18; // as a whole number
        return told.type == ColumnType::Amount || std::abs(number) > kSafely
            ? Cell(number)
            : Cell(static_cast<qint64>(number));
    }

    // What it takes to have all on one line.
    [[nodiscard]] double Natural(const PlannedColumn &column) const
    {
        const LayoutColumn &told = Told(column);
        const double heading = HeadingWidth(column, told) + kPadding;
        return told.type == ColumnType::Text
            ? std::max({heading,
                        std::min(ReachOf(column).ems, kNameEms) * plan.pixels + kPadding,
                        Least(column)})
            : std::max(heading, Least(column));
    }

    [[nodiscard]] bool HasSum(const PlannedColumn &column) const { return Told(column).total; }

    // How much wider the columns before the first sum must be for what stands there in a line of sums.
    [[nodiscard]] double LeadLack(const std::vector<double> &widths) const
    {
        double lead = 0;
        for (size_t place = 0; place < widths.size() && !HasSum(plan.columns[place]); ++place) {
            lead += widths[place];
        }
        if (lead == 0 || lead >= room) {
            return 0;
        }
        const QFontMetricsF &metrics = paper::Metrics(Style::Strong, plan.pixels);
        double wanted = 0;
        for (const QString &text : leadTexts) {
            wanted = std::max(wanted, metrics.horizontalAdvance(text) + kPadding);
        }
        return std::max(0.0, std::min(wanted, room) - lead);
    }

    template <typename Measure>
    [[nodiscard]] std::vector<double> WidthsBy(Measure measure) const
    {
        std::vector<double> widths;
        for (const PlannedColumn &column : plan.columns) {
            widths.push_back(measure(column));
        }
        const double lack = LeadLack(widths);
        size_t widest = 0;
        for (size_t place = 0; place < widths.size() && !HasSum(plan.columns[place]); ++place) {
            widest = widths[place] > widths[widest] ? place : widest;
        }
        widths[widest] += lack;
        return widths;
    }

    [[nodiscard]] static double Sum(const std::vector<double> &widths)
    {
        return std::accumulate(widths.begin(), widths.end(), 0.0);
    }

    [[nodiscard]] std::vector<double> LeastWidths() const
    {
        return WidthsBy([this](const PlannedColumn &column) { return Least(column); });
    }

    [[nodiscard]] bool Fits() const { return Sum(LeastWidths()) <= room; }

    // Smaller type first, then long headings that may be cut, then larger units, then short headings, then
    // type of any size. False at the very end.
    bool MakeSmaller()
    {
        const int smaller = plan.pixels - kPixelStep;
        if (smaller >= kLeastPixels) {
            plan.pixels = smaller;
            return true;
        }
        if (roomForHeadings > kShortHeading) {
            roomForHeadings = kShortHeading;
            plan.pixels = kUsualPixels;
            return true;
        }
        if (EnlargeUnits()) {
            return true;
        }
        if (roomForHeadings > 0) {
            roomForHeadings = 0;
            return true;
        }
        plan.pixels = std::max(1, smaller);
        return plan.pixels > 1;
    }

    // Of the widest number's unit, in all columns that have it, so that they still compare.
    bool EnlargeUnits()
    {
        const PlannedColumn *widest = nullptr;
        for (const PlannedColumn &column : plan.columns) {
            const bool counts = Told(column).type == ColumnType::Amount
                && column.scale.Larger(Told(column).unit)
                && (widest == nullptr || Least(column) > Least(*widest));
            widest = counts ? &column : widest;
        }
        if (widest == nullptr) {
            return false;
        }
        const QString unit = Told(*widest).unit;
        const UnitScale larger = *widest->scale.Larger(unit);
        for (PlannedColumn &column : plan.columns) {
            if (Told(column).type == ColumnType::Amount && Told(column).unit == unit) {
                column.scale = larger;
            }
        }
        return true;
    }

    void Spread()
    {
        const auto natural =
            WidthsBy([this](const PlannedColumn &column) { return Natural(column); });
        const double gaps = kBetween * static_cast<double>(natural.size());
        if (Sum(natural) + gaps <= kNarrow * room) {
            Give(natural, kBetween);
            return;
        }
        GiveShares(Sum(natural) <= room ? natural : LeastWidths());
    }

    void Give(const std::vector<double> &widths, double more)
    {
        for (size_t place = 0; place < widths.size(); ++place) {
            plan.columns[place].width = widths[place] + more;
        }
    }

    // The layout's shares of the whole room, where they are not below what a column needs.
    void GiveShares(const std::vector<double> &needs)
    {
        std::vector<bool> isFixed(needs.size());
        std::vector<double> widths(needs.size());
        bool again = true;
        while (again) {
            again = false;
            double left = room;
            double shares = 0;
            for (size_t place = 0; place < needs.size(); ++place) {
                (isFixed[place] ? left : shares) +=
                    isFixed[place] ? -needs[place] : Told(plan.columns[place]).width;
            }
            for (size_t place = 0; place < needs.size(); ++place) {
                widths[place] = isFixed[place]
                    ? needs[place]
                    : std::max(0.0, left) * Told(plan.columns[place]).width / shares;
                if (!isFixed[place] && widths[place] < needs[place]) {
                    isFixed[place] = true;
                    again = true;
                }
            }
        }
        Give(widths, 0);
    }

    const ReportTable &table;
    const double room;
    const QStringList &leadTexts;
    double roomForHeadings = kMostHeading; // that a column gives its heading at most
    ColumnPlan plan;
};

} // namespace

QString ColumnPlan::TextOf(const PlannedColumn &column, const LayoutColumn &told, const Cell &cell)
{
    const bool isScaled = column.scale.steps > 0 && cell.index() != 0;
    return OneLine(
        DisplayText(told, isScaled ? Cell(NumberIn(cell) / column.scale.divisor) : cell));
}

QString ColumnPlan::UnitOf(const PlannedColumn &column, const LayoutColumn &told)
{
    return column.scale.steps > 0 ? column.scale.unit : told.unit;
}

ColumnPlan PlanColumns(const ReportTable &table, double room, const QStringList &leads)
{
    return Planner(table, room, leads).Plan();
}
