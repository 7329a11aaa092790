// All windows there are, found by handle or widget.
#include "platform/win/native/dispatch.h"
#include "platform/win/native/input_state.h"

#include <unordered_map>

namespace kv::win
{
namespace
{
struct Registry
{
    std::unordered_map<HWND, std::unique_ptr<Window>> byHandle;
    std::unordered_map<const QObject*, Window*> byWidget;
    std::vector<Window*> inOrder;
};

// Never freed: windows of static storage may outlive it.
Registry& All()
{
    static auto& registry = *new Registry;
    return registry;
}
} // namespace

void Register(std::unique_ptr<Window> window, QWidget* widget)
{
    window->widget = widget;
    All().byWidget[widget] = window.get();
    All().inOrder.push_back(window.get());
    const HWND handle = window->handle;
    QObject::connect(widget, &QObject::destroyed,
                     [handle](QObject* gone)
                     {
                         All().byWidget.erase(gone);
                         if (Find(handle))
                             Guarded([handle] { DestroyWindow(handle); });
                     });
    All().byHandle[handle] = std::move(window);
}

Window* Find(HWND handle)
{
    const auto found = All().byHandle.find(handle);
    return found == All().byHandle.end() ? nullptr : found->second.get();
}

Window* FindByWidget(const QWidget* widget)
{
    const auto found = All().byWidget.find(widget);
    return found == All().byWidget.end() ? nullptr : found->second;
}

Window* FindAbove(const QWidget* widget)
{
    for (; widget; widget = widget->parentWidget())
    {
        if (Window* window = FindByWidget(widget))
            return window;
    }
    return nullptr;
}

const std::vector<Window*>& AllWindows()
{
    return All().inOrder;
}
void Forget(Window& window)
{
    const HWND handle = window.handle;
    if (window.parent)
        std::erase(window.parent->children, &window);
    std::erase(All().inOrder, &window);
    WindowGone(handle);
    if (QWidget* widget = window.widget)
    {
        All().byWidget.erase(widget);
        if (window.ownsWidget)
        {
            widget->disconnect();
            widget->hide();
            widget->deleteLater();
        }
    }
    All().byHandle.erase(handle);
}
} // namespace kv::win
