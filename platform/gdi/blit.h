// Copies rectangles of pixels between bitmaps: converting, stretching, combining.
#pragma once

#include "platform/gdi/dc.h"

#include <span>

namespace kv::gdi
{

// A rectangle as a blit gives it, in device coordinates: a negative extent covers x + width + 1 to x and mirrors.
struct BlitBox
{
    std::int64_t x, y, width, height;

    RECT covered() const; // within the range of coordinates
    bool flat() const { return width == 0 || height == 0; }
    // The far corner was taken back to the range of coordinates.
    bool isClamped() const
    {
        const auto atLimit = [](std::int64_t v) { return v == INT32_MIN || v == INT32_MAX; };
        return atLimit(x + width) || atLimit(y + height);
    }
    std::int64_t left() const { return width < 0 ? x + width + 1 : x; }
    std::int64_t top() const { return height < 0 ? y + height + 1 : y; }
};

// Corner to corner through an upright mapping.
BlitBox mappedBox(const Mapping& mapping, int x, int y, int width, int height);

// Pixels to copy from.
struct BlitSource
{
    PixelView view;
    std::span<const RGBQUAD> table; // empty at 32 bits
    bool monochrome = false;        // takes the target's text and background colours
    COLORREF background = 0;        // what becomes 1 on a monochrome target
};

bool needsSource(DWORD rop);
bool needsPattern(DWORD rop);
std::uint32_t combine(DWORD rop, std::uint32_t pattern, std::uint32_t source, std::uint32_t target);

// Draws within the context's clip. Sources outside their bitmap change nothing. Source and target may be one bitmap.
void blit(const Dc& target, const BlitBox& to, const BlitSource& source, const BlitBox& from, DWORD rop);

// A source row in the target's pixel values. Kept for many rows.
class RowConverter
{
public:
    RowConverter(const Dc& target, const BlitSource& source);

    bool copies() const { return plainCopy; } // source values are target values
    // A row that needs no conversion, from its column 0; null if it does.
    const std::uint32_t* direct(int y) const;
    void convert(int y, int from, int to, std::uint32_t* out);

private:
    BlitSource source;
    bool plainCopy = false;
    bool toBackground = false;
    std::vector<std::uint32_t> values; // by source value, of 1 and 8 bits
    std::span<const RGBQUAD> targetTable;
    NearestColor nearest;
};

} // namespace kv::gdi
