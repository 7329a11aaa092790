// Which source pixels a target pixel stands for when a blit stretches, on one axis.
#pragma once

#include <cstdint>

namespace kv::gdi
{

struct AxisRange
{
    int first, end; // empty if first >= end
};

class StretchAxis
{
public:
    // Origins and signed, non-zero extents of target and source (negative ones mirror), and the extent of the bitmap
    // that the source is a part of.
    StretchAxis(std::int64_t to, std::int64_t toExtent, std::int64_t from, std::int64_t fromExtent, int limit);

    // The sources of a target coordinate inside the target's extent, cut to the bitmap.
    AxisRange sources(int target) const;
    bool isMirrored() const { return targetMirrored != sourceMirrored; }

private:
    std::int64_t targetStart, targetSize, sourceStart, sourceSize;
    bool targetMirrored, sourceMirrored;
    int bitmapSize;
};

} // namespace kv::gdi
