// Modes and colours of a context.
#include "platform/gdi/dc.h"
#include "platform/gdi/gdi.h"

#include <utility>

using namespace kv::gdi;

namespace
{

// Stores a mode if it is in range; the result is the old one, or 0.
int setMode(HDC handle, int DcState::*member, int mode, int first, int last)
{
    const auto dc = findDc(handle);
    if (!dc)
        return 0;
    if (mode < first || mode > last)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    return std::exchange(dc->state.*member, mode);
}

template <class Value>
Value getValue(HDC handle, Value DcState::*member, Value otherwise)
{
    const auto dc = findDc(handle);
    return dc ? dc->state.*member : otherwise;
}

COLORREF setColor(HDC handle, COLORREF DcState::*member, COLORREF color)
{
    const auto dc = findDc(handle);
    return dc ? std::exchange(dc->state.*member, color) : CLR_INVALID;
}

} // namespace

int SetROP2(HDC dc, int mode)
{
    return setMode(dc, &DcState::rop2, mode, R2_BLACK, R2_LAST);
}

int GetROP2(HDC dc)
{
    return getValue(dc, &DcState::rop2, 0);
}

int SetPolyFillMode(HDC dc, int mode)
{
    return setMode(dc, &DcState::polyFillMode, mode, ALTERNATE, WINDING);
}

int GetPolyFillMode(HDC dc)
{
    return getValue(dc, &DcState::polyFillMode, 0);
}

int SetStretchBltMode(HDC dc, int mode)
{
    return setMode(dc, &DcState::stretchMode, mode, BLACKONWHITE, MAXSTRETCHBLTMODE);
}

int GetStretchBltMode(HDC dc)
{
    return getValue(dc, &DcState::stretchMode, 0);
}

int SetBkMode(HDC dc, int mode)
{
    return setMode(dc, &DcState::backgroundMode, mode, TRANSPARENT, OPAQUE);
}

int GetBkMode(HDC dc)
{
    return getValue(dc, &DcState::backgroundMode, 0);
}

int SetArcDirection(HDC dc, int direction)
{
    return setMode(dc, &DcState::arcDirection, direction, AD_COUNTERCLOCKWISE, AD_CLOCKWISE);
}

int GetArcDirection(HDC dc)
{
    return getValue(dc, &DcState::arcDirection, 0);
}

COLORREF SetBkColor(HDC dc, COLORREF color)
{
    return setColor(dc, &DcState::background, color);
}

COLORREF GetBkColor(HDC dc)
{
    return getValue(dc, &DcState::background, CLR_INVALID);
}

COLORREF SetTextColor(HDC dc, COLORREF color)
{
    return setColor(dc, &DcState::text, color);
}

COLORREF GetTextColor(HDC dc)
{
    return getValue(dc, &DcState::text, CLR_INVALID);
}

COLORREF SetDCPenColor(HDC dc, COLORREF color)
{
    return setColor(dc, &DcState::penColor, color);
}

COLORREF GetDCPenColor(HDC dc)
{
    return getValue(dc, &DcState::penColor, CLR_INVALID);
}

COLORREF SetDCBrushColor(HDC dc, COLORREF color)
{
    return setColor(dc, &DcState::brushColor, color);
}

COLORREF GetDCBrushColor(HDC dc)
{
    return getValue(dc, &DcState::brushColor, CLR_INVALID);
}

UINT SetTextAlign(HDC handle, UINT align)
{
    const auto dc = findDc(handle);
    return dc ? std::exchange(dc->state.textAlign, align) : GDI_ERROR;
}

UINT GetTextAlign(HDC dc)
{
    return getValue(dc, &DcState::textAlign, UINT(GDI_ERROR));
}

BOOL SetBrushOrgEx(HDC handle, int x, int y, POINT* old)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    const POINT before = std::exchange(dc->state.brushOrigin, {x, y});
    if (old)
        *old = before;
    return TRUE;
}

BOOL GetBrushOrgEx(HDC handle, POINT* origin)
{
    const auto dc = findDc(handle);
    if (!dc || !origin)
        return FALSE;
    *origin = dc->state.brushOrigin;
    return TRUE;
}

DWORD GetLayout(HDC handle)
{
    return findDc(handle) ? 0 : GDI_ERROR;
}

COLORREF GetNearestColor(HDC handle, COLORREF color)
{
    const auto dc = findDc(handle);
    if (!dc)
        return CLR_INVALID;
    const std::uint32_t rgb = packed(plainColor(color));
    const ColorTable& table = dc->bitmap->table();
    return colorOf(table.empty() ? rgb : packed(table[std::size_t(nearestIndex(table, rgb))]));
}

// ---- Current position

BOOL MoveToEx(HDC handle, int x, int y, POINT* old)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    const POINT before = std::exchange(dc->state.position, {x, y});
    if (old)
        *old = before;
    return TRUE;
}

BOOL GetCurrentPositionEx(HDC handle, POINT* position)
{
    const auto dc = findDc(handle);
    if (!dc || !position)
        return FALSE;
    *position = dc->state.position;
    return TRUE;
}
