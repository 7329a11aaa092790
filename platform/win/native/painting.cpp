// Update regions, paints, and contexts of windows.
#include "platform/win/paintdc.h"

#include "platform/win/native/dispatch.h"
#include "platform/win/native/input_state.h"

#include <memory>

namespace kv::win
{
namespace
{
QRegion ToQt(HRGN region)
{
    const DWORD size = GetRegionData(region, 0, nullptr);
    std::vector<char> buffer(size);
    if (size == 0 || GetRegionData(region, size, reinterpret_cast<RGNDATA*>(buffer.data())) == 0)
        return {};
    const auto* data = reinterpret_cast<const RGNDATA*>(buffer.data());
    const auto* rects = reinterpret_cast<const RECT*>(buffer.data() + sizeof(RGNDATAHEADER));
    QRegion result;
    for (DWORD i = 0; i < data->rdh.nCount; ++i)
        result += QRect(rects[i].left, rects[i].top, rects[i].right - rects[i].left, rects[i].bottom - rects[i].top);
    return result;
}

struct RegionDeleter
{
    void operator()(HRGN region) const { DeleteObject(region); }
};
using Region = std::unique_ptr<HRGN__, RegionDeleter>;

Region FromQt(const QRegion& region)
{
    Region result(CreateRectRgn(0, 0, 0, 0));
    for (const QRect& rect : region)
    {
        const Region part(CreateRectRgn(rect.x(), rect.y(), rect.x() + rect.width(), rect.y() + rect.height()));
        CombineRgn(result.get(), result.get(), part.get(), RGN_OR);
    }
    return result;
}

QRect ClientRect(const Window& window)
{
    const CSize size = window.ClientSize();
    return QRect(0, 0, size.cx, size.cy);
}

// What the backing holds goes to the screen when Qt next paints.
void Show(Window& window, const QRegion& region)
{
    if (window.widget && window.redraw && !window.copying)
        window.widget->update(region.translated(window.BorderWidth(), window.BorderWidth()));
}
} // namespace

void AddUpdate(Window& window, const QRegion& region, bool erase)
{
    if (!window.IsShown())
        return;
    const QRegion added = region & ClientRect(window);
    if (!added.isEmpty())
    {
        window.update += added;
        window.eraseUpdate |= erase;
        Show(window, added);
    }
    if (window.style & WS_CLIPCHILDREN)
        return;
    for (Window* child : window.children)
    {
        const int border = child->BorderWidth();
        AddUpdate(*child, region.translated(-child->rect.left - border, -child->rect.top - border), erase);
    }
}

// Children that were shown before their parent have never been painted.
void InvalidateTree(Window& window)
{
    const CSize size = window.ClientSize();
    AddUpdate(window, QRegion(0, 0, size.cx, size.cy), true);
    for (Window* child : window.children)
        InvalidateTree(*child);
}

void PaintNow(Window& window)
{
    if (window.update.isEmpty() || window.painting || !window.IsShown())
        return;
    const HWND handle = window.handle;
    window.painting = true;
    window.paintOpened = false;
    struct Scope
    {
        HWND handle;
        ~Scope()
        {
            Window* window = Find(handle);
            if (!window)
                return;
            window->painting = false;
            if (!window->paintOpened)
                window->update = QRegion(); // a handler that opens no paint must not be called again and again
        }
    } scope{handle};
    Send(window, WM_PAINT);
}

void PaintAllNow(Window& window)
{
    const HWND handle = window.handle;
    PaintNow(window);
    Window* left = Find(handle);
    if (!left)
        return;
    const std::vector<Window*> children = left->children;
    std::vector<HWND> handles;
    for (const Window* child : children)
        handles.push_back(child->handle);
    for (const HWND child : handles)
    {
        if (Window* found = Find(child))
            PaintAllNow(*found);
    }
}

bool PaintEverything()
{
    bool painted = false;
    std::vector<HWND> handles;
    for (const Window* window : AllWindows())
    {
        if (!window->update.isEmpty() && window->IsShown())
            handles.push_back(window->handle);
    }
    for (const HWND handle : handles)
    {
        Window* window = Find(handle);
        if (!window || window->update.isEmpty() || window->painting)
            continue;
        painted = true;
        Guarded([&] { PaintNow(*window); });
    }
    return painted;
}
} // namespace kv::win

using namespace kv::win;

HDC GetDC(HWND handle)
{
    Window* window = Find(handle);
    if (!window)
        return handle ? nullptr : CreateDCW(L"DISPLAY", nullptr, nullptr, nullptr);
    // Whoever draws outside a paint tells nobody where, so all of it goes to the screen.
    if (!window->painting)
        Show(*window, ClientRect(*window));
    return window->backing.Acquire(window->IsOwnDc());
}

HDC GetWindowDC(HWND handle)
{
    return GetDC(handle);
}

int ReleaseDC(HWND handle, HDC dc)
{
    Window* window = Find(handle);
    if (!window)
        return handle ? 0 : DeleteDC(dc);
    if (!window->IsOwnDc())
        window->backing.Release(dc, false);
    return 1;
}

HDC BeginPaint(HWND handle, PAINTSTRUCT* paint)
{
    Window* window = Find(handle);
    if (!window || !paint)
        return nullptr;
    *paint = PAINTSTRUCT{};
    window->paintOpened = true;
    const QRegion region = std::exchange(window->update, QRegion());
    const bool erase = std::exchange(window->eraseUpdate, false);
    const HDC dc = window->backing.Acquire(window->IsOwnDc());
    SelectClipRgn(dc, FromQt(region).get());
    const QRect box = region.boundingRect();
    paint->hdc = dc;
    paint->rcPaint = {box.x(), box.y(), box.x() + box.width(), box.y() + box.height()};
    Show(*window, region);
    if (erase)
        paint->fErase = !Send(*window, WM_ERASEBKGND, reinterpret_cast<WPARAM>(dc));
    return dc;
}

BOOL EndPaint(HWND handle, const PAINTSTRUCT* paint)
{
    Window* window = Find(handle);
    if (!window || !paint)
        return FALSE;
    SelectClipRgn(paint->hdc, nullptr);
    if (!window->IsOwnDc())
        window->backing.Release(paint->hdc, false);
    return TRUE;
}

BOOL InvalidateRect(HWND handle, const RECT* rect, BOOL erase)
{
    Window* window = Find(handle);
    if (!window)
        return FALSE;
    AddUpdate(*window,
              rect ? QRegion(QRect(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top))
                   : QRegion(ClientRect(*window)),
              erase != 0);
    return TRUE;
}

BOOL ValidateRect(HWND handle, const RECT* rect)
{
    Window* window = Find(handle);
    if (!window)
        return FALSE;
    if (rect)
        window->update -= QRect(rect->left, rect->top, rect->right - rect->left, rect->bottom - rect->top);
    else
        window->update = QRegion();
    if (window->update.isEmpty())
        window->eraseUpdate = false;
    return TRUE;
}

BOOL GetUpdateRect(HWND handle, RECT* rect, BOOL)
{
    const Window* window = Find(handle);
    if (!window)
        return FALSE;
    const QRect box = window->update.boundingRect();
    if (rect)
        *rect = {box.x(), box.y(), box.x() + box.width(), box.y() + box.height()};
    return !window->update.isEmpty();
}

BOOL UpdateWindow(HWND handle)
{
    Window* window = Find(handle);
    if (!window)
        return FALSE;
    PaintAllNow(*window);
    return TRUE;
}

BOOL RedrawWindow(HWND handle, const RECT* rect, HRGN region, UINT flags)
{
    Window* window = Find(handle);
    if (!window)
        return FALSE;
    if (flags & RDW_INVALIDATE)
    {
        if (region)
            AddUpdate(*window, ToQt(region), (flags & RDW_ERASE) != 0);
        else
            InvalidateRect(handle, rect, (flags & RDW_ERASE) != 0);
    }
    if (flags & RDW_UPDATENOW)
        UpdateWindow(handle);
    return TRUE;
}

CPaintDC::CPaintDC(CWnd* window) : wnd(window->m_hWnd)
{
    Attach(::BeginPaint(wnd, &m_ps));
}

CPaintDC::~CPaintDC()
{
    Detach();
    ::EndPaint(wnd, &m_ps);
}

CClientDC::CClientDC(CWnd* window) : wnd(window->m_hWnd)
{
    Attach(::GetDC(wnd));
}

CClientDC::~CClientDC()
{
    ::ReleaseDC(wnd, Detach());
}
