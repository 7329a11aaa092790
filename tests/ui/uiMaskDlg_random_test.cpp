// An operator without a plan in both mask dialogs: whatever he does, the host's mask and the configuration stay as they
// are until OK, bits that are not the operator's survive, and buttons and controls follow what is going on.
#include "tests/ui/mask_dialog.h"
#include "tests/ui/random_rounds.h"

#include <random>

using namespace KvN;
using namespace kv::test;

namespace
{

constexpr int accept = 42371;
constexpr int drop = 42372;
constexpr int deleteSystem = 42373;
constexpr int addRadio = 36311;
constexpr int cutRadio = 36312;
constexpr int systemBox = 36314;
constexpr int widthEdit = 36315;
constexpr int segmentBox = 36323;
constexpr int slider = 36324;
constexpr int eventsOfADialog = 100;

class PlainDlg : public KvMaskDlg
{
public:
    static constexpr bool overlay = false;
    static constexpr unsigned char keptBits = 127;
    PlainDlg() : KvMaskDlg(nullptr) {}
    using KvMaskDlg::maskWnd;
    using KvMaskDlg::toolId;
    using KvMaskDlg::toolMode;
};

class OverDlg : public KvMaskDlgOverlay
{
public:
    static constexpr bool overlay = true;
    static constexpr unsigned char keptBits = 63;
    OverDlg() : KvMaskDlgOverlay(nullptr, 8870, 8872, 8871) {}
    using KvMaskDlgOverlay::maskWnd;
    using KvMaskDlgOverlay::toolId;
    using KvMaskDlgOverlay::toolMode;
    using KvMaskDlgOverlay::workMask;
};

template <class Dlg>
class DialogOperator
{
public:
    DialogOperator(Dlg& dialog_, std::mt19937& random_) : dialog(dialog_), random(random_)
    {
        View().DisableRightButtonMenu();
        View().SetDefaultOff();
        View().SetZoomFactor(1.0);
        kv::win::Settle();
    }

    void Act()
    {
        switch (Number(24))
        {
        case 0:
        case 1:
        case 2:
            return PushTool();
        case 3:
            return ClickControl(dialog, Number(2) ? addRadio : cutRadio);
        case 4:
            return ClickControl(dialog, systemBox);
        case 5:
            return dynamic_cast<KvSpinEdit&>(*dialog.GetDlgItem(widthEdit)).SetValue(1 + Number(6));
        case 6:
            return Dlg::overlay ? MoveSlider() : PushTool();
        case 7:
            return Dlg::overlay ? ClickControl(dialog, segmentBox) : PushTool();
        case 8:
            return Dlg::overlay && Number(6) == 0 ? Resize() : Double();
        case 9:
            return Button(kv::win::Button::Right, Number(2));
        case 10:
        case 11:
        case 12:
        case 13:
            return Button(kv::win::Button::Left, 1);
        case 14:
        case 15:
        case 16:
        case 17:
            return Button(kv::win::Button::Left, 0);
        default:
            return kv::win::MoveMouse(View().m_hWnd, Point());
        }
    }

    void Check()
    {
        const bool placed = dialog.maskWnd.IsInChangeMode();
        ASSERT_EQ(dialog.toolMode, !placed);
        ASSERT_EQ(IsToolEnabled(dialog, accept), placed);
        ASSERT_EQ(IsToolEnabled(dialog, drop), placed);
        ASSERT_EQ(IsControlEnabled(dialog, addRadio), !placed);
        ASSERT_EQ(IsControlEnabled(dialog, cutRadio), !placed);
        const bool cutting = IsControlChecked(dialog, cutRadio);
        ASSERT_EQ(dialog.maskWnd.SelectedTool(), dialog.toolId);
        ASSERT_EQ(dialog.toolId > 10, cutting);
        for (int tool = cutting ? 11 : 1; tool <= (cutting ? 19 : 9); ++tool)
        {
            ASSERT_EQ(IsToolChecked(dialog, 42349 + tool), tool == dialog.toolId) << tool;
            ASSERT_EQ(IsToolEnabled(dialog, 42349 + tool), !placed) << tool;
        }
        ASSERT_EQ(IsControlEnabled(dialog, widthEdit), !DescribeMaskTool(dialog.toolId).filled);
        if (!dialog.maskWnd.IsDrawing() && !dialog.maskWnd.IsPolygonOpen())
        {
            ASSERT_EQ(::GetCapture(), nullptr);
        }
    }

private:
    int Number(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }
    KvAOIBaseViewWnd& View() const { return *dialog.maskWnd.GetAOIBaseViewWnd(); }
    CPoint Point() { return {Number(76) - 6, Number(56) - 6}; }
    // Input that a captured mouse would take elsewhere comes first to its end.
    void LetGo()
    {
        if (::GetCapture())
            Double();
        Button(kv::win::Button::Left, 0);
    }
    void PushTool()
    {
        LetGo();
        const KvDlgToolBar& bar = *dialog.GetCurrentToolBar();
        const int id = static_cast<int>(bar.GetItemID(Number(bar.GetCount())));
        if (id >= 42350 && (id != deleteSystem || Number(10) == 0))
            ClickTool(dialog, id);
    }
    void MoveSlider()
    {
        dialog.GetDlgItem(slider)->SendMessage(TBM_SETPOS, TRUE, Number(101));
        dialog.SendMessage(WM_HSCROLL, TB_ENDTRACK, reinterpret_cast<LPARAM>(dialog.GetDlgItem(slider)->m_hWnd));
    }
    void Resize()
    {
        CRect window;
        dialog.GetWindowRect(&window);
        dialog.SetWindowPos(nullptr, 0, 0, window.Width() + Number(21) - 10, window.Height() + Number(21) - 10,
                            SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
        kv::win::Settle();
    }
    void Double()
    {
        const CPoint point = Point();
        kv::win::MoveMouse(View().m_hWnd, point);
        kv::win::DoublePressButton(View().m_hWnd, kv::win::Button::Left, point);
        kv::win::ReleaseButton(View().m_hWnd, kv::win::Button::Left, point);
    }
    void Button(kv::win::Button button, int press)
    {
        const CPoint point = Point();
        kv::win::MoveMouse(View().m_hWnd, point);
        if (press)
            kv::win::PressButton(View().m_hWnd, button, point);
        else
            kv::win::ReleaseButton(View().m_hWnd, button, point);
    }

    Dlg& dialog;
    std::mt19937& random;
};

// What the mask must be of once the dialog has gone: untouched, or changed in the operator's bits only.
void ExpectKept(const KvAOI8& mask, const std::vector<unsigned char>& before, unsigned char bits)
{
    const std::vector<unsigned char> after = Bytes(mask);
    ASSERT_EQ(after.size(), before.size());
    for (size_t i = 0; i < after.size(); ++i)
        ASSERT_EQ(after[i] & bits, before[i] & bits) << i;
}

template <class Dlg>
void Operate(unsigned seed)
{
    std::mt19937 random(seed);
    const auto image = Grey(64, 44, 100);
    const auto mask = Grey(64, 44, 0);
    for (int y = 0; y < 44; ++y)
        for (int x = 0; x < 64; ++x)
            mask->GetRowPointer(y)[x] = static_cast<unsigned char>(random());
    const ConfigFile config("[Mask]\nToolId=5\nLineWidth=3\n");
    int changed = 0;
    const int events = RoundEvents(10000, 600);
    for (int done = 0; done < events && !::testing::Test::HasFatalFailure(); done += eventsOfADialog)
    {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", event " + std::to_string(done));
        const auto before = Bytes(*mask);
        const std::string settings = config.Text();
        Dlg dialog;
        bool segment = false;
        if constexpr (Dlg::overlay)
        {
            segment = random() % 2;
            if (segment)
                dialog.ActivateSegment(static_cast<int>(random() % 2));
        }
        dialog.Init(config.Name(), image.get(), mask.get());
        const bool ok = random() % 2;
        const INT_PTR result = RunDialog(dialog,
                                         [&]
                                         {
                                             DialogOperator<Dlg> operate(dialog, random);
                                             for (int i = 0; i < eventsOfADialog; ++i)
                                             {
                                                 operate.Act();
                                                 operate.Check();
                                                 ASSERT_EQ(Bytes(*mask), before);
                                                 if constexpr (Dlg::overlay)
                                                     ExpectKept(*dialog.workMask, before, 63);
                                                 if (::testing::Test::HasFatalFailure())
                                                     return;
                                             }
                                             dialog.PostMessage(WM_COMMAND, ok ? IDOK : IDCANCEL, 0);
                                             kv::win::Settle();
                                         });
        if (::testing::Test::HasFatalFailure())
            return;
        ASSERT_EQ(result, ok ? IDOK : IDCANCEL);
        changed += Bytes(*mask) != before;
        // The threshold group edits bit 6, too; without it that bit comes back even where it was hidden or deleted.
        ExpectKept(*mask, before, !ok ? 255 : segment ? Dlg::keptBits : 127);
        if (!ok)
        {
            ASSERT_EQ(config.Text(), settings);
        }
    }
    EXPECT_GT(changed, 0); // the operator does get something done
}

class MaskDlgRandom : public ::testing::TestWithParam<int>
{
};

} // namespace

TEST_P(MaskDlgRandom, PlainDialogKeepsItsPromises)
{
    Operate<PlainDlg>(RoundSeed(GetParam()));
}

TEST_P(MaskDlgRandom, OverlayDialogKeepsItsPromises)
{
    Operate<OverDlg>(RoundSeed(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Seeds, MaskDlgRandom, Rounds(5, 1));
