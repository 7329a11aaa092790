// Bitmaps in memory.
#include "platform/gdi/bitmap.h"

namespace kv::gdi
{

std::uint32_t PixelView::pixel(int x, int y) const
{
    const std::uint8_t* line = row(y);
    if (depth == 32)
        return reinterpret_cast<const std::uint32_t*>(line)[x];
    if (depth == 8)
        return line[x];
    return line[x / 8] >> (7 - x % 8) & 1;
}

void PixelView::setPixel(int x, int y, std::uint32_t value) const
{
    std::uint8_t* line = row(y);
    if (depth == 32)
        reinterpret_cast<std::uint32_t*>(line)[x] = value;
    else if (depth == 8)
        line[x] = std::uint8_t(value);
    else
    {
        const int bit = 0x80 >> (x & 7);
        line[x / 8] = std::uint8_t(value & 1 ? line[x / 8] | bit : line[x / 8] & ~bit);
    }
}

std::shared_ptr<Bitmap> Bitmap::make(int width, int height, int depth, bool section, bool topDown, ColorTable table)
{
    const std::int64_t stride = rowBytes(width, depth, section ? 32 : 16);
    if (width <= 0 || height <= 0 || stride > INT32_MAX || stride * height > std::int64_t(UINT32_MAX))
        return nullptr; // sizes are told in 32 bits
    std::shared_ptr<Bitmap> bitmap(new Bitmap);
    // Zeroed pages come straight from the system, so large bitmaps cost only what is drawn on.
    bitmap->storage.reset(static_cast<std::uint8_t*>(std::calloc(std::size_t(height), std::size_t(stride))));
    if (!bitmap->storage)
        return nullptr;
    bitmap->view = {bitmap->storage.get(), stride, width, height, depth};
    if (!topDown)
    {
        bitmap->view.top += stride * (height - 1);
        bitmap->view.stride = -stride;
    }
    bitmap->section = section;
    bitmap->colors = std::move(table);
    return bitmap;
}

std::uint32_t Bitmap::valueOf(COLORREF color) const
{
    const std::uint32_t rgb = packed(color);
    return view.depth == 32 ? rgb : std::uint32_t(nearestIndex(colors, rgb));
}

} // namespace kv::gdi
