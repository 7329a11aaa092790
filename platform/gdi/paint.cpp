// Inks of a context's pen and brush.
#include "platform/gdi/paint.h"

#include <array>

namespace kv::gdi
{

namespace
{

// The rows of the six hatches, leftmost pixel in the highest bit.
constexpr std::array<std::array<std::uint8_t, 8>, 6> hatches{{
    {0x00, 0x00, 0x00, 0xFF, 0x00, 0x00, 0x00, 0x00},
    {0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08, 0x08},
    {0x80, 0x40, 0x20, 0x10, 0x08, 0x04, 0x02, 0x01},
    {0x01, 0x02, 0x04, 0x08, 0x10, 0x20, 0x40, 0x80},
    {0x08, 0x08, 0x08, 0xFF, 0x08, 0x08, 0x08, 0x08},
    {0x81, 0x42, 0x24, 0x18, 0x18, 0x24, 0x42, 0x81},
}};

std::uint32_t allBits(int depth)
{
    return depth == 32 ? 0xFFFFFFu : depth == 8 ? 0xFFu : 1u;
}

Pattern hatchPattern(const Dc& dc)
{
    const auto& rows = hatches[dc.brush->hatch % hatches.size()];
    const std::uint32_t line = brushValue(dc, plainColor(dc.brush->color));
    const std::uint32_t ground = brushValue(dc, plainColor(dc.state.background));
    const bool opaque = dc.state.backgroundMode == OPAQUE;
    Pattern pattern;
    pattern.width = pattern.height = 8;
    for (const std::uint8_t row : rows)
        for (int x = 0; x < 8; ++x)
        {
            const bool set = row >> (7 - x) & 1;
            pattern.values.push_back(set ? line : ground);
            if (!opaque)
                pattern.painted.push_back(set);
        }
    return pattern;
}

Pattern bitmapPattern(const Dc& dc, const Bitmap& source)
{
    const Bitmap& target = *dc.bitmap;
    const bool sameValues = source.depth() == target.depth() && sameColors(source.table(), target.table());
    // Colours of a bitmap without colours of its own.
    const std::uint32_t clear = brushValue(dc, plainColor(dc.state.text)),
                        set = brushValue(dc, plainColor(dc.state.background));
    NearestColor nearest(target.table());
    Pattern pattern;
    pattern.width = source.width();
    pattern.height = source.height();
    const PixelView view = source.pixels();
    for (int y = 0; y < pattern.height; ++y)
        for (int x = 0; x < pattern.width; ++x)
        {
            std::uint32_t value = view.pixel(x, y);
            if (source.isMonochrome())
                value = target.isMonochrome() ? value : value ? set : clear;
            else if (!sameValues)
            {
                const std::uint32_t rgb = source.table().empty() ? value & 0xFFFFFF : packed(source.table()[value]);
                value = target.table().empty() ? rgb : std::uint32_t(nearest(rgb));
            }
            pattern.values.push_back(value);
        }
    return pattern;
}

} // namespace

RasterMask maskOf(int rop2, std::uint32_t pen)
{
    // The bits of the code less one tell the result for pen and pixel of 00, 01, 10, 11.
    const std::uint32_t code = std::uint32_t(rop2 - 1);
    const auto all = [&](int bit) { return code >> bit & 1 ? ~0u : 0u; };
    const std::uint32_t ofClear = (pen & all(2)) | (~pen & all(0)), ofSet = (pen & all(3)) | (~pen & all(1));
    return {ofClear ^ ofSet, ofClear};
}

std::vector<RasterMask> patternMasks(const Ink& ink)
{
    const Pattern& pattern = ink.pattern;
    std::vector<RasterMask> masks;
    masks.reserve(pattern.values.size());
    for (std::size_t i = 0; i < pattern.values.size(); ++i)
        masks.push_back(pattern.painted.empty() || pattern.painted[i] ? maskOf(ink.rop2, pattern.values[i])
                                                                      : RasterMask{~0u, 0});
    return masks;
}

bool Ink::repeatable(int depth) const
{
    if (kind == Kind::Patterned)
        return rop2 == R2_COPYPEN;
    const RasterMask m = maskOf(rop2, value);
    return (m.keep & m.flip & allBits(depth)) == 0;
}

bool Ink::overwrites(int depth) const
{
    return kind == Kind::Patterned ? rop2 == R2_COPYPEN && pattern.painted.empty()
                                   : (maskOf(rop2, value).keep & allBits(depth)) == 0;
}

bool Ink::isPlain() const
{
    return kind == Kind::Solid && maskOf(rop2, value).keep == 0;
}

std::uint32_t brushValue(const Dc& dc, COLORREF color)
{
    return dc.bitmap->valueOf(color);
}

std::uint32_t penValue(const Dc& dc, COLORREF color)
{
    // On a bitmap without colours of its own a pen is either the background or not.
    if (dc.bitmap->isMonochrome() && color != 0 && color != RGB(255, 255, 255))
    {
        const COLORREF background = plainColor(dc.state.background);
        const std::uint32_t ground = dc.bitmap->valueOf(background);
        return color == background ? ground : ground ^ 1;
    }
    return dc.bitmap->valueOf(color);
}

Pattern patternOf(const Dc& dc)
{
    Pattern pattern = dc.brush->style == BS_HATCHED ? hatchPattern(dc) : bitmapPattern(dc, *dc.brush->pattern);
    pattern.origin = dc.state.brushOrigin;
    return pattern;
}

Ink penInk(const Dc& dc)
{
    Ink ink;
    if (dc.pen->line() == PS_NULL)
        return ink;
    ink.kind = Ink::Kind::Solid;
    ink.rop2 = dc.state.rop2;
    ink.value = penValue(dc, dc.effectivePenColor());
    return ink;
}

Ink brushInk(const Dc& dc)
{
    Ink ink;
    if (dc.brush->style == BS_NULL)
        return ink;
    ink.rop2 = dc.state.rop2;
    if (dc.brush->style == BS_SOLID)
    {
        ink.kind = Ink::Kind::Solid;
        ink.value = brushValue(dc, dc.effectiveBrushColor());
    }
    else
    {
        ink.kind = Ink::Kind::Patterned;
        ink.pattern = patternOf(dc);
    }
    return ink;
}

} // namespace kv::gdi
