// The bits behind a device context, for code that computes pixels itself (table lookups, overlays) and writes them
// straight into the target under the context's mapping and clip.
#pragma once

#include "platform/gdi/drawnspans.h"
#include "platform/gdi/gdi_types.h"

#include <cstddef>
#include <cstdint>
#include <vector>

namespace kv::gdi
{

// device = floor(x * m11 + y * m21 + dx + 1/2) and floor(x * m12 + y * m22 + dy + 1/2)
struct DeviceMapping
{
    double m11 = 1, m12 = 0, m21 = 0, m22 = 1, dx = 0, dy = 0;

    bool isUpright() const { return m12 == 0 && m21 == 0; } // every rectangle stays one
    POINT toDevice(double x, double y) const;               // clamped to the range of LONG
};

struct Surface
{
    std::uint8_t* top = nullptr; // first byte of the topmost row
    std::ptrdiff_t stride = 0;   // bytes from a row to the one below it; negative in a bottom-up bitmap
    int width = 0, height = 0;
    int depth = 0;                    // 1 (most significant bit leftmost), 8 (indices) or 32 (blue, green, red, unused)
    const RGBQUAD* palette = nullptr; // 2 or 256 entries, null at 32 bits
    std::vector<RECT> clip; // device rectangles that may be drawn on: disjoint, inside the bitmap, top to bottom
    RECT clipBox{};         // their bounding box; all 0 if nothing may be drawn on
    DeviceMapping mapping;  // logical to device coordinates

    std::uint8_t* row(int y) const { return top + stride * y; }
};

// Pixels of a bitmap that have not been written yet, such as those of a picture that may never be looked at. Before a
// call reads or changes pixels of the bitmap, it has the missing ones among them written.
class PendingPixels
{
public:
    virtual ~PendingPixels() = default;
    // Writes what is missing of a rectangle of the bitmap, which may reach beyond it. Draws with no context.
    virtual void write(const RECT& box) = 0;
    // Where spans that overwrite pixels of a rectangle of the bitmap may be kept, by the bitmap's rows and columns,
    // instead of being drawn. Null: they have to be drawn. Holds for one call of drawing.
    virtual DrawnSpans* spansOver(const RECT&) { return nullptr; }
};

// From now on `pixels` (not owned) stands for the missing pixels of a bitmap; null if none are missing. False for a
// handle that is no bitmap.
bool setPendingPixels(HBITMAP bitmap, PendingPixels* pixels);

// Fills in `surface` from a context and the bitmap selected into it; false for a handle that is no context.
// Pending pixels are written inside the clip only. Pointers hold until the bitmap is deselected or deleted; mapping and
// clip are as of the call.
bool surfaceOf(HDC dc, Surface& surface);

} // namespace kv::gdi
