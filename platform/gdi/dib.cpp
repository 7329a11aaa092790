// Formats of device-independent bitmaps.
#include "platform/gdi/dib.h"

#include <algorithm>
#include <bit>
#include <cstring>

namespace kv::gdi
{

namespace
{

// A field of a pixel widened or narrowed to eight bits.
std::uint32_t field(std::uint32_t value, std::uint32_t mask)
{
    if (mask == 0)
        return 0;
    const int bits = std::popcount(mask);
    const std::uint32_t v = (value & mask) >> std::countr_zero(mask);
    if (bits >= 8)
        return v >> (bits - 8) & 0xFF;
    return (v * 255 + ((1u << bits) - 1) / 2) / ((1u << bits) - 1);
}

std::uint32_t unfield(std::uint32_t byte, std::uint32_t mask)
{
    if (mask == 0)
        return 0;
    const int bits = std::popcount(mask);
    return (bits >= 8 ? byte << (bits - 8) : byte >> (8 - bits)) << std::countr_zero(mask) & mask;
}

void setMasks(DibFormat& format, std::uint32_t red, std::uint32_t green, std::uint32_t blue)
{
    format.masks[0] = red;
    format.masks[1] = green;
    format.masks[2] = blue;
}

} // namespace

std::uint32_t DibFormat::read(const std::uint8_t* row, int x) const
{
    switch (depth)
    {
    case 1:
        return row[x / 8] >> (7 - x % 8) & 1;
    case 4:
        return row[x / 2] >> (x % 2 ? 0 : 4) & 15;
    case 8:
        return row[x];
    case 24:
        return std::uint32_t(row[3 * std::ptrdiff_t(x)]) | std::uint32_t(row[3 * std::ptrdiff_t(x) + 1]) << 8 |
               std::uint32_t(row[3 * std::ptrdiff_t(x) + 2]) << 16;
    default:
    {
        std::uint32_t value = 0;
        const std::ptrdiff_t bytes = depth == 16 ? 2 : 4;
        std::memcpy(&value, row + bytes * x, std::size_t(bytes));
        return plain32() ? value & 0xFFFFFF
                         : field(value, masks[0]) << 16 | field(value, masks[1]) << 8 | field(value, masks[2]);
    }
    }
}

void DibFormat::write(std::uint8_t* row, int x, std::uint32_t value) const
{
    switch (depth)
    {
    case 1:
        row[x / 8] = std::uint8_t(row[x / 8] | (value & 1) << (7 - x % 8));
        break;
    case 4:
        row[x / 2] = std::uint8_t(row[x / 2] | (value & 15) << (x % 2 ? 0 : 4));
        break;
    case 8:
        row[x] = std::uint8_t(value);
        break;
    case 24:
        std::memcpy(row + 3 * std::ptrdiff_t(x), &value, 3);
        break;
    default:
    {
        const std::uint32_t stored = plain32()
                                         ? value & 0xFFFFFF
                                         : unfield(value >> 16 & 0xFF, masks[0]) |
                                               unfield(value >> 8 & 0xFF, masks[1]) | unfield(value & 0xFF, masks[2]);
        const std::ptrdiff_t bytes = depth == 16 ? 2 : 4;
        std::memcpy(row + bytes * x, &stored, std::size_t(bytes));
    }
    }
}

std::optional<DibFormat> formatOf(const BITMAPINFOHEADER& h)
{
    DibFormat f;
    if (h.biSize < sizeof h || h.biWidth <= 0 || h.biHeight == 0 || h.biHeight == INT32_MIN)
        return std::nullopt;
    f.width = h.biWidth;
    f.height = h.biHeight < 0 ? -h.biHeight : h.biHeight;
    f.topDown = h.biHeight < 0;
    f.depth = h.biBitCount;
    switch (f.depth)
    {
    case 1:
    case 4:
    case 8:
    case 24:
        if (h.biCompression != BI_RGB)
            return std::nullopt;
        break;
    case 16:
        setMasks(f, 0x7C00, 0x3E0, 0x1F);
        break;
    case 32:
        setMasks(f, 0xFF0000, 0xFF00, 0xFF);
        break;
    default:
        return std::nullopt;
    }
    if (h.biCompression != BI_RGB && h.biCompression != BI_BITFIELDS)
        return std::nullopt;
    f.stride = rowBytes(f.width, f.depth, 32);
    return f;
}

std::optional<DibFormat> formatOf(const BITMAPINFO* info, UINT usage)
{
    std::optional<DibFormat> f = info && usage <= DIB_PAL_COLORS ? formatOf(info->bmiHeader) : std::nullopt;
    if (!f)
        return f;
    const BITMAPINFOHEADER& h = info->bmiHeader;
    const std::uint8_t* const behind = reinterpret_cast<const std::uint8_t*>(info) + h.biSize;
    if (f->depth <= 8)
    {
        const std::size_t all = std::size_t(1) << f->depth;
        const std::size_t given = h.biClrUsed ? std::min<std::size_t>(h.biClrUsed, all) : all;
        f->table.assign(all, RGBQUAD{});
        for (std::size_t i = 0; i < given; ++i)
        {
            if (usage == DIB_PAL_COLORS)
            {
                std::uint16_t index = 0;
                std::memcpy(&index, behind + 2 * i, 2);
                f->table[i] = defaultTable()[index & 0xFF];
            }
            else
                std::memcpy(&f->table[i], behind + 4 * i, 4);
            f->table[i].rgbReserved = 0;
        }
    }
    else if (h.biCompression == BI_BITFIELDS)
    {
        // In the longer headers the masks are a part of the header, at the same place.
        std::memcpy(f->masks, reinterpret_cast<const std::uint8_t*>(info) + sizeof h, sizeof f->masks);
        const auto contiguous = [](std::uint32_t m)
        { return m == 0 || std::has_single_bit((m >> std::countr_zero(m)) + 1) || m >> std::countr_zero(m) == ~0u; };
        if (!std::all_of(std::begin(f->masks), std::end(f->masks), contiguous))
            return std::nullopt;
    }
    return f;
}

} // namespace kv::gdi
