// Filling of polygons. Rows from the smallest y up to, not including, the largest; in a row from the rounded-up left
// crossing up to, not including, the rounded-up right one, crossings being taken at the integer y.
#pragma once

#include "platform/gdi/raster/sinks.h"

#include <algorithm>
#include <span>
#include <vector>

namespace kv::raster
{

enum class FillRule
{
    Alternate, // by parity
    Winding    // wherever the directions do not sum to zero
};

// An edge between two rows. `x` is its crossing with the current row, rounded up.
template <class Int>
struct Edge
{
    std::int32_t x;
    std::int32_t step;            // whole pixels to the next row
    Int error, errorStep, height; // the crossing lies error + 1 - height heights below x
    std::int32_t top, bottom;     // rows inside the clip, bottom outside
    std::int32_t direction;       // 1 down, -1 up

    void advance()
    {
        x += step;
        error += errorStep;
        const bool carry = error >= height;
        error -= carry ? height : 0;
        x += carry;
    }
};

using NearEdge = Edge<std::int32_t>;
using FarEdge = Edge<std::int64_t>;

// Within these bounds the terms of an edge fit into 32 bits.
inline bool isNear(POINT p)
{
    constexpr std::uint32_t limit = 1u << 29;
    return std::uint32_t(p.x) + limit < 2 * limit && std::uint32_t(p.y) + limit < 2 * limit;
}

// An edge between points of different y, cut to the clip's rows; false if none is left. The terms have to fit.
bool makeEdge(NearEdge& edge, POINT from, POINT to, const RECT& clip);
bool makeEdge(FarEdge& edge, POINT from, POINT to, const RECT& clip);

namespace detail
{

template <class Sink>
void clippedSpan(const Sink& sink, const RECT& clip, int y, int from, int to)
{
    from = std::max(from, clip.left);
    to = std::min(to, clip.right);
    if (from < to)
        sink.span(y, from, to);
}

// Rows between two edges, which may cross.
template <class Int, class Sink>
void fillBetween(const Sink& target, const RECT& clip, Edge<Int>& first, Edge<Int>& second, int y, int end)
{
    const Sink sink = target; // pixels written might be thought to lie in the original
    Edge<Int> a = first, b = second;
    for (; y < end; ++y)
    {
        clippedSpan(sink, clip, y, std::min(a.x, b.x), std::max(a.x, b.x));
        a.advance();
        b.advance();
    }
    first.x = a.x;
    first.error = a.error;
    second.x = b.x;
    second.error = b.error;
}

} // namespace detail

// One way down along a closed outline, edge by edge.
class Side
{
public:
    // From the point at `top`, forward or backward.
    Side(std::span<const POINT> outline, std::size_t top, bool forward) : points(outline), at(top), ahead(forward) {}

    // The next edge that reaches into the clip; false once the way leads up or back to the start.
    bool next(NearEdge& edge, const RECT& clip)
    {
        for (std::size_t left = points.size(); left > 0; --left)
        {
            const POINT from = points[at];
            at = ahead ? (at + 1 == points.size() ? 0 : at + 1) : (at == 0 ? points.size() : at) - 1;
            const POINT to = points[at];
            if (to.y < from.y)
                return false;
            if (to.y > from.y && makeEdge(edge, from, to, clip))
                return true;
        }
        return false;
    }

private:
    std::span<const POINT> points;
    std::size_t at;
    bool ahead;
};

// What a look at an outline tells.
struct OutlineShape
{
    bool near = true;    // all points are
    int turns = 0;       // changes between upward and downward
    std::size_t top = 0; // a topmost point
};
OutlineShape shapeOf(std::span<const POINT> outline);

// A near outline that turns only twice: between its two ways from the top to the bottom.
template <class Sink>
void fillMonotone(const Sink& sink, const RECT& clip, std::span<const POINT> outline, std::size_t top)
{
    Side one(outline, top, true), other(outline, top, false);
    NearEdge a, b;
    if (clip.left >= clip.right || !one.next(a, clip) || !other.next(b, clip))
        return;
    for (int y = a.top;;)
    {
        const int end = std::min(a.bottom, b.bottom);
        detail::fillBetween(sink, clip, a, b, y, end);
        y = end;
        if ((a.bottom == end && !one.next(a, clip)) || (b.bottom == end && !other.next(b, clip)))
            return;
    }
}

// Keeps its buffers between figures. Not to be shared between threads.
class PolygonFiller
{
public:
    // Any number of closed outlines that are filled as one figure.
    void begin() { points.clear(), outlines.clear(); }
    void add(std::span<const POINT> outline);
    // Makes room for figures of that many points on a target of that many rows, so that none of them allocates.
    void reserve(std::size_t count, int targetRows);

    // Emits the spans inside the rectangle, which is a part of the target. Rows come in order, spans from the left.
    template <class Sink>
    void fill(const Sink& sink, const RECT& clip, FillRule rule);

    // One outline.
    template <class Sink>
    void fill(const Sink& sink, const RECT& clip, std::span<const POINT> outline, FillRule rule)
    {
        const std::size_t whole[] = {outline.size()};
        fillOutlines(sink, clip, outline, whole, rule);
    }

private:
    template <class Int>
    struct Table
    {
        std::vector<Edge<Int>> edges;     // in any order
        std::vector<std::uint32_t> order; // of `edges` from the top
        std::vector<Edge<Int>> active;    // those that cross the current row, from the left
        std::vector<Edge<Int>> entering;

        void reserve(std::size_t count)
        {
            edges.reserve(count);
            order.reserve(count);
            active.reserve(count);
            entering.reserve(count);
        }
    };

    template <class Sink>
    void fillOutlines(const Sink& sink, const RECT& clip, std::span<const POINT> all, std::span<const std::size_t> ends,
                      FillRule rule);

    // Makes the edges that matter inside the clip, in order; false if there are none.
    template <class Int>
    bool prepare(Table<Int>& table, std::span<const POINT> all, std::span<const std::size_t> ends, const RECT& clip);
    template <class Int>
    void sortByTop(Table<Int>& table, const RECT& clip);
    // Brings the edges from `next` on that start in a row into the active ones, and returns the next one after them.
    template <class Int>
    static std::size_t enter(Table<Int>& table, std::size_t next, int y);
    // Sorts active edges again after some have crossed.
    template <class Int>
    static void resort(std::vector<Edge<Int>>& active);
    template <class Int, class Sink>
    void scan(Table<Int>& table, const Sink& sink, const RECT& clip, FillRule rule);
    template <class Int, class Sink>
    static int scanPair(std::vector<Edge<Int>>& active, const Sink& sink, const RECT& clip, int y, int nextTop);
    template <class Int, class Sink>
    static void scanRow(std::vector<Edge<Int>>& active, const Sink& sink, const RECT& clip, int mask, int y);

    std::vector<POINT> points;
    std::vector<std::size_t> outlines; // where each ends in `points`
    Table<std::int32_t> nearTable;
    Table<std::int64_t> farTable;
    std::vector<std::uint32_t> rowStarts;
};

extern template bool PolygonFiller::prepare(Table<std::int32_t>&, std::span<const POINT>, std::span<const std::size_t>,
                                            const RECT&);
extern template bool PolygonFiller::prepare(Table<std::int64_t>&, std::span<const POINT>, std::span<const std::size_t>,
                                            const RECT&);
extern template std::size_t PolygonFiller::enter(Table<std::int32_t>&, std::size_t, int);
extern template std::size_t PolygonFiller::enter(Table<std::int64_t>&, std::size_t, int);
extern template void PolygonFiller::resort(std::vector<NearEdge>&);
extern template void PolygonFiller::resort(std::vector<FarEdge>&);

template <class Sink>
void PolygonFiller::fill(const Sink& sink, const RECT& clip, FillRule rule)
{
    fillOutlines(sink, clip, points, outlines, rule);
}

template <class Sink>
void PolygonFiller::fillOutlines(const Sink& sink, const RECT& clip, std::span<const POINT> all,
                                 std::span<const std::size_t> ends, FillRule rule)
{
    const OutlineShape shape = shapeOf(all);
    if (ends.size() == 1 && shape.near && shape.turns <= 2)
        fillMonotone(sink, clip, all, shape.top);
    else if (shape.near)
    {
        if (prepare(nearTable, all, ends, clip))
            scan(nearTable, sink, clip, rule);
    }
    else if (prepare(farTable, all, ends, clip))
        scan(farTable, sink, clip, rule);
}

template <class Int, class Sink>
void PolygonFiller::scan(Table<Int>& table, const Sink& sink, const RECT& clip, FillRule rule)
{
    auto& active = table.active;
    active.clear();
    const int mask = rule == FillRule::Alternate ? 1 : -1;
    const std::size_t count = table.order.size();
    std::size_t next = 0;
    for (int y = INT32_MIN; !active.empty() || next < count;)
    {
        int nextTop = next < count ? table.edges[table.order[next]].top : INT32_MAX;
        if (active.empty())
            y = nextTop;
        if (y == nextTop)
        {
            next = enter(table, next, y);
            nextTop = next < count ? table.edges[table.order[next]].top : INT32_MAX;
        }
        if (active.size() == 2)
            y = scanPair(active, sink, clip, y, nextTop);
        else
            scanRow(active, sink, clip, mask, y++);
    }
}

// As long as there are only two edges. They have opposite directions, the outline being closed.
template <class Int, class Sink>
int PolygonFiller::scanPair(std::vector<Edge<Int>>& active, const Sink& sink, const RECT& clip, int y, int nextTop)
{
    const int end = std::min({active[0].bottom, active[1].bottom, nextTop});
    detail::fillBetween(sink, clip, active[0], active[1], y, end);
    if (active[0].x > active[1].x)
        std::swap(active[0], active[1]);
    if (active[1].bottom == end)
        active.pop_back();
    if (active[0].bottom == end)
        active.erase(active.begin());
    return end;
}

template <class Int, class Sink>
void PolygonFiller::scanRow(std::vector<Edge<Int>>& active, const Sink& sink, const RECT& clip, int mask, int y)
{
    int winding = 0;
    int from = 0;
    bool sorted = true;
    std::int32_t before = INT32_MIN;
    Edge<Int>* kept = active.data();
    for (Edge<Int>& edge : active)
    {
        const bool wasOut = (winding & mask) == 0;
        winding += edge.direction;
        const bool isOut = (winding & mask) == 0;
        if (wasOut && !isOut)
            from = edge.x;
        else if (!wasOut && isOut)
            detail::clippedSpan(sink, clip, y, from, edge.x);
        if (edge.bottom == y + 1)
            continue;
        edge.advance();
        sorted &= before <= edge.x;
        before = edge.x;
        if (kept != &edge)
            *kept = edge;
        ++kept;
    }
    active.resize(std::size_t(kept - active.data()));
    if (!sorted)
        resort(active);
}

} // namespace kv::raster
