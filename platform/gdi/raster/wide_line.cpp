// The shapes that make up a wide line.
#include "platform/gdi/raster/wide_line.h"

#include "platform/gdi/raster/rect.h"

namespace kv::raster
{

WidePen::WidePen(int width) : size(std::max(width, 1))
{
    if (size > tableLimit)
        return;
    const Ellipse round({0, 0, size, size}, {0, 0, size, size});
    const std::size_t half = std::size_t(round.endRow());
    for (std::size_t i = half; i-- > 0;)
        dotRows.push_back(round.row(int(i)));
    for (std::size_t i = size % 2; i < half; ++i)
        dotRows.push_back(round.row(int(i)));
}

RECT WidePen::bounds(std::span<const POINT> points, int width)
{
    RECT all{INT32_MAX, INT32_MAX, INT32_MIN, INT32_MIN};
    for (const POINT& p : points)
        all = {std::min(all.left, p.x), std::min(all.top, p.y), std::max(all.right, p.x), std::max(all.bottom, p.y)};
    if (points.empty())
        return {0, 0, 0, 0};
    const std::int64_t margin = std::int64_t(width) + 2;
    return {saturated(all.left - margin), saturated(all.top - margin), saturated(all.right + margin),
            saturated(all.bottom + margin)};
}

} // namespace kv::raster
