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
    Int error, errorStep, height; // error + 1 pixel-heights below the rounded-up crossing
    std::int32_t top, bottom;     // rows inside the clip, bottom outside
    std::int32_t direction;       // 1 down, -1 up
    std::uint32_t next;           // in the list of its first row

    void advance()
    {
        x += step;
        error += errorStep;
        if (error >= height)
        {
            error -= height;
            ++x;
        }
    }
};

// Keeps its buffers between figures. Not to be shared between threads.
class PolygonFiller
{
public:
    // Any number of closed outlines that are filled as one figure.
    void begin();
    void add(std::span<const POINT> outline);
    // Makes room for figures of that many points on a target of that many rows, so that none of them allocates.
    void reserve(std::size_t points, int targetRows);

    // Emits the spans inside the rectangle, which is a part of the target. Rows come in order, spans from the left.
    template <class Sink>
    void fill(const Sink& sink, const RECT& clip, FillRule rule);

    // One outline.
    template <class Sink>
    void fill(const Sink& sink, const RECT& clip, std::span<const POINT> outline, FillRule rule)
    {
        begin();
        add(outline);
        fill(sink, clip, rule);
    }

private:
    template <class Int>
    struct Table
    {
        std::vector<Edge<Int>> edges;
        std::vector<Edge<Int>*> active;
        std::vector<Edge<Int>*> entering;

        void reserve(std::size_t count)
        {
            edges.reserve(count);
            active.reserve(count);
            entering.reserve(count);
        }
    };

    struct Segment
    {
        POINT upper, lower;
        int direction;
    };

    // Makes the edges that matter inside the clip; false if there are none.
    template <class Int>
    bool prepare(Table<Int>& table, const RECT& clip);
    // Brings the edges that start in a row into the active ones, which stay sorted by x.
    template <class Int>
    void enter(Table<Int>& table, int y);
    // Sorts active edges again after some have crossed.
    template <class Int>
    void resort(Table<Int>& table);
    template <class Int, class Sink>
    void scan(Table<Int>& table, const Sink& sink, const RECT& clip, FillRule rule);

    std::vector<Segment> segments;
    bool nearby = true; // all coordinates small enough for 32-bit errors
    Table<std::int32_t> nearTable;
    Table<std::int64_t> farTable;
    std::vector<std::uint32_t> firstOfRow; // of rows firstRow .. lastRow - 1
    int firstRow = 0, lastRow = 0;
};

extern template bool PolygonFiller::prepare(Table<std::int32_t>&, const RECT&);
extern template bool PolygonFiller::prepare(Table<std::int64_t>&, const RECT&);
extern template void PolygonFiller::enter(Table<std::int32_t>&, int);
extern template void PolygonFiller::enter(Table<std::int64_t>&, int);
extern template void PolygonFiller::resort(Table<std::int32_t>&);
extern template void PolygonFiller::resort(Table<std::int64_t>&);

template <class Sink>
void PolygonFiller::fill(const Sink& sink, const RECT& clip, FillRule rule)
{
    if (nearby)
        scan(nearTable, sink, clip, rule);
    else
        scan(farTable, sink, clip, rule);
}

template <class Int, class Sink>
void PolygonFiller::scan(Table<Int>& table, const Sink& sink, const RECT& clip, FillRule rule)
{
    if (!prepare(table, clip))
        return;
    auto& active = table.active;
    active.clear();
    const int mask = rule == FillRule::Alternate ? 1 : -1;
    for (int y = firstRow; y < lastRow; ++y)
    {
        if (firstOfRow[std::size_t(y - firstRow)] != ~0u)
            enter(table, y);
        int winding = 0;
        int from = 0;
        std::size_t kept = 0;
        bool sorted = true;
        std::int32_t before = INT32_MIN;
        for (Edge<Int>* const edge : active)
        {
            const bool wasOut = (winding & mask) == 0;
            winding += edge->direction;
            const bool isOut = (winding & mask) == 0;
            if (wasOut && !isOut)
                from = std::max(edge->x, clip.left);
            else if (!wasOut && isOut)
            {
                const int to = std::min(edge->x, clip.right);
                if (from < to)
                    sink.span(y, from, to);
            }
            if (edge->bottom > y + 1)
            {
                edge->advance();
                sorted &= before <= edge->x;
                before = edge->x;
                active[kept++] = edge;
            }
        }
        active.resize(kept);
        if (!sorted)
            resort(table);
    }
}

} // namespace kv::raster
