// How a figure ends: as a contour of the store, back in the contour that it was copied from, or not at all.
#include "C/uiContourWnd.h"

#include <cmath>
#include <memory>

using namespace KvN;

int KvContourWnd::IsEditing() const
{
    return m_Figure.IsValid() || IsSet(m_Pos);
}

int KvContourWnd::IsPointEditModeAllowed() const
{
    const KvContour* selected = GetSelectedContour();
    return selected &&
           (selected->ContourType() == KvContour::ePolygon || selected->ContourType() == KvContour::ePolyline);
}

int KvContourWnd::IsAOIRect(const KvContour& contour) const
{
    if (contour.ContourType() != KvContour::eRectangle || !KvContour::IsMultipleOfPi(contour.RotationAngle()))
        return 0;
    KvTRectangle<double> box;
    contour.MakeBoundingBox(box);
    const KvTSize<short> size = AOISize();
    const auto same = [](double a, double b) { return std::abs(a - b) < KvMath::Epsilon; };
    return same(box.left, 0.0) && same(box.top, 0.0) && same(box.right, size.width) && same(box.bottom, size.height);
}

void KvContourWnd::CompleteContour()
{
    if (!IsEditing())
        return;
    if ((m_Tool >= ToolEllipse && m_Tool <= ToolPolylineExcluded) || m_Tool == ToolFullFrame)
        return CompleteNewFigure();
    if (m_Tool == ToolEditPoints)
        return CompletePoints();
    if (m_Tool == ToolSelect)
        return CompleteEdit();
    ResetToSelect();
    DeleteFigure();
}

void KvContourWnd::CompleteNewFigure()
{
    if (m_Figure.ContourType() == KvContour::ePolygon)
        m_Figure.MakeCCW();
    if (m_Figure.IsValid())
    {
        SaveUndoRedoState();
        auto contour = std::make_unique<KvContour>(m_Figure);
        contour->ID() = static_cast<std::int32_t>(GetNextContourID());
        contour->SequenceID() = static_cast<std::int32_t>(GetNextContourSequenceID());
        m_SignalContourAdded.Emit(contour.get());
        // The new contour is selected without a selection signal.
        m_SelectedID = contour->ID();
        if (InsertContourPtr(contour.get()))
            contour.release();
    }
    DeleteFigure();
    ResetToSelect();
    Repaint();
    m_SignalOperation.Emit(OperationAdd);
}

void KvContourWnd::CompletePoints()
{
    m_Figure.MakeCCW();
    if (!m_Figure.IsValid())
        return DeleteFigure();
    SaveUndoRedoState();
    KvContour* contour = GetSelectedContour();
    if (contour)
        contour->CurvePositions() = m_Figure.CurvePositions();
    m_SignalContourChanged.Emit(contour);
    SetContourSelected(GetSelectedContour());
    m_SignalOperation.Emit(OperationChange);
    DeleteFigure();
}

void KvContourWnd::CompleteEdit()
{
    const bool moved = m_Pos.x != m_Start.x || m_Pos.y != m_Start.y;
    if (m_EditMode != EditNone && moved && m_Figure.IsValid())
    {
        SaveUndoRedoState();
        KvContour* contour = GetSelectedContour();
        if (contour)
        {
            contour->CurvePositions() = m_Figure.CurvePositions();
            contour->Angle() = m_Figure.Angle();
            contour->ContourType() = m_Figure.ContourType();
        }
        m_SignalContourChanged.Emit(contour);
        SetContourSelected(GetSelectedContour());
        m_SignalOperation.Emit(OperationChange);
    }
    // Twice, which is required: hosts see the change-mode handler called twice at the end of a drag.
    DeleteFigure();
    DeleteFigure();
}

void KvContourWnd::DeleteFigure()
{
    ::ReleaseCapture();
    m_EditMode = EditNone;
    m_FigureActive = 0;
    m_Figure = KvContour();
    m_Pair = Pair(-1, -1);
    m_Pos.x = m_Start.x = m_Last.x = Unset;
    CallChangeModeHdl();
    Repaint();
}
