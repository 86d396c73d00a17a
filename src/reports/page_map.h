// Page breaking as arithmetic: which rows stand on which page, known before the first is drawn.
#pragma once

#include <QtGlobal>

#include <utility>
#include <vector>

// What has to be put on pages, measured in lines of one height.
struct PageOutline
{
    struct Group
    {
        qint64 first = 0; // row
        qint64 count = 0; // rows, at least 1
        int headingLines = 0;
        int sumLines = 0;
        int continuedLines = headingLines; // at the top of each page that the group goes on on
    };

    std::vector<Group> groups; // without groups, one of all rows that has no heading
    bool pageForEach = false; // each group begins on a page that holds as many lines as the first
    int closingLines = 0; // behind the last group, kept together
    std::vector<std::pair<qint64, int>> tallRows; // rows of more than one line, in order
};

struct PageItem
{
    enum class Kind { Heading, Continued, Row, Sum, Closing };

    Kind kind = Kind::Row;
    qint64 index = 0; // of the row; of the group for its heading and sum
    int lines = 1;

    bool operator==(const PageItem &) const = default;
};

class PageMap
{
public:
    // Lines that the first page and each other one hold; the others hold at least kLeastLines.
    PageMap(PageOutline whatToPlace, int linesOnFirst, int linesOnOthers);

    static constexpr int kLeastLines = 20;
    static constexpr int kLeastFirstLines = 8;
    static constexpr int kMostRowLines = 12;

    // Leaves the first page to something else: everything begins on the second.
    void LeaveFirstBlank();

    [[nodiscard]] int Count() const { return static_cast<int>(starts.size()); }

    // From the top; page 0 is the first.
    [[nodiscard]] std::vector<PageItem> Page(int page) const;

    // The group that a page begins with or goes on with; 0 without groups.
    [[nodiscard]] size_t GroupOfPage(int page) const;

    // It begins there, at the page's top.
    [[nodiscard]] bool BeginsGroup(int page) const;

    // The page on which a row stands.
    [[nodiscard]] int PageOfRow(qint64 row) const;

private:
    enum class Phase { Heading, Rows, Sum, Closing, Done };

    // Where a page begins.
    struct Place
    {
        size_t group = 0;
        Phase phase = Phase::Heading;
        qint64 row = 0;
    };

    void BreakPages();

    struct Filling; // a page on its way to being full

    [[nodiscard]] int Capacity(int page) const;
    [[nodiscard]] Place FillPage(Place place, int capacity, std::vector<PageItem> *items) const;
    [[nodiscard]] bool PlaceHeading(Filling &filling) const;
    [[nodiscard]] bool PlaceRows(Filling &filling) const;
    [[nodiscard]] bool PlaceSum(Filling &filling) const;
    [[nodiscard]] bool PlaceClosing(Filling &filling) const;
    [[nodiscard]] int LinesOf(qint64 row) const;
    [[nodiscard]] std::pair<qint64, int> RowsThatFit(qint64 first, qint64 end, int lines) const;

    PageOutline outline;
    int linesOnFirst;
    int linesOnOthers;
    std::vector<Place> starts;
};
