// Modal loops: by the hook of a program that plays input, or by a nested event loop.
#include "platform/win/native/modal_loop.h"

#include "platform/win/modal.h"
#include "platform/win/native/dispatch.h"
#include "platform/win/native/input_state.h"

#include <QEventLoop>

namespace kv::win
{
namespace
{
std::function<void()> modalHook;
}

void SetModalHook(std::function<void()> hook)
{
    modalHook = std::move(hook);
}

void RunModal(const std::function<bool()>& open)
{
    while (open() && !HasKept())
    {
        if (modalHook)
        {
            const std::function<void()> hook = modalHook; // it may replace itself
            hook();
        }
        else
            QEventLoop().processEvents(QEventLoop::WaitForMoreEvents);
    }
    RethrowKept();
}

BlockOthers::BlockOthers(HWND running) : formerFocus(input.focus)
{
    ReleaseCapture();
    for (Window* window : AllWindows())
    {
        if (window->parent || window->handle == running || !window->ownsWidget)
            continue;
        ++window->modalBlocks;
        blocked.push_back(window->handle);
    }
    ModalStack().push_back(running);
}

BlockOthers::~BlockOthers()
{
    ModalStack().pop_back();
    for (const HWND handle : blocked)
    {
        if (Window* window = Find(handle))
            --window->modalBlocks;
    }
    if (IsWindow(formerFocus))
        Guarded([this] { SetFocus(formerFocus); });
}

std::vector<HWND>& ModalStack()
{
    static std::vector<HWND> stack;
    return stack;
}

HWND ActiveModal()
{
    return ModalStack().empty() ? nullptr : ModalStack().back();
}
} // namespace kv::win
