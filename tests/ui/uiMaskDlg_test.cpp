// The mask dialog.
#include "C/uiMaskDlg.h"

#include "tests/ui/mask_dialog.h"

using namespace KvN;
using namespace kv::test;

namespace
{

// The dialog with what its own sources may use.
class OpenMaskDlg : public KvMaskDlg
{
public:
    using KvMaskDlg::GetExcToolIDFromIncToolID;
    using KvMaskDlg::GetIncToolIDFromExcToolID;
    using KvMaskDlg::GetToolIDFromUIID;
    using KvMaskDlg::GetUIIDFromToolID;
    using KvMaskDlg::KvMaskDlg;
    using KvMaskDlg::lineWidth;
    using KvMaskDlg::maskWnd;
    using KvMaskDlg::OnIncRectFrame;
    using KvMaskDlg::OnValueChangedLinewidth;
    using KvMaskDlg::SetTool;
    using KvMaskDlg::toolId;
    using KvMaskDlg::toolMode;
    using KvMaskDlg::toolUIId;
};

constexpr int firstTool = 42350;
constexpr int accept = 42371;
constexpr int drop = 42372;

// A dialog over an image of 60 by 50 with the given configuration.
class MaskDlg : public ::testing::Test
{
protected:
    INT_PTR Run(const std::string& configuration, const std::function<void(OpenMaskDlg&)>& act)
    {
        config = std::make_unique<ConfigFile>(configuration);
        OpenMaskDlg dialog(nullptr);
        dialog.Init(config->Name(), image.get(), mask.get(), 0);
        return RunDialog(dialog, [&] { act(dialog); });
    }
    KeyFailure FailureOf(const std::string& configuration)
    {
        return KeyFailureOf([&] { Run(configuration, [](OpenMaskDlg&) { ADD_FAILURE() << "the dialog opened"; }); });
    }
    void ExpectWrong(const std::string& configuration, unsigned long line, const std::string& key)
    {
        const auto before = Bytes(*mask);
        const KeyFailure failure = FailureOf(configuration);
        EXPECT_EQ(failure.source, "C/uiMaskDlg") << configuration;
        EXPECT_EQ(failure.line, line) << configuration;
        EXPECT_EQ(failure.key, key) << configuration;
        EXPECT_EQ(failure.group, "Mask");
        EXPECT_EQ(failure.file, config->Name().Utf8());
        EXPECT_EQ(config->Text(), configuration);
        EXPECT_EQ(Bytes(*mask), before);
        EXPECT_EQ(CWnd::GetCapture(), nullptr);
    }

    std::unique_ptr<KvBufferAOI8> image = Grey(60, 50, 100);
    std::unique_ptr<KvBufferAOI8> mask = Grey(60, 50, 0);
    std::unique_ptr<ConfigFile> config;
};

} // namespace

TEST(MaskDlgTables, CommandsAndToolsAreTwoDirectionsOfOneTable)
{
    for (int tool = 1; tool <= 21; ++tool)
    {
        EXPECT_EQ(OpenMaskDlg::GetUIIDFromToolID(tool), 42349 + tool);
        EXPECT_EQ(OpenMaskDlg::GetToolIDFromUIID(42349 + tool), tool);
    }
    for (const int id : {-1, 0, 42349, 42371, 42372, 42373})
        EXPECT_EQ(OpenMaskDlg::GetToolIDFromUIID(id), -1) << id;
    for (const int tool : {-1, 0, 22, 65535})
        EXPECT_EQ(OpenMaskDlg::GetUIIDFromToolID(tool), -1) << tool;
}

TEST(MaskDlgTables, CounterpartsAreTenApart)
{
    for (int tool = 1; tool <= 9; ++tool)
    {
        EXPECT_EQ(OpenMaskDlg::GetExcToolIDFromIncToolID(tool), tool + 10);
        EXPECT_EQ(OpenMaskDlg::GetIncToolIDFromExcToolID(tool + 10), tool);
    }
    for (const int tool : {-1, 0, 10, 11, 20, 21})
        EXPECT_EQ(OpenMaskDlg::GetExcToolIDFromIncToolID(tool), -1) << tool;
    for (const int tool : {-1, 0, 1, 10, 20, 21})
        EXPECT_EQ(OpenMaskDlg::GetIncToolIDFromExcToolID(tool), -1) << tool;
}

// ---- The start

TEST_F(MaskDlg, OpensWithTheDefaultsOfAnEmptyConfiguration)
{
    Run("",
        [](OpenMaskDlg& dialog)
        {
            EXPECT_EQ(dialog.maskWnd.GetTool(), 1);
            EXPECT_EQ(dialog.GetCurrentToolBar()->GetItemID(0), 42350u);
            EXPECT_TRUE(IsToolChecked(dialog, 42350));
            EXPECT_TRUE(IsControlChecked(dialog, 36311));
            EXPECT_FALSE(IsControlChecked(dialog, 36312));
            EXPECT_FALSE(IsControlEnabled(dialog, 36313));
            EXPECT_FALSE(IsControlEnabled(dialog, 36315));
            EXPECT_EQ(SpinValue(dialog, 36315), 1.0);
            EXPECT_FALSE(IsControlChecked(dialog, 36314));
            EXPECT_FALSE(dialog.maskWnd.IsSystemMaskShown());
            EXPECT_FALSE(IsToolEnabled(dialog, accept));
            EXPECT_FALSE(IsToolEnabled(dialog, drop));
            EXPECT_EQ(dialog.toolMode, 1);
        });
    EXPECT_FALSE(config->Exists()); // cancelled: not even created
}

TEST_F(MaskDlg, RestoresEveryTool)
{
    for (int tool = 1; tool <= 9; ++tool)
        for (const bool adding : {true, false})
        {
            const int stored = adding ? tool : tool + 10;
            Run("[Mask]\nToolId=" + std::to_string(stored) + "\nIncTools=" + (adding ? "TRUE" : "false") +
                    "\nLineWidth=7\nShowSystemMask=true\n",
                [&](OpenMaskDlg& dialog)
                {
                    EXPECT_EQ(dialog.maskWnd.GetTool(), stored);
                    EXPECT_EQ(dialog.toolUIId, 42349 + stored);
                    EXPECT_TRUE(IsToolChecked(dialog, 42349 + stored));
                    EXPECT_EQ(IsControlChecked(dialog, 36311), adding);
                    EXPECT_EQ(IsControlEnabled(dialog, 36315), tool >= 5) << tool;
                    EXPECT_EQ(SpinValue(dialog, 36315), 7.0);
                    EXPECT_EQ(dialog.maskWnd.GetLineWidth(), tool >= 5 ? 7 : 0);
                    EXPECT_TRUE(dialog.maskWnd.IsSystemMaskShown());
                    EXPECT_TRUE(IsControlChecked(dialog, 36314));
                });
        }
}

TEST_F(MaskDlg, ToolThatDoesNotFitItsModeDrawsNothingUntilOneIsPicked)
{
    for (const std::string text : {"ToolId=15\nIncTools=TRUE\n", "ToolId=99\n", "ToolId=10\n", "ToolId=-3\n"})
        Run("[Mask]\n" + text,
            [&](OpenMaskDlg& dialog)
            {
                EXPECT_EQ(dialog.maskWnd.GetTool(), -1) << text;
                EXPECT_EQ(dialog.toolUIId, -1);
                for (int id = firstTool; id <= 42358; ++id)
                    EXPECT_FALSE(IsToolChecked(dialog, id));
                DragInDialog(dialog, 10, 10, 30, 30);
                EXPECT_FALSE(dialog.maskWnd.IsInChangeMode());
                ClickTool(dialog, 42350);
                DragInDialog(dialog, 10, 10, 30, 30);
                EXPECT_TRUE(dialog.maskWnd.IsInChangeMode());
            });
}

TEST_F(MaskDlg, WrongValuesAreReportedWithKeyAndLine)
{
    for (const char* text : {"x", "1.5", "\"\"", "1 2", "0x10"})
        ExpectWrong(std::string("[Mask]\nToolId=") + text + "\n", 358, "ToolId");
    for (const char* text : {"ja", "1", "\"\"", "TRUEE"})
        ExpectWrong(std::string("[Mask]\nIncTools=") + text + "\n", 366, "IncTools");
    for (const char* text : {"2.5", "breit", "\"\"", "1e1"})
        ExpectWrong(std::string("[Mask]\nLineWidth=") + text + "\n", 388, "LineWidth");
    for (const char* text : {"nein", "0", "\"\""})
        ExpectWrong(std::string("[Mask]\nShowSystemMask=") + text + "\n", 397, "ShowSystemMask");
}

TEST_F(MaskDlg, MissingToolBarsAreReported)
{
    const auto failureOf = [&](unsigned inc, unsigned exc)
    {
        std::pair<std::string, unsigned long> told;
        KvMaskDlg dialog(nullptr, 8860, inc, exc);
        const ConfigFile empty;
        dialog.Init(empty.Name(), image.get(), mask.get());
        try
        {
            RunDialog(dialog, [] {});
        }
        catch (KvGDIException* failure)
        {
            EXPECT_EQ(failure->File(), KvString("C/uiMaskDlg"));
            told = {failure->Function().Utf8(), failure->Line()};
            failure->Delete();
        }
        return told;
    };
    EXPECT_EQ(failureOf(1, 8861), std::make_pair(std::string("CToolBar::LoadToolBar"), 250ul));
    EXPECT_EQ(failureOf(8862, 1), std::make_pair(std::string("CToolBar::LoadToolBar"), 298ul));
}

// ---- Tools

TEST_F(MaskDlg, ToolButtonsChooseToolsAndStayPressed)
{
    Run("",
        [](OpenMaskDlg& dialog)
        {
            for (int id = 42358; id >= firstTool; --id)
            {
                ClickTool(dialog, id);
                EXPECT_EQ(dialog.maskWnd.GetTool(), id - 42349);
                for (int other = firstTool; other <= 42358; ++other)
                    EXPECT_EQ(IsToolChecked(dialog, other), other == id) << id << " " << other;
            }
            ClickTool(dialog, firstTool); // again: it stays
            EXPECT_TRUE(IsToolChecked(dialog, firstTool));
        });
}

TEST_F(MaskDlg, HandlersAndTheGeneralOneDoTheSame)
{
    Run("",
        [](OpenMaskDlg& dialog)
        {
            dialog.OnIncRectFrame();
            EXPECT_EQ(dialog.maskWnd.GetTool(), 5);
            dialog.SetTool(42350);
            EXPECT_EQ(dialog.maskWnd.GetTool(), 1);
            dialog.SetTool(42349);
            dialog.SetTool(42373);
            EXPECT_EQ(dialog.maskWnd.GetTool(), 1);
        });
}

TEST_F(MaskDlg, RadioButtonsKeepTheKindOfTool)
{
    Run("[Mask]\nToolId=3\n",
        [](OpenMaskDlg& dialog)
        {
            ClickControl(dialog, 36312);
            EXPECT_EQ(dialog.maskWnd.GetTool(), 13);
            EXPECT_EQ(dialog.GetCurrentToolBar()->GetItemID(0), 42360u);
            EXPECT_TRUE(IsToolChecked(dialog, 42362));
            ClickControl(dialog, 36312); // already chosen: nothing
            EXPECT_EQ(dialog.maskWnd.GetTool(), 13);
            ClickControl(dialog, 36311);
            EXPECT_EQ(dialog.maskWnd.GetTool(), 3);
            EXPECT_TRUE(IsToolChecked(dialog, 42352));
        });
}

TEST_F(MaskDlg, WholeMaskCommandsLeaveToolAndCheckMarks)
{
    Run("[Mask]\nToolId=5\n",
        [&](OpenMaskDlg& dialog)
        {
            const auto stored = [&]
            {
                dialog.maskWnd.MaskToAOI();
                return mask->GetRowPointer(7)[9];
            };
            ClickTool(dialog, 42370);
            EXPECT_EQ(stored(), 128);
            ClickTool(dialog, 42359); // on the adding toolbar: empty
            EXPECT_EQ(stored(), 0);
            EXPECT_EQ(dialog.maskWnd.GetTool(), 5);
            EXPECT_TRUE(IsToolChecked(dialog, 42354));
            ClickControl(dialog, 36312);
            ClickTool(dialog, 42369); // on the excluding one: full
            EXPECT_EQ(stored(), 128);
            EXPECT_EQ(dialog.maskWnd.GetTool(), 15);
            EXPECT_TRUE(IsToolChecked(dialog, 42364));
        });
}

TEST_F(MaskDlg, PlacedFigureLocksToolsAndFreesAcceptAndDrop)
{
    Run("[Mask]\nToolId=5\nLineWidth=3\n",
        [&](OpenMaskDlg& dialog)
        {
            DragInDialog(dialog, 10, 10, 30, 30);
            for (int id = firstTool; id <= 42358; ++id)
                EXPECT_FALSE(IsToolEnabled(dialog, id)) << id;
            EXPECT_FALSE(IsToolEnabled(dialog, 42359));
            EXPECT_FALSE(IsToolEnabled(dialog, 42370));
            EXPECT_FALSE(IsControlEnabled(dialog, 36311));
            EXPECT_FALSE(IsControlEnabled(dialog, 36312));
            EXPECT_TRUE(IsToolEnabled(dialog, accept));
            EXPECT_TRUE(IsToolEnabled(dialog, drop));
            EXPECT_TRUE(IsControlEnabled(dialog, 36315));
            ClickTool(dialog, drop);
            EXPECT_FALSE(dialog.maskWnd.IsInChangeMode());
            EXPECT_TRUE(IsToolEnabled(dialog, firstTool));
            EXPECT_TRUE(IsControlEnabled(dialog, 36312));
            EXPECT_FALSE(IsToolEnabled(dialog, accept));
            dialog.maskWnd.MaskToAOI();
            EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(3000, 0));
            DragInDialog(dialog, 10, 10, 30, 30);
            ClickTool(dialog, accept);
            EXPECT_TRUE(IsToolEnabled(dialog, firstTool));
            dialog.maskWnd.MaskToAOI();
            EXPECT_EQ(mask->GetRowPointer(20)[9], 128);
            EXPECT_EQ(mask->GetRowPointer(20)[11], 128);
            EXPECT_EQ(mask->GetRowPointer(20)[12], 0);
        });
}

TEST_F(MaskDlg, LineWidthOfAPlacedFrameChangesAtOnce)
{
    Run("[Mask]\nToolId=5\n",
        [&](OpenMaskDlg& dialog)
        {
            DragInDialog(dialog, 10, 10, 30, 30);
            dynamic_cast<KvSpinEdit&>(*dialog.GetDlgItem(36315)).SetValue(3);
            EXPECT_EQ(dialog.lineWidth, 3);
            dialog.OnValueChangedLinewidth(5.9);
            EXPECT_EQ(dialog.lineWidth, 5); // truncated
            EXPECT_EQ(dialog.maskWnd.GetLineWidth(), 5);
            ClickTool(dialog, accept);
            dialog.maskWnd.MaskToAOI();
            EXPECT_EQ(mask->GetRowPointer(20)[8], 128);
            EXPECT_EQ(mask->GetRowPointer(20)[12], 128);
            EXPECT_EQ(mask->GetRowPointer(20)[13], 0);
        });
}

TEST_F(MaskDlg, SystemMaskIsSwitchedOnTheScreenOnly)
{
    mask = Grey(60, 50, 64);
    Run("",
        [&](OpenMaskDlg& dialog)
        {
            const auto shown = [&]
            {
                CPoint point(5, 5);
                const auto& view = *dialog.maskWnd.GetAOIBaseViewWnd();
                view.ViewLPtoDP(&point, 1);
                return kv::win::ShownPixel(view.m_hWnd, point) & 0xFFFFFF;
            };
            EXPECT_EQ(shown(), 0x646464u);
            ClickControl(dialog, 36314);
            EXPECT_EQ(shown(), 0x0000FFu);
            ClickControl(dialog, 36314);
            EXPECT_EQ(shown(), 0x646464u);
            ClickControl(dialog, 1);
        });
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(3000, 64));
}

// ---- The end

TEST_F(MaskDlg, OKBurnsAPlacedFigureInAndWritesMaskAndSettings)
{
    mask = Grey(60, 50, 0x55);
    const INT_PTR result = Run("[Mask]\nToolId=1\nKeep=me\n[Other]\nToolId=77\n",
                               [](OpenMaskDlg& dialog)
                               {
                                   DragInDialog(dialog, 10, 10, 20, 15);
                                   ClickControl(dialog, 1);
                               });
    EXPECT_EQ(result, IDOK);
    for (int y = 0; y < 50; ++y)
        for (int x = 0; x < 60; ++x)
            ASSERT_EQ(mask->GetRowPointer(y)[x], x >= 10 && x < 20 && y >= 10 && y < 15 ? 0xD5 : 0x55) << x << "," << y;
    KvConfig written(config->Name());
    written.SetGroup("Mask");
    EXPECT_EQ(written.ReadKey("ToolId", ""), KvString("1"));
    EXPECT_EQ(written.ReadKey("IncTools", ""), KvString("TRUE"));
    EXPECT_EQ(written.ReadKey("LineWidth", ""), KvString("1"));
    EXPECT_EQ(written.ReadKey("ShowSystemMask", ""), KvString("FALSE"));
    EXPECT_EQ(written.ReadKey("Keep", ""), KvString("me"));
    written.SetGroup("Other");
    EXPECT_EQ(written.ReadKey("ToolId", ""), KvString("77"));
}

TEST_F(MaskDlg, OKWritesTheSettingsToTheByte)
{
    Run("",
        [](OpenMaskDlg& dialog)
        {
            ClickControl(dialog, 36312);
            ClickTool(dialog, 42364);
            dynamic_cast<KvSpinEdit&>(*dialog.GetDlgItem(36315)).SetValue(12);
            ClickControl(dialog, 36314);
            ClickControl(dialog, 1);
        });
    EXPECT_EQ(config->Text(), "[Mask]\nIncTools=FALSE\nLineWidth=12\nShowSystemMask=TRUE\nToolId=15\n");
}

TEST_F(MaskDlg, CancelTouchesNeitherMaskNorConfiguration)
{
    const std::string text = "[Mask]\nToolId=2\nLineWidth=4\n";
    const INT_PTR result = Run(text,
                               [](OpenMaskDlg& dialog)
                               {
                                   ClickTool(dialog, 42370);
                                   ClickTool(dialog, 42351);
                                   DragInDialog(dialog, 10, 10, 30, 30);
                                   ClickControl(dialog, 2);
                               });
    EXPECT_EQ(result, IDCANCEL);
    EXPECT_EQ(config->Text(), text);
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(3000, 0));
}

TEST_F(MaskDlg, EscapeCancelsAndEnterAccepts)
{
    EXPECT_EQ(Run("",
                  [](OpenMaskDlg&)
                  {
                      kv::win::PressKey(VK_ESCAPE);
                      kv::win::ReleaseKey(VK_ESCAPE);
                  }),
              IDCANCEL);
    EXPECT_FALSE(config->Exists());
    EXPECT_EQ(Run("",
                  [](OpenMaskDlg&)
                  {
                      kv::win::PressKey(VK_RETURN);
                      kv::win::ReleaseKey(VK_RETURN);
                  }),
              IDOK);
    EXPECT_TRUE(config->Exists());
}

TEST_F(MaskDlg, MaskOfAnotherSizeThanItsImageKeepsItsSize)
{
    mask = Grey(30, 20, 1);
    Run("",
        [](OpenMaskDlg& dialog)
        {
            ClickTool(dialog, 42370);
            ClickControl(dialog, 1);
        });
    EXPECT_EQ(Bytes(*mask), std::vector<unsigned char>(600, 129));
}
