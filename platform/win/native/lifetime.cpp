// Making windows, taking in widgets that somebody else owns, and destroying windows with all that belongs to them.
#include "platform/win/native/classes.h"
#include "platform/win/native/dispatch.h"
#include "platform/win/native/translate.h"

namespace kv::win
{
namespace
{
class HostRecord : public Window
{
public:
    using Window::Window;
    LRESULT DefaultProc(UINT, WPARAM, LPARAM) override { return 0; }
    bool IsControl() const override { return true; }
    void TextChanged() override {}
};

Qt::WindowFlags TopLevelFlags(DWORD style)
{
    Qt::WindowFlags flags = (style & WS_POPUP) ? Qt::Dialog : Qt::Window;
    if ((style & WS_CAPTION) != WS_CAPTION)
        return flags | Qt::FramelessWindowHint;
    flags |= Qt::CustomizeWindowHint | Qt::WindowTitleHint;
    if (style & WS_SYSMENU)
        flags |= Qt::WindowSystemMenuHint | Qt::WindowCloseButtonHint;
    if (style & WS_MINIMIZEBOX)
        flags |= Qt::WindowMinimizeButtonHint;
    if (style & WS_MAXIMIZEBOX)
        flags |= Qt::WindowMaximizeButtonHint;
    return flags;
}
} // namespace

HWND CreateNative(const CREATESTRUCT& create, CWnd* object, void (*beforeCreate)(CWnd*))
{
    const bool child = (create.style & WS_CHILD) != 0;
    Window* parent = Find(create.hwndParent);
    const WindowClass* windowClass = FindClass(create.lpszClass);
    if (!windowClass || (child && (!parent || !parent->widget)))
        return nullptr;
    EnsureTranslator();

    std::unique_ptr<Window> made = MakeWindow(*windowClass, create);
    Window& window = *made;
    const HWND handle = window.handle;
    QWidget* widget =
        child ? window.MakeWidget(parent->widget, {})
              : window.MakeWidget(parent ? parent->TopLevel().widget.data() : nullptr, TopLevelFlags(create.style));
    Register(std::move(made), widget);
    if (child)
    {
        window.parent = parent;
        parent->children.push_back(&window);
        if (parent->ownsWidget)
            widget->lower(); // the first one made lies on top
    }
    else if (parent)
        window.owner = parent->TopLevel().handle;
    window.TextChanged();
    if (create.style & WS_DISABLED)
        widget->setEnabled(false);
    window.PlaceWidget();
    window.PlaceBars();
    const CSize client = window.ClientSize();
    window.backing.Resize(client.cx, client.cy);
    window.Created();

    if (object)
    {
        window.object = object;
        object->m_hWnd = handle;
        if (beforeCreate)
            beforeCreate(object);
    }
    CREATESTRUCT copy = create;
    if (Send(window, WM_CREATE, 0, reinterpret_cast<LPARAM>(&copy)) == -1)
    {
        DestroyWindow(handle);
        return nullptr;
    }
    if (!Find(handle))
        return nullptr;
    const CSize size = window.ClientSize();
    Send(window, WM_SIZE, SIZE_RESTORED, MAKELPARAM(size.cx, size.cy));
    if (Find(handle))
        Send(window, WM_MOVE, 0, MAKELPARAM(window.rect.left, window.rect.top));
    if (Find(handle) && (create.style & WS_VISIBLE))
    {
        window.style &= ~WS_VISIBLE;
        ShowWindow(handle, SW_SHOW);
    }
    return Find(handle) ? handle : nullptr;
}

HWND AdoptHost(QWidget* widget)
{
    if (Window* known = FindByWidget(widget))
        return known->handle;
    EnsureTranslator();
    static const WindowClass hostClass{"QtHost"};
    CREATESTRUCT create{};
    create.style = WS_CHILD | WS_VISIBLE | WS_CLIPCHILDREN;
    create.cx = widget->width();
    create.cy = widget->height();
    auto host = std::make_unique<HostRecord>(hostClass, create);
    host->ownsWidget = false;
    const HWND handle = host->handle;
    Register(std::move(host), widget);
    return handle;
}
} // namespace kv::win

using namespace kv::win;

namespace
{
void SendDestroy(HWND handle)
{
    Window* window = Find(handle);
    if (!window)
        return;
    Send(*window, WM_DESTROY);
    window = Find(handle);
    if (!window)
        return;
    std::vector<HWND> children;
    for (const Window* child : window->children)
        children.push_back(child->handle);
    for (const HWND child : children)
        SendDestroy(child);
}

void SendNcDestroy(HWND handle)
{
    Window* window = Find(handle);
    if (!window)
        return;
    while (!window->children.empty())
        SendNcDestroy(window->children.back()->handle);
    Send(*window, WM_NCDESTROY);
    window = Find(handle);
    if (!window)
        return;
    if (window->object) // an object that doesn't know the class layer's way of letting go
        window->object->m_hWnd = nullptr;
    if (window->borrower)
        window->borrower->m_hWnd = nullptr;
    Forget(*window);
}
} // namespace

BOOL DestroyWindow(HWND handle)
{
    Window* window = Find(handle);
    if (!window || window->destroying)
        return FALSE;
    window->destroying = true;
    for (const HWND owned :
         [&]
         {
             std::vector<HWND> found;
             for (const Window* other : AllWindows())
                 if (other->owner == handle)
                     found.push_back(other->handle);
             return found;
         }())
        DestroyWindow(owned);
    if (window->style & WS_VISIBLE)
        ShowWindow(handle, SW_HIDE);
    SendDestroy(handle);
    SendNcDestroy(handle);
    return TRUE;
}
