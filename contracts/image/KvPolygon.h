// A growable list of integer points for the polygon calls.
#pragma once

#include "contracts/basics/KvPoint.h"
#include "platform/gdi/gdi.h"

#include <vector>

namespace KvN
{

class KvPolygon
{
public:
    KvPolygon() = default;
    explicit KvPolygon(unsigned short size) : points(size) {}

    // Keeps the first min(old, new) points; new ones are (0, 0).
    void SetSize(unsigned short size) { points.resize(size); }
    unsigned short GetSize() const { return static_cast<unsigned short>(points.size()); }
    // The index must be below the size. A coordinate beyond 32 bits becomes the nearest bound.
    void SetPoint(const KvTPoint<long>& point, unsigned short index);
    POINT& operator[](unsigned short index) { return points[index]; }
    const POINT& operator[](unsigned short index) const { return points[index]; }
    // Good until the size changes.
    operator POINT*() { return points.data(); }
    operator const POINT*() const { return points.data(); }

private:
    std::vector<POINT> points;
};

} // namespace KvN
