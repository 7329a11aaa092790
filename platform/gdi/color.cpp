// Colours and colour tables.
#include "platform/gdi/color.h"

#include <algorithm>
#include <climits>

namespace kv::gdi
{

int nearestIndex(std::span<const RGBQUAD> table, std::uint32_t rgb)
{
    const RGBQUAD wanted = quadOf(rgb);
    int best = 0, bestDistance = INT_MAX;
    for (std::size_t i = 0; i < table.size(); ++i)
    {
        const int r = table[i].rgbRed - wanted.rgbRed, g = table[i].rgbGreen - wanted.rgbGreen,
                  b = table[i].rgbBlue - wanted.rgbBlue;
        const int distance = r * r + g * g + b * b;
        if (distance < bestDistance)
        {
            best = int(i);
            bestDistance = distance;
            if (distance == 0)
                break;
        }
    }
    return best;
}

bool sameColors(std::span<const RGBQUAD> a, std::span<const RGBQUAD> b)
{
    return std::equal(a.begin(), a.end(), b.begin(), b.end(),
                      [](RGBQUAD p, RGBQUAD q) { return packed(p) == packed(q); });
}

const ColorTable& defaultTable()
{
    static const ColorTable table = []
    {
        ColorTable t(256);
        for (int i = 0; i < 256; ++i)
            t[std::size_t(i)] = {BYTE(i / 64 * 64), BYTE(i / 8 % 8 * 32), BYTE(i % 8 * 32), 0};
        static const std::uint32_t first[10] = {0x000000, 0x800000, 0x008000, 0x808000, 0x000080,
                                                0x800080, 0x008080, 0xC0C0C0, 0xC0DCC0, 0xA6CAF0};
        static const std::uint32_t last[10] = {0xFFFBF0, 0xA0A0A4, 0x808080, 0xFF0000, 0x00FF00,
                                               0xFFFF00, 0x0000FF, 0xFF00FF, 0x00FFFF, 0xFFFFFF};
        for (std::size_t i = 0; i < 10; ++i)
        {
            t[i] = quadOf(first[i]);
            t[246 + i] = quadOf(last[i]);
        }
        return t;
    }();
    return table;
}

const ColorTable& twoColors()
{
    static const ColorTable table{{0, 0, 0, 0}, {255, 255, 255, 0}};
    return table;
}

} // namespace kv::gdi
