// The AOI view's painting: three ways of buffering, shrink, overlay, tables, order of handlers and signals, failures.
#include "platform/afx/dcguards.h"
#include "tests/ui/aoi_window.h"
#include "tests/ui/golden.h"

#include <fstream>
#include <random>

using namespace KvN;
using kv::test::AOIWindow;
using kv::test::Grey;
using kv::test::Handler;
using kv::test::IsGolden;
using kv::test::Ramp;
using kv::test::Thrown;

namespace
{
// A window whose view logs the order of a paint: < and > are the signals, P and M the handlers.
class AOIViewPaint : public ::testing::Test
{
protected:
    AOIViewPaint() : aoiWindow(CSize(160, 120)), view(aoiWindow.View())
    {
        view.SetAOI(aoi.get());
        view.prePaintSignal.Connect(this, [](void* self, KvAOIBaseViewWnd&) { Self(self).log += '<'; });
        view.postPaintSignal.Connect(this, [](void* self, KvAOIBaseViewWnd&) { Self(self).log += '>'; });
    }

    static AOIViewPaint& Self(void* self) { return *static_cast<AOIViewPaint*>(self); }
    void Repaint()
    {
        log.clear();
        view.InvalidateRect(nullptr);
        view.UpdateWindow();
    }
    // The client area, without scroll bars.
    kv::win::Picture Picture() const
    {
        const kv::win::Picture all = kv::win::PictureOf(view.m_hWnd);
        CRect client;
        view.GetClientRect(&client);
        kv::win::Picture picture;
        picture.width = client.Width();
        picture.height = client.Height();
        for (int y = 0; y < picture.height; ++y)
        {
            for (int x = 0; x < picture.width; ++x)
                picture.pixels.push_back(all.At(x, y) & 0xFFFFFF);
        }
        return picture;
    }
    void Zoom(double x, double y)
    {
        view.SetDefaultOff();
        view.SetZoomFactor(x, y);
    }

    std::unique_ptr<KvBufferAOI8> aoi = Ramp(300, 200);
    AOIWindow aoiWindow;
    KvAOIBaseViewWnd& view;
    std::string log;
    Handler paint{[this](void* data) { log += data == &view ? 'P' : '?'; }};
    Handler mousePaint{[this](void* data) { log += data == &view ? 'M' : '?'; }};
};

long ResidentPages()
{
    std::ifstream file("/proc/self/statm");
    long total = 0;
    long resident = 0;
    file >> total >> resident;
    return resident;
}

// Outlines and a filled ellipse, in AOI pixels.
void DrawFigures(KvAOIBaseViewWnd& view)
{
    CDC* dc = view.GetOutputDevice();
    CPen red(PS_SOLID, 2, RGB(255, 0, 0));
    CBrush blue(RGB(0, 0, 255));
    const HGDIOBJ formerPen = dc->SelectObject(static_cast<HGDIOBJ>(red));
    const HGDIOBJ formerBrush = dc->SelectObject(GetStockObject(NULL_BRUSH));
    const POINT triangle[] = {{20, 10}, {90, 30}, {40, 80}};
    dc->Polygon(triangle, 3);
    dc->SelectObject(static_cast<HGDIOBJ>(blue));
    dc->Ellipse(60, 50, 100, 70);
    dc->SelectObject(formerPen);
    dc->SelectObject(formerBrush);
}
} // namespace

TEST_F(AOIViewPaint, EmitsBothSignalsAroundTheMousePaintHandler)
{
    view.ChangeMousePaintHdl(mousePaint.Link());
    Repaint();
    EXPECT_EQ(log, "<M>");
}

TEST_F(AOIViewPaint, WithAPaintHandlerTheMousePaintHandlerStaysSilentOnTheScreen)
{
    view.ChangePaintHdl(paint.Link());
    view.ChangeMousePaintHdl(mousePaint.Link());
    Repaint();
    EXPECT_EQ(log, "<P>");
    view.SetShrink(2);
    Repaint();
    EXPECT_EQ(log, "<P>");
}

TEST_F(AOIViewPaint, ThroughThePersistentContextBothHandlersAreCalled)
{
    view.ChangePaintHdl(paint.Link());
    view.ChangeMousePaintHdl(mousePaint.Link());
    view.UseMemDC() = true;
    Repaint();
    EXPECT_EQ(log, "<PM>");
    view.SetShrink(2);
    Repaint();
    EXPECT_EQ(log, "<PM>");
}

TEST_F(AOIViewPaint, ShrunkWithoutPaintHandlerCallsNoHandler)
{
    view.ChangeMousePaintHdl(mousePaint.Link());
    view.SetShrink(2);
    Repaint();
    EXPECT_EQ(log, "<>");
}

TEST_F(AOIViewPaint, OnAPrinterTheHandlersDrawAfterTheImage)
{
    view.ChangePaintHdl(paint.Link());
    view.ChangeMousePaintHdl(mousePaint.Link());
    CClientDC dc(&view);
    view.OnPrepareDC(&dc);
    dc.m_bPrinting = TRUE;
    log.clear();
    view.OnDraw(&dc);
    EXPECT_EQ(log, "<PM>");
    view.UseMemDC() = true;
    log.clear();
    view.OnDraw(&dc);
    EXPECT_EQ(log, "<PM>");
}

TEST_F(AOIViewPaint, ShrunkAPrinterIsShownTheImageAlone)
{
    view.ChangeMousePaintHdl(mousePaint.Link());
    view.SetShrink(2);
    CClientDC dc(&view);
    view.OnPrepareDC(&dc);
    dc.m_bPrinting = TRUE;
    for (const KvTools::Link& link : {paint.Link(), KvTools::Link()})
    {
        view.ChangePaintHdl(link);
        log.clear();
        view.OnDraw(&dc);
        EXPECT_EQ(log, "<>");
    }
}

TEST_F(AOIViewPaint, AHandlerDrawsOnTheDeviceOfThePaintAndASlotBeforeOnTheWindows)
{
    HDC before = nullptr;
    HDC during = nullptr;
    view.prePaintSignal.Connect(&before, [](void* result, KvAOIBaseViewWnd& v)
                                { *static_cast<HDC*>(result) = v.GetOutputDevice()->m_hDC; });
    Handler look([&](void*) { during = view.GetOutputDevice()->m_hDC; });
    view.ChangePaintHdl(look.Link());
    Repaint();
    EXPECT_NE(during, nullptr);
    EXPECT_NE(before, during);
    EXPECT_EQ(before, view.GetOutputDevice()->m_hDC);
    EXPECT_EQ(view.IsInDraw(), 0);
}

TEST_F(AOIViewPaint, ASlotAfterThePaintDrawsOnItsContextWhoseStretchModeComesBack)
{
    CDC* after = nullptr;
    view.postPaintSignal.Connect(&after, [](void* result, KvAOIBaseViewWnd& v)
                                 { *static_cast<CDC**>(result) = v.GetOutputDevice(); });
    for (const KvTools::Link& link : {paint.Link(), KvTools::Link()})
    {
        for (const bool memDC : {false, true})
        {
            for (const unsigned short shrink : {1, 3})
            {
                view.ChangePaintHdl(link);
                view.UseMemDC() = memDC;
                view.SetShrink(shrink);
                CClientDC dc(&view);
                view.OnPrepareDC(&dc);
                dc.SetStretchBltMode(WHITEONBLACK);
                after = nullptr;
                view.OnDraw(&dc);
                EXPECT_EQ(after, &dc);
                EXPECT_EQ(dc.GetStretchBltMode(), WHITEONBLACK);
            }
        }
    }
}

TEST_F(AOIViewPaint, CallPaintHandlerShowsItsDeviceWhileItRuns)
{
    CDC* seen = nullptr;
    Handler look([&](void*) { seen = view.GetDCTmp(); });
    view.ChangePaintHdl(look.Link());
    CClientDC dc(&view);
    view.CallPaintHandler(&dc);
    EXPECT_EQ(seen, &dc);
    EXPECT_EQ(view.GetDCTmp(), nullptr);
    seen = nullptr;
    dc.m_bPrinting = TRUE;
    view.CallPaintHandler(&dc);
    EXPECT_EQ(seen, nullptr);
}

TEST_F(AOIViewPaint, IsNotReentrant)
{
    Handler again(
        [&](void*)
        {
            log += 'P';
            CClientDC dc(&view);
            view.OnDraw(&dc);
        });
    view.ChangePaintHdl(again.Link());
    Repaint();
    EXPECT_EQ(log, "<P>");
    view.UseMemDC() = true;
    Repaint();
    EXPECT_EQ(log, "<P>");
}

TEST_F(AOIViewPaint, DuringTheLayOutDrawsNothingAndEmitsBothSignals)
{
    const auto wide = Ramp(4096, 8);
    view.SetAOI(wide.get());
    view.ChangePaintHdl(paint.Link());
    view.SetDefaultOff();
    EXPECT_NE(Thrown([&] { view.SetZoomFactor(16.0); }), "");
    for (const bool memDC : {false, true})
    {
        view.UseMemDC() = memDC;
        const auto before = Picture();
        Repaint();
        EXPECT_EQ(log, "<>");
        EXPECT_EQ(Picture().pixels, before.pixels);
    }
}

TEST_F(AOIViewPaint, AFrameworkExceptionOfAHandlerComesOutAsOneOfTheSystemAndLeavesAWorkingView)
{
    for (const bool memDC : {false, true})
    {
        for (const unsigned short shrink : {1, 3})
        {
            view.UseMemDC() = memDC;
            view.SetShrink(shrink);
            Handler throwing([](void*) { AfxThrowResourceException("kaputt"); });
            const KvTools::Link former = view.ChangePaintHdl(throwing.Link());
            CClientDC dc(&view);
            view.OnPrepareDC(&dc);
            log.clear();
            EXPECT_EQ(Thrown([&] { view.OnDraw(&dc); }), "kaputt");
            EXPECT_EQ(log, "<");
            EXPECT_EQ(view.IsInDraw(), 0);
            EXPECT_EQ(aoiWindow.Open().outputDevice, nullptr);
            view.ChangePaintHdl(former);
            Repaint();
            EXPECT_EQ(log, "<>");
        }
    }
}

TEST_F(AOIViewPaint, AnExceptionOfTheSystemPassesAsItIs)
{
    auto* thrown = new KvException(KvString("file"), 7, KvString("text"));
    Handler throwing([&](void*) { throw thrown; });
    view.ChangePaintHdl(throwing.Link());
    CClientDC dc(&view);
    view.OnPrepareDC(&dc);
    try
    {
        view.OnDraw(&dc);
        FAIL();
    }
    catch (KvException* caught)
    {
        EXPECT_EQ(caught, thrown);
        caught->Delete();
    }
}

TEST_F(AOIViewPaint, AHandlerThatThrowsWhileTheWindowPaintsLeavesAWorkingWindow)
{
    for (const bool memDC : {false, true})
    {
        for (const unsigned short shrink : {1, 3})
        {
            view.UseMemDC() = memDC;
            view.SetShrink(shrink);
            Repaint();
            const auto expected = Picture();
            Handler throwing([](void*) { AfxThrowResourceException("kaputt"); });
            view.ChangePaintHdl(throwing.Link());
            EXPECT_EQ(Thrown([&] { Repaint(); }), "kaputt");
            view.ChangePaintHdl({});
            Repaint();
            EXPECT_EQ(log, "<>");
            EXPECT_EQ(Picture().pixels, expected.pixels);
        }
    }
}

TEST_F(AOIViewPaint, ATableThatVanishesLeavesAWorkingWindow)
{
    {
        KvOLut own(KvString("own"), pOLutMgr->GetLut(KvString("Hot"))->GetColors());
        aoi->SetOLut(&own);
        Repaint();
        EXPECT_EQ(aoiWindow.Shown(3, 4), 0x150000u);
        EXPECT_EQ(view.GetOutputLut().Utf8(), "own");
    }
    for (const bool memDC : {false, true})
    {
        view.UseMemDC() = memDC;
        Repaint();
        EXPECT_EQ(aoiWindow.Shown(3, 4), 0x070707u);
    }
    EXPECT_EQ(view.GetOutputLut().Utf8(), "Grey");
}

TEST_F(AOIViewPaint, AfterAnAOIWithoutExtentTheNextOneIsShown)
{
    for (const bool memDC : {false, true})
    {
        view.UseMemDC() = memDC;
        for (const auto& [width, height] : {std::pair<short, short>{0, 0}, {0, 50}, {50, 0}})
        {
            const auto none = Grey(width, height, 0);
            view.SetAOI(none.get());
            view.ChangePaintHdl(paint.Link());
            Repaint();
            Zoom(2, 2);
            view.SetAOIPos({5, 5});
            kv::win::MoveMouse(view.m_hWnd, CPoint(3, 3));
            view.ResizeBaseWindow();
            view.ChangePaintHdl({});
            Zoom(1, 1);
            view.SetAOI(aoi.get());
            view.SetDefaultOn();
            view.UseMemDC() = false; // the persistent context keeps its first size
            Repaint();
            EXPECT_EQ(aoiWindow.Shown(3, 4), 0x070707u);
            view.UseMemDC() = memDC;
        }
    }
}

TEST_F(AOIViewPaint, AForeignExceptionLeavesTheFlagsAsTheyAre)
{
    Handler throwing([](void*) { throw 5; });
    view.ChangePaintHdl(throwing.Link());
    CClientDC dc(&view);
    view.OnPrepareDC(&dc);
    EXPECT_THROW(view.OnDraw(&dc), int);
    EXPECT_EQ(view.IsInDraw(), 1);
    aoiWindow.Open().inDraw = 0;
}

TEST_F(AOIViewPaint, ADeviceWithoutStretchModeIsAFailureOfThatCall)
{
    CDC none;
    try
    {
        view.OnDraw(&none);
        FAIL();
    }
    catch (KvException* failure)
    {
        const auto* gdi = dynamic_cast<KvGDIException*>(failure);
        ASSERT_NE(gdi, nullptr);
        EXPECT_EQ(gdi->Function().Utf8(), "SetStretchBltMode");
        EXPECT_EQ(gdi->File().Utf8(), "C/uiAOIBaseViewWnd");
        failure->Delete();
    }
    EXPECT_EQ(view.IsInDraw(), 0);
}

TEST_F(AOIViewPaint, ShrinkTakesOneToSixteen)
{
    view.SetShrink(16);
    EXPECT_EQ(view.GetShrink(), 16);
    view.SetShrink(0);
    view.SetShrink(17);
    EXPECT_EQ(view.GetShrink(), 16);
}

TEST_F(AOIViewPaint, ShrinkShowsBlocksOfOnePixel)
{
    const auto small = Ramp(64, 48);
    view.SetAOI(small.get());
    view.SetShrink(4);
    Repaint();
    for (int y = 0; y < 48; ++y)
    {
        for (int x = 0; x < 64; ++x)
            ASSERT_EQ(aoiWindow.Shown(x, y), aoiWindow.Shown(x / 4 * 4, y / 4 * 4)) << x << "," << y;
    }
    EXPECT_NE(aoiWindow.Shown(4, 0), aoiWindow.Shown(3, 0));
}

TEST_F(AOIViewPaint, AnImageNarrowerThanTheReductionIsShownAsItIs)
{
    const auto narrow = Ramp(3, 40);
    view.SetAOI(narrow.get());
    view.SetShrink(4);
    for (const KvTools::Link& link : {paint.Link(), KvTools::Link()})
    {
        view.ChangePaintHdl(link);
        Repaint();
        for (int y = 0; y < 40; ++y)
        {
            for (int x = 0; x < 3; ++x)
                ASSERT_EQ(aoiWindow.Shown(x, y), static_cast<unsigned>(x + y) * 0x010101) << x << "," << y;
        }
    }
}

TEST_F(AOIViewPaint, EveryIntegralZoomShowsSquaresOfOnePixelOnEachPath)
{
    for (const int zoom : {1, 2, 3, 8})
    {
        Zoom(zoom, zoom);
        view.SetAOIPos({17, 23});
        for (const int path : {0, 1, 2})
        {
            view.ChangePaintHdl(path == 1 ? paint.Link() : KvTools::Link());
            view.UseMemDC() = path == 2;
            Repaint();
            const auto picture = Picture();
            for (int y = 0; y < picture.height; ++y)
            {
                for (int x = 0; x < picture.width; ++x)
                {
                    const unsigned grey = static_cast<unsigned>(17 + x / zoom + 23 + y / zoom) & 0xFF;
                    ASSERT_EQ(picture.At(x, y) & 0xFFFFFF, grey * 0x010101)
                        << zoom << " " << path << " " << x << "," << y;
                }
            }
        }
    }
}

TEST_F(AOIViewPaint, AMemoryContextHasTheSizeOfTheImageAndTakesMemoryOnlyWhereSomebodyDraws)
{
    const auto large = Ramp(20000, 20000);
    view.SetAOI(large.get());
    view.SetAOIPos({15000, 12000});
    const long before = ResidentPages();
    CSize bitmap;
    Handler look(
        [&](void*)
        {
            CDC* dc = view.GetOutputDevice();
            bitmap = dc->GetCurrentBitmap()->GetBitmapDimension();
            dc->Ellipse(0, 0, 20000, 20000);
            EXPECT_EQ(dc->GetPixel(3, 4), RGB(7, 7, 7));
        });
    view.ChangePaintHdl(look.Link());
    for (const bool memDC : {false, true})
    {
        for (const unsigned short shrink : {1, 4})
        {
            view.UseMemDC() = memDC;
            view.SetShrink(shrink);
            Repaint();
            EXPECT_EQ(bitmap, CSize(20000, 20000));
        }
    }
    EXPECT_LT(ResidentPages() - before, 40000 / 4); // of 4 KiB
}

TEST_F(AOIViewPaint, AHandlersOwnViewportOriginCountsFromTheImagesCorner)
{
    Handler mark(
        [&](void*)
        {
            CDC* dc = view.GetOutputDevice();
            const ViewportOrigin origin(*dc, 150, 110);
            dc->SetPixelV(2, 3, RGB(1, 2, 3));
        });
    view.SetAOIPos({100, 60});
    for (const bool memDC : {false, true})
    {
        view.UseMemDC() = memDC;
        view.ChangePaintHdl(mark.Link());
        Repaint();
        EXPECT_EQ(aoiWindow.Shown(152, 113), 0x010203u) << memDC;
    }
}

TEST_F(AOIViewPaint, AHandlerDrawsInAOIPixelsWhateverTheScrollPosition)
{
    Handler mark([&](void*) { view.GetOutputDevice()->SetPixelV(150, 110, RGB(1, 2, 3)); });
    view.SetAOIPos({100, 60});
    for (const bool memDC : {false, true})
    {
        view.UseMemDC() = memDC;
        view.ChangePaintHdl(mark.Link());
        Repaint();
        EXPECT_EQ(aoiWindow.Shown(150, 110), 0x010203u) << memDC;
    }
}

TEST_F(AOIViewPaint, AnOverlayOfAnotherTypeClearsTheOverlay)
{
    const auto grey = Grey(300, 200, 0);
    KvBufferAOI32Float other(KvTSize<short>(300, 200), 0);
    view.SetOverlayAOI(grey.get());
    EXPECT_EQ(view.GetOverlayAOI(), grey.get());
    view.SetOverlayAOI(&other);
    EXPECT_EQ(view.GetOverlayAOI(), nullptr);
}

TEST_F(AOIViewPaint, AnOverlayBlendsWhereItIsNotZeroAndTheMaskAllows)
{
    const auto base = Grey(300, 200, 100);
    const auto overlay = Grey(300, 200, 0);
    const auto mask = Grey(300, 200, 1);
    overlay->SetPoint({5, 5}, 200);
    overlay->SetPoint({6, 5}, 200);
    mask->SetPoint({6, 5}, 0);
    view.SetAOI(base.get());
    view.SetOverlayAOI(overlay.get());
    view.SetOverlayStrength(0.5f);
    Repaint();
    EXPECT_EQ(aoiWindow.Shown(4, 5), 0x646464u);
    EXPECT_EQ(aoiWindow.Shown(5, 5), 0x969696u);
    EXPECT_EQ(aoiWindow.Shown(6, 5), 0x969696u);
    view.SetMaskAOI(mask.get());
    Repaint();
    EXPECT_EQ(aoiWindow.Shown(5, 5), 0x969696u);
    EXPECT_EQ(aoiWindow.Shown(6, 5), 0x646464u);
}

TEST_F(AOIViewPaint, AColourImageGoesThroughTheOverlayWithNoneSet)
{
    KvBufferAOI32Color color(KvTSize<short>(300, 200), 0);
    color.SetPoint({3, 4}, KvColor(10, 20, 30));
    view.SetAOI(&color);
    Repaint();
    EXPECT_EQ(aoiWindow.Shown(3, 4), 0x0A141Eu);
    EXPECT_EQ(view.GetOutputLut().Length(), 0);
    view.SetOutputLut(KvString("Hot"));
    EXPECT_EQ(aoiWindow.Shown(3, 4), 0x0A141Eu);
}

namespace
{
// Notes which of the calls a paint makes: S plain, O overlay, M overlay with a mask.
template <class AOI>
struct Noting : AOI
{
    using AOI::AOI;
    using Rect = KvTRectangle<short>;

    void ShowStretched(const Rect& source, const Rect& destination, CDC* dc) const override
    {
        Note('S', source, destination);
        AOI::ShowStretched(source, destination, dc);
    }
    void ShowStretchedOverlay(KvAOI* overlay, KvAOI8* mask, float strength, const Rect& source, const Rect& destination,
                              CDC* dc) const override
    {
        Note('M', source, destination);
        AOI::ShowStretchedOverlay(overlay, mask, strength, source, destination, dc);
    }
    void ShowStretchedOverlay(KvAOI* overlay, float strength, const Rect& source, const Rect& destination,
                              CDC* dc) const override
    {
        Note('O', source, destination);
        AOI::ShowStretchedOverlay(overlay, strength, source, destination, dc);
    }
    // The area is the whole one on both sides, whatever is visible.
    void Note(char call, const Rect& source, const Rect& destination) const
    {
        calls += source == this->AOIRect() && destination == this->AOIRect() ? call : '?';
    }

    mutable std::string calls;
};
} // namespace

TEST_F(AOIViewPaint, OnlyAColourImageAsksForAnOverlayThatIsNotThere)
{
    const KvTSize<short> size(300, 200);
    const auto overlay = Grey(300, 200, 0);
    const auto mask = Grey(300, 200, 0);
    const auto calls = [&](auto& image)
    {
        view.SetAOI(&image);
        image.calls.clear();
        view.SetMaskAOI(nullptr);
        view.SetOverlayAOI(nullptr);
        Repaint();
        view.SetMaskAOI(mask.get());
        Repaint();
        view.SetOverlayAOI(overlay.get());
        Repaint();
        view.SetMaskAOI(nullptr);
        Repaint();
        return image.calls;
    };
    Noting<KvBufferAOI8> grey(size, 0);
    Noting<KvBufferAOI32Float> real(size, 0);
    Noting<KvBufferAOI32Color> color(size, 0);
    EXPECT_EQ(calls(grey), "SSMO");
    EXPECT_EQ(calls(real), "SSMO");
    EXPECT_EQ(calls(color), "OMMO");
    view.SetAOI(nullptr);
}

TEST_F(AOIViewPaint, ATableShowsAtOnceAndAnUnknownNameChangesNothing)
{
    EXPECT_EQ(view.GetOutputLut().Utf8(), "Grey");
    kv::win::Settle();
    log.clear();
    view.SetOutputLut(KvString("GreyInverted"));
    EXPECT_EQ(log, "<>");
    EXPECT_EQ(aoiWindow.Shown(3, 4), 0xF8F8F8u);
    view.SetOutputLut(KvString("none of that name"));
    EXPECT_EQ(view.GetOutputLut().Utf8(), "GreyInverted");
    EXPECT_EQ(aoiWindow.Shown(3, 4), 0xF8F8F8u);
}

TEST_F(AOIViewPaint, AnImageOfTheSameSizeIsShownWithoutALayOut)
{
    const auto same = Grey(300, 200, 77);
    view.SetAOIPos({40, 30});
    int resized = 0;
    Handler count([&](void*) { ++resized; });
    view.ChangeResizeHdl(count.Link());
    kv::win::Settle();
    log.clear();
    view.SetAOI(same.get());
    EXPECT_EQ(log, "<>");
    EXPECT_EQ(resized, 0);
    EXPECT_EQ(view.GetScrollPos(), (KvTPoint<short>(40, 30)));
    EXPECT_EQ(aoiWindow.Shown(41, 31), 0x4D4D4Du);
}

TEST_F(AOIViewPaint, AnAOIWithoutExtentPaintsNothingOnEveryPath)
{
    const auto none = Grey(0, 0, 0);
    view.SetAOI(none.get());
    view.ChangePaintHdl(paint.Link());
    for (const bool memDC : {false, true})
    {
        for (const unsigned short shrink : {1, 2})
        {
            view.UseMemDC() = memDC;
            view.SetShrink(shrink);
            CClientDC dc(&view);
            view.OnPrepareDC(&dc);
            EXPECT_EQ(Thrown([&] { view.OnDraw(&dc); }), "");
            EXPECT_EQ(view.IsInDraw(), 0);
        }
    }
}

TEST_F(AOIViewPaint, ThePersistentContextKeepsItsFirstSize)
{
    const auto small = Grey(20, 10, 100);
    const auto large = Grey(60, 40, 200);
    view.SetAOI(small.get());
    view.UseMemDC() = true;
    Repaint();
    view.SetAOI(large.get());
    Repaint();
    EXPECT_EQ(aoiWindow.Shown(19, 9), 0xC8C8C8u);
    EXPECT_NE(aoiWindow.Shown(20, 9), 0xC8C8C8u);
}

TEST_F(AOIViewPaint, AMoveThatChangesNothingCostsNoPaint)
{
    kv::win::MoveMouse(view.m_hWnd, CPoint(10, 10));
    log.clear();
    kv::win::MoveMouse(view.m_hWnd, CPoint(20, 20));
    kv::win::MoveMouse(view.m_hWnd, CPoint(20, 20));
    EXPECT_EQ(log, "");
}

namespace
{
// Random figures over a picture of 300 by 200, the same for one seed whatever they are drawn on.
void DrawRandomly(CDC* dc, unsigned seed)
{
    std::mt19937 random(seed);
    const auto pick = [&](int low, int high) { return std::uniform_int_distribution<>(low, high)(random); };
    // Figures beyond the visible part are not drawn, the image is there.
    if (pick(0, 2) == 0)
        dc->BitBlt(pick(0, 250), pick(0, 150), 60, 50, dc, pick(0, 250), pick(0, 150), SRCCOPY);
    for (int count = pick(0, 6); count > 0; --count)
    {
        CPen pen(PS_SOLID, pick(0, 4), RGB(pick(0, 255), pick(0, 255), pick(0, 255)));
        CBrush brush(RGB(pick(0, 255), pick(0, 255), pick(0, 255)));
        const SelectedObject penSelected(*dc, static_cast<HGDIOBJ>(pen));
        const SelectedObject brushSelected(*dc, pick(0, 1) ? static_cast<HGDIOBJ>(brush) : GetStockObject(NULL_BRUSH));
        const Rop2Mode rop(*dc, pick(0, 2) ? R2_COPYPEN : R2_XORPEN);
        const int x = pick(-20, 300), y = pick(-20, 200), width = pick(1, 120), height = pick(1, 80);
        const POINT corners[] = {{x, y}, {x + width, y + height / 3}, {x + width / 2, y + height}};
        switch (pick(0, 4))
        {
        case 0:
            dc->Polygon(corners, 3);
            break;
        case 1:
            dc->Ellipse(x, y, x + width, y + height);
            break;
        case 2:
            dc->TextOut(x, y, CString("12,5"));
            break;
        case 3:
            dc->PatBlt(x, y, width, height, pick(0, 1) ? PATINVERT : DSTINVERT);
            break;
        default:
            dc->Polyline(corners, 3);
        }
    }
}

// A memory DC of the whole AOI, drawn at once.
struct WholeMemory : CDC
{
    WholeMemory(CDC* like, int width, int height)
    {
        CreateCompatibleDC(like);
        bitmap.CreateCompatibleBitmap(like, width, height);
        former = SelectObject(bitmap.GetSafeHandle());
    }
    ~WholeMemory() override { SelectObject(former); }

    CBitmap bitmap;
    HGDIOBJ former;
};
} // namespace

TEST_F(AOIViewPaint, AtRandomEveryBufferedPathShowsWhatAMemoryContextOfTheWholeImageShows)
{
    std::mt19937 random(1207);
    const auto pick = [&](int low, int high) { return std::uniform_int_distribution<>(low, high)(random); };
    const auto overlay = Ramp(300, 200);
    for (int i = 0; i < 60; ++i)
    {
        const double zoom = pick(0, 2) ? pick(1, 8) : pick(4, 40) / 13.0;
        Zoom(zoom, pick(0, 3) ? zoom : zoom * 1.5);
        view.SetAOIPos({static_cast<short>(pick(0, 299)), static_cast<short>(pick(0, 199))});
        const auto reduction = static_cast<unsigned short>(pick(0, 3) ? 1 : pick(2, 16));
        view.SetShrink(reduction);
        view.SetOverlayAOI(pick(0, 3) ? nullptr : overlay.get());
        view.SetOverlayStrength(0.4f);
        view.UseMemDC() = reduction == 1 && pick(0, 1);
        const unsigned seed = random();
        Handler figures([&](void*) { DrawRandomly(view.GetOutputDevice(), seed); });
        view.ChangePaintHdl(figures.Link());
        Repaint();
        const auto shown = Picture();

        // The long way, straight onto the window.
        CClientDC dc(&view);
        view.OnPrepareDC(&dc);
        WholeMemory memory(&dc, 300, 200), second(&dc, 300, 200);
        if (view.GetOverlayAOI())
            aoi->ShowStretchedOverlay(overlay.get(), 0.4f, aoi->AOIRect(), aoi->AOIRect(), &memory);
        else
            aoi->ShowStretched(aoi->AOIRect(), aoi->AOIRect(), &memory);
        DrawRandomly(&memory, seed);
        const CRect r = view.GetVisibleLogicalRect();
        const int x = r.left, y = r.top, w = r.Width(), h = r.Height();
        if (reduction > 1 && second.StretchBlt(x, y, w / reduction, h / reduction, &memory, x, y, w, h, SRCCOPY))
            memory.StretchBlt(x, y, w, h, &second, x, y, w / reduction, h / reduction, SRCCOPY);
        const StretchMode mode(dc, COLORONCOLOR);
        dc.PatBlt(x, y, w, h, WHITENESS);
        dc.BitBlt(x, y, w, h, &memory, x, y, SRCCOPY);
        ASSERT_EQ(Picture().pixels, shown.pixels) << "case " << i << ", zoom " << zoom << ", shrink " << reduction;
    }
}

TEST_F(AOIViewPaint, GoldenAtEachZoomAndPath)
{
    Handler figures([this](void*) { DrawFigures(view); });
    const struct
    {
        const char* name;
        double x;
        double y;
    } zooms[] = {{"025", 0.25, 0.25}, {"050", 0.5, 0.5}, {"100", 1, 1},    {"170", 1.7, 1.7},
                 {"300", 3, 3},       {"800", 8, 8},     {"2x3", 2.0, 3.0}};
    for (const auto& zoom : zooms)
    {
        Zoom(zoom.x, zoom.y);
        view.SetAOIPos({13, 7});
        view.ChangePaintHdl({});
        view.ChangeMousePaintHdl(figures.Link());
        Repaint();
        EXPECT_TRUE(IsGolden(Picture(), std::string("view_direct_") + zoom.name));
        view.ChangeMousePaintHdl({});
        view.ChangePaintHdl(figures.Link());
        Repaint();
        EXPECT_TRUE(IsGolden(Picture(), std::string("view_buffered_") + zoom.name));
        view.UseMemDC() = true;
        Repaint();
        EXPECT_TRUE(IsGolden(Picture(), std::string("view_persistent_") + zoom.name));
        view.UseMemDC() = false;
    }
}

TEST_F(AOIViewPaint, GoldenAtEachShrink)
{
    Handler figures([this](void*) { DrawFigures(view); });
    for (const unsigned short shrink : {2, 3, 16})
    {
        for (const double zoom : {1.0, 3.0})
        {
            Zoom(zoom, zoom);
            view.SetAOIPos({13, 7});
            view.SetShrink(shrink);
            const std::string name = std::to_string(shrink) + "_" + std::to_string(static_cast<int>(zoom));
            view.ChangePaintHdl({});
            Repaint();
            EXPECT_TRUE(IsGolden(Picture(), "view_shrink_" + name));
            view.ChangePaintHdl(figures.Link());
            Repaint();
            EXPECT_TRUE(IsGolden(Picture(), "view_shrink_handler_" + name));
        }
    }
}
