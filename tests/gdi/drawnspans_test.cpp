// Spans kept instead of drawn: their order, what is joined, and what happens when there are too many.
#include "platform/gdi/drawnspans.h"

#include <gtest/gtest.h>

#include <tuple>
#include <vector>

namespace
{
using kv::gdi::DrawnSpans;
using Span = std::tuple<int, int, std::uint32_t>;

std::vector<Span> RowOf(const DrawnSpans& spans, int row)
{
    std::vector<Span> found;
    spans.visitRow(row, [&](int from, int to, std::uint32_t value) { found.emplace_back(from, to, value); });
    return found;
}

void Never()
{
    FAIL() << "there is room";
}
} // namespace

TEST(DrawnSpans, StandInTheOrderOfDrawingRowByRow)
{
    DrawnSpans spans(3, Never);
    spans.add(2, 5, 9, 1);
    spans.add(0, 1, 2, 7);
    spans.add(2, 6, 7, 2);
    spans.add(2, 5, 6, 1);
    EXPECT_EQ(RowOf(spans, 2), (std::vector<Span>{{5, 9, 1}, {6, 7, 2}, {5, 6, 1}}));
    EXPECT_EQ(RowOf(spans, 0), (std::vector<Span>{{1, 2, 7}}));
    EXPECT_TRUE(RowOf(spans, 1).empty());
}

TEST(DrawnSpans, JoinNeighboursOfOneValue)
{
    DrawnSpans spans(1, Never);
    spans.add(0, 5, 6, 1);
    spans.add(0, 6, 7, 1);
    spans.add(0, 3, 5, 1);
    spans.add(0, 4, 6, 1);
    EXPECT_EQ(RowOf(spans, 0), (std::vector<Span>{{3, 7, 1}}));
    spans.add(0, 8, 9, 1);
    spans.add(0, 9, 10, 2);
    EXPECT_EQ(RowOf(spans, 0), (std::vector<Span>{{3, 7, 1}, {8, 9, 1}, {9, 10, 2}}));
}

TEST(DrawnSpans, ForgetARowAndGoOn)
{
    DrawnSpans spans(2, Never);
    spans.add(0, 1, 2, 1);
    spans.add(1, 1, 2, 1);
    spans.forgetRow(0);
    spans.add(0, 2, 3, 1);
    EXPECT_EQ(RowOf(spans, 0), (std::vector<Span>{{2, 3, 1}}));
    EXPECT_EQ(RowOf(spans, 1), (std::vector<Span>{{1, 2, 1}}));
}

TEST(DrawnSpans, AskForRoomBeforeTheyTakeMuchMemory)
{
    constexpr int rows = 100;
    int asked = 0;
    std::vector<int> drawn(rows);
    DrawnSpans* all = nullptr;
    DrawnSpans spans(rows,
                     [&]
                     {
                         ++asked;
                         for (int y = 0; y < rows; ++y)
                             drawn[static_cast<size_t>(y)] += static_cast<int>(RowOf(*all, y).size());
                         all->forgetAll();
                     });
    all = &spans;
    constexpr int perRow = 30000;
    for (int i = 0; i < perRow; ++i)
        for (int y = 0; y < rows; ++y)
            spans.add(y, 2 * i, 2 * i + 1, 1);
    EXPECT_EQ(asked, 2);
    for (int y = 0; y < rows; ++y)
        EXPECT_EQ(drawn[static_cast<size_t>(y)] + static_cast<int>(RowOf(spans, y).size()), perRow);
}
