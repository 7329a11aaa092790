// What both mask dialogs have in common: the toolbars and their commands, the choice between adding and excluding, the
// line width, and the keys of the configuration for these.
#pragma once

#include "C/uiMaskWndBase.h"
#include "contracts/config.h"
#include "resources/resource.h"

namespace KvN
{

class KvMaskDlgBase : public KvDialog
{
public:
    // What shows while the dialog runs.
    KvMaskWndBase& GetMaskWnd() { return wnd; }
    const KvDlgToolBar* GetCurrentToolBar() const { return currentToolBar; }

protected:
    // Where failures at the dialog's start are reported from: its source, and the line of each.
    struct FailureSites
    {
        const char* source;
        unsigned long createInc;
        unsigned long loadInc;
        unsigned long createExc;
        unsigned long loadExc;
        unsigned long toolId;
        unsigned long incTools;
        unsigned long lineWidth;
    };

    // `toolBarModule` holds the toolbars; null: the caller's own modules do. `maskWnd` is the derived dialog's window.
    KvMaskDlgBase(CWnd* parent, unsigned int dialogId, unsigned int incBar, unsigned int excBar,
                  CDynLinkLibrary* toolBarModule, KvMaskWndBase& maskWnd, const FailureSites& failureSites);
    ~KvMaskDlgBase() override;

    void DoDataExchange(CDataExchange* exchange) override;

    // ---- Steps of `OnInitDialog`
    // The option goes to the adding toolbar.
    void CreateToolBars(int toolBarOption);
    void AttachMaskWnd();
    // The texts of the keys "ToolId" and "IncTools"; shows the toolbar for them.
    void RestoreTool(const KvString& toolText, const KvString& modeText);
    // The text of the key "LineWidth".
    void RestoreLineWidth(const KvString& text);
    bool HasLineWidthEdit() const { return lineWidthEdit.GetSafeHwnd() != nullptr; }
    // 1 for "TRUE", 0 for "FALSE" in any case; anything else throws KvReadKeywordException*.
    int ReadFlag(const KvString& text, const wchar_t* key, unsigned long line) const;
    [[noreturn]] void FailKey(const wchar_t* key, unsigned long line) const;
    static const wchar_t* FlagText(int on) { return on ? L"TRUE" : L"FALSE"; }
    KvString LineWidthText() const;

    // ---- Tools
    // Any command of the toolbars; others do nothing.
    void SetTool(int uiId);
    // Shows the toolbar of the chosen mode and turns the tool into its counterpart there.
    void SetToolBar();
    // 1: tools can be chosen; 0: a figure is placed and can be accepted or dropped.
    void EnableToolMode(int on);
    // Filled tools have no width.
    void SetLineWidth();
    // The two directions of the table of tools and commands, and a tool's counterpart; -1 where there is none.
    static int GetToolIDFromUIID(int uiId);
    static int GetUIIDFromToolID(int tool);
    static int GetExcToolIDFromIncToolID(int tool);
    static int GetIncToolIDFromExcToolID(int tool);

    long long ChangeModeHdl(KvMaskWndBase* source);
    static long long LinkStubChangeModeHdl(void* instance, void* data);

    void InvalidateView(); // at once

    // ---- Handlers
    void OnInctools() { SwitchMode(0); }
    void OnExctools() { SwitchMode(1); }
    void OnValueChangedLinewidth(double value);
    void OnIncRectFilled() { SetTool(ID_MASK_INC_RECT_FILLED); }
    void OnIncCircleFilled() { SetTool(ID_MASK_INC_CIRCLE_FILLED); }
    void OnIncEllipseFilled() { SetTool(ID_MASK_INC_ELLIPSE_FILLED); }
    void OnIncPolygonFilled() { SetTool(ID_MASK_INC_POLYGON_FILLED); }
    void OnIncRectFrame() { SetTool(ID_MASK_INC_RECT_FRAME); }
    void OnIncCircleFrame() { SetTool(ID_MASK_INC_CIRCLE_FRAME); }
    void OnIncEllipseFrame() { SetTool(ID_MASK_INC_ELLIPSE_FRAME); }
    void OnIncPolygonFrame() { SetTool(ID_MASK_INC_POLYGON_FRAME); }
    void OnIncPolyline() { SetTool(ID_MASK_INC_POLYLINE); }
    void OnExcFull() { SetTool(ID_MASK_EXC_FULL); }
    void OnExcRectFilled() { SetTool(ID_MASK_EXC_RECT_FILLED); }
    void OnExcCircleFilled() { SetTool(ID_MASK_EXC_CIRCLE_FILLED); }
    void OnExcEllipseFilled() { SetTool(ID_MASK_EXC_ELLIPSE_FILLED); }
    void OnExcPolygonFilled() { SetTool(ID_MASK_EXC_POLYGON_FILLED); }
    void OnExcRectFrame() { SetTool(ID_MASK_EXC_RECT_FRAME); }
    void OnExcCircleFrame() { SetTool(ID_MASK_EXC_CIRCLE_FRAME); }
    void OnExcEllipseFrame() { SetTool(ID_MASK_EXC_ELLIPSE_FRAME); }
    void OnExcPolygonFrame() { SetTool(ID_MASK_EXC_POLYGON_FRAME); }
    void OnExcPolyline() { SetTool(ID_MASK_EXC_POLYLINE); }
    void OnIncFull() { SetTool(ID_MASK_INC_FULL); }
    void OnInvert() { SetTool(ID_MASK_INVERT); }
    void OnToolOK() { SetTool(ID_MASK_TOOL_OK); }
    void OnToolDel() { SetTool(ID_MASK_TOOL_DEL); }

    CStatic lineWidthLabel;
    CButton incRadio;
    CButton excRadio;
    int radioIndex = -1; // 0 adding, 1 excluding
    KvSpinEdit lineWidthEdit;
    KvAOIBaseViewWnd* view = nullptr;
    KvDlgToolBar incToolBar;
    KvDlgToolBar excToolBar;
    KvDlgToolBar* currentToolBar = nullptr;
    int toolId = 0;
    int toolUIId = 0;
    int toolMode = 1;
    int lineWidth = 0;
    KvString configName;
    const KvAOI* backgroundAOI = nullptr;
    unsigned int incToolBarId;
    unsigned int excToolBarId;

    DECLARE_MESSAGE_MAP()
    DECLARE_EVENTSINK_MAP()

private:
    void CreateToolBar(KvDlgToolBar& bar, unsigned int id, int option, unsigned long createLine,
                       unsigned long loadLine);
    void SwitchMode(int mode);
    void ApplyToWholeMask(int uiId);

    KvMaskWndBase& wnd;
    FailureSites sites;
};

} // namespace KvN
