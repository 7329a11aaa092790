// A colour as 32-bit surfaces store it.
#pragma once

#include "platform/gdi/gdi.h"

namespace KvN
{

// The order of the bytes is that of a 32-bit bitmap's pixel, so that rows can be copied as they are.
struct KvColor
{
    unsigned char blue = 0;
    unsigned char green = 0;
    unsigned char red = 0;
    unsigned char unused = 0;

    constexpr KvColor() = default;
    constexpr KvColor(int r, int g, int b)
        : blue(static_cast<unsigned char>(b)), green(static_cast<unsigned char>(g)), red(static_cast<unsigned char>(r))
    {
    }
    constexpr explicit KvColor(COLORREF color) : KvColor(GetRValue(color), GetGValue(color), GetBValue(color)) {}

    constexpr COLORREF ColorRef() const { return RGB(red, green, blue); }
    friend constexpr bool operator==(const KvColor&, const KvColor&) = default;
};
static_assert(sizeof(KvColor) == 4);

} // namespace KvN
