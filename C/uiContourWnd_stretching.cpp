// Stretching by a handle: a contour stretches about its own centre, so the figure is moved afterwards until the corner
// opposite the dragged one stands where it stood.
#include "C/uiContourWnd.h"

#include <cmath>
#include <optional>

using namespace KvN;

namespace
{

constexpr long NoCorner = -1;

// A flat figure's rectangle has been inflated to a side of 2 Epsilon; it counts as having none.
constexpr double FlatSide = 4.0 * KvMath::Epsilon;

// The sense of KvContour::Transform: counter-clockwise on the image.
KvVec2d Turned(const KvVec2d& v, double angle)
{
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    return {v.x * c + v.y * s, v.y * c - v.x * s};
}

// A drag seen from the corner that stays, with axes along the figure's bounding rectangle.
struct HandleDrag
{
    long count;    // corners of the rectangle
    long corner;   // the dragged corner, or the first one of the dragged edge
    long anchor;   // the corner that stays
    KvVec2d fixed; // where it stands on the image
    KvVec2d mouse; // the mouse relative to the anchor
    KvVec2d reach; // the dragged corner relative to the anchor, before the drag

    KvVec2d Factors() const { return {mouse.x / reach.x, mouse.y / reach.y}; }
    long Next() const { return (corner + 1) % count; }
    long Previous() const { return (corner + count - 1) % count; }
};

// Nothing if there is no such corner, or nothing to stretch by.
std::optional<HandleDrag> DragOf(const KvContour& figure, long corner, const KvVec2d& mouse)
{
    KvContour bounds;
    figure.MakeBoundingRect(bounds);
    const long count = bounds.CurvePositions().count;
    if (corner < 0 || corner >= count)
        return std::nullopt;

    HandleDrag drag{count, corner, (corner + 2) % count, {}, {}, {}};
    drag.fixed = bounds.CurvePositions()[static_cast<int>(drag.anchor)];
    const double angle = bounds.RotationAngle();
    bounds.TransformCMSBased(KvVec2d(0.0, 0.0), -angle);
    drag.mouse = Turned(mouse - drag.fixed, -angle);
    drag.reach =
        bounds.CurvePositions()[static_cast<int>(corner)] - bounds.CurvePositions()[static_cast<int>(drag.anchor)];
    if (drag.mouse.Length() < KvMath::Epsilon || std::abs(drag.reach.x) <= FlatSide ||
        std::abs(drag.reach.y) <= FlatSide)
        return std::nullopt;
    return drag;
}

// Which corner of the stretched figure's rectangle must fall on the anchor. A negative factor means that the mouse has
// crossed the anchor in that direction, and the figure is flipped.
long EdgeOnAnchor(const HandleDrag& drag, const KvVec2d& factors)
{
    if (factors.x > 0.0 && factors.y > 0.0)
        return drag.anchor;
    const bool anyZero = factors.x == 0.0 || factors.y == 0.0;
    return anyZero ? NoCorner : drag.Next();
}

long CornerOnAnchor(const HandleDrag& drag, const KvVec2d& factors)
{
    const bool even = drag.corner % 2 == 0;
    if (factors.x > 0.0 && factors.y > 0.0)
        return drag.anchor;
    if (factors.x < 0.0 && factors.y < 0.0)
        return drag.corner;
    if (factors.x > 0.0 && factors.y < 0.0)
        return even ? drag.Previous() : drag.Next();
    if (factors.x < 0.0 && factors.y > 0.0)
        return even ? drag.Next() : drag.Previous();
    return NoCorner;
}

// The factor of larger magnitude wins; each keeps its own sign.
KvVec2d Proportional(KvVec2d factors)
{
    const double x = std::abs(factors.x);
    const double y = std::abs(factors.y);
    if (x <= y)
        factors.x = factors.x <= 0.0 ? -y : y;
    else
        factors.y = factors.y <= 0.0 ? -x : x;
    return factors;
}

void StretchPinned(KvContour& figure, const HandleDrag& drag, const KvVec2d& factors, long onAnchor)
{
    figure.Stretch(factors.x, factors.y);
    if (!figure.IsValid() || onAnchor == NoCorner)
        return;
    KvContour bounds;
    figure.MakeBoundingRect(bounds);
    const KvVec2d shift = drag.fixed - bounds.CurvePositions()[static_cast<int>(onAnchor)];
    figure.Transform(KvVec2d(0.0, 0.0), shift, 0.0);
}

} // namespace

int KvContourWnd::Stretch(KvContour& figure, const Pair& edge, const KvVec2d& mouse) const
{
    const auto drag = DragOf(figure, edge.first, mouse);
    if (!drag)
        return 0;
    KvVec2d factors = drag->Factors();
    (edge.first % 2 == 0 ? factors.y : factors.x) = 1.0;
    StretchPinned(figure, *drag, factors, EdgeOnAnchor(*drag, factors));
    return 1;
}

int KvContourWnd::Stretch(KvContour& figure, long corner, int proportional, const KvVec2d& mouse) const
{
    const auto drag = DragOf(figure, corner, mouse);
    if (!drag)
        return 0;
    const KvVec2d factors = proportional ? Proportional(drag->Factors()) : drag->Factors();
    StretchPinned(figure, *drag, factors, CornerOnAnchor(*drag, factors));
    return 1;
}
