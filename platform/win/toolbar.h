// CToolBar: a row of buttons from a toolbar resource and its bitmap strip.
#pragma once

#include "platform/win/wnd.h"

#include <vector>

// The strip has one cell a button, separators none; its colour C0C0C0 shows through as the bar's own. Tips come
// from the string resource with the button's id, behind the line break.
class CToolBar : public CWnd
{
    DECLARE_DYNAMIC(CToolBar)

public:
    using CWnd::Create;
    virtual BOOL Create(CWnd* parent, DWORD style = WS_CHILD | WS_VISIBLE | CBRS_TOP, UINT id = AFX_IDW_TOOLBAR);
    virtual BOOL CreateEx(CWnd* parent, DWORD controlStyle = TBSTYLE_FLAT,
                          DWORD style = WS_CHILD | WS_VISIBLE | CBRS_ALIGN_TOP, CRect border = CRect(0, 0, 0, 0),
                          UINT id = AFX_IDW_TOOLBAR);
    BOOL LoadToolBar(UINT id); // of any loaded module
    int GetCount() const { return static_cast<int>(buttons.size()); }
    int CommandToIndex(UINT id) const;    // -1 if there is none
    UINT GetItemID(int index) const;      // 0 for a separator
    UINT GetButtonStyle(int index) const; // TBBS_ bits
    void SetButtonStyle(int index, UINT style);
    void GetButtonInfo(int index, UINT& id, UINT& style, int& image) const;
    void SetButtonInfo(int index, UINT id, UINT style, int image);
    CSize CalcFixedLayout(BOOL stretch, BOOL horizontal);
    BOOL CheckButton(int id, BOOL check = TRUE);   // false if there is no such button
    BOOL EnableButton(int id, BOOL enable = TRUE); // likewise
    BOOL IsButtonChecked(int id) const;
    BOOL IsButtonEnabled(int id) const;
    BOOL GetItemRect(int index, RECT* rect) const; // client pixels
    // Runs the update handlers of `target` for every button.
    void OnUpdateCmdUI(CFrameWnd* target, BOOL disableIfNoHandler);

protected:
    // `module` null: any that is loaded.
    BOOL LoadToolBarFrom(const CDynLinkLibrary* module, UINT id);

private:
    struct Button
    {
        UINT id;
        UINT style;
        int image;
    };
    std::vector<Button> buttons;
    CSize cell{16, 15};
    void Rebuild(const void* strip);
    void Place();
    Button* Find(int id);
    void Show(const Button& button);
};
