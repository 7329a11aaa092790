// The editor's life, its wiring to the view, its tool and its options.
#include "C/uiContourWnd.h"

#include "resources/resource_editor.h"

using namespace KvN;

namespace
{

HCURSOR LoadOwnCursor(unsigned short id)
{
    return ::LoadCursorW(AfxFindResourceHandle(ResourceKind::GroupCursor, id), id);
}

HCURSOR LoadSystemCursor(UINT id)
{
    return ::LoadCursorW(nullptr, id);
}

} // namespace

BEGIN_MESSAGE_MAP(KvContourWnd, KvAOIWnd)
END_MESSAGE_MAP()

KvContourWnd::KvContourWnd()
{
    m_Contours.SetCompareFunction(&KvContour::CmpFunc);
    m_Contours.SetClearFunction(&KvContour::ClrFunc);
    m_ContourSeq.SetCompareFunction(&KvContour::CmpFuncSeq);
}

// A window that is still there outlives this part of the object: it must not call back any more.
KvContourWnd::~KvContourWnd()
{
    ResetHandler();
    if (View())
        m_pView->ChangePaintHdl(Link());
}

void KvContourWnd::Init(const KvAOI* aoi)
{
    m_pView = GetAOIBaseViewWnd();
    m_ViewWnd = m_pView ? m_pView->GetSafeHwnd() : nullptr;
    m_AOIRect = aoi ? aoi->AOIRect() : KvTRectangle<short>();
    if (m_pView)
        m_pView->SetAOI(const_cast<KvAOI*>(aoi));

    m_CursorSizeAll = LoadSystemCursor(IDC_SIZEALL);
    m_CursorArrow = LoadSystemCursor(IDC_ARROW);
    m_CursorNewPoint = LoadOwnCursor(IDC_EDITOR_NEW_POINT);
    m_CursorMoveObject = LoadOwnCursor(IDC_EDITOR_MOVE_OBJECT);
    m_CursorInvertObject = LoadOwnCursor(IDC_EDITOR_INVERT_OBJECT);
    m_CursorRotateObject = LoadOwnCursor(IDC_EDITOR_ROTATE_OBJECT);
    m_CursorDeletePoint = LoadOwnCursor(IDC_EDITOR_DELETE_POINT);
    m_CursorAddPoint = LoadOwnCursor(IDC_EDITOR_ADD_POINT);
    m_CursorMovePoint = LoadOwnCursor(IDC_EDITOR_MOVE_POINT);
    m_CursorSizeHorizontal = LoadSystemCursor(IDC_SIZEWE);
    m_CursorSizeVertical = LoadSystemCursor(IDC_SIZENS);
    m_CursorSizeLeftTopRightBottom = LoadSystemCursor(IDC_SIZENWSE);
    m_CursorSizeLeftBottomRightTop = LoadSystemCursor(IDC_SIZENESW);

    m_Figure.ID() = -1;
    m_Pair = Pair(-1, -1);
    m_EditMode = EditNone;
    m_FigureActive = 0;

    if (!m_pView)
        return;
    m_pView->SetCurrentCursor(m_CursorArrow);
    // A second Init, or a second editor on the same view, connects nothing.
    if (m_pView->keyDownSignal.SlotCount() == 0)
        m_pView->keyDownSignal.Connect(this, &KvContourWnd::Slot_OnKeyDown);
    if (m_pView->keyUpSignal.SlotCount() == 0)
        m_pView->keyUpSignal.Connect(this, &KvContourWnd::Slot_OnKeyUp);
    m_pView->ChangePaintHdl(Link(this, &KvContourWnd::LinkStubPaintHdl));
}

void KvContourWnd::SetHandler()
{
    if (!View())
        return;
    m_pView->ChangeMouseButtonDownHdl(Link(this, &KvContourWnd::LinkStubMouseButtonDownHdl));
    m_pView->ChangeMouseButtonUpHdl(Link(this, &KvContourWnd::LinkStubMouseButtonUpHdl));
    m_pView->ChangeMouseMoveHdl(Link(this, &KvContourWnd::LinkStubMouseMoveHdl));
    m_pView->ChangePaintHdl(Link(this, &KvContourWnd::LinkStubPaintHdl));
    m_HandlersSet = 1;
}

void KvContourWnd::ResetHandler()
{
    m_HandlersSet = 0;
    if (!View())
        return;
    m_pView->ChangeMouseButtonDownHdl(Link());
    m_pView->ChangeMouseButtonUpHdl(Link());
    m_pView->ChangeMouseMoveHdl(Link());
}

void KvContourWnd::CallChangeModeHdl()
{
    m_ChangeModeHdl.Call(this);
}

long long KvContourWnd::LinkStubMouseButtonDownHdl(void* instance, void* data)
{
    return static_cast<KvContourWnd*>(instance)->MouseButtonDownHdl(static_cast<KvAOIBaseViewWnd*>(data));
}

long long KvContourWnd::LinkStubMouseButtonUpHdl(void* instance, void* data)
{
    return static_cast<KvContourWnd*>(instance)->MouseButtonUpHdl(static_cast<KvAOIBaseViewWnd*>(data));
}

long long KvContourWnd::LinkStubMouseMoveHdl(void* instance, void* data)
{
    return static_cast<KvContourWnd*>(instance)->MouseMoveHdl(static_cast<KvAOIBaseViewWnd*>(data));
}

long long KvContourWnd::LinkStubPaintHdl(void* instance, void* data)
{
    return static_cast<KvContourWnd*>(instance)->PaintHdl(static_cast<KvAOIBaseViewWnd*>(data));
}

void KvContourWnd::SetTool(unsigned short tool)
{
    if (tool == m_Tool)
        return;
    m_Tool = tool;
    DeleteFigure();
    switch (tool)
    {
    case ToolEllipse:
    case ToolRect:
    case ToolPolygon:
    case ToolPolyline:
    case ToolEllipseExcluded:
    case ToolRectExcluded:
    case ToolPolygonExcluded:
    case ToolPolylineExcluded:
        SetContourSelected(nullptr);
        SetCursorNewPoint();
        break;
    case ToolEditPoints:
        m_SignalContourSelected.Emit(GetSelectedContour());
        SetCursorSelect();
        m_SignalOperation.Emit(OperationSelect);
        break;
    case ToolFullFrame:
        SetContourSelected(nullptr);
        OnFullFrame();
        break;
    case ToolDeleteAll:
        SetContourSelected(nullptr);
        OnDeleteAllFrames();
        break;
    case ToolInvertAll:
        SetContourSelected(nullptr);
        OnInvertAllFrames();
        break;
    default:
        m_Tool = ToolSelect;
        SetCursorArrow();
        break;
    }
}

void KvContourWnd::ResetToSelect()
{
    m_Tool = ToolSelect;
    CallChangeModeHdl();
}

void KvContourWnd::SetCatchSize(unsigned short radius)
{
    m_CatchSize = radius;
    Repaint();
}

void KvContourWnd::SetThumbSize(unsigned short size)
{
    m_ThumbSize = size;
    Repaint();
}

void KvContourWnd::SetLineWidth(unsigned short width)
{
    m_LineWidth = width;
    Repaint();
}

void KvContourWnd::SetLineWidthThumb(unsigned short width)
{
    m_LineWidthThumb = width;
    Repaint();
}

void KvContourWnd::SetColor(unsigned long color)
{
    m_Color = static_cast<COLORREF>(color);
    Repaint();
}

void KvContourWnd::SetColorExcluded(unsigned long color)
{
    m_ColorExcluded = static_cast<COLORREF>(color);
    Repaint();
}

void KvContourWnd::SetPolylineWidth(unsigned short width)
{
    KvContour* selected = GetSelectedContour();
    if (!selected || selected->ContourType() != KvContour::ePolyline)
    {
        m_PolylineWidth = width;
    }
    else if (selected->LineWidth() != width)
    {
        SaveUndoRedoState();
        selected->LineWidth() = width;
        m_SignalContourChanged.Emit(selected);
        m_SignalOperation.Emit(OperationChange);
    }
    Repaint();
}

void KvContourWnd::EraseCurrentFigure()
{
    KvAOIBaseViewWnd* view = View();
    if (!view)
        return;
    view->InvalidateRect(nullptr, FALSE);
    view->UpdateWindow();
}

KvTPoint<short> KvContourWnd::MousePosition() const
{
    const KvAOIBaseViewWnd* view = View();
    return view ? view->FGetLogicPoint(view->GetMouseEvent().GetPoint()) : KvTPoint<short>();
}

KvTSize<short> KvContourWnd::AOISize() const
{
    KvAOIBaseViewWnd* view = View();
    const KvAOI* aoi = view ? view->GetAOI() : nullptr;
    return aoi ? aoi->AOISize() : KvTSize<short>();
}
