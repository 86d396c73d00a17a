#include "reports/total.h"

#include <gtest/gtest.h>
#include <limits>

namespace {

double TotalOf(const std::vector<double> &amounts)
{
    Total total;
    for (const double amount : amounts) {
        total.Add(amount);
    }
    return total.Value();
}

} // namespace

TEST(Total, LosesNothingToTheRoundingOfItsSteps)
{
    EXPECT_EQ(TotalOf(std::vector<double>(10, 0.1)), 1.0);
    EXPECT_EQ(TotalOf({1e16, 1, 1, -1e16}),
              2.0); // each 1 is beyond the digits of what it is added to
    EXPECT_EQ(TotalOf({1, 1e16, 1, -1e16}), 2.0); // and so is the first of what comes behind it
}

TEST(Total, OfWholeNumbersIsExactUntilItOutgrowsThem)
{
    constexpr auto kMost = std::numeric_limits<qint64>::max();
    Total total;
    total.Add(Cell(kMost - 1));
    total.Add(Cell(qint64 {1}));
    EXPECT_EQ(total.AsCell(ColumnType::Integer), Cell(kMost));
    total.Add(Cell(qint64 {1}));
    EXPECT_EQ(total.AsCell(ColumnType::Integer), Cell(0x1p63));
}

TEST(Total, LeavesOutWhatIsNoNumber)
{
    Total total;
    total.Add(Cell());
    total.Add(Cell(QStringLiteral("12")));
    EXPECT_EQ(total.AsCell(ColumnType::Amount), Cell(0.0));
}
