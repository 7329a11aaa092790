// TrackPopupMenu on QMenu, and the look into the open menu.
#include "platform/win/framewnd.h"
#include "platform/win/modal.h"
#include "platform/win/native/dispatch.h"
#include "platform/win/native/input_state.h"
#include "platform/win/native/menus.h"
#include "platform/win/native/modal_loop.h"

#include <QMenu>

namespace kv::win
{
namespace
{
struct OpenMenu
{
    HMENU menu;
    QMenu* shown;
    UINT chosen = 0;
};

std::vector<OpenMenu*>& OpenMenus()
{
    static std::vector<OpenMenu*> open;
    return open;
}

QString ToQString(const CString& text)
{
    return QString::fromStdU16String(text.Units());
}

void Fill(QMenu& shown, HMENU handle)
{
    const Menu* menu = FindMenu(handle);
    if (!menu)
        return;
    for (const Menu::Item& item : menu->items)
    {
        if (item.flags & MF_SEPARATOR)
        {
            shown.addSeparator();
            continue;
        }
        if (item.popup)
        {
            QMenu* inner = shown.addMenu(ToQString(item.text));
            inner->setEnabled(item.Enabled());
            Fill(*inner, item.popup);
            continue;
        }
        QAction* action = shown.addAction(ToQString(item.text));
        action->setEnabled(item.Enabled());
        action->setCheckable((item.flags & MF_CHECKED) != 0);
        action->setChecked((item.flags & MF_CHECKED) != 0);
        action->setData(item.id);
    }
}

UINT Run(HMENU handle, QWidget* owner, QPoint at)
{
    QMenu shown(owner);
    Fill(shown, handle);
    if (shown.isEmpty())
        return 0;
    OpenMenu open{handle, &shown};
    QObject::connect(&shown, &QMenu::triggered, [&open](QAction* action) { open.chosen = action->data().toUInt(); });
    OpenMenus().push_back(&open);
    struct Scope
    {
        ~Scope() { OpenMenus().pop_back(); }
    } scope;
    shown.popup(at);
    RunModal([&shown] { return shown.isVisible(); });
    return open.chosen;
}

std::vector<MenuItem> ItemsOf(HMENU handle)
{
    std::vector<MenuItem> items;
    const Menu* menu = FindMenu(handle);
    if (!menu)
        return items;
    for (const Menu::Item& item : menu->items)
    {
        const MenuItem::Kind kind = item.flags & MF_SEPARATOR ? MenuItem::Separator
                                    : item.popup              ? MenuItem::Popup
                                                              : MenuItem::Command;
        items.push_back({kind, item.id, item.text, (item.flags & MF_CHECKED) != 0, item.Enabled(),
                         item.popup ? ItemsOf(item.popup) : std::vector<MenuItem>()});
    }
    return items;
}

bool CanChoose(const std::vector<MenuItem>& items, UINT id)
{
    for (const MenuItem& item : items)
    {
        if (!item.enabled)
            continue;
        if (item.kind == MenuItem::Command && item.id == id)
            return true;
        if (item.kind == MenuItem::Popup && CanChoose(item.items, id))
            return true;
    }
    return false;
}

// The update handlers of every item of the menu and its popups.
class MenuItemUI : public CCmdUI
{
public:
    MenuItemUI(CMenu& menu, UINT index, UINT id)
    {
        m_pMenu = &menu;
        m_nIndex = index;
        m_nID = id;
    }
};

void UpdateItems(HMENU handle, CCmdTarget& target)
{
    const int count = GetMenuItemCount(handle);
    for (int i = 0; i < count; ++i)
    {
        if (const HMENU popup = GetSubMenu(handle, i))
        {
            UpdateItems(popup, target);
            continue;
        }
        const UINT id = GetMenuItemID(handle, i);
        if (id != 0)
            MenuItemUI(*CMenu::FromHandle(handle), static_cast<UINT>(i), id).DoUpdate(&target, TRUE);
    }
}
} // namespace

bool IsMenuOpen()
{
    return !OpenMenus().empty() && OpenMenus().back()->shown->isVisible();
}

std::vector<MenuItem> OpenMenuItems()
{
    return IsMenuOpen() ? ItemsOf(OpenMenus().back()->menu) : std::vector<MenuItem>();
}

bool ChooseMenuItem(UINT id)
{
    if (!IsMenuOpen() || !CanChoose(OpenMenuItems(), id))
        return false;
    OpenMenus().back()->chosen = id;
    OpenMenus().back()->shown->close();
    return true;
}

bool DismissMenu()
{
    return IsMenuOpen() && OpenMenus().back()->shown->close();
}
} // namespace kv::win

using namespace kv::win;

BOOL TrackPopupMenu(HMENU handle, UINT flags, int x, int y, int, HWND owner, const RECT*)
{
    Window* window = Find(owner);
    if (!window || !IsMenu(handle))
        return FALSE;
    ReleaseCapture();
    const UINT chosen = Run(handle, window->widget, QPoint(x, y));
    if (flags & TPM_RETURNCMD)
        return static_cast<BOOL>(chosen);
    if (chosen != 0 && !(flags & TPM_NONOTIFY))
        PostMessageW(owner, WM_COMMAND, MAKEWPARAM(static_cast<int>(chosen), 0), 0);
    return TRUE;
}

BOOL CMenu::TrackPopupMenu(UINT flags, int x, int y, CWnd* owner, const RECT* rect)
{
    if (owner && owner->m_hWnd)
        UpdateItems(m_hMenu, *owner);
    return ::TrackPopupMenu(m_hMenu, flags, x, y, 0, owner ? owner->m_hWnd : nullptr, rect);
}
