// CWinApp and the program's loop.
#include "platform/win/app.h"

#include "platform/win/native/dispatch.h"

#include <QApplication>

IMPLEMENT_DYNAMIC(CWinApp, CCmdTarget)

namespace
{
CWinApp* theApp = nullptr;
}

CWinApp::CWinApp()
{
    if (!theApp)
        theApp = this;
}

CWinApp::~CWinApp()
{
    if (theApp == this)
        theApp = nullptr;
}

int CWinApp::Run()
{
    if (!InitInstance())
        return ExitInstance();
    const int code = QApplication::exec();
    kv::win::RethrowKept();
    ExitInstance();
    return code;
}

HCURSOR CWinApp::LoadCursor(UINT id) const
{
    return ::LoadCursorW(AfxFindResourceHandle(ResourceKind::GroupCursor, id), id);
}

CWinApp* AfxGetApp()
{
    return theApp;
}

CWnd* AfxGetMainWnd()
{
    return theApp ? theApp->m_pMainWnd : nullptr;
}

void AfxPostQuitMessage(int code)
{
    QCoreApplication::exit(code);
}

int AfxMessageBox(const CString& text, UINT type, UINT)
{
    const CWnd* main = AfxGetMainWnd();
    HWND owner = ::GetActiveWindow();
    if (!owner && main)
        owner = main->m_hWnd;
    return ::MessageBoxW(
        owner, text, CString(std::u16string_view(QGuiApplication::applicationDisplayName().toStdU16String())), type);
}
