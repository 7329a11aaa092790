// What pens and brushes do to pixels: a colour or a pattern with a raster operation, bound to a bitmap as a sink.
#pragma once

#include "platform/gdi/dc.h"
#include "platform/gdi/raster/sinks.h"

#include <vector>

namespace kv::gdi
{

// pixel := (pixel & keep) ^ flip
struct RasterMask
{
    std::uint32_t keep, flip;
};
// Of a raster operation of two operands (R2_...) with the pen value `pen`.
RasterMask maskOf(int rop2, std::uint32_t pen);

// A pattern in a bitmap's own pixel values, repeated from an origin.
struct Pattern
{
    int width = 0, height = 0;
    POINT origin{0, 0};
    std::vector<std::uint32_t> values;
    std::vector<bool> painted; // of hatches on a transparent background; empty: all

    std::size_t index(int x, int y) const
    {
        const auto within = [](std::int64_t v, int size) { return std::size_t((v % size + size) % size); };
        return within(std::int64_t(y) - origin.y, height) * std::size_t(width) +
               within(std::int64_t(x) - origin.x, width);
    }
};

struct Ink
{
    enum class Kind
    {
        None,
        Solid,
        Patterned
    };

    Kind kind = Kind::None;
    int rop2 = R2_COPYPEN;
    std::uint32_t value = 0;
    Pattern pattern;

    explicit operator bool() const { return kind != Kind::None; }
    // Whether painting a pixel twice is the same as once, and whether what was there before matters at all.
    bool repeatable(int depth) const;
    bool overwrites(int depth) const;
    // Whether it overwrites 32-bit pixels with `value`.
    bool isPlain() const;
};

Ink penInk(const Dc& dc);
Ink brushInk(const Dc& dc);
// The pixel value of a colour drawn with on a context's bitmap.
std::uint32_t brushValue(const Dc& dc, COLORREF color);
std::uint32_t penValue(const Dc& dc, COLORREF color);
// The brush's pattern in the values of the target; `dc` gives the colours of monochrome patterns and hatches.
Pattern patternOf(const Dc& dc);

// What painting with each pixel of a patterned ink does.
std::vector<RasterMask> patternMasks(const Ink& ink);

// Paints with a pattern whose effect on pixels is known for each of its own.
class PatternSink
{
public:
    PatternSink(const PixelView& target, const Pattern& with, const std::vector<RasterMask>& effects)
        : view(target), pattern(&with), masks(effects.data())
    {
    }

    void pixel(int x, int y) const
    {
        const RasterMask m = masks[pattern->index(x, y)];
        view.setPixel(x, y, (view.pixel(x, y) & m.keep) ^ m.flip);
    }
    void span(int y, int from, int to) const
    {
        std::uint8_t* const row = view.row(y);
        if (view.depth == 32)
            paint(reinterpret_cast<std::uint32_t*>(row), y, from, to);
        else if (view.depth == 8)
            paint(row, y, from, to);
        else
            for (int x = from; x < to; ++x)
                pixel(x, y);
    }
    raster::PixelCursor<PatternSink> cursor(int x, int y, raster::Step major, raster::Step minor) const
    {
        return {this, x, y, major, minor};
    }

private:
    PixelView view;
    const Pattern* pattern;
    const RasterMask* masks;

    template <class T>
    void paint(T* row, int y, int from, int to) const
    {
        const std::size_t start = pattern->index(from, y);
        const RasterMask* const line = masks + start / std::size_t(pattern->width) * std::size_t(pattern->width);
        int column = int(start % std::size_t(pattern->width));
        for (int x = from; x < to; ++x)
        {
            row[x] = T((row[x] & line[column].keep) ^ line[column].flip);
            column = column + 1 == pattern->width ? 0 : column + 1;
        }
    }
};

// Keeps what overwrites 32-bit pixels.
struct SpanKeeper
{
    DrawnSpans* spans;
    std::uint32_t value;

    void span(int y, int from, int to) const { spans->add(y, from, to, value); }
    void pixel(int x, int y) const { span(y, x, x + 1); }
    raster::PixelCursor<SpanKeeper> cursor(int x, int y, raster::Step major, raster::Step minor) const
    {
        return {this, x, y, major, minor};
    }
};

// Calls `draw` with the sink that paints a bitmap with an ink. Each kind of sink is a type of its own.
template <class Draw>
void withSink(const PixelView& view, const Ink& ink, Draw draw)
{
    using namespace raster;
    if (ink.kind == Ink::Kind::Patterned)
    {
        const std::vector<RasterMask> masks = patternMasks(ink);
        draw(PatternSink(view, ink.pattern, masks));
        return;
    }
    const RasterMask m = maskOf(ink.rop2, ink.value);
    if (view.depth == 8)
    {
        const Rows<std::uint8_t> rows{view.top, view.stride};
        if ((m.keep & 0xFF) == 0)
            draw(ByteFill{rows, std::uint8_t(m.flip)});
        else
            draw(MaskFill<std::uint8_t>{rows, std::uint8_t(m.keep), std::uint8_t(m.flip)});
    }
    else if (view.depth == 32)
    {
        const Rows<std::uint32_t> rows{view.top, view.stride};
        if (m.keep == 0)
            draw(WordFill{rows, m.flip});
        else
            draw(MaskFill<std::uint32_t>{rows, m.keep, m.flip});
    }
    else
        draw(BitFill{{view.top, view.stride}, std::uint8_t(m.keep & 1), std::uint8_t(m.flip & 1)});
}

} // namespace kv::gdi
