// The windows of a session: one host, what fills it, and the dialog that may run over it.
#include "apps/session/stage.h"

#include "apps/session/arguments.h"

namespace kv::session
{

namespace
{
constexpr CSize defaultHost(800, 600);
} // namespace

void Content::SetTool(long)
{
    throw CommandError("the window has no tools");
}

// The top-level window. What fills it follows its size and has its focus.
class Stage::HostWnd : public CWnd
{
public:
    void Fill(CWnd* window)
    {
        filling = window;
        Place();
    }

protected:
    void OnSize(UINT type, int cx, int cy)
    {
        CWnd::OnSize(type, cx, cy);
        Place();
    }
    DECLARE_MESSAGE_MAP()

private:
    void Place()
    {
        CRect client;
        GetClientRect(&client);
        if (filling)
            filling->MoveWindow(&client);
    }

    CWnd* filling = nullptr;
};

BEGIN_MESSAGE_MAP(Stage::HostWnd, CWnd)
ON_WM_SIZE()
END_MESSAGE_MAP()

Stage::Stage() = default;

Stage::~Stage()
{
    filling.reset();
    if (host)
        host->DestroyWindow();
}

void Stage::SizeHost(CSize client)
{
    if (host)
    {
        host->SetWindowPos(nullptr, 0, 0, client.cx, client.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        return;
    }
    host = std::make_unique<HostWnd>();
    const HBRUSH background = GetSysColorBrush(COLOR_BTNFACE);
    host->CreateEx(0, AfxRegisterWndClass(CS_HREDRAW | CS_VREDRAW, nullptr, background), CString("kvsession"),
                   WS_OVERLAPPEDWINDOW | WS_CLIPCHILDREN, CRect(CPoint(0, 0), client), nullptr, 0);
    host->ShowWindow(SW_SHOW);
}

CWnd& Stage::EmptyHost()
{
    if (!host)
        SizeHost(defaultHost);
    host->Fill(nullptr);
    filling.reset();
    return *host;
}

void Stage::Fill(std::unique_ptr<Content> content)
{
    filling = std::move(content);
    host->Fill(filling->Window());
    View().SetFocus();
}

void Stage::Close()
{
    if (!filling)
        throw CommandError("nothing fills the host");
    EmptyHost();
}

void Stage::SetDialog(CWnd* newDialog, Content* content)
{
    dialog = newDialog;
    dialogContent = content;
}

Content& Stage::Current() const
{
    Content* content = dialogContent ? dialogContent : filling.get();
    if (!content)
        throw CommandError("there is no window");
    return *content;
}

KvN::KvAOIWnd& Stage::Window() const
{
    KvN::KvAOIWnd* window = Current().Window();
    if (!window)
        throw CommandError("there is no window");
    return *window;
}

KvN::KvAOIBaseViewWnd& Stage::View() const
{
    KvN::KvAOIBaseViewWnd* view = Window().GetAOIBaseViewWnd();
    if (!view)
        throw CommandError("there is no view");
    return *view;
}

CWnd& Stage::Host() const
{
    if (!host)
        throw CommandError("there is no host");
    return *host;
}

CWnd& Stage::TopLevel() const
{
    return dialog ? *dialog : Host();
}

} // namespace kv::session
