// Menus: their data, their resources, and the open one with its update handlers.
#include "tests/win/recording_wnd.h"
#include "tests/win/test_resources.h"

#include "platform/win/modal.h"

using namespace kv::win;

namespace
{
class CommandWnd : public RecordingWnd
{
public:
    std::vector<UINT> commands;
    int updates = 0;

protected:
    void OnCommandId(UINT id) { commands.push_back(id); }
    void OnPlain() { commands.push_back(0); }
    void OnUpdate(CCmdUI* item)
    {
        ++updates;
        item->Enable(item->m_nID != 12);
        item->SetCheck(item->m_nID == 11);
    }
    DECLARE_MESSAGE_MAP()
};

BEGIN_MESSAGE_MAP(CommandWnd, CWnd)
ON_COMMAND_RANGE(10, 15, OnCommandId)
ON_COMMAND(20, OnPlain)
ON_UPDATE_COMMAND_UI_RANGE(11, 12, OnUpdate)
END_MESSAGE_MAP()

Bytes MenuResource()
{
    Bytes bytes;
    bytes.Word(0).Word(0);
    bytes.Word(MF_POPUP | 0x80).Text(u"Ansicht");
    bytes.Word(0).Word(10).Text(u"Zehn");
    bytes.Word(MF_POPUP).Text(u"Mehr");
    bytes.Word(0).Word(11).Text(u"Elf");
    bytes.Word(0).Word(0).Text(u"");
    bytes.Word(0x80).Word(12).Text(u"Zwölf");
    bytes.Word(MF_GRAYED | 0x80).Word(20).Text(u"Zwanzig");
    return bytes;
}
} // namespace

class Menus : public WindowTest
{
protected:
    Menus()
    {
        module.Add(ResourceKind::Menu, 600, MenuResource());
        module.Load();
    }
    ~Menus() override { SetModalHook({}); }

    TestModule module;
};

TEST_F(Menus, AResourceIsReadWithPopupsAndSeparators)
{
    CMenu menu;
    ASSERT_TRUE(menu.LoadMenu(600));
    ASSERT_EQ(menu.GetMenuItemCount(), 1u);
    CMenu* view = menu.GetSubMenu(0);
    ASSERT_NE(view, nullptr);
    EXPECT_EQ(view->GetMenuItemCount(), 3u);
    EXPECT_EQ(view->GetMenuItemID(0), 10u);
    EXPECT_EQ(view->GetMenuItemID(1), UINT(-1));
    CMenu* more = view->GetSubMenu(1);
    ASSERT_NE(more, nullptr);
    EXPECT_EQ(more->GetMenuItemCount(), 3u);
    EXPECT_EQ(more->GetMenuItemID(1), 0u);
    CString text;
    EXPECT_EQ(menu.GetMenuString(12, text, MF_BYCOMMAND), 5);
    EXPECT_EQ(text, CString("Zwölf"));
    EXPECT_TRUE(view->GetMenuState(20, MF_BYCOMMAND) & MF_GRAYED);
    EXPECT_FALSE(CMenu().LoadMenu(4711));
}

TEST_F(Menus, AnItemBecomesAPopup)
{
    const HMENU bar = LoadMenuW(module.Library(), 600);
    const HMENU popup = CreatePopupMenu();
    AppendMenuW(popup, MF_STRING | MF_CHECKED, 15, "neu");
    EXPECT_TRUE(ModifyMenuW(GetSubMenu(bar, 0), 10, MF_POPUP, reinterpret_cast<UINT_PTR>(popup), "Tabellen"));
    EXPECT_EQ(GetSubMenu(GetSubMenu(bar, 0), 0), popup);
    EXPECT_TRUE(GetMenuState(bar, 15, MF_BYCOMMAND) & MF_CHECKED);
    EXPECT_TRUE(DestroyMenu(bar));
    EXPECT_FALSE(IsMenu(popup)) << "a popup goes with its item";
    EXPECT_FALSE(DestroyMenu(bar));
}

TEST_F(Menus, ItemsAreCheckedAndEnabledByCommandOrPosition)
{
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 10, "a");
    AppendMenuW(menu, MF_STRING, 11, "b");
    EXPECT_EQ(CheckMenuItem(menu, 11, MF_BYCOMMAND | MF_CHECKED), MF_UNCHECKED);
    EXPECT_EQ(CheckMenuItem(menu, 1, MF_BYPOSITION | MF_UNCHECKED), MF_CHECKED);
    EXPECT_EQ(EnableMenuItem(menu, 0, MF_BYPOSITION | MF_GRAYED | MF_DISABLED), int(MF_ENABLED));
    EXPECT_EQ(EnableMenuItem(menu, 10, MF_ENABLED), int(MF_GRAYED | MF_DISABLED));
    EXPECT_EQ(EnableMenuItem(menu, 99, MF_ENABLED), -1);
    EXPECT_EQ(CheckMenuItem(nullptr, 0, MF_BYPOSITION), DWORD(-1));
    DestroyMenu(menu);
}

TEST_F(Menus, TheOpenMenuShowsItsItemsAsItsUpdateHandlersSay)
{
    CommandWnd top;
    top.CreateTop();
    CMenu bar;
    bar.LoadMenu(600);
    SetModalHook(
        [&]
        {
            const std::vector<MenuItem> items = OpenMenuItems();
            ASSERT_EQ(items.size(), 3u);
            EXPECT_EQ(items[0].kind, MenuItem::Command);
            EXPECT_EQ(items[0].id, 10u);
            EXPECT_TRUE(items[0].enabled);
            EXPECT_EQ(items[1].kind, MenuItem::Popup);
            EXPECT_EQ(items[1].text, CString("Mehr"));
            ASSERT_EQ(items[1].items.size(), 3u);
            EXPECT_TRUE(items[1].items[0].checked);
            EXPECT_EQ(items[1].items[1].kind, MenuItem::Separator);
            EXPECT_FALSE(items[1].items[2].enabled);
            EXPECT_TRUE(items[2].enabled) << "it has a handler, and no update handler that says otherwise";
            EXPECT_TRUE(DismissMenu());
        });
    bar.GetSubMenu(0)->TrackPopupMenu(TPM_RIGHTBUTTON, 100, 100, &top);
    Settle();
    EXPECT_FALSE(IsMenuOpen());
    EXPECT_EQ(top.updates, 2);
    EXPECT_TRUE(top.commands.empty());
}

TEST_F(Menus, AChosenItemIsPostedToTheOwner)
{
    CommandWnd top;
    top.CreateTop();
    CMenu bar;
    bar.LoadMenu(600);
    SetModalHook(
        [&]
        {
            EXPECT_FALSE(ChooseMenuItem(12)) << "disabled";
            EXPECT_FALSE(ChooseMenuItem(99));
            EXPECT_TRUE(ChooseMenuItem(11));
        });
    EXPECT_TRUE(bar.GetSubMenu(0)->TrackPopupMenu(TPM_RIGHTBUTTON, 100, 100, &top));
    EXPECT_TRUE(top.commands.empty());
    Settle();
    EXPECT_THAT(top.commands, testing::ElementsAre(11u));
}

TEST_F(Menus, AnItemWithoutAnyHandlerIsGray)
{
    RecordingWnd top;
    top.CreateTop();
    CMenu menu;
    menu.CreatePopupMenu();
    menu.AppendMenu(MF_STRING, 77, "niemand");
    SetModalHook(
        [&]
        {
            EXPECT_FALSE(OpenMenuItems().at(0).enabled);
            DismissMenu();
        });
    menu.TrackPopupMenu(0, 100, 100, &top);
}

TEST_F(Menus, ThePressedKeyboardChoosesToo)
{
    CommandWnd top;
    top.CreateTop();
    CMenu bar;
    bar.LoadMenu(600);
    int step = 0;
    SetModalHook(
        [&]
        {
            PressKey(step == 0 ? VK_DOWN : VK_RETURN);
            ReleaseKey(step++ == 0 ? VK_DOWN : VK_RETURN);
            if (step > 4)
                DismissMenu();
        });
    bar.GetSubMenu(0)->TrackPopupMenu(TPM_RIGHTBUTTON, 100, 100, &top);
    SetModalHook({});
    Settle();
    EXPECT_THAT(top.commands, testing::ElementsAre(10u));
}

TEST_F(Menus, EscapeClosesAndTheOwnerKeepsTheFocus)
{
    CommandWnd top;
    top.CreateTop();
    top.SetFocus();
    CMenu bar;
    bar.LoadMenu(600);
    int rounds = 0;
    SetModalHook(
        [&]
        {
            PressKey(VK_ESCAPE);
            ReleaseKey(VK_ESCAPE);
            if (++rounds > 3)
                DismissMenu();
        });
    bar.GetSubMenu(0)->TrackPopupMenu(TPM_RIGHTBUTTON, 100, 100, &top);
    SetModalHook({});
    EXPECT_EQ(rounds, 1);
    EXPECT_EQ(CWnd::GetFocus(), &top);
    EXPECT_EQ(top.Count(WM_KEYDOWN), 0);
}

TEST_F(Menus, TheResultCanBeAskedForInstead)
{
    RecordingWnd top;
    top.CreateTop();
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 55, "x");
    SetModalHook([] { ChooseMenuItem(55); });
    EXPECT_EQ(TrackPopupMenu(menu, TPM_RETURNCMD, 5, 5, 0, top.m_hWnd, nullptr), 55);
    Settle();
    EXPECT_EQ(top.Count(WM_COMMAND), 0);
    DestroyMenu(menu);
}

TEST_F(Menus, TrackingEndsTheCapture)
{
    RecordingWnd top;
    top.CreateTop();
    top.SetCapture();
    const HMENU menu = CreatePopupMenu();
    AppendMenuW(menu, MF_STRING, 55, "x");
    SetModalHook([] { DismissMenu(); });
    TrackPopupMenu(menu, 0, 5, 5, 0, top.m_hWnd, nullptr);
    EXPECT_EQ(top.Count(WM_CAPTURECHANGED), 1);
    DestroyMenu(menu);
}
