// The overlay dialog.
#include "C/uiMaskDlgOverlay.h"

#include "platform/win/modal.h"
#include "tests/ui/mask_dialog.h"

#include <map>

using namespace KvN;
using namespace kv::test;

namespace
{

// The dialog with what its own sources may use.
class OpenOverlayDlg : public KvMaskDlgOverlay
{
public:
    OpenOverlayDlg() : KvMaskDlgOverlay(nullptr, 8870, 8872, 8871) {}
    using KvMaskDlgOverlay::aoiList;
    using KvMaskDlgOverlay::CheckSelectedDisplay;
    using KvMaskDlgOverlay::controls;
    using KvMaskDlgOverlay::displayList;
    using KvMaskDlgOverlay::entryList;
    using KvMaskDlgOverlay::initialWindowRect;
    using KvMaskDlgOverlay::layoutReady;
    using KvMaskDlgOverlay::lineWidth;
    using KvMaskDlgOverlay::maskWnd;
    using KvMaskDlgOverlay::minimumScaleBottom;
    using KvMaskDlgOverlay::OnSize;
    using KvMaskDlgOverlay::overlayStrength;
    using KvMaskDlgOverlay::savedMask;
    using KvMaskDlgOverlay::scaleTop;
    using KvMaskDlgOverlay::view;
    using KvMaskDlgOverlay::workMask;
};

class OverlayDlg : public ::testing::Test
{
protected:
    OverlayDlg()
    {
        image->SetAOIName("image");
        other->SetAOIName("other");
    }
    INT_PTR Run(const std::string& configuration, const std::function<void(OpenOverlayDlg&)>& prepare,
                const std::function<void(OpenOverlayDlg&)>& act)
    {
        config = std::make_unique<ConfigFile>(configuration);
        prepare(dialog());
        dialog().Init(config->Name(), image.get(), mask.get());
        return RunDialog(dialog(), [&] { act(dialog()); });
    }
    INT_PTR Run(const std::string& configuration, const std::function<void(OpenOverlayDlg&)>& act)
    {
        return Run(
            configuration, [](OpenOverlayDlg&) {}, act);
    }
    // The dialog of this run; a new one each time that it is asked for anew.
    OpenOverlayDlg& dialog() { return *current; }
    void NewDialog() { current = std::make_unique<OpenOverlayDlg>(); }

    void ExpectWrong(const std::string& configuration, unsigned long line, const std::string& key)
    {
        NewDialog();
        const auto before = Bytes(*mask);
        const KeyFailure failure =
            KeyFailureOf([&] { Run(configuration, [](OpenOverlayDlg&) { ADD_FAILURE() << "the dialog opened"; }); });
        EXPECT_EQ(failure.source, "C/uiMaskDlgOverlay") << configuration;
        EXPECT_EQ(failure.line, line) << configuration;
        EXPECT_EQ(failure.key, key) << configuration;
        EXPECT_EQ(config->Text(), configuration);
        EXPECT_EQ(Bytes(*mask), before);
    }
    CRect PlaceOf(const OpenOverlayDlg& d, int id)
    {
        CRect rect;
        ::GetWindowRect(::GetDlgItem(d.m_hWnd, id), &rect);
        d.ScreenToClient(&rect);
        return rect;
    }
    CSize ClientOf(const OpenOverlayDlg& d)
    {
        CRect rect;
        d.GetClientRect(&rect);
        return rect.Size();
    }
    void Resize(OpenOverlayDlg& d, CSize size)
    {
        d.SetWindowPos(nullptr, 0, 0, size.cx, size.cy, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        kv::win::Settle();
    }

    std::unique_ptr<KvBufferAOI8> image = Grey(60, 50, 100);
    std::unique_ptr<KvBufferAOI8> other = Grey(60, 50, 30);
    std::unique_ptr<KvBufferAOI8> mask = Grey(60, 50, 0);
    std::unique_ptr<ConfigFile> config;
    std::unique_ptr<OpenOverlayDlg> current = std::make_unique<OpenOverlayDlg>();
};

} // namespace

// ---- The list

TEST_F(OverlayDlg, InsertsWithinTheListAndGrowsItEvenWhenItRefuses)
{
    OpenOverlayDlg& d = dialog();
    d.AddAOI(image.get());
    EXPECT_EQ(d.InsertAOI(other.get(), 1), 1); // at the count appends
    EXPECT_EQ(d.InsertAOI(mask.get(), 0), 1);
    EXPECT_EQ(d.GetAt(0), mask.get());
    EXPECT_EQ(d.GetAt(1), image.get());
    EXPECT_EQ(d.GetAt(2), other.get());
    EXPECT_EQ(d.InsertAOI(mask.get(), 4), 0);
    EXPECT_EQ(d.aoiList.size, 4u);
    EXPECT_EQ(d.GetAt(3), nullptr);
    EXPECT_EQ(d.InsertAOI(mask.get(), -1), 0);
    EXPECT_EQ(d.aoiList.size, 5u);
}

TEST_F(OverlayDlg, DeletesWithinTheListOnly)
{
    OpenOverlayDlg& d = dialog();
    d.AddAOI(image.get());
    d.AddAOI(other.get());
    d.AddAOI(image.get()); // duplicates are allowed
    d.DeleteAOI(-1);
    d.DeleteAOI(3);
    EXPECT_EQ(d.aoiList.size, 3u);
    d.DeleteAOI(0);
    EXPECT_EQ(d.GetAt(0), other.get());
    EXPECT_EQ(d.GetAt(1), image.get());
    EXPECT_EQ(d.GetAt(2), nullptr);
    EXPECT_EQ(d.GetAt(-1), nullptr);
    d.ClearAOIList();
    EXPECT_EQ(d.GetAt(0), nullptr);
}

TEST_F(OverlayDlg, FirstSelectedEntryWinsAndTheFirstOneServesIfNoneIs)
{
    OpenOverlayDlg& d = dialog();
    KvAOI* source = image.get();
    EXPECT_EQ(d.CheckSelectedDisplay(&source), nullptr);
    EXPECT_EQ(source, nullptr);
    d.AddAOI(other.get());
    d.AddAOI(mask.get());
    d.Init("none.ini", image.get(), mask.get());
    ASSERT_EQ(d.entryList.size, 3u); // the background is appended
    EXPECT_EQ(d.GetAOIName(), KvString("image"));
    EXPECT_EQ(d.CheckSelectedDisplay(&source), d.displayList[0]);
    EXPECT_EQ(source, other.get());
    d.entryList[1]->selected = d.entryList[2]->selected = 1;
    d.entryList[0]->selected = 0;
    EXPECT_EQ(d.CheckSelectedDisplay(&source), d.displayList[1]);
    EXPECT_EQ(d.entryList[2]->selected, 0);
    d.Select(image.get());
    EXPECT_EQ(d.GetSelectedDisplay(&source), d.displayList[2]);
    EXPECT_EQ(source, image.get());
    d.SelectDisplay(d.displayList[1]);
    EXPECT_EQ(d.CheckSelectedDisplay(&source), d.displayList[1]);
}

TEST_F(OverlayDlg, BackgroundThatIsListedIsNotAppendedAgain)
{
    OpenOverlayDlg& d = dialog();
    d.AddAOI(image.get());
    d.AddAOI(other.get());
    d.Init("none.ini", image.get(), mask.get());
    EXPECT_EQ(d.aoiList.size, 2u);
}

TEST_F(OverlayDlg, GivesTheWantedTableToEveryDisplay)
{
    OpenOverlayDlg& d = dialog();
    d.SetOLutName("Hot");
    d.AddAOI(other.get());
    d.Init("none.ini", image.get(), mask.get());
    for (unsigned i = 0; i < d.entryList.size; ++i)
        EXPECT_EQ(d.entryList[i]->displayAOI->GetOLut()->GetName(), KvString("Hot"));
    d.SetOLutName("unknown");
    d.Init("none.ini", image.get(), mask.get());
    EXPECT_EQ(d.entryList[0]->displayAOI->GetOLut()->GetName(), KvString("Grey"));
}

TEST_F(OverlayDlg, HandsOutItsTexts)
{
    EXPECT_EQ(KvMaskDlgOverlay::GetResourceTextMaskSurroundings(), KvString("Umgebung maskieren"));
    EXPECT_EQ(KvMaskDlgOverlay::GetResourceTextMaskDefect(), KvString("Fehler maskieren"));
    EXPECT_EQ(KvMaskDlgOverlay::GetResourceTextDesignMask(), KvString("Designkante"));
    EXPECT_EQ(KvMaskDlgOverlay::GetResourceTextIntensityMask(), KvString("Bauteilmaske"));
    EXPECT_EQ(KvMaskDlgOverlay::GetResourceTextThresholdMask(), KvString("Schwellwertmaske"));
}

// ---- The start

TEST_F(OverlayDlg, OpensWithTheDefaultsOfAnEmptyConfiguration)
{
    Run("",
        [&](OpenOverlayDlg& d)
        {
            EXPECT_NEAR(d.overlayStrength, 0.3, 1e-7);
            EXPECT_EQ(d.GetDlgItem(36324)->SendMessage(TBM_GETPOS), 30);
            EXPECT_FALSE(d.maskWnd.IsSystemMaskShown());
            EXPECT_FALSE(IsControlChecked(d, 36314));
            EXPECT_EQ(d.maskWnd.GetTool(), 1);
            for (const int hidden : {36317, 36318, 36319, 36320, 36321, 36323})
                EXPECT_FALSE(IsControlShown(d, hidden)) << hidden;
            for (const int shown : {36314, 36316, 36324, 42385})
                EXPECT_TRUE(IsControlShown(d, shown)) << shown;
            EXPECT_EQ(d.view->GetAOI(), d.displayList[0]);
            EXPECT_EQ(d.view->GetOverlayAOI(), d.workMask);
            EXPECT_TRUE(IsToolEnabled(d, 42373));
        });
    EXPECT_FALSE(config->Exists());
}

TEST_F(OverlayDlg, WrongValuesAreReportedWithKeyAndLine)
{
    ExpectWrong("[Mask]\nToolId=x\n", 1208, "ToolId");
    ExpectWrong("[Mask]\nIncTools=x\n", 1216, "IncTools");
    ExpectWrong("[Mask]\nLineWidth=1.5\n", 1238, "LineWidth");
    for (const char* text : {"stark", "\"\"", "0.3x"})
        ExpectWrong(std::string("[Mask]\nOverlayStrength=") + text + "\n", 1252, "OverlayStrength");
    for (const char* text : {"1.01", "-0.01", "30", "1e9"})
        ExpectWrong(std::string("[Mask]\nOverlayStrength=") + text + "\n", 1258, "OverlayStrength");
    ExpectWrong("[Mask]\nCheckSystemMask=x\n", 1266, "CheckSystemMask");
}

TEST_F(OverlayDlg, StrengthOfTheConfigurationIsShown)
{
    Run("[Mask]\nOverlayStrength=0.756\n",
        [](OpenOverlayDlg& d)
        {
            EXPECT_EQ(d.GetDlgItem(36324)->SendMessage(TBM_GETPOS), 76);
            EXPECT_EQ(d.view->GetOverlayStrength(), 0.756f);
        });
}

TEST_F(OverlayDlg, ExternalWidthIsInForceButNotInTheEdit)
{
    Run(
        "[Mask]\nToolId=5\nLineWidth=3\n", [](OpenOverlayDlg& d) { d.SetExternalLineWidth(9); },
        [](OpenOverlayDlg& d)
        {
            EXPECT_EQ(d.maskWnd.GetLineWidth(), 9);
            EXPECT_EQ(SpinValue(d, 36315), 3.0);
        });
}

TEST_F(OverlayDlg, TextsOfTheHostReplaceTheResources)
{
    Run(
        "",
        [](OpenOverlayDlg& d)
        {
            d.SetHeaderText("Kopf");
            d.SetTextDefect("Fehler:");
            d.SetTextSurroundings("Rand:");
            d.SetTextSystemMask("Zweite");
        },
        [](OpenOverlayDlg& d)
        {
            CString text;
            d.GetWindowText(text);
            EXPECT_EQ(text.Utf8(), "Kopf");
            EXPECT_EQ(::GetWindowTextOf(::GetDlgItem(d.m_hWnd, 36320)).Utf8(), "Fehler:");
            EXPECT_EQ(::GetWindowTextOf(::GetDlgItem(d.m_hWnd, 36319)).Utf8(), "Rand:");
            EXPECT_EQ(::GetWindowTextOf(::GetDlgItem(d.m_hWnd, 36314)).Utf8(), "Zweite");
        });
}

TEST_F(OverlayDlg, LegendOverridesTheStoredSwitchOfTheSystemMask)
{
    Run(
        "", [](OpenOverlayDlg& d) { d.SetShowSurroundingOn(); },
        [](OpenOverlayDlg& d)
        {
            EXPECT_TRUE(d.maskWnd.IsSystemMaskShown());
            EXPECT_TRUE(IsControlChecked(d, 36314));
            EXPECT_TRUE(IsControlShown(d, 36317));
        });
    NewDialog();
    Run(
        "[Mask]\nCheckSystemMask=TRUE\n",
        [](OpenOverlayDlg& d)
        {
            d.SetShowSurroundingOn();
            d.SetShowSystemMaskOff();
        },
        [](OpenOverlayDlg& d)
        {
            EXPECT_FALSE(d.maskWnd.IsSystemMaskShown());
            EXPECT_FALSE(IsControlShown(d, 36314));
            EXPECT_FALSE(IsControlShown(d, 36316));
        });
    NewDialog();
    // Without the legend a stored TRUE leaves the window's own state where the switch is hidden: shown.
    Run(
        "[Mask]\nCheckSystemMask=TRUE\n", [](OpenOverlayDlg& d) { d.SetShowSystemMaskOff(); },
        [](OpenOverlayDlg& d) { EXPECT_TRUE(d.maskWnd.IsSystemMaskShown()); });
}

TEST_F(OverlayDlg, LegendShowsItsColours)
{
    Run(
        "",
        [](OpenOverlayDlg& d)
        {
            d.SetShowSurroundingOn();
            d.SetColors(RGB(255, 0, 0), RGB(0, 0, 255));
        },
        [&](OpenOverlayDlg& d)
        {
            const auto at = [&](int id, int x, int y)
            { return kv::win::ShownPixel(::GetDlgItem(d.m_hWnd, id), CPoint(x, y)) & 0xFFFFFF; };
            const CSize size = PlaceOf(d, 36318).Size();
            EXPECT_EQ(at(36317, size.cx / 2, size.cy / 2), 0xFF0000u);
            EXPECT_EQ(at(36317, 0, 0), 0xFF0000u);
            EXPECT_EQ(at(36318, 0, 0), 0x0000FFu);
            EXPECT_EQ(at(36318, size.cx / 2, size.cy / 2), 0x000000u);
            const int marginX = std::max<int>(size.cx / 6, 5);
            const int marginY = std::max<int>(size.cy / 6, 3);
            EXPECT_EQ(at(36318, marginX - 1, marginY), 0x0000FFu);
            EXPECT_EQ(at(36318, marginX, marginY), 0x000000u);
        });
}

// ---- Pictures

TEST_F(OverlayDlg, HostLearnsTheOperatorsPictureAndTable)
{
    Run(
        "", [&](OpenOverlayDlg& d) { d.AddAOI(other.get()); },
        [&](OpenOverlayDlg& d)
        {
            EXPECT_EQ(d.view->GetAOI(), d.displayList[1]);
            d.view->SetAOI(d.displayList[0]);
            d.view->SetOutputLut("Rainbow");
            KvAOI* source = nullptr;
            EXPECT_EQ(d.GetSelectedDisplay(&source), d.displayList[0]);
            EXPECT_EQ(source, other.get());
            ClickControl(d, 2);
        });
    EXPECT_EQ(dialog().GetAOIName(), KvString("other"));
    EXPECT_EQ(dialog().GetOLutName(), KvString("Rainbow"));
    EXPECT_FALSE(config->Exists());
}

TEST_F(OverlayDlg, OffersTheListInTheMenuOfSeveralPicturesOnly)
{
    const auto backgrounds = [](OpenOverlayDlg& d)
    {
        size_t popups = 0;
        kv::win::SetModalHook(
            [&]
            {
                popups = kv::win::OpenMenuItems().size();
                kv::win::DismissMenu();
            });
        d.view->SendMessage(WM_CONTEXTMENU, reinterpret_cast<WPARAM>(d.view->m_hWnd), -1);
        d.EndDialog(IDCANCEL);
        return popups;
    };
    Run("", [&](OpenOverlayDlg& d) { EXPECT_EQ(backgrounds(d), 2u); });
    NewDialog();
    Run(
        "", [&](OpenOverlayDlg& d) { d.AddAOI(other.get()); },
        [&](OpenOverlayDlg& d) { EXPECT_EQ(backgrounds(d), 3u); });
}

// ---- The mask

TEST_F(OverlayDlg, PaintsInACopyUntilOK)
{
    mask = Grey(60, 50, 3);
    EXPECT_EQ(Run("",
                  [&](OpenOverlayDlg& d)
                  {
                      ClickTool(d, 42370);
                      EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(3000, 3));
                      EXPECT_EQ(Bytes(*d.workMask), std::vector<unsigned char>(3000, 131));
                      ClickControl(d, 1);
                  }),
              IDOK);
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(3000, 131));
}

TEST_F(OverlayDlg, CancelTouchesNeitherMaskNorConfiguration)
{
    mask = Grey(60, 50, 64);
    const std::string text = "[Mask]\nOverlayStrength=0.5\n";
    EXPECT_EQ(Run(text,
                  [&](OpenOverlayDlg& d)
                  {
                      ClickTool(d, 42370);
                      ClickTool(d, 42373);
                      ClickControl(d, 2);
                  }),
              IDCANCEL);
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(3000, 64));
    EXPECT_EQ(config->Text(), text);
    EXPECT_EQ(dialog().IsSystemMaskDeleted(), 1);
}

TEST_F(OverlayDlg, OKWritesTheSettingsToTheByte)
{
    Run("[Mask]\nCheckSystemMask=TRUE\n",
        [](OpenOverlayDlg& d)
        {
            ClickTool(d, 42358);
            dynamic_cast<KvSpinEdit&>(*d.GetDlgItem(36315)).SetValue(300);
            d.GetDlgItem(36324)->SendMessage(TBM_SETPOS, TRUE, 85);
            d.SendMessage(WM_HSCROLL, TB_ENDTRACK, reinterpret_cast<LPARAM>(d.GetDlgItem(36324)->m_hWnd));
            ClickControl(d, 1);
        });
    EXPECT_EQ(config->Text(),
              "[Mask]\nCheckSystemMask=TRUE\nIncTools=TRUE\nLineWidth=300\nOverlayStrength=0.85\nToolId=9\n");
}

TEST_F(OverlayDlg, StrengthOfTheSliderShowsAtOnce)
{
    mask = Grey(60, 50, 128);
    mask->SetOLut(pOLutMgr->GetLut("Mask"));
    Run(
        "", [](OpenOverlayDlg& d) { d.SetDefaultFittedToWindow(0); },
        [](OpenOverlayDlg& d)
        {
            const auto shown = [&] { return kv::win::ShownPixel(d.view->m_hWnd, CPoint(5, 5)) & 0xFFFFFF; };
            const unsigned before = shown();
            d.GetDlgItem(36324)->SendMessage(TBM_SETPOS, TRUE, 100);
            d.SendMessage(WM_HSCROLL, TB_ENDTRACK, reinterpret_cast<LPARAM>(d.GetDlgItem(36324)->m_hWnd));
            EXPECT_EQ(d.overlayStrength, 1.0);
            EXPECT_NE(shown(), before);
            EXPECT_EQ(shown(), 0xFF0000u);
        });
}

TEST_F(OverlayDlg, DeletedSystemMaskStaysHiddenAndComesBackToTheHost)
{
    mask = Grey(60, 50, 64);
    Run("[Mask]\nCheckSystemMask=TRUE\n",
        [&](OpenOverlayDlg& d)
        {
            EXPECT_TRUE(IsControlChecked(d, 36314));
            ClickTool(d, 42373);
            EXPECT_FALSE(IsControlChecked(d, 36314));
            EXPECT_EQ(d.IsSystemMaskDeleted(), 1);
            EXPECT_EQ(Bytes(*d.workMask), std::vector<unsigned char>(3000, 0));
            ClickControl(d, 36314); // shows nothing any more
            EXPECT_FALSE(d.maskWnd.IsSystemMaskShown());
            EXPECT_EQ(Bytes(*d.workMask), std::vector<unsigned char>(3000, 0));
            ClickControl(d, 1);
        });
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(3000, 64));
    EXPECT_EQ(dialog().IsSystemMaskDeleted(), 1);
}

TEST_F(OverlayDlg, SystemMaskIsSwitchedByItsBox)
{
    mask = Grey(60, 50, 64);
    Run("",
        [&](OpenOverlayDlg& d)
        {
            EXPECT_EQ(Bytes(*d.workMask), std::vector<unsigned char>(3000, 0));
            ClickControl(d, 36314);
            EXPECT_EQ(Bytes(*d.workMask), std::vector<unsigned char>(3000, 64));
            ClickControl(d, 36314);
            EXPECT_EQ(Bytes(*d.workMask), std::vector<unsigned char>(3000, 0));
        });
}

TEST_F(OverlayDlg, ThresholdMaskFollowsTheComponentMaskWhileTheBoxIsTicked)
{
    mask = FromArt(Rows(50, std::string(30, '#') + std::string(30, '.')), 64);
    Run(
        "[Mask]\nCheckSystemMask=TRUE\n", [](OpenOverlayDlg& d) { d.ActivateSegment(0); },
        [&](OpenOverlayDlg& d)
        {
            EXPECT_TRUE(IsControlShown(d, 36323));
            EXPECT_FALSE(IsControlChecked(d, 36323));
            const Rows first = Art(*d.workMask, 64);
            ClickTool(d, 42370); // bit 7 everywhere
            EXPECT_EQ(Art(*d.workMask, 64), first);
            ClickControl(d, 36323);
            EXPECT_EQ(Bytes(*d.workMask), std::vector<unsigned char>(3000, 192));
            ClickTool(d, 42359); // bit 7 goes, bit 6 stays
            EXPECT_EQ(Bytes(*d.workMask), std::vector<unsigned char>(3000, 64));
            ClickControl(d, 36323);
            EXPECT_EQ(Art(*d.workMask, 64), first);
            EXPECT_EQ(Art(*d.workMask, 128), Rows(50, std::string(60, '.')));
            ClickControl(d, 36323);
            ClickControl(d, 1);
        });
    EXPECT_EQ(dialog().UseObjectAsSegment(), 1);
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(3000, 0));
}

// ---- Layout

TEST_F(OverlayDlg, FollowsTheSizeOfItsWindow)
{
    Run("",
        [&](OpenOverlayDlg& d)
        {
            const CSize client = ClientOf(d);
            std::map<int, CRect> before;
            for (const int id : {1, 2, 36310, 36311, 36315, 36316, 36324, 42385, 42389, 42388})
                before[id] = PlaceOf(d, id);
            Resize(d, CSize(client.cx + 40, client.cy + 30));
            EXPECT_EQ(PlaceOf(d, 36310), CRect(before[36310].left, before[36310].top, before[36310].right + 40,
                                               before[36310].bottom + 30));
            for (const int id : {1, 2, 36311, 36315, 36316})
                EXPECT_EQ(PlaceOf(d, id), before[id] + CPoint(40, 0)) << id;
            for (const int id : {36324, 42385, 42389, 42388})
                EXPECT_EQ(PlaceOf(d, id), before[id] + CPoint(40, 30)) << id;
            Resize(d, client);
            for (const auto& [id, place] : before)
                EXPECT_EQ(PlaceOf(d, id), place) << id;
        });
}

TEST_F(OverlayDlg, ScaleGoesBackToItsFirstHeightWhereItWouldCoverTheRightColumn)
{
    Run(
        "", [](OpenOverlayDlg& d) { d.ActivateSegment(0); },
        [&](OpenOverlayDlg& d)
        {
            const CSize client = ClientOf(d);
            const CRect slider = PlaceOf(d, 36324);
            EXPECT_EQ(d.minimumScaleBottom, PlaceOf(d, 36321).bottom + 10);
            EXPECT_EQ(d.scaleTop, PlaceOf(d, 42385).top);
            const int room = d.scaleTop - d.minimumScaleBottom;
            Resize(d, CSize(client.cx, client.cy - room));
            EXPECT_EQ(PlaceOf(d, 36324).top, slider.top - room);
            Resize(d, CSize(client.cx, client.cy - room - 1));
            EXPECT_EQ(PlaceOf(d, 36324).top, slider.top);
        });
}

TEST_F(OverlayDlg, LowestShownControlOfTheRightColumnBoundsTheScale)
{
    Run("", [&](OpenOverlayDlg& d) { EXPECT_EQ(d.minimumScaleBottom, PlaceOf(d, 36316).bottom + 10); });
    NewDialog();
    Run(
        "", [](OpenOverlayDlg& d) { d.SetShowSurroundingOn(); },
        [&](OpenOverlayDlg& d) { EXPECT_EQ(d.minimumScaleBottom, PlaceOf(d, 36318).bottom + 10); });
    NewDialog();
    Run(
        "", [](OpenOverlayDlg& d) { d.SetShowSystemMaskOff(); },
        [&](OpenOverlayDlg& d) { EXPECT_EQ(d.minimumScaleBottom, 10); });
}

TEST_F(OverlayDlg, MaximisingLaysOutEvenBeforeTheLayoutIsReady)
{
    Run("",
        [&](OpenOverlayDlg& d)
        {
            const CRect ok = PlaceOf(d, 1);
            const CSize client = ClientOf(d);
            d.layoutReady = 0;
            Resize(d, CSize(client.cx + 40, client.cy));
            EXPECT_EQ(PlaceOf(d, 1), ok);
            d.OnSize(SIZE_MINIMIZED, 0, 0);
            EXPECT_EQ(PlaceOf(d, 1), ok);
            d.OnSize(SIZE_MAXIMIZED, 0, 0);
            EXPECT_EQ(PlaceOf(d, 1), ok + CPoint(40, 0));
        });
}

TEST_F(OverlayDlg, SelectionThatIsNotListedShowsTheFirstPicture)
{
    OpenOverlayDlg& d = dialog();
    d.AddAOI(other.get());
    d.Init("none.ini", image.get(), mask.get());
    d.Select(mask.get());
    KvAOI* source = nullptr;
    EXPECT_EQ(d.CheckSelectedDisplay(&source), d.displayList[0]);
    EXPECT_EQ(source, other.get());
    EXPECT_EQ(d.entryList[0]->selected, 1);
}
