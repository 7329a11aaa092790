// PatBlt, BitBlt, StretchBlt, and the filling of rectangles.
#include "platform/gdi/blit.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/paint.h"

#include "platform/gdi/raster/polygon.h"
#include "platform/gdi/raster/wide_line.h"

using namespace kv::gdi;

namespace
{

// A raster operation without a source as one of pen and target.
int rop2Of(DWORD rop)
{
    const DWORD table = rop >> 16;
    return 1 + int((table & 1) | (table & 2) | (table >> 4 & 1) << 2 | (table >> 5 & 1) << 3);
}

// Paints a logical box with an ink.
void paintBox(const Dc& dc, const Ink& ink, int x, int y, int width, int height)
{
    const Mapping& mapping = dc.state.mapping;
    const BlitBox box = mappedBox(mapping, x, y, width, height);
    POINT corners[4];
    if (!mapping.isUpright())
    {
        const double right = double(x) + width, bottom = double(y) + height;
        const DeviceMapping& m = mapping.toDevice();
        corners[0] = m.toDevice(x, y);
        corners[1] = m.toDevice(right, y);
        corners[2] = m.toDevice(right, bottom);
        corners[3] = m.toDevice(x, bottom);
    }
    for (const RECT& visible : dc.visible())
        withSink(dc.bitmap->pixels(mapping.isUpright() ? kv::raster::common(visible, box.covered()) : visible), ink,
                 [&](const auto& sink)
                 {
                     if (mapping.isUpright())
                         kv::raster::box(sink, visible, box.left(), box.top(), box.left() + std::abs(box.width),
                                         box.top() + std::abs(box.height));
                     else
                         kv::raster::PolygonFiller().fill(sink, visible, corners, kv::raster::FillRule::Alternate);
                 });
}

bool patternBlit(const Dc& dc, int x, int y, int width, int height, DWORD rop)
{
    if (needsSource(rop))
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
    Ink ink;
    if (needsPattern(rop))
    {
        ink = brushInk(dc);
        if (!ink)
            return true;
    }
    else
        ink.kind = Ink::Kind::Solid;
    ink.rop2 = rop2Of(rop);
    paintBox(dc, ink, x, y, width, height);
    return true;
}

// The brush that a handle or a system colour's index plus one stands for.
HBRUSH brushOf(HBRUSH brush)
{
    const auto number = reinterpret_cast<std::uintptr_t>(brush);
    return number >= 1 && number <= 31 ? GetSysColorBrush(int(number) - 1) : brush;
}

} // namespace

BOOL PatBlt(HDC handle, int x, int y, int width, int height, DWORD rop)
{
    const auto dc = findDc(handle);
    return dc && patternBlit(*dc, x, y, width, height, rop);
}

BOOL BitBlt(HDC handle, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, DWORD rop)
{
    return StretchBlt(handle, x, y, width, height, source, sourceX, sourceY, width, height, rop);
}

BOOL StretchBlt(HDC handle, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, int sourceWidth,
                int sourceHeight, DWORD rop)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    if (!needsSource(rop))
        return patternBlit(*dc, x, y, width, height, rop);
    const auto from = findDc(source);
    if (!from)
        return FALSE;
    // In a turned world the corners are mapped, and the picture itself stays upright.
    const BlitBox area = mappedBox(from->state.mapping, sourceX, sourceY, sourceWidth, sourceHeight);
    const BlitSource pixels{from->bitmap->pixels(area.covered()), from->bitmap->table(), from->bitmap->isMonochrome(),
                            from->state.background};
    blit(*dc, mappedBox(dc->state.mapping, x, y, width, height), pixels, area, rop);
    return TRUE;
}

int FillRect(HDC handle, const RECT* rect, HBRUSH brush)
{
    const auto dc = findDc(handle);
    if (!dc || !rect)
        return 0;
    if (!brush)
        return 1;
    const HGDIOBJ old = SelectObject(handle, brushOf(brush));
    if (!old)
        return 0;
    PatBlt(handle, rect->left, rect->top, int(UINT(rect->right) - UINT(rect->left)),
           int(UINT(rect->bottom) - UINT(rect->top)), PATCOPY);
    SelectObject(handle, old);
    return 1;
}

int FrameRect(HDC handle, const RECT* rect, HBRUSH brush)
{
    const auto dc = findDc(handle);
    if (!dc || !rect || rect->left >= rect->right || rect->top >= rect->bottom)
        return 0;
    const HGDIOBJ old = SelectObject(handle, brushOf(brush));
    if (!old)
        return 0;
    const int width = int(UINT(rect->right) - UINT(rect->left)), height = int(UINT(rect->bottom) - UINT(rect->top));
    PatBlt(handle, rect->left, rect->top, 1, height, PATCOPY);
    PatBlt(handle, rect->right - 1, rect->top, 1, height, PATCOPY);
    PatBlt(handle, rect->left, rect->top, width, 1, PATCOPY);
    PatBlt(handle, rect->left, rect->bottom - 1, width, 1, PATCOPY);
    SelectObject(handle, old);
    return 1;
}

BOOL InvertRect(HDC handle, const RECT* rect)
{
    return rect && PatBlt(handle, rect->left, rect->top, int(UINT(rect->right) - UINT(rect->left)),
                          int(UINT(rect->bottom) - UINT(rect->top)), DSTINVERT);
}

BOOL DrawFocusRect(HDC handle, const RECT* rect)
{
    if (!findDc(handle) || !rect)
        return FALSE;
    const LOGBRUSH solid{BS_SOLID, 0, 0};
    const HPEN pen = ExtCreatePen(PS_COSMETIC | PS_ALTERNATE, 1, &solid, 0, nullptr);
    const HGDIOBJ oldPen = SelectObject(handle, pen), oldBrush = SelectObject(handle, GetStockObject(NULL_BRUSH));
    const int oldRop = SetROP2(handle, R2_NOT);
    const BOOL done = Rectangle(handle, rect->left, rect->top, rect->right, rect->bottom);
    SetROP2(handle, oldRop);
    SelectObject(handle, oldBrush);
    SelectObject(handle, oldPen);
    DeleteObject(pen);
    return done;
}
