// Dashes: a repeating row of lengths, dash and gap in turn.
#pragma once

#include "platform/gdi/raster/line.h"
#include "platform/gdi/raster/wide_line.h"

#include <span>
#include <vector>

namespace kv::raster
{

// Where a walk along a dashed line stands. Lengths are positive or 0, and not all 0; an odd count of them goes round
// twice, dashes becoming gaps.
class DashPosition
{
public:
    explicit DashPosition(std::span<const int> row);

    bool isDash() const { return index % 2 == 0; }
    std::int64_t rest() const { return left; } // steps to the end of this dash or gap
    std::int64_t elapsed() const { return lengths[index % lengths.size()] - left; }
    void advance(std::int64_t steps); // passes what has no length
    void next();                      // to the start of the next gap or dash, even if it has none

private:
    std::span<const int> lengths;
    std::size_t period;     // lengths until dashes are dashes again
    std::int64_t total = 0; // of those
    std::size_t index = 0;
    std::int64_t left;
};

// The dashes (or gaps) of a line one pixel wide: those of its pixels that fall on them. `position` goes on.
template <class Sink>
void dashedLine(const Sink& sink, const RECT& clip, POINT from, POINT to, DashPosition& position, bool gaps)
{
    const std::int64_t length = detail::wholeLine(from, to).count;
    LineWalk walk;
    if (clipLine(from, to, clip, walk))
    {
        DashPosition at = position;
        at.advance(walk.skipped);
        auto cursor = sink.cursor(walk.x, walk.y, walk.major, walk.minor);
        for (std::int64_t n = walk.count; n > 0; --n)
        {
            if (at.isDash() != gaps)
                cursor.plot();
            at.advance(1);
            walk.error += walk.slope;
            const bool diagonal = walk.error >= walk.limit;
            walk.error -= diagonal ? walk.limit : 0;
            cursor.advance(diagonal);
        }
    }
    position.advance(length);
}

// The dashes of a wide line as pieces with both ends drawn, on whole positions along it. Pieces far from the clip,
// which is taken with a margin of `width`, are left out. `position` goes on by the whole part of the length.
struct DashPiece
{
    Segment part, line;
};
void dashPieces(std::vector<DashPiece>& pieces, const RECT& clip, int width, const Segment& line,
                DashPosition& position);

} // namespace kv::raster
