// Device-independent bitmaps as they come from and go to callers: a header, a table and rows of 1 to 32 bits a pixel.
#pragma once

#include "platform/gdi/bitmap.h"

#include <optional>

namespace kv::gdi
{

struct DibFormat
{
    int width = 0, height = 0;
    int depth = 0; // 1, 4, 8, 16, 24 or 32
    bool topDown = false;
    std::int64_t stride = 0;
    std::uint32_t masks[3] = {0, 0, 0}; // red, green, blue, at 16 and 32 bits
    ColorTable table;                   // completed to all entries with black

    // Of the row that lies `y` rows below the top, in a buffer that holds all of them.
    std::int64_t rowOffset(int y) const { return stride * (topDown ? y : height - 1 - y); }
    bool plain32() const { return depth == 32 && masks[0] == 0xFF0000 && masks[1] == 0xFF00 && masks[2] == 0xFF; }

    // A pixel as 0x00RRGGBB, or as an index where there is a table.
    std::uint32_t read(const std::uint8_t* row, int x) const;
    std::uint32_t color(std::uint32_t value) const { return table.empty() ? value : packed(table[value]); }
    void write(std::uint8_t* row, int x, std::uint32_t value) const;
};

// What a header says, its table not read; none if it says nothing that is understood.
std::optional<DibFormat> formatOf(const BITMAPINFOHEADER& header);
// With the table behind the header. Indices into a palette (DIB_PAL_COLORS) are taken as those of the default table.
std::optional<DibFormat> formatOf(const BITMAPINFO* info, UINT usage);

} // namespace kv::gdi
