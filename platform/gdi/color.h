// Colours and colour tables: which pixel value stands for a colour, and back.
#pragma once

#include "platform/gdi/gdi_types.h"

#include <array>
#include <cstdint>
#include <span>
#include <vector>

namespace kv::gdi
{

using ColorTable = std::vector<RGBQUAD>;

constexpr std::uint32_t packed(RGBQUAD q) // 0x00RRGGBB, as stored in 32-bit pixels
{
    return std::uint32_t(q.rgbRed) << 16 | std::uint32_t(q.rgbGreen) << 8 | q.rgbBlue;
}
constexpr std::uint32_t packed(COLORREF color)
{
    return (color & 0xFF) << 16 | (color & 0xFF00) | (color >> 16 & 0xFF);
}
constexpr COLORREF colorOf(std::uint32_t rgb) // of a packed value
{
    return packed(COLORREF(rgb));
}
constexpr RGBQUAD quadOf(std::uint32_t rgb)
{
    return {BYTE(rgb), BYTE(rgb >> 8), BYTE(rgb >> 16), 0};
}

// The entry with the smallest sum of squared differences, the lowest index among equals.
int nearestIndex(std::span<const RGBQUAD> table, std::uint32_t rgb);

bool sameColors(std::span<const RGBQUAD> a, std::span<const RGBQUAD> b);

// What 256 colours are where nobody gave a table: a cube of colours with twenty static ones at its ends.
const ColorTable& defaultTable();
// Black and white.
const ColorTable& twoColors();

// Remembers answers of nearestIndex, for pictures.
class NearestColor
{
public:
    explicit NearestColor(std::span<const RGBQUAD> table) : entries(table) { known.fill({0xFFFFFFFFu, 0}); }
    int operator()(std::uint32_t rgb)
    {
        Answer& answer = known[(rgb * 0x9E3779B1u) >> 22];
        if (answer.rgb != rgb)
            answer = {rgb, nearestIndex(entries, rgb)};
        return answer.index;
    }

private:
    struct Answer
    {
        std::uint32_t rgb;
        int index;
    };
    std::span<const RGBQUAD> entries;
    std::array<Answer, 1024> known;
};

} // namespace kv::gdi
