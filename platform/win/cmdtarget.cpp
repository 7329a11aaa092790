// Commands through message maps, update handlers, events of controls.
#include "platform/win/cmdtarget.h"

#include "platform/win/wnd.h"

IMPLEMENT_DYNAMIC(CCmdTarget, CObject)

namespace
{
const AFX_MSGMAP_ENTRY* FindCommand(const AFX_MSGMAP* map, UINT id, int code)
{
    for (; map; map = map->base ? map->base() : nullptr)
    {
        for (const AFX_MSGMAP_ENTRY* entry = map->entries; entry->message != 0; ++entry)
        {
            if (entry->message == WM_COMMAND && entry->code == code && id >= entry->id && id <= entry->lastId)
                return entry;
        }
    }
    return nullptr;
}

constexpr UINT offFlags = MF_GRAYED | MF_DISABLED;
} // namespace

BOOL CCmdTarget::OnCmdMsg(UINT id, int code, void* extra, int* info)
{
    const AFX_MSGMAP_ENTRY* entry = FindCommand(GetMessageMap(), id, code);
    if (!entry)
        return FALSE;
    if (info)
        *info = 1;
    else if (code == CN_UPDATE_COMMAND_UI)
        entry->onUpdate(this, static_cast<CCmdUI*>(extra));
    else
        entry->onCommand(this, id);
    return TRUE;
}

const AFX_MSGMAP* CCmdTarget::GetMessageMap() const
{
    return GetThisMessageMap();
}

const AFX_MSGMAP* CCmdTarget::GetThisMessageMap()
{
    static const AFX_MSGMAP_ENTRY none[] = {{}};
    static const AFX_MSGMAP map = {nullptr, none};
    return &map;
}

const AFX_EVENTSINKMAP* CCmdTarget::GetEventSinkMap() const
{
    return GetThisEventSinkMap();
}

const AFX_EVENTSINKMAP* CCmdTarget::GetThisEventSinkMap()
{
    static const AFX_EVENTSINKMAP_ENTRY none[] = {{}};
    static const AFX_EVENTSINKMAP map = {nullptr, none};
    return &map;
}

bool CCmdTarget::FireEvent(UINT control, int dispatchId, const void* argument)
{
    for (const AFX_EVENTSINKMAP* map = GetEventSinkMap(); map; map = map->base ? map->base() : nullptr)
    {
        for (const AFX_EVENTSINKMAP_ENTRY* entry = map->entries; entry->control != 0; ++entry)
        {
            if (entry->control != control || entry->dispatchId != dispatchId)
                continue;
            entry->onEvent(this, argument);
            return true;
        }
    }
    return false;
}

void CCmdUI::Enable(BOOL on)
{
    enableChanged = true;
    if (m_pMenu && !m_pSubMenu)
        m_pMenu->EnableMenuItem(m_nIndex, MF_BYPOSITION | (on ? MF_ENABLED : offFlags));
}

void CCmdUI::SetCheck(int check)
{
    if (m_pMenu && !m_pSubMenu)
        m_pMenu->CheckMenuItem(m_nIndex, MF_BYPOSITION | (check ? MF_CHECKED : MF_UNCHECKED));
}

void CCmdUI::SetText(const CString& text)
{
    if (m_pMenu && !m_pSubMenu)
        m_pMenu->ModifyMenu(m_nIndex, MF_BYPOSITION | m_pMenu->GetMenuState(m_nIndex, MF_BYPOSITION), m_nID, text);
    else if (m_pOther)
        m_pOther->SetWindowText(text);
}

BOOL CCmdUI::DoUpdate(CCmdTarget* target, BOOL disableIfNoHandler)
{
    enableChanged = false;
    const BOOL handled = target->OnCmdMsg(m_nID, CN_UPDATE_COMMAND_UI, this, nullptr);
    if (disableIfNoHandler && !enableChanged)
    {
        int info = 0;
        target->OnCmdMsg(m_nID, CN_COMMAND, this, &info);
        Enable(info != 0);
    }
    return handled;
}
