// Source pixels of a stretched target pixel.
#include "platform/gdi/stretch.h"

#include <algorithm>

namespace kv::gdi
{

namespace
{

std::int64_t multiplied(std::int64_t a, std::int64_t b, std::int64_t add, std::int64_t divisor)
{
    // Extents reach 33 bits.
    return std::int64_t((__int128(a) * b + add) / divisor);
}

} // namespace

StretchAxis::StretchAxis(std::int64_t to, std::int64_t toExtent, std::int64_t from, std::int64_t fromExtent, int limit)
    : targetStart(toExtent < 0 ? to + toExtent + 1 : to), targetSize(toExtent < 0 ? -toExtent : toExtent),
      sourceStart(fromExtent < 0 ? from + fromExtent + 1 : from), sourceSize(fromExtent < 0 ? -fromExtent : fromExtent),
      targetMirrored(toExtent < 0), sourceMirrored(fromExtent < 0), bitmapSize(limit)
{
}

AxisRange StretchAxis::sources(int target) const
{
    std::int64_t k = target - targetStart;
    if (targetMirrored)
        k = targetSize - 1 - k;
    std::int64_t first, end;
    if (sourceSize <= targetSize)
    {
        // ceil((2k + 1) M / 2N) - 1
        first = multiplied(2 * k + 1, sourceSize, 2 * targetSize - 1, 2 * targetSize) - 1;
        end = first + 1;
    }
    else
    {
        // from behind floor(k M / N - 1/2) up to floor((k + 1) M / N - 1/2)
        const auto last = [&](std::int64_t n) { return multiplied(2 * n, sourceSize, targetSize, 2 * targetSize) - 1; };
        first = last(k) + 1;
        end = last(k + 1) + 1;
    }
    if (sourceMirrored)
    {
        const std::int64_t mirrored = sourceSize - end;
        end = sourceSize - first;
        first = mirrored;
    }
    first = std::max<std::int64_t>(first + sourceStart, 0);
    end = std::min<std::int64_t>(end + sourceStart, bitmapSize);
    return first < end ? AxisRange{int(first), int(end)} : AxisRange{0, 0};
}

} // namespace kv::gdi
