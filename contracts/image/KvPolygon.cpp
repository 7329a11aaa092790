// Narrowing of points to the platform's 32 bits.
#include "contracts/image/KvPolygon.h"

#include <algorithm>

namespace KvN
{

namespace
{
LONG Narrowed(long value)
{
    return static_cast<LONG>(std::clamp<long>(value, INT32_MIN, INT32_MAX));
}
} // namespace

void KvPolygon::SetPoint(const KvTPoint<long>& point, unsigned short index)
{
    points[index] = {Narrowed(point.x), Narrowed(point.y)};
}

} // namespace KvN
