// Menus as data, behind their handles.
#pragma once

#include "platform/win/menu.h"

#include <memory>
#include <vector>

namespace kv::win
{
struct Menu
{
    struct Item
    {
        UINT flags = 0; // MF_GRAYED, MF_DISABLED, MF_CHECKED, MF_POPUP, MF_SEPARATOR
        UINT id = 0;
        HMENU popup = nullptr; // owned
        CString text;
        bool Enabled() const { return (flags & (MF_GRAYED | MF_DISABLED)) == 0; }
    };
    std::vector<Item> items;
    CMenu* object = nullptr;
    std::unique_ptr<CMenu> borrower;
};

Menu* FindMenu(HMENU handle); // null for a null or stale handle
} // namespace kv::win
