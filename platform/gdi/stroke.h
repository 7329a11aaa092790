// How a pen draws: thin or wide, solid or dashed. A stroke is open or closed polylines in device coordinates.
#pragma once

#include "platform/gdi/paint.h"
#include "platform/gdi/raster/dash.h"
#include "platform/gdi/raster/wide_line.h"

#include <optional>
#include <span>
#include <vector>

namespace kv::gdi
{

// The pen of a context, mapped to the device.
class Stroke
{
public:
    explicit Stroke(const Dc& dc);

    bool none() const { return !ink; }
    bool isWide() const { return pen.has_value(); }
    int width() const { return pen ? pen->width() : 1; }
    const Ink& penInk() const { return ink; }
    // Of the gaps of a dashed pen on an opaque background.
    const Ink& gapInk() const { return gap; }
    bool isDashed() const { return !dashes.empty(); }
    // The rectangle that the stroke of these points stays inside.
    RECT bounds(std::span<const POINT> points) const;

    // Draws onto a sink. Thin strokes touch each step's pixel once, wide ones may touch pixels again. `gaps` draws the
    // spaces between the dashes instead.
    template <class Sink>
    void draw(const Sink& sink, const RECT& clip, std::span<const POINT> points, bool closed,
              raster::PolygonFiller& filler, bool gaps = false) const
    {
        if (dashes.empty())
        {
            if (pen)
                pen->polyline(sink, clip, points, closed, filler);
            else
                raster::polyline(sink, clip, points, closed);
            return;
        }
        raster::DashPosition position(dashes);
        std::vector<raster::DashPiece> pieces;
        for (std::size_t i = 0; i + (closed ? 0 : 1) < points.size(); ++i)
        {
            const POINT from = points[i], to = points[i + 1 < points.size() ? i + 1 : 0];
            if (pen)
                raster::dashPieces(pieces, clip, pen->width(), {from, to}, position);
            else
                raster::dashedLine(sink, clip, from, to, position, gaps);
        }
        for (const raster::DashPiece& piece : pieces)
        {
            pen->dot(sink, clip, piece.part.from);
            pen->dot(sink, clip, piece.part.to);
            pen->piece(sink, clip, piece.part, piece.line, filler);
        }
    }

private:
    Ink ink, gap;
    std::optional<raster::WidePen> pen; // none: one pixel wide
    std::vector<int> dashes; // dash and gap in turn, in steps of the longer axis (thin pens) or along the line
};

} // namespace kv::gdi
