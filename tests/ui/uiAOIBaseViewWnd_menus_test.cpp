// The AOI view's context menus: variants, what is checked and enabled, commands.
#include "C/uiAOIBaseViewWnd_menus_p.h"
#include "platform/win/modal.h"
#include "tests/ui/aoi_window.h"

#include <QApplication>
#include <QWidget>

using namespace KvN;
using kv::test::AOIWindow;
using kv::test::Grey;
using kv::test::Handler;
using kv::test::Ramp;
using kv::win::MenuItem;

namespace
{
class AOIViewMenu : public ::testing::Test
{
protected:
    AOIViewMenu() : view(aoiWindow.View()) { view.SetAOI(aoi.get()); }

    // Opens the menu by a right click, chooses `command` (0: dismisses it) and gives what it showed.
    std::vector<MenuItem> Open(UINT command = 0)
    {
        std::vector<MenuItem> items;
        kv::win::SetModalHook(
            [&]
            {
                items = kv::win::OpenMenuItems();
                if (!command || !kv::win::ChooseMenuItem(command))
                    kv::win::DismissMenu();
            });
        kv::win::PressButton(view.m_hWnd, kv::win::Button::Right, CPoint(0, 0));
        kv::win::ReleaseButton(view.m_hWnd, kv::win::Button::Right, CPoint(0, 0));
        kv::win::SetModalHook({});
        return items;
    }
    // The ids of the checked commands of a popup.
    static std::vector<UINT> Checked(const std::vector<MenuItem>& items, size_t popup)
    {
        std::vector<UINT> ids;
        for (const MenuItem& item : items.at(popup).items)
        {
            if (item.checked)
                ids.push_back(item.id);
        }
        return ids;
    }
    void Zoom(double x, double y)
    {
        view.SetDefaultOff();
        view.SetZoomFactor(x, y);
    }

    std::unique_ptr<KvBufferAOI8> aoi = Ramp(40, 30);
    AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view;
};
using Ids = std::vector<UINT>;
} // namespace

TEST_F(AOIViewMenu, TheUsualMenuOffersTablesAndZoom)
{
    const auto items = Open();
    ASSERT_EQ(items.size(), 2u);
    EXPECT_EQ(items[0].text.Utf8(), "Output Lut");
    EXPECT_EQ(items[1].text.Utf8(), "Zoom");
    ASSERT_EQ(items[0].items.size(), 6u);
    EXPECT_EQ(items[0].items[0].id, 45015u);
    EXPECT_EQ(items[0].items[5].text.Utf8(), "Hot");
    ASSERT_EQ(items[1].items.size(), 11u);
    EXPECT_EQ(items[1].items[0].text.Utf8(), "Zoom 25%");
    EXPECT_EQ(items[1].items[10].text.Utf8(), "Seitenverhältnis beibehalten");
    EXPECT_EQ(Checked(items, 0), Ids{45015});
    EXPECT_EQ(Checked(items, 1), (Ids{45009, 45012}));
    EXPECT_FALSE(items[1].items[10].enabled);
}

TEST_F(AOIViewMenu, TheVariantDependsOnKindAndList)
{
    view.UseContextMenu(3);
    EXPECT_EQ(Open().at(1).items.at(0).id, 45000u);
    view.UseContextMenu(2);
    EXPECT_EQ(Open().size(), 2u); // an empty list: the usual menu
    view.AddAOI(aoi.get());
    const auto items = Open();
    ASSERT_EQ(items.size(), 3u);
    EXPECT_EQ(items[2].items.size(), 1u);
    view.UseContextMenu(77);
    EXPECT_EQ(Open().size(), 2u);
}

TEST_F(AOIViewMenu, TheCheckedChoiceOfAKindNeedsTwoBackgrounds)
{
    auto& kind = aoiWindow.Open().contextMenuKind;
    view.UseContextMenuWithCheck(3);
    EXPECT_EQ(kind, 3);
    view.UseContextMenuWithCheck(2);
    EXPECT_EQ(kind, 1);
    view.AddAOI(aoi.get());
    view.UseContextMenuWithCheck(2);
    EXPECT_EQ(kind, 1);
    view.AddAOI(aoi.get());
    view.UseContextMenuWithCheck(2);
    EXPECT_EQ(kind, 2);
    view.UseContextMenuWithCheck(0);
    EXPECT_EQ(kind, 1);
    view.UseContextMenu(2);
    EXPECT_EQ(kind, 2);
}

TEST_F(AOIViewMenu, NothingOpensWhileSwitchedOffOrWithoutAnAOI)
{
    view.DisableRightButtonMenu();
    EXPECT_TRUE(Open().empty());
    view.EnableRightButtonMenu();
    EXPECT_FALSE(Open().empty());
    view.SetAOI(nullptr);
    bool opened = false;
    kv::win::SetModalHook(
        [&]
        {
            opened = true;
            kv::win::DismissMenu();
        });
    view.SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(view.m_hWnd), MAKELPARAM(10, 10));
    kv::win::SetModalHook({});
    EXPECT_FALSE(opened);
}

TEST_F(AOIViewMenu, ChecksTheZoomInOrderOfPrecedence)
{
    EXPECT_EQ(view.GetMenuIDFromZoomFactor(), 45009u);
    view.SetDefaultOff();
    EXPECT_EQ(view.GetMenuIDFromZoomFactor(), 45004u);
    Zoom(2.0, 4.0);
    EXPECT_EQ(view.GetMenuIDFromZoomFactor(), 0u);
    view.FitAOIToWindowOn();
    EXPECT_EQ(view.GetMenuIDFromZoomFactor(), 45010u);
    Zoom(3.0, 3.0);
    EXPECT_EQ(view.GetMenuIDFromZoomFactor(), 0u);
    Zoom(0.05, 0.05);
    EXPECT_EQ(view.GetMenuIDFromZoomFactor(), 0u);
    view.UseContextMenu(3);
    EXPECT_EQ(view.GetMenuIDFromZoomFactor(), 45000u);
    Zoom(16.0, 16.0);
    EXPECT_EQ(view.GetMenuIDFromZoomFactor(), 45008u); // no item of that menu, and asked for all the same
}

TEST_F(AOIViewMenu, AChosenZoomEndsTheDefault)
{
    const double zooms[] = {0.25, 0.5, 1.0, 2.0, 4.0, 8.0, 16.0};
    for (UINT i = 0; i < std::size(zooms); ++i)
    {
        view.SetDefaultOn();
        Open(45002 + i);
        EXPECT_EQ(view.GetZoomFactorX(), zooms[i]);
        EXPECT_EQ(view.IsDefaultOn(), 0);
        EXPECT_EQ(Checked(Open(), 1).at(0), 45002 + i);
    }
    Open(45009);
    EXPECT_EQ(view.IsDefaultOn(), 1);
    EXPECT_EQ(view.GetZoomFactorX(), 1.0);
}

TEST_F(AOIViewMenu, TheSmallZoomsAreThoseOfTheReducingMenu)
{
    view.UseContextMenu(3);
    Open(45000);
    EXPECT_EQ(view.GetZoomFactorX(), 0.05);
    Open(45001);
    EXPECT_EQ(view.GetZoomFactorX(), 0.1);
}

TEST_F(AOIViewMenu, FittingAndAspectRatio)
{
    Open(45010);
    EXPECT_EQ(view.IsAOIFittedToWindow(), 1);
    EXPECT_EQ(view.IsDefaultOn(), 0);
    EXPECT_EQ(Checked(Open(), 1), (Ids{45010, 45012}));
    Open(45012);
    EXPECT_EQ(view.IsPixelAspectRatioMaintained(), 0);
    EXPECT_EQ(view.GetNecessaryOutputSize(), (KvTSize<short>(800, 600)));
    Open(45012);
    EXPECT_EQ(view.IsPixelAspectRatioMaintained(), 1);
    EXPECT_EQ(view.GetNecessaryOutputSize(), (KvTSize<short>(800, 600)));
}

TEST_F(AOIViewMenu, AChangedAspectRatioTakesEffectAtOnce)
{
    const auto flat = Ramp(40, 10);
    view.SetAOI(flat.get());
    Open(45010);
    EXPECT_EQ(aoiWindow.Frame().Size(), CSize(800, 200));
    Open(45012);
    EXPECT_EQ(aoiWindow.Frame().Size(), CSize(800, 600));
    Open(45012);
    EXPECT_EQ(aoiWindow.Frame().Size(), CSize(800, 200));
}

TEST_F(AOIViewMenu, UnderTheDefaultTheAspectRatioStays)
{
    view.SetDefaultFittedToWindow(1);
    Open(45012);
    EXPECT_EQ(view.IsPixelAspectRatioMaintained(), 1);
    EXPECT_EQ(view.IsAOIFittedToWindow(), 1);
}

TEST_F(AOIViewMenu, ReturningToADefaultThatFits)
{
    view.SetDefaultFittedToWindow(1);
    view.SetDefaultAspectRatioMaintained(0);
    Zoom(2.0, 2.0);
    Open(45009);
    EXPECT_EQ(view.IsDefaultOn(), 1);
    EXPECT_EQ(view.IsAOIFittedToWindow(), 1);
    EXPECT_EQ(view.IsPixelAspectRatioMaintained(), 0);
}

TEST_F(AOIViewMenu, ATableCanBeChosenAgainAndIsToldEachTime)
{
    int told = 0;
    Handler count([&](void* data) { told += data == &view; });
    view.ChangeLutMenuHdl(count.Link());
    Open(45016);
    Open(45016);
    EXPECT_EQ(view.GetOutputLut().Utf8(), "GreyInverted");
    EXPECT_EQ(told, 2);
    EXPECT_EQ(Checked(Open(), 0), Ids{45016});
}

TEST_F(AOIViewMenu, ABackgroundIsShownAndTold)
{
    const auto other = Grey(20, 20, 5);
    other->SetUIName(KvString("Zweites"));
    int told = 0;
    Handler count([&](void* data) { told += data == &view; });
    view.ChangeBackgroundMenuHdl(count.Link());
    view.AddAOI(other.get());
    view.UseContextMenu(2);
    const auto items = Open(45060);
    EXPECT_EQ(items.at(2).text.Utf8(), "Hintergrund");
    ASSERT_EQ(items[2].items.size(), 2u); // the shown one has joined the list
    EXPECT_EQ(items[2].items[0].text.Utf8(), "Zweites");
    EXPECT_EQ(Checked(items, 2), Ids{45061});
    EXPECT_EQ(view.GetAOICount(), 2u);
    EXPECT_EQ(view.GetAOI(), other.get());
    EXPECT_EQ(told, 1);
}

TEST_F(AOIViewMenu, ABackgroundWithoutUINameShowsItsTechnicalOne)
{
    aoi->SetAOIName(KvString("cam0"));
    view.AddAOI(aoi.get());
    view.UseContextMenu(2);
    EXPECT_EQ(Open().at(2).items.at(0).text.Utf8(), "cam0");
}

TEST_F(AOIViewMenu, OfTwentyBackgroundsSixteenAreOffered)
{
    std::vector<std::unique_ptr<KvBufferAOI8>> aois;
    for (int i = 0; i < 20; ++i)
    {
        aois.push_back(Grey(10, 10, 0));
        view.AddAOI(aois.back().get());
    }
    view.SetAOI(aois[18].get());
    view.UseContextMenu(2);
    const auto items = Open();
    EXPECT_EQ(items.at(2).items.size(), 16u);
    EXPECT_TRUE(Checked(items, 2).empty());
}

TEST_F(AOIViewMenu, OfFiftyTablesFortyFiveAreOffered)
{
    KvTMem<KvString> names(50);
    for (unsigned i = 0; i < names.size; ++i)
        names[i] = KvString(("table " + std::to_string(i)).c_str());
    CMenu popup;
    popup.CreatePopupMenu();
    AppendLuts(popup, names, names[44]);
    ASSERT_EQ(popup.GetMenuItemCount(), 45u);
    EXPECT_EQ(popup.GetMenuItemID(44), 45059u);
    CString last;
    popup.GetMenuString(45059, last, MF_BYCOMMAND);
    EXPECT_EQ(last.Utf8(), "table 44");
    EXPECT_TRUE(popup.GetMenuState(45059, MF_BYCOMMAND) & MF_CHECKED);
    EXPECT_FALSE(popup.GetMenuState(45058, MF_BYCOMMAND) & MF_CHECKED);
}

TEST_F(AOIViewMenu, PartsCanBeSwitchedOff)
{
    view.AddAOI(aoi.get());
    view.UseContextMenu(2);
    view.DisableMenuZoom();
    auto items = Open();
    EXPECT_TRUE(items.at(0).enabled);
    EXPECT_FALSE(items.at(1).enabled);
    EXPECT_TRUE(items.at(2).enabled);
    EXPECT_FALSE(items[1].items[0].enabled);
    view.EnableMenuZoom();
    view.DisableMenuOLut();
    view.DisableMenuBackground();
    EXPECT_EQ(view.IsMenuZoomEnabled(), 1);
    EXPECT_EQ(view.IsMenuOLutEnabled(), 0);
    EXPECT_EQ(view.IsMenuBackgroundEnabled(), 0);
    items = Open();
    EXPECT_FALSE(items.at(0).enabled);
    EXPECT_TRUE(items.at(1).enabled);
    EXPECT_FALSE(items.at(2).enabled);
}

TEST_F(AOIViewMenu, ACommandOutsideWhatThereIsDoesNothing)
{
    for (const UINT id : {45011u, 45013u, 45014u, 45059u, 45075u})
        view.GetParentFrame()->SendMessage(WM_COMMAND, id);
    EXPECT_EQ(view.GetZoomFactorX(), 1.0);
    EXPECT_EQ(view.IsDefaultOn(), 1);
    EXPECT_EQ(view.GetOutputLut().Utf8(), "Grey");
}

TEST_F(AOIViewMenu, FromTheKeyboardItOpensInTheCorner)
{
    CPoint place;
    kv::win::SetModalHook(
        [&]
        {
            const QPoint corner = QApplication::activePopupWidget()->pos();
            place = CPoint(corner.x(), corner.y());
            kv::win::DismissMenu();
        });
    view.SetFocus();
    kv::win::PressKey(VK_APPS);
    kv::win::ReleaseKey(VK_APPS);
    kv::win::SetModalHook({});
    view.ScreenToClient(&place);
    EXPECT_EQ(place, CPoint(5, 5));
}
