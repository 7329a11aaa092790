// Paths, ellipses at any rotation, and handles.
#include "C/uiContourWnd_drawing_p.h"

#include "C/uiContourWnd_symbols_p.h"

#include <algorithm>
#include <cmath>
#include <vector>

using namespace KvN;

namespace kv::editor
{

namespace
{

// A world transform for a block; the graphics mode must allow it.
class WorldTransform
{
public:
    WorldTransform(CDC& dc_, const XFORM& transform) : dc(dc_)
    {
        dc.GetWorldTransform(&former);
        dc.SetWorldTransform(&transform);
    }
    ~WorldTransform() { dc.SetWorldTransform(&former); }
    WorldTransform(const WorldTransform&) = delete;
    WorldTransform& operator=(const WorldTransform&) = delete;

private:
    CDC& dc;
    XFORM former{};
};

// Turns by Pi - angle about `centre`, which comes to lie on the origin.
XFORM TurnAbout(const KvVec2d& centre, double angle)
{
    XFORM form{};
    form.eM11 = form.eM22 = static_cast<float>(-std::cos(angle));
    form.eM12 = static_cast<float>(std::sin(angle));
    form.eM21 = -form.eM12;
    form.eDx = static_cast<float>(form.eM12 * centre.y - form.eM11 * centre.x);
    form.eDy = static_cast<float>(form.eM21 * centre.x - form.eM11 * centre.y);
    return form;
}

void DrawEllipseInBox(CDC& dc, const KvContour& contour)
{
    KvTRectangle<double> box;
    contour.MakeBoundingBox(box);
    dc.Ellipse(Truncated(box.left), Truncated(box.top), Rounded(box.right), Rounded(box.bottom));
}

} // namespace

void DrawPath(CDC& dc, const KvTList<KvVec2d>& points, bool closed)
{
    if (!points.head)
        return;
    dc.MoveTo(PointOf(points.head->value));
    for (auto* node = points.head->next; node; node = node->next)
        dc.LineTo(PointOf(node->value));
    if (closed)
        dc.LineTo(PointOf(points.head->value));
}

// Several lines at once, but not so many that their common box covers much more than they do.
void DrawSolidPath(CDC& dc, const KvTList<KvVec2d>& points, bool closed)
{
    constexpr std::size_t linesAtOnce = 32;
    if (!points.head)
        return;
    std::vector<POINT> path;
    for (auto* node = points.head; node; node = node->next)
        path.push_back(PointOf(node->value));
    if (closed)
        path.push_back(path.front());
    dc.MoveTo(path.front());
    for (std::size_t i = 1; i < path.size(); i += linesAtOnce)
        ::PolylineTo(dc.m_hDC, path.data() + i, static_cast<DWORD>(std::min(linesAtOnce, path.size() - i)));
}

void DrawEllipse(CDC& dc, const KvContour& contour, const std::function<POINT(POINT)>& originOf)
{
    if (contour.ContourType() == KvContour::eCircle || KvContour::IsMultipleOfPi(contour.RotationAngle()))
        return DrawEllipseInBox(dc, contour);

    KvContour upright;
    contour.MakeBoundingRect(upright);
    const double angle = upright.RotationAngle();
    if (angle != 0.0)
        upright.TransformCMSBased(KvVec2d(0.0, 0.0), -angle);
    const KvVec2d centre = upright.GetCMS();
    const POINT origin = originOf({Truncated(centre.x), Truncated(centre.y)});
    const ViewportOrigin viewport(dc, origin.x, origin.y);
    const WorldTransform world(dc, TurnAbout(centre, angle));
    DrawEllipseInBox(dc, upright);
}

HandlePainter::HandlePainter(CDC& dc_, int size, int line, COLORREF outline, COLORREF fill)
    : dc(dc_), half((size + 1) / 2), pen(PS_SOLID, line, outline), brush(fill), selectedPen(dc, pen),
      selectedBrush(dc, brush)
{
}

void HandlePainter::Square(const KvVec2d& centre)
{
    const int x = Truncated(centre.x);
    const int y = Truncated(centre.y);
    dc.Rectangle(x - half, y - half, x + 1 + half, y + 1 + half);
}

void HandlePainter::Round(const KvVec2d& centre)
{
    const int x = Truncated(centre.x);
    const int y = Truncated(centre.y);
    dc.Ellipse(x - half - 1, y - half - 1, x + 2 + half, y + 2 + half);
}

} // namespace kv::editor
