// Bitmaps: pixels of 1, 8 or 32 bits with their table.
#pragma once

#include "platform/gdi/color.h"
#include "platform/gdi/handles.h"
#include "platform/gdi/surface.h"

#include <cstdlib>
#include <memory>

namespace kv::gdi
{

// Where pixels lie. Row 0 is the topmost; the stride is negative if rows are stored from the bottom.
struct PixelView
{
    std::uint8_t* top = nullptr;
    std::ptrdiff_t stride = 0;
    int width = 0, height = 0, depth = 0;

    std::uint8_t* row(int y) const { return top + stride * y; }
    RECT box() const { return {0, 0, width, height}; }
    std::uint32_t pixel(int x, int y) const; // an index, or 0x??RRGGBB
    void setPixel(int x, int y, std::uint32_t value) const;
};

// Bytes of a row whose rows are padded to a multiple of so many bits.
constexpr std::int64_t rowBytes(std::int64_t width, int depth, int padding)
{
    return (width * depth + padding - 1) / padding * (padding / 8);
}

class Bitmap : public Object
{
public:
    static constexpr bool accepts(int kind) { return kind == OBJ_BITMAP; }

    // Cleared pixels; null where they do not fit into memory. Rows of a section are padded to 4 bytes, of others to 2.
    static std::shared_ptr<Bitmap> make(int width, int height, int depth, bool section, bool topDown, ColorTable table);

    // For reading and changing all pixels, or those of a box alone: pending ones are written first.
    PixelView pixels() const { return pixels(box()); }
    PixelView pixels(const RECT& part) const
    {
        if (pending)
            pending->write(part);
        return view;
    }
    // Where spans over a box may be kept instead; null if they are to be drawn.
    DrawnSpans* spansOver(const RECT& part) const { return pending ? pending->spansOver(part) : nullptr; }
    void setPending(PendingPixels* pixels) { pending = pixels; }
    RECT box() const { return view.box(); }
    int width() const { return view.width; }
    int height() const { return view.height; }
    int depth() const { return view.depth; }
    bool isSection() const { return section; }
    bool isTopDown() const { return view.stride > 0; }
    // A one-bit bitmap without a table takes its two colours from the context that it meets.
    bool isMonochrome() const { return view.depth == 1 && !section; }
    std::uint8_t* firstByte() const
    {
        pixels();
        return storage.get();
    }
    std::size_t size() const { return std::size_t(strideBytes()) * std::size_t(view.height); }
    LONG strideBytes() const { return LONG(view.stride < 0 ? -view.stride : view.stride); }
    const ColorTable& table() const { return colors; } // of 2 or 256 entries, empty at 32 bits
    ColorTable& table() { return colors; }

    std::uint32_t valueOf(COLORREF color) const; // the pixel that shows a colour, or the nearest

    HDC selectedInto = nullptr;

private:
    struct Free
    {
        void operator()(void* memory) const { std::free(memory); }
    };

    Bitmap() : Object(OBJ_BITMAP) {}

    PixelView view;
    PendingPixels* pending = nullptr;
    bool section = false;
    ColorTable colors;
    std::unique_ptr<std::uint8_t, Free> storage;
};

} // namespace kv::gdi
