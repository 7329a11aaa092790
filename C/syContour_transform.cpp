// Transformation and editing: rigid motion about various pivots, scaling, and dragging of points and edges.
#include "C/syContour.h"

#include <algorithm>
#include <cmath>
#include <optional>

namespace KvN
{
namespace
{
using PointList = KvTList<KvVec2d>;

double FullTurnAngle(const KvVec2d& d)
{
    const double angle = std::atan2(d.y, d.x);
    return angle < 0.0 ? angle + KvMath::TwoPi : angle;
}

// The rotation between two directions, as growing atan2 counts; nothing if one of them is too short to have any.
std::optional<double> RotationBetween(const KvVec2d& from, const KvVec2d& to)
{
    if (from.Length() < KvMath::Epsilon || to.Length() < KvMath::Epsilon)
        return std::nullopt;
    return FullTurnAngle(to.Unit()) - FullTurnAngle(from.Unit());
}

KvVec2d BoundingRectCentre(const KvContour& figure)
{
    KvContour rect;
    figure.MakeBoundingRect(rect);
    return rect.GetCMS();
}

// Required: a stretched circle of unequal factors becomes an ellipse.
void StretchCircle(KvContour& circle, double sx, double sy)
{
    PointList& points = circle.CurvePositions();
    const KvVec2d centre = points[0];
    const KvVec2d v = points[1] - centre;
    points[1] = centre + v * sx;
    if (std::abs(sx - sy) >= KvMath::Epsilon)
    {
        points.AddTail(centre + KvVec2d(-v.y, v.x) * sy);
        circle.ContourType() = KvContour::eEllipse;
    }
}

void StretchEllipse(KvContour& ellipse, double sx, double sy)
{
    PointList& points = ellipse.CurvePositions();
    points[1] = points[0] + (points[1] - points[0]) * sx;
    points[2] = points[0] + (points[2] - points[0]) * sy;
}

// Required: a square stretched by unequal factors becomes a rectangle.
void StretchRect(KvContour& rect, double sx, double sy)
{
    KvVec2d a, b;
    double halfWidth = 0.0;
    rect.MakeAxisFromRect(a, b, halfWidth);
    const KvVec2d centre = rect.GetCMS();
    a = centre + (a - centre) * sx;
    b = centre + (b - centre) * sx;
    const bool staysSquare = rect.ContourType() == KvContour::eSquare && !(std::abs(sx - sy) >= KvMath::Epsilon);
    if (staysSquare)
        rect.MakeSquareFromAxis(a, b);
    else
        rect.MakeRectFromAxis(a, b, halfWidth * sy);
}

// `Angle` gives the frame in which the axes of scaling lie.
void StretchPoly(KvContour& poly, double factorX, double factorY)
{
    const KvVec2d centre = poly.GetCMS();
    const double angle = poly.Angle();
    poly.Transform(centre, {0.0, 0.0}, -angle);
    for (auto* node = poly.CurvePositions().head; node; node = node->next)
    {
        KvVec2d& p = node->value;
        p.x = (p.x - centre.x) * factorX + centre.x;
        p.y = (p.y - centre.y) * factorY + centre.y;
    }
    poly.Transform(centre, {0.0, 0.0}, angle);
    poly.MakeCCW();
}

// The diagonal of the upright square that is as large as the longer coordinate of t.
KvVec2d SquaredUp(const KvVec2d& t)
{
    const double m = std::max(std::abs(t.x), std::abs(t.y));
    return {t.x < 0.0 ? -m : m, t.y < 0.0 ? -m : m};
}

// Moves a corner away from the opposite one by t; its neighbours slide along their edges.
void MoveCorner(PointList& points, int index, const KvVec2d& corner, const KvVec2d& t)
{
    const int n = points.count;
    const int opposite = (index + 2) % n;
    const int after = (opposite + 1) % n;
    const int before = (opposite - 1 + n) % n;
    const KvVec2d q = points[opposite];
    const KvVec2d e1 = (points[after] - q).Unit();
    const KvVec2d e2 = (points[before] - q).Unit();
    points[index] = corner;
    points[after] = q + e1 * (e1 * t);
    points[before] = q + e2 * (e2 * t);
}
} // namespace

void KvContour::TransformCMSBased(const KvVec2d& translation, double rotation)
{
    Transform(GetCMS(), translation, rotation);
}

void KvContour::TransformCMSBased(const KvVec2d& translation, const KvVec2d& from, const KvVec2d& to)
{
    const KvVec2d pivot = GetCMS();
    if (const auto rotation = RotationBetween(from - pivot, to - pivot))
        Transform(pivot, translation, *rotation);
}

void KvContour::TransformCenterBased(const KvVec2d& translation, double rotation)
{
    Transform(BoundingRectCentre(*this), translation, rotation);
}

void KvContour::TransformCenterBased(const KvVec2d& translation, const KvVec2d& from, const KvVec2d& to)
{
    const KvVec2d pivot = BoundingRectCentre(*this);
    if (const auto rotation = RotationBetween(from - pivot, to - pivot))
        Transform(pivot, translation, *rotation);
}

void KvContour::TransformOriginBased(const KvVec2d& translation, double rotation)
{
    Transform({0.0, 0.0}, translation, rotation);
}

void KvContour::TransformOriginBased(const KvVec2d& translation, const KvVec2d& from, const KvVec2d& to)
{
    if (const auto rotation = RotationBetween(from, to))
        Transform({0.0, 0.0}, translation, *rotation);
}

void KvContour::Stretch(double factorX, double factorY)
{
    const double sx = std::abs(factorX);
    const double sy = std::abs(factorY);
    if (!IsValid() || sx < KvMath::Epsilon || sy < KvMath::Epsilon)
        return;
    switch (contourType)
    {
    case eRectangle:
    case eSquare:
        return StretchRect(*this, sx, sy);
    case eEllipse:
        return StretchEllipse(*this, sx, sy);
    case eCircle:
        return StretchCircle(*this, sx, sy);
    case ePolygon:
    case ePolyline:
        return StretchPoly(*this, factorX, factorY);
    }
}

void KvContour::Stretch(double factor)
{
    Stretch(factor, factor);
}

void KvContour::MovePoint(const KvVec2d& target, long index)
{
    const int n = curvePositions.count;
    if (index < 0 || index >= n)
        return;
    const int i = static_cast<int>(index);
    const KvVec2d to = target; // which may be one of the points that move
    const KvVec2d& opposite = curvePositions[(i + 2) % n];
    switch (contourType)
    {
    case ePolygon:
        curvePositions[i] = to;
        break;
    case eRectangle:
        MoveCorner(curvePositions, i, to, to - opposite);
        break;
    case eSquare: // required: squared up along the image axes, so that a turned square does not stay one
    {
        const KvVec2d t = SquaredUp(to - opposite);
        MoveCorner(curvePositions, i, opposite + t, t);
        break;
    }
    default: // polylines, ellipses and circles are not edited through this operation
        break;
    }
}

void KvContour::MoveLine(const KvVec2d& target, const KvTPair<long>& edge)
{
    const int n = curvePositions.count;
    const auto inside = [n](long index) { return index >= 0 && index < n; };
    if (!inside(edge.first) || !inside(edge.second) || edge.first == edge.second)
        return;
    if (contourType != eRectangle && contourType != eSquare)
        return;
    const int i = static_cast<int>(edge.first);
    const int j = static_cast<int>(edge.second);
    const KvVec2d e = (curvePositions[j] - curvePositions[i]).Unit();
    const KvVec2d normal(-e.y, e.x);
    const KvVec2d prev = curvePositions[(i - 1 + n) % n];
    const KvVec2d next = curvePositions[(j + 1) % n];
    const double d = normal * (target - prev);
    // Required: a square's new side is not normalised before it is scaled.
    const KvVec2d far = contourType == eSquare ? prev + (next - prev) * std::abs(d) : next;
    curvePositions[i] = prev + normal * d;
    curvePositions[j] = far + normal * d;
}

} // namespace KvN
