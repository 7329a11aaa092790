// From logical to device coordinates: world transform, window and viewport.
#pragma once

#include "platform/gdi/gdi_constants.h"
#include "platform/gdi/surface.h"

#include <span>

namespace kv::gdi
{

struct Mapping
{
    int graphicsMode = GM_COMPATIBLE;
    int mode = MM_TEXT;
    POINT windowOrigin{0, 0}, viewportOrigin{0, 0};
    SIZE windowExtent{1, 1}, viewportExtent{1, 1};
    XFORM world{1, 0, 0, 1, 0, 0};

    void setMode(int mapMode); // takes over the mode's own extents
    void keepProportions();    // of an isotropic mode: cuts the larger viewport extent
    void update();             // after any change above

    const DeviceMapping& toDevice() const { return forward; }
    bool toLogical(DeviceMapping& inverse) const; // false if the mapping is not invertible
    bool isUpright() const { return forward.isUpright(); }

    POINT device(POINT p) const { return forward.toDevice(p.x, p.y); }
    // The corners of a rectangle, in device coordinates and in order. For upright mappings.
    RECT deviceRect(RECT logical) const;
    // A length along the logical x axis, in device pixels: rounded, at least 1 and at most what can be added to.
    static constexpr int widestPen = 1 << 28;
    int penWidth(int logical) const;

private:
    DeviceMapping forward;
};

bool isIdentity(const XFORM& transform);
XFORM combined(const XFORM& first, const XFORM& second);

} // namespace kv::gdi
