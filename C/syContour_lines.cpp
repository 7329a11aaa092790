// Line geometry: turns, segments, their intersections with each other and with point lists.
#include "C/syContour.h"

#include "C/syContour_walk.h"

#include <cmath>
#include <memory>

namespace KvN
{

// The y axis is turned over, so that the answer holds on the image.
long KvContour::ccw(const KvVec2d& a, const KvVec2d& b, const KvVec2d& c)
{
    const double dx1 = b.x - a.x;
    const double dy1 = -(b.y - a.y);
    const double dx2 = c.x - a.x;
    const double dy2 = -(c.y - a.y);
    if (dy2 * dx1 > dx2 * dy1)
        return 1;
    if (dx2 * dy1 > dy2 * dx1)
        return -1;
    const bool behind = dx2 * dx1 < 0.0 || dy2 * dy1 < 0.0;
    if (behind)
        return -1;
    const bool beyond = dx2 * dx2 + dy2 * dy2 > dx1 * dx1 + dy1 * dy1;
    return beyond ? 1 : 0;
}

int KvContour::LinesIntersect(const KvVec2d& a, const KvVec2d& b, const KvVec2d& c, const KvVec2d& d)
{
    if (ccw(a, b, c) * ccw(a, b, d) > 0)
        return 0;
    return ccw(c, d, a) * ccw(c, d, b) < 1;
}

int KvContour::LinesIntersection(const KvVec2d& a, const KvVec2d& b, const KvVec2d& c, const KvVec2d& d, KvVec2d& out)
{
    constexpr double largest = std::numeric_limits<double>::max();
    const KvVec2d p = a, q = b, r = c, s = d; // `out` may be one of them
    out = {largest, largest};
    if (!LinesIntersect(p, q, r, s))
        return 0;
    const double a1 = -(q.y - p.y);
    const double b1 = q.x - p.x;
    const double c1 = Determinant(p.x, q.x, p.y, q.y);
    const double a2 = -(s.y - r.y);
    const double b2 = s.x - r.x;
    const double c2 = Determinant(r.x, s.x, r.y, s.y);
    const double det = b2 * a1 - a2 * b1;
    if (KvMath::Epsilon > std::abs(det))
        return 0;
    out = {(c2 * b1 - b2 * c1) / det, (a2 * c1 - c2 * a1) / det};
    return 1;
}

double KvContour::DistPointToLine(const KvVec2d& a, const KvVec2d& b, const KvVec2d& p)
{
    const double la = (b - a).Length();
    const double lp = (p - a).Length();
    if (KvMath::Epsilon > lp)
        return 0.0;
    if (KvMath::Epsilon > la)
        return lp;
    const KvVec2d u = (b - a) / la;
    const KvVec2d foot = a + u * (u * (p - a));
    return (p - foot).Length();
}

double KvContour::Determinant(double a, double b, double c, double d)
{
    return a * d - b * c;
}

int KvContour::IntersectionsLineContour(const KvVec2d& a, const KvVec2d& b, KvTPList<KvVec2d>& out) const
{
    const bool cornered = contourType >= eRectangle && contourType <= eSquare;
    return cornered && IntersectionsLinePoly(a, b, curvePositions, out, 1); // required: polylines count as closed too
}

int KvContour::IntersectionsLineContour(const KvVec2d& a, const KvVec2d& b, KvTList<KvVec2d>& out) const
{
    const bool cornered = contourType >= eRectangle && contourType <= eSquare;
    return cornered && IntersectionsLinePoly(a, b, curvePositions, out, 1);
}

int KvContour::IntersectionsLinePoly(const KvVec2d& a, const KvVec2d& b, const KvTList<KvVec2d>& points,
                                     KvTPList<KvVec2d>& out, int closed)
{
    constexpr double flat = 0.707;
    const KvVec2d start = a, end = b; // which may stand in the list that is emptied
    out.Clear();
    out.SetClearFunction(IntersectionClrFunc);
    KvVec2d d = end - start;
    const double length = d.Length();
    if (KvMath::Epsilon > length)
        return 0;
    d = d / length;
    contour::ForEachEdge(points, closed,
                         [&](const KvVec2d& from, const KvVec2d& to)
                         {
                             KvVec2d crossing;
                             if (!LinesIntersection(start, end, from, to, crossing))
                                 return;
                             auto entry = std::make_unique<KvVec2d>(crossing);
                             if (out.AddEntry(entry.get()))
                                 entry.release();
                         });
    if (out.NumEntries() == 0)
        return 0;
    if (std::abs(d.x) >= flat)
        out.SetCompareFunction(d.x > 0.0 ? IntersectionCompXPlus : IntersectionCompXMinus);
    else
        out.SetCompareFunction(d.y > 0.0 ? IntersectionCompYPlus : IntersectionCompYMinus);
    out.Sort();
    return 1;
}

int KvContour::IntersectionsLinePoly(const KvVec2d& a, const KvVec2d& b, const KvTList<KvVec2d>& points,
                                     KvTList<KvVec2d>& out, int closed)
{
    const KvVec2d start = a, end = b; // as above
    out.Clear();
    KvTPList<KvVec2d> crossings;
    const int found = IntersectionsLinePoly(start, end, points, crossings, closed);
    for (unsigned long i = 0; i < crossings.NumEntries(); ++i)
        out.AddTail(*crossings.GetEntry(i));
    return found;
}

void KvContour::IntersectionClrFunc(KvVec2d* point)
{
    delete point;
}

long KvContour::IntersectionCompXPlus(KvVec2d* first, KvVec2d* second)
{
    return first->x > second->x ? -1 : second->x > first->x ? 1 : 0;
}

long KvContour::IntersectionCompXMinus(KvVec2d* first, KvVec2d* second)
{
    return IntersectionCompXPlus(second, first);
}

// Required: crossings of a steep line are sorted by x like those of a flat one.
long KvContour::IntersectionCompYPlus(KvVec2d* first, KvVec2d* second)
{
    return IntersectionCompXPlus(first, second);
}

long KvContour::IntersectionCompYMinus(KvVec2d* first, KvVec2d* second)
{
    return IntersectionCompXMinus(first, second);
}

} // namespace KvN
