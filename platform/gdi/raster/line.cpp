// Finds the part of a line inside a rectangle without walking to it.
#include "platform/gdi/raster/line.h"

#include <algorithm>

namespace kv::raster
{

namespace
{

using Wide = __int128;

Wide ceilDivide(Wide a, Wide b) // b > 0
{
    return a > 0 ? (a - 1) / b + 1 : -(-a / b);
}

// The steps k at which from + direction * k lies in [low, high), as a half-open range cut to [begin, end).
void limitMajor(std::int64_t from, int direction, int low, int high, std::int64_t& begin, std::int64_t& end)
{
    const std::int64_t first = direction > 0 ? low - from : from - (high - 1);
    const std::int64_t past = direction > 0 ? high - from : from - low + 1;
    begin = std::max(begin, first);
    end = std::min(end, past);
}

} // namespace

bool clipLine(POINT from, POINT to, const RECT& clip, LineWalk& walk)
{
    walk = detail::wholeLine(from, to);
    const bool flat = walk.major.x != 0;
    std::int64_t begin = 0, end = walk.count;
    if (flat)
        limitMajor(from.x, walk.major.x, clip.left, clip.right, begin, end);
    else
        limitMajor(from.y, walk.major.y, clip.top, clip.bottom, begin, end);
    if (begin >= end)
        return false;

    // Across: after k steps the line has moved floor((slope * k + half) / limit) pixels, which grows with k.
    const std::int64_t start = flat ? from.y : from.x;
    const int direction = flat ? walk.minor.y : walk.minor.x;
    std::int64_t low = 0, past = std::int64_t(1) << 40;
    limitMajor(start, direction, flat ? clip.top : clip.left, flat ? clip.bottom : clip.right, low, past);
    if (low >= past)
        return false;
    if (walk.slope == 0)
    {
        if (low > 0)
            return false;
    }
    else
    {
        const Wide first = ceilDivide(Wide(low) * walk.limit - walk.error, walk.slope);
        const Wide beyond = ceilDivide(Wide(past) * walk.limit - walk.error, walk.slope);
        begin = std::int64_t(std::max<Wide>(begin, first));
        end = std::int64_t(std::min<Wide>(end, beyond));
    }
    if (begin >= end)
        return false;

    const Wide travelled = Wide(walk.slope) * begin + walk.error;
    const std::int64_t across = std::int64_t(travelled / walk.limit);
    walk.error = std::int64_t(travelled % walk.limit);
    walk.x = int(std::int64_t(from.x) + walk.major.x * begin + walk.minor.x * across);
    walk.y = int(std::int64_t(from.y) + walk.major.y * begin + walk.minor.y * across);
    walk.count = end - begin;
    walk.skipped = begin;
    return true;
}

} // namespace kv::raster
