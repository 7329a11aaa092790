// A context's pen on the device: its width and its dashes.
#include "platform/gdi/stroke.h"

namespace kv::gdi
{

namespace
{

using Lengths = std::vector<int>;

// Pens of one pixel: the platform's own, in pixels.
Lengths cosmeticDashes(const Pen& pen)
{
    switch (pen.line())
    {
    case PS_DASH:
        return {18, 6};
    case PS_DOT:
        return {3, 3};
    case PS_DASHDOT:
        return {9, 6, 3, 6};
    case PS_DASHDOTDOT:
        return {9, 3, 3, 3, 3, 3};
    case PS_ALTERNATE:
        return {1, 1};
    default:
        return {};
    }
}

Lengths scaled(const std::vector<DWORD>& lengths, int factor)
{
    Lengths result;
    for (const DWORD v : lengths)
        result.push_back(int(std::min<std::int64_t>(std::int64_t(v) * factor, INT32_MAX)));
    return result;
}

// In pen widths. A dash of a wide pen grows by its two half dots, so it is shorter by a width, and its gap longer.
Lengths geometricDashes(const Pen& pen, int width)
{
    Lengths units;
    switch (pen.line())
    {
    case PS_DASH:
        units = {3, 1};
        break;
    case PS_DOT:
        units = {1, 1};
        break;
    case PS_DASHDOT:
        units = {3, 1, 1, 1};
        break;
    case PS_DASHDOTDOT:
        units = {3, 1, 1, 1, 1, 1};
        break;
    default:
        return {};
    }
    if (width > 1)
        for (std::size_t i = 0; i < units.size(); ++i)
            units[i] = int(std::min<std::int64_t>((units[i] + (i % 2 == 0 ? -1 : 1)) * std::int64_t(width), INT32_MAX));
    return units;
}

} // namespace

Stroke::Stroke(const Dc& dc) : ink(gdi::penInk(dc))
{
    if (none())
        return;
    const Pen& p = *dc.pen;
    const bool geometric = p.isGeometric();
    const int width = p.kind == OBJ_EXTPEN && !geometric ? 1 : dc.state.mapping.penWidth(p.width);
    if (width > 1)
        pen.emplace(width);
    if (p.line() == PS_USERSTYLE)
        dashes = scaled(p.lengths, geometric ? 1 : 3);
    else if (geometric)
        dashes = geometricDashes(p, width);
    else if (width == 1)
        dashes = cosmeticDashes(p);
    if (!dashes.empty() && p.kind == OBJ_PEN && dc.state.backgroundMode == OPAQUE)
    {
        gap = ink;
        gap.value = penValue(dc, plainColor(dc.state.background));
    }
}

RECT Stroke::bounds(std::span<const POINT> points) const
{
    return raster::WidePen::bounds(points, width());
}

} // namespace kv::gdi
