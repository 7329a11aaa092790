// Where a session's coordinates point to.
#pragma once

#include "apps/session/arguments.h"
#include "apps/session/player.h"

namespace kv::session
{

enum class Coordinates
{
    Image,  // AOI pixels of the view
    Client, // client pixels of the view
    Host    // client pixels of the host or the open dialog
};

struct Spot
{
    HWND window;
    CPoint point; // client pixels of the window
};

// The two words from `i` on, in the coordinates that are in force.
Spot SpotOf(Player& player, const Arguments& words, size_t i);

// The client pixel of an AOI pixel, by the view's own conversion.
CPoint ClientPoint(const KvN::KvAOIBaseViewWnd& view, CPoint image);

} // namespace kv::session
