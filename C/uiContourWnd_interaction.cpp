// Mouse and key events of the view, and which operation each of them is for the tool that is set.
#include "C/uiContourWnd.h"
#include "C/uiContourWnd_p.h"

using namespace KvN;
using namespace kv::editor;

namespace
{

constexpr unsigned int LeftButton = 1;
constexpr unsigned int RightButton = 2;

bool IsLeftHeld(const KvMouseEvent& event)
{
    return (event.flags & MK_LBUTTON) != 0;
}

bool IsModifier(unsigned int key)
{
    return key == VK_SHIFT || key == VK_CONTROL || key == VK_MENU;
}

// Keeps a window from redrawing for a block.
class RedrawOff
{
public:
    explicit RedrawOff(CWnd& wnd_) : wnd(wnd_) { wnd.SendMessage(WM_SETREDRAW, 0, 0); }
    ~RedrawOff() { wnd.SendMessage(WM_SETREDRAW, 1, 0); }
    RedrawOff(const RedrawOff&) = delete;
    RedrawOff& operator=(const RedrawOff&) = delete;

private:
    CWnd& wnd;
};

} // namespace

// A framework exception leaves the machine at rest and goes on as one of the system's family.
template <class Work>
void KvContourWnd::Guarded(Work work)
{
    try
    {
        work();
    }
    catch (CException* exception)
    {
        KvException* failure = AsKvException(exception);
        DeleteFigure();
        throw failure;
    }
}

long long KvContourWnd::MouseButtonDownHdl(KvAOIBaseViewWnd* view)
{
    view->GetOutputDevice();
    const KvMouseEvent event = view->GetMouseEvent();
    if (event.button == RightButton)
        return 1;
    Guarded(
        [&]
        {
            if (!m_FigureActive)
                DeleteFigure();
            PressTool(*view, view->FGetLogicPoint(event.GetPoint()), event);
        });
    return 1;
}

void KvContourWnd::PressTool(KvAOIBaseViewWnd& view, const Position& point, const KvMouseEvent& event)
{
    const int exclude = m_Tool >= ToolEllipseExcluded && m_Tool <= ToolPolylineExcluded;
    switch (m_Tool)
    {
    case ToolSelect:
        OnEditObject(point, OnSelectFrame(point));
        if (m_EditMode != EditNone)
            view.SetCapture();
        break;
    case ToolEllipse:
    case ToolEllipseExcluded:
        view.SetCapture();
        NewFigure(KvContour::eEllipse, exclude);
        OnEllipseFrame(point);
        break;
    case ToolRect:
    case ToolRectExcluded:
        view.SetCapture();
        NewFigure(KvContour::eRectangle, exclude);
        OnRectFrame(point);
        break;
    case ToolPolygon:
    case ToolPolygonExcluded:
    case ToolPolyline:
    case ToolPolylineExcluded:
        view.SetCapture();
        if (!m_FigureActive)
        {
            const bool line = m_Tool == ToolPolyline || m_Tool == ToolPolylineExcluded;
            NewFigure(line ? KvContour::ePolyline : KvContour::ePolygon, exclude);
        }
        OnPolylineFrame(point, event);
        break;
    case ToolEditPoints:
        view.SetCapture();
        if (IsDown(VK_CONTROL) && m_EnableDelete)
            OnDeletePoint(point);
        else
            OnEditPoints(point, event);
        break;
    default:
        ResetToSelect();
        DeleteFigure();
        break;
    }
}

long long KvContourWnd::MouseButtonUpHdl(KvAOIBaseViewWnd* view)
{
    view->GetOutputDevice();
    const KvMouseEvent event = view->GetMouseEvent();
    if (event.button != LeftButton)
        return 1;
    view->EnableRightButtonMenu();
    Guarded(
        [&]
        {
            if (m_FigureActive ? EndsWithRelease() : m_EditMode != EditNone && m_Tool == ToolSelect)
                CompleteContour();
        });
    return 1;
}

// Polygons and polylines go on over the release of the button.
bool KvContourWnd::EndsWithRelease() const
{
    return m_Tool == ToolEllipse || m_Tool == ToolRect || m_Tool == ToolEllipseExcluded || m_Tool == ToolRectExcluded ||
           m_Tool == ToolEditPoints;
}

long long KvContourWnd::MouseMoveHdl(KvAOIBaseViewWnd* view)
{
    // Moving the mouse over the view takes the keyboard, so that Esc, Delete and the modifiers arrive.
    if (::GetFocus() != view->GetSafeHwnd())
        view->SetFocus();
    // After a modifier key the view's last event may be a press: this is a move all the same.
    KvMouseEvent event = view->GetMouseEvent();
    event.button = 0;
    event.clicks = 1;
    const Position point = view->FGetLogicPoint(event.GetPoint());
    Guarded(
        [&]
        {
            SelectCursor();
            if (IsEditing() && MoveTool(point, event))
                m_SignalFigureMoved.Emit(&m_Figure);
        });
    return 1;
}

// Whether the move reached the tool.
bool KvContourWnd::MoveTool(const Position& point, const KvMouseEvent& event)
{
    switch (m_Tool)
    {
    case ToolSelect:
        if (m_EditMode == EditNone)
            return false;
        OnEditObject(point, 1);
        return true;
    case ToolEllipse:
    case ToolEllipseExcluded:
        if (!IsLeftHeld(event))
            return false;
        OnEllipseFrame(point);
        return true;
    case ToolRect:
    case ToolRectExcluded:
        if (!IsLeftHeld(event))
            return false;
        OnRectFrame(point);
        return true;
    case ToolPolygon:
    case ToolPolyline:
    case ToolPolygonExcluded:
    case ToolPolylineExcluded:
    case ToolEditPoints:
        if (!m_FigureActive)
            return false;
        OnPolylineFrame(point, event);
        return true;
    default:
        DeleteFigure();
        return false;
    }
}

long long KvContourWnd::PaintHdl(KvAOIBaseViewWnd* view)
{
    try
    {
        DisplayUserDrawnRegions(view->GetOutputDevice(), view);
        if (IsEditing())
            DrawCurrentFigure(m_Pos, m_Pair);
    }
    catch (CException* exception)
    {
        throw AsKvException(exception);
    }
    return 1;
}

void KvContourWnd::Slot_OnKeyDown(void* instance, unsigned int key)
{
    static_cast<KvContourWnd*>(instance)->OnKeyDown(key);
}

void KvContourWnd::Slot_OnKeyUp(void* instance, unsigned int key)
{
    static_cast<KvContourWnd*>(instance)->OnKeyUp(key);
}

void KvContourWnd::OnKeyDown(unsigned int key)
{
    if (!m_HandlersSet)
        return;
    if (key == VK_ESCAPE)
    {
        DeleteFigure();
        EraseCurrentFigure();
    }
    else if (IsModifier(key))
    {
        // Cursor and figure follow the key at once, without flicker.
        const RedrawOff redraw(*m_pView);
        MouseMoveHdl(m_pView);
    }
    else if (key == VK_DELETE)
    {
        DeleteSelectedByKey();
    }
}

void KvContourWnd::OnKeyUp(unsigned int key)
{
    if (m_HandlersSet && IsModifier(key))
        MouseMoveHdl(m_pView);
}

// A figure in progress goes on: the selected contour beneath it is deleted.
void KvContourWnd::DeleteSelectedByKey()
{
    KvContour* contour = GetSelectedContour();
    if (!m_EnableDelete || m_Tool == ToolEditPoints || !contour)
        return;
    SaveUndoRedoState();
    m_SignalContourDeleted.Emit(contour);
    DeleteContour(*contour);
    ResetToSelect();
    EraseCurrentFigure();
    m_SignalOperation.Emit(OperationDelete);
}
