// Rectangles of pixels, with arithmetic that stays within the range of coordinates.
#pragma once

#include "platform/gdi/gdi_types.h"

#include <algorithm>
#include <cstdint>

namespace kv::raster
{

inline LONG saturated(std::int64_t v)
{
    return LONG(std::clamp<std::int64_t>(v, INT32_MIN, INT32_MAX));
}

inline bool isEmpty(const RECT& r)
{
    return r.left >= r.right || r.top >= r.bottom;
}

inline RECT common(const RECT& a, const RECT& b)
{
    return {std::max(a.left, b.left), std::max(a.top, b.top), std::min(a.right, b.right), std::min(a.bottom, b.bottom)};
}

inline bool contains(const RECT& outer, const RECT& inner)
{
    return outer.left <= inner.left && outer.top <= inner.top && inner.right <= outer.right &&
           inner.bottom <= outer.bottom;
}

inline RECT grown(const RECT& r, int margin)
{
    const std::int64_t m = margin;
    return {saturated(r.left - m), saturated(r.top - m), saturated(r.right + m), saturated(r.bottom + m)};
}

// Cut to coordinates that can be added to and halved in plain ints.
inline RECT limited(const RECT& r)
{
    constexpr LONG reach = 1 << 28;
    return {std::clamp(r.left, -reach, reach), std::clamp(r.top, -reach, reach), std::clamp(r.right, -reach, reach),
            std::clamp(r.bottom, -reach, reach)};
}

} // namespace kv::raster
