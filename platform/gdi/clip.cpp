// Regions, and the clip of a context.
#include "platform/gdi/dc.h"
#include "platform/gdi/gdi.h"

#include <algorithm>
#include <cstring>

using namespace kv::gdi;

namespace
{

int kindOf(const Area& area)
{
    return area.empty() ? NULLREGION : area.simple() ? SIMPLEREGION : COMPLEXREGION;
}

bool combine(Area& result, const Area& first, const Area& second, int mode)
{
    switch (mode)
    {
    case RGN_AND:
        result = Area::combine(first, second, Area::Operation::And);
        return true;
    case RGN_OR:
        result = Area::combine(first, second, Area::Operation::Or);
        return true;
    case RGN_XOR:
        result = Area::combine(first, second, Area::Operation::Xor);
        return true;
    case RGN_DIFF:
        result = Area::combine(first, second, Area::Operation::Without);
        return true;
    case RGN_COPY:
        result = first;
        return true;
    default:
        SetLastError(ERROR_INVALID_PARAMETER);
        return false;
    }
}

// A logical rectangle on the device: in a turned world a polygon.
Area onDevice(const Mapping& mapping, RECT rect)
{
    if (mapping.isUpright())
        return Area(mapping.deviceRect(rect));
    const POINT corners[] = {mapping.device({rect.left, rect.top}), mapping.device({rect.right, rect.top}),
                             mapping.device({rect.right, rect.bottom}), mapping.device({rect.left, rect.bottom})};
    return Area::polygon(corners);
}

Area currentClip(const Dc& dc)
{
    return dc.state.clip ? *dc.state.clip : Area(dc.bitmap->box());
}

int changeClip(HDC handle, RECT rect, Area::Operation operation)
{
    const auto dc = findDc(handle);
    if (!dc)
        return ERROR;
    Area area = onDevice(dc->state.mapping, rect);
    // The first rectangle becomes the clip as it is, even outside the bitmap.
    if (dc->state.clip || operation != Area::Operation::And)
        area = Area::combine(currentClip(*dc), area, operation);
    dc->state.clip = std::move(area);
    return kindOf(*dc->state.clip);
}

Area visibleArea(const Dc& dc)
{
    return Area::combine(currentClip(dc), Area(dc.bitmap->box()), Area::Operation::And);
}

// Fills the rectangles of a region given in logical coordinates.
BOOL fill(HDC dc, HRGN region, DWORD rop)
{
    const auto found = find<Region>(region);
    if (!found || !findDc(dc))
        return FALSE;
    for (const RECT& r : found->area.rects())
        PatBlt(dc, r.left, r.top, r.right - r.left, r.bottom - r.top, rop);
    return TRUE;
}

} // namespace

HRGN CreateRectRgn(int left, int top, int right, int bottom)
{
    auto region = std::make_shared<Region>();
    region->area = Area({left, top, right, bottom});
    return static_cast<HRGN>(addObject(std::move(region)));
}

HRGN CreateRectRgnIndirect(const RECT* rect)
{
    return rect ? CreateRectRgn(rect->left, rect->top, rect->right, rect->bottom) : nullptr;
}

BOOL SetRectRgn(HRGN region, int left, int top, int right, int bottom)
{
    const auto found = find<Region>(region);
    if (!found)
        return FALSE;
    found->area = Area({left, top, right, bottom});
    return TRUE;
}

int CombineRgn(HRGN result, HRGN first, HRGN second, int mode)
{
    const auto target = find<Region>(result), a = find<Region>(first);
    const auto b = mode == RGN_COPY ? a : find<Region>(second);
    if (!target || !a || !b)
        return ERROR;
    Area area;
    if (!combine(area, a->area, b->area, mode))
        return ERROR;
    target->area = std::move(area);
    return kindOf(target->area);
}

int GetRgnBox(HRGN region, RECT* box)
{
    const auto found = find<Region>(region);
    if (!found || !box)
        return ERROR;
    *box = found->area.box();
    return kindOf(found->area);
}

int OffsetRgn(HRGN region, int x, int y)
{
    const auto found = find<Region>(region);
    if (!found)
        return ERROR;
    found->area.offset(x, y);
    return kindOf(found->area);
}

BOOL EqualRgn(HRGN first, HRGN second)
{
    const auto a = find<Region>(first), b = find<Region>(second);
    return a && b && a->area == b->area;
}

BOOL PtInRegion(HRGN region, int x, int y)
{
    const auto found = find<Region>(region);
    return found && found->area.contains({x, y});
}

BOOL RectInRegion(HRGN region, const RECT* rect)
{
    const auto found = find<Region>(region);
    return found && rect && found->area.touches(*rect);
}

DWORD GetRegionData(HRGN region, DWORD size, RGNDATA* data)
{
    const auto found = find<Region>(region);
    if (!found)
        return 0;
    const std::vector<RECT>& rects = found->area.rects();
    const DWORD bytes = DWORD(rects.size() * sizeof(RECT)), whole = DWORD(sizeof(RGNDATAHEADER)) + bytes;
    if (!data)
        return whole;
    if (size < whole)
    {
        SetLastError(ERROR_INSUFFICIENT_BUFFER);
        return 0;
    }
    data->rdh = {sizeof(RGNDATAHEADER), RDH_RECTANGLES, DWORD(rects.size()), bytes, found->area.box()};
    if (bytes > 0)
        std::memcpy(data->Buffer, rects.data(), bytes);
    return whole;
}

BOOL FillRgn(HDC dc, HRGN region, HBRUSH brush)
{
    const HGDIOBJ old = find<Brush>(brush) ? SelectObject(dc, brush) : nullptr;
    if (!old)
        return FALSE;
    const BOOL done = fill(dc, region, PATCOPY);
    SelectObject(dc, old);
    return done;
}

BOOL PaintRgn(HDC dc, HRGN region)
{
    return fill(dc, region, PATCOPY);
}

BOOL InvertRgn(HDC dc, HRGN region)
{
    return fill(dc, region, DSTINVERT);
}

// ---- The clip

int SelectClipRgn(HDC dc, HRGN region)
{
    return ExtSelectClipRgn(dc, region, RGN_COPY);
}

int ExtSelectClipRgn(HDC handle, HRGN region, int mode)
{
    const auto dc = findDc(handle);
    if (!dc)
        return ERROR;
    if (!region)
    {
        if (mode != RGN_COPY)
        {
            SetLastError(ERROR_INVALID_PARAMETER);
            return ERROR;
        }
        dc->state.clip.reset();
        return SIMPLEREGION;
    }
    const auto found = find<Region>(region);
    if (!found)
        return ERROR;
    Area clip;
    if (mode == RGN_COPY)
        clip = found->area;
    else if (!combine(clip, currentClip(*dc), found->area, mode))
        return ERROR;
    dc->state.clip = std::move(clip);
    return kindOf(*dc->state.clip);
}

int GetClipRgn(HDC handle, HRGN region)
{
    const auto dc = findDc(handle);
    const auto found = find<Region>(region);
    if (!dc || !found)
        return -1;
    if (!dc->state.clip)
        return 0;
    found->area = *dc->state.clip;
    return 1;
}

int IntersectClipRect(HDC dc, int left, int top, int right, int bottom)
{
    return changeClip(dc, {left, top, right, bottom}, Area::Operation::And);
}

int ExcludeClipRect(HDC dc, int left, int top, int right, int bottom)
{
    return changeClip(dc, {left, top, right, bottom}, Area::Operation::Without);
}

int OffsetClipRgn(HDC handle, int x, int y)
{
    const auto dc = findDc(handle);
    if (!dc)
        return ERROR;
    if (!dc->state.clip)
        return SIMPLEREGION;
    const POINT from = dc->state.mapping.device({0, 0}), to = dc->state.mapping.device({x, y});
    dc->state.clip->offset(int(std::int64_t(to.x) - from.x), int(std::int64_t(to.y) - from.y));
    return kindOf(*dc->state.clip);
}

int GetClipBox(HDC handle, RECT* box)
{
    const auto dc = findDc(handle);
    if (!dc || !box)
        return ERROR;
    const Area area = visibleArea(*dc);
    POINT corners[2] = {{area.box().left, area.box().top}, {area.box().right, area.box().bottom}};
    DPtoLP(handle, corners, 2);
    *box = {corners[0].x, corners[0].y, corners[1].x, corners[1].y};
    return kindOf(area);
}

BOOL PtVisible(HDC handle, int x, int y)
{
    const auto dc = findDc(handle);
    return dc && visibleArea(*dc).contains(dc->state.mapping.device({x, y}));
}

BOOL RectVisible(HDC handle, const RECT* rect)
{
    const auto dc = findDc(handle);
    if (!dc || !rect)
        return FALSE;
    const Area wanted = onDevice(dc->state.mapping, *rect);
    return !Area::combine(visibleArea(*dc), wanted, Area::Operation::And).empty();
}
