// Menus: items, their lookup by position or command, and the reading of menu resources.
#include "platform/win/native/menus.h"

#include "platform/win/native/bytes.h"

#include <cstdint>
#include <unordered_map>

namespace kv::win
{
namespace
{
std::unordered_map<HMENU, std::unique_ptr<Menu>>& Menus()
{
    static auto& menus = *new std::unordered_map<HMENU, std::unique_ptr<Menu>>;
    return menus;
}

struct Place
{
    Menu* menu = nullptr;
    size_t index = 0;
    explicit operator bool() const { return menu != nullptr; }
    Menu::Item& Item() const { return menu->items[index]; }
};

// By command, popups are searched too.
Place FindItem(HMENU handle, UINT item, UINT flags)
{
    Menu* menu = FindMenu(handle);
    if (!menu)
        return {};
    if (flags & MF_BYPOSITION)
        return item < menu->items.size() ? Place{menu, item} : Place{};
    for (size_t i = 0; i < menu->items.size(); ++i)
    {
        const Menu::Item& found = menu->items[i];
        if (found.popup)
        {
            if (const Place inner = FindItem(found.popup, item, flags))
                return inner;
        }
        else if (!(found.flags & MF_SEPARATOR) && found.id == item)
            return {menu, i};
    }
    return {};
}

Menu::Item MakeItem(UINT flags, UINT_PTR id, const CString& text)
{
    Menu::Item item;
    item.flags = flags & (MF_GRAYED | MF_DISABLED | MF_CHECKED | MF_POPUP | MF_SEPARATOR);
    if (flags & MF_POPUP)
        item.popup = reinterpret_cast<HMENU>(id);
    else
        item.id = static_cast<UINT>(id);
    item.text = text;
    return item;
}

constexpr WORD endOfPopup = 0x80;

// The items of one popup, in the standard form.
HMENU ReadPopup(Reader& reader, int depth)
{
    const HMENU handle = CreatePopupMenu();
    for (bool last = false; !last && !reader.AtEnd() && depth < 16;)
    {
        const auto flags = reader.Next<WORD>();
        last = (flags & endOfPopup) != 0;
        const bool popup = (flags & MF_POPUP) != 0;
        const UINT id = popup ? 0 : reader.Next<WORD>();
        const CString text = reader.Text();
        const UINT state = flags & (MF_GRAYED | MF_DISABLED | MF_CHECKED);
        if (popup)
            AppendMenuW(handle, state | MF_POPUP, reinterpret_cast<UINT_PTR>(ReadPopup(reader, depth + 1)), text);
        else
            AppendMenuW(handle, id == 0 && text.IsEmpty() ? MF_SEPARATOR : state, id, text);
    }
    return handle;
}
} // namespace

Menu* FindMenu(HMENU handle)
{
    const auto found = Menus().find(handle);
    return found == Menus().end() ? nullptr : found->second.get();
}
} // namespace kv::win

using namespace kv::win;

HMENU CreateMenu()
{
    static std::uintptr_t last = 0;
    const auto handle = reinterpret_cast<HMENU>(++last);
    Menus()[handle] = std::make_unique<Menu>();
    return handle;
}

HMENU CreatePopupMenu()
{
    return CreateMenu();
}

HMENU LoadMenuW(const CDynLinkLibrary* module, UINT id)
{
    if (!module)
        return nullptr;
    const ResourceImage::Bytes data = module->Resources().Find(ResourceKind::Menu, id);
    if (data.empty())
        return nullptr;
    Reader reader(data);
    const auto version = reader.Next<WORD>();
    const auto header = reader.Next<WORD>();
    reader.Skip(header);
    return version == 0 ? ReadPopup(reader, 0) : nullptr;
}

BOOL DestroyMenu(HMENU handle)
{
    Menu* menu = FindMenu(handle);
    if (!menu)
        return FALSE;
    if (menu->object)
        menu->object->m_hMenu = nullptr;
    if (menu->borrower)
        menu->borrower->m_hMenu = nullptr;
    std::vector<HMENU> popups;
    for (const Menu::Item& item : menu->items)
    {
        if (item.popup)
            popups.push_back(item.popup);
    }
    Menus().erase(handle);
    for (const HMENU popup : popups)
        DestroyMenu(popup);
    return TRUE;
}

BOOL IsMenu(HMENU handle)
{
    return FindMenu(handle) != nullptr;
}

HMENU GetSubMenu(HMENU handle, int position)
{
    const Place place = position < 0 ? Place{} : FindItem(handle, static_cast<UINT>(position), MF_BYPOSITION);
    return place ? place.Item().popup : nullptr;
}

int GetMenuItemCount(HMENU handle)
{
    const Menu* menu = FindMenu(handle);
    return menu ? static_cast<int>(menu->items.size()) : -1;
}

UINT GetMenuItemID(HMENU handle, int position)
{
    const Place place = position < 0 ? Place{} : FindItem(handle, static_cast<UINT>(position), MF_BYPOSITION);
    return !place || place.Item().popup ? UINT(-1) : place.Item().id;
}

UINT GetMenuState(HMENU handle, UINT item, UINT flags)
{
    const Place place = FindItem(handle, item, flags);
    return place ? place.Item().flags : UINT(-1);
}

BOOL AppendMenuW(HMENU handle, UINT flags, UINT_PTR id, const CString& text)
{
    Menu* menu = FindMenu(handle);
    if (!menu)
        return FALSE;
    menu->items.push_back(MakeItem(flags, id, text));
    return TRUE;
}

BOOL InsertMenuW(HMENU handle, UINT item, UINT flags, UINT_PTR id, const CString& text)
{
    const Place place = FindItem(handle, item, flags);
    if (!place)
        return AppendMenuW(handle, flags, id, text);
    place.menu->items.insert(place.menu->items.begin() + static_cast<std::ptrdiff_t>(place.index),
                             MakeItem(flags, id, text));
    return TRUE;
}

BOOL ModifyMenuW(HMENU handle, UINT item, UINT flags, UINT_PTR id, const CString& text)
{
    const Place place = FindItem(handle, item, flags);
    if (!place)
        return FALSE;
    const HMENU former = place.Item().popup;
    place.Item() = MakeItem(flags, id, text);
    if (former && former != place.Item().popup)
        DestroyMenu(former);
    return TRUE;
}

BOOL RemoveMenu(HMENU handle, UINT item, UINT flags)
{
    const Place place = FindItem(handle, item, flags);
    if (!place)
        return FALSE;
    place.menu->items.erase(place.menu->items.begin() + static_cast<std::ptrdiff_t>(place.index));
    return TRUE;
}

BOOL DeleteMenu(HMENU handle, UINT item, UINT flags)
{
    const Place place = FindItem(handle, item, flags);
    const HMENU popup = place ? place.Item().popup : nullptr;
    const BOOL removed = RemoveMenu(handle, item, flags);
    DestroyMenu(popup);
    return removed;
}

DWORD CheckMenuItem(HMENU handle, UINT item, UINT flags)
{
    const Place place = FindItem(handle, item, flags);
    if (!place)
        return DWORD(-1);
    const UINT former = place.Item().flags & MF_CHECKED;
    place.Item().flags = (place.Item().flags & ~MF_CHECKED) | (flags & MF_CHECKED);
    return former;
}

int EnableMenuItem(HMENU handle, UINT item, UINT flags)
{
    const Place place = FindItem(handle, item, flags);
    if (!place)
        return -1;
    constexpr UINT off = MF_GRAYED | MF_DISABLED;
    const UINT former = place.Item().flags & off;
    place.Item().flags = (place.Item().flags & ~off) | (flags & off);
    return static_cast<int>(former);
}

CString GetMenuStringW(HMENU handle, UINT item, UINT flags)
{
    const Place place = FindItem(handle, item, flags);
    return place ? place.Item().text : CString();
}

IMPLEMENT_DYNCREATE(CMenu, CObject)

CMenu* CMenu::FromHandle(HMENU handle)
{
    Menu* menu = FindMenu(handle);
    if (!menu)
        return nullptr;
    if (menu->object)
        return menu->object;
    if (!menu->borrower)
    {
        menu->borrower = std::make_unique<CMenu>();
        menu->borrower->m_hMenu = handle;
    }
    return menu->borrower.get();
}

HMENU CMenu::GetSafeHmenu() const
{
    return m_hMenu;
}

BOOL CMenu::Attach(HMENU handle)
{
    Menu* menu = FindMenu(handle);
    if (!menu)
        return FALSE;
    m_hMenu = handle;
    menu->object = this;
    return TRUE;
}

HMENU CMenu::Detach()
{
    const HMENU handle = std::exchange(m_hMenu, nullptr);
    if (Menu* menu = FindMenu(handle))
        menu->object = nullptr;
    return handle;
}

BOOL CMenu::LoadMenu(UINT id)
{
    return Attach(::LoadMenuW(AfxFindResourceHandle(ResourceKind::Menu, id), id));
}

// A borrowing object loses its handle before the menu's record deletes it, so it never frees the menu again.
BOOL CMenu::DestroyMenu()
{
    return m_hMenu ? ::DestroyMenu(std::exchange(m_hMenu, nullptr)) : FALSE;
}

BOOL CMenu::AppendMenu(UINT flags, UINT_PTR id, const CString& text)
{
    return ::AppendMenuW(m_hMenu, flags, id, text);
}

BOOL CMenu::InsertMenu(UINT item, UINT flags, UINT_PTR id, const CString& text)
{
    return ::InsertMenuW(m_hMenu, item, flags, id, text);
}

BOOL CMenu::ModifyMenu(UINT item, UINT flags, UINT_PTR id, const CString& text)
{
    return ::ModifyMenuW(m_hMenu, item, flags, id, text);
}

int CMenu::GetMenuString(UINT item, CString& text, UINT flags) const
{
    text = ::GetMenuStringW(m_hMenu, item, flags);
    return text.GetLength();
}

CMenu* CMenu::GetSubMenu(int position) const
{
    return FromHandle(::GetSubMenu(m_hMenu, position));
}
