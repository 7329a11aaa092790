// The mask windows over an image of 4096 by 3072 pixels, fitted to a host of 1200 by 900: a step of the rubber band, a
// figure burnt in, a change of the overlay's strength.
#include "C/uiAOIBaseViewWnd.h"
#include "C/uiMaskWnd.h"
#include "C/uiMaskWndOverlay.h"
#include "platform/win/input.h"

#include <QApplication>
#include <benchmark/benchmark.h>

#include <memory>

using namespace KvN;

namespace
{

QApplication& Application()
{
    static int count = 1;
    static char name[] = "mask_window_bench";
    static char* arguments[] = {name, nullptr};
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM"))
        qputenv("QT_QPA_PLATFORM", "offscreen");
    static auto* application = new QApplication(count, arguments); // stays: windows outlive what a program ends with
    return *application;
}

std::unique_ptr<KvBufferAOI8> Pattern(unsigned char bits)
{
    auto aoi = std::make_unique<KvBufferAOI8>(KvTSize<short>(4096, 3072), 0);
    for (int y = 0; y < 3072; ++y)
        for (int x = 0; x < 4096; ++x)
            aoi->GetRowPointer(y)[x] = static_cast<unsigned char>((x * 7 + y * 3) & bits);
    return aoi;
}

template <class Wnd>
class Stand
{
public:
    Stand() : image(Pattern(255)), mask(Pattern(64))
    {
        Application();
        mask->SetOLut(pOLutMgr->GetLut("Mask"));
        kv::win::ResetInput();
        host.CreateEx(0, AfxRegisterWndClass(0), CString(), WS_POPUP | WS_VISIBLE, CRect(0, 0, 1200, 900), nullptr, 0);
        window.Create(&host);
        window.Init(image.get(), mask.get());
        View().SetDefaultFittedToWindow(1);
        kv::win::Settle();
    }
    ~Stand()
    {
        window.DestroyWindow();
        host.DestroyWindow();
    }

    KvAOIBaseViewWnd& View() { return *window.GetAOIBaseViewWnd(); }
    void Move(CPoint at) { kv::win::MoveMouse(View().m_hWnd, at); }
    void Press(CPoint at) { kv::win::PressButton(View().m_hWnd, kv::win::Button::Left, at); }
    void Release(CPoint at) { kv::win::ReleaseButton(View().m_hWnd, kv::win::Button::Left, at); }

    std::unique_ptr<KvBufferAOI8> image;
    std::unique_ptr<KvBufferAOI8> mask;
    CWnd host;
    Wnd window;
};

void BandStep(benchmark::State& state)
{
    Stand<KvMaskWnd> stand;
    stand.window.SetTool(3);
    stand.Press(CPoint(100, 100));
    int step = 0;
    for (auto _ : state)
    {
        ++step;
        stand.Move(CPoint(500 + step % 300, 400 + step % 200));
    }
}

template <class Wnd>
void BurnFigure(benchmark::State& state)
{
    Stand<Wnd> stand;
    stand.window.SetTool(3);
    for (auto _ : state)
    {
        state.PauseTiming();
        stand.Press(CPoint(100, 100));
        stand.Release(CPoint(600, 500));
        state.ResumeTiming();
        stand.window.IntegrateFigure();
    }
}

void StrengthChange(benchmark::State& state)
{
    Stand<KvMaskWndOverlay> stand;
    stand.View().SetOverlayAOI(stand.mask.get());
    float strength = 0.0f;
    for (auto _ : state)
    {
        strength = strength < 0.9f ? strength + 0.1f : 0.1f;
        stand.View().SetOverlayStrength(strength);
        stand.View().InvalidateRect(nullptr, FALSE);
        stand.View().UpdateWindow();
    }
}

} // namespace

BENCHMARK(BandStep)->Unit(benchmark::kMillisecond);
BENCHMARK(BurnFigure<KvMaskWnd>)->Unit(benchmark::kMillisecond);
BENCHMARK(BurnFigure<KvMaskWndOverlay>)->Unit(benchmark::kMillisecond);
BENCHMARK(StrengthChange)->Unit(benchmark::kMillisecond);
