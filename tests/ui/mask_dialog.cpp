// Mask dialogs of the tests.
#include "tests/ui/mask_dialog.h"

#include "platform/win/modal.h"

#include <fstream>
#include <sstream>
#include <unistd.h>

using namespace KvN;

namespace kv::test
{

namespace
{

void ClickAt(HWND window, CPoint point)
{
    kv::win::MoveMouse(window, point);
    kv::win::PressButton(window, kv::win::Button::Left, point);
    kv::win::ReleaseButton(window, kv::win::Button::Left, point);
}

HWND Control(const CWnd& dialog, int id)
{
    return ::GetDlgItem(dialog.m_hWnd, id);
}

} // namespace

ConfigFile::ConfigFile(const std::string& text)
{
    static int count = 0;
    folder = std::filesystem::path(::testing::TempDir()) /
             ("mask_config_" + std::to_string(::getpid()) + "_" + std::to_string(++count));
    std::filesystem::create_directories(folder);
    path = folder / "mask.ini";
    if (!text.empty())
        std::ofstream(path) << text;
}

ConfigFile::~ConfigFile()
{
    std::error_code ignored;
    std::filesystem::remove_all(folder, ignored);
}

std::string ConfigFile::Text() const
{
    std::ifstream file(path);
    std::stringstream text;
    text << file.rdbuf();
    return text.str();
}

INT_PTR RunDialog(CDialog& dialog, const std::function<void()>& act)
{
    bool acted = false;
    kv::win::ResetInput();
    kv::win::SetModalHook(
        [&]
        {
            if (!std::exchange(acted, true))
                act();
            else
                dialog.EndDialog(IDCANCEL);
        });
    try
    {
        const INT_PTR result = dialog.DoModal();
        kv::win::SetModalHook({});
        return result;
    }
    catch (...)
    {
        kv::win::SetModalHook({});
        throw;
    }
}

void ClickControl(const CWnd& dialog, int id)
{
    CRect client;
    ::GetClientRect(Control(dialog, id), &client);
    ClickAt(Control(dialog, id), client.CenterPoint());
}

void ClickTool(const KvMaskDlgBase& dialog, int id)
{
    const KvDlgToolBar& bar = *dialog.GetCurrentToolBar();
    CRect button;
    ASSERT_TRUE(bar.GetItemRect(bar.CommandToIndex(static_cast<UINT>(id)), &button)) << id;
    ClickAt(bar.m_hWnd, button.CenterPoint());
}

bool IsToolChecked(const KvMaskDlgBase& dialog, int id)
{
    return dialog.GetCurrentToolBar()->IsButtonChecked(id);
}

bool IsToolEnabled(const KvMaskDlgBase& dialog, int id)
{
    return dialog.GetCurrentToolBar()->IsButtonEnabled(id);
}

bool IsControlEnabled(const CWnd& dialog, int id)
{
    return ::IsWindowEnabled(Control(dialog, id));
}

bool IsControlShown(const CWnd& dialog, int id)
{
    return ::IsWindowVisible(Control(dialog, id));
}

bool IsControlChecked(const CWnd& dialog, int id)
{
    return ::SendMessageW(Control(dialog, id), BM_GETCHECK, 0, 0) == BST_CHECKED;
}

double SpinValue(const CWnd& dialog, int id)
{
    return dynamic_cast<KvSpinEdit&>(*CWnd::FromHandlePermanent(Control(dialog, id))).GetValue();
}

void DragInDialog(KvMaskDlgBase& dialog, int x1, int y1, int x2, int y2)
{
    const KvAOIBaseViewWnd& view = *dialog.GetMaskWnd().GetAOIBaseViewWnd();
    POINT points[] = {{x1, y1}, {x2, y2}};
    view.ViewLPtoDP(points, 2);
    kv::win::MoveMouse(view.m_hWnd, points[0]);
    kv::win::PressButton(view.m_hWnd, kv::win::Button::Left, points[0]);
    kv::win::MoveMouse(view.m_hWnd, points[1]);
    kv::win::ReleaseButton(view.m_hWnd, kv::win::Button::Left, points[1]);
}

KeyFailure KeyFailureOf(const std::function<void()>& run)
{
    try
    {
        run();
    }
    catch (KvReadKeywordException* failure)
    {
        KeyFailure told{failure->File().Utf8(), failure->Line(), failure->Key().Utf8(), failure->Group().Utf8(),
                        failure->ConfigFile().Utf8()};
        failure->Delete();
        return told;
    }
    return {};
}

} // namespace kv::test
