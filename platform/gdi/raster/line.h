// Lines one pixel wide: one pixel per step of the longer axis, the nearest one, a tie going to the smaller coordinate.
// The end point is left out. Clipping never moves a pixel and costs the same however far the ends are.
#pragma once

#include "platform/gdi/raster/sinks.h"

#include <span>

namespace kv::raster
{

// The pixels of a line that lie inside a rectangle: `count` of them, from (x, y). Each step is `major`, plus `minor`
// when the error, grown by `slope`, reaches `limit` and is cut by it.
struct LineWalk
{
    int x, y;
    Step major, minor;
    std::int64_t count;
    std::int64_t error, slope, limit;
    std::int64_t skipped; // steps from the start of the line to (x, y)
};

// Returns whether any pixel is inside.
bool clipLine(POINT from, POINT to, const RECT& clip, LineWalk& walk);

namespace detail
{

// The walk of a line of which every pixel is inside.
inline LineWalk wholeLine(POINT from, POINT to)
{
    const std::int64_t dx = std::int64_t(to.x) - from.x, dy = std::int64_t(to.y) - from.y;
    const std::int64_t width = dx < 0 ? -dx : dx, height = dy < 0 ? -dy : dy;
    const int sx = dx < 0 ? -1 : 1, sy = dy < 0 ? -1 : 1;
    const bool flat = width >= height;
    const std::int64_t length = flat ? width : height;
    // Half a pixel, less the least bit where a tie must not be rounded up in the direction of travel.
    const std::int64_t half = (flat ? sy : sx) > 0 ? length - 1 : length;
    return {from.x, from.y, flat ? Step{sx, 0} : Step{0, sy}, flat ? Step{0, sy} : Step{sx, 0},
            length, half,   2 * (flat ? height : width),      2 * length,
            0};
}

inline bool inside(POINT p, const RECT& clip)
{
    return p.x >= clip.left && p.x < clip.right && p.y >= clip.top && p.y < clip.bottom;
}

template <class Sink, class Int>
void runWalk(const Sink& sink, const LineWalk& walk)
{
    auto cursor = sink.cursor(walk.x, walk.y, walk.major, walk.minor);
    Int error = Int(walk.error);
    const Int slope = Int(walk.slope), limit = Int(walk.limit);
    for (std::int64_t n = walk.count; n > 0; --n)
    {
        cursor.plot();
        error += slope;
        const bool diagonal = error >= limit;
        error -= diagonal ? limit : 0;
        cursor.advance(diagonal);
    }
}

template <class Sink>
void drawWalk(const Sink& sink, const LineWalk& walk)
{
    if (walk.slope == 0 && walk.major.x != 0)
    {
        const int last = walk.x + walk.major.x * int(walk.count - 1);
        if (walk.major.x > 0)
            sink.span(walk.y, walk.x, last + 1);
        else
            sink.span(walk.y, last, walk.x + 1);
    }
    else if (walk.limit < (1 << 29))
        runWalk<Sink, std::int32_t>(sink, walk);
    else
        runWalk<Sink, std::int64_t>(sink, walk);
}

// A line with both ends inside; coordinates are those of pixels of a target, so nothing overflows.
template <class Sink>
void insideLine(const Sink& sink, POINT from, POINT to)
{
    const int dx = to.x - from.x, dy = to.y - from.y;
    const int width = dx < 0 ? -dx : dx, height = dy < 0 ? -dy : dy;
    if (height == 0)
    {
        if (dx > 0)
            sink.span(from.y, from.x, to.x);
        else if (dx < 0)
            sink.span(from.y, to.x + 1, from.x + 1);
        return;
    }
    const int sx = dx < 0 ? -1 : 1, sy = dy < 0 ? -1 : 1;
    const bool flat = width >= height;
    const int length = flat ? width : height;
    if (length >= 1 << 28)
    {
        drawWalk(sink, wholeLine(from, to));
        return;
    }
    auto cursor = flat ? sink.cursor(from.x, from.y, {sx, 0}, {0, sy}) : sink.cursor(from.x, from.y, {0, sy}, {sx, 0});
    const int slope = 2 * (flat ? height : width), limit = 2 * length;
    // Half a pixel, less the least bit where a tie must not be rounded up in the direction of travel, less the limit.
    int error = length - ((flat ? sy : sx) > 0) - limit;
    for (int n = length; n > 0; --n)
    {
        cursor.plot();
        error += slope;
        const bool diagonal = error >= 0;
        error -= diagonal ? limit : 0;
        cursor.advance(diagonal);
    }
}

} // namespace detail

template <class Sink>
void line(const Sink& sink, const RECT& clip, POINT from, POINT to)
{
    if (detail::inside(from, clip) && detail::inside(to, clip))
        detail::insideLine(sink, from, to);
    else if (LineWalk walk; clipLine(from, to, clip, walk))
        detail::drawWalk(sink, walk);
}

// Each segment leaves out its end, so no corner is drawn twice. `closed` adds the segment back to the first point.
template <class Sink>
void polyline(const Sink& sink, const RECT& clip, std::span<const POINT> points, bool closed)
{
    if (points.empty())
        return;
    POINT from = points.front();
    bool fromInside = detail::inside(from, clip);
    const std::size_t count = points.size();
    for (std::size_t i = 1; i < count + closed; ++i)
    {
        const POINT to = points[i < count ? i : 0];
        const bool toInside = detail::inside(to, clip);
        if (fromInside && toInside)
            detail::insideLine(sink, from, to);
        else if (LineWalk walk; clipLine(from, to, clip, walk))
            detail::drawWalk(sink, walk);
        from = to;
        fromInside = toInside;
    }
}

} // namespace kv::raster
