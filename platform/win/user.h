// Flat functions of the window system under the platform's names: handles of windows, input state, cursors, menus.
// All of it belongs to the thread of the user interface. A null or stale handle fails as on the platform.
//
// Coordinates are Qt's device-independent pixels: at a screen scale of 2 every pixel of a window shows as a sharp
// square of 2 by 2. The frame that the desktop draws around a top-level window is not part of it, so its window
// rectangle is its client rectangle on the screen.
#pragma once

#include "platform/afx/afx.h"
#include "platform/afx/geometry.h"
#include "platform/win/messages.h"

using WNDPROC = LRESULT (*)(HWND window, UINT message, WPARAM wParam, LPARAM lParam);

struct MSG
{
    HWND hwnd;
    UINT message;
    WPARAM wParam;
    LPARAM lParam;
    DWORD time;
    POINT pt; // on the screen
};
using LPMSG = MSG*;

struct CREATESTRUCT
{
    LPVOID lpCreateParams;
    HINSTANCE hInstance;
    HMENU hMenu; // of a child: its id
    HWND hwndParent;
    int cy;
    int cx;
    int y;
    int x;
    DWORD style;
    CString lpszName;
    CString lpszClass;
    DWORD dwExStyle;
};
using LPCREATESTRUCT = CREATESTRUCT*;

struct WNDCLASSW
{
    UINT style;
    WNDPROC lpfnWndProc;
    int cbClsExtra;
    int cbWndExtra;
    HINSTANCE hInstance;
    HICON hIcon;
    HCURSOR hCursor;
    HBRUSH hbrBackground; // paints the background on WM_ERASEBKGND; null: nothing does
    CString lpszMenuName;
    CString lpszClassName;
};
using WNDCLASS = WNDCLASSW;

struct NMHDR
{
    HWND hwndFrom;
    UINT_PTR idFrom;
    UINT code;
};

struct DRAWITEMSTRUCT
{
    UINT CtlType;
    UINT CtlID;
    UINT itemID;
    UINT itemAction;
    UINT itemState;
    HWND hwndItem;
    HDC hDC;
    RECT rcItem;
    ULONG_PTR itemData;
};
using LPDRAWITEMSTRUCT = DRAWITEMSTRUCT*;

struct PAINTSTRUCT
{
    HDC hdc;
    BOOL fErase;
    RECT rcPaint;
    BOOL fRestore;
    BOOL fIncUpdate;
    BYTE rgbReserved[32];
};

struct SCROLLINFO
{
    UINT cbSize;
    UINT fMask;
    int nMin;
    int nMax;
    UINT nPage;
    int nPos;
    int nTrackPos;
};

// ---- Window classes

// Registers a class under its name; one of the same name keeps its first form. 0 for an empty name.
ATOM RegisterClassW(const WNDCLASSW* windowClass);
BOOL GetClassInfo(const CString& name, WNDCLASSW* windowClass);
inline BOOL GetClassInfoW(HINSTANCE, const CString& name, WNDCLASSW* windowClass)
{
    return GetClassInfo(name, windowClass);
}
// The name of a class of these properties, registered at the first call.
CString AfxRegisterWndClass(UINT style, HCURSOR cursor = nullptr, HBRUSH background = nullptr, HICON icon = nullptr);

// ---- Windows

BOOL IsWindow(HWND window);
BOOL IsWindowVisible(HWND window); // it and all its parents
BOOL IsWindowEnabled(HWND window);
BOOL EnableWindow(HWND window, BOOL enable); // non-zero if it was disabled
BOOL ShowWindow(HWND window, int command);   // non-zero if it was visible
BOOL DestroyWindow(HWND window);
BOOL CloseWindow(HWND window);
BOOL IsIconic(HWND window);
BOOL IsZoomed(HWND window);
HWND GetParent(HWND window); // of a top-level window: its owner
HWND GetDesktopWindow();
HWND GetWindow(HWND window, UINT relation); // children in the order of their creation
BOOL IsChild(HWND parent, HWND window);
HWND GetDlgItem(HWND dialog, int id);
int GetDlgCtrlID(HWND window);
LONG_PTR GetWindowLongPtrW(HWND window, int index);
LONG_PTR SetWindowLongPtrW(HWND window, int index, LONG_PTR value);
LRESULT SendMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
inline LRESULT SendMessage(HWND window, UINT message, WPARAM wParam, LPARAM lParam)
{
    return SendMessageW(window, message, wParam, lParam);
}
BOOL PostMessageW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
LRESULT DefWindowProcW(HWND window, UINT message, WPARAM wParam, LPARAM lParam);
BOOL SetWindowTextW(HWND window, const CString& text);
CString GetWindowTextOf(HWND window);

BOOL GetClientRect(HWND window, RECT* rect);
BOOL GetWindowRect(HWND window, RECT* rect); // on the screen
// The client area of `parent`, or the screen for a top-level window. WM_MOVE and WM_SIZE are done on return.
BOOL MoveWindow(HWND window, int x, int y, int width, int height, BOOL repaint);
BOOL SetWindowPos(HWND window, HWND after, int x, int y, int width, int height, UINT flags);
BOOL ClientToScreen(HWND window, POINT* point);
BOOL ScreenToClient(HWND window, POINT* point);
int MapWindowPoints(HWND from, HWND to, POINT* points, UINT count); // null is the screen
HWND WindowFromPoint(POINT screen);

// ---- Painting

// Contexts of classes with CS_CLASSDC or CS_OWNDC are the window's for life and keep their settings; releasing them
// does nothing. All others begin with default settings each time and must be released.
HDC GetDC(HWND window); // null: of the screen
HDC GetWindowDC(HWND window);
int ReleaseDC(HWND window, HDC dc);
HDC BeginPaint(HWND window, PAINTSTRUCT* paint);
BOOL EndPaint(HWND window, const PAINTSTRUCT* paint);
// The whole client area for null. Painted when the program is idle, or at once by UpdateWindow.
BOOL InvalidateRect(HWND window, const RECT* rect, BOOL erase);
BOOL ValidateRect(HWND window, const RECT* rect);
BOOL GetUpdateRect(HWND window, RECT* rect, BOOL erase);
BOOL UpdateWindow(HWND window);
BOOL RedrawWindow(HWND window, const RECT* rect, HRGN region, UINT flags);

// ---- Input

HWND GetFocus();
HWND SetFocus(HWND window); // the window that had it before
HWND GetActiveWindow();
HWND GetCapture();
HWND SetCapture(HWND window); // the window that had it before
BOOL ReleaseCapture();
BOOL GetCursorPos(POINT* point);
// The high bit is set while the key (or mouse button) is down; the low bit is never set.
SHORT GetAsyncKeyState(int key);
SHORT GetKeyState(int key);
DWORD GetMessagePos();

inline constexpr DWORD TME_LEAVE = 0x2;
inline constexpr DWORD TME_CANCEL = 0x80000000;
struct TRACKMOUSEEVENT
{
    DWORD cbSize;
    DWORD dwFlags;
    HWND hwndTrack;
    DWORD dwHoverTime;
};
// WM_MOUSELEAVE comes once: when the pointer leaves the client area, or at once if it isn't there.
BOOL _TrackMouseEvent(TRACKMOUSEEVENT* track);
inline BOOL TrackMouseEvent(TRACKMOUSEEVENT* track)
{
    return _TrackMouseEvent(track);
}

// ---- Cursors

inline constexpr UINT IDC_ARROW = 32512;
inline constexpr UINT IDC_IBEAM = 32513;
inline constexpr UINT IDC_WAIT = 32514;
inline constexpr UINT IDC_CROSS = 32515;
inline constexpr UINT IDC_UPARROW = 32516;
inline constexpr UINT IDC_SIZENWSE = 32642;
inline constexpr UINT IDC_SIZENESW = 32643;
inline constexpr UINT IDC_SIZEWE = 32644;
inline constexpr UINT IDC_SIZENS = 32645;
inline constexpr UINT IDC_SIZEALL = 32646;
inline constexpr UINT IDC_NO = 32648;
inline constexpr UINT IDC_HAND = 32649;

// Null for the module: the platform's own cursor of that number, otherwise the RT_GROUP_CURSOR resource. The same
// cursor each time; cursors live as long as the program.
HCURSOR LoadCursorW(const CDynLinkLibrary* module, UINT id);
inline HCURSOR LoadCursor(const CDynLinkLibrary* module, UINT id)
{
    return LoadCursorW(module, id);
}
HCURSOR SetCursor(HCURSOR cursor); // the former one; null hides the pointer
HCURSOR GetCursor();
// The number that a cursor was loaded by; 0 for null.
UINT CursorId(HCURSOR cursor);

// ---- Scroll bars of a window

int SetScrollInfo(HWND window, int bar, const SCROLLINFO* info, BOOL redraw); // the position
BOOL GetScrollInfo(HWND window, int bar, SCROLLINFO* info);
int SetScrollPos(HWND window, int bar, int position, BOOL redraw); // the former position
int GetScrollPos(HWND window, int bar);
BOOL ShowScrollBar(HWND window, int bar, BOOL show);

inline constexpr int SM_CXVSCROLL = 2;
inline constexpr int SM_CYHSCROLL = 3;
inline constexpr int SM_CXSCREEN = 0;
inline constexpr int SM_CYSCREEN = 1;
inline constexpr int SM_CXBORDER = 5;
inline constexpr int SM_CYBORDER = 6;
inline constexpr int SM_CXEDGE = 45;
inline constexpr int SM_CYEDGE = 46;
int GetSystemMetrics(int index); // the same on every machine but for the screen: bars are 17 pixels thick
