// The common base of the mask dialogs.
#include "C/uiMaskDlgBase.h"

#include "C/uiAOIBaseViewWnd.h"

namespace KvN
{

namespace
{

constexpr int firstCommand = ID_MASK_INC_RECT_FILLED;
constexpr int lastToolCommand = ID_MASK_INVERT;
constexpr int lastCommand = ID_MASK_TOOL_DEL;

// Commands that choose a figure. They stay pressed while their tool is the current one.
bool IsFigureCommand(int uiId)
{
    return (uiId >= ID_MASK_INC_RECT_FILLED && uiId <= ID_MASK_INC_POLYLINE) ||
           (uiId >= ID_MASK_EXC_RECT_FILLED && uiId <= ID_MASK_EXC_POLYLINE);
}

void EnableIfThere(CWnd& control, int on)
{
    if (control.GetSafeHwnd())
        control.EnableWindow(on);
}

void ExchangeControl(CDataExchange* exchange, int id, CWnd& control)
{
    if (exchange->m_pDlgWnd->GetDlgItem(id))
        Kvx_DDX_Control(exchange, id, control);
}

} // namespace

BEGIN_MESSAGE_MAP(KvMaskDlgBase, KvDialog)
ON_COMMAND(ID_MASK_INC_RECT_FILLED, OnIncRectFilled)
ON_COMMAND(ID_MASK_INC_CIRCLE_FILLED, OnIncCircleFilled)
ON_COMMAND(ID_MASK_INC_ELLIPSE_FILLED, OnIncEllipseFilled)
ON_COMMAND(ID_MASK_INC_POLYGON_FILLED, OnIncPolygonFilled)
ON_COMMAND(ID_MASK_INC_RECT_FRAME, OnIncRectFrame)
ON_COMMAND(ID_MASK_INC_CIRCLE_FRAME, OnIncCircleFrame)
ON_COMMAND(ID_MASK_INC_ELLIPSE_FRAME, OnIncEllipseFrame)
ON_COMMAND(ID_MASK_INC_POLYGON_FRAME, OnIncPolygonFrame)
ON_COMMAND(ID_MASK_INC_POLYLINE, OnIncPolyline)
ON_COMMAND(ID_MASK_EXC_FULL, OnExcFull)
ON_COMMAND(ID_MASK_EXC_RECT_FILLED, OnExcRectFilled)
ON_COMMAND(ID_MASK_EXC_CIRCLE_FILLED, OnExcCircleFilled)
ON_COMMAND(ID_MASK_EXC_ELLIPSE_FILLED, OnExcEllipseFilled)
ON_COMMAND(ID_MASK_EXC_POLYGON_FILLED, OnExcPolygonFilled)
ON_COMMAND(ID_MASK_EXC_RECT_FRAME, OnExcRectFrame)
ON_COMMAND(ID_MASK_EXC_CIRCLE_FRAME, OnExcCircleFrame)
ON_COMMAND(ID_MASK_EXC_ELLIPSE_FRAME, OnExcEllipseFrame)
ON_COMMAND(ID_MASK_EXC_POLYGON_FRAME, OnExcPolygonFrame)
ON_COMMAND(ID_MASK_EXC_POLYLINE, OnExcPolyline)
ON_COMMAND(ID_MASK_INC_FULL, OnIncFull)
ON_COMMAND(ID_MASK_INVERT, OnInvert)
ON_COMMAND(ID_MASK_TOOL_OK, OnToolOK)
ON_COMMAND(ID_MASK_TOOL_DEL, OnToolDel)
ON_BN_CLICKED(IDC_MASK_INCTOOLS, OnInctools)
ON_BN_CLICKED(IDC_MASK_EXCTOOLS, OnExctools)
END_MESSAGE_MAP()

BEGIN_EVENTSINK_MAP(KvMaskDlgBase, KvDialog)
ON_EVENT(KvMaskDlgBase, IDC_MASK_LINEWIDTH, KvSpinEdit::valueChanged, OnValueChangedLinewidth, VTS_R8)
END_EVENTSINK_MAP()

KvMaskDlgBase::KvMaskDlgBase(CWnd* parent, unsigned int dialogId, unsigned int incBar, unsigned int excBar,
                             CDynLinkLibrary* toolBarModule, KvMaskWndBase& maskWnd, const FailureSites& failureSites)
    : KvDialog(dialogId, parent, 1, 1, 1), incToolBar(0, 2048, toolBarModule), excToolBar(0, 2048, toolBarModule),
      incToolBarId(incBar), excToolBarId(excBar), wnd(maskWnd), sites(failureSites)
{
}

KvMaskDlgBase::~KvMaskDlgBase() = default;

void KvMaskDlgBase::DoDataExchange(CDataExchange* exchange)
{
    KvDialog::DoDataExchange(exchange);
    ExchangeControl(exchange, IDC_MASK_LINEWIDTH_LABEL, lineWidthLabel);
    ExchangeControl(exchange, IDC_MASK_INCTOOLS, incRadio);
    ExchangeControl(exchange, IDC_MASK_EXCTOOLS, excRadio);
    if (GetDlgItem(IDC_MASK_INCTOOLS))
        DDX_Radio(exchange, IDC_MASK_INCTOOLS, radioIndex);
    ExchangeControl(exchange, IDC_MASK_LINEWIDTH, lineWidthEdit);
}

// ---- Start

void KvMaskDlgBase::CreateToolBar(KvDlgToolBar& bar, unsigned int id, int option, unsigned long createLine,
                                  unsigned long loadLine)
{
    if (!bar.Create(this, 0x50002802, 59392))
        throw new KvGDIException(sites.source, createLine, "CToolBar::Create", GetLastError());
    if (!bar.LoadToolBar(id, option))
        throw new KvGDIException(sites.source, loadLine, "CToolBar::LoadToolBar", GetLastError());
    for (int i = 0; i < bar.GetCount(); ++i)
        if (IsFigureCommand(static_cast<int>(bar.GetItemID(i))))
            bar.SetButtonStyle(i, TBSTYLE_CHECK);
    bar.EnableButton(ID_MASK_TOOL_OK, 0);
    bar.EnableButton(ID_MASK_TOOL_DEL, 0);
}

void KvMaskDlgBase::CreateToolBars(int toolBarOption)
{
    CreateToolBar(incToolBar, incToolBarId, toolBarOption, sites.createInc, sites.loadInc);
    const CSize size = incToolBar.CalcFixedLayout(TRUE, TRUE);
    incToolBar.MoveWindow(0, 0, size.cx, size.cy);
    CreateToolBar(excToolBar, excToolBarId, 0, sites.createExc, sites.loadExc);
    excToolBar.MoveWindow(0, 0, size.cx, size.cy);
    currentToolBar = &incToolBar;
}

void KvMaskDlgBase::AttachMaskWnd()
{
    wnd.SubclassDlgItem(IDC_MASK_WND, this);
    view = wnd.GetAOIBaseViewWnd();
    wnd.SetChangeModeHdl(KvTools::Link(this, &KvMaskDlgBase::LinkStubChangeModeHdl));
}

void KvMaskDlgBase::FailKey(const wchar_t* key, unsigned long line) const
{
    throw new KvReadKeywordException(sites.source, line, key, L"Mask", configName);
}

int KvMaskDlgBase::ReadFlag(const KvString& text, const wchar_t* key, unsigned long line) const
{
    KvString word = text;
    word.ToUpper();
    if (word == KvString(L"TRUE"))
        return 1;
    if (word == KvString(L"FALSE"))
        return 0;
    FailKey(key, line);
}

void KvMaskDlgBase::RestoreTool(const KvString& toolText, const KvString& modeText)
{
    if (toolText.Length() == 0 || !toolText.IsIntNum())
        FailKey(L"ToolId", sites.toolId);
    toolId = static_cast<int>(toolText);
    radioIndex = ReadFlag(modeText, L"IncTools", sites.incTools) ? 0 : 1;
    // The opposite tool on purpose: `SetToolBar` always converts once, and that gives the stored tool again.
    toolId = radioIndex == 0 ? GetExcToolIDFromIncToolID(toolId) : GetIncToolIDFromExcToolID(toolId);
    toolUIId = GetUIIDFromToolID(toolId);
    SetToolBar();
}

void KvMaskDlgBase::RestoreLineWidth(const KvString& text)
{
    if (text.Length() == 0 || !text.IsIntNum())
        FailKey(L"LineWidth", sites.lineWidth);
    lineWidthEdit.SetValue(static_cast<double>(text));
    SetLineWidth();
}

KvString KvMaskDlgBase::LineWidthText() const
{
    return KvString().SPrintf(L"%g", lineWidthEdit.GetValue());
}

// ---- Tools

int KvMaskDlgBase::GetToolIDFromUIID(int uiId)
{
    return uiId >= firstCommand && uiId <= lastToolCommand ? uiId - firstCommand + 1 : -1;
}

int KvMaskDlgBase::GetUIIDFromToolID(int tool)
{
    return tool >= 1 && tool <= MaskToolInvert ? tool - 1 + firstCommand : -1;
}

int KvMaskDlgBase::GetExcToolIDFromIncToolID(int tool)
{
    return tool >= 1 && tool <= 9 ? tool + 10 : -1;
}

int KvMaskDlgBase::GetIncToolIDFromExcToolID(int tool)
{
    return tool >= 11 && tool <= 19 ? tool - 10 : -1;
}

void KvMaskDlgBase::SetToolBar()
{
    const bool excluding = radioIndex == 1;
    KvDlgToolBar& former = excluding ? incToolBar : excToolBar;
    KvDlgToolBar& shown = excluding ? excToolBar : incToolBar;
    former.ShowWindow(SW_HIDE);
    shown.ShowWindow(SW_SHOW);
    former.CheckButton(toolUIId, 0);
    toolId = excluding ? GetExcToolIDFromIncToolID(toolId) : GetIncToolIDFromExcToolID(toolId);
    toolUIId = GetUIIDFromToolID(toolId);
    shown.CheckButton(toolUIId, 1);
    wnd.SelectTool(toolId);
    currentToolBar = &shown;
}

void KvMaskDlgBase::SwitchMode(int mode)
{
    if (radioIndex == mode)
        return;
    UpdateData(TRUE);
    SetToolBar();
}

void KvMaskDlgBase::SetTool(int uiId)
{
    if (uiId < firstCommand || uiId > lastCommand)
        return;
    if (IsFigureCommand(uiId))
    {
        currentToolBar->CheckButton(toolUIId, 0);
        currentToolBar->CheckButton(uiId, 1);
        toolUIId = uiId;
        toolId = GetToolIDFromUIID(uiId);
        wnd.SelectTool(toolId);
        SetLineWidth();
    }
    else if (uiId == ID_MASK_TOOL_OK)
    {
        wnd.IntegrateFigure();
        EnableToolMode(1);
    }
    else if (uiId == ID_MASK_TOOL_DEL)
    {
        wnd.DeleteFigure();
        EnableToolMode(1);
    }
    else
        ApplyToWholeMask(uiId);
}

void KvMaskDlgBase::ApplyToWholeMask(int uiId)
{
    wnd.SelectTool(GetToolIDFromUIID(uiId));
    wnd.SelectTool(toolId);
}

void KvMaskDlgBase::SetLineWidth()
{
    const MaskTool described = DescribeMaskTool(toolId);
    if (described.shape == MaskShape::None)
        return;
    EnableIfThere(lineWidthLabel, !described.filled);
    EnableIfThere(lineWidthEdit, !described.filled);
    wnd.SetLineWidth(described.filled ? 0 : static_cast<unsigned short>(lineWidth));
}

void KvMaskDlgBase::EnableToolMode(int on)
{
    toolMode = on;
    for (int i = 0; i < currentToolBar->GetCount(); ++i)
    {
        const int id = static_cast<int>(currentToolBar->GetItemID(i));
        if (id >= firstCommand && id <= lastCommand)
            currentToolBar->EnableButton(id, id <= lastToolCommand ? on : !on);
    }
    EnableIfThere(incRadio, on);
    EnableIfThere(excRadio, on);
}

void KvMaskDlgBase::OnValueChangedLinewidth(double value)
{
    lineWidth = static_cast<int>(value);
    SetLineWidth();
    if (!toolMode)
        InvalidateView();
}

void KvMaskDlgBase::InvalidateView()
{
    view->InvalidateRect(nullptr, FALSE);
    view->UpdateWindow();
}

long long KvMaskDlgBase::ChangeModeHdl(KvMaskWndBase* source)
{
    EnableToolMode(!source->IsInChangeMode());
    return 1;
}

long long KvMaskDlgBase::LinkStubChangeModeHdl(void* instance, void* data)
{
    return static_cast<KvMaskDlgBase*>(instance)->ChangeModeHdl(static_cast<KvMaskWndBase*>(data));
}

} // namespace KvN
