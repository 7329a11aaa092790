// The exchange of values between members and controls.
#include "platform/win/ddx.h"

#include "platform/win/slider.h"

#include <charconv>
#include <cstdio>
#include <string>

void CDataExchange::Fail()
{
    if (last)
        ::SetFocus(last);
    AfxThrowUserException();
}

HWND CDataExchange::PrepareCtrl(int id)
{
    last = ::GetDlgItem(m_pDlgWnd->m_hWnd, id);
    if (!last)
        AfxThrowResourceException("The dialog has no control " + CString(std::to_string(id)));
    return last;
}

void DDX_Control(CDataExchange* exchange, int id, CWnd& control)
{
    if (control.m_hWnd || exchange->m_bSaveAndValidate)
        return;
    const HWND window = exchange->PrepareCtrl(id);
    if (!control.SubclassWindow(window))
        AfxThrowResourceException("The control is bound to another object");
}

void DDX_Check(CDataExchange* exchange, int id, int& value)
{
    const HWND window = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = static_cast<int>(::SendMessageW(window, BM_GETCHECK, 0, 0));
    else
        ::SendMessageW(window, BM_SETCHECK, static_cast<WPARAM>(value != 0), 0);
}

namespace
{
bool IsRadio(HWND window)
{
    const auto kind = static_cast<DWORD>(::GetWindowLongPtrW(window, GWL_STYLE)) & 0xF;
    return kind == BS_RADIOBUTTON || kind == BS_AUTORADIOBUTTON;
}

bool BeginsGroup(HWND window)
{
    return (static_cast<DWORD>(::GetWindowLongPtrW(window, GWL_STYLE)) & WS_GROUP) != 0;
}
} // namespace

void DDX_Radio(CDataExchange* exchange, int id, int& value)
{
    HWND window = exchange->PrepareCtrl(id);
    int index = 0;
    if (exchange->m_bSaveAndValidate)
        value = -1;
    do
    {
        if (IsRadio(window))
        {
            if (!exchange->m_bSaveAndValidate)
                ::SendMessageW(window, BM_SETCHECK, static_cast<WPARAM>(index == value), 0);
            else if (::SendMessageW(window, BM_GETCHECK, 0, 0) != 0)
                value = index;
            ++index;
        }
        window = ::GetWindow(window, GW_HWNDNEXT);
    } while (window && !BeginsGroup(window));
}

void DDX_Text(CDataExchange* exchange, int id, CString& value)
{
    const HWND window = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = ::GetWindowTextOf(window);
    else
        ::SetWindowTextW(window, value);
}

namespace
{
template <class Number>
void ExchangeNumber(CDataExchange* exchange, int id, Number& value)
{
    CString text;
    if (!exchange->m_bSaveAndValidate)
    {
        char buffer[64];
        const auto end = std::to_chars(buffer, buffer + sizeof buffer, value).ptr;
        text = CString(std::string_view(buffer, static_cast<size_t>(end - buffer)));
    }
    DDX_Text(exchange, id, text);
    if (!exchange->m_bSaveAndValidate)
        return;
    const std::string typed = text.Utf8();
    const char* end = typed.data() + typed.size();
    Number read{};
    const auto result = std::from_chars(typed.data(), end, read);
    if (result.ec != std::errc() || result.ptr != end)
        exchange->Fail();
    value = read;
}
} // namespace

void DDX_Text(CDataExchange* exchange, int id, int& value)
{
    ExchangeNumber(exchange, id, value);
}

void DDX_Text(CDataExchange* exchange, int id, double& value)
{
    ExchangeNumber(exchange, id, value);
}

void DDX_Slider(CDataExchange* exchange, int id, int& value)
{
    const HWND window = exchange->PrepareCtrl(id);
    if (exchange->m_bSaveAndValidate)
        value = static_cast<int>(::SendMessageW(window, TBM_GETPOS, 0, 0));
    else
        ::SendMessageW(window, TBM_SETPOS, 1, value);
}
