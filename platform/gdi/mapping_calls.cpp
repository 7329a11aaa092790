// Mapping of a context: origins, extents, modes and the world transform.
#include "platform/gdi/dc.h"
#include "platform/gdi/gdi.h"

#include <cmath>
#include <utility>

using namespace kv::gdi;

namespace
{

LONG wrapped(LONG a, int b)
{
    return LONG(ULONG(a) + ULONG(b));
}

BOOL setOrigin(HDC handle, POINT Mapping::*member, POINT origin, POINT* old)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    Mapping& mapping = dc->state.mapping;
    const POINT before = std::exchange(mapping.*member, origin);
    if (old)
        *old = before;
    mapping.update();
    return TRUE;
}

BOOL offsetOrigin(HDC handle, POINT Mapping::*member, int x, int y, POINT* old)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    const POINT origin = dc->state.mapping.*member;
    return setOrigin(handle, member, {wrapped(origin.x, x), wrapped(origin.y, y)}, old);
}

template <class Value>
BOOL getValue(HDC handle, Value Mapping::*member, Value* value)
{
    const auto dc = findDc(handle);
    if (!dc || !value)
        return FALSE;
    *value = dc->state.mapping.*member;
    return TRUE;
}

bool hasOwnExtents(int mode)
{
    return mode == MM_ISOTROPIC || mode == MM_ANISOTROPIC;
}

// Extents are settable in two modes only; in the others the call succeeds and changes nothing.
BOOL setExtent(HDC handle, SIZE Mapping::*member, SIZE extent, SIZE* old)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    Mapping& mapping = dc->state.mapping;
    if (old)
        *old = mapping.*member;
    if (!hasOwnExtents(mapping.mode))
        return TRUE;
    if (extent.cx == 0 || extent.cy == 0)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    mapping.*member = extent;
    mapping.keepProportions();
    mapping.update();
    return TRUE;
}

BOOL scaleExtent(HDC handle, SIZE Mapping::*member, int xn, int xd, int yn, int yd, SIZE* old)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    const SIZE extent = dc->state.mapping.*member;
    if (!hasOwnExtents(dc->state.mapping.mode))
    {
        if (old)
            *old = extent;
        return TRUE;
    }
    if (xn == 0 || xd == 0 || yn == 0 || yd == 0)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    const auto scaled = [](LONG v, int n, int d)
    {
        const std::int64_t result = std::int64_t(v) * n / d;
        return LONG(result == 0 ? 1 : result > INT32_MAX ? INT32_MAX : result < -INT32_MAX ? -INT32_MAX : result);
    };
    return setExtent(handle, member, {scaled(extent.cx, xn, xd), scaled(extent.cy, yn, yd)}, old);
}

// In place of the world transform, if it can be undone.
BOOL setWorld(Dc& dc, const XFORM& transform)
{
    const double determinant = double(transform.eM11) * transform.eM22 - double(transform.eM12) * transform.eM21;
    const bool allowed = dc.state.mapping.graphicsMode == GM_ADVANCED;
    if (!allowed || determinant == 0 || !std::isfinite(determinant) || !std::isfinite(transform.eDx) ||
        !std::isfinite(transform.eDy))
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return FALSE;
    }
    dc.state.mapping.world = transform;
    dc.state.mapping.update();
    return TRUE;
}

} // namespace

int SetGraphicsMode(HDC handle, int mode)
{
    const auto dc = findDc(handle);
    if (!dc)
        return 0;
    if (mode != GM_COMPATIBLE && mode != GM_ADVANCED)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    // A world transform that is set stays in force: this is how the recorded platform behaves.
    return std::exchange(dc->state.mapping.graphicsMode, mode);
}

int GetGraphicsMode(HDC handle)
{
    const auto dc = findDc(handle);
    return dc ? dc->state.mapping.graphicsMode : 0;
}

int SetMapMode(HDC handle, int mode)
{
    const auto dc = findDc(handle);
    if (!dc)
        return 0;
    if (mode < MM_TEXT || mode > MM_ANISOTROPIC)
    {
        SetLastError(ERROR_INVALID_PARAMETER);
        return 0;
    }
    const int old = dc->state.mapping.mode;
    if (mode != old || mode == MM_ISOTROPIC)
        dc->state.mapping.setMode(mode);
    return old;
}

int GetMapMode(HDC handle)
{
    const auto dc = findDc(handle);
    return dc ? dc->state.mapping.mode : 0;
}

BOOL SetWindowOrgEx(HDC dc, int x, int y, POINT* old)
{
    return setOrigin(dc, &Mapping::windowOrigin, {x, y}, old);
}

BOOL GetWindowOrgEx(HDC dc, POINT* origin)
{
    return getValue(dc, &Mapping::windowOrigin, origin);
}

BOOL OffsetWindowOrgEx(HDC dc, int x, int y, POINT* old)
{
    return offsetOrigin(dc, &Mapping::windowOrigin, x, y, old);
}

BOOL SetWindowExtEx(HDC dc, int x, int y, SIZE* old)
{
    return setExtent(dc, &Mapping::windowExtent, {x, y}, old);
}

BOOL GetWindowExtEx(HDC dc, SIZE* extent)
{
    return getValue(dc, &Mapping::windowExtent, extent);
}

BOOL ScaleWindowExtEx(HDC dc, int xn, int xd, int yn, int yd, SIZE* old)
{
    return scaleExtent(dc, &Mapping::windowExtent, xn, xd, yn, yd, old);
}

BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT* old)
{
    return setOrigin(dc, &Mapping::viewportOrigin, {x, y}, old);
}

BOOL GetViewportOrgEx(HDC dc, POINT* origin)
{
    return getValue(dc, &Mapping::viewportOrigin, origin);
}

BOOL OffsetViewportOrgEx(HDC dc, int x, int y, POINT* old)
{
    return offsetOrigin(dc, &Mapping::viewportOrigin, x, y, old);
}

BOOL SetViewportExtEx(HDC dc, int x, int y, SIZE* old)
{
    return setExtent(dc, &Mapping::viewportExtent, {x, y}, old);
}

BOOL GetViewportExtEx(HDC dc, SIZE* extent)
{
    return getValue(dc, &Mapping::viewportExtent, extent);
}

BOOL ScaleViewportExtEx(HDC dc, int xn, int xd, int yn, int yd, SIZE* old)
{
    return scaleExtent(dc, &Mapping::viewportExtent, xn, xd, yn, yd, old);
}

BOOL SetWorldTransform(HDC handle, const XFORM* transform)
{
    const auto dc = findDc(handle);
    return dc && transform && setWorld(*dc, *transform);
}

BOOL GetWorldTransform(HDC dc, XFORM* transform)
{
    return getValue(dc, &Mapping::world, transform);
}

BOOL ModifyWorldTransform(HDC handle, const XFORM* transform, DWORD mode)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    const XFORM& world = dc->state.mapping.world;
    if (mode == MWT_IDENTITY)
    {
        dc->state.mapping.world = {1, 0, 0, 1, 0, 0};
        dc->state.mapping.update();
        return TRUE;
    }
    if (transform && mode == MWT_LEFTMULTIPLY)
        return setWorld(*dc, combined(*transform, world));
    if (transform && mode == MWT_RIGHTMULTIPLY)
        return setWorld(*dc, combined(world, *transform));
    SetLastError(ERROR_INVALID_PARAMETER);
    return FALSE;
}

BOOL CombineTransform(XFORM* result, const XFORM* first, const XFORM* second)
{
    if (!result || !first || !second)
        return FALSE;
    *result = combined(*first, *second);
    return TRUE;
}

BOOL LPtoDP(HDC handle, POINT* points, int count)
{
    const auto dc = findDc(handle);
    if (!dc || (!points && count > 0))
        return FALSE;
    for (int i = 0; i < count; ++i)
        points[i] = dc->state.mapping.device(points[i]);
    return TRUE;
}

BOOL DPtoLP(HDC handle, POINT* points, int count)
{
    const auto dc = findDc(handle);
    DeviceMapping toLogical;
    if (!dc || (!points && count > 0) || !dc->state.mapping.toLogical(toLogical))
        return FALSE;
    for (int i = 0; i < count; ++i)
        points[i] = toLogical.toDevice(points[i].x, points[i].y);
    return TRUE;
}
