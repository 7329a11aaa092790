// The record of a contour: its fields, copying, comparison, validity, basic measures and rigid motion.
#include "C/syContour.h"

#include "C/syContour_walk.h"

#include <algorithm>
#include <cmath>

namespace KvN
{
namespace
{
double Distance(const KvVec2d& a, const KvVec2d& b)
{
    return (b - a).Length();
}

// Twice the area that an edge spans with the origin, positive clockwise on the image.
double Shoelace(const KvVec2d& a, const KvVec2d& b)
{
    return a.x * b.y - b.x * a.y;
}

double SignedArea(const KvTList<KvVec2d>& points)
{
    double sum = 0.0;
    contour::ForEachEdge(points, true, [&](const KvVec2d& a, const KvVec2d& b) { sum += Shoelace(a, b); });
    return -0.5 * sum;
}

double EdgeLengths(const KvTList<KvVec2d>& points, bool closed)
{
    double sum = 0.0;
    contour::ForEachEdge(points, closed, [&](const KvVec2d& a, const KvVec2d& b) { sum += Distance(a, b); });
    return sum;
}

double SemiAxis(const KvTList<KvVec2d>& points, int index)
{
    return Distance(points[0], points[index]);
}

double EllipseArea(const KvTList<KvVec2d>& points)
{
    if (points.count != 3)
        return 0.0;
    const double a = SemiAxis(points, 1);
    const double b = SemiAxis(points, 2);
    return a > KvMath::Epsilon && b > KvMath::Epsilon ? KvMath::Pi * a * b : 0.0;
}

// The radius of a circle, 0.0 for a wrong point count or a radius that does not exceed Epsilon.
double CircleRadius(const KvTList<KvVec2d>& points)
{
    const double radius = points.count == 2 ? SemiAxis(points, 1) : 0.0;
    return radius > KvMath::Epsilon ? radius : 0.0;
}

double CircleArea(const KvTList<KvVec2d>& points)
{
    const double radius = CircleRadius(points);
    return KvMath::Pi * radius * radius;
}

// The centroid of a figure whose signed area is not 0.
KvVec2d Centroid(const KvTList<KvVec2d>& points, double area)
{
    KvVec2d sum(0.0, 0.0);
    contour::ForEachEdge(points, true,
                         [&](const KvVec2d& a, const KvVec2d& b)
                         {
                             const double weight = Shoelace(a, b);
                             sum.x += (a.x + b.x) * weight;
                             sum.y += (a.y + b.y) * weight;
                         });
    return sum * (1.0 / (-area * 6.0));
}

KvVec2d CentreOfCorners(const KvContour& figure)
{
    constexpr double smallest = std::numeric_limits<double>::min();
    const auto& points = figure.CurvePositions();
    if (points.count == 0)
        return {0.0, 0.0};
    const KvVec2d& first = points.head->value;
    const KvVec2d middle = (first + points.tail->value) * 0.5;
    if (points.count < 3)
        return points.count == 1 ? first : middle;
    const double area = figure.GetArea();
    if (!(area < smallest))
        return Centroid(points, area);
    return figure.GetLength() < smallest ? first : middle;
}

template <class Number>
long Order(Number a, Number b)
{
    return a > b ? 1 : a < b ? -1 : 0;
}
} // namespace

KvContour::KvContour() = default;

KvContour::KvContour(const KvContour& other)
{
    KvContour::Init(other);
}

KvContour& KvContour::operator=(const KvContour& other)
{
    if (this != &other)
        Init(other);
    return *this;
}

KvContour::~KvContour() = default;

void KvContour::Init()
{
    id = -1;
    sequenceId = -1;
    exclude = 0;
    readOnly = 0;
    lineWidth = NoLineWidth;
    color = NoColor;
    description = KvString();
    contourType = eRectangle;
    curvePositions.Clear();
    angle = 0.0;
    allowedCompareDifference = DefaultCompareDifference;
}

void KvContour::Init(const KvContour& other)
{
    id = other.id;
    sequenceId = other.sequenceId;
    exclude = other.exclude;
    readOnly = other.readOnly;
    contourType = other.contourType;
    curvePositions = other.curvePositions;
    angle = other.angle;
    lineWidth = other.lineWidth;
    color = other.color;
    description = other.description;
}

void KvContour::Default(const KvTSize<short>& size)
{
    const double right = std::max(0, size.width - 1);
    const double bottom = std::max(0, size.height - 1);
    contourType = eRectangle;
    curvePositions.Clear();
    for (const KvVec2d& corner : {KvVec2d(0.0, 0.0), KvVec2d(0.0, bottom), KvVec2d(right, bottom), KvVec2d(right, 0.0)})
        curvePositions.AddTail(corner);
}

int KvContour::operator==(const KvContour& other)
{
    if (curvePositions.count != other.curvePositions.count || contourType != other.contourType)
        return 0;
    const auto* theirs = other.curvePositions.head;
    for (const auto* mine = curvePositions.head; mine; mine = mine->next, theirs = theirs->next)
    {
        if (Distance(mine->value, theirs->value) > allowedCompareDifference)
            return 0;
    }
    return 1;
}

long KvContour::CmpFunc(KvContour* a, KvContour* b)
{
    return Order(a->id, b->id);
}

long KvContour::CmpFuncSeq(KvContour* a, KvContour* b)
{
    return Order(a->sequenceId, b->sequenceId);
}

void KvContour::ClrFunc(KvContour* contour)
{
    delete contour;
}

int KvContour::IsValid() const
{
    switch (contourType)
    {
    case eRectangle:
    case eSquare:
        return curvePositions.count == 4 && GetArea() > 0.0;
    case ePolygon:
        return curvePositions.count >= 3 && GetArea() > 0.0;
    case ePolyline:
        return curvePositions.count >= 2 && GetLength() > 0.0;
    case eEllipse:
        return curvePositions.count == 3 && GetArea() > 0.0;
    case eCircle:
        return curvePositions.count == 2 && GetArea() > 0.0;
    }
    return 0;
}

double KvContour::GetArea() const
{
    switch (contourType)
    {
    case eRectangle:
    case ePolygon:
    case eSquare:
        return SignedArea(curvePositions);
    case ePolyline:
        return 0.0;
    case eEllipse:
        return EllipseArea(curvePositions);
    case eCircle:
        return CircleArea(curvePositions);
    }
    return 0.0;
}

KvVec2d KvContour::GetCMS() const
{
    switch (contourType)
    {
    case eRectangle:
    case ePolygon:
    case eSquare:
        return CentreOfCorners(*this);
    case ePolyline: // required: no polyline has a centre of mass, so that it turns and stretches about the origin
        return {0.0, 0.0};
    case eEllipse:
    case eCircle:
        return curvePositions.head ? curvePositions.head->value : KvVec2d(0.0, 0.0);
    }
    return {0.0, 0.0};
}

double KvContour::GetLength() const
{
    switch (contourType)
    {
    case eRectangle:
    case ePolygon:
    case eSquare:
        return EdgeLengths(curvePositions, true);
    case ePolyline:
        return EdgeLengths(curvePositions, false);
    case eEllipse: // required: nothing may rely on an ellipse's length
        return 0.0;
    case eCircle:
        return KvMath::TwoPi * CircleRadius(curvePositions);
    }
    return 0.0;
}

// The arguments are values: a pivot may well be one of the figure's own points.
void KvContour::Transform(const KvVec2d& pivotPoint, const KvVec2d& translation, double rotation)
{
    const KvVec2d pivot = pivotPoint;
    const KvVec2d target = pivot + translation;
    const double s = std::sin(rotation);
    const double c = std::cos(rotation);
    for (auto* node = curvePositions.head; node; node = node->next)
    {
        const KvVec2d d = node->value - pivot;
        node->value.x = target.x + d.x * c + d.y * s;
        node->value.y = target.y + d.y * c - d.x * s;
    }
    if (contourType == ePolygon || contourType == ePolyline)
        angle += rotation;
}

} // namespace KvN
