// A font at its size on the device.
#include "platform/gdi/text/text_font.h"

#include <algorithm>
#include <cmath>
#include <cstring>

#include FT_OUTLINE_H
#include FT_BITMAP_H

namespace kv::gdi
{

namespace
{

constexpr int maximalSize = 4096; // pixels; beyond this a glyph's bitmap would not be reasonable
constexpr int defaultHeight = 16; // of fonts that give none

int rounded(double v)
{
    const double whole = std::floor(v + 0.5);
    return whole >= INT32_MAX ? INT32_MAX : whole <= INT32_MIN ? INT32_MIN : int(whole);
}

struct Matrix // y upward
{
    double xx, xy, yx, yy;
};

Matrix operator*(const Matrix& a, const Matrix& b)
{
    return {a.xx * b.xx + a.xy * b.yx, a.xx * b.xy + a.xy * b.yy, a.yx * b.xx + a.yy * b.yx, a.yx * b.xy + a.yy * b.yy};
}

Matrix turned(double degrees)
{
    // Exact for quarter turns, so that upright text stays upright.
    const double quarter = degrees / 90;
    if (quarter == std::floor(quarter))
    {
        static constexpr int sines[] = {0, 1, 0, -1};
        const int k = int(std::fmod(std::fmod(quarter, 4) + 4, 4));
        return {double(sines[(k + 1) % 4]), double(-sines[k]), double(sines[k]), double(sines[(k + 1) % 4])};
    }
    const double angle = degrees * 3.14159265358979323846 / 180;
    return {std::cos(angle), -std::sin(angle), std::sin(angle), std::cos(angle)};
}

TextFont::Direction directionOf(double x, double y)
{
    const double length = std::hypot(x, y);
    return length > 0 ? TextFont::Direction{x / length, -y / length} : TextFont::Direction{1, 0};
}

} // namespace

TextFont::TextFont(const Dc& dc) : lock(faceLock()), face(findFace(dc.font->log))
{
    if (!face)
        return;
    const LOGFONTW& log = dc.font->log;
    const DeviceMapping& m = dc.state.mapping.toDevice();
    const bool advanced = dc.state.mapping.graphicsMode == GM_ADVANCED;
    alongScale = advanced ? std::hypot(m.m11, m.m12) : std::fabs(m.m11);
    acrossScale = advanced ? std::hypot(m.m21, m.m22) : std::fabs(m.m22);
    if (!(alongScale > 0) || !(acrossScale > 0))
        alongScale = acrossScale = 1;

    const double cell = double(face->ascent + face->descent) / face->unitsPerEm;
    const double height = log.lfHeight == 0 ? defaultHeight : std::fabs(double(log.lfHeight)) * acrossScale;
    size = std::clamp(rounded(log.lfHeight < 0 ? height : height / cell), 1, maximalSize);
    ascentPixels = scaled(face->ascent);
    descentPixels = scaled(face->descent);
    widthFactor = alongScale / acrossScale;
    if (log.lfWidth != 0 && face->averageWidth > 0)
        widthFactor =
            std::fabs(double(log.lfWidth)) * alongScale / (double(face->averageWidth) * size / face->unitsPerEm);
    widthFactor = std::clamp(widthFactor, 0.001, 100.0);

    const Matrix turn = turned(log.lfEscapement / 10.0);
    const Matrix stretch{widthFactor, face->slanted ? 0.2 : 0, 0, 1};
    // A turned or mirrored world takes the text along; without one, text stays upright and readable.
    const Matrix world{m.m11 / alongScale, -m.m21 / acrossScale, -m.m12 / alongScale, m.m22 / acrossScale};
    const Matrix all = (advanced ? world * turn : turn) * stretch;
    forward = directionOf(all.xx, all.yx);
    const Matrix upright = advanced ? world * turn : turn;
    upward = directionOf(upright.xy, upright.yy);
    const auto fixed = [](double v) { return FT_Fixed(std::floor(std::clamp(v, -30000.0, 30000.0) * 0x10000 + 0.5)); };
    matrix = {fixed(all.xx), fixed(all.xy), fixed(all.yx), fixed(all.yy)};
    plain = matrix.xx == 0x10000 && matrix.xy == 0 && matrix.yx == 0 && matrix.yy == 0x10000;
    if (FT_Set_Pixel_Sizes(face->face, 0, FT_UInt(size)) != 0)
        face = nullptr;
}

int TextFont::scaled(double units) const
{
    return rounded(units * size / face->unitsPerEm);
}

int TextFont::across(double units) const
{
    return rounded(units * size / face->unitsPerEm * widthFactor);
}

int TextFont::logicalAlong(std::int64_t pixels) const
{
    return rounded(double(pixels) / alongScale);
}

int TextFont::logicalAcross(std::int64_t pixels) const
{
    return rounded(double(pixels) / acrossScale);
}

bool TextFont::load(std::uint32_t character) const
{
    const FT_UInt index = FT_Get_Char_Index(face->face, character);
    FT_Set_Transform(face->face, nullptr, nullptr);
    // Hinted only where pixels and stems run the same way.
    const FT_Int32 flags = FT_LOAD_NO_BITMAP | (plain ? FT_LOAD_TARGET_LIGHT : FT_LOAD_NO_HINTING);
    return FT_Load_Glyph(face->face, index, flags) == 0;
}

int TextFont::advance(std::uint32_t character) const
{
    if (!load(character))
        return 0;
    const double pixels = double(face->face->glyph->linearHoriAdvance) / 0x10000 * widthFactor;
    return rounded(pixels) + (face->bolder ? 1 : 0);
}

Glyph TextFont::render(std::uint32_t character, bool smooth) const
{
    Glyph glyph;
    if (!load(character) || face->face->glyph->format != FT_GLYPH_FORMAT_OUTLINE)
        return glyph;
    const FT_GlyphSlot slot = face->face->glyph;
    if (face->bolder)
        FT_Outline_Embolden(&slot->outline, std::max(64, size * 64 / 24));
    if (!plain)
        FT_Outline_Transform(&slot->outline, &matrix);
    if (FT_Render_Glyph(slot, smooth ? FT_RENDER_MODE_NORMAL : FT_RENDER_MODE_MONO) != 0)
        return glyph;
    const FT_Bitmap& bitmap = slot->bitmap;
    glyph.left = slot->bitmap_left;
    glyph.top = -slot->bitmap_top;
    glyph.width = int(bitmap.width);
    glyph.height = int(bitmap.rows);
    glyph.coverage.resize(std::size_t(glyph.width) * std::size_t(glyph.height));
    for (int y = 0; y < glyph.height; ++y)
    {
        const unsigned char* const row = bitmap.buffer + std::ptrdiff_t(bitmap.pitch) * y;
        std::uint8_t* const out = glyph.coverage.data() + std::size_t(glyph.width) * std::size_t(y);
        if (smooth)
            std::memcpy(out, row, std::size_t(glyph.width));
        else
            for (int x = 0; x < glyph.width; ++x)
                out[x] = row[x / 8] >> (7 - x % 8) & 1 ? 255 : 0;
    }
    return glyph;
}

TextFont::Rule TextFont::underline() const
{
    const FT_Face ft = face->face;
    return {scaled(ft->underline_position) + (scaled(ft->underline_thickness) + 1) / 2,
            std::max(1, scaled(ft->underline_thickness))};
}

TextFont::Rule TextFont::strikeOut() const
{
    return {ascentPixels * 3 / 10, underline().thickness};
}

std::vector<std::uint32_t> charactersOf(std::wstring_view text)
{
    std::vector<std::uint32_t> characters;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        std::uint32_t c = std::uint32_t(text[i]);
        if (c >= 0xD800 && c < 0xDC00 && i + 1 < text.size())
        {
            const std::uint32_t low = std::uint32_t(text[i + 1]);
            if (low >= 0xDC00 && low < 0xE000)
            {
                c = 0x10000 + ((c - 0xD800) << 10) + (low - 0xDC00);
                ++i;
            }
        }
        characters.push_back(c);
    }
    return characters;
}

} // namespace kv::gdi
