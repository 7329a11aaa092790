// Commands of the context menu, and of the view's switches for it.
#include "apps/session/commands.h"
#include "apps/session/format.h"
#include "apps/session/player.h"
#include "apps/session/pointing.h"
#include "apps/session/switch.h"
#include "platform/win/input.h"
#include "platform/win/modal.h"

namespace kv::session
{

namespace
{
using kv::win::MenuItem;
using KvN::KvAOIBaseViewWnd;

// A right click; what follows acts in the menu, if one opens, until it closes.
void Open(Player& player, const Arguments& words)
{
    const Spot spot = SpotOf(player, words, 0);
    if (!kv::win::IsMouseAt(spot.window, spot.point))
        kv::win::MoveMouse(spot.window, spot.point);
    kv::win::PressButton(spot.window, kv::win::Button::Right, spot.point);
    kv::win::ReleaseButton(spot.window, kv::win::Button::Right, spot.point);
}

void OpenByKey(Player&, const Arguments&)
{
    kv::win::PressKey(VK_APPS);
    kv::win::ReleaseKey(VK_APPS);
}

void RequireOpenMenu()
{
    if (!kv::win::IsMenuOpen())
        throw CommandError("no menu is open");
}

void Choose(Player&, const Arguments& words)
{
    const auto id = static_cast<UINT>(words.Integer(0, 0, 65535));
    RequireOpenMenu();
    if (!kv::win::ChooseMenuItem(id))
        throw CommandError("the menu has no enabled item " + words.Text(0));
}

void Dismiss(Player&, const Arguments&)
{
    RequireOpenMenu();
    kv::win::DismissMenu();
}

void Kind(Player& player, const Arguments& words)
{
    const auto kind = static_cast<int>(words.Integer(0));
    player.stage.View().UseContextMenu(kind);
}

void PrintItem(Player& player, const MenuItem& item, const std::string& indent)
{
    const std::string enabled = std::string(" enabled=") + Bit(item.enabled);
    switch (item.kind)
    {
    case MenuItem::Separator:
        player.Print(indent + "separator");
        break;
    case MenuItem::Popup:
        player.Print(indent + "popup " + Quoted(item.text.Utf8()) + enabled);
        for (const MenuItem& inner : item.items)
            PrintItem(player, inner, indent + "  ");
        break;
    case MenuItem::Command:
        player.Print(indent + "item " + std::to_string(item.id) + " " + Quoted(item.text.Utf8()) +
                     " checked=" + Bit(item.checked) + enabled);
        break;
    }
}

void PrintMenu(Player& player, const Arguments&)
{
    if (!kv::win::IsMenuOpen())
    {
        player.Print("menu none");
        return;
    }
    for (const MenuItem& item : kv::win::OpenMenuItems())
        PrintItem(player, item, "");
}
} // namespace

void AddMenuCommands(CommandTable& table)
{
    table.Add("menu open", 2, 2, Open);
    table.Add("menu key", 0, 0, OpenByKey);
    table.Add("menu choose", 1, 1, Choose);
    table.Add("menu dismiss", 0, 0, Dismiss);
    table.Add("menu kind", 1, 1, Kind);
    table.Add("menu right", 1, 1,
              Switch<&KvAOIBaseViewWnd::EnableRightButtonMenu, &KvAOIBaseViewWnd::DisableRightButtonMenu>);
    table.Add("menu zoom", 1, 1, Switch<&KvAOIBaseViewWnd::EnableMenuZoom, &KvAOIBaseViewWnd::DisableMenuZoom>);
    table.Add("menu lut", 1, 1, Switch<&KvAOIBaseViewWnd::EnableMenuOLut, &KvAOIBaseViewWnd::DisableMenuOLut>);
    table.Add("menu background", 1, 1,
              Switch<&KvAOIBaseViewWnd::EnableMenuBackground, &KvAOIBaseViewWnd::DisableMenuBackground>);
    table.Add("print menu", 0, 0, PrintMenu);
}

} // namespace kv::session
