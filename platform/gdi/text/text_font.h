// A font at the size and turn that a context gives it, ready to measure and draw.
#pragma once

#include "platform/gdi/dc.h"
#include "platform/gdi/text/face.h"

#include <string_view>
#include <vector>

namespace kv::gdi
{

struct Glyph
{
    int left = 0, top = 0; // from the pen position to the bitmap's first pixel, downward
    int width = 0, height = 0;
    std::vector<std::uint8_t> coverage; // 0 to 255, row after row
};

// Lengths are device pixels along the baseline and across it. Holds the typefaces' lock.
class TextFont
{
public:
    explicit TextFont(const Dc& dc);

    explicit operator bool() const { return face != nullptr; }
    int ascent() const { return ascentPixels; }
    int descent() const { return descentPixels; }
    int height() const { return ascentPixels + descentPixels; }
    int em() const { return size; }
    int externalLeading() const { return scaled(face->lineGap); }
    int averageWidth() const { return across(face->averageWidth); }
    int maximalWidth() const { return across(face->face->max_advance_width); }
    const Face& typeface() const { return *face; }

    int advance(std::uint32_t character) const;
    Glyph render(std::uint32_t character, bool smooth) const;

    // Device pixels per logical unit along the baseline and across it.
    double unitAlong() const { return alongScale; }
    double unitAcross() const { return acrossScale; }
    int logicalAlong(std::int64_t pixels) const;
    int logicalAcross(std::int64_t pixels) const;

    // Unit vectors on the device (y downward): along the baseline, and up from it.
    struct Direction
    {
        double x, y;
    };
    Direction along() const { return forward; }
    Direction up() const { return upward; }
    bool isTurned() const { return forward.x != 1 || upward.y != -1; }

    // Distances from the baseline upward, and thickness.
    struct Rule
    {
        int offset, thickness;
    };
    Rule underline() const;
    Rule strikeOut() const;

private:
    int scaled(double units) const;
    int across(double units) const;
    bool load(std::uint32_t character) const;

    std::unique_lock<std::mutex> lock;
    Face* face = nullptr;
    int size = 0; // pixels of the em
    int ascentPixels = 0, descentPixels = 0;
    double alongScale = 1, acrossScale = 1;
    double widthFactor = 1; // of characters, against their own
    Direction forward{1, 0}, upward{0, -1};
    FT_Matrix matrix{0x10000, 0, 0, 0x10000};
    bool plain = true; // the matrix changes nothing
};

// Characters of a text in platform units: surrogate pairs come together.
std::vector<std::uint32_t> charactersOf(std::wstring_view text);

} // namespace kv::gdi
