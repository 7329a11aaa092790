// The mouse cursor tells what a press would do: the same hit tests as the press, at every move.
#include "C/uiContourWnd.h"
#include "C/uiContourWnd_p.h"

#include <cmath>

using namespace KvN;
using namespace kv::editor;

namespace
{

enum class SizeCursor
{
    Horizontal,
    Vertical,
    LeftTopRightBottom,
    LeftBottomRightTop
};

// The cursor whose line is nearest to a direction on the image. Each sector opens below and closes above; a line has
// two directions, so each cursor has two opposite sectors.
SizeCursor SizeCursorOf(const KvVec2d& direction)
{
    constexpr double step = KvMath::Pi / 8.0;
    double t = std::atan2(direction.y, direction.x);
    if (t < 0.0)
        t += KvMath::TwoPi;
    const auto within = [t](double from, double to)
    { return (from * step < t && t <= to * step) || ((from + 8.0) * step < t && t <= (to + 8.0) * step); };
    if (within(3.0, 5.0))
        return SizeCursor::Vertical;
    if (within(1.0, 3.0))
        return SizeCursor::LeftTopRightBottom;
    if (within(5.0, 7.0))
        return SizeCursor::LeftBottomRightTop;
    return SizeCursor::Horizontal;
}

bool IsRectangle(const KvContour& contour)
{
    return contour.ContourType() == KvContour::eRectangle || contour.ContourType() == KvContour::eSquare;
}

} // namespace

void KvContourWnd::ShowCursor(HCURSOR cursor)
{
    if (!View())
        return;
    m_pView->SetDefaultCursor(cursor);
    ::SetCursor(cursor);
}

void KvContourWnd::ShowSizeCursor(const KvVec2d& direction)
{
    switch (SizeCursorOf(direction))
    {
    case SizeCursor::Vertical:
        return SetCursorSizeVertical();
    case SizeCursor::LeftTopRightBottom:
        return SetCursorSizeLeftTopRightBottom();
    case SizeCursor::LeftBottomRightTop:
        return SetCursorSizeLeftBottomRightTop();
    case SizeCursor::Horizontal:
        return SetCursorSizeHorizontal();
    }
}

void KvContourWnd::SelectCursor()
{
    if (!View())
        return;
    const Position point = MousePosition();
    if (m_SignalCursorRequest.SlotCount() > 0)
    {
        m_SignalCursorRequest.Emit(point);
        return;
    }
    if (m_Tool >= ToolEllipse && m_Tool <= ToolPolylineExcluded)
        return SetCursorNewPoint();
    if (IsEditing())
        return;
    const bool ctrl = IsDown(VK_CONTROL);
    if (m_Tool == ToolEditPoints)
        SelectPointCursor(point, ctrl);
    else
        SelectObjectCursor(point, ctrl, IsDown(VK_MENU));
}

void KvContourWnd::SelectPointCursor(const Position& point, bool ctrl)
{
    const KvContour* selected = GetSelectedContour();
    long index = -1;
    if (const KvContour* contour = MatchPointOfPoly(point, index))
    {
        if (contour != selected)
            return SetCursorMoveObject();
        return ctrl && m_EnableDelete ? SetCursorDeletePoint() : SetCursorMovePoint();
    }
    Pair line;
    const KvContour* contour = MatchLineOfPoly(point, line);
    if (contour && contour == selected)
        return SetCursorAddPoint();
    return MatchObject(point) ? SetCursorMoveObject() : SetCursorSelect();
}

void KvContourWnd::SelectObjectCursor(const Position& point, bool ctrl, bool alt)
{
    KvContour bounds;
    long corner = -1;
    Pair edge;
    if (MatchBoundingRectCornerPoints(point, &bounds, &corner))
        return ctrl || alt ? SetCursorRotateObject() : SelectCursorFromBoundingContour(bounds, corner);
    if (MatchBoundingRectEdgePoints(point, &bounds, &edge))
        return SelectCursorFromBoundingContour(bounds, edge);
    if (MatchObject(point))
        return m_EnableInvert && ctrl ? SetCursorInvertObject() : SetCursorMoveObject();
    SetCursorSelect();
}

// A corner's direction is the bisector of its two sides.
void KvContourWnd::SelectCursorFromBoundingContour(const KvContour& rectangle, long corner)
{
    const auto& points = rectangle.CurvePositions();
    const int n = points.count;
    if (!IsRectangle(rectangle) || corner < 0 || corner >= n)
        return SetCursorSizeAll();
    const int i = static_cast<int>(corner);
    const KvVec2d at = points[i];
    const KvVec2d a = points[(i - 1 + n) % n] - at;
    const KvVec2d b = points[(i + 1) % n] - at;
    if (a.Length() < KvMath::Epsilon || b.Length() < KvMath::Epsilon)
        return SetCursorSizeAll();
    ShowSizeCursor(a.Unit() + b.Unit());
}

// An edge's direction is its normal.
void KvContourWnd::SelectCursorFromBoundingContour(const KvContour& rectangle, Pair edge)
{
    const auto& points = rectangle.CurvePositions();
    const auto exists = [&](long index) { return index >= 0 && index < points.count; };
    if (!IsRectangle(rectangle) || !exists(edge.first) || !exists(edge.second))
        return SetCursorSizeAll();
    const KvVec2d first = points[static_cast<int>(edge.first)];
    const KvVec2d along = first - points[static_cast<int>(edge.second)];
    if (along.Length() < KvMath::Epsilon)
        return SetCursorSizeAll();
    const KvVec2d e = along.Unit();
    ShowSizeCursor(KvVec2d(-e.y, e.x));
}
