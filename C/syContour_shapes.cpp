// Construction: a contour's points from two or three defining ones, from buffers, and the one orientation.
// Defining points are taken by value before the list is emptied, since they may be the contour's own.
#include "C/syContour.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <utility>

namespace KvN
{
namespace
{
using PointList = KvTList<KvVec2d>;

void Replace(PointList& points, std::initializer_list<KvVec2d> by)
{
    points.Clear();
    for (const KvVec2d& point : by)
        points.AddTail(point);
}

void Append(PointList& points, const KvTMem<KvTPoint<double>>& mem)
{
    for (unsigned i = 0; i < mem.size; ++i)
        points.AddTail({mem[i].x, mem[i].y});
}

KvVec2d UnitNormal(const KvVec2d& d)
{
    return KvVec2d(-d.y, d.x).Unit();
}

double SignOf(double x)
{
    return x < 0.0 ? -1.0 : 1.0;
}
} // namespace

void KvContour::MakeRectFromDiagonal(const KvVec2d& a, const KvVec2d& b)
{
    contourType = eRectangle;
    Replace(curvePositions, {a, {a.x, b.y}, b, {b.x, a.y}});
    MakeCCW();
}

void KvContour::MakeRectFromDiagonal(double x1, double y1, double x2, double y2)
{
    MakeRectFromDiagonal({x1, y1}, {x2, y2});
}

void KvContour::MakeRectFromEdge(const KvVec2d& a, const KvVec2d& b, double width)
{
    const KvVec2d across = UnitNormal(b - a) * width;
    contourType = eRectangle;
    Replace(curvePositions, {a, b, b + across, a + across});
    MakeCCW();
}

void KvContour::MakeRectFromEdge(double x1, double y1, double x2, double y2, double width)
{
    MakeRectFromEdge({x1, y1}, {x2, y2}, width);
}

void KvContour::MakeRectFromAxis(const KvVec2d& a, const KvVec2d& b, double halfWidth)
{
    KvVec2d d = b - a;
    if (d.Length() < KvMath::Epsilon)
        d = KvVec2d::XUnit;
    const KvVec2d across = UnitNormal(d) * halfWidth;
    contourType = eRectangle;
    Replace(curvePositions, {a - across, a + across, b + across, b - across});
    MakeCCW();
}

void KvContour::MakeRectFromAxis(double x1, double y1, double x2, double y2, double halfWidth)
{
    MakeRectFromAxis({x1, y1}, {x2, y2}, halfWidth);
}

void KvContour::MakeSquareFromDiagonal(const KvVec2d& a, const KvVec2d& b)
{
    const KvVec2d d = b - a;
    const double side = std::max(std::abs(d.x), std::abs(d.y));
    const KvVec2d far(a.x + SignOf(d.x) * side, a.y + SignOf(d.y) * side);
    contourType = eSquare;
    Replace(curvePositions, {a, {a.x, far.y}, far, {far.x, a.y}});
    MakeCCW();
}

void KvContour::MakeSquareFromDiagonal(double x1, double y1, double x2, double y2)
{
    MakeSquareFromDiagonal({x1, y1}, {x2, y2});
}

void KvContour::MakeSquareFromEdge(const KvVec2d& a, const KvVec2d& b)
{
    MakeRectFromEdge(a, b, (b - a).Length());
    contourType = eSquare;
}

void KvContour::MakeSquareFromEdge(double x1, double y1, double x2, double y2)
{
    MakeSquareFromEdge({x1, y1}, {x2, y2});
}

void KvContour::MakeSquareFromAxis(const KvVec2d& a, const KvVec2d& b)
{
    MakeRectFromAxis(a, b, 0.5 * (b - a).Length());
    contourType = eSquare;
}

void KvContour::MakeSquareFromAxis(double x1, double y1, double x2, double y2)
{
    MakeSquareFromAxis({x1, y1}, {x2, y2});
}

int KvContour::MakeCircle(const KvVec2d& centre, double radius)
{
    const double r = std::abs(radius);
    contourType = eCircle;
    Replace(curvePositions, {centre, centre + KvVec2d(r, 0.0)});
    return r > KvMath::Epsilon;
}

int KvContour::MakeCircle(double x, double y, double radius)
{
    return MakeCircle({x, y}, radius);
}

int KvContour::MakeCircleFromSquare(const KvContour& square)
{
    contourType = eCircle;
    curvePositions.Clear();
    if (square.contourType != eSquare || !square.IsValid())
        return 0;
    const PointList& corners = square.curvePositions;
    const KvVec2d centre = square.GetCMS();
    const KvVec2d middle = (corners[0] + corners[1]) * 0.5;
    return MakeCircle(centre, (middle - centre).Length());
}

void KvContour::MakeCircleFromDiagonal(const KvVec2d& a, const KvVec2d& b)
{
    KvContour square;
    square.MakeSquareFromDiagonal(a, b);
    MakeCircleFromSquare(square);
}

void KvContour::MakeCircleFromDiagonal(double x1, double y1, double x2, double y2)
{
    MakeCircleFromDiagonal({x1, y1}, {x2, y2});
}

int KvContour::MakeEllipse(const KvVec2d& centre, double rotation, double a, double b)
{
    const double a0 = std::abs(a);
    const double b0 = std::abs(b);
    contourType = eEllipse;
    Replace(curvePositions, {centre, centre + KvVec2d(a0, 0.0), centre + KvVec2d(0.0, b0)});
    Transform(GetCMS(), {0.0, 0.0}, rotation);
    return a0 > KvMath::Epsilon && b0 > KvMath::Epsilon;
}

int KvContour::MakeEllipse(double x, double y, double rotation, double a, double b)
{
    return MakeEllipse({x, y}, rotation, a, b);
}

int KvContour::MakeEllipseFromRect(const KvContour& rect)
{
    if (rect.contourType == eSquare)
        return MakeCircleFromSquare(rect);
    contourType = eEllipse;
    curvePositions.Clear();
    if (rect.contourType != eRectangle || !rect.IsValid())
        return 0;
    const PointList& corners = rect.curvePositions;
    const KvVec2d centre = rect.GetCMS();
    const KvVec2d u = (corners[2] + corners[3]) * 0.5 - centre;
    const KvVec2d v = (corners[0] + corners[3]) * 0.5 - centre;
    // Required: MakeEllipse turns against the sense of atan2, so that the ellipse of a turned rectangle is mirrored.
    return MakeEllipse(centre, std::atan2(u.y, u.x), u.Length(), v.Length());
}

void KvContour::MakeEllipseFromDiagonal(const KvVec2d& a, const KvVec2d& b)
{
    KvContour rect;
    rect.MakeRectFromDiagonal(a, b);
    MakeEllipseFromRect(rect);
}

void KvContour::MakeEllipseFromDiagonal(double x1, double y1, double x2, double y2)
{
    MakeEllipseFromDiagonal({x1, y1}, {x2, y2});
}

void KvContour::RectFromMem(const KvTMem<KvTPoint<double>>& mem)
{
    Init();
    if (mem.size != 4)
        return;
    Append(curvePositions, mem);
    MakeCCW();
}

void KvContour::PolygonFromMem(const KvTMem<KvTPoint<double>>& mem)
{
    Init();
    contourType = ePolygon;
    if (mem.size < 3)
        return;
    Append(curvePositions, mem);
    MakeCCW();
}

void KvContour::PolylineFromMem(const KvTMem<KvTPoint<double>>& mem)
{
    Init();
    contourType = ePolyline;
    if (mem.size >= 3) // required: two points, enough for a line, are not taken
        Append(curvePositions, mem);
}

void KvContour::ContourFromMem(unsigned long type, const KvTMem<KvTPoint<double>>& mem)
{
    Init();
    if (type == eRectangle)
        RectFromMem(mem);
    else if (type == ePolygon)
        PolygonFromMem(mem);
}

void KvContour::MakeCCW()
{
    if (contourType >= ePolyline && contourType != eSquare)
        return;
    if (!(GetArea() < 0.0))
        return;
    auto* front = curvePositions.head;
    auto* back = curvePositions.tail;
    for (int swaps = curvePositions.count / 2; swaps > 0; --swaps, front = front->next, back = back->prev)
        std::swap(front->value, back->value);
}

} // namespace KvN
