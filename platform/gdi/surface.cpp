// Access to the bits behind a device context.
#include "platform/gdi/surface.h"

#include "platform/gdi/dc.h"

#include <algorithm>
#include <cmath>

namespace kv::gdi
{

namespace
{

LONG nearest(double v)
{
    // Written so that a NaN ends up at an end of the range, too.
    const double whole = std::floor(v + 0.5);
    if (!(whole > double(INT32_MIN)))
        return INT32_MIN;
    return whole < double(INT32_MAX) ? LONG(whole) : INT32_MAX;
}

} // namespace

POINT DeviceMapping::toDevice(double x, double y) const
{
    return {nearest(x * m11 + y * m21 + dx), nearest(x * m12 + y * m22 + dy)};
}

bool setPendingPixels(HBITMAP handle, PendingPixels* pixels)
{
    const auto bitmap = find<Bitmap>(handle);
    if (bitmap)
        bitmap->setPending(pixels);
    return bitmap != nullptr;
}

bool surfaceOf(HDC handle, Surface& surface)
{
    const auto dc = findDc(handle);
    if (!dc)
        return false;
    const PixelView view = dc->bitmap->pixels(RECT{});
    surface.top = view.top;
    surface.stride = view.stride;
    surface.width = view.width;
    surface.height = view.height;
    surface.depth = view.depth;
    surface.palette = dc->bitmap->table().empty() ? nullptr : dc->bitmap->table().data();
    surface.clip = dc->visible();
    surface.clipBox = surface.clip.empty() ? RECT{0, 0, 0, 0} : surface.clip.front();
    for (const RECT& r : surface.clip)
        surface.clipBox = {std::min(surface.clipBox.left, r.left), std::min(surface.clipBox.top, r.top),
                           std::max(surface.clipBox.right, r.right), std::max(surface.clipBox.bottom, r.bottom)};
    dc->bitmap->pixels(surface.clipBox);
    surface.mapping = dc->state.mapping.toDevice();
    return true;
}

} // namespace kv::gdi
