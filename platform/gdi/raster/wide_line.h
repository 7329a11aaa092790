// Solid lines of some width: at every vertex a dot, for every segment a quadrangle, painted as their union.
#pragma once

#include "platform/gdi/raster/coverage.h"
#include "platform/gdi/raster/ellipse.h"
#include "platform/gdi/raster/polygon.h"
#include "platform/gdi/raster/rect.h"

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
Quadrangle slantedSegment(const Segment& segment, const Segment& line, int width);

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
        filler.fill(sink, clip, slantedSegment(part, line, size).corners, FillRule::Alternate);
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
