// The modal dialog in which an operator paints a mask over an image.
#pragma once

#include "C/uiMaskDlgBase.h"
#include "C/uiMaskWnd.h"

namespace KvN
{

// Use: constructor, `Init`, `DoModal`. On IDOK bit 7 of the mask AOI is what the operator painted, and tool, mode, line
// width and the system mask's switch stand in group "Mask" of the configuration file; otherwise neither is touched.
// A key of the wrong form throws KvReadKeywordException* out of `DoModal`, a toolbar that is missing KvGDIException*.
class KvMaskDlg : public KvMaskDlgBase
{
public:
    // With this library's dialog, or toolbars; what the caller names is looked for in all loaded modules.
    explicit KvMaskDlg(CWnd* parent = nullptr);
    KvMaskDlg(CWnd* parent, unsigned int dialogId);
    KvMaskDlg(CWnd* parent, unsigned int dialogId, unsigned int incBar);
    KvMaskDlg(CWnd* parent, unsigned int dialogId, unsigned int incBar, unsigned int excBar);
    ~KvMaskDlg() override;

    // Background and mask have the same size, stay the caller's, and must live until `DoModal` has returned.
    void Init(const KvString& config, const KvAOI* background, KvAOI8* mask, int toolBarOption = 0);

protected:
    void DoDataExchange(CDataExchange* exchange) override;
    BOOL OnInitDialog() override;
    void OnOK() override;
    void OnShowsystemmask();

    int showSystemCheck = 0;
    KvMaskWnd maskWnd;
    KvAOI8* maskAOI = nullptr;
    int toolBarOption = 0;

    DECLARE_MESSAGE_MAP()

private:
    KvMaskDlg(CWnd* parent, unsigned int dialogId, unsigned int incBar, unsigned int excBar, CDynLinkLibrary* module);
    void SetSystemMaskShown(int on);
};

} // namespace KvN
