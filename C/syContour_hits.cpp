// Hit tests: a point on the outline, on a vertex, on an edge, inside; and the samples of ellipses and circles.
#include "C/syContour.h"

#include "C/syContour_walk.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace KvN
{
namespace
{
using PointList = KvTList<KvVec2d>;

double Distance(const KvVec2d& a, const KvVec2d& b)
{
    return (a - b).Length();
}

// The upright square of side `tolerance` around a point, whose diagonals decide about a match. A walk over 65,535 edges
// follows the mouse, so two tests come first that settle nearly all of them. Both evaluate exactly what `ccw` does and
// only trust its strict answers: what they reject has no crossing.
struct CatchSquare
{
    double left, top, right, bottom;

    CatchSquare(const KvVec2d& p, double tolerance)
    {
        const double h = tolerance * 0.5;
        left = p.x - h;
        top = p.y - h;
        right = p.x + h;
        bottom = p.y + h;
    }

    // The sides of both diagonals on which v lies: one of 5, 6, 9, 10, and another value for a point on a diagonal.
    unsigned ZoneOf(const KvVec2d& v) const
    {
        const double dx1 = right - left;
        const double dx2 = v.x - left;
        const double falling1 = -(v.y - top) * dx1;
        const double falling2 = dx2 * -(bottom - top);
        const double rising1 = -(v.y - bottom) * dx1;
        const double rising2 = dx2 * -(top - bottom);
        return unsigned(falling1 > falling2) | unsigned(falling2 > falling1) << 1 | unsigned(rising1 > rising2) << 2 |
               unsigned(rising2 > rising1) << 3;
    }

    // True for a zone that lies strictly beside both diagonals: an edge that stays in it crosses none of them.
    static bool IsBesideDiagonals(unsigned zone) { return (zone & 3) != 0 && (zone & 12) != 0; }

    // True if all four corners turn the same way from a-b: then the edge passes both diagonals by.
    bool IsBeside(const KvVec2d& a, const KvVec2d& b) const
    {
        const double dx1 = b.x - a.x;
        const double dy1 = -(b.y - a.y);
        const double t = -(top - a.y) * dx1;
        const double u = -(bottom - a.y) * dx1;
        const double l = (left - a.x) * dy1;
        const double r = (right - a.x) * dy1;
        const bool ahead = (t > l) & (t > r) & (u > l) & (u > r);
        const bool behind = (l > t) & (r > t) & (l > u) & (r > u);
        return ahead | behind;
    }

    bool IsCrossedBy(const KvVec2d& a, const KvVec2d& b) const
    {
        if (IsBeside(a, b))
            return false;
        return KvContour::LinesIntersect(a, b, {left, top}, {right, bottom}) ||
               KvContour::LinesIntersect(a, b, {left, bottom}, {right, top});
    }
};

// Index of the first edge that matches p, or -1.
long MatchingEdge(const PointList& points, const KvVec2d& p, double tolerance, bool closed)
{
    if (!points.head)
        return -1;
    const CatchSquare square(p, tolerance);
    unsigned zone = square.ZoneOf(points.head->value);
    return contour::FirstEdge(points, closed,
                              [&](const KvVec2d& a, const KvVec2d& b)
                              {
                                  const unsigned former = std::exchange(zone, square.ZoneOf(b));
                                  const bool stays = former == zone && CatchSquare::IsBesideDiagonals(zone);
                                  return !stays && square.IsCrossedBy(a, b);
                              });
}

bool IsNear(double distance, double radius, double tolerance)
{
    return distance < radius + tolerance && radius - tolerance < distance;
}

// A point and an ellipse in the frame in which the ellipse is a circle: distance from its centre, and its radius.
struct StretchedCircle
{
    double distance;
    double radius;

    // a and b are the factors for the second and the first semi-axis.
    StretchedCircle(const KvContour& ellipse, const KvVec2d& p, double a, double b)
    {
        const PointList& points = ellipse.CurvePositions();
        const KvVec2d centre = points[0];
        const KvVec2d u = (points[1] - centre).Unit();
        const KvVec2d v = (points[2] - centre).Unit();
        const double s = (p - centre) * u;
        const double t = (p - centre) * v;
        KvContour circle(ellipse);
        circle.Stretch(b, a);
        distance = (u * s * b + v * t * a).Length();
        radius = Distance(circle.CurvePositions()[1], circle.CurvePositions()[0]);
    }
};

int IsOnEllipse(const KvContour& ellipse, const KvVec2d& p, double tolerance)
{
    double a = ellipse.SemiAxisLength1();
    double b = ellipse.SemiAxisLength2();
    const double m = std::min(std::floor(a), std::floor(b));
    if (m > 1.0)
    {
        a /= m;
        b /= m;
    }
    const StretchedCircle circle(ellipse, p, a, b);
    return IsNear(circle.distance, circle.radius, tolerance);
}

int IsInEllipse(const KvContour& ellipse, const KvVec2d& p)
{
    const StretchedCircle circle(ellipse, p, ellipse.SemiAxisLength1(), ellipse.SemiAxisLength2());
    return circle.distance < circle.radius;
}

// The point of an upright ellipse at parameter t.
KvVec2d Sample(const KvVec2d& centre, double a, double b, double t)
{
    return {a * std::cos(t) + centre.x, b * std::sin(t) + centre.y};
}
} // namespace

int KvContour::IsMatch(const KvVec2d& p, double tolerance) const
{
    const PointList& points = curvePositions;
    switch (contourType)
    {
    case eRectangle:
    case ePolygon:
    case eSquare:
        return IsMatch(points, p, tolerance, 1);
    case ePolyline:
        return IsMatch(points, p, tolerance, 0);
    case eEllipse:
        if (IsValid())
            return IsOnEllipse(*this, p, tolerance);
        break;
    case eCircle:
        if (IsValid())
            return IsNear(Distance(p, points[0]), Distance(points[1], points[0]), tolerance);
        break;
    default:
        return 0;
    }
    return points.head && Distance(p, points.head->value) < tolerance;
}

int KvContour::IsMatch(const KvTList<KvVec2d>& points, const KvVec2d& p, double tolerance, int closed)
{
    return MatchingEdge(points, p, tolerance, closed) >= 0;
}

int KvContour::IsMatch(const KvVec2d& a, const KvVec2d& b, const KvVec2d& p, double tolerance)
{
    return CatchSquare(p, tolerance).IsCrossedBy(a, b);
}

long KvContour::GetPointMatch(const KvVec2d& p, double tolerance) const
{
    return GetPointMatch(curvePositions, p, tolerance);
}

long KvContour::GetPointMatch(const KvTList<KvVec2d>& points, const KvVec2d& p, double tolerance)
{
    long index = 0;
    for (const auto* node = points.head; node; node = node->next, ++index)
    {
        if (tolerance > Distance(node->value, p))
            return index;
    }
    return -1;
}

KvTPair<long> KvContour::GetLineMatch(const KvVec2d& p, double tolerance) const
{
    switch (contourType)
    {
    case eRectangle:
    case ePolygon:
    case eSquare:
        return GetLineMatch(curvePositions, p, tolerance, 1);
    case ePolyline:
        return GetLineMatch(curvePositions, p, tolerance, 0);
    default:
        return {-1, -1};
    }
}

KvTPair<long> KvContour::GetLineMatch(const KvTList<KvVec2d>& points, const KvVec2d& p, double tolerance, int closed)
{
    const long edge = MatchingEdge(points, p, tolerance, closed);
    return edge < 0 ? KvTPair<long>(-1, -1) : KvTPair<long>(edge, (edge + 1) % points.count);
}

int KvContour::IsPointInContour(const KvVec2d& p) const
{
    switch (contourType)
    {
    case eRectangle:
    case ePolygon:
    case eSquare:
        return IsPointInPoly(curvePositions, p);
    case eEllipse:
        return IsValid() && IsInEllipse(*this, p);
    case eCircle:
        return IsValid() && Distance(p, curvePositions[0]) < Distance(curvePositions[1], curvePositions[0]);
    default:
        return 0;
    }
}

// Required: the scan line's length overflows, every crossing comes out as not-a-number, and the answer is always 0.
int KvContour::IsPointInPoly(const KvTList<KvVec2d>& points, const KvVec2d& p)
{
    constexpr double largest = std::numeric_limits<double>::max();
    KvTPList<KvVec2d> crossings;
    if (!IntersectionsLinePoly({-largest, p.y}, {largest, p.y}, points, crossings, 1) || crossings.NumEntries() < 2)
        return 0;
    for (unsigned long k = 0;; k += 2)
    {
        const KvVec2d* right = crossings.GetEntry(k);
        const KvVec2d* left = crossings.GetEntry(k + 1);
        if (!right || !left)
            return 0;
        if (!(p.x < left->x) && right->x > p.x)
            return 1;
    }
}

int KvContour::IsMultipleOfPi(double x)
{
    const double y = std::abs(x);
    const double rest = y - std::floor(y / KvMath::Pi) * KvMath::Pi;
    return KvMath::Epsilon > rest;
}

long KvContour::NumPi(double x, double& rest)
{
    constexpr long most = std::numeric_limits<long>::max();
    const double y = std::abs(x);
    const double n = std::floor(y / KvMath::Pi);
    const double left = y - n * KvMath::Pi;
    const long count = n + 0.5 < static_cast<double>(most) ? static_cast<long>(n + 0.5) : most;
    rest = x < 0.0 ? -left : left;
    return x < 0.0 ? -count : count;
}

int KvContour::CreateSegments(double start, double end, long segments, KvTList<KvVec2d>& out) const
{
    constexpr double mostSteps = 1'000'000.0;
    out.Clear();
    if ((contourType != eEllipse && contourType != eCircle) || !IsValid())
        return 0;
    const double step = std::abs(KvMath::TwoPi / static_cast<double>(segments));
    const double steps = (end - start) / step;
    if (!(steps <= mostSteps) || !std::isfinite(start) || !std::isfinite(end))
        return 0;
    const long n = static_cast<long>(std::max(steps, -1.0)) + 1;

    const KvVec2d centre = GetCMS();
    const KvVec2d u = curvePositions[1] - curvePositions[0];
    const KvVec2d v = contourType == eEllipse ? curvePositions[2] - curvePositions[0] : KvVec2d(-u.y, u.x);
    const double a = u.Length();
    const double b = v.Length();
    const double phi = std::atan2(u.y, u.x);
    KvContour samples;
    samples.contourType = ePolyline;
    samples.curvePositions.AddTail(Sample(centre, a, b, start));
    for (long i = 1; i < n; ++i)
        samples.curvePositions.AddTail(Sample(centre, a, b, static_cast<double>(i) * step + start));
    samples.curvePositions.AddTail(Sample(centre, a, b, end));
    if (std::abs(phi) > KvMath::Epsilon)
        samples.Transform(centre, {0.0, 0.0}, -phi);
    out = samples.curvePositions;
    return 1;
}

} // namespace KvN
