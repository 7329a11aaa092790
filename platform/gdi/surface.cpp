// Access to the bits behind a device context.
#include "platform/gdi/surface.h"

#include "platform/gdi/gdi.h"

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

bool surfaceOf(HDC, Surface&)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return false;
}

} // namespace kv::gdi
