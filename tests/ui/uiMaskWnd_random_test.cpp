// An operator without a plan at both mask windows: whatever he does, other bits survive, the capture is released at
// rest, and the screen shows what the raster says.
#include "tests/ui/mask_window.h"
#include "tests/ui/random_rounds.h"

#include <random>

using namespace KvN;
using namespace kv::test;

namespace
{

constexpr unsigned char grey = 100;
constexpr float strength = 0.5f;

std::unique_ptr<KvBufferAOI8> NoisyMask(std::mt19937& random)
{
    auto mask = Grey(64, 44, 0);
    for (int y = 0; y < mask->AOIHeight(); ++y)
        for (int x = 0; x < mask->AOIWidth(); ++x)
            mask->GetRowPointer(y)[x] = static_cast<unsigned char>(random());
    mask->SetOLut(pOLutMgr->GetLut("Mask"));
    return mask;
}

unsigned Rgb(const KvColor& color)
{
    return unsigned{color.red} << 16 | unsigned{color.green} << 8 | color.blue;
}

unsigned Expected(const PlainStand& stand, int x, int y)
{
    const bool ring = x == 0 || y == 0 || x == stand.mask.AOIWidth() - 1 || y == stand.mask.AOIHeight() - 1;
    const unsigned char byte = stand.mask.GetRowPointer(y)[x];
    const unsigned image = grey * 0x010101u;
    if (ring || (x + y) % 2 != 0)
        return image;
    if (byte & 128)
        return 0xFF0000;
    return stand.window.IsSystemMaskShown() && (byte & 64) ? 0x0000FF : image;
}

unsigned Expected(const OverlayStand& stand, int x, int y)
{
    const unsigned char byte = stand.mask.GetRowPointer(y)[x];
    if (byte == 0)
        return grey * 0x010101u;
    const KvColor over = stand.mask.GetOLut()->GetColors()[byte];
    const auto mix = [](unsigned char c) { return static_cast<int>(grey + strength * (c - grey) + 0.5f); };
    return Rgb(KvColor(mix(over.red), mix(over.green), mix(over.blue)));
}

template <class Stand>
class Operator
{
public:
    Operator(Stand& stand_, std::mt19937& random_) : stand(stand_), random(random_)
    {
        stand.View().DisableRightButtonMenu();
        stand.View().SetDefaultOff();
        for (const unsigned char byte : Bytes(stand.mask))
            others.push_back(byte & keptBits);
    }

    void Act()
    {
        switch (Number(20))
        {
        case 0:
            return Choose();
        case 1:
            return stand.window.SetLineWidth(static_cast<unsigned short>(Number(6)));
        case 2:
            return stand.window.IntegrateFigure();
        case 3:
            return stand.window.DeleteFigure();
        case 4:
            return stand.View().SetZoomFactor(1 + Number(2)), kv::win::Settle();
        case 5:
            shownIsOld = std::is_same_v<Stand, PlainStand>; // which shows it with the next paint
            return Number(2) ? stand.window.ShowSystemMask() : stand.window.HideSystemMask();
        case 6:
            return stand.DoubleClick(X(), Y());
        case 7:
            return Button(kv::win::Button::Right, Number(2));
        case 8:
            return Repaint();
        case 9:
        case 10:
        case 11:
            return Button(kv::win::Button::Left, 1);
        case 12:
        case 13:
        case 14:
            return Button(kv::win::Button::Left, 0);
        default:
            return stand.Move(X(), Y());
        }
    }

    void Check()
    {
        if (!stand.window.IsDrawing() && !stand.window.IsPolygonOpen())
        {
            ASSERT_EQ(::GetCapture(), nullptr);
        }
        const std::vector<unsigned char> bytes = Bytes(stand.mask);
        for (size_t i = 0; i < bytes.size(); ++i)
            ASSERT_EQ(bytes[i] & keptBits, others[i]);
    }

    // With nothing under way the screen shows the raster, with no repaint asked for; with a figure placed it does so
    // beneath the figure, which can be taken off without a trace where the view does not stretch what it paints.
    void CheckScreen()
    {
        if (stand.window.IsDrawing() || stand.window.IsPolygonOpen())
            return;
        const bool placed = stand.window.IsInChangeMode();
        if (placed && (Number(10) != 0 || stand.View().GetZoomFactorX() != 1.0))
            return;
        if (placed || shownIsOld)
            Repaint();
        shownIsOld = false;
        constexpr bool plain = std::is_same_v<Stand, PlainStand>;
        if constexpr (plain)
            stand.window.MaskToAOI(); // the other window's AOI is always up to date
        if (plain && placed)
            stand.window.figure.Draw(); // erases
        SCOPED_TRACE(placed ? "placed" : "at rest");
        ExpectRaster();
        if (plain && placed)
            stand.window.figure.Draw();
        ++looks;
    }

    void Repaint()
    {
        stand.View().Invalidate(FALSE);
        stand.View().UpdateWindow();
    }

    int looks = 0;

private:
    // The plain window never touches bit 6 either.
    static constexpr unsigned char keptBits = std::is_same_v<Stand, PlainStand> ? 127 : 63;

    int Number(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }
    int X() { return Number(stand.mask.AOIWidth() + 12) - 6; }
    int Y() { return Number(stand.mask.AOIHeight() + 12) - 6; }
    void Choose() { stand.window.SetTool(static_cast<unsigned short>(Number(23))); }
    void ExpectRaster()
    {
        const kv::win::Picture shown = kv::win::PictureOf(stand.View().m_hWnd);
        for (int y = 0; y < stand.mask.AOIHeight(); ++y)
            for (int x = 0; x < stand.mask.AOIWidth(); ++x)
            {
                const CPoint at = stand.Client(x, y);
                ASSERT_EQ(shown.At(at.x, at.y) & 0xFFFFFF, Expected(stand, x, y)) << x << "," << y;
            }
    }
    void Button(kv::win::Button button, int press)
    {
        const CPoint point = stand.Client(X(), Y());
        kv::win::MoveMouse(stand.View().m_hWnd, point);
        if (press)
            kv::win::PressButton(stand.View().m_hWnd, button, point);
        else
            kv::win::ReleaseButton(stand.View().m_hWnd, button, point);
    }

    Stand& stand;
    std::mt19937& random;
    std::vector<unsigned char> others;
    bool shownIsOld = false;
};

template <class Stand>
void Operate(unsigned seed)
{
    std::mt19937 random(seed);
    const auto mask = NoisyMask(random);
    Stand stand(*mask, grey);
    stand.View().SetOverlayAOI(std::is_same_v<Stand, OverlayStand> ? mask.get() : nullptr);
    stand.View().SetOverlayStrength(strength);
    Operator<Stand> operate(stand, random);
    operate.Repaint();
    const int events = RoundEvents(10000, 1500);
    for (int i = 0; i < events && !::testing::Test::HasFatalFailure(); ++i)
    {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", event " + std::to_string(i));
        operate.Act();
        operate.Check();
        operate.CheckScreen();
    }
    EXPECT_GT(operate.looks, events / 100);
}

class MaskWndRandom : public ::testing::TestWithParam<int>
{
};

} // namespace

TEST_P(MaskWndRandom, PlainWindowKeepsItsPromises)
{
    Operate<PlainStand>(RoundSeed(GetParam()));
}

TEST_P(MaskWndRandom, OverlayWindowKeepsItsPromises)
{
    Operate<OverlayStand>(RoundSeed(GetParam()));
}

INSTANTIATE_TEST_SUITE_P(Seeds, MaskWndRandom, Rounds(5, 2));
