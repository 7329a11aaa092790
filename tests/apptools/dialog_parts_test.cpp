// The hosting window, the spin edit, the dialog's toolbar and the application object.
#include "contracts/apptools.h"
#include "contracts/basics.h"
#include "platform/win/input.h"
#include "platform/win/modal.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

using namespace kv::win;
using namespace KvN;

namespace
{
class Host : public KvBaseFrameWnd
{
public:
    int built = 0;
    CWnd child;
    CFrameWnd frame;
    void CreateChildWindows() override { ++built; }
};

class Sink : public CWnd
{
public:
    std::vector<double> values;

protected:
    void OnValue(double value) { values.push_back(value); }
    DECLARE_MESSAGE_MAP()
    DECLARE_EVENTSINK_MAP()
};
BEGIN_MESSAGE_MAP(Sink, CWnd)
END_MESSAGE_MAP()
BEGIN_EVENTSINK_MAP(Sink, CWnd)
ON_EVENT(Sink, 36315, 1, OnValue, VTS_R8)
END_EVENTSINK_MAP()

class Parts : public testing::Test
{
protected:
    Parts()
    {
        top.CreateEx(0, AfxRegisterWndClass(0), CString(), WS_POPUP | WS_VISIBLE, 0, 0, 300, 200, nullptr, nullptr);
        Settle();
    }
    ~Parts() override
    {
        top.DestroyWindow();
        Settle();
    }

    // A spin edit as a dialog makes it, bound afterwards.
    void BindSpin(KvSpinEdit& spin)
    {
        CWnd made;
        made.Create("{B42FB016-43F2-11D1-80C0-000000000000}", CString(), WS_CHILD | WS_VISIBLE | WS_TABSTOP,
                    CRect(0, 0, 60, 22), &top, 36315);
        const HWND handle = made.Detach();
        ASSERT_TRUE(spin.SubclassWindow(handle));
        Settle();
    }

    Sink top;
};
} // namespace

TEST_F(Parts, AHostBuildsItsChildrenOnceWhenCreated)
{
    Host host;
    ASSERT_TRUE(host.Create(&top));
    EXPECT_EQ(host.built, 1);
    CRect rect;
    host.GetClientRect(rect);
    EXPECT_EQ(rect, CRect(0, 0, 300, 200));
}

TEST_F(Parts, AHostThatTakesAWindowOverBuildsItsChildrenToo)
{
    CStatic place;
    place.Create("", WS_CHILD | WS_VISIBLE, CRect(10, 10, 110, 60), &top, 77);
    place.Detach();
    Host host;
    ASSERT_TRUE(host.SubclassDlgItem(77, &top));
    EXPECT_EQ(host.built, 1);
}

TEST_F(Parts, AHostOffersItsSizeToFramesInIt)
{
    Host host;
    host.Create(&top);
    class Frame : public CFrameWnd
    {
        void PostNcDestroy() override {}
    } frame;
    frame.Create(CString(), CString(), WS_CHILD | WS_VISIBLE, CRect(0, 0, 50, 50), &host);
    host.MoveWindow(0, 0, 120, 90);
    CRect rect;
    frame.GetWindowRect(rect);
    host.ScreenToClient(rect);
    EXPECT_EQ(rect, CRect(0, 0, 120, 90));
}

TEST_F(Parts, ASpinEditStartsAtItsMinimum)
{
    KvSpinEdit spin;
    EXPECT_EQ(spin.GetValue(), 1.0);
    BindSpin(spin);
    EXPECT_EQ(spin.GetValue(), 1.0);
    EXPECT_TRUE(top.values.empty());
}

TEST_F(Parts, SettingASpinEditFiresEachTimeAndKeepsTheRange)
{
    KvSpinEdit spin;
    BindSpin(spin);
    spin.SetValue(7);
    spin.SetValue(7);
    spin.SetValue(1000);
    spin.SetValue(-3);
    EXPECT_THAT(top.values, testing::ElementsAre(7.0, 7.0, 100.0, 1.0));
    EXPECT_EQ(spin.GetValue(), 1.0);
}

TEST_F(Parts, ASpinEditKeepsFractions)
{
    KvSpinEdit spin;
    BindSpin(spin);
    spin.SetValue(12.5);
    EXPECT_EQ(spin.GetValue(), 12.5);
    EXPECT_THAT(top.values, testing::ElementsAre(12.5));
}

TEST_F(Parts, TypingAndSteppingASpinEditFires)
{
    KvSpinEdit spin;
    BindSpin(spin);
    spin.SetFocus();
    PressKey(VK_UP);
    ReleaseKey(VK_UP);
    EXPECT_THAT(top.values, testing::ElementsAre(2.0));
    top.values.clear();
    spin.SetValue(5);
    PressKey(VK_DOWN);
    ReleaseKey(VK_DOWN);
    EXPECT_THAT(top.values, testing::ElementsAre(5.0, 4.0));
}

TEST_F(Parts, InitialDataGiveTheMaximum)
{
    KvSpinEdit spin;
    BindSpin(spin);
    const double initial[] = {0, 1, 1, 500};
    spin.SendMessage(0x0376, sizeof initial, reinterpret_cast<LPARAM>(initial));
    spin.SetValue(900);
    EXPECT_EQ(spin.GetValue(), 500.0);
    spin.SendMessage(0x0376, 8, reinterpret_cast<LPARAM>(initial));
    EXPECT_EQ(spin.GetValue(), 500.0) << "cut off data are no data";
}

TEST_F(Parts, ADialogsToolbarLoadsFromTheLibrary)
{
    KvDlgToolBar bar(0, 2048, GetResourceModule());
    ASSERT_TRUE(bar.Create(&top, 0x50002802, 59392));
    ASSERT_TRUE(bar.LoadToolBar(8862, 0));
    EXPECT_EQ(bar.CommandToIndex(42350), 0);
    EXPECT_TRUE(bar.CheckButton(42350, 1));
    EXPECT_TRUE(bar.EnableButton(42371, 0));
    EXPECT_FALSE(bar.IsButtonEnabled(42371));
    EXPECT_FALSE(bar.LoadToolBar(4711, 0));
}

TEST_F(Parts, AToolbarsIdMayStandInThePlaceOfItsName)
{
    KvDlgToolBar bar(0, 2048, GetResourceModule());
    ASSERT_TRUE(bar.Create(&top, 0x50002802, 59392));
    EXPECT_FALSE(bar.LoadToolBar(L"8862", 0));
    EXPECT_EQ(bar.CommandToIndex(42350), -1);
    EXPECT_TRUE(bar.LoadToolBar(reinterpret_cast<LPCTSTR>(std::uintptr_t{8862}), 0));
    EXPECT_EQ(bar.CommandToIndex(42350), 0);
}

TEST(Application, ThereIsAlwaysOne)
{
    ASSERT_NE(GetpApp(), nullptr);
    EXPECT_EQ(GetpApp(), GetpApp());
    EXPECT_EQ(CursorId(GetpApp()->LoadStandardCursor(IDC_CROSS)), IDC_CROSS);
}
