// Draws lines of text.
#include "platform/gdi/text/text_out.h"

#include "platform/gdi/paint.h"

#include "platform/gdi/raster/polygon.h"
#include "platform/gdi/raster/rect.h"

#include <algorithm>
#include <cmath>

namespace kv::gdi
{

namespace
{

LONG nearest(double v)
{
    return LONG(std::clamp(std::floor(v + 0.5), -1e9, 1e9));
}

// Where the baseline begins.
struct Placement
{
    double x, y;
    TextFont::Direction along, up;

    POINT at(double forward, double upward) const
    {
        return {nearest(x + forward * along.x + upward * up.x), nearest(y + forward * along.y + upward * up.y)};
    }
};

Placement placed(const Dc& dc, const TextFont& font, const TextLine& line, double x, double y)
{
    const UINT align = dc.state.textAlign;
    const std::int64_t back = (align & TA_CENTER) == TA_CENTER ? line.width / 2 : align & TA_RIGHT ? line.width : 0;
    const int down = (align & TA_BASELINE) == TA_BASELINE ? 0 : align & TA_BOTTOM ? -font.descent() : font.ascent();
    const TextFont::Direction along = font.along(), up = font.up();
    return {x - double(back) * along.x - down * up.x, y - double(back) * along.y - down * up.y, along, up};
}

Ink inkOf(const Dc& dc, COLORREF color)
{
    Ink ink;
    ink.kind = Ink::Kind::Solid;
    ink.value = brushValue(dc, plainColor(color));
    return ink;
}

// The box from `low` to `high` above the baseline, along the text.
void fillBand(const Dc& dc, const std::vector<RECT>& clips, const Placement& at, double width, double low, double high,
              COLORREF color)
{
    const POINT corners[] = {at.at(0, low), at.at(width, low), at.at(width, high), at.at(0, high)};
    const auto [left, right] = std::ranges::minmax(corners, {}, &POINT::x);
    const auto [upper, lower] = std::ranges::minmax(corners, {}, &POINT::y);
    const RECT bounds = raster::grown({left.x, upper.y, right.x, lower.y}, 1);
    raster::PolygonFiller filler;
    for (const RECT& clip : clips)
        withSink(dc.bitmap->pixels(raster::common(clip, bounds)), inkOf(dc, color),
                 [&](const auto& sink) { filler.fill(sink, clip, corners, raster::FillRule::Alternate); });
}

std::uint32_t blended(std::uint32_t below, std::uint32_t color, std::uint32_t coverage)
{
    std::uint32_t result = 0;
    for (int shift = 0; shift < 24; shift += 8)
    {
        const std::uint32_t a = below >> shift & 0xFF, b = color >> shift & 0xFF;
        result |= (a * (255 - coverage) + b * coverage + 127) / 255 << shift;
    }
    return result;
}

void drawGlyph(const Bitmap& bitmap, const RECT& clip, const Glyph& glyph, POINT origin, std::uint32_t value)
{
    const RECT box{origin.x + glyph.left, origin.y + glyph.top, origin.x + glyph.left + glyph.width,
                   origin.y + glyph.top + glyph.height};
    const RECT part = raster::common(box, clip);
    const PixelView view = bitmap.pixels(part);
    for (int y = part.top; y < part.bottom; ++y)
    {
        const std::uint8_t* const row = glyph.coverage.data() + std::ptrdiff_t(y - box.top) * glyph.width - box.left;
        for (int x = part.left; x < part.right; ++x)
        {
            if (row[x] == 255)
                view.setPixel(x, y, value);
            else if (row[x] != 0)
                view.setPixel(x, y, blended(view.pixel(x, y), value, row[x]));
        }
    }
}

} // namespace

TextLine layOut(const TextFont& font, std::wstring_view text, const int* advances)
{
    TextLine line;
    line.characters = charactersOf(text);
    std::size_t unit = 0;
    for (const std::uint32_t c : line.characters)
    {
        int advance = 0;
        if (advances)
        {
            advance = int(std::clamp(std::floor(advances[unit] * font.unitAlong() + 0.5), -1e8, 1e8));
            if (c > 0xFFFF && unit + 1 < text.size() && std::uint32_t(text[unit]) < 0xE000)
                ++unit;
            ++unit;
        }
        else
            advance = font.advance(c);
        line.advances.push_back(advance);
        line.width += advance;
    }
    return line;
}

void drawLine(const Dc& dc, const TextFont& font, const TextLine& line, double x, double y,
              const std::optional<RECT>& clip)
{
    std::vector<RECT> clips = dc.visible();
    if (clip)
        for (RECT& r : clips)
            r = raster::common(r, *clip);
    std::erase_if(clips, raster::isEmpty);
    const Placement at = placed(dc, font, line, x, y);
    if (dc.state.backgroundMode == OPAQUE)
        fillBand(dc, clips, at, double(line.width), -font.descent(), font.ascent(), dc.state.background);

    const bool smooth = dc.bitmap->depth() == 32 && dc.font->log.lfQuality != NONANTIALIASED_QUALITY;
    const std::uint32_t value = brushValue(dc, plainColor(dc.state.text));
    std::int64_t done = 0;
    for (std::size_t i = 0; i < line.characters.size() && !clips.empty(); ++i)
    {
        const POINT origin = at.at(double(done), 0);
        done += line.advances[i];
        const Glyph glyph = font.render(line.characters[i], smooth);
        for (const RECT& r : clips)
            drawGlyph(*dc.bitmap, r, glyph, origin, value);
    }
    const auto rule = [&](TextFont::Rule r)
    { fillBand(dc, clips, at, double(line.width), r.offset - r.thickness, r.offset, dc.state.text); };
    if (dc.font->log.lfUnderline)
        rule(font.underline());
    if (dc.font->log.lfStrikeOut)
        rule(font.strikeOut());
}

} // namespace kv::gdi
