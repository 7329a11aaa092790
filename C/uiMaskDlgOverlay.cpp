// The overlay dialog: start, commands, end. Its list of pictures and its layout have files of their own.
#include "C/uiMaskDlgOverlay.h"

#include "C/uiAOIBaseViewWnd.h"

#include <algorithm>

using namespace KvN;

namespace
{

KvString ResourceText(unsigned short id)
{
    return KvString(KvResId(id, GetResourceModule()));
}

} // namespace

BEGIN_MESSAGE_MAP(KvMaskDlgOverlay, KvMaskDlgBase)
ON_BN_CLICKED(IDC_MASK_SHOWSYSTEM, OnChecksystemmask)
ON_BN_CLICKED(IDC_MASK_SEGMENT, OnCheckSegment)
ON_COMMAND(ID_MASK_DEL_SYSTEM, OnDeleteSystemCommand)
ON_WM_HSCROLL()
ON_WM_SIZE()
END_MESSAGE_MAP()

KvMaskDlgOverlay::KvMaskDlgOverlay(CWnd* parent, unsigned int dialogId, unsigned int incBar, unsigned int excBar)
    : KvMaskDlgBase(parent, dialogId, incBar, excBar, GetResourceModule(), maskWnd,
                    {"C/uiMaskDlgOverlay", 1115, 1117, 1154, 1156, 1208, 1216, 1238})
{
}

KvMaskDlgOverlay::~KvMaskDlgOverlay()
{
    DeleteListDisplay();
    ClearAOIList();
}

void KvMaskDlgOverlay::Init(const KvString& config, const KvAOI* background, KvAOI8* mask)
{
    configName = config;
    backgroundAOI = background;
    hostMaskAOI = mask;
    workBuffer.Resize(*mask, 1);
    workMask = &workBuffer;
    workMask->TakeOLut(mask->GetOLut());
    KvLTransfer().Copy(mask, workMask);
    CheckAOIList(const_cast<KvAOI*>(background)); // the list holds what can be shown; nothing writes to it
    FillListDisplay();
    aoiName = background->GetAOIName();
}

void KvMaskDlgOverlay::DoDataExchange(CDataExchange* exchange)
{
    KvMaskDlgBase::DoDataExchange(exchange);
    if (GetDlgItem(IDC_MASK_SHOWSYSTEM))
        DDX_Check(exchange, IDC_MASK_SHOWSYSTEM, showSystemCheck);
    Kvx_DDX_Control(exchange, IDC_MASK_DEFECT_COLOR, defectButton);
    Kvx_DDX_Control(exchange, IDC_MASK_SURROUND_COLOR, surroundButton);
    if (GetDlgItem(IDC_MASK_SEGMENT))
        DDX_Check(exchange, IDC_MASK_SEGMENT, objectAsSegment);
}

// ---- Start

BOOL KvMaskDlgOverlay::OnInitDialog()
{
    layoutReady = 0;
    KvMaskDlgBase::OnInitDialog();
    CreateToolBars(0);
    AttachMaskWnd();
    maskWnd.Init(backgroundAOI, workMask);

    KvConfigMT config(configName, 1);
    config.SetGroup("Mask", 0);
    RestoreTool(config.ReadKey("ToolId", "1"), config.ReadKey("IncTools", "TRUE"));
    if (HasLineWidthEdit())
        RestoreLineWidth(config.ReadKey("LineWidth", "1"));
    RestoreStrength(config.ReadKey("OverlayStrength", "0.3"));
    RestoreSystemMask(config.ReadKey("CheckSystemMask", "FALSE"));
    UpdateData(FALSE);
    EnableToolMode(1);
    if (externalLineWidth < 65535)
    {
        lineWidth = externalLineWidth;
        SetLineWidth();
    }
    systemMaskDeleted = 0;
    ReplaceTexts();
    ShowSlider();
    SetUpView();
    ShowLegend();
    ShowSegmentGroup();
    defectButton.parent = surroundButton.parent = this;
    UpdateData(FALSE);
    defectButton.Invalidate(TRUE);
    surroundButton.Invalidate(TRUE);
    CaptureLayout();
    layoutReady = 1;
    return TRUE;
}

void KvMaskDlgOverlay::RestoreStrength(const KvString& text)
{
    overlayStrength = 0.3;
    if (!text.IsFloatNum())
        FailKey(L"OverlayStrength", 1252);
    const auto strength = static_cast<float>(text);
    if (!(strength >= 0.0f && strength <= 1.0f))
        FailKey(L"OverlayStrength", 1258);
    overlayStrength = strength;
}

void KvMaskDlgOverlay::RestoreSystemMask(const KvString& text)
{
    if (!ReadFlag(text, L"CheckSystemMask", 1266))
    {
        showSystemCheck = 0;
        maskWnd.HideSystemMask();
    }
    else if (showSystemMaskOption)
    {
        showSystemCheck = 1;
        maskWnd.ShowSystemMask();
    }
}

void KvMaskDlgOverlay::ReplaceTexts()
{
    if (headerText.Length() > 0)
        SetWindowText(headerText);
    const std::pair<int, const KvString&> captions[] = {{IDC_MASK_DEFECT_LABEL, textDefect},
                                                        {IDC_MASK_SURROUND_LABEL, textSurroundings},
                                                        {IDC_MASK_SHOWSYSTEM, textSystemMask}};
    for (const auto& [id, text] : captions)
        if (text.Length() > 0)
            SetDlgItemText(id, text);
}

void KvMaskDlgOverlay::ShowSlider()
{
    CWnd* slider = GetDlgItem(IDC_MASK_STRENGTH);
    if (!slider)
        return;
    slider->SendMessage(TBM_SETRANGEMIN, 0, 0);
    slider->SendMessage(TBM_SETRANGEMAX, 0, 100);
    slider->SendMessage(TBM_SETPOS, TRUE, static_cast<LPARAM>(overlayStrength * 100 + 0.5));
}

void KvMaskDlgOverlay::SetUpView()
{
    if (!view)
        return;
    view->SetDefaultZoomFactor(defaultZoomFactor);
    view->SetDefaultFittedToWindow(defaultFitted);
    view->SetDefaultAspectRatioMaintained(defaultAspect);
    view->SetDefaultOn();
    Select(const_cast<KvAOI*>(backgroundAOI));
    KvAOI* source = nullptr;
    view->SetAOI(CheckSelectedDisplay(&source));
    view->SetAOIList(&displayList);
    view->UseContextMenuWithCheck(2);
    view->SetOverlayAOI(workMask);
    view->SetOverlayStrength(static_cast<float>(overlayStrength));
}

void KvMaskDlgOverlay::ShowControl(int id, int show)
{
    if (CWnd* control = GetDlgItem(id))
        control->ShowWindow(show ? SW_SHOW : SW_HIDE);
}

void KvMaskDlgOverlay::ShowLegend()
{
    for (const int id :
         {IDC_MASK_SURROUND_LABEL, IDC_MASK_DEFECT_LABEL, IDC_MASK_DEFECT_COLOR, IDC_MASK_SURROUND_COLOR})
        ShowControl(id, showSurrounding);
    for (const int id : {IDC_MASK_SHOWSYSTEM, IDC_MASK_DISPLAY_GROUP})
        ShowControl(id, showSystemMaskOption);
    if (!showSurrounding)
        return;
    showSystemCheck = showSystemMaskOption ? 1 : 0;
    if (showSystemMaskOption)
        maskWnd.ShowSystemMask();
    else
        maskWnd.HideSystemMask();
}

void KvMaskDlgOverlay::ShowSegmentGroup()
{
    ShowControl(IDC_MASK_SEGMENT_GROUP, segmentActive);
    ShowControl(IDC_MASK_SEGMENT, segmentActive);
    if (!segmentActive)
        return;
    savedBuffer.Resize(*hostMaskAOI, 1);
    savedMask = &savedBuffer;
    KvLTransfer().Copy(hostMaskAOI, savedMask);
}

// ---- Texts, colours, switches of the host

void KvMaskDlgOverlay::SetColors(unsigned long defect, unsigned long surround)
{
    defectColor = defect;
    surroundColor = surround;
}

void KvMaskDlgOverlay::GetColors(unsigned long& defect, unsigned long& surround) const
{
    defect = defectColor;
    surround = surroundColor;
}

KvString KvMaskDlgOverlay::GetResourceTextMaskSurroundings()
{
    return ResourceText(IDS_MASK_SURROUNDINGS);
}

KvString KvMaskDlgOverlay::GetResourceTextMaskDefect()
{
    return ResourceText(IDS_MASK_DEFECT);
}

KvString KvMaskDlgOverlay::GetResourceTextDesignMask()
{
    return ResourceText(IDS_MASK_DESIGN);
}

KvString KvMaskDlgOverlay::GetResourceTextIntensityMask()
{
    return ResourceText(IDS_MASK_INTENSITY);
}

KvString KvMaskDlgOverlay::GetResourceTextThresholdMask()
{
    return ResourceText(IDS_MASK_THRESHOLD);
}

void KvMaskDlgOverlay::ActivateSegment(int useObject)
{
    segmentActive = 1;
    objectAsSegment = useObject;
}

void KvMaskDlgOverlay::DeactivateSegment(int useObject)
{
    segmentActive = 0;
    objectAsSegment = useObject;
}

// ---- Commands

void KvMaskDlgOverlay::OnHScroll(unsigned int, unsigned int, CScrollBar*)
{
    CWnd* slider = GetDlgItem(IDC_MASK_STRENGTH);
    if (!view || !slider)
        return;
    overlayStrength = static_cast<double>(slider->SendMessage(TBM_GETPOS)) / 100;
    view->SetOverlayStrength(static_cast<float>(overlayStrength));
    InvalidateView();
}

void KvMaskDlgOverlay::OnCheckSegment()
{
    CWnd* box = GetDlgItem(IDC_MASK_SEGMENT);
    if (!box)
        return;
    KvAOI8* mask = maskWnd.GetMaskAOI();
    if (box->SendMessage(BM_GETCHECK) == BST_CHECKED)
        KvLTransfer().TransferBits(mask, mask, 128, -1, 0);
    else
        KvLTransfer().TransferBits(savedMask, mask, 64, 0, 0);
    maskWnd.UpdateMaskDC(mask);
    InvalidateView();
}

void KvMaskDlgOverlay::OnChecksystemmask()
{
    if (!systemMaskDeleted)
        UpdateData(TRUE);
    if (!systemMaskDeleted && showSystemCheck)
        maskWnd.ShowSystemMask();
    else
        maskWnd.HideSystemMask();
    InvalidateView();
}

void KvMaskDlgOverlay::DeleteSystemMask()
{
    systemMaskDeleted = 1;
    showSystemCheck = 0;
    if (GetSafeHwnd() && GetDlgItem(IDC_MASK_SHOWSYSTEM))
        CheckDlgButton(IDC_MASK_SHOWSYSTEM, BST_UNCHECKED);
    maskWnd.HideSystemMask();
}

void KvMaskDlgOverlay::OnDelSys()
{
    DeleteSystemMask();
    InvalidateView();
}

// ---- End

void KvMaskDlgOverlay::RememberView()
{
    SelectDisplay(view->GetAOI());
    oLutName = view->GetOutputLut();
    KvAOI* source = nullptr;
    if (CheckSelectedDisplay(&source) && source)
        aoiName = source->GetAOIName();
}

void KvMaskDlgOverlay::OnOK()
{
    const CWaitCursor wait;
    if (maskWnd.IsInChangeMode())
        maskWnd.IntegrateFigure();
    {
        KvConfigMT config(configName, 1);
        config.SetGroup("Mask", 0);
        config.WriteKey("ToolId", KvString(static_cast<int>(maskWnd.GetTool())));
        config.WriteKey("CheckSystemMask", FlagText(maskWnd.IsSystemMaskShown()));
        config.WriteKey("OverlayStrength", KvString().SPrintf(L"%3.2lf", std::clamp(overlayStrength, 0.0, 1.0)));
        config.WriteKey("IncTools", FlagText(radioIndex == 0));
        if (HasLineWidthEdit())
            config.WriteKey("LineWidth", LineWidthText());
    }
    maskWnd.MaskToAOI();
    KvLTransfer().Copy(workMask, hostMaskAOI);
    RememberView();
    KvMaskDlgBase::OnOK();
}

void KvMaskDlgOverlay::OnCancel()
{
    RememberView();
    KvMaskDlgBase::OnCancel();
}
