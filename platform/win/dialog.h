// CDialog: a window made from a dialog resource.
//
// Dialog units are converted by one fixed measure, 6 by 13 pixels for the units' base of 4 by 8, whatever fonts the
// machine has, so that a dialog's layout is the same everywhere: x * 6 / 4 and y * 13 / 8, rounded to nearest.
#pragma once

#include "platform/win/ddx.h"

class CDialog : public CWnd
{
    DECLARE_DYNAMIC(CDialog)

public:
    CDialog() = default;
    explicit CDialog(UINT templateId, CWnd* parent = nullptr) : resource(templateId), parentWnd(parent) {}
    ~CDialog() override;

    using CWnd::Create;
    BOOL Create(UINT templateId, CWnd* parent = nullptr); // modeless; shown by the template's WS_VISIBLE
    // Runs the dialog; other windows of the program take no input meanwhile. The result given to EndDialog, or -1 if
    // the resource is missing. An exception that leaves OnInitDialog closes the dialog and comes out here.
    virtual INT_PTR DoModal();
    void EndDialog(int result);
    virtual BOOL OnInitDialog(); // FALSE if it has set the focus itself

    void GotoDlgCtrl(CWnd* control);
    void NextDlgCtrl();
    void PrevDlgCtrl();
    void SetDefID(UINT id); // the button that Enter presses
    void MapDialogRect(RECT* rect) const;
    BOOL PreTranslateMessage(MSG* message) override;
    BOOL OnCmdMsg(UINT id, int code, void* extra, int* info) override;

protected:
    virtual void OnOK();     // UpdateData, then EndDialog(IDOK)
    virtual void OnCancel(); // EndDialog(IDCANCEL)
    virtual void PreInitDialog() {}

    BOOL CreateFromTemplate(UINT templateId, CWnd* parent);
    void OnClose();
    void OnCommandOK() { OnOK(); }
    void OnCommandCancel() { OnCancel(); }
    LRESULT OnInitDialogMessage(WPARAM, LPARAM);
    void PressDefault();
    DECLARE_MESSAGE_MAP()

private:
    UINT resource = 0;
    CWnd* parentWnd = nullptr;
    bool running = false;
    INT_PTR modalResult = -1;
};
