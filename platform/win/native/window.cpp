// Window records: making and destroying them, finding them by handle or widget, and what plain windows do by default.
#include "platform/win/native/window.h"

#include "platform/win/native/classes.h"
#include "platform/win/native/dispatch.h"
#include "platform/win/native/input_state.h"
#include "platform/win/native/translate.h"

#include <QLayout>
#include <QScrollBar>

#include <algorithm>
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
    std::uintptr_t lastHandle = 0;
};

// Never freed: windows of static storage may outlive it.
Registry& All()
{
    static auto& registry = *new Registry;
    return registry;
}

HWND NewHandle()
{
    return reinterpret_cast<HWND>(++All().lastHandle);
}

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
} // namespace

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

Window::Window(const WindowClass& ofClass, const CREATESTRUCT& create)
    : handle(NewHandle()), windowClass(ofClass), style(create.style), exStyle(create.dwExStyle),
      id(static_cast<int>(reinterpret_cast<std::intptr_t>(create.hMenu))), text(create.lpszName),
      rect(create.x, create.y, create.x + create.cx, create.y + create.cy)
{
    if (rect.Width() < 0)
        rect.right = rect.left;
    if (rect.Height() < 0)
        rect.bottom = rect.top;
}

Window::~Window() = default;

QWidget* Window::MakeWidget(QWidget* parentWidget, Qt::WindowFlags flags)
{
    auto* made = new QWidget(parentWidget, flags);
    made->setAttribute(Qt::WA_OpaquePaintEvent);
    made->setAttribute(Qt::WA_NoSystemBackground);
    made->setMouseTracking(true);
    made->setContextMenuPolicy(Qt::PreventContextMenu);
    return made;
}

void Window::TextChanged()
{
    if (widget && !parent)
        widget->setWindowTitle(QString::fromStdU16String(text.Units()));
    if (widget)
        widget->setAccessibleName(QString::fromStdU16String(text.Units()));
}

bool Window::IsShown() const
{
    for (const Window* at = this; at; at = at->parent)
    {
        if (!(at->style & WS_VISIBLE) || !at->widget)
            return false;
        if (!at->ownsWidget)
            return at->widget->isVisible();
    }
    return true;
}

bool Window::TakesInput() const
{
    for (const Window* at = this; at; at = at->parent)
    {
        if ((at->style & WS_DISABLED) || at->modalBlocks > 0 || at->destroying)
            return false;
        if (!at->ownsWidget)
            return at->widget && at->widget->isEnabled();
    }
    return true;
}

Window& Window::TopLevel()
{
    Window* at = this;
    while (at->parent)
        at = at->parent;
    return *at;
}

int Window::BorderWidth() const
{
    if (!parent || IsControl())
        return 0;
    return (exStyle & WS_EX_CLIENTEDGE) ? 2 : (style & WS_BORDER) ? 1 : 0;
}

CSize Window::ClientSize() const
{
    if (!ownsWidget)
        return widget ? CSize(widget->width(), widget->height()) : CSize();
    const int border = 2 * BorderWidth();
    int width = rect.Width() - border;
    int height = rect.Height() - border;
    if (bars[SB_VERT].shown)
        width -= GetSystemMetrics(SM_CXVSCROLL);
    if (bars[SB_HORZ].shown)
        height -= GetSystemMetrics(SM_CYHSCROLL);
    return CSize(std::max(0, width), std::max(0, height));
}

CPoint Window::ClientOnScreen() const
{
    if (!parent)
    {
        if (ownsWidget)
            return rect.TopLeft();
        const QPoint origin = widget ? widget->mapToGlobal(QPoint(0, 0)) : QPoint();
        return CPoint(origin.x(), origin.y());
    }
    const CPoint outer = parent->ClientOnScreen();
    const int border = BorderWidth();
    return CPoint(outer.x + rect.left + border, outer.y + rect.top + border);
}

namespace
{
void EraseWithClassBrush(const Window& window, HDC dc)
{
    RECT box{};
    GetClipBox(dc, &box);
    const HGDIOBJ former = SelectObject(dc, window.windowClass.background);
    PatBlt(dc, box.left, box.top, box.right - box.left, box.bottom - box.top, PATCOPY);
    SelectObject(dc, former);
}

LRESULT SetCursorByDefault(Window& window, WPARAM wParam, LPARAM lParam)
{
    if (window.parent && Send(*window.parent, WM_SETCURSOR, wParam, lParam))
        return TRUE;
    const bool client = LOWORD(static_cast<WPARAM>(lParam)) == HTCLIENT;
    if (client && !window.windowClass.cursor)
        return FALSE;
    SetCursor(client ? window.windowClass.cursor : LoadCursorW(nullptr, IDC_ARROW));
    return TRUE;
}
} // namespace

LRESULT Window::DefaultProc(UINT message, WPARAM wParam, LPARAM lParam)
{
    switch (message)
    {
    case WM_PAINT:
    {
        PAINTSTRUCT paint{};
        BeginPaint(handle, &paint);
        EndPaint(handle, &paint);
        return 0;
    }
    case WM_ERASEBKGND:
        if (!windowClass.background)
            return 0;
        EraseWithClassBrush(*this, reinterpret_cast<HDC>(wParam));
        return 1;
    case WM_SETCURSOR:
        return SetCursorByDefault(*this, wParam, lParam);
    case WM_SETREDRAW:
        redraw = wParam != 0;
        if (redraw && widget)
            widget->update();
        return 0;
    case WM_RBUTTONUP:
    {
        POINT screen = CPoint(lParam);
        ClientToScreen(handle, &screen);
        Send(*this, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), MAKELPARAM(screen.x, screen.y));
        return 0;
    }
    case WM_KEYUP:
        if (wParam == VK_APPS)
            Send(*this, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), MAKELPARAM(-1, -1));
        return 0;
    case WM_SYSKEYDOWN:
        if (wParam == VK_F10 && GetKeyState(VK_SHIFT) < 0)
            Send(*this, WM_CONTEXTMENU, reinterpret_cast<WPARAM>(handle), MAKELPARAM(-1, -1));
        return 0;
    case WM_CONTEXTMENU:
    case WM_MOUSEWHEEL:
    case WM_MOUSEHWHEEL:
        return parent ? Send(*parent, message, wParam, lParam) : 0;
    case WM_MOUSEACTIVATE:
        return parent ? Send(*parent, message, wParam, lParam) : 1;
    case WM_CANCELMODE:
        if (input.capture == handle)
            ReleaseCapture();
        return 0;
    case WM_CLOSE:
        ::DestroyWindow(handle);
        return 0;
    case WM_SETFONT:
        font = reinterpret_cast<HFONT>(wParam);
        FontChanged();
        if (lParam)
            InvalidateRect(handle, nullptr, TRUE);
        return 0;
    case WM_GETFONT:
        return reinterpret_cast<LRESULT>(font);
    default:
        return 0;
    }
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
