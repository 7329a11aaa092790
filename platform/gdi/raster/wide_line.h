// Solid lines of some width: at every vertex a dot, for every segment a quadrangle, painted as their union.
#pragma once

#include "platform/gdi/raster/coverage.h"
#include "platform/gdi/raster/ellipse.h"
#include "platform/gdi/raster/polygon.h"
#include "platform/gdi/raster/rect.h"

#include <cmath>
#include <span>

namespace kv::raster
{

struct Segment
{
    POINT from, to;
};

// The quadrangle of a slanted segment, by the corners around it. The segment is a part of `line`, which gives the
// slant.
struct Quadrangle
{
    POINT corners[4];
};
inline Quadrangle slantedSegment(const Segment& segment, const Segment& line, int width)
{
    const double dx = double(line.to.x) - line.from.x, dy = double(line.to.y) - line.from.y;
    const double length = std::sqrt(dx * dx + dy * dy);
    // Neither is negative, so that they are rounded down.
    const std::int64_t x = std::int64_t(width * std::fabs(dy) / length) + 1;
    const std::int64_t y = std::int64_t(width * std::fabs(dx) / length) + 1;
    // Across the line, upward or downward on the side that lies to the right.
    const int slope = (dx < 0) == (dy < 0) ? -1 : 1;
    const auto right = [&](POINT p) {
        return POINT{saturated(p.x + (x + 1) / 2), saturated(p.y + slope * ((y + 1) / 2))};
    };
    const auto left = [&](POINT p) { return POINT{saturated(p.x - x / 2), saturated(p.y - slope * (y / 2))}; };
    return {{right(segment.from), right(segment.to), left(segment.to), left(segment.from)}};
}

namespace detail
{

// An edge from a point along a vector that leads down.
inline NearEdge edgeAlong(POINT from, const NearEdge& vector)
{
    NearEdge edge = vector;
    edge.x = from.x;
    edge.top = from.y;
    edge.bottom = from.y + vector.height;
    return edge;
}

// Rows between two edges that do not cross and stay inside the clip.
template <class Sink>
void fillInside(const Sink& target, NearEdge& left, NearEdge& right, int y, int end)
{
    const Sink sink = target; // pixels written might be thought to lie in the original
    NearEdge a = left, b = right;
    for (; y < end; ++y)
    {
        if (a.x < b.x)
            sink.span(y, a.x, b.x);
        a.advance();
        b.advance();
    }
    left.x = a.x;
    left.error = a.error;
    right.x = b.x;
    right.error = b.error;
}

} // namespace detail

// Opposite sides of a quadrangle are equal, so that two of its four edges are computed.
template <class Sink>
void fillQuadrangle(const Sink& sink, const RECT& clip, const Quadrangle& q, PolygonFiller& filler)
{
    const POINT* const c = q.corners;
    const std::size_t highest = c[0].y < c[1].y ? (c[0].y < c[3].y ? 0 : 3) : c[1].y < c[2].y ? 1 : 2;
    const POINT top = c[highest], bottom = c[(highest + 2) % 4];
    POINT left = c[(highest + 1) % 4], right = c[(highest + 3) % 4];
    const bool rowsInside = isNear(top) && isNear(bottom) && top.y >= clip.top && bottom.y <= clip.bottom;
    if (!rowsInside || left.y <= top.y || right.y <= top.y)
        return filler.fill(sink, clip, q.corners, FillRule::Winding);
    if (std::int64_t(left.x - top.x) * (right.y - top.y) > std::int64_t(right.x - top.x) * (left.y - top.y))
        std::swap(left, right);
    NearEdge toLeft, toRight;
    if (!makeEdge(toLeft, top, left, clip) || !makeEdge(toRight, top, right, clip))
        return filler.fill(sink, clip, q.corners, FillRule::Winding);

    const auto fill = [&](auto between)
    {
        NearEdge from = toLeft, to = toRight;
        const bool leftFirst = left.y < right.y;
        between(from, to, top.y, std::min(left.y, right.y));
        if (leftFirst)
            from = detail::edgeAlong(left, toRight);
        else
            to = detail::edgeAlong(right, toLeft);
        between(from, to, std::min(left.y, right.y), std::max(left.y, right.y));
        if (leftFirst)
            to = detail::edgeAlong(right, toLeft);
        else
            from = detail::edgeAlong(left, toRight);
        between(from, to, std::max(left.y, right.y), bottom.y);
    };
    const bool columnsInside =
        std::min({left.x, top.x, bottom.x}) >= clip.left && std::max({right.x, top.x, bottom.x}) <= clip.right;
    if (columnsInside)
        fill([&](NearEdge& from, NearEdge& to, int y, int end) { detail::fillInside(sink, from, to, y, end); });
    else
        fill([&](NearEdge& from, NearEdge& to, int y, int end) { detail::fillBetween(sink, clip, from, to, y, end); });
}

class WidePen
{
public:
    explicit WidePen(int width); // in pixels, at least 2

    int width() const { return size; }
    // The rectangle that a line of some width through these points stays inside, saturated.
    static RECT bounds(std::span<const POINT> points, int width);

    // All dots and quadrangles, so pixels may come more than once: for sinks that overwrite, or for a Coverage. A line
    // of a single point, or without length, is a dot.
    template <class Sink>
    void polyline(const Sink& sink, const RECT& clip, std::span<const POINT> points, bool closed,
                  PolygonFiller& filler) const;
    template <class Sink>
    void dot(const Sink& sink, const RECT& clip, POINT center) const;
    template <class Sink>
    void segment(const Sink& sink, const RECT& clip, const Segment& line, PolygonFiller& filler) const
    {
        piece(sink, clip, line, line, filler);
    }
    // A part of a longer segment.
    template <class Sink>
    void piece(const Sink& sink, const RECT& clip, const Segment& part, const Segment& line,
               PolygonFiller& filler) const;

private:
    bool isDotInside(const RECT& clip, std::int64_t left, std::int64_t top) const
    {
        return size <= tableLimit && left >= clip.left && left + size <= clip.right && top >= clip.top &&
               top + size <= clip.bottom;
    }

    static constexpr int tableLimit = 1 << 16; // the dots of wider pens are computed where they are needed

    int size;
    std::vector<EllipseRow> dotRows; // of the dot's box from its top: columns from either side (`first` only)
};

template <class Sink>
void box(const Sink& sink, const RECT& clip, std::int64_t left, std::int64_t top, std::int64_t right,
         std::int64_t bottom)
{
    const int x0 = int(std::max<std::int64_t>(left, clip.left)), x1 = int(std::min<std::int64_t>(right, clip.right));
    const int y0 = int(std::max<std::int64_t>(top, clip.top)), y1 = int(std::min<std::int64_t>(bottom, clip.bottom));
    if (x0 < x1)
        for (int y = y0; y < y1; ++y)
            sink.span(y, x0, x1);
}

template <class Sink>
void WidePen::dot(const Sink& sink, const RECT& clip, POINT center) const
{
    const std::int64_t left = std::int64_t(center.x) - size / 2, top = std::int64_t(center.y) - size / 2;
    if (isDotInside(clip, left, top))
    {
        const int x = int(left);
        int y = int(top);
        for (const EllipseRow& row : dotRows)
            sink.span(y++, x + row.first, x + size - row.first);
        return;
    }
    if (left >= clip.right || left + size <= clip.left)
        return;
    if (size > tableLimit)
    {
        const Ellipse round({saturated(left), saturated(top), saturated(left + size), saturated(top + size)}, clip);
        round.fill(sink, clip);
        return;
    }
    const std::int64_t first = std::max<std::int64_t>(0, clip.top - top);
    const std::int64_t end = std::min<std::int64_t>(std::int64_t(dotRows.size()), clip.bottom - top);
    for (std::int64_t i = first; i < end; ++i)
    {
        const int inset = dotRows[std::size_t(i)].first;
        const int from = int(std::max<std::int64_t>(left + inset, clip.left));
        const int to = int(std::min<std::int64_t>(left + size - inset, clip.right));
        if (from < to)
            sink.span(int(top + i), from, to);
    }
}

template <class Sink>
void WidePen::piece(const Sink& sink, const RECT& clip, const Segment& part, const Segment& line,
                    PolygonFiller& filler) const
{
    const std::int64_t half = size / 2;
    const POINT from = part.from, to = part.to;
    if (line.from.y == line.to.y)
        box(sink, clip, std::min(from.x, to.x), from.y - half, std::max(from.x, to.x), from.y - half + size);
    else if (line.from.x == line.to.x)
        box(sink, clip, from.x - half, std::min(from.y, to.y), from.x - half + size, std::max(from.y, to.y));
    else
        fillQuadrangle(sink, clip, slantedSegment(part, line, size), filler);
}

template <class Sink>
void WidePen::polyline(const Sink& sink, const RECT& clip, std::span<const POINT> points, bool closed,
                       PolygonFiller& filler) const
{
    for (std::size_t i = 0; i < points.size(); ++i)
    {
        dot(sink, clip, points[i]);
        if (i + 1 < points.size() || closed)
            segment(sink, clip, {points[i], points[i + 1 < points.size() ? i + 1 : 0]}, filler);
    }
}

} // namespace kv::raster
