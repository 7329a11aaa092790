// Commands of an open dialog's controls and toolbar. They are pressed with the mouse, as a person does.
#include "apps/session/commands.h"
#include "apps/session/format.h"
#include "apps/session/mask_commands.h"
#include "apps/session/player.h"
#include "contracts/apptools.h"
#include "platform/win/input.h"

#include <cmath>
#include <optional>

namespace kv::session
{

namespace
{
using kv::win::Button;

CWnd& DialogOf(const Player& player)
{
    if (!player.stage.Dialog())
        throw CommandError("no dialog is open");
    return *player.stage.Dialog();
}

// A control that is there.
HWND Find(const Player& player, const Arguments& words, size_t i)
{
    const long id = words.Integer(i);
    const HWND control = GetDlgItem(DialogOf(player), static_cast<int>(id));
    if (!control)
        throw CommandError("the dialog has no control " + std::to_string(id));
    return control;
}

// A control that can be used.
HWND Usable(const Player& player, const Arguments& words, size_t i)
{
    const HWND control = Find(player, words, i);
    if (!IsWindowVisible(control))
        throw CommandError("control " + words.Text(i) + " is hidden");
    if (!IsWindowEnabled(control))
        throw CommandError("control " + words.Text(i) + " is disabled");
    return control;
}

void ClickAt(HWND window, CPoint point)
{
    kv::win::MoveMouse(window, point);
    kv::win::PressButton(window, Button::Left, point);
    kv::win::ReleaseButton(window, Button::Left, point);
}

void ClickMiddle(HWND window)
{
    CRect client;
    GetClientRect(window, &client);
    ClickAt(window, client.CenterPoint());
}

// ---- Kinds of control, told by what they answer

bool HasCheck(HWND control)
{
    const auto kind = static_cast<DWORD>(GetWindowLongPtrW(control, GWL_STYLE)) & 0xF;
    return kind == BS_AUTOCHECKBOX || kind == BS_AUTORADIOBUTTON;
}

bool IsChecked(HWND control)
{
    return SendMessageW(control, BM_GETCHECK, 0, 0) == BST_CHECKED;
}

KvN::KvSpinEdit* AsSpinEdit(HWND control)
{
    return dynamic_cast<KvN::KvSpinEdit*>(CWnd::FromHandlePermanent(control));
}

bool IsTrackbar(HWND control)
{
    return SendMessageW(control, TBM_GETRANGEMAX, 0, 0) > SendMessageW(control, TBM_GETRANGEMIN, 0, 0);
}

std::optional<double> ValueOf(HWND control)
{
    if (const auto* spin = AsSpinEdit(control))
        return spin->GetValue();
    if (IsTrackbar(control))
        return static_cast<double>(SendMessageW(control, TBM_GETPOS, 0, 0));
    return std::nullopt;
}

// ---- Commands

void ControlCheck(HWND control, bool on, const std::string& id)
{
    if (!HasCheck(control))
        throw CommandError("control " + id + " can't be checked");
    if (IsChecked(control) != on)
        ClickMiddle(control);
}

void ControlValue(HWND control, double value, const std::string& id)
{
    if (auto* spin = AsSpinEdit(control))
    {
        spin->SetValue(value);
        return;
    }
    if (!IsTrackbar(control))
        throw CommandError("control " + id + " has no value");
    SendMessageW(control, TBM_SETPOS, TRUE, static_cast<LPARAM>(std::lround(value)));
    const auto position = static_cast<WPARAM>(SendMessageW(control, TBM_GETPOS, 0, 0));
    SendMessageW(GetParent(control), WM_HSCROLL, (position << 16) | TB_THUMBPOSITION,
                 reinterpret_cast<LPARAM>(control));
}

void Control(Player& player, const Arguments& words)
{
    const HWND control = Usable(player, words, 0);
    if (words.Is(1, "click") && words.Count() == 2)
        ClickMiddle(control);
    else if (words.Is(1, "check"))
        ControlCheck(control, words.OnOff(2), words.Text(0));
    else if (words.Is(1, "value"))
        ControlValue(control, words.Number(2), words.Text(0));
    else
        throw CommandError("\"" + words.Text(1) + "\" can't be done to a control");
}

template <int id>
void DialogButton(Player& player, const Arguments&)
{
    ClickMiddle(Usable(player, Arguments({std::to_string(id)}), 0));
}

// ---- The toolbar that shows

CToolBar& ToolBarOf(const Player& player)
{
    for (CWnd* child = DialogOf(player).GetTopWindow(); child; child = child->GetNextWindow())
        if (auto* bar = dynamic_cast<CToolBar*>(child); bar && bar->IsWindowVisible())
            return *bar;
    throw CommandError("no toolbar shows");
}

void ToolBar(Player& player, const Arguments& words)
{
    CToolBar& bar = ToolBarOf(player);
    const long id = words.Integer(0, 1, 65535);
    const int index = bar.CommandToIndex(static_cast<UINT>(id));
    if (index < 0)
        throw CommandError("the toolbar has no button " + std::to_string(id));
    if (!bar.IsButtonEnabled(static_cast<int>(id)))
        throw CommandError("button " + std::to_string(id) + " is disabled");
    CRect button;
    bar.GetItemRect(index, &button);
    ClickAt(bar.m_hWnd, button.CenterPoint());
}

void PrintToolBar(Player& player, const Arguments&)
{
    const CToolBar& bar = ToolBarOf(player);
    for (int i = 0; i < bar.GetCount(); ++i)
        if (const int id = static_cast<int>(bar.GetItemID(i)))
            player.Print("button " + std::to_string(id) + " enabled=" + Bit(bar.IsButtonEnabled(id)) +
                         " checked=" + Bit(bar.IsButtonChecked(id)));
}

void PrintControl(Player& player, const Arguments& words)
{
    const HWND control = Find(player, words, 0);
    CRect place;
    GetWindowRect(control, &place);
    CPoint corner = place.TopLeft();
    DialogOf(player).ScreenToClient(&corner);
    const std::optional<double> value = ValueOf(control);
    player.Print("control " + words.Text(0) + " text=" + Quoted(GetWindowTextOf(control).Utf8()) +
                 " rect=" + Number(corner.x) + "," + Number(corner.y) + "," + Number(place.Width()) + "," +
                 Number(place.Height()) + " visible=" + Bit(IsWindowVisible(control)) + " enabled=" +
                 Bit(IsWindowEnabled(control)) + " checked=" + (HasCheck(control) ? Bit(IsChecked(control)) : "none") +
                 " value=" + (value ? Number(*value) : "none"));
}
} // namespace

void AddDialogControlCommands(CommandTable& table)
{
    table.Add("control", 2, 3, Control);
    table.Add("toolbar", 1, 1, ToolBar);
    table.Add("ok", 0, 0, DialogButton<IDOK>);
    table.Add("cancel", 0, 0, DialogButton<IDCANCEL>);
    table.Add("print control", 1, 1, PrintControl);
    table.Add("print toolbar", 0, 0, PrintToolBar);
}

} // namespace kv::session
