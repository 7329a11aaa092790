// Window classes by name, and which kind of window each name makes.
#include "platform/win/native/classes.h"

#include "platform/win/user.h"

#include <algorithm>
#include <map>

namespace kv::win
{
namespace
{
struct Entry
{
    WindowClass windowClass;
    Factory factory = nullptr; // null: a plain window
};

// Upper and lower case are the same in the name of a class; the resource compiler writes STATIC.
struct NameOrder
{
    bool operator()(const CString& a, const CString& b) const
    {
        const auto small = [](char16_t c) { return c >= u'A' && c <= u'Z' ? static_cast<char16_t>(c + 32) : c; };
        return std::lexicographical_compare(a.Units().begin(), a.Units().end(), b.Units().begin(), b.Units().end(),
                                            [&](char16_t x, char16_t y) { return small(x) < small(y); });
    }
};

using ClassMap = std::map<CString, Entry, NameOrder>;

ClassMap& Classes()
{
    static auto& classes = *new ClassMap;
    return classes;
}

Entry* FindEntry(const CString& name)
{
    RegisterStandardControls();
    const auto found = Classes().find(name);
    if (found == Classes().end())
        return nullptr;
    // Control classes may be registered before there is an application, cursors can't.
    WindowClass& windowClass = found->second.windowClass;
    if (found->second.factory && !windowClass.cursor)
        windowClass.cursor = LoadCursorW(nullptr, IDC_ARROW);
    return &found->second;
}
} // namespace

void RegisterControlClass(const CString& name, Factory factory)
{
    Classes()[name] = {{name, CS_DBLCLKS, nullptr, nullptr}, factory};
}

const WindowClass* FindClass(const CString& name)
{
    const Entry* entry = FindEntry(name);
    return entry ? &entry->windowClass : nullptr;
}

std::unique_ptr<Window> MakeWindow(const WindowClass& windowClass, const CREATESTRUCT& create)
{
    const Entry* entry = FindEntry(windowClass.name);
    return entry && entry->factory ? entry->factory(windowClass, create)
                                   : std::make_unique<Window>(windowClass, create);
}
} // namespace kv::win

using namespace kv::win;

ATOM RegisterClassW(const WNDCLASSW* windowClass)
{
    if (!windowClass || windowClass->lpszClassName.IsEmpty())
        return 0;
    const CString& name = windowClass->lpszClassName;
    if (!FindEntry(name))
        Classes()[name] = {{name, windowClass->style, windowClass->hCursor, windowClass->hbrBackground}, nullptr};
    return 1;
}

BOOL GetClassInfo(const CString& name, WNDCLASSW* windowClass)
{
    const WindowClass* found = FindClass(name);
    if (!found || !windowClass)
        return FALSE;
    *windowClass = WNDCLASSW{};
    windowClass->style = found->style;
    windowClass->hCursor = found->cursor;
    windowClass->hbrBackground = found->background;
    windowClass->lpszClassName = found->name;
    return TRUE;
}

CString AfxRegisterWndClass(UINT style, HCURSOR cursor, HBRUSH background, HICON icon)
{
    CString name;
    name.Format(L"Afx:%x:%p:%p:%p", style, static_cast<void*>(cursor), static_cast<void*>(background),
                static_cast<void*>(icon));
    WNDCLASSW windowClass{};
    windowClass.style = style;
    windowClass.hCursor = cursor;
    windowClass.hbrBackground = background;
    windowClass.lpszClassName = name;
    RegisterClassW(&windowClass);
    return name;
}
