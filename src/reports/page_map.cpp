#include "reports/page_map.h"

#include <algorithm>
#include <limits>

struct PageMap::Filling
{
    Place at;
    int left;
    bool fresh = true; // nothing placed yet
    std::vector<PageItem> *items;

    void Put(PageItem::Kind kind, qint64 index, int lines)
    {
        left -= lines;
        fresh = false;
        if (items != nullptr && lines > 0) {
            items->push_back({kind, index, lines});
        }
    }
};

PageMap::PageMap(PageOutline whatToPlace, int onFirst, int onOthers)
    : outline(std::move(whatToPlace))
    , linesOnFirst(onFirst < kLeastFirstLines ? 0 : onFirst) // fewer are left blank
    , linesOnOthers(std::max(onOthers, kLeastLines))
{
    BreakPages();
}

void PageMap::LeaveFirstBlank()
{
    linesOnFirst = 0;
    BreakPages();
}

void PageMap::BreakPages()
{
    starts.clear();
    Place place;
    place.phase = outline.groups.empty() ? Phase::Closing : Phase::Heading;
    do {
        starts.push_back(place);
        place = FillPage(place, Capacity(Count() - 1), nullptr);
    } while (place.phase != Phase::Done);
}

std::vector<PageItem> PageMap::Page(int page) const
{
    std::vector<PageItem> items;
    std::ignore = FillPage(starts[static_cast<size_t>(page)], Capacity(page), &items);
    return items;
}

int PageMap::PageOfRow(qint64 row) const
{
    const auto after =
        std::upper_bound(starts.begin(), starts.end(), row, [](qint64 wanted, const Place &start) {
            return start.phase == Phase::Closing || wanted < start.row;
        });
    return std::max(0, static_cast<int>(after - starts.begin()) - 1);
}

int PageMap::Capacity(int page) const
{
    if (outline.pageForEach && BeginsGroup(page)) {
        return std::max(linesOnFirst, kLeastFirstLines);
    }
    return page == 0 ? linesOnFirst : linesOnOthers;
}

size_t PageMap::GroupOfPage(int page) const
{
    const size_t group = starts[static_cast<size_t>(page)].group;
    return outline.groups.empty() ? 0 : std::min(group, outline.groups.size() - 1);
}

bool PageMap::BeginsGroup(int page) const
{
    return starts[static_cast<size_t>(page)].phase == Phase::Heading;
}

PageMap::Place PageMap::FillPage(Place place, int capacity, std::vector<PageItem> *items) const
{
    Filling filling {place, capacity, true, items};
    bool goesOn = capacity > 0;
    while (goesOn) {
        switch (filling.at.phase) {
        case Phase::Heading:
            goesOn = PlaceHeading(filling);
            break;
        case Phase::Rows:
            goesOn = PlaceRows(filling);
            break;
        case Phase::Sum:
            goesOn = PlaceSum(filling);
            break;
        case Phase::Closing:
            goesOn = PlaceClosing(filling);
            break;
        case Phase::Done:
            goesOn = false;
            break;
        }
    }
    return filling.at;
}

// A heading stands with two of its rows at least; an only row with its sum.
bool PageMap::PlaceHeading(Filling &filling) const
{
    const auto &group = outline.groups[filling.at.group];
    const int rows =
        LinesOf(group.first) + (group.count > 1 ? LinesOf(group.first + 1) : group.sumLines);
    const bool isFull = outline.pageForEach || filling.left < group.headingLines + rows;
    if (!filling.fresh && isFull) {
        return false;
    }
    filling.Put(PageItem::Kind::Heading, static_cast<qint64>(filling.at.group), group.headingLines);
    filling.at.row = group.first;
    filling.at.phase = Phase::Rows;
    return true;
}

bool PageMap::PlaceRows(Filling &filling) const
{
    const auto &group = outline.groups[filling.at.group];
    const qint64 end = group.first + group.count;
    if (filling.fresh && filling.at.row > group.first) {
        filling.Put(
            PageItem::Kind::Continued, static_cast<qint64>(filling.at.group), group.continuedLines);
    }
    auto [rows, lines] = RowsThatFit(filling.at.row, end, filling.left);
    // The sum does not stand alone on the next page.
    const bool sumLeft = filling.at.row + rows == end && filling.left - lines < group.sumLines;
    if (sumLeft && rows > 1) {
        --rows;
    }
    for (qint64 row = filling.at.row; row < filling.at.row + rows && filling.items != nullptr;
         ++row) {
        filling.Put(PageItem::Kind::Row, row, LinesOf(row));
    }
    if (filling.items == nullptr) {
        filling.Put(PageItem::Kind::Row,
                    0,
                    RowsThatFit(filling.at.row, filling.at.row + rows, filling.left).second);
    }
    filling.at.row += rows;
    if (filling.at.row < end) {
        return false;
    }
    filling.at.phase = Phase::Sum;
    return true;
}

bool PageMap::PlaceSum(Filling &filling) const
{
    const auto &group = outline.groups[filling.at.group];
    if (filling.left < group.sumLines) {
        return false;
    }
    if (filling.fresh && group.headingLines > 0) {
        filling.Put(
            PageItem::Kind::Continued, static_cast<qint64>(filling.at.group), group.continuedLines);
    }
    filling.Put(PageItem::Kind::Sum, static_cast<qint64>(filling.at.group), group.sumLines);
    ++filling.at.group;
    filling.at.phase = filling.at.group < outline.groups.size() ? Phase::Heading : Phase::Closing;
    return true;
}

bool PageMap::PlaceClosing(Filling &filling) const
{
    if (!filling.fresh && filling.left < outline.closingLines) {
        return false;
    }
    filling.Put(PageItem::Kind::Closing, 0, outline.closingLines);
    filling.at.phase = Phase::Done;
    return true;
}

int PageMap::LinesOf(qint64 row) const
{
    const auto tall =
        std::lower_bound(outline.tallRows.begin(), outline.tallRows.end(), std::pair(row, 0));
    return tall != outline.tallRows.end() && tall->first == row
        ? std::min(tall->second, kMostRowLines)
        : 1;
}

// How many rows from `first` stand in so many lines, and the lines that they take.
std::pair<qint64, int> PageMap::RowsThatFit(qint64 first, qint64 end, int lines) const
{
    const auto isTall = [](const std::pair<qint64, int> &row, qint64 wanted) {
        return row.first < wanted;
    };
    auto tall = std::lower_bound(outline.tallRows.begin(), outline.tallRows.end(), first, isTall);
    qint64 row = first;
    int used = 0;
    while (row < end && used < lines) {
        const qint64 nextTall =
            tall != outline.tallRows.end() ? tall->first : std::numeric_limits<qint64>::max();
        const qint64 plain =
            std::min({end - row, nextTall - row, static_cast<qint64>(lines - used)});
        row += plain;
        used += static_cast<int>(plain);
        if (row == end || row != nextTall) {
            break;
        }
        const int height = std::min(tall->second, kMostRowLines);
        if (used + height > lines) {
            break;
        }
        used += height;
        ++row;
        ++tall;
    }
    return {row - first, used};
}
