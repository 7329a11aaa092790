// Device contexts: what is selected, modes, colours, mapping, clip.
#pragma once

#include "platform/gdi/mapping.h"
#include "platform/gdi/objects.h"

#include <memory>
#include <optional>
#include <vector>

namespace kv::gdi
{

// What SaveDC keeps. The selected objects are owned along with their handles, so that they last as long as needed.
struct DcState
{
    HPEN penHandle = nullptr;
    HBRUSH brushHandle = nullptr;
    HFONT fontHandle = nullptr;
    HBITMAP bitmapHandle = nullptr;

    int rop2 = R2_COPYPEN;
    int polyFillMode = ALTERNATE;
    int stretchMode = BLACKONWHITE;
    int backgroundMode = OPAQUE;
    int arcDirection = AD_COUNTERCLOCKWISE;
    UINT textAlign = TA_LEFT;
    COLORREF background = RGB(255, 255, 255);
    COLORREF text = RGB(0, 0, 0);
    COLORREF penColor = RGB(0, 0, 0);         // of the stock object DC_PEN
    COLORREF brushColor = RGB(255, 255, 255); // of DC_BRUSH
    POINT brushOrigin{0, 0};                  // device coordinates
    POINT position{0, 0};                     // logical coordinates
    Mapping mapping;
    std::optional<Area> clip; // device coordinates; none: the whole bitmap
};

struct Dc : Object
{
    static constexpr bool accepts(int kind) { return kind == OBJ_MEMDC; }

    Dc() : Object(OBJ_MEMDC) {}

    DcState state;
    std::shared_ptr<Pen> pen;
    std::shared_ptr<Brush> brush;
    std::shared_ptr<Font> font;
    std::shared_ptr<Bitmap> bitmap;
    std::vector<DcState> saved;

    // What may be drawn on, inside the bitmap.
    std::vector<RECT> visible() const;
    COLORREF effectivePenColor() const;
    COLORREF effectiveBrushColor() const;
};

// The context behind a handle; null and ERROR_INVALID_HANDLE if there is none.
inline std::shared_ptr<Dc> findDc(HDC dc)
{
    return find<Dc>(dc);
}

} // namespace kv::gdi
