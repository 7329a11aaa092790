// Contexts and what is selected into them.
#include "platform/gdi/dc.h"

#include "platform/gdi/device.h"
#include "platform/gdi/gdi.h"

#include <algorithm>

namespace kv::gdi
{

namespace
{

template <class T>
void exchange(std::shared_ptr<T>& slot, HANDLE& handle, std::shared_ptr<T> object, HANDLE now)
{
    retainSelection(now);
    releaseSelection(handle);
    slot = std::move(object);
    handle = now;
}

template <class T, class Handle>
HGDIOBJ selectInto(std::shared_ptr<T>& slot, Handle& handle, std::shared_ptr<Object> object, HGDIOBJ now)
{
    HANDLE before = handle;
    const HANDLE old = before;
    exchange(slot, before, std::static_pointer_cast<T>(std::move(object)), now);
    handle = static_cast<Handle>(before);
    return old;
}

HGDIOBJ selectBitmap(Dc& dc, HDC self, std::shared_ptr<Object> object, HGDIOBJ now)
{
    const auto bitmap = std::static_pointer_cast<Bitmap>(std::move(object));
    const bool shared = now == defaultBitmap();
    if (!shared && bitmap->selectedInto && bitmap->selectedInto != self)
    {
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
    if (dc.bitmap)
        dc.bitmap->selectedInto = nullptr;
    if (!shared)
        bitmap->selectedInto = self;
    return selectInto(dc.bitmap, dc.state.bitmapHandle, bitmap, now);
}

} // namespace

std::vector<RECT> Dc::visible() const
{
    const RECT all = bitmap->box();
    if (!state.clip)
        return {all};
    std::vector<RECT> rects;
    for (const RECT& r : state.clip->rects())
    {
        const RECT cut{std::max(r.left, all.left), std::max(r.top, all.top), std::min(r.right, all.right),
                       std::min(r.bottom, all.bottom)};
        if (cut.left < cut.right && cut.top < cut.bottom)
            rects.push_back(cut);
    }
    return rects;
}

COLORREF Dc::effectivePenColor() const
{
    return plainColor(state.penHandle == GetStockObject(DC_PEN) ? state.penColor : pen->color);
}

COLORREF Dc::effectiveBrushColor() const
{
    return plainColor(state.brushHandle == GetStockObject(DC_BRUSH) ? state.brushColor : brush->color);
}

} // namespace kv::gdi

using namespace kv::gdi;

HDC CreateCompatibleDC(HDC like)
{
    if (like && !findDc(like))
        return nullptr;
    auto dc = std::make_shared<Dc>();
    const HDC handle = static_cast<HDC>(addObject(dc));
    if (!handle)
        return nullptr;
    dc->state.mapping.update();
    SelectObject(handle, GetStockObject(BLACK_PEN));
    SelectObject(handle, GetStockObject(WHITE_BRUSH));
    SelectObject(handle, GetStockObject(SYSTEM_FONT));
    SelectObject(handle, defaultBitmap());
    return handle;
}

HDC CreateDCW(LPCWSTR, LPCWSTR, LPCWSTR, const void*)
{
    const HDC dc = CreateCompatibleDC(nullptr);
    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), device::width, -device::height, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    const HBITMAP screen = CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
    if (!dc || !screen)
    {
        DeleteDC(dc);
        return nullptr;
    }
    SelectObject(dc, screen);
    DeleteObject(screen); // goes with the context
    return dc;
}

BOOL DeleteDC(HDC handle)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    if (dc->bitmap)
        dc->bitmap->selectedInto = nullptr;
    for (const HANDLE selected : {HANDLE(dc->state.penHandle), HANDLE(dc->state.brushHandle),
                                  HANDLE(dc->state.fontHandle), HANDLE(dc->state.bitmapHandle)})
        releaseSelection(selected);
    return removeObject(handle);
}

HGDIOBJ SelectObject(HDC handle, HGDIOBJ object)
{
    const auto dc = findDc(handle);
    if (!dc)
        return nullptr;
    std::shared_ptr<Object> found = findObject(object);
    switch (found ? found->kind : 0)
    {
    case OBJ_PEN:
    case OBJ_EXTPEN:
        return selectInto(dc->pen, dc->state.penHandle, std::move(found), object);
    case OBJ_BRUSH:
        return selectInto(dc->brush, dc->state.brushHandle, std::move(found), object);
    case OBJ_FONT:
        return selectInto(dc->font, dc->state.fontHandle, std::move(found), object);
    case OBJ_BITMAP:
        return selectBitmap(*dc, handle, std::move(found), object);
    case OBJ_REGION: // becomes the clip; the result is its complexity
        return reinterpret_cast<HGDIOBJ>(std::intptr_t(SelectClipRgn(handle, static_cast<HRGN>(object))));
    default:
        SetLastError(ERROR_INVALID_HANDLE);
        return nullptr;
    }
}

HGDIOBJ GetCurrentObject(HDC handle, UINT kind)
{
    const auto dc = findDc(handle);
    if (!dc)
        return nullptr;
    switch (kind)
    {
    case OBJ_PEN:
    case OBJ_EXTPEN:
        return dc->state.penHandle;
    case OBJ_BRUSH:
        return dc->state.brushHandle;
    case OBJ_FONT:
        return dc->state.fontHandle;
    case OBJ_BITMAP:
        return dc->state.bitmapHandle;
    case OBJ_PAL:
        return GetStockObject(DEFAULT_PALETTE);
    default:
        SetLastError(ERROR_INVALID_PARAMETER);
        return nullptr;
    }
}

int SaveDC(HDC handle)
{
    const auto dc = findDc(handle);
    if (!dc)
        return 0;
    dc->saved.push_back(dc->state);
    return int(dc->saved.size());
}

BOOL RestoreDC(HDC handle, int level)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    const std::int64_t count = std::int64_t(dc->saved.size());
    const std::int64_t wanted = level < 0 ? count + level + 1 : level;
    if (level == 0 || wanted < 1 || wanted > count)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    DcState state = std::move(dc->saved[std::size_t(wanted - 1)]);
    dc->saved.resize(std::size_t(wanted - 1));
    // Objects deleted since then leave what is selected now.
    for (const HGDIOBJ object :
         {HGDIOBJ(state.penHandle), HGDIOBJ(state.brushHandle), HGDIOBJ(state.fontHandle), HGDIOBJ(state.bitmapHandle)})
        SelectObject(handle, object);
    state.penHandle = dc->state.penHandle;
    state.brushHandle = dc->state.brushHandle;
    state.fontHandle = dc->state.fontHandle;
    state.bitmapHandle = dc->state.bitmapHandle;
    dc->state = std::move(state);
    return TRUE;
}

BOOL GetDCOrgEx(HDC handle, POINT* origin)
{
    if (!findDc(handle) || !origin)
        return FALSE;
    *origin = {0, 0};
    return TRUE;
}

int GetDeviceCaps(HDC handle, int index)
{
    if (!findDc(handle))
        return 0;
    switch (index)
    {
    case DRIVERVERSION:
        return 0x4000;
    case TECHNOLOGY:
        return DT_RASDISPLAY;
    case HORZSIZE:
        return device::widthMillimetres;
    case VERTSIZE:
        return device::heightMillimetres;
    case HORZRES:
        return device::width;
    case VERTRES:
        return device::height;
    case BITSPIXEL:
        return 32;
    case PLANES:
        return 1;
    case NUMBRUSHES:
    case NUMPENS:
    case NUMCOLORS:
        return -1;
    case CURVECAPS:
        return 511;
    case LINECAPS:
        return 254;
    case POLYGONALCAPS:
        return 255;
    case CLIPCAPS:
        return 1;
    case TEXTCAPS:
        return 31223;
    case RASTERCAPS:
        return RC_BITBLT | RC_BITMAP64 | RC_GDI20_OUTPUT | RC_DI_BITMAP | RC_DIBTODEV | RC_STRETCHBLT | RC_STRETCHDIB;
    case ASPECTX:
    case ASPECTY:
        return 36;
    case ASPECTXY:
        return 51;
    case LOGPIXELSX:
    case LOGPIXELSY:
        return device::pixelsPerInch;
    case COLORRES:
        return 24;
    default:
        return 0;
    }
}
