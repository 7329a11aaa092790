// The mouse in a mask window: rubber bands, the placed figure, polygons. Everything on the way to a finished figure is
// drawn by XOR straight on the view, so a second drawing erases the first.
#include "C/uiAOIBaseViewWnd.h"
#include "C/uiMaskWndBase.h"
#include "C/uiMaskWndDrawing_p.h"

namespace KvN
{

namespace
{

// Swaps what lies the wrong way round; a side without extent stays.
KvTRectangle<short> Normalised(KvTRectangle<short> rect)
{
    constexpr short noValue = KvTRectangle<short>::NoValue;
    if (rect.right != noValue && rect.right < rect.left)
        std::swap(rect.left, rect.right);
    if (rect.bottom != noValue && rect.bottom < rect.top)
        std::swap(rect.top, rect.bottom);
    return rect;
}

KvTPoint<short> EventPoint(const KvAOIBaseViewWnd& source, const KvMouseEvent& event)
{
    return source.FGetLogicPoint(event.GetPoint());
}

KvSurroundRect::ToolType FigureType(MaskShape shape)
{
    switch (shape)
    {
    case MaskShape::Circle:
        return KvSurroundRect::ToolCircle;
    case MaskShape::Ellipse:
        return KvSurroundRect::ToolEllipse;
    default:
        return KvSurroundRect::ToolRectangle;
    }
}

short Shifted(short value, int by)
{
    return value == KvTRectangle<short>::NoValue ? value : static_cast<short>(value + by);
}

} // namespace

// ---- Link stubs

long long KvMaskWndBase::LinkStubMouseButtonDownHdl(void* instance, void* data)
{
    return static_cast<KvMaskWndBase*>(instance)->MouseButtonDownHdl(static_cast<KvAOIBaseViewWnd*>(data));
}

long long KvMaskWndBase::LinkStubMouseButtonUpHdl(void* instance, void* data)
{
    return static_cast<KvMaskWndBase*>(instance)->MouseButtonUpHdl(static_cast<KvAOIBaseViewWnd*>(data));
}

long long KvMaskWndBase::LinkStubMouseMoveHdl(void* instance, void* data)
{
    return static_cast<KvMaskWndBase*>(instance)->MouseMoveHdl(static_cast<KvAOIBaseViewWnd*>(data));
}

long long KvMaskWndBase::LinkStubPaintHdl(void* instance, void* data)
{
    return static_cast<KvMaskWndBase*>(instance)->PaintHdl(static_cast<KvAOIBaseViewWnd*>(data));
}

// ---- Rubber drawing

BOOL KvMaskWndBase::DrawBand(CDC& dc, const KvTPoint<short>& from, const KvTPoint<short>& to) const
{
    const KvTRectangle<short> box(from.x, from.y, to.x, to.y);
    switch (DescribeMaskTool(tool).shape)
    {
    case MaskShape::Rectangle:
        return dc.Rectangle(box.left, box.top, box.right + 1, box.bottom + 1);
    case MaskShape::Ellipse:
        return dc.Ellipse(box.left, box.top, box.right + 1, box.bottom + 1);
    case MaskShape::Circle:
    {
        const KvTRectangle<short> square = GetSquare(box, 2);
        return dc.Ellipse(square.left, square.top, square.right + 1, square.bottom + 1);
    }
    default:
        return TRUE;
    }
}

void KvMaskWndBase::DrawRubberLine(CDC& dc, const KvTPoint<short>& to) const
{
    dc.MoveTo(startPoint.x, startPoint.y);
    dc.LineTo(to.x, to.y);
}

// ---- Press

long long KvMaskWndBase::MouseButtonDownHdl(KvAOIBaseViewWnd* source)
{
    const KvMouseEvent event = source->GetMouseEvent();
    // Required: a right press while the left button is held counts as a press.
    if (!(event.flags & MK_LBUTTON))
        return 1;
    const KvTPoint<short> point = EventPoint(*source, event);
    lastPoint = point;
    if (changeMode)
    {
        PressOnFigure(point, event);
        return 1;
    }
    const MaskTool described = DescribeMaskTool(tool);
    CDC& dc = *view->GetOutputDevice();
    DrawWith(dc, *rubberPen, hollowBrush,
             [&]
             {
                 if (described.IsBox())
                     StartBand(dc, point);
                 else if (described.IsPolygonal() && !polygonOpen)
                     StartPolygon(dc, point);
                 else if (described.IsPolygonal())
                 {
                     AddVertex(dc, point);
                     if (event.clicks == 2)
                         FinishPolygon();
                 }
             });
    return 1;
}

void KvMaskWndBase::PressOnFigure(const KvTPoint<short>& point, const KvMouseEvent& event)
{
    if (!figure.IsInside(point) && !figure.IsInsideMarker())
    {
        if (event.clicks == 2)
        {
            IntegrateFigure();
            CallChangeModeHdl();
        }
        return;
    }
    isDrawing = 1;
    view->SetCapture();
    dragMarker = figure.GetMarkerId();
}

void KvMaskWndBase::StartBand(CDC& dc, const KvTPoint<short>& point)
{
    isDrawing = 1;
    view->SetCapture();
    startPoint = currentPoint = point;
    dc.SetROP2(R2_XORPEN);
    DrawBand(dc, startPoint, currentPoint);
    figure.SetToolType(FigureType(DescribeMaskTool(tool).shape));
}

void KvMaskWndBase::StartPolygon(CDC& dc, const KvTPoint<short>& point)
{
    isDrawing = 1;
    view->SetCapture();
    polygon.SetSize(1);
    polygon.SetPoint(KvTPoint<long>(point.x, point.y), 0);
    startPoint = currentPoint = point;
    polygonOpen = 1;
    dc.SetROP2(R2_XORPEN);
    DrawRubberLine(dc, currentPoint);
}

void KvMaskWndBase::AddVertex(CDC& dc, const KvTPoint<short>& point)
{
    // Required: the old rubber line is erased in whatever raster operation the context holds.
    DrawRubberLine(dc, currentPoint);
    {
        const SelectedObject edgePen(dc, *polygonPen);
        dc.SetROP2(R2_COPYPEN);
        DrawRubberLine(dc, point);
    }
    if (point != startPoint)
    {
        const unsigned short count = polygon.GetSize();
        polygon.SetSize(static_cast<unsigned short>(count + 1));
        polygon.SetPoint(KvTPoint<long>(point.x, point.y), count);
        currentPoint = startPoint = point;
    }
    dc.SetROP2(R2_XORPEN);
    DrawRubberLine(dc, currentPoint);
}

// ---- Move

long long KvMaskWndBase::MouseMoveHdl(KvAOIBaseViewWnd* source)
{
    const KvTPoint<short> point = EventPoint(*source, source->GetMouseEvent());
    if (changeMode && isDrawing)
    {
        view->SetCurrentCursor(dragCursor);
        SetNewSize(point);
    }
    else if (changeMode)
        HoverFigure(point);
    else if (isDrawing)
        MoveRubber(point);
    lastPoint = point;
    return 1;
}

void KvMaskWndBase::HoverFigure(const KvTPoint<short>& point)
{
    if (figure.IsInside(point))
        view->SetCurrentCursor(dragCursor = figure.GetPointer());
    if (figure.IsInsideMarker())
        view->SetCurrentCursor(dragCursor = figure.GetCurrentMarker()->GetPointer());
}

void KvMaskWndBase::MoveRubber(const KvTPoint<short>& point)
{
    const MaskTool described = DescribeMaskTool(tool);
    CDC& dc = *view->GetOutputDevice();
    DrawWith(dc, *rubberPen, hollowBrush,
             [&]
             {
                 dc.SetROP2(R2_XORPEN);
                 if (described.IsBox())
                 {
                     DrawBand(dc, startPoint, currentPoint);
                     DrawBand(dc, startPoint, point);
                 }
                 else if (described.IsPolygonal())
                 {
                     if (!skipRubberErase)
                         DrawRubberLine(dc, currentPoint);
                     skipRubberErase = 0;
                     DrawRubberLine(dc, point);
                 }
                 currentPoint = point;
             });
}

// ---- Release

long long KvMaskWndBase::MouseButtonUpHdl(KvAOIBaseViewWnd* source)
{
    const KvMouseEvent event = source->GetMouseEvent();
    if (event.button != 1 || (!isDrawing && !polygonOpen))
        return 1;
    const KvTPoint<short> point = EventPoint(*source, event);
    if (changeMode)
        ReleaseFigure(point);
    else if (DescribeMaskTool(tool).IsBox())
        PlaceFigure(point);
    return 1;
}

void KvMaskWndBase::PlaceFigure(const KvTPoint<short>& point)
{
    const MaskTool described = DescribeMaskTool(tool);
    CDC& dc = *view->GetOutputDevice();
    DrawWith(dc, *rubberPen, hollowBrush,
             [&]
             {
                 dc.SetROP2(R2_XORPEN);
                 isDrawing = 0;
                 ReleaseCapture();
                 // Required: of all drawing, only the band of the adding rectangle tools is checked.
                 if (!DrawBand(dc, startPoint, currentPoint) && described.shape == MaskShape::Rectangle &&
                     described.adds)
                     throw new KvGDIException(bandFailure.source, bandFailure.line, "CDC::Rectangle", GetLastError());
                 KvTRectangle<short> bounds(startPoint.x, startPoint.y, point.x, point.y);
                 if (described.shape == MaskShape::Circle)
                     bounds = GetSquare(bounds, 2);
                 figure.SetRect(Normalised(bounds));
                 figure.Show();
                 figure.Draw();
                 changeMode = 1;
                 CallChangeModeHdl();
             });
}

void KvMaskWndBase::ReleaseFigure(const KvTPoint<short>& point)
{
    isDrawing = 0;
    ReleaseCapture();
    SetNewSize(point);
    figure.Draw();
    figure.Draw(Normalised(figure.GetRect()));
}

void KvMaskWndBase::SetNewSize(const KvTPoint<short>& point)
{
    const bool circle = figure.GetToolType() == KvSurroundRect::ToolCircle;
    KvTRectangle<short> r = figure.GetRect();
    // A circle's corner keeps it square: `GetSquare` in the mode that moves just this corner.
    const auto corner = [&](unsigned short mode)
    {
        if (circle)
            r = GetSquare(r, mode);
    };
    const bool side = dragMarker == 1 || dragMarker == 3 || dragMarker == 4 || dragMarker == 6;
    if (circle && side)
        return;
    switch (dragMarker)
    {
    case 0:
        r.left = point.x;
        r.top = point.y;
        corner(4);
        break;
    case 1:
        r.top = point.y;
        break;
    case 2:
        r.right = point.x;
        r.top = point.y;
        corner(1);
        break;
    case 3:
        r.left = point.x;
        break;
    case 4:
        r.right = point.x;
        break;
    case 5:
        r.left = point.x;
        r.bottom = point.y;
        corner(3);
        break;
    case 6:
        r.bottom = point.y;
        break;
    case 7:
        r.right = point.x;
        r.bottom = point.y;
        corner(2);
        break;
    case KvSurroundRect::InsideId:
        r = {static_cast<short>(r.left + point.x - lastPoint.x), static_cast<short>(r.top + point.y - lastPoint.y),
             Shifted(r.right, point.x - lastPoint.x), Shifted(r.bottom, point.y - lastPoint.y)};
        break;
    default:
        return;
    }
    figure.Draw();
    figure.Draw(r);
}

// ---- Paint

void KvMaskWndBase::RedrawOpenPolygon()
{
    if (!polygonOpen)
        return;
    CDC& dc = *view->GetOutputDevice();
    DrawWith(dc, *polygonPen, hollowBrush,
             [&]
             {
                 dc.SetROP2(R2_COPYPEN);
                 dc.Polyline(polygon, polygon.GetSize());
                 dc.SetROP2(R2_XORPEN);
             });
    view->SetCapture();
    skipRubberErase = 1;
}

} // namespace KvN
