// The AOI window: what it nests, and its end.
#include "C/uiAOIFrameDocument.h"
#include "tests/ui/aoi_window.h"

using namespace KvN;
using kv::test::AOIWindow;
using kv::test::Ramp;

TEST(AOIWnd, NestsFrameAndViewWithADocument)
{
    const AOIWindow aoiWindow(CSize(300, 200));
    const KvAOIBaseViewWnd& view = aoiWindow.View();
    EXPECT_EQ(view.GetParentFrame()->GetParent(), aoiWindow.window.get());
    EXPECT_TRUE(view.GetParentFrame()->IsKindOf(RUNTIME_CLASS(KvAOIBaseFrameWnd)));
    ASSERT_NE(view.GetDocument(), nullptr);
    EXPECT_TRUE(view.GetDocument()->IsKindOf(RUNTIME_CLASS(KvAOIFrameDocument)));
}

TEST(AOIWnd, HasNoViewBeforeItsCreationAndAfterItsEnd)
{
    KvAOIWnd never;
    EXPECT_EQ(never.GetAOIBaseViewWnd(), nullptr);
    const AOIWindow aoiWindow;
    aoiWindow.window->DestroyWindow();
    EXPECT_EQ(aoiWindow.window->GetAOIBaseViewWnd(), nullptr);
    EXPECT_EQ(aoiWindow.window->GetSafeHwnd(), nullptr);
}

TEST(AOIWnd, GoesWithItsHost)
{
    const auto aoi = Ramp(50, 40);
    CWnd host;
    host.CreateEx(0, AfxRegisterWndClass(0), CString(), WS_POPUP | WS_VISIBLE, CRect(0, 0, 200, 100), nullptr, 0);
    KvAOIWnd window;
    window.Create(&host);
    window.GetAOIBaseViewWnd()->SetAOI(aoi.get());
    host.DestroyWindow();
    EXPECT_EQ(window.GetSafeHwnd(), nullptr);
}

TEST(AOIWnd, CanBeDeletedWithItsWindow)
{
    CWnd host;
    host.CreateEx(0, AfxRegisterWndClass(0), CString(), WS_POPUP | WS_VISIBLE, CRect(0, 0, 200, 100), nullptr, 0);
    auto window = std::make_unique<KvAOIWnd>();
    window->Create(&host);
    const HWND handle = window->m_hWnd;
    window.reset();
    EXPECT_FALSE(IsWindow(handle));
    host.DestroyWindow();
}

TEST(AOIFrameDocument, IsAnEmptyDocument)
{
    auto* document = static_cast<KvAOIFrameDocument*>(RUNTIME_CLASS(KvAOIFrameDocument)->CreateObject());
    EXPECT_EQ(document->OnNewDocument(), 1);
    delete document;
}
