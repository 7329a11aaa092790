// Toolbars: loading, marks, presses by hand, update handlers.
#include "tests/win/recording_wnd.h"
#include "tests/win/test_resources.h"

#include "platform/win/screen.h"

using namespace kv::win;

namespace
{
// 16 colours, cells of 8 by 8: red, then green, on light grey.
Bytes Strip(int cells)
{
    Bytes bytes;
    bytes.Dword(40).Dword(static_cast<std::uint32_t>(8 * cells)).Dword(8).Word(1).Word(4);
    for (int i = 0; i < 6; ++i)
        bytes.Dword(0);
    const std::uint32_t table[16] = {0xC0C0C0, 0xFF0000, 0x00FF00};
    for (const std::uint32_t colour : table)
        bytes.Dword(colour);
    for (int y = 0; y < 8; ++y)
    {
        for (int x = 0; x < 8 * cells; x += 2)
        {
            const int index = 1 + x / 8 % 2;
            const bool inside = y >= 2 && y < 6;
            bytes.Put(static_cast<unsigned char>(inside ? index * 17 : 0));
        }
    }
    return bytes;
}

class Commands : public RecordingWnd
{
public:
    std::vector<UINT> commands;

protected:
    void OnCommandId(UINT id) { commands.push_back(id); }
    void OnUpdate(CCmdUI* item)
    {
        item->Enable(FALSE);
        item->SetCheck(1);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(Commands, CWnd)
ON_COMMAND_RANGE(41, 43, OnCommandId)
ON_UPDATE_COMMAND_UI(43, OnUpdate)
END_MESSAGE_MAP()
} // namespace

class ToolBars : public WindowTest
{
protected:
    ToolBars()
    {
        module.Add(ResourceKind::ToolBar, 650,
                   Bytes().Word(1).Word(8).Word(8).Word(4).Word(41).Word(42).Word(0).Word(43));
        module.Add(ResourceKind::Bitmap, 650, Strip(3));
        module.Add(ResourceKind::ToolBar, 651, Bytes().Word(1).Word(8).Word(8).Word(1).Word(41));
        module.Load();
        top.CreateTop(300, 100);
        EXPECT_TRUE(bar.Create(&top));
        EXPECT_TRUE(bar.LoadToolBar(650));
        bar.MoveWindow(CRect(CPoint(0, 0), bar.CalcFixedLayout(TRUE, TRUE)));
        Settle();
    }

    void Press(int id)
    {
        CRect rect;
        ASSERT_TRUE(bar.GetItemRect(bar.CommandToIndex(static_cast<UINT>(id)), rect));
        PressButton(bar.m_hWnd, Button::Left, rect.CenterPoint());
        ReleaseButton(bar.m_hWnd, Button::Left, rect.CenterPoint());
    }

    TestModule module;
    Commands top;
    CToolBar bar;
};

TEST_F(ToolBars, ButtonsAndSeparatorsStandInTheirOrder)
{
    EXPECT_EQ(bar.GetCount(), 4);
    EXPECT_EQ(bar.GetItemID(0), 41u);
    EXPECT_EQ(bar.GetItemID(2), 0u);
    EXPECT_EQ(bar.CommandToIndex(43), 3);
    EXPECT_EQ(bar.CommandToIndex(99), -1);
    CRect first, last;
    bar.GetItemRect(0, first);
    bar.GetItemRect(3, last);
    EXPECT_EQ(first, CRect(2, 2, 17, 17));
    EXPECT_EQ(last, CRect(40, 2, 55, 17));
    EXPECT_EQ(bar.CalcFixedLayout(TRUE, TRUE), CSize(57, 19));
    EXPECT_FALSE(bar.GetItemRect(4, last));
}

TEST_F(ToolBars, PicturesComeFromTheirCells)
{
    const Picture picture = PictureOf(bar.m_hWnd);
    EXPECT_EQ(picture.At(9, 9), 0xFF0000u);
    EXPECT_EQ(picture.At(24, 9), 0x00FF00u);
    EXPECT_EQ(picture.At(47, 9), 0xFF0000u);
}

TEST_F(ToolBars, APressSendsTheCommand)
{
    Press(42);
    Press(41);
    EXPECT_THAT(top.commands, testing::ElementsAre(42u, 41u));
}

TEST_F(ToolBars, ADisabledButtonTakesNoPress)
{
    EXPECT_TRUE(bar.EnableButton(42, FALSE));
    EXPECT_FALSE(bar.IsButtonEnabled(42));
    Press(42);
    EXPECT_TRUE(top.commands.empty());
    bar.EnableButton(42, TRUE);
    Press(42);
    EXPECT_EQ(top.commands.size(), 1u);
    EXPECT_FALSE(bar.EnableButton(99, TRUE));
}

TEST_F(ToolBars, ACheckButtonTurnsWithEachPressAndByProgram)
{
    bar.SetButtonStyle(0, TBBS_CHECKBOX);
    EXPECT_FALSE(bar.IsButtonChecked(41));
    Press(41);
    EXPECT_TRUE(bar.IsButtonChecked(41));
    EXPECT_TRUE(bar.CheckButton(41, FALSE));
    EXPECT_FALSE(bar.IsButtonChecked(41));
    bar.CheckButton(41, TRUE);
    EXPECT_EQ(bar.GetButtonStyle(0), TBBS_CHECKBOX | TBBS_CHECKED);
    bar.EnableButton(41, FALSE);
    EXPECT_TRUE(bar.IsButtonChecked(41));
    EXPECT_FALSE(bar.CheckButton(99, TRUE));
}

TEST_F(ToolBars, TheResourceCompilersFormIsReadAsWell)
{
    TestModule other;
    other.Add(ResourceKind::ToolBar, 652, Bytes().Dword(8).Dword(8).Dword(3).Dword(41).Dword(0).Dword(43));
    other.Add(ResourceKind::Bitmap, 652, Strip(2));
    other.Load();
    CToolBar wide;
    wide.Create(&top, WS_CHILD | WS_VISIBLE, 7);
    EXPECT_TRUE(wide.LoadToolBar(652));
    EXPECT_EQ(wide.GetCount(), 3);
    EXPECT_EQ(wide.GetItemID(0), 41u);
    EXPECT_EQ(wide.GetItemID(1), 0u);
    EXPECT_EQ(wide.GetItemID(2), 43u);
}

TEST_F(ToolBars, WithoutPicturesOrResourceLoadingFails)
{
    CToolBar other;
    other.Create(&top, WS_CHILD | WS_VISIBLE, 7);
    EXPECT_FALSE(other.LoadToolBar(651));
    EXPECT_FALSE(other.LoadToolBar(4711));
    CToolBar without;
    EXPECT_FALSE(without.LoadToolBar(650));
}
