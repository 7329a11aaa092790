// An operator without a plan at both mask windows: whatever he does, other bits survive, the capture is released at
// rest, and the screen shows what the raster says. KV_RANDOM_EVENTS sets the number of events.
#include "tests/ui/mask_window.h"

#include <cstdlib>
#include <random>

using namespace KvN;
using namespace kv::test;

namespace
{

constexpr unsigned char grey = 100;
constexpr float strength = 0.5f;

int Events()
{
    const char* wanted = std::getenv("KV_RANDOM_EVENTS");
    return wanted ? std::atoi(wanted) : 1500;
}

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
            return stand.View().SetZoomFactor(1 + Number(2));
        case 5:
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

    // With nothing under way the screen shows the raster.
    void CheckScreen()
    {
        if (stand.window.IsDrawing() || stand.window.IsPolygonOpen() || stand.window.IsInChangeMode())
            return;
        Repaint();
        if constexpr (std::is_same_v<Stand, PlainStand>)
            stand.window.MaskToAOI(); // the other window's AOI is always up to date
        for (int y = 0; y < stand.mask.AOIHeight(); ++y)
            for (int x = 0; x < stand.mask.AOIWidth(); ++x)
                ASSERT_EQ(stand.Shown(x, y), Expected(stand, x, y)) << x << "," << y;
        ++looks;
    }

    int looks = 0;

private:
    // The plain window never touches bit 6 either.
    static constexpr unsigned char keptBits = std::is_same_v<Stand, PlainStand> ? 127 : 63;

    int Number(int below) { return static_cast<int>(random() % static_cast<unsigned>(below)); }
    int X() { return Number(stand.mask.AOIWidth() + 12) - 6; }
    int Y() { return Number(stand.mask.AOIHeight() + 12) - 6; }
    void Choose() { stand.window.SetTool(static_cast<unsigned short>(Number(23))); }
    void Repaint()
    {
        stand.View().Invalidate(FALSE);
        stand.View().UpdateWindow();
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
    for (int i = 0; i < Events() && !::testing::Test::HasFatalFailure(); ++i)
    {
        SCOPED_TRACE("seed " + std::to_string(seed) + ", event " + std::to_string(i));
        operate.Act();
        operate.Check();
        if (i % 20 == 0)
            operate.CheckScreen();
    }
    EXPECT_GT(operate.looks, 0);
}

} // namespace

TEST(MaskWndRandom, PlainWindowKeepsItsPromises)
{
    for (const unsigned seed : {1u, 2u, 3u})
        Operate<PlainStand>(seed);
}

TEST(MaskWndRandom, OverlayWindowKeepsItsPromises)
{
    for (const unsigned seed : {1u, 2u, 3u})
        Operate<OverlayStand>(seed);
}
