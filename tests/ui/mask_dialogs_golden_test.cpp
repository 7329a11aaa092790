// Pictures of both mask dialogs on the screen.
#include "tests/ui/golden.h"
#include "tests/ui/mask_dialog.h"

using namespace KvN;
using namespace kv::test;

namespace
{

void ExpectGolden(KvMaskDlgBase& dialog, const std::string& name)
{
    kv::win::LeaveMouse();
    EXPECT_TRUE(IsGolden(kv::win::PictureOf(dialog.m_hWnd), name));
}

// A mask with a user and a system region that overlap.
std::unique_ptr<KvBufferAOI8> TwoRegions()
{
    auto mask = Grey(160, 120, 0);
    for (int y = 20; y < 80; ++y)
        for (int x = 20; x < 100; ++x)
        {
            mask->GetRowPointer(y)[x] |= 128;
            mask->GetRowPointer(y + 30)[x + 40] |= 64;
        }
    mask->SetOLut(pOLutMgr->GetLut("Mask"));
    return mask;
}

} // namespace

TEST(MaskDialogPictures, PlainDialogWithBothLayersAndAPlacedFigure)
{
    const auto image = Ramp(160, 120);
    const auto mask = TwoRegions();
    const ConfigFile config("[Mask]\nToolId=17\nIncTools=FALSE\nLineWidth=4\nShowSystemMask=TRUE\n");
    KvMaskDlg dialog;
    dialog.Init(config.Name(), image.get(), mask.get());
    RunDialog(dialog,
              [&]
              {
                  ExpectGolden(dialog, "mask_dialog");
                  DragInDialog(dialog, 30, 30, 120, 90);
                  ExpectGolden(dialog, "mask_dialog_placed");
              });
}

TEST(MaskDialogPictures, OverlayDialogWithLegendAndThresholdGroup)
{
    const auto image = Ramp(160, 120);
    const auto mask = TwoRegions();
    const ConfigFile config("[Mask]\nOverlayStrength=0.5\n");
    KvMaskDlgOverlay dialog(nullptr, 8870, 8872, 8871);
    dialog.SetShowSurroundingOn();
    dialog.SetColors(RGB(255, 0, 0), RGB(0, 0, 255));
    dialog.ActivateSegment(0);
    dialog.SetDefaultFittedToWindow(0);
    dialog.SetDefaultZoomFactor(2);
    dialog.Init(config.Name(), image.get(), mask.get());
    RunDialog(dialog,
              [&]
              {
                  ExpectGolden(dialog, "mask_overlay_dialog");
                  dialog.SetWindowPos(nullptr, 0, 0, 800, 500, SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
                  ExpectGolden(dialog, "mask_overlay_dialog_small");
              });
}
