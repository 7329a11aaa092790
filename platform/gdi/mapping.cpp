// From logical to device coordinates.
#include "platform/gdi/mapping.h"

#include "platform/gdi/device.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace kv::gdi
{

namespace
{

// Window extents of the metric and English modes, in their units, for the whole device.
SIZE unitsOfDevice(int mode)
{
    switch (mode)
    {
    case MM_LOMETRIC:
        return {device::widthMillimetres * 10, device::heightMillimetres * 10};
    case MM_HIMETRIC:
        return {device::widthMillimetres * 100, device::heightMillimetres * 100};
    case MM_LOENGLISH:
        return {LONG(std::lround(device::widthMillimetres * 1000 / 254.0)),
                LONG(std::lround(device::heightMillimetres * 1000 / 254.0))};
    case MM_HIENGLISH:
        return {LONG(std::lround(device::widthMillimetres * 10000 / 254.0)),
                LONG(std::lround(device::heightMillimetres * 10000 / 254.0))};
    case MM_TWIPS:
        return {LONG(std::lround(device::widthMillimetres * 14400 / 254.0)),
                LONG(std::lround(device::heightMillimetres * 14400 / 254.0))};
    default:
        return {1, 1};
    }
}

} // namespace

void Mapping::setMode(int mapMode)
{
    switch (mapMode)
    {
    case MM_TEXT:
        windowExtent = viewportExtent = {1, 1};
        break;
    case MM_LOMETRIC:
    case MM_ISOTROPIC:
        windowExtent = unitsOfDevice(MM_LOMETRIC);
        viewportExtent = {device::width, -device::height};
        break;
    case MM_HIMETRIC:
    case MM_LOENGLISH:
    case MM_HIENGLISH:
    case MM_TWIPS:
        windowExtent = unitsOfDevice(mapMode);
        viewportExtent = {device::width, -device::height};
        break;
    default: // MM_ANISOTROPIC keeps what there is
        break;
    }
    mode = mapMode;
    update();
}

void Mapping::keepProportions()
{
    if (mode != MM_ISOTROPIC)
        return;
    const double perX = double(viewportExtent.cx) * device::widthMillimetres / device::width / windowExtent.cx;
    const double perY = double(viewportExtent.cy) * device::heightMillimetres / device::height / windowExtent.cy;
    const double x = std::fabs(perX), y = std::fabs(perY);
    const auto cut = [](LONG extent, double factor)
    {
        const LONG size = LONG(std::floor(std::fabs(double(extent)) * factor + 0.5));
        return extent >= 0 ? std::max<LONG>(size, 1) : -std::max<LONG>(size, 1);
    };
    if (x > y)
        viewportExtent.cx = cut(viewportExtent.cx, y / x);
    else
        viewportExtent.cy = cut(viewportExtent.cy, x / y);
}

void Mapping::update()
{
    // In single precision, as the recorded platform keeps its transforms: near halves it decides which pixel is meant.
    const float sx = float(double(viewportExtent.cx) / windowExtent.cx),
                sy = float(double(viewportExtent.cy) / windowExtent.cy);
    const XFORM window{sx,
                       0,
                       0,
                       sy,
                       float(viewportOrigin.x - double(sx) * windowOrigin.x),
                       float(viewportOrigin.y - double(sy) * windowOrigin.y)};
    const XFORM all = combined(world, window);
    forward = {all.eM11, all.eM12, all.eM21, all.eM22, all.eDx, all.eDy};
}

bool Mapping::toLogical(DeviceMapping& inverse) const
{
    // All in single precision, as recorded: in narrow mappings the determinant's rounding decides.
    const auto [m11, m12, m21, m22, dx, dy] = XFORM{float(forward.m11), float(forward.m12), float(forward.m21),
                                                    float(forward.m22), float(forward.dx),  float(forward.dy)};
    const float determinant = m11 * m22 - m12 * m21;
    if (!(std::fabs(determinant) > 1e-12) || !std::isfinite(determinant))
        return false;
    const XFORM back{m22 / determinant, -m12 / determinant, -m21 / determinant, m11 / determinant, 0, 0};
    inverse = {
        back.eM11, back.eM12, back.eM21, back.eM22, -dx * back.eM11 - dy * back.eM21, -dx * back.eM12 - dy * back.eM22};
    return true;
}

RECT Mapping::deviceRect(RECT logical) const
{
    const POINT a = device({logical.left, logical.top}), b = device({logical.right, logical.bottom});
    return {std::min(a.x, b.x), std::min(a.y, b.y), std::max(a.x, b.x), std::max(a.y, b.y)};
}

int Mapping::penWidth(int logical) const
{
    const double scale = std::sqrt(forward.m11 * forward.m11 + forward.m12 * forward.m12);
    const double width = std::floor(std::fabs(double(logical)) * scale + 0.5);
    return std::max(1, int(std::min(width, double(widestPen))));
}

bool isIdentity(const XFORM& t)
{
    return t.eM11 == 1 && t.eM12 == 0 && t.eM21 == 0 && t.eM22 == 1 && t.eDx == 0 && t.eDy == 0;
}

XFORM combined(const XFORM& a, const XFORM& b)
{
    return {a.eM11 * b.eM11 + a.eM12 * b.eM21,       a.eM11 * b.eM12 + a.eM12 * b.eM22,
            a.eM21 * b.eM11 + a.eM22 * b.eM21,       a.eM21 * b.eM12 + a.eM22 * b.eM22,
            a.eDx * b.eM11 + a.eDy * b.eM21 + b.eDx, a.eDx * b.eM12 + a.eDy * b.eM22 + b.eDy};
}

} // namespace kv::gdi
