#include "reports/broken_store.h"

using namespace Qt::StringLiterals;

TEST(RowStores, AllRowsComeBackFromWhereverTheyAreRead)
{
    constexpr qint64 kRows = 30'000; // more than the buffer takes
    RowStore store;
    for (qint64 row = 0; row < kRows; ++row) {
        ASSERT_TRUE(store.Append({row, row / 2.0, u"row %1"_s.arg(row), Cell()}));
    }
    ASSERT_TRUE(store.Finish());
    EXPECT_EQ(store.Count(), kRows);
    const std::pair<qint64, qint64> wanted[] = {
        {0, 1}, {63, 2}, {64, 64}, {12'345, 1000}, {kRows - 3, 10}, {kRows, 5}};
    for (const auto &[first, count] : wanted) {
        const auto rows = store.Read(first, count);
        ASSERT_EQ(static_cast<qint64>(rows.size()), std::min(count, kRows - first)) << first;
        for (size_t place = 0; place < rows.size(); ++place) {
            const qint64 row = first + static_cast<qint64>(place);
            EXPECT_EQ(rows[place], CellRow({row, row / 2.0, u"row %1"_s.arg(row), Cell()}));
        }
    }
    EXPECT_EQ(store.ReadProblem(), QString());
}

TEST(RowStores, RowsThatCannotBeReadAreNotTakenForNone)
{
    RowStore store;
    FillAndBreak(store);
    EXPECT_TRUE(store.Read(10'000, 10).empty());
    EXPECT_TRUE(store.ReadProblem().contains(u"cannot be read"_s))
        << store.ReadProblem().toStdString();
}
