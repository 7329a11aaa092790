// An AOI window in a host of the tests, and small AOIs.
#include "tests/ui/aoi_window.h"

using namespace KvN;

namespace kv::test
{

std::unique_ptr<KvBufferAOI8> Ramp(short width, short height)
{
    auto aoi = std::make_unique<KvBufferAOI8>(KvTSize<short>(width, height), 0);
    for (int y = 0; y < height; ++y)
    {
        unsigned char* row = aoi->GetRowPointer(y);
        for (int x = 0; x < width; ++x)
            row[x] = static_cast<unsigned char>(x + y);
    }
    return aoi;
}

std::unique_ptr<KvBufferAOI8> Grey(short width, short height, unsigned char value)
{
    auto aoi = std::make_unique<KvBufferAOI8>(KvTSize<short>(width, height), 0);
    for (int y = 0; y < height; ++y)
        std::fill_n(aoi->GetRowPointer(y), width, value);
    return aoi;
}

AOIWindow::AOIWindow(CSize size) : window(std::make_unique<KvAOIWnd>())
{
    kv::win::ResetInput();
    host.CreateEx(0, AfxRegisterWndClass(0), CString(), WS_POPUP | WS_VISIBLE, CRect(CPoint(0, 0), size), nullptr, 0);
    window->Create(&host);
    kv::win::Settle();
}

AOIWindow::~AOIWindow()
{
    if (window->GetSafeHwnd())
        window->DestroyWindow();
    host.DestroyWindow();
    kv::win::ResetInput();
}

CRect AOIWindow::Frame() const
{
    CRect place;
    View().GetParentFrame()->GetWindowRect(&place);
    window->ScreenToClient(&place);
    return place;
}

void AOIWindow::ResizeHost(CSize client)
{
    host.MoveWindow(0, 0, client.cx, client.cy);
    window->MoveWindow(0, 0, client.cx, client.cy);
    kv::win::Settle();
}

unsigned AOIWindow::Shown(int x, int y) const
{
    CPoint point(x, y);
    View().ViewLPtoDP(&point, 1);
    return kv::win::ShownPixel(View().m_hWnd, point);
}

std::string Thrown(const std::function<void()>& run)
{
    try
    {
        run();
    }
    catch (KvException* failure)
    {
        const std::string text = failure->GetMessageW().Utf8();
        failure->Delete();
        return text;
    }
    return {};
}

} // namespace kv::test
