// Ellipses inside a box of whole pixels: the outline pixels by rows, so that filling, a thin outline, arcs and wide
// outlines all follow the same curve.
#pragma once

#include "platform/gdi/raster/sinks.h"

#include <algorithm>
#include <vector>

namespace kv::raster
{

// The outline in one quadrant. Row i lies i rows below the (lower) middle row, and its mirror image above the (upper)
// middle row; its pixels are `first` to `last` columns inside the box, from either side.
struct EllipseRow
{
    int first, last;
};

class Ellipse
{
public:
    // The box right and bottom of which are outside. An empty one has no pixels. `visible`
    // are the rows that will be asked for: of very large ellipses only those are computed.
    Ellipse(const RECT& box, const RECT& visible) { reset(box, visible); }
    Ellipse() = default;
    // Becomes another ellipse; memory is kept.
    void reset(const RECT& box, const RECT& visible);
    // Makes room for any ellipse on a target of that many rows, so that `reset` allocates nothing.
    void reserve(int targetRows) { rows.reserve(mostRows(targetRows)); }

    bool empty() const { return box.left >= box.right || box.top >= box.bottom; }
    const RECT& bounds() const { return box; }
    int upper(int i) const { return upperMiddle - i; }
    int lower(int i) const { return lowerMiddle + i; }
    int firstRow() const { return skipped; }
    int endRow() const { return skipped + int(rows.size()); }
    EllipseRow row(int i) const { return rows[std::size_t(i - skipped)]; }

    // The outline pixels in the order of a walk around it, counter-clockwise on the screen from the right end of the
    // upper middle row. Each pixel once. Only for ellipses that are small enough to have been walked.
    bool isWalked() const { return walked; }
    std::vector<POINT> walk() const;

    // Every row from its first to its last outline pixel.
    template <class Sink>
    void fill(const Sink& sink, const RECT& clip) const
    {
        forEachRow(clip,
                   [&](int y, const EllipseRow& r) { cut(sink, clip, y, box.left + r.first, box.right - r.first); });
    }

    // The outline pixels, each once.
    template <class Sink>
    void outline(const Sink& sink, const RECT& clip) const
    {
        forEachRow(clip,
                   [&](int y, const EllipseRow& r)
                   {
                       const std::int64_t left = std::int64_t(box.left) + r.last + 1,
                                          right = std::int64_t(box.right) - r.last - 1;
                       if (left >= right)
                       {
                           cut(sink, clip, y, box.left + r.first, box.right - r.first);
                           return;
                       }
                       cut(sink, clip, y, box.left + r.first, int(left));
                       cut(sink, clip, y, int(right), box.right - r.first);
                   });
    }

private:
    template <class Sink>
    static void cut(const Sink& sink, const RECT& clip, int y, int from, int to)
    {
        from = std::max(from, clip.left);
        to = std::min(to, clip.right);
        if (from < to)
            sink.span(y, from, to);
    }

    template <class Visit>
    void forEachRow(const RECT& clip, Visit visit) const
    {
        for (int i = firstRow(); i < endRow(); ++i)
        {
            const int above = upper(i), below = lower(i);
            if (above < clip.top && below >= clip.bottom)
                break;
            if (above != below && above >= clip.top && above < clip.bottom)
                visit(above, row(i));
            if (below >= clip.top && below < clip.bottom)
                visit(below, row(i));
        }
    }

    static std::size_t mostRows(int targetRows);
    void walkRows(std::int64_t width, std::int64_t height);
    void computeRows(const RECT& visible);

    RECT box{};
    int upperMiddle = 0, lowerMiddle = 0;
    int skipped = 0;
    bool walked = true;
    std::vector<EllipseRow> rows;
};

} // namespace kv::raster
