// The mask dialog.
#include "C/uiMaskDlg.h"

namespace KvN
{

BEGIN_MESSAGE_MAP(KvMaskDlg, KvMaskDlgBase)
ON_BN_CLICKED(IDC_MASK_SHOWSYSTEM, OnShowsystemmask)
END_MESSAGE_MAP()

KvMaskDlg::KvMaskDlg(CWnd* parent, unsigned int dialogId, unsigned int incBar, unsigned int excBar,
                     CDynLinkLibrary* module)
    : KvMaskDlgBase(parent, dialogId, incBar, excBar, module, maskWnd,
                    {"C/uiMaskDlg", 248, 250, 296, 298, 358, 366, 388})
{
}

KvMaskDlg::KvMaskDlg(CWnd* parent) : KvMaskDlg(parent, IDD_MASK) {}

KvMaskDlg::KvMaskDlg(CWnd* parent, unsigned int dialogId)
    : KvMaskDlg(parent, dialogId, IDR_MASK_INCLUDE, IDR_MASK_EXCLUDE, GetResourceModule())
{
}

KvMaskDlg::KvMaskDlg(CWnd* parent, unsigned int dialogId, unsigned int incBar)
    : KvMaskDlg(parent, dialogId, incBar, IDR_MASK_EXCLUDE, nullptr)
{
}

KvMaskDlg::KvMaskDlg(CWnd* parent, unsigned int dialogId, unsigned int incBar, unsigned int excBar)
    : KvMaskDlg(parent, dialogId, incBar, excBar, nullptr)
{
}

KvMaskDlg::~KvMaskDlg() = default;

void KvMaskDlg::Init(const KvString& config, const KvAOI* background, KvAOI8* mask, int barOption)
{
    configName = config;
    backgroundAOI = background;
    maskAOI = mask;
    toolBarOption = barOption;
}

void KvMaskDlg::DoDataExchange(CDataExchange* exchange)
{
    KvMaskDlgBase::DoDataExchange(exchange);
    if (GetDlgItem(IDC_MASK_SHOWSYSTEM))
        DDX_Check(exchange, IDC_MASK_SHOWSYSTEM, showSystemCheck);
}

BOOL KvMaskDlg::OnInitDialog()
{
    KvMaskDlgBase::OnInitDialog();
    CreateToolBars(toolBarOption);
    AttachMaskWnd();
    maskWnd.Init(backgroundAOI, maskAOI);

    KvConfig config(configName);
    config.SetGroup("Mask");
    RestoreTool(config.ReadKey("ToolId", "1"), config.ReadKey("IncTools", "TRUE"));
    if (HasLineWidthEdit())
        RestoreLineWidth(config.ReadKey("LineWidth", "1"));
    showSystemCheck = ReadFlag(config.ReadKey("ShowSystemMask", "FALSE"), L"ShowSystemMask", 397);
    SetSystemMaskShown(showSystemCheck);
    UpdateData(FALSE);
    EnableToolMode(1);
    return TRUE;
}

void KvMaskDlg::SetSystemMaskShown(int on)
{
    if (on)
        maskWnd.ShowSystemMask();
    else
        maskWnd.HideSystemMask();
}

void KvMaskDlg::OnShowsystemmask()
{
    UpdateData(TRUE);
    SetSystemMaskShown(showSystemCheck);
    InvalidateView();
}

void KvMaskDlg::OnOK()
{
    const CWaitCursor wait;
    if (maskWnd.IsInChangeMode())
        maskWnd.IntegrateFigure();
    {
        KvConfig config(configName);
        config.SetGroup("Mask");
        config.WriteKey("ToolId", KvString(maskWnd.GetTool()));
        config.WriteKey("ShowSystemMask", FlagText(maskWnd.IsSystemMaskShown()));
        config.WriteKey("IncTools", FlagText(radioIndex == 0));
        if (HasLineWidthEdit())
            config.WriteKey("LineWidth", LineWidthText());
    }
    maskWnd.MaskToAOI();
    KvMaskDlgBase::OnOK();
}

} // namespace KvN
