// Commands of the form `... on/off`.
#pragma once

#include "apps/session/player.h"

namespace kv::session
{

// Calls one of two operations of the view.
template <auto on, auto off>
void Switch(Player& player, const Arguments& words)
{
    const bool enable = words.OnOff(0);
    KvN::KvAOIBaseViewWnd& view = player.stage.View();
    if (enable)
        (view.*on)();
    else
        (view.*off)();
}

} // namespace kv::session
