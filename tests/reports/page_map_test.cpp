#include "reports/page_map.h"

#include <gtest/gtest.h>
#include <set>

using Kind = PageItem::Kind;

namespace {

int LinesOn(const std::vector<PageItem> &items)
{
    int lines = 0;
    for (const PageItem &item : items) {
        lines += item.lines;
    }
    return lines;
}

// Every row once and in order, no page too full, no heading or sum without a row of its group.
void ExpectWhole(const PageOutline &outline, int onFirst, int onOthers)
{
    const PageMap map(outline, onFirst, onOthers);
    qint64 nextRow = 0;
    int closings = 0;
    for (int page = 0; page < map.Count(); ++page) {
        const auto items = map.Page(page);
        EXPECT_LE(LinesOn(items), page == 0 ? onFirst : onOthers) << page;
        EXPECT_TRUE(page == 0 || !items.empty()) << page;
        for (size_t place = 0; place < items.size(); ++place) {
            const PageItem &item = items[place];
            if (item.kind == Kind::Row) {
                EXPECT_EQ(item.index, nextRow++);
                EXPECT_EQ(map.PageOfRow(item.index), page);
            }
            if (item.kind == Kind::Heading) {
                ASSERT_LT(place + 1, items.size());
                EXPECT_EQ(items[place + 1].kind, Kind::Row);
            }
            EXPECT_TRUE(item.kind != Kind::Continued || place == 0);
            if (item.kind == Kind::Sum) {
                ASSERT_GT(place, 0U) << page;
                EXPECT_EQ(items[place - 1].kind, Kind::Row) << page;
            }
            closings += item.kind == Kind::Closing ? 1 : 0;
        }
    }
    const auto &last = outline.groups.back();
    EXPECT_EQ(nextRow, last.first + last.count);
    EXPECT_EQ(closings, outline.closingLines > 0 ? 1 : 0);
}

} // namespace

TEST(PageMap, LettersBeginOnPagesOfTheirOwnThatHoldAsMuchAsTheFirst)
{
    PageOutline letters;
    letters.pageForEach = true;
    letters.groups = {{0, 3, 0, 2}, {3, 30, 0, 2}, {33, 1, 0, 1}};
    const PageMap map(letters, 10, 25);
    ASSERT_EQ(map.Count(), 4);
    const size_t groups[] = {0, 1, 1, 2};
    const int lines[] = {5, 10, 22, 2};
    for (int page = 0; page < 4; ++page) {
        EXPECT_EQ(map.GroupOfPage(page), groups[page]);
        EXPECT_EQ(map.BeginsGroup(page), page != 2);
        EXPECT_EQ(LinesOn(map.Page(page)), lines[page]) << page;
    }
    EXPECT_EQ(map.PageOfRow(12), 1);
    EXPECT_EQ(map.PageOfRow(13), 2);
    // Where the headings take the page, a letter has a few lines all the same.
    EXPECT_EQ(LinesOn(PageMap(letters, 0, 25).Page(1)), PageMap::kLeastFirstLines);
}

TEST(PageMap, EveryRowStandsOnOnePage)
{
    for (const qint64 size : {1, 2, 3, 18, 19, 20, 21, 22, 40, 41, 60, 199}) {
        for (const int first : {0, 8, 13, 25}) {
            PageOutline plain;
            plain.groups = {{0, size, 0, 0}};
            plain.closingLines = 2;
            ExpectWhole(plain, first, 20);

            PageOutline grouped;
            qint64 next = 0;
            for (const qint64 count : {size, qint64 {1}, size, qint64 {2}, size + 1}) {
                grouped.groups.push_back({next, count, 1 + static_cast<int>(count % 2), 2});
                next += count;
            }
            grouped.closingLines = 3;
            ExpectWhole(grouped, first, 20);
            for (qint64 row = 0; row < next; row += 7) {
                grouped.tallRows.emplace_back(row, 2 + static_cast<int>(row % 3));
            }
            ExpectWhole(grouped, first, 20);
        }
    }
}

TEST(PageMap, AGroupThatGoesOnRepeatsItsHeading)
{
    PageOutline outline;
    outline.groups = {{0, 30, 1, 2}};
    const PageMap map(outline, 20, 20);
    ASSERT_EQ(map.Count(), 2);
    EXPECT_EQ(map.Page(0).front(), (PageItem {Kind::Heading, 0, 1}));
    EXPECT_EQ(map.Page(0).back(), (PageItem {Kind::Row, 18, 1}));
    EXPECT_EQ(map.Page(1).front(), (PageItem {Kind::Continued, 0, 1}));
    EXPECT_EQ(map.Page(1).back(), (PageItem {Kind::Sum, 0, 2}));
}

TEST(PageMap, AContinuedHeadingMayTakeMoreLines)
{
    PageOutline outline;
    outline.groups = {{0, 30, 1, 2, 3}};
    const PageMap map(outline, 20, 20);
    ASSERT_EQ(map.Count(), 2);
    EXPECT_EQ(map.Page(0).front(), (PageItem {Kind::Heading, 0, 1}));
    EXPECT_EQ(map.Page(0).back(), (PageItem {Kind::Row, 18, 1}));
    EXPECT_EQ(map.Page(1).front(), (PageItem {Kind::Continued, 0, 3}));
}

TEST(PageMap, ASumTakesARowAlongToTheNextPage)
{
    PageOutline outline;
    outline.groups = {{0, 18, 1, 2}}; // all rows would fit, and one line be left for a sum of two
    const PageMap map(outline, 20, 20);
    ASSERT_EQ(map.Count(), 2);
    EXPECT_EQ(map.Page(0).back(), (PageItem {Kind::Row, 16, 1}));
    const std::vector<PageItem> expected {
        {Kind::Continued, 0, 1}, {Kind::Row, 17, 1}, {Kind::Sum, 0, 2}};
    EXPECT_EQ(map.Page(1), expected);
    EXPECT_EQ(map.PageOfRow(17), 1);
}

TEST(PageMap, AGroupOfOneRowStandsOnOnePageWithItsSum)
{
    PageOutline outline;
    outline.groups = {{0, 15, 1, 1}, {15, 1, 1, 2}}; // three lines are left: for all but the sum
    const PageMap map(outline, 20, 20);
    ASSERT_EQ(map.Count(), 2);
    EXPECT_EQ(map.Page(0).back(), (PageItem {Kind::Sum, 0, 1}));
    const std::vector<PageItem> expected {
        {Kind::Heading, 1, 1}, {Kind::Row, 15, 1}, {Kind::Sum, 1, 2}};
    EXPECT_EQ(map.Page(1), expected);
}

TEST(PageMap, AnEmptyReportHasOnePage)
{
    const PageMap map(PageOutline {}, 40, 50);
    EXPECT_EQ(map.Count(), 1);
    EXPECT_TRUE(map.Page(0).empty());
}

TEST(PageMap, TenMillionRowsAreBrokenAtOnce)
{
    PageOutline outline;
    outline.groups = {{0, 10'000'000, 0, 0}};
    outline.closingLines = 2;
    const PageMap map(outline, 40, 50);
    EXPECT_EQ(map.Count(), 200'001);
    EXPECT_EQ(map.PageOfRow(9'999'999), 200'000);
    EXPECT_EQ(map.Page(100'000).front().index, 40 + 99'999 * 50);
}
