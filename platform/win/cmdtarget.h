// CCmdTarget: whatever takes commands and messages through a message map, and CCmdUI, which asks it how an item looks.
#pragma once

#include "platform/afx/afx.h"
#include "platform/win/msgmap.h"

class CCmdUI;
class CMenu;
class CWnd;

// Code of a command that asks for the look of its item instead of doing it.
inline constexpr int CN_COMMAND = 0;
inline constexpr int CN_UPDATE_COMMAND_UI = -1;

class CCmdTarget : public CObject
{
    DECLARE_DYNAMIC(CCmdTarget)

public:
    // Offers a command (or, with CN_UPDATE_COMMAND_UI, its CCmdUI in `extra`) to the message map; non-zero if taken.
    // A non-null `info` only asks whether there is a handler: it is set to 1 and nothing is called.
    virtual BOOL OnCmdMsg(UINT id, int code, void* extra, int* info);

    virtual const AFX_MSGMAP* GetMessageMap() const;
    virtual const AFX_EVENTSINKMAP* GetEventSinkMap() const;

    // Calls the entry of the event sink maps for the control's event; false if there is none.
    bool FireEvent(UINT control, int dispatchId, const void* argument);

protected:
    static const AFX_MSGMAP* GetThisMessageMap();
    static const AFX_EVENTSINKMAP* GetThisEventSinkMap();
};

// One menu item or button whose update handler runs.
class CCmdUI
{
public:
    UINT m_nID = 0;
    UINT m_nIndex = 0;
    CMenu* m_pMenu = nullptr;    // of the item, if it is in a menu
    CMenu* m_pSubMenu = nullptr; // if the item opens a popup
    CWnd* m_pOther = nullptr;    // the toolbar or control otherwise

    virtual ~CCmdUI() = default;
    virtual void Enable(BOOL on = TRUE);
    virtual void SetCheck(int check = 1);
    virtual void SetRadio(BOOL on = TRUE) { SetCheck(on); }
    virtual void SetText(const CString& text);

    // Asks `target`; with `disableIfNoHandler`, an item that nobody handles is grayed. Non-zero if a handler ran.
    BOOL DoUpdate(CCmdTarget* target, BOOL disableIfNoHandler);

protected:
    bool enableChanged = false;
};
