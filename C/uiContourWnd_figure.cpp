// How the figure in progress is drawn: while it is drawn with a tool, dragged as a whole, or edited by its points.
#include "C/uiContourWnd.h"
#include "C/uiContourWnd_drawing_p.h"
#include "C/uiContourWnd_symbols_p.h"

#include <optional>

using namespace KvN;
using namespace kv::editor;

namespace
{

LOGBRUSH SolidBrush(COLORREF color)
{
    LOGBRUSH brush{};
    brush.lbStyle = BS_SOLID;
    brush.lbColor = color;
    return brush;
}

void MakeDashed(CPen& pen, int width, COLORREF color)
{
    const LOGBRUSH brush = SolidBrush(color);
    pen.CreatePen(PS_GEOMETRIC | PS_DASH, width, &brush);
}

// A walk over a figure's points by index, around the end and the beginning.
class PointWalk
{
public:
    PointWalk(CDC& dc_, const KvTList<KvVec2d>& points_) : dc(dc_), points(points_) {}

    void Start(long index) { dc.MoveTo(At(index)); }
    void To(long index) { dc.LineTo(At(index)); }
    void Through(long first, long last)
    {
        for (long i = first; i <= last; ++i)
            To(i);
    }

private:
    POINT At(long index) const
    {
        const long n = points.count;
        return PointOf(points[static_cast<int>((index % n + n) % n)]);
    }

    CDC& dc;
    const KvTList<KvVec2d>& points;
};

} // namespace

// A polyline being drawn shows at its true width in logical units.
int KvContourWnd::FigureWidth() const
{
    const bool line = m_Tool == ToolPolyline || m_Tool == ToolPolylineExcluded;
    if (!line || !m_UsePolylineWidth)
        return Rounded(GetEffectiveLineWidth(m_pView));
    return m_Figure.LineWidth() == KvContour::NoLineWidth ? m_PolylineWidth : Truncated(m_Figure.LineWidth());
}

void KvContourWnd::DrawCurrentFigure(const KvVec2i& position, const Pair& pair)
{
    if (!IsSet(position) || !View())
        return;
    // A figure that can't be drawn must not disturb a paint.
    try
    {
        DrawFigure(*m_pView->GetOutputDevice(), position, pair);
    }
    catch (CException* exception)
    {
        exception->Delete();
    }
}

void KvContourWnd::DrawFigure(CDC& dc, const KvVec2i& position, const Pair& pair)
{
    dc.SetGraphicsMode(GM_ADVANCED);
    dc.SetBkMode(TRANSPARENT);
    const Rop2Mode rop(dc, R2_COPYPEN);
    const int width = FigureWidth();
    const COLORREF color = ColorOf(m_Figure);
    CPen pen;
    if (m_EditMode != EditNone)
        MakeDashed(pen, width, color);
    else
        pen.CreatePen(PS_SOLID, width, color);
    const SelectedObject selectedPen(dc, pen);
    const SelectedObject hollow(dc, ::GetStockObject(NULL_BRUSH));
    dc.SetTextColor(color);
    if (m_Tool == ToolEditPoints)
        DrawFigurePoints(dc, pair, width, color);
    else if ((m_Tool >= ToolEllipse && m_Tool <= ToolPolylineExcluded) || m_Tool == ToolSelect)
        DrawFigureShape(dc, position);
}

void KvContourWnd::DrawFigureShape(CDC& dc, const KvVec2i& position)
{
    switch (m_Figure.ContourType())
    {
    case KvContour::eRectangle:
    case KvContour::eSquare:
        if (m_Figure.IsValid())
            DrawPath(dc, m_Figure.CurvePositions(), true);
        break;
    case KvContour::ePolygon:
    case KvContour::ePolyline:
        if (m_Figure.CurvePositions().count > 0)
            DrawFigureLine(dc, position);
        break;
    case KvContour::eEllipse:
    case KvContour::eCircle:
        // The viewport gets device values here and logical ones for stored contours. Required.
        if (m_Figure.IsValid())
            DrawEllipse(dc, m_Figure,
                        [this](POINT centre)
                        {
                            m_pView->ViewLPtoDP(&centre, 1);
                            return centre;
                        });
        break;
    }
}

void KvContourWnd::DrawFigureLine(CDC& dc, const KvVec2i& position)
{
    const bool edited = m_EditMode != EditNone;
    DrawPath(dc, m_Figure.CurvePositions(), edited && m_Figure.ContourType() == KvContour::ePolygon);
    if (!edited)
        dc.LineTo(position.x, position.y); // the rubber band
    DrawCurrentSymbols(&dc, position);
    m_SymbolMarkerList.Draw(&dc, m_Figure);
}

void KvContourWnd::DrawCurrentSymbols(CDC* pDC, const KvVec2i& position)
{
    const auto& points = m_Figure.CurvePositions();
    const bool edited = m_EditMode != EditNone;
    if (!pDC || !m_ShowPolylineDirection || m_Figure.ContourType() != KvContour::ePolyline ||
        points.count < (edited ? 2 : 1))
        return;
    const KvVec2d mouse(position);
    const KvVec2d& first = points.head->value;
    const KvVec2d& last = points.tail->value;
    const KvVec2d& second = points.count > 1 ? points.head->next->value : mouse;
    DrawSymbol(*pDC, m_SymbolArrowStart, AngleOf(first, second), first);
    if (edited)
        DrawSymbol(*pDC, m_SymbolArrowHead, AngleOf(points.tail->prev->value, last), last);
    else
        DrawSymbol(*pDC, m_SymbolArrowHead, AngleOf(last, mouse), mouse); // rides on the mouse
}

// The edges that change are dashed, the others solid. With two different indices a new point stands behind the first;
// with equal ones that point is being moved.
void KvContourWnd::DrawFigurePoints(CDC& dc, const Pair& pair, int width, COLORREF color)
{
    const auto& points = m_Figure.CurvePositions();
    const long n = points.count;
    if (n == 0)
        return;
    const bool polygon = m_Figure.ContourType() == KvContour::ePolygon;
    const long end = polygon ? n + 1 : n;
    const long i = pair.first;
    const long j = pair.second;
    PointWalk walk(dc, points);
    walk.Start(0);
    if (i >= 0)
    {
        CPen dashed;
        MakeDashed(dashed, width, color);
        if (i != j)
        {
            walk.Through(1, i);
            if (j > 0)
            {
                walk.Start(j);
                walk.Through(j + 1, end - 1);
            }
            const SelectedObject selected(dc, dashed);
            walk.Start(i);
            walk.Through(i + 1, i + 1);
            walk.To(j);
        }
        else
        {
            walk.Through(1, i - 1);
            // One point short of the end: the stored contour beneath still shows that edge. Required.
            walk.Start(i + 1);
            walk.Through(i + 1, end - 2);
            const SelectedObject selected(dc, dashed);
            const long from = !polygon && i == 0 ? 0 : i - 1;
            const long to = !polygon && i == n - 1 ? i : i + 1;
            walk.Start(from);
            walk.Through(from + 1, to);
        }
    }
    if (m_ShowThumbs)
        DisplayPointHandles(dc, *m_pView, m_Figure);
}
