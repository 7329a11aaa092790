// CMenu and the flat menu functions. A menu bar or popup is data; only TrackPopupMenu shows one.
#pragma once

#include "platform/win/cmdtarget.h"
#include "platform/win/user.h"

// A popup belongs to the item that opens it and is destroyed with it.
HMENU CreateMenu();
HMENU CreatePopupMenu();
HMENU LoadMenuW(const CDynLinkLibrary* module, UINT id); // null if there is no such resource
BOOL DestroyMenu(HMENU menu);
BOOL IsMenu(HMENU menu);
HMENU GetSubMenu(HMENU menu, int position);
int GetMenuItemCount(HMENU menu);
UINT GetMenuItemID(HMENU menu, int position); // 0 for a separator, UINT(-1) for a popup
UINT GetMenuState(HMENU menu, UINT item, UINT flags);
// With MF_POPUP, `id` is the popup's handle. By position or, through all popups, by command.
BOOL AppendMenuW(HMENU menu, UINT flags, UINT_PTR id, const CString& text);
BOOL InsertMenuW(HMENU menu, UINT item, UINT flags, UINT_PTR id, const CString& text);
BOOL ModifyMenuW(HMENU menu, UINT item, UINT flags, UINT_PTR id, const CString& text);
BOOL RemoveMenu(HMENU menu, UINT item, UINT flags); // a popup stays alive
BOOL DeleteMenu(HMENU menu, UINT item, UINT flags);
DWORD CheckMenuItem(HMENU menu, UINT item, UINT flags); // the former state
int EnableMenuItem(HMENU menu, UINT item, UINT flags);  // the former state
CString GetMenuStringW(HMENU menu, UINT item, UINT flags);
// Runs until the menu closes. The command goes to `owner` as WM_COMMAND before it returns, unless TPM_RETURNCMD asks
// for the id as result.
BOOL TrackPopupMenu(HMENU menu, UINT flags, int x, int y, int reserved, HWND owner, const RECT* rect);

class CMenu : public CObject
{
    DECLARE_DYNCREATE(CMenu)

public:
    HMENU m_hMenu = nullptr;

    CMenu() = default;
    CMenu(const CMenu&) = delete;
    CMenu& operator=(const CMenu&) = delete;
    ~CMenu() override { DestroyMenu(); }

    // The object attached to `menu`, else one that borrows it and lives as long as the menu; null for null.
    static CMenu* FromHandle(HMENU menu);
    HMENU GetSafeHmenu() const;
    operator HMENU() const { return m_hMenu; }
    BOOL Attach(HMENU menu);
    HMENU Detach();
    BOOL CreateMenu() { return Attach(::CreateMenu()); }
    BOOL CreatePopupMenu() { return Attach(::CreatePopupMenu()); }
    BOOL LoadMenu(UINT id); // of any loaded module
    BOOL DestroyMenu();

    BOOL AppendMenu(UINT flags, UINT_PTR id = 0, const CString& text = CString());
    BOOL InsertMenu(UINT item, UINT flags, UINT_PTR id = 0, const CString& text = CString());
    BOOL ModifyMenu(UINT item, UINT flags, UINT_PTR id = 0, const CString& text = CString());
    BOOL RemoveMenu(UINT item, UINT flags) { return ::RemoveMenu(m_hMenu, item, flags); }
    BOOL DeleteMenu(UINT item, UINT flags) { return ::DeleteMenu(m_hMenu, item, flags); }
    UINT CheckMenuItem(UINT item, UINT flags) { return ::CheckMenuItem(m_hMenu, item, flags); }
    UINT EnableMenuItem(UINT item, UINT flags) { return static_cast<UINT>(::EnableMenuItem(m_hMenu, item, flags)); }
    UINT GetMenuItemCount() const { return static_cast<UINT>(::GetMenuItemCount(m_hMenu)); }
    UINT GetMenuItemID(int position) const { return ::GetMenuItemID(m_hMenu, position); }
    UINT GetMenuState(UINT item, UINT flags) const { return ::GetMenuState(m_hMenu, item, flags); }
    int GetMenuString(UINT item, CString& text, UINT flags) const; // the length
    CMenu* GetSubMenu(int position) const;
    // Before it shows, the update handlers of `owner` (through a frame: of its active view first) run for every item.
    BOOL TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, const RECT* rect = nullptr);
};
