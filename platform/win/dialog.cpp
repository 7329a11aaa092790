// CDialog: made from a resource, modal or modeless, with the keys of dialogs.
#include "platform/win/dialog.h"

#include "platform/win/app.h"
#include "platform/win/native/dialog_window.h"
#include "platform/win/native/dispatch.h"
#include "platform/win/native/input_state.h"
#include "platform/win/native/modal_loop.h"

using namespace kv::win;

IMPLEMENT_DYNAMIC(CDialog, CWnd)

BEGIN_MESSAGE_MAP(CDialog, CWnd)
ON_WM_CLOSE()
ON_COMMAND(IDOK, OnCommandOK)
ON_COMMAND(IDCANCEL, OnCommandCancel)
ON_MESSAGE(WM_INITDIALOG, OnInitDialogMessage)
END_MESSAGE_MAP()

CDialog::~CDialog() = default;

BOOL CDialog::CreateFromTemplate(UINT templateId, CWnd* parent)
{
    const CDynLinkLibrary* module = AfxFindResourceHandle(ResourceKind::Dialog, templateId);
    if (!module)
        return FALSE;
    const auto from = ReadDialogTemplate(module->Resources().Find(ResourceKind::Dialog, templateId));
    if (!from)
        return FALSE;
    const bool child = (from->style & WS_CHILD) != 0;
    CRect place = DialogUnitsToPixels(from->place);
    CWnd* owner = parent && !child ? parent->GetTopLevelParent() : parent;
    if (owner && !child)
        owner->ClientToScreen(place);
    if (!CreateEx(from->exStyle, "#32770", from->title, from->style & ~WS_VISIBLE, place.left, place.top, place.Width(),
                  place.Height(), owner ? owner->m_hWnd : nullptr, nullptr))
        return FALSE;
    const HWND handle = m_hWnd;
    CreateControls(*Find(handle), *from, module->Resources().Find(ResourceKind::DialogInit, templateId));
    const HWND first = NextTabStop(*Find(handle), nullptr, false);
    const LRESULT takesFocus = SendMessage(WM_INITDIALOG, reinterpret_cast<WPARAM>(first), 0);
    if (takesFocus && IsWindow(handle) && first)
        ::SetFocus(NextTabStop(*Find(handle), nullptr, false));
    if (IsWindow(handle) && (from->style & WS_VISIBLE))
        ShowWindow(SW_SHOW);
    return IsWindow(handle);
}

BOOL CDialog::Create(UINT templateId, CWnd* parent)
{
    return CreateFromTemplate(templateId, parent);
}

INT_PTR CDialog::DoModal()
{
    CWnd* parent = parentWnd ? parentWnd : AfxGetMainWnd();
    struct Scope
    {
        CDialog& dialog;
        ~Scope()
        {
            dialog.running = false;
            if (dialog.m_hWnd)
                dialog.DestroyWindow();
        }
    } scope{*this};
    modalResult = -1;
    running = true;
    if (!CreateFromTemplate(resource, parent) || !m_hWnd)
        return modalResult;
    const BlockOthers blocked(m_hWnd);
    if (!running)
        return modalResult;
    Window* window = Find(m_hWnd);
    window->widget->setWindowModality(Qt::ApplicationModal);
    const HWND focus = input.focus;
    ShowWindow(SW_SHOW);
    ::SetFocus(::IsChild(m_hWnd, focus) ? focus : NextTabStop(*window, nullptr, false));
    RunModal([this] { return running && m_hWnd; });
    return modalResult;
}

void CDialog::EndDialog(int result)
{
    modalResult = result;
    if (running)
        running = false;
    if (m_hWnd)
        ShowWindow(SW_HIDE);
}

LRESULT CDialog::OnInitDialogMessage(WPARAM, LPARAM)
{
    PreInitDialog();
    return OnInitDialog();
}

BOOL CDialog::OnInitDialog()
{
    UpdateData(FALSE);
    return TRUE;
}

void CDialog::OnOK()
{
    if (UpdateData(TRUE))
        EndDialog(IDOK);
}

void CDialog::OnCancel()
{
    EndDialog(IDCANCEL);
}

void CDialog::OnClose()
{
    SendMessage(WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED));
}

void CDialog::GotoDlgCtrl(CWnd* control)
{
    control->SetFocus();
}

void CDialog::NextDlgCtrl()
{
    ::SetFocus(NextTabStop(*Find(m_hWnd), ::GetFocus(), false));
}

void CDialog::PrevDlgCtrl()
{
    ::SetFocus(NextTabStop(*Find(m_hWnd), ::GetFocus(), true));
}

void CDialog::SetDefID(UINT id)
{
    if (Window* window = Find(m_hWnd))
        MakeDefaultButton(*window, static_cast<int>(id));
}

void CDialog::MapDialogRect(RECT* rect) const
{
    *rect = DialogUnitsToPixels(*rect);
}

// Tab, Enter and Escape belong to the dialog unless the control wants them.
BOOL CDialog::PreTranslateMessage(MSG* message)
{
    if (CWnd::PreTranslateMessage(message))
        return TRUE;
    if (message->message != WM_KEYDOWN)
        return FALSE;
    const auto wants = static_cast<UINT>(::SendMessageW(message->hwnd, WM_GETDLGCODE, message->wParam, 0));
    if (wants & DLGC_WANTALLKEYS)
        return FALSE;
    Window* window = Find(m_hWnd);
    switch (message->wParam)
    {
    case VK_TAB:
        if (wants & DLGC_WANTTAB)
            return FALSE;
        if (const HWND next = NextTabStop(*window, ::GetFocus(), ::GetKeyState(VK_SHIFT) < 0))
            ::SetFocus(next);
        return TRUE;
    case VK_ESCAPE:
        SendMessage(WM_COMMAND, MAKEWPARAM(IDCANCEL, BN_CLICKED));
        return TRUE;
    case VK_RETURN:
        PressDefault();
        return TRUE;
    default:
        return FALSE;
    }
}

// A push button with the focus is the default for as long as it has it.
void CDialog::PressDefault()
{
    const HWND focus = ::GetFocus();
    const DWORD kind = static_cast<DWORD>(::GetWindowLongPtrW(focus, GWL_STYLE)) & 0xF;
    const Window* focused = Find(focus);
    const bool onButton = focused && focused->windowClass.name == CString("Button") && ::IsChild(m_hWnd, focus) &&
                          (kind == BS_PUSHBUTTON || kind == BS_DEFPUSHBUTTON || kind == BS_OWNERDRAW);
    const Window* button = onButton ? focused : DefaultButton(*Find(m_hWnd));
    if (!button)
        SendMessage(WM_COMMAND, MAKEWPARAM(IDOK, BN_CLICKED));
    else if (::IsWindowEnabled(button->handle))
        ::SendMessageW(button->handle, BM_CLICK, 0, 0);
}

BOOL CDialog::OnCmdMsg(UINT id, int code, void* extra, int* info)
{
    if (CWnd::OnCmdMsg(id, code, extra, info))
        return TRUE;
    if (code != CN_COMMAND && code != CN_UPDATE_COMMAND_UI)
        return FALSE;
    CWnd* owner = parentWnd;
    if (owner && owner->m_hWnd && owner->OnCmdMsg(id, code, extra, info))
        return TRUE;
    CWinApp* app = AfxGetApp();
    return app && app->OnCmdMsg(id, code, extra, info);
}
