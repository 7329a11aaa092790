// Measures: radius, semi-axes, rotation, boxes, and the axis form of a rectangle. Nothing is cached.
#include "C/syContour.h"

#include <algorithm>
#include <cmath>

namespace KvN
{
namespace
{
using PointList = KvTList<KvVec2d>;
using Box = KvTRectangle<double>;

double LengthFromFirst(const PointList& points, int index)
{
    return (points[index] - points[0]).Length();
}

// The angle of a direction in the sense of `Transform`: 0 along x, growing counter-clockwise on the image.
double AngleOf(const KvVec2d& d)
{
    const double angle = -std::atan2(d.y, d.x);
    return angle < 0.0 ? angle + KvMath::TwoPi : angle;
}

Box BoxOf(const PointList& points)
{
    const KvVec2d& first = points.head->value;
    double left = first.x, top = first.y, right = first.x, bottom = first.y;
    for (const auto* node = points.head->next; node; node = node->next)
    {
        const KvVec2d& p = node->value;
        left = std::min(left, p.x);
        top = std::min(top, p.y);
        right = std::max(right, p.x);
        bottom = std::max(bottom, p.y);
    }
    return {left, top, right, bottom};
}

// The box of the parallelogram around an ellipse with that centre and those semi-axes.
Box BoxOf(const KvVec2d& centre, const KvVec2d& u, const KvVec2d& v)
{
    PointList corners;
    for (const KvVec2d& corner : {centre + u + v, centre + u - v, centre - u + v, centre - u - v})
        corners.AddTail(corner);
    return BoxOf(corners);
}

Box Widened(const Box& box, double by)
{
    return {box.left - by, box.top - by, box.right + by, box.bottom + by};
}

// Moves two bounds that lie closer than 2 Epsilon apart by Epsilon each.
void Inflate(double& lower, double& upper)
{
    if (upper - lower < 2.0 * KvMath::Epsilon)
    {
        lower -= KvMath::Epsilon;
        upper += KvMath::Epsilon;
    }
}

// The bounding rectangle of a polygon or polyline along its accumulated rotation.
void RectAlongAngle(const KvContour& figure, KvContour& rect)
{
    KvContour upright(figure);
    const KvVec2d centre = upright.GetCMS();
    upright.Transform(centre, {0.0, 0.0}, -figure.Angle());
    Box box;
    if (!upright.MakeBoundingBox(box))
        return;
    Inflate(box.left, box.right);
    Inflate(box.top, box.bottom);
    rect.MakeRectFromDiagonal(box.left, box.top, box.right, box.bottom);
    rect.Transform(centre, {0.0, 0.0}, figure.Angle());
}
} // namespace

double KvContour::Radius() const
{
    return contourType == eCircle && IsValid() ? LengthFromFirst(curvePositions, 1) : 0.0;
}

double KvContour::SemiAxisLength1() const
{
    const bool round = contourType == eEllipse || contourType == eCircle;
    return round && IsValid() ? LengthFromFirst(curvePositions, 1) : 0.0;
}

double KvContour::SemiAxisLength2() const
{
    if (contourType == eEllipse && IsValid())
        return LengthFromFirst(curvePositions, 2);
    return Radius();
}

double KvContour::RotationAngle() const
{
    switch (contourType)
    {
    case eRectangle:
    case eSquare:
        return IsValid() ? AngleOf(curvePositions[3] - curvePositions[0]) : 0.0;
    case eEllipse:
        return IsValid() ? AngleOf(curvePositions[1] - curvePositions[0]) : 0.0;
    case ePolygon:
    case ePolyline:
        return angle;
    case eCircle:
        return 0.0;
    }
    return 0.0;
}

// Required: ellipses and circles answer 0 with the box filled.
int KvContour::MakeBoundingBox(KvTRectangle<double>& box) const
{
    constexpr double largest = std::numeric_limits<double>::max();
    const PointList& points = curvePositions;
    box = {largest, largest, largest, largest};
    switch (contourType)
    {
    case eRectangle:
    case ePolygon:
    case ePolyline:
    case eSquare:
        if (points.count == 0)
            return 0;
        box = BoxOf(points);
        if (contourType == ePolyline && lineWidth != NoLineWidth)
            box = Widened(box, lineWidth * 0.5);
        return 1;
    case eEllipse:
        if (points.count >= 3)
            box = BoxOf(points[0], points[1] - points[0], points[2] - points[0]);
        return 0;
    case eCircle:
        if (points.count >= 2)
        {
            const KvVec2d u = points[1] - points[0];
            box = BoxOf(points[0], u, {-u.y, u.x});
        }
        return 0;
    }
    return 0;
}

void KvContour::MakeBoundingRect(KvContour& rect) const
{
    rect = KvContour();
    if (!IsValid())
        return;
    const PointList& points = curvePositions;
    switch (contourType)
    {
    case eRectangle:
    case eSquare:
        rect = *this;
        break;
    case ePolygon:
    case ePolyline:
        RectAlongAngle(*this, rect);
        break;
    case eEllipse:
    {
        const KvVec2d opposite = points[0] - (points[1] - points[0]);
        rect.MakeRectFromAxis(opposite, points[1], LengthFromFirst(points, 2));
        break;
    }
    case eCircle:
    {
        const KvVec2d opposite = points[0] - (points[1] - points[0]);
        rect.MakeRectFromAxis(opposite, points[1], 0.5 * (points[1] - opposite).Length());
        rect.contourType = eSquare;
        break;
    }
    }
}

void KvContour::MakeBoundingRect(KvContour& rect, KvTList<KvVec2d>& corners, KvTList<KvVec2d>& edgeMiddles) const
{
    MakeBoundingRect(rect);
    corners.Clear();
    edgeMiddles.Clear();
    if (!IsValid())
        return;
    const PointList& points = rect.curvePositions;
    for (const auto* node = points.head; node; node = node->next)
    {
        const auto* next = node->next ? node->next : points.head;
        corners.AddTail(node->value);
        edgeMiddles.AddTail((node->value + next->value) * 0.5);
    }
}

int KvContour::MakeAxisFromRect(double& x1, double& y1, double& x2, double& y2, double& halfWidth) const
{
    KvVec2d a, b;
    const int made = MakeAxisFromRect(a, b, halfWidth);
    x1 = a.x;
    y1 = a.y;
    x2 = b.x;
    y2 = b.y;
    return made;
}

int KvContour::MakeAxisFromRect(KvVec2d& a, KvVec2d& b, double& halfWidth) const
{
    a = b = KvVec2d(0.0, 0.0);
    halfWidth = 0.0;
    if ((contourType != eRectangle && contourType != eSquare) || curvePositions.count != 4)
        return 0;
    const PointList& p = curvePositions;
    a = (p[0] + p[1]) * 0.5;
    b = (p[2] + p[3]) * 0.5;
    halfWidth = (p[0] - a).Length();
    return 1;
}

} // namespace KvN
