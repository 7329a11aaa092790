// Lines and figures: what is filled, what is stroked, and in which order.
#include "platform/gdi/gdi.h"
#include "platform/gdi/stroke.h"

#include "platform/gdi/raster/coverage.h"
#include "platform/gdi/raster/ellipse.h"
#include "platform/gdi/raster/polygon.h"
#include "platform/gdi/raster/rect.h"

#include <algorithm>
#include <cmath>

using namespace kv::gdi;
namespace raster = kv::raster;

namespace
{

using Outline = std::vector<POINT>;

constexpr double wholeTurn = 2 * 3.14159265358979323846;

// Buffers that live from call to call.
raster::PolygonFiller& sharedFiller()
{
    thread_local raster::PolygonFiller filler;
    return filler;
}

DrawnSpans* keptSpans(const Dc& dc, const Stroke& stroke, const Ink& brush, const RECT& clip)
{
    const auto plain = [](const Ink& ink) { return !ink || ink.isPlain(); };
    return plain(brush) && plain(stroke.penInk()) && plain(stroke.gapInk()) ? dc.bitmap->spansOver(clip) : nullptr;
}

// Draws a figure inside each visible rectangle: its inside with the brush, then its line with the pen. `fill` and
// `line` are called with a sink and a clip. `bounds` holds all that they touch.
template <class Fill, class Line>
void drawFigure(const Dc& dc, const Stroke& stroke, const Ink& brush, const RECT& bounds, Fill fill, Line line)
{
    const int depth = dc.bitmap->depth();
    // Where a wide line shows only once under its raster operation, or the brush would show through it, the two are
    // kept apart; otherwise the line just covers what is there.
    const bool apart = stroke.isWide() && !stroke.penInk().overwrites(depth);
    thread_local raster::Coverage coverage;
    for (const RECT& visible : dc.visible())
    {
        const RECT clip = raster::common(visible, bounds);
        if (raster::isEmpty(clip))
            continue;
        if (DrawnSpans* spans = keptSpans(dc, stroke, brush, clip))
        {
            const auto keeper = [=](const Ink& ink) { return SpanKeeper{spans, maskOf(ink.rop2, ink.value).flip}; };
            if (brush)
                fill(keeper(brush), clip);
            if (!stroke.none())
                line(keeper(stroke.penInk()), clip, false);
            if (stroke.gapInk())
                line(keeper(stroke.gapInk()), clip, true);
            continue;
        }
        const PixelView view = dc.bitmap->pixels(clip);
        if (brush && apart)
        {
            coverage.reset(clip);
            fill(raster::Cover{&coverage}, clip);
            line(raster::Uncover{&coverage}, clip, false);
            withSink(view, brush, [&](const auto& sink) { coverage.emit(sink); });
        }
        else if (brush)
            withSink(view, brush, [&](const auto& sink) { fill(sink, clip); });
        if (stroke.none())
            continue;
        if (stroke.isWide() && !stroke.penInk().repeatable(depth))
        {
            coverage.reset(clip);
            line(raster::Cover{&coverage}, clip, false);
            withSink(view, stroke.penInk(), [&](const auto& sink) { coverage.emit(sink); });
        }
        else
            withSink(view, stroke.penInk(), [&](const auto& sink) { line(sink, clip, false); });
        if (stroke.gapInk())
            withSink(view, stroke.gapInk(), [&](const auto& sink) { line(sink, clip, true); });
    }
}

const auto noFill = [](const auto&, const RECT&) {};

void strokePoints(const Dc& dc, const Stroke& stroke, std::span<const POINT> points, bool closed)
{
    if (stroke.none() || points.empty())
        return;
    drawFigure(dc, stroke, Ink(), stroke.bounds(points), noFill,
               [&](const auto& sink, const RECT& clip, bool gaps)
               { stroke.draw(sink, clip, points, closed, sharedFiller(), gaps); });
}

Outline mapped(const Dc& dc, const POINT* points, std::size_t count)
{
    Outline result(points, points + count);
    for (POINT& p : result)
        p = dc.state.mapping.device(p);
    return result;
}

raster::FillRule fillRule(const Dc& dc)
{
    return dc.state.polyFillMode == WINDING ? raster::FillRule::Winding : raster::FillRule::Alternate;
}

void drawPolygons(const Dc& dc, std::span<const Outline> outlines)
{
    const Stroke stroke(dc);
    const Ink brush = brushInk(dc);
    RECT bounds{INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN};
    for (const Outline& outline : outlines)
    {
        const RECT b = stroke.bounds(outline);
        bounds = {std::min(bounds.left, b.left), std::min(bounds.top, b.top), std::max(bounds.right, b.right),
                  std::max(bounds.bottom, b.bottom)};
    }
    drawFigure(
        dc, stroke, brush, bounds,
        [&](const auto& sink, const RECT& clip)
        {
            raster::PolygonFiller& filler = sharedFiller();
            filler.begin();
            for (const Outline& outline : outlines)
                filler.add(outline);
            filler.fill(sink, clip, fillRule(dc));
        },
        [&](const auto& sink, const RECT& clip, bool gaps)
        {
            for (const Outline& outline : outlines)
                stroke.draw(sink, clip, outline, true, sharedFiller(), gaps);
        });
}

// ---- Boxes

struct Insets
{
    int before, after;
};

// How far a pen that stays inside its frame moves the line in from the left and top, and from the right and bottom.
Insets insideFrame(const Dc& dc, const Stroke& stroke)
{
    if (dc.pen->line() != PS_INSIDEFRAME || !stroke.isWide())
        return {0, 0};
    return {stroke.width() / 2, (stroke.width() - 1) / 2};
}

// With its right and bottom edges, which are outside otherwise.
RECT withEdges(const RECT& box)
{
    return {box.left, box.top, raster::saturated(std::int64_t(box.right) + 1),
            raster::saturated(std::int64_t(box.bottom) + 1)};
}

RECT movedIn(const RECT& box, const Insets& inset)
{
    return {raster::saturated(std::int64_t(box.left) + inset.before),
            raster::saturated(std::int64_t(box.top) + inset.before),
            raster::saturated(std::int64_t(box.right) - inset.after),
            raster::saturated(std::int64_t(box.bottom) - inset.after)};
}

// The corners of a logical box in a turned world.
Outline turnedBox(const Dc& dc, int left, int top, int right, int bottom)
{
    const POINT corners[] = {{right, top}, {left, top}, {left, bottom}, {right, bottom}};
    return mapped(dc, corners, 4);
}

void drawRectangle(const Dc& dc, RECT box)
{
    const Stroke stroke(dc);
    const Ink brush = brushInk(dc);
    if (dc.state.mapping.graphicsMode == GM_ADVANCED)
        box = withEdges(box);
    if (raster::isEmpty(box))
        return;
    const RECT frame = movedIn(box, insideFrame(dc, stroke));
    if (raster::isEmpty(frame))
        return;
    // From the top right over the top left and round.
    const POINT corners[] = {{frame.right - 1, frame.top},
                             {frame.left, frame.top},
                             {frame.left, frame.bottom - 1},
                             {frame.right - 1, frame.bottom - 1}};
    RECT inside = frame; // the line's own pixels are left out: all of them, or without a pen the last row and column
    if (stroke.none())
        inside = {inside.left, inside.top, inside.right - 1, inside.bottom - 1};
    else if (!stroke.isWide() && !stroke.isDashed())
        inside = {inside.left + 1, inside.top + 1, inside.right - 1, inside.bottom - 1};
    drawFigure(
        dc, stroke, brush, raster::grown(box, stroke.width() + 2),
        [&](const auto& sink, const RECT& clip)
        { raster::box(sink, clip, inside.left, inside.top, inside.right, inside.bottom); },
        [&](const auto& sink, const RECT& clip, bool gaps)
        { stroke.draw(sink, clip, corners, true, sharedFiller(), gaps); });
}

// ---- Ellipses

// The outline of an ellipse from the right end of its middle, counter-clockwise on the screen: its pixels, or, where
// it is too large to list those, the corners of a polygon.
Outline ringOf(const raster::Ellipse& ellipse)
{
    if (ellipse.isWalked())
        return ellipse.walk();
    const RECT& box = ellipse.bounds();
    const double rx = (double(box.right) - box.left - 1) / 2, ry = (double(box.bottom) - box.top - 1) / 2;
    constexpr int sides = 4000;
    Outline ring;
    for (int i = 0; i < sides; ++i)
    {
        const double angle = wholeTurn * i / sides;
        ring.push_back({LONG(box.left + rx * (1 + std::cos(angle))), LONG(box.top + ry * (1 - std::sin(angle)))});
    }
    return ring;
}

void drawUprightEllipse(const Dc& dc, RECT box)
{
    const Stroke stroke(dc);
    const Ink brush = brushInk(dc);
    box = movedIn(box, insideFrame(dc, stroke));
    if (raster::isEmpty(box))
        return;
    const std::int64_t width = std::int64_t(box.right) - box.left, height = std::int64_t(box.bottom) - box.top;
    if (width == 1 && height == 1 && !stroke.isWide())
        return; // required: a single pixel shows nothing, unless a wide pen makes it a dot
    // Wide lines do not ask for the rows of an ellipse that is too large to walk.
    const raster::Ellipse ellipse(box, raster::grown(dc.bitmap->box(), 1));
    const Outline ring = stroke.isWide() || stroke.isDashed() ? ringOf(ellipse) : Outline();
    drawFigure(
        dc, stroke, brush, raster::grown(box, stroke.width() + 2),
        [&](const auto& sink, const RECT& clip)
        {
            if (stroke.none() && (width <= 2 || height <= 2))
                raster::box(sink, clip, box.left, box.top, box.right - 1, box.bottom - 1);
            else
                ellipse.fill(sink, clip);
        },
        [&](const auto& sink, const RECT& clip, bool gaps)
        {
            if (stroke.isWide() || stroke.isDashed())
                stroke.draw(sink, clip, ring, true, sharedFiller(), gaps);
            else
                ellipse.outline(sink, clip);
        });
}

// In a turned world the curve is a polygon with enough sides that each strays less than a pixel.
Outline turnedEllipse(const Dc& dc, double left, double top, double right, double bottom)
{
    const DeviceMapping& m = dc.state.mapping.toDevice();
    const double radius = std::max(std::hypot(right - left, 0), std::fabs(bottom - top)) *
                          std::max(std::hypot(m.m11, m.m12), std::hypot(m.m21, m.m22));
    const int sides = std::clamp(int(std::min(4.0 * std::sqrt(radius), 1e5)), 100, 4000);
    Outline outline;
    for (int i = 0; i < sides; ++i)
    {
        const double angle = wholeTurn * i / sides;
        outline.push_back(m.toDevice((left + right) / 2 + (right - left) / 2 * std::cos(angle),
                                     (top + bottom) / 2 + (bottom - top) / 2 * std::sin(angle)));
    }
    return outline;
}

// ---- Arcs

struct Vector
{
    double x, y;
};

// The turn from one direction to another, counter-clockwise on the screen: from 0 up to a whole turn, 0 only if they
// are the same.
double turn(Vector from, Vector to)
{
    const double angle = std::atan2(from.y * to.x - from.x * to.y, from.x * to.x + from.y * to.y);
    return angle < 0 ? angle + wholeTurn : angle;
}

// The pixels of an arc in order, the one that a stroke leaves out last.
Outline arcPixels(const Dc& dc, const RECT& box, POINT start, POINT end)
{
    const raster::Ellipse ellipse(box, raster::grown(dc.bitmap->box(), 1));
    const Outline ring = ringOf(ellipse);
    if (ring.empty())
        return {};
    const LONG cx = LONG(box.left + (std::int64_t(box.right) - box.left) / 2);
    const LONG cy = LONG(box.top + (std::int64_t(box.bottom) - box.top) / 2);
    const bool evenWidth = ((box.right ^ box.left) & 1) == 0, evenHeight = ((box.bottom ^ box.top) & 1) == 0;
    const Vector from{double(start.x) - cx, double(start.y) - cy}, to{double(end.x) - cx, double(end.y) - cy};
    const double length = turn(from, to) == 0 ? wholeTurn : turn(from, to);
    // Where a pixel stands behind the start. The four quarters are mirror images of one another, so in an even box the
    // left and upper ones are measured from the pixel beside the centre. On a ray itself, a pixel of the lower half
    // counts as before it and one of the upper half as behind it.
    const auto behindStart = [&](POINT p)
    {
        const Vector v{double(p.x) - cx + (evenWidth && p.x < cx), double(p.y) - cy + (evenHeight && p.y < cy)};
        const double angle = turn(from, v);
        return angle == 0 && p.y > ellipse.upper(0) ? wholeTurn : angle;
    };
    const auto isInside = [&](POINT p, double behind)
    {
        const Vector v{double(p.x) - cx + (evenWidth && p.x < cx), double(p.y) - cy + (evenHeight && p.y < cy)};
        return length == wholeTurn || (turn(to, v) == 0 ? p.y > ellipse.upper(0) : behind < length);
    };
    std::vector<double> behind;
    for (const POINT& p : ring)
        behind.push_back(behindStart(p));
    std::size_t first = 0; // where the walk passes the start
    for (std::size_t i = 1; i < ring.size(); ++i)
        if (behind[i] < behind[i - 1])
            first = i;
    Outline result;
    for (std::size_t i = 0; i < ring.size(); ++i)
    {
        const std::size_t at = (first + i) % ring.size();
        if (isInside(ring[at], behind[at]))
            result.push_back(ring[at]);
    }
    return result;
}

} // namespace

BOOL LineTo(HDC handle, int x, int y)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    const POINT ends[] = {dc->state.position, {x, y}};
    strokePoints(*dc, Stroke(*dc), mapped(*dc, ends, 2), false);
    dc->state.position = {x, y};
    return TRUE;
}

BOOL Polyline(HDC handle, const POINT* points, int count)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    if (!points || count < 2)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    strokePoints(*dc, Stroke(*dc), mapped(*dc, points, std::size_t(count)), false);
    return TRUE;
}

BOOL PolylineTo(HDC handle, const POINT* points, DWORD count)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    if (!points || count == 0)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    Outline all{dc->state.position};
    all.insert(all.end(), points, points + count);
    strokePoints(*dc, Stroke(*dc), mapped(*dc, all.data(), all.size()), false);
    dc->state.position = all.back();
    return TRUE;
}

BOOL PolyPolyline(HDC handle, const POINT* points, const DWORD* counts, DWORD figures)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    if (!points || !counts || figures == 0 ||
        std::any_of(counts, counts + figures, [](DWORD n) { return n < 2 || n > INT32_MAX; }))
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    for (DWORD i = 0; i < figures; ++i)
    {
        strokePoints(*dc, Stroke(*dc), mapped(*dc, points, counts[i]), false);
        points += counts[i];
    }
    return TRUE;
}

BOOL Polygon(HDC handle, const POINT* points, int count)
{
    return PolyPolygon(handle, points, &count, 1);
}

BOOL PolyPolygon(HDC handle, const POINT* points, const int* counts, int figures)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    if (!points || !counts || figures < 1 || std::any_of(counts, counts + figures, [](int n) { return n < 2; }))
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    std::vector<Outline> outlines;
    for (int i = 0; i < figures; ++i)
    {
        outlines.push_back(mapped(*dc, points, std::size_t(counts[i])));
        points += counts[i];
    }
    drawPolygons(*dc, outlines);
    return TRUE;
}

BOOL Rectangle(HDC handle, int left, int top, int right, int bottom)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    if (dc->state.mapping.isUpright())
        drawRectangle(*dc, dc->state.mapping.deviceRect({left, top, right, bottom}));
    else
    {
        const Outline corners = turnedBox(*dc, left, top, right, bottom);
        drawPolygons(*dc, {&corners, 1});
    }
    return TRUE;
}

BOOL Ellipse(HDC handle, int left, int top, int right, int bottom)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    if (dc->state.mapping.isUpright())
    {
        const Mapping& mapping = dc->state.mapping;
        // Through a world transform the curve runs from corner to corner: the right and bottom edges are inside.
        RECT box = mapping.deviceRect({left, top, right, bottom});
        if (!isIdentity(mapping.world) && !raster::isEmpty(box))
            box = withEdges(box);
        drawUprightEllipse(*dc, box);
    }
    else if (left != right && top != bottom)
    {
        const Outline curve = turnedEllipse(*dc, left, top, right, bottom);
        drawPolygons(*dc, {&curve, 1});
    }
    return TRUE;
}

BOOL Arc(HDC handle, int left, int top, int right, int bottom, int startX, int startY, int endX, int endY)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    const Mapping& mapping = dc->state.mapping;
    POINT start = mapping.device({startX, startY}), end = mapping.device({endX, endY});
    if (dc->state.arcDirection == AD_CLOCKWISE && mapping.graphicsMode != GM_ADVANCED)
        std::swap(start, end);
    const RECT box = mapping.deviceRect({left, top, right, bottom});
    const Outline pixels = arcPixels(*dc, box, start, end);
    if (!pixels.empty())
        strokePoints(*dc, Stroke(*dc), pixels, false);
    return TRUE;
}

COLORREF SetPixel(HDC handle, int x, int y, COLORREF color)
{
    const auto dc = findDc(handle);
    if (!dc)
        return CLR_INVALID;
    const POINT p = dc->state.mapping.device({x, y});
    const RasterMask mask = maskOf(dc->state.rop2, brushValue(*dc, plainColor(color)));
    for (const RECT& r : dc->visible())
    {
        if (!PtInRect(&r, p))
            continue;
        const PixelView view = dc->bitmap->pixels({p.x, p.y, p.x + 1, p.y + 1});
        view.setPixel(p.x, p.y, (view.pixel(p.x, p.y) & mask.keep) ^ mask.flip);
    }
    return GetNearestColor(handle, color);
}

BOOL SetPixelV(HDC dc, int x, int y, COLORREF color)
{
    return SetPixel(dc, x, y, color) != CLR_INVALID;
}

COLORREF GetPixel(HDC handle, int x, int y)
{
    const auto dc = findDc(handle);
    if (!dc)
        return CLR_INVALID;
    const POINT p = dc->state.mapping.device({x, y});
    const RECT all = dc->bitmap->box();
    if (!PtInRect(&all, p))
        return CLR_INVALID;
    const std::uint32_t value = dc->bitmap->pixels({p.x, p.y, p.x + 1, p.y + 1}).pixel(p.x, p.y);
    const ColorTable& table = dc->bitmap->table();
    return colorOf(table.empty() ? value & 0xFFFFFF : packed(table[value]));
}
