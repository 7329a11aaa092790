// What each tool does with a press or a move: drawing by diagonal or by clicks, editing points, editing whole contours,
// and the tools that act at once.
#include "C/uiContourWnd.h"
#include "C/uiContourWnd_p.h"

#include <memory>

using namespace KvN;
using namespace kv::editor;

namespace
{

KvVec2i AsInts(const KvTPoint<short>& point)
{
    return {point.x, point.y};
}

// The list without the point at `index`.
KvTList<KvVec2d> Without(const KvTList<KvVec2d>& points, long index)
{
    KvTList<KvVec2d> kept;
    long i = 0;
    for (auto* node = points.head; node; node = node->next, ++i)
    {
        if (i != index)
            kept.AddTail(node->value);
    }
    return kept;
}

// The list with a point put in at `index`, which may be the end.
KvTList<KvVec2d> With(const KvTList<KvVec2d>& points, long index, const KvVec2d& point)
{
    KvTList<KvVec2d> grown;
    long i = 0;
    for (auto* node = points.head; node; node = node->next, ++i)
    {
        if (i == index)
            grown.AddTail(point);
        grown.AddTail(node->value);
    }
    if (index >= i)
        grown.AddTail(point);
    return grown;
}

} // namespace

void KvContourWnd::NewFigure(KvContour::eContourType type, int exclude)
{
    m_Figure = KvContour();
    m_Figure.ContourType() = type;
    m_Figure.Exclude() = exclude;
}

// ---- Rectangles and ellipses: a diagonal from the press to the mouse
// --------------------------------------------------

void KvContourWnd::OnRectFrame(const Position& point)
{
    DragDiagonal(point, IsDown(VK_SHIFT) ? static_cast<MakeFromDiagonal>(&KvContour::MakeSquareFromDiagonal)
                                         : static_cast<MakeFromDiagonal>(&KvContour::MakeRectFromDiagonal));
}

void KvContourWnd::OnEllipseFrame(const Position& point)
{
    DragDiagonal(point, IsDown(VK_SHIFT) ? static_cast<MakeFromDiagonal>(&KvContour::MakeCircleFromDiagonal)
                                         : static_cast<MakeFromDiagonal>(&KvContour::MakeEllipseFromDiagonal));
}

void KvContourWnd::DragDiagonal(const Position& point, MakeFromDiagonal make)
{
    m_Pos = m_Last = AsInts(point);
    if (!m_FigureActive)
    {
        m_Start = m_Pos;
        m_FigureActive = 1;
        return;
    }
    if ((KvVec2d(m_Start) - KvVec2d(m_Pos)).Length() < KvMath::Epsilon)
        return;
    // Required: the repaint comes before the rebuilding, so the last step's figure stays beside the new one until the
    // next repaint. Rubber bands and held points do likewise.
    EraseCurrentFigure();
    (m_Figure.*make)(m_Start.x, m_Start.y, point.x, point.y);
    DrawCurrentFigure(m_Pos, m_Pair);
}

// ---- Polygons and polylines: points by clicks, ended by a double click
// ------------------------------------------------

void KvContourWnd::OnPolylineFrame(const Position& point, KvMouseEvent event)
{
    if (!m_FigureActive)
        StartPolyline(point);
    else if (m_Pair.first == -1)
        ContinuePolyline(point, event);
    else
        DragPoint(point, event);
}

void KvContourWnd::StartPolyline(const Position& point)
{
    m_Pos = m_Last = m_Start = AsInts(point);
    m_Figure.CurvePositions().AddTail(AsVector(point));
    m_FigureActive = 1;
    CallChangeModeHdl();
    if (View())
        m_pView->DisableRightButtonMenu();
}

void KvContourWnd::ContinuePolyline(const Position& point, const KvMouseEvent& event)
{
    const bool left = event.button == 1;
    EraseCurrentFigure();
    m_Pos = AsInts(point);
    if (left && event.clicks == 2)
    {
        // The first click of the pair has added the point.
        CompleteContour();
        m_Last = m_Pos;
        return;
    }
    DrawCurrentFigure();
    m_Last = m_Pos;
    if (left && event.clicks == 1)
    {
        m_Figure.CurvePositions().AddTail(AsVector(point));
        return;
    }
    m_FigurePreview = m_Figure;
    m_FigurePreview.ID() = -1;
    m_FigurePreview.CurvePositions().AddTail(AsVector(point));
    m_SignalFigureMoved.Emit(&m_FigurePreview);
}

void KvContourWnd::DragPoint(const Position& point, const KvMouseEvent& event)
{
    auto& points = m_Figure.CurvePositions();
    const bool held = (event.flags & MK_LBUTTON) != 0;
    if (m_Pair.first < 0 || m_Pair.first >= points.count || m_Pair.second >= points.count || !held)
        return DeleteFigure();
    EraseCurrentFigure();
    m_Pos = AsInts(point);
    const long index = m_Pair.first == m_Pair.second ? m_Pair.first : (m_Pair.first + 1) % points.count;
    points[static_cast<int>(index)] = AsVector(point);
    DrawCurrentFigure();
    m_Last = m_Pos;
}

// ---- Points of polygons and polylines
// ---------------------------------------------------------------------------------

void KvContourWnd::OnEditPoints(const Position& point, KvMouseEvent)
{
    if (m_FigureActive)
        return DeleteFigure();
    KvContour* contour = MatchPointOfPoly(point, m_Pair.first);
    if (contour)
        m_Pair.second = m_Pair.first;
    if (contour && IsDown(VK_CONTROL))
    {
        if (contour != GetSelectedContour())
            return SetContourSelected(contour);
        m_Figure = *contour;
        if (m_EnableDelete)
        {
            m_Figure.CurvePositions() = Without(m_Figure.CurvePositions(), m_Pair.first);
            return CompleteContour();
        }
    }
    if (!contour)
        contour = MatchLineOfPoly(point, m_Pair);
    if (!contour)
        return LeavePointTool(point);
    if (contour == GetSelectedContour())
        return HoldPoint(*contour, point);
    m_Pair = Pair(-1, -1);
    m_Figure = KvContour();
    SetContourSelected(contour);
}

// Takes up the point that the press has hit, or puts a new one into the edge that it has hit.
void KvContourWnd::HoldPoint(const KvContour& contour, const Position& point)
{
    m_Figure = contour;
    auto& points = m_Figure.CurvePositions();
    if (m_Pair.first == m_Pair.second)
    {
        points[static_cast<int>(m_Pair.first)] = AsVector(point);
    }
    else
    {
        points = With(points, m_Pair.first + 1, AsVector(point));
        if (m_Pair.second != 0)
            ++m_Pair.second;
    }
    m_FigureActive = 1;
}

void KvContourWnd::LeavePointTool(const Position& point)
{
    ResetToSelect();
    DeleteFigure();
    OnSelectFrame(point);
}

void KvContourWnd::OnDeletePoint(const Position& point)
{
    if (m_FigureActive)
    {
        m_FigureActive = 0;
        return DeleteFigure();
    }
    KvContour* contour = MatchPointOfPoly(point, m_Pair.first);
    if (!contour)
        return LeavePointTool(point);
    m_Pair.second = m_Pair.first;
    if (contour != GetSelectedContour())
        return SetContourSelected(contour);
    m_Figure = *contour;
    m_Figure.CurvePositions() = Without(m_Figure.CurvePositions(), m_Pair.first);
    m_Figure.MakeCCW();
    CompleteContour();
}

// ---- Whole contours
// ---------------------------------------------------------------------------------------------------

int KvContourWnd::OnSelectFrame(const Position& point)
{
    KvContour* selected = GetSelectedContour();
    if (selected && (MatchBoundingRectCornerPoints(point, nullptr, nullptr) == selected ||
                     MatchBoundingRectEdgePoints(point, nullptr, nullptr) == selected))
        return 1;
    const long remembered = m_SelectedID;
    KvContour* hit = SelectContourIfMatch(point);
    const bool same = hit ? hit->ID() == remembered : remembered < 0;
    SetContourSelected(hit);
    if (!same)
        Repaint();
    return 0;
}

void KvContourWnd::OnEditObject(const Position& point, int handleHit)
{
    const bool ctrl = IsDown(VK_CONTROL);
    const bool alt = IsDown(VK_MENU);
    if (m_EditMode == EditNone)
        StartEdit(point, handleHit, ctrl || alt, ctrl);
    else
        ContinueEdit(point, IsDown(VK_SHIFT));
}

// The contour whose handle the point hits; edit mode and pair are set for it.
KvContour* KvContourWnd::TakeHandle(const Position& point, bool turn)
{
    if (KvContour* contour = MatchBoundingRectCornerPoints(point, nullptr, &m_Pair.first))
    {
        if (turn)
            m_Pair = Pair(-1, -1);
        else
            m_Pair.second = m_Pair.first;
        m_EditMode = turn ? EditRotate : EditStretchCorner;
        return contour;
    }
    KvContour* contour = MatchBoundingRectEdgePoints(point, nullptr, &m_Pair);
    if (contour)
        m_EditMode = EditStretchEdge;
    return contour;
}

void KvContourWnd::StartEdit(const Position& point, int handleHit, bool turn, bool invert)
{
    KvContour* contour = handleHit ? TakeHandle(point, turn) : nullptr;
    if (!contour)
    {
        contour = MatchObject(point);
        if (!contour)
            return;
        if (m_EnableInvert && invert)
            return OnInvertFrame(point);
        m_EditMode = EditMove;
    }
    m_Figure = *contour;
    m_Pos = m_Last = m_Start = AsInts(point);
}

void KvContourWnd::ContinueEdit(const Position& point, bool proportional)
{
    if (m_Figure.ID() != m_SelectedID)
        return DeleteFigure();
    m_Pos = AsInts(point);
    if (const KvContour* contour = GetSelectedContour())
    {
        // Each step starts from the stored contour, so that no error accumulates.
        KvContour step = m_Figure;
        step.CurvePositions() = contour->CurvePositions();
        step.Angle() = contour->Angle();
        step.ContourType() = contour->ContourType();
        if (EditStep(step, proportional))
            m_Figure = step;
    }
    EraseCurrentFigure();
    DrawCurrentFigure(m_Pos, m_Pair);
    m_Last = m_Pos;
}

// Transforms the figure from the start of the drag to the present position; false if it is to keep its last shape.
bool KvContourWnd::EditStep(KvContour& figure, bool proportional) const
{
    switch (m_EditMode)
    {
    case EditMove:
        figure.TransformCMSBased(KvVec2d(m_Pos) - KvVec2d(m_Start), 0.0);
        return true;
    case EditStretchEdge:
        return Stretch(figure, m_Pair, m_Pos) != 0;
    case EditStretchCorner:
        return Stretch(figure, m_Pair.first, proportional, m_Pos) != 0;
    case EditRotate:
        // The mouse comes first: the figure follows it.
        figure.TransformCenterBased(KvVec2d(0.0, 0.0), m_Pos, m_Start);
        return true;
    default:
        return true;
    }
}

void KvContourWnd::OnInvertFrame(const Position&)
{
    KvContour* contour = GetSelectedContour();
    if (!contour)
        return;
    SaveUndoRedoState();
    contour->Exclude() = !contour->Exclude();
    m_SignalContourChanged.Emit(contour);
    Repaint();
    m_SignalOperation.Emit(OperationChange);
}

void KvContourWnd::OnDeleteObject(const Position& point)
{
    if (!m_Interaction)
        return;
    const KvVec2d p = AsVector(point);
    for (unsigned long i = 0; i < m_Contours.NumEntries(); ++i)
    {
        KvContour* contour = m_Contours.GetEntry(i);
        if (contour->ReadOnly() || contour->GetLineMatch(p, m_CatchSize).first < 0)
            continue;
        SaveUndoRedoState();
        m_SignalContourDeleted.Emit(contour);
        DeleteContour(*contour);
        EraseCurrentFigure();
        m_SignalOperation.Emit(OperationDelete);
        return;
    }
}

// ---- Tools that act at once
// -------------------------------------------------------------------------------------------

void KvContourWnd::OnFullFrame()
{
    const KvTSize<short> size = AOISize();
    NewFigure(KvContour::eRectangle, 0);
    m_Figure.MakeRectFromDiagonal(0.0, 0.0, size.width, size.height);
    CompleteContour();
}

void KvContourWnd::OnDeleteAllFrames()
{
    // The tool keeps its value, so that it can't be repeated before another one is set. Required.
    if (!m_EnableDelete)
        return;
    SaveUndoRedoState();
    m_ContourSeq.Clear();
    m_Contours.Clear();
    m_SignalContourDeleted.Emit(nullptr);
    ResetToSelect();
    Repaint();
    m_SignalOperation.Emit(OperationDelete);
}

void KvContourWnd::OnInvertAllFrames()
{
    SaveUndoRedoState();
    const KvContour* first = GetContourSeqByIndex(0);
    if (!first || !IsAOIRect(*first))
        AddWholeFrameBeneath();
    for (unsigned long i = 0; i < m_Contours.NumEntries(); ++i)
    {
        KvContour* contour = m_Contours.GetEntry(i);
        contour->Exclude() = !contour->Exclude();
    }
    m_SignalContoursInverted.Emit(nullptr);
    ResetToSelect();
    Repaint();
    m_SignalOperation.Emit(OperationInvertAll);
}

// Adds an excluded frame over the whole AOI and puts it in front of the drawing order.
void KvContourWnd::AddWholeFrameBeneath()
{
    const KvTSize<short> size = AOISize();
    NewFigure(KvContour::eRectangle, 1);
    m_Figure.MakeRectFromDiagonal(0.0, 0.0, size.width, size.height);
    if (!m_Figure.IsValid())
        return;
    auto frame = std::make_unique<KvContour>(m_Figure);
    frame->ID() = static_cast<std::int32_t>(GetNextContourID());
    frame->SequenceID() = static_cast<std::int32_t>(GetNextContourSequenceID());
    m_SignalContourAdded.Emit(frame.get());
    if (const KvContour* stored = InsertContourPtr(frame.get()))
    {
        frame.release();
        const long raise = static_cast<long>(stored->SequenceID()) + 1;
        for (unsigned long i = 0; i < m_Contours.NumEntries(); ++i)
        {
            KvContour* contour = m_Contours.GetEntry(i);
            if (contour != stored)
                contour->SequenceID() = static_cast<std::int32_t>(contour->SequenceID() + raise);
        }
    }
    FillContourSeq();
    DeleteFigure();
}
