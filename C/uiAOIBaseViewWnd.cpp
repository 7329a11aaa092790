// The AOI view's life: module defaults, construction, the window and its message map. Its other faces are in the
// sources beside this one: _geometry, _painting, _events, _menus, _list.
#include "C/uiAOIBaseViewWnd.h"
#include "resources/resource.h"

namespace KvN
{

namespace
{
double defaultAOIWndZoomFactor = 1.0;
int defaultPixelAspectRatioMaintained = 1;

constexpr UINT styleWithoutClass = CS_VREDRAW | CS_HREDRAW | CS_DBLCLKS | CS_CLASSDC;
} // namespace

double KvxGetDefaultAOIWndZoomFactor()
{
    return defaultAOIWndZoomFactor;
}
void KvxSetDefaultAOIWndZoomFactor(double zoom)
{
    defaultAOIWndZoomFactor = zoom;
}
int KvxIsDefaultPixelAspectRatioMaintained()
{
    return defaultPixelAspectRatioMaintained;
}
void KvxSetDefaultMaintainPixelAspectRatioOn()
{
    defaultPixelAspectRatioMaintained = 1;
}
void KvxSetDefaultMaintainPixelAspectRatioOff()
{
    defaultPixelAspectRatioMaintained = 0;
}

IMPLEMENT_DYNCREATE(KvAOIBaseViewWnd, KvScrollZoomView)

BEGIN_MESSAGE_MAP(KvAOIBaseViewWnd, KvScrollZoomView)
ON_WM_CONTEXTMENU()
ON_WM_LBUTTONDOWN()
ON_WM_LBUTTONDBLCLK()
ON_WM_LBUTTONUP()
ON_WM_RBUTTONDOWN()
ON_WM_RBUTTONUP()
ON_WM_MOUSEMOVE()
ON_WM_MOUSELEAVE()
ON_WM_SETCURSOR()
ON_WM_KEYDOWN()
ON_WM_KEYUP()
ON_WM_SYSKEYDOWN()
ON_WM_SYSKEYUP()
ON_WM_MOVE()
ON_WM_SIZE()
ON_WM_HSCROLL()
ON_WM_VSCROLL()
ON_WM_ERASEBKGND()
ON_COMMAND_RANGE(ID_VIEW_ZOOM_FIRST, ID_VIEW_ZOOM_LAST, OnZoom)
ON_UPDATE_COMMAND_UI_RANGE(ID_VIEW_ZOOM_FIRST, ID_VIEW_ZOOM_LAST, OnUpdateZoom)
ON_COMMAND_RANGE(ID_VIEW_LUT_FIRST, ID_VIEW_LUT_LAST, OnOutputLut)
ON_UPDATE_COMMAND_UI_RANGE(ID_VIEW_LUT_FIRST, ID_VIEW_LUT_LAST, OnUpdateOutputLut)
ON_COMMAND_RANGE(ID_VIEW_BACKGROUND_FIRST, ID_VIEW_BACKGROUND_LAST, OnBackground)
ON_UPDATE_COMMAND_UI_RANGE(ID_VIEW_BACKGROUND_FIRST, ID_VIEW_BACKGROUND_LAST, OnUpdateBackground)
END_MESSAGE_MAP()

KvAOIBaseViewWnd::KvAOIBaseViewWnd()
    : defaultCursor(GetpApp()->LoadStandardCursor(IDC_ARROW)),
      defaultAspectRatio(KvxIsDefaultPixelAspectRatioMaintained()), defaultZoomFactor(KvxGetDefaultAOIWndZoomFactor())
{
    m_bCenter = FALSE;
}

KvAOIBaseViewWnd::~KvAOIBaseViewWnd() = default;

// Views of one style share a class DC, which is why a DC taken from a view is released nowhere.
BOOL KvAOIBaseViewWnd::Create(const CString& className, const CString& windowName, DWORD style, const RECT& rect,
                              CWnd* parent, UINT id, CCreateContext* context)
{
    WNDCLASS known{};
    const UINT classStyle = GetClassInfo(className, &known) ? known.style | CS_CLASSDC : styleWithoutClass;
    const CString registered = AfxRegisterWndClass(classStyle);
    if (!KvScrollZoomView::Create(registered, windowName, style, rect, parent, id, context))
        return FALSE;
    Init();
    return TRUE;
}

BOOL KvAOIBaseViewWnd::PreCreateWindow(CREATESTRUCT& cs)
{
    const BOOL result = KvScrollZoomView::PreCreateWindow(cs);
    cs.style &= ~static_cast<DWORD>(WS_BORDER);
    return result;
}

void KvAOIBaseViewWnd::Init()
{
    const CFrameWnd* frame = GetParentFrame();
    parentWnd = frame ? dynamic_cast<KvBaseFrameWnd*>(frame->GetParent()) : nullptr;
    if (!defaultOn)
    {
        SetZoomFactor(KvxGetDefaultAOIWndZoomFactor());
        SetAspectRatioMaintained(KvxIsDefaultPixelAspectRatioMaintained());
        return;
    }
    SetAspectRatioMaintained(defaultAspectRatio);
    if (defaultFitted)
        FitAOIToWindowOn();
    else
        SetZoomFactor(defaultZoomFactor);
}

} // namespace KvN
