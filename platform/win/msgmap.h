// Message maps: which member function of a class takes which message, command or event. The macros are the platform's;
// members are named without class. An entry keeps a typed call, so that a handler of a wrong signature does not
// compile.
#pragma once

#include "platform/afx/geometry.h"
#include "platform/win/messages.h"

#include <type_traits>

class CCmdTarget;
class CCmdUI;
class CDC;
class CScrollBar;
class CWnd;
struct NMHDR;

struct AFX_MSGMAP_ENTRY
{
    using Message = LRESULT (*)(CCmdTarget* target, WPARAM wParam, LPARAM lParam);
    using Command = void (*)(CCmdTarget* target, UINT id);
    using Update = void (*)(CCmdTarget* target, CCmdUI* item);
    using Notify = void (*)(CCmdTarget* target, NMHDR* header, LRESULT* result);

    UINT message = 0; // 0 ends the map
    int code = 0;     // of a command or notification
    UINT id = 0;      // first and last id of a command or notification
    UINT lastId = 0;
    Message onMessage = nullptr;
    Command onCommand = nullptr;
    Update onUpdate = nullptr;
    Notify onNotify = nullptr;
};

struct AFX_MSGMAP
{
    const AFX_MSGMAP* (*base)(); // null at the root
    const AFX_MSGMAP_ENTRY* entries;
};

// Events of controls that are no windows of the platform's own kinds.
struct AFX_EVENTSINKMAP_ENTRY
{
    UINT control = 0; // 0 ends the map
    int dispatchId = 0;
    void (*onEvent)(CCmdTarget* target, const void* argument) = nullptr;
};

struct AFX_EVENTSINKMAP
{
    const AFX_EVENTSINKMAP* (*base)();
    const AFX_EVENTSINKMAP_ENTRY* entries;
};

namespace kv::win
{
// What the words of a message stand for. Windows and contexts come by handle.
CWnd* WndOf(WPARAM handle);
CDC* DcOf(WPARAM handle);
CScrollBar* ScrollBarOf(LPARAM handle);

template <auto member>
struct Handler;

template <class Class, class Result, class... Args, Result (Class::*member)(Args...)>
struct Handler<member>
{
    static Class* Self(CCmdTarget* target) { return static_cast<Class*>(target); }

    template <class... Given>
    static LRESULT Call(CCmdTarget* target, Given... given)
    {
        if constexpr (std::is_void_v<Result>)
        {
            (Self(target)->*member)(given...);
            return 0;
        }
        else
            return static_cast<LRESULT>((Self(target)->*member)(given...));
    }

    static LRESULT Raw(CCmdTarget* t, WPARAM w, LPARAM l) { return Call(t, w, l); }
    static LRESULT Nothing(CCmdTarget* t, WPARAM, LPARAM) { return Call(t); }
    static LRESULT Mouse(CCmdTarget* t, WPARAM w, LPARAM l) { return Call(t, static_cast<UINT>(w), CPoint(l)); }
    static LRESULT Wheel(CCmdTarget* t, WPARAM w, LPARAM l)
    {
        return Call(t, static_cast<UINT>(LOWORD(w)), static_cast<short>(HIWORD(w)), CPoint(l));
    }
    static LRESULT Key(CCmdTarget* t, WPARAM w, LPARAM l)
    {
        return Call(t, static_cast<UINT>(w), static_cast<UINT>(LOWORD(static_cast<WPARAM>(l))),
                    static_cast<UINT>(HIWORD(static_cast<WPARAM>(l))));
    }
    static LRESULT Size(CCmdTarget* t, WPARAM w, LPARAM l)
    {
        return Call(t, static_cast<UINT>(w), int{LOWORD(static_cast<WPARAM>(l))}, int{HIWORD(static_cast<WPARAM>(l))});
    }
    static LRESULT Move(CCmdTarget* t, WPARAM, LPARAM l) { return Call(t, GET_X_LPARAM(l), GET_Y_LPARAM(l)); }
    static LRESULT Cursor(CCmdTarget* t, WPARAM w, LPARAM l)
    {
        return Call(t, WndOf(w), static_cast<UINT>(LOWORD(static_cast<WPARAM>(l))),
                    static_cast<UINT>(HIWORD(static_cast<WPARAM>(l))));
    }
    static LRESULT Wnd(CCmdTarget* t, WPARAM w, LPARAM) { return Call(t, WndOf(w)); }
    static LRESULT OtherWnd(CCmdTarget* t, WPARAM, LPARAM l) { return Call(t, WndOf(static_cast<WPARAM>(l))); }
    static LRESULT WndPoint(CCmdTarget* t, WPARAM w, LPARAM l) { return Call(t, WndOf(w), CPoint(l)); }
    static LRESULT Dc(CCmdTarget* t, WPARAM w, LPARAM) { return Call(t, DcOf(w)); }
    static LRESULT Scroll(CCmdTarget* t, WPARAM w, LPARAM l)
    {
        return Call(t, static_cast<UINT>(LOWORD(w)), static_cast<UINT>(static_cast<SHORT>(HIWORD(w))), ScrollBarOf(l));
    }
    static LRESULT Flag(CCmdTarget* t, WPARAM w, LPARAM) { return Call(t, static_cast<BOOL>(w != 0)); }
    static LRESULT Show(CCmdTarget* t, WPARAM w, LPARAM l)
    {
        return Call(t, static_cast<BOOL>(w != 0), static_cast<UINT>(l));
    }
    static LRESULT Activate(CCmdTarget* t, WPARAM w, LPARAM l)
    {
        return Call(t, static_cast<UINT>(LOWORD(w)), WndOf(static_cast<WPARAM>(l)), static_cast<BOOL>(HIWORD(w) != 0));
    }
    template <class Struct>
    static LRESULT Pointer(CCmdTarget* t, WPARAM, LPARAM l)
    {
        return Call(t, reinterpret_cast<Struct*>(l));
    }
    template <class Struct>
    static LRESULT Item(CCmdTarget* t, WPARAM w, LPARAM l)
    {
        return Call(t, static_cast<int>(w), reinterpret_cast<Struct*>(l));
    }

    static void Command(CCmdTarget* t, UINT id)
    {
        if constexpr (sizeof...(Args) == 0)
            Call(t);
        else
            Call(t, id);
    }
    static void Update(CCmdTarget* t, CCmdUI* item) { Call(t, item); }
    static void Notify(CCmdTarget* t, NMHDR* header, LRESULT* result) { Call(t, header, result); }

    static void Event(CCmdTarget* t, const void* argument)
    {
        if constexpr (sizeof...(Args) == 0)
            Call(t);
        else
            Call(t, *static_cast<const std::remove_cvref_t<Args>*>(argument)...);
    }
};
} // namespace kv::win

#define DECLARE_MESSAGE_MAP()                                                                                          \
protected:                                                                                                             \
    static const AFX_MSGMAP* GetThisMessageMap();                                                                      \
    const AFX_MSGMAP* GetMessageMap() const override;

#define BEGIN_MESSAGE_MAP(class_name, base_class_name)                                                                 \
    const AFX_MSGMAP* class_name::GetMessageMap() const                                                                \
    {                                                                                                                  \
        return GetThisMessageMap();                                                                                    \
    }                                                                                                                  \
    const AFX_MSGMAP* class_name::GetThisMessageMap()                                                                  \
    {                                                                                                                  \
        using ThisClass [[maybe_unused]] = class_name;                                                                 \
        using TheBaseClass = base_class_name;                                                                          \
        static const AFX_MSGMAP_ENTRY messageEntries[] = {

#define END_MESSAGE_MAP()                                                                                              \
    AFX_MSGMAP_ENTRY {}                                                                                                \
    }                                                                                                                  \
    ;                                                                                                                  \
    static const AFX_MSGMAP messageMap = {&TheBaseClass::GetThisMessageMap, messageEntries};                           \
    return &messageMap;                                                                                                \
    }

#define KV_ON_WM(number, member, kind)                                                                                 \
    AFX_MSGMAP_ENTRY{number, 0, 0, 0, &kv::win::Handler<&ThisClass::member>::kind, nullptr, nullptr, nullptr},

#define ON_MESSAGE(message, member)                                                                                    \
    AFX_MSGMAP_ENTRY{message, 0, 0, 0, &kv::win::Handler<&ThisClass::member>::Raw, nullptr, nullptr, nullptr},
#define ON_CONTROL_RANGE(code, first, last, member)                                                                    \
    AFX_MSGMAP_ENTRY{WM_COMMAND,                                                                                       \
                     code,                                                                                             \
                     static_cast<UINT>(first),                                                                         \
                     static_cast<UINT>(last),                                                                          \
                     nullptr,                                                                                          \
                     &kv::win::Handler<&ThisClass::member>::Command,                                                   \
                     nullptr,                                                                                          \
                     nullptr},
#define ON_CONTROL(code, number, member) ON_CONTROL_RANGE(code, number, number, member)
#define ON_COMMAND(number, member) ON_CONTROL_RANGE(CN_COMMAND, number, number, member)
#define ON_COMMAND_RANGE(first, last, member) ON_CONTROL_RANGE(CN_COMMAND, first, last, member)
#define ON_BN_CLICKED(number, member) ON_CONTROL_RANGE(BN_CLICKED, number, number, member)
#define ON_UPDATE_COMMAND_UI_RANGE(first, last, member)                                                                \
    AFX_MSGMAP_ENTRY{WM_COMMAND,                                                                                       \
                     CN_UPDATE_COMMAND_UI,                                                                             \
                     static_cast<UINT>(first),                                                                         \
                     static_cast<UINT>(last),                                                                          \
                     nullptr,                                                                                          \
                     nullptr,                                                                                          \
                     &kv::win::Handler<&ThisClass::member>::Update,                                                    \
                     nullptr},
#define ON_UPDATE_COMMAND_UI(number, member) ON_UPDATE_COMMAND_UI_RANGE(number, number, member)
#define ON_NOTIFY(code, number, member)                                                                                \
    AFX_MSGMAP_ENTRY{WM_NOTIFY,                                                                                        \
                     code,                                                                                             \
                     static_cast<UINT>(number),                                                                        \
                     static_cast<UINT>(number),                                                                        \
                     nullptr,                                                                                          \
                     nullptr,                                                                                          \
                     nullptr,                                                                                          \
                     &kv::win::Handler<&ThisClass::member>::Notify},

#define ON_WM_CREATE() KV_ON_WM(WM_CREATE, OnCreate, Pointer<CREATESTRUCT>)
#define ON_WM_DESTROY() KV_ON_WM(WM_DESTROY, OnDestroy, Nothing)
#define ON_WM_NCDESTROY() KV_ON_WM(WM_NCDESTROY, OnNcDestroy, Nothing)
#define ON_WM_MOVE() KV_ON_WM(WM_MOVE, OnMove, Move)
#define ON_WM_SIZE() KV_ON_WM(WM_SIZE, OnSize, Size)
#define ON_WM_ACTIVATE() KV_ON_WM(WM_ACTIVATE, OnActivate, Activate)
#define ON_WM_SETFOCUS() KV_ON_WM(WM_SETFOCUS, OnSetFocus, Wnd)
#define ON_WM_KILLFOCUS() KV_ON_WM(WM_KILLFOCUS, OnKillFocus, Wnd)
#define ON_WM_ENABLE() KV_ON_WM(WM_ENABLE, OnEnable, Flag)
#define ON_WM_SHOWWINDOW() KV_ON_WM(WM_SHOWWINDOW, OnShowWindow, Show)
#define ON_WM_PAINT() KV_ON_WM(WM_PAINT, OnPaint, Nothing)
#define ON_WM_CLOSE() KV_ON_WM(WM_CLOSE, OnClose, Nothing)
#define ON_WM_ERASEBKGND() KV_ON_WM(WM_ERASEBKGND, OnEraseBkgnd, Dc)
#define ON_WM_SETCURSOR() KV_ON_WM(WM_SETCURSOR, OnSetCursor, Cursor)
#define ON_WM_CONTEXTMENU() KV_ON_WM(WM_CONTEXTMENU, OnContextMenu, WndPoint)
#define ON_WM_GETDLGCODE() KV_ON_WM(WM_GETDLGCODE, OnGetDlgCode, Nothing)
#define ON_WM_KEYDOWN() KV_ON_WM(WM_KEYDOWN, OnKeyDown, Key)
#define ON_WM_KEYUP() KV_ON_WM(WM_KEYUP, OnKeyUp, Key)
#define ON_WM_CHAR() KV_ON_WM(WM_CHAR, OnChar, Key)
#define ON_WM_SYSKEYDOWN() KV_ON_WM(WM_SYSKEYDOWN, OnSysKeyDown, Key)
#define ON_WM_SYSKEYUP() KV_ON_WM(WM_SYSKEYUP, OnSysKeyUp, Key)
#define ON_WM_HSCROLL() KV_ON_WM(WM_HSCROLL, OnHScroll, Scroll)
#define ON_WM_VSCROLL() KV_ON_WM(WM_VSCROLL, OnVScroll, Scroll)
#define ON_WM_MOUSEMOVE() KV_ON_WM(WM_MOUSEMOVE, OnMouseMove, Mouse)
#define ON_WM_LBUTTONDOWN() KV_ON_WM(WM_LBUTTONDOWN, OnLButtonDown, Mouse)
#define ON_WM_LBUTTONUP() KV_ON_WM(WM_LBUTTONUP, OnLButtonUp, Mouse)
#define ON_WM_LBUTTONDBLCLK() KV_ON_WM(WM_LBUTTONDBLCLK, OnLButtonDblClk, Mouse)
#define ON_WM_RBUTTONDOWN() KV_ON_WM(WM_RBUTTONDOWN, OnRButtonDown, Mouse)
#define ON_WM_RBUTTONUP() KV_ON_WM(WM_RBUTTONUP, OnRButtonUp, Mouse)
#define ON_WM_RBUTTONDBLCLK() KV_ON_WM(WM_RBUTTONDBLCLK, OnRButtonDblClk, Mouse)
#define ON_WM_MBUTTONDOWN() KV_ON_WM(WM_MBUTTONDOWN, OnMButtonDown, Mouse)
#define ON_WM_MBUTTONUP() KV_ON_WM(WM_MBUTTONUP, OnMButtonUp, Mouse)
#define ON_WM_MBUTTONDBLCLK() KV_ON_WM(WM_MBUTTONDBLCLK, OnMButtonDblClk, Mouse)
#define ON_WM_MOUSEWHEEL() KV_ON_WM(WM_MOUSEWHEEL, OnMouseWheel, Wheel)
#define ON_WM_MOUSELEAVE() KV_ON_WM(WM_MOUSELEAVE, OnMouseLeave, Nothing)
#define ON_WM_CAPTURECHANGED() KV_ON_WM(WM_CAPTURECHANGED, OnCaptureChanged, OtherWnd)
#define ON_WM_DRAWITEM() KV_ON_WM(WM_DRAWITEM, OnDrawItem, Item<DRAWITEMSTRUCT>)

// Arguments of an event, by the platform's names; the call takes its type from the handler.
#define VTS_NONE
#define VTS_R8
#define VTS_I4

#define DECLARE_EVENTSINK_MAP()                                                                                        \
protected:                                                                                                             \
    static const AFX_EVENTSINKMAP* GetThisEventSinkMap();                                                              \
    const AFX_EVENTSINKMAP* GetEventSinkMap() const override;

#define BEGIN_EVENTSINK_MAP(class_name, base_class_name)                                                               \
    const AFX_EVENTSINKMAP* class_name::GetEventSinkMap() const                                                        \
    {                                                                                                                  \
        return GetThisEventSinkMap();                                                                                  \
    }                                                                                                                  \
    const AFX_EVENTSINKMAP* class_name::GetThisEventSinkMap()                                                          \
    {                                                                                                                  \
        using TheBaseClass = base_class_name;                                                                          \
        static const AFX_EVENTSINKMAP_ENTRY eventEntries[] = {

#define ON_EVENT(class_name, control, dispatchId, member, types)                                                       \
    AFX_EVENTSINKMAP_ENTRY{static_cast<UINT>(control), dispatchId, &kv::win::Handler<&class_name::member>::Event},

#define END_EVENTSINK_MAP()                                                                                            \
    AFX_EVENTSINKMAP_ENTRY {}                                                                                          \
    }                                                                                                                  \
    ;                                                                                                                  \
    static const AFX_EVENTSINKMAP eventMap = {&TheBaseClass::GetThisEventSinkMap, eventEntries};                       \
    return &eventMap;                                                                                                  \
    }
