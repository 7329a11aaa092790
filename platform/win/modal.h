// What a program that plays input does while a dialog, message box or menu runs, and a look into the open ones.
#pragma once

#include "platform/win/wnd.h"

#include <functional>
#include <vector>

namespace kv::win
{
// While one is set, DoModal, message boxes and TrackPopupMenu call it again and again instead of waiting for events,
// until what they show has closed. Without one they run an ordinary nested event loop. An exception that the hook
// throws closes the dialog or menu and comes out of the call.
void SetModalHook(std::function<void()> hook);

// The innermost running modal dialog or message box; null if none runs.
HWND ActiveModal();

struct MessageBoxText
{
    CString text;
    CString caption;
    UINT type;
};
// The message box that runs innermost, and its end with one of the results IDOK ... IDNO.
const MessageBoxText* OpenMessageBox();
bool CloseMessageBox(int result); // false if none runs or it has no such button

struct MenuItem
{
    enum Kind
    {
        Command,
        Popup,
        Separator
    };
    Kind kind;
    UINT id; // of a command
    CString text;
    bool checked;
    bool enabled;
    std::vector<MenuItem> items; // of a popup
};

bool IsMenuOpen();
// The items of the open menu, with every popup as if it were opened. Empty if none is open.
std::vector<MenuItem> OpenMenuItems();
// As a click on the item, wherever it stands; false if there is no such item or it or a popup on its way is disabled.
bool ChooseMenuItem(UINT id);
bool DismissMenu(); // false if none is open
} // namespace kv::win
