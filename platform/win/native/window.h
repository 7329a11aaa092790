// What stands behind a window handle: the widget, the place in the tree of windows, and the default processing.
#pragma once

#include "platform/win/native/backing.h"
#include "platform/win/wnd.h"

#include <QPointer>
#include <QRegion>
#include <QWidget>

#include <memory>
#include <string>
#include <vector>

class QScrollBar;

namespace kv::win
{
struct WindowClass
{
    CString name;
    UINT style = 0;
    HCURSOR cursor = nullptr;
    HBRUSH background = nullptr;
};

// One of a window's own scroll bars. The numbers live here; the Qt bar shows them.
struct OwnBar
{
    QScrollBar* bar = nullptr; // goes with the window's widget
    bool shown = false;
    SCROLLINFO info{sizeof(SCROLLINFO), SIF_ALL, 0, 100, 0, 0, 0};
};

// The plain kind, which paints itself. Controls derive from it.
class Window
{
public:
    Window(const WindowClass& windowClass, const CREATESTRUCT& create);
    virtual ~Window();
    Window(const Window&) = delete;
    Window& operator=(const Window&) = delete;

    const HWND handle;
    const WindowClass& windowClass;
    QPointer<QWidget> widget;
    bool ownsWidget = true;
    Window* parent = nullptr; // null: a top-level window
    HWND owner = nullptr;     // of a top-level window
    std::vector<Window*> children;
    CWnd* object = nullptr;
    std::unique_ptr<CWnd> borrower; // stands in while no object is attached
    DWORD style;
    DWORD exStyle;
    int id;
    CString text;
    CRect rect; // within the parent's client area, or on the screen
    OwnBar bars[2];
    HFONT font = nullptr;

    Backing backing;
    QRegion update; // client pixels
    bool eraseUpdate = false;
    bool painting = false;
    bool paintOpened = false; // BeginPaint was called for the WM_PAINT under way
    bool copying = false;     // Qt's paint event is under way: what is painted now is copied at its end
    bool redraw = true;       // off: paints reach the backing, but not the screen
    bool destroying = false;
    int modalBlocks = 0;

    // The Qt widget of this kind of window. `flags` are those of a top-level window.
    virtual QWidget* MakeWidget(QWidget* parentWidget, Qt::WindowFlags flags);
    // After the widget is there and has its size.
    virtual void Created() {}
    virtual LRESULT DefaultProc(UINT message, WPARAM wParam, LPARAM lParam);
    virtual bool IsControl() const { return false; }            // painted and driven by Qt
    virtual bool IsTransparentToMouse() const { return false; } // a press goes to what lies below
    virtual void TextChanged();
    virtual void FontChanged() {}
    virtual void StyleChanged() {}

    bool IsOwnDc() const { return (windowClass.style & (CS_OWNDC | CS_CLASSDC)) != 0; }
    bool IsShown() const;    // it and all its parents
    bool TakesInput() const; // it and all its parents are enabled, and no modal window blocks it
    Window& TopLevel();
    int BorderWidth() const;
    CSize ClientSize() const;
    CPoint ClientOnScreen() const;
    void PlaceBars();
    void PlaceWidget();
};

// The place of control classes with a widget of Qt's. Messages that reach the default processing while their Qt event
// is under way are finished by Qt.
class ControlWindow : public Window
{
public:
    using Window::Window;
    LRESULT DefaultProc(UINT message, WPARAM wParam, LPARAM lParam) override;
    bool IsControl() const override { return true; }
    void FontChanged() override;

protected:
    void Adopt(QWidget* control); // what all controls have in common
    void NotifyParent(int code);  // WM_COMMAND
};

// ---- Registry

// The window goes when it is forgotten; a widget that goes by itself destroys its window.
void Register(std::unique_ptr<Window> window, QWidget* widget);
void Forget(Window& window);
Window* Find(HWND handle); // null for a null or stale handle
Window* FindByWidget(const QWidget* widget);
Window* FindAbove(const QWidget* widget); // the innermost window that the widget is or lies in
const std::vector<Window*>& AllWindows(); // in the order of creation

const WindowClass* FindClass(const CString& name);
using Factory = std::unique_ptr<Window> (*)(const WindowClass&, const CREATESTRUCT&);
// Makes a class of controls known, with its kind of window.
void RegisterControlClass(const CString& name, Factory factory);

// The handle of a new window, or null. `object` is attached before the first message.
HWND CreateNative(const CREATESTRUCT& create, CWnd* object, void (*beforeCreate)(CWnd*) = nullptr);
// For a widget that somebody else owns.
HWND AdoptHost(QWidget* widget);

// ---- Painting

void AddUpdate(Window& window, const QRegion& region, bool erase);
void InvalidateTree(Window& window); // all of it and of its children, when it gets shown
void PaintNow(Window& window);       // it alone, if it has an update region and is shown
void PaintAllNow(Window& window);    // and its children
bool PaintEverything();              // all windows; false if nothing was to be painted

// ---- Geometry

void ApplyGeometry(Window& window, const CRect& rect, bool repaint); // messages included
void GeometryFromQt(Window& window);
void ClientSizeChanged(Window& window);
Window* HitTest(Window& window, CPoint screen); // the innermost window there that takes the mouse
} // namespace kv::win
