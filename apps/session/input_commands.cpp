// Commands of the mouse and the keyboard. They enter where the platform's own input enters.
#include "apps/session/commands.h"
#include "apps/session/player.h"
#include "apps/session/pointing.h"
#include "platform/win/input.h"

#include <cctype>
#include <cmath>
#include <map>

namespace kv::session
{

namespace
{
using kv::win::Button;

Button ButtonOf(const Arguments& words, size_t i)
{
    if (words.Is(i, "left"))
        return Button::Left;
    if (words.Is(i, "right"))
        return Button::Right;
    if (words.Is(i, "middle"))
        return Button::Middle;
    throw CommandError("\"" + words.Text(i) + "\" is no mouse button");
}

UINT KeyOf(const std::string& name)
{
    static const std::map<std::string, UINT> keys = {
        {"shift", VK_SHIFT},  {"ctrl", VK_CONTROL}, {"alt", VK_MENU},    {"escape", VK_ESCAPE}, {"delete", VK_DELETE},
        {"enter", VK_RETURN}, {"tab", VK_TAB},      {"space", VK_SPACE}, {"left", VK_LEFT},     {"right", VK_RIGHT},
        {"up", VK_UP},        {"down", VK_DOWN},    {"menu", VK_APPS}};
    if (const auto found = keys.find(name); found != keys.end())
        return found->second;
    if (name.size() == 1 && std::isalnum(static_cast<unsigned char>(name[0])))
        return static_cast<UINT>(std::toupper(static_cast<unsigned char>(name[0])));
    throw CommandError("\"" + name + "\" is no key");
}

void GoTo(const Spot& spot)
{
    if (!kv::win::IsMouseAt(spot.window, spot.point))
        kv::win::MoveMouse(spot.window, spot.point);
}

void Press(const Spot& spot, Button button)
{
    GoTo(spot);
    kv::win::PressButton(spot.window, button, spot.point);
}

void Release(const Spot& spot, Button button)
{
    GoTo(spot);
    kv::win::ReleaseButton(spot.window, button, spot.point);
}

// `coords client`, `coords image`, `coords host`.
void Coords(Player& player, const Arguments& words)
{
    Coordinates& coordinates = player.Get<Coordinates>();
    if (words.Is(0, "image"))
        coordinates = Coordinates::Image;
    else if (words.Is(0, "client"))
        coordinates = Coordinates::Client;
    else if (words.Is(0, "host"))
        coordinates = Coordinates::Host;
    else
        throw CommandError("\"" + words.Text(0) + "\" are no coordinates");
}

void Move(Player& player, const Arguments& words)
{
    const Spot spot = SpotOf(player, words, 0);
    kv::win::MoveMouse(spot.window, spot.point);
}

void PressCommand(Player& player, const Arguments& words)
{
    const Button button = ButtonOf(words, 0);
    Press(SpotOf(player, words, 1), button);
}

void ReleaseCommand(Player& player, const Arguments& words)
{
    const Button button = ButtonOf(words, 0);
    Release(SpotOf(player, words, 1), button);
}

void Click(Player& player, const Arguments& words)
{
    const Button button = ButtonOf(words, 0);
    const Spot spot = SpotOf(player, words, 1);
    Press(spot, button);
    Release(spot, button);
}

void Double(Player& player, const Arguments& words)
{
    const Button button = ButtonOf(words, 0);
    const Spot spot = SpotOf(player, words, 1);
    Press(spot, button);
    Release(spot, button);
    kv::win::DoublePressButton(spot.window, button, spot.point);
    Release(spot, button);
}

// Equal moves in client pixels, rounded; the last one ends where the button is released.
void Drag(Player& player, const Arguments& words)
{
    const Button button = ButtonOf(words, 0);
    const Spot from = SpotOf(player, words, 1);
    const Spot to = SpotOf(player, words, 3);
    const long steps = words.Count() > 5 ? words.Integer(5, 1, 10000) : 4;
    const auto between = [&](int a, int b, long step)
    { return static_cast<int>(std::lround(a + static_cast<double>(b - a) * step / static_cast<double>(steps))); };
    Press(from, button);
    for (long step = 1; step <= steps; ++step)
        kv::win::MoveMouse(from.window,
                           CPoint(between(from.point.x, to.point.x, step), between(from.point.y, to.point.y, step)));
    Release(to, button);
}

void Leave(Player&, const Arguments&)
{
    kv::win::LeaveMouse();
}

void KeyDown(Player&, const Arguments& words)
{
    kv::win::PressKey(KeyOf(words.Text(0)));
}
void KeyUp(Player&, const Arguments& words)
{
    kv::win::ReleaseKey(KeyOf(words.Text(0)));
}
void KeyPress(Player&, const Arguments& words)
{
    const UINT key = KeyOf(words.Text(0));
    kv::win::PressKey(key);
    kv::win::ReleaseKey(key);
}
} // namespace

Spot SpotOf(Player& player, const Arguments& words, size_t i)
{
    const CPoint point(static_cast<int>(words.Integer(i)), static_cast<int>(words.Integer(i + 1)));
    const Coordinates coordinates = player.Get<Coordinates>();
    if (coordinates == Coordinates::Host)
        return {player.stage.TopLevel().m_hWnd, point};
    KvN::KvAOIBaseViewWnd& view = player.stage.View();
    if (coordinates == Coordinates::Client)
        return {view.m_hWnd, point};
    return {view.m_hWnd, ClientPoint(view, point)};
}

CPoint ClientPoint(const KvN::KvAOIBaseViewWnd& view, CPoint image)
{
    view.ViewLPtoDP(&image, 1);
    return image;
}

void AddInputCommands(CommandTable& table)
{
    table.Add("coords", 1, 1, Coords);
    table.Add("move", 2, 2, Move);
    table.Add("press", 3, 3, PressCommand);
    table.Add("release", 3, 3, ReleaseCommand);
    table.Add("click", 3, 3, Click);
    table.Add("double", 3, 3, Double);
    table.Add("drag", 5, 6, Drag);
    table.Add("leave", 0, 0, Leave);
    table.Add("key down", 1, 1, KeyDown);
    table.Add("key up", 1, 1, KeyUp);
    table.Add("key press", 1, 1, KeyPress);
}

} // namespace kv::session
