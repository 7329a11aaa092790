// CWinApp: the application object, message boxes, and the loop that a program runs.
#pragma once

#include "platform/win/wnd.h"

#include <functional>

class CWinApp : public CCmdTarget
{
    DECLARE_DYNAMIC(CWinApp)

public:
    CWnd* m_pMainWnd = nullptr;

    // There is at most one; it is found by AfxGetApp until it goes.
    CWinApp();
    ~CWinApp() override;

    virtual BOOL InitInstance() { return TRUE; }
    virtual int ExitInstance() { return 0; }
    virtual int Run(); // until the last window closes or AfxPostQuitMessage
    HCURSOR LoadStandardCursor(UINT id) const { return ::LoadCursorW(nullptr, id); }
    HCURSOR LoadCursor(UINT id) const; // a resource of any loaded module
};

CWinApp* AfxGetApp(); // null without one
CWnd* AfxGetMainWnd();
void AfxPostQuitMessage(int code);
int AfxMessageBox(const CString& text, UINT type = MB_OK, UINT helpId = 0);
int MessageBoxW(HWND owner, const CString& text, const CString& caption, UINT type);

namespace kv::win
{
// Gets every CException that leaves a message that the system sent by itself (input, paint, menu command), and owns it.
// Without a handler a message box shows the exception's text. Exceptions of messages that code sends go to that code.
using ExceptionHandler = std::function<void(CException*)>;
ExceptionHandler SetExceptionHandler(ExceptionHandler handler); // the former one
} // namespace kv::win
