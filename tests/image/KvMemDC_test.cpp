// Layers combined on an off-screen context: what is still pending there shows what a blit would have made of it.
#include "contracts/image/KvMemDC.h"

#include "contracts/image.h"
#include "platform/afx/dcguards.h"

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <random>
#include <vector>

using namespace KvN;

namespace
{

constexpr int width = 70;
constexpr int height = 40;

// A 32-bit bitmap to look at.
class Sheet
{
public:
    Sheet(int width_, int height_) : columns(width_), rows(height_)
    {
        BITMAPINFO info{};
        info.bmiHeader = {sizeof(BITMAPINFOHEADER), columns, -rows, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
        void* bits = nullptr;
        bitmap = ::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0);
        pixels = static_cast<std::uint32_t*>(bits);
        dc.CreateCompatibleDC(nullptr);
        former = dc.SelectObject(static_cast<HGDIOBJ>(bitmap));
    }
    ~Sheet()
    {
        dc.SelectObject(former);
        ::DeleteObject(bitmap);
    }
    Sheet(const Sheet&) = delete;
    Sheet& operator=(const Sheet&) = delete;

    std::vector<std::uint32_t> Colours() const
    {
        std::vector<std::uint32_t> colours(pixels, pixels + columns * rows);
        for (std::uint32_t& colour : colours)
            colour &= 0xFFFFFF;
        return colours;
    }

    CDC dc;
    std::uint32_t* pixels = nullptr;

private:
    int columns;
    int rows;
    HBITMAP bitmap;
    HGDIOBJ former;
};

class MemDCLayers : public ::testing::Test
{
protected:
    MemDCLayers()
    {
        for (int y = 0; y < height; ++y)
            for (int x = 0; x < width; ++x)
            {
                aoi.GetRowPointer(y)[x] = static_cast<unsigned char>(random());
                keep.pixels[y * width + x] = random() % 3 == 0 ? 0xFFFFFF : static_cast<std::uint32_t>(random());
                add.pixels[y * width + x] = random() % 3 == 0 ? 0 : static_cast<std::uint32_t>(random());
            }
    }

    using Work = std::function<void(CDC& dc)>;
    struct Scene
    {
        Work before = nullptr;  // the AOI is drawn
        Work between = nullptr; // the two combinations
        Work after = nullptr;
        CSize size{width, height};
    };

    void DrawAOI(CDC& dc)
    {
        const KvTRectangle<short> whole(0, 0, width - 1, height - 1);
        aoi.ShowStretched(whole, whole, &dc);
    }

    // What an enlarged or reduced copy of the scene shows. `pending` is how the view paints.
    std::vector<std::uint32_t> Shown(const Scene& scene, double zoom, bool pending)
    {
        Sheet screen(150, 90);
        screen.dc.SetMapMode(MM_ANISOTROPIC);
        screen.dc.SetWindowExt(100, 100);
        screen.dc.SetViewportExt(static_cast<int>(100 * zoom), static_cast<int>(100 * zoom));
        screen.dc.SetStretchBltMode(COLORONCOLOR);
        KvMemDC memory(&screen.dc, width, height);
        const auto combine = [&](CDC& source, DWORD rop)
        {
            if (pending)
                memory.Combine(source, scene.size, rop);
            else
                memory.BitBlt(0, 0, scene.size.cx, scene.size.cy, &source, 0, 0, rop);
        };
        const auto work = [&](const Work& what)
        {
            if (what)
                what(memory);
        };
        work(scene.before);
        DrawAOI(memory);
        combine(keep.dc, SRCAND);
        work(scene.between);
        combine(add.dc, SRCPAINT);
        work(scene.after);
        KvTRectangle<short> whole(0, 0, width - 1, height - 1);
        memory.Paint(&screen.dc, whole);
        return screen.Colours();
    }

    void ExpectSame(const Scene& scene)
    {
        for (const double zoom : {0.3, 0.5, 1.0, 1.7, 2.0})
            EXPECT_EQ(Shown(scene, zoom, true), Shown(scene, zoom, false)) << zoom;
    }

    std::mt19937 random{7};
    KvBufferAOI8 aoi{KvTSize<short>(width, height), 0};
    Sheet keep{width, height};
    Sheet add{width, height};
};

} // namespace

TEST_F(MemDCLayers, ShowWhatBlitsWouldShow)
{
    ExpectSame({});
    EXPECT_NE(Shown({}, 1.0, true), std::vector<std::uint32_t>(150 * 90, 0));
}

TEST_F(MemDCLayers, CoverNoMoreThanTheirSize)
{
    ExpectSame({.size = CSize(33, 21)});
    ExpectSame({.size = CSize(width + 20, height + 20)});
    ExpectSame({.size = CSize(0, 0)});
}

TEST_F(MemDCLayers, LieBeneathWhatIsDrawnLaterAndOverWhatWasDrawnBefore)
{
    const auto drawing = [](CDC& dc)
    {
        const Rop2Mode rop(dc, R2_XORPEN);
        dc.Rectangle(5, 5, 50, 30);
        dc.Ellipse(20, 8, 66, 39);
    };
    ExpectSame({.after = drawing});
    ExpectSame({.between = drawing});
    ExpectSame({.before = drawing});
    ExpectSame({.before = drawing, .between = drawing, .after = drawing});
}

TEST_F(MemDCLayers, FollowTheContextsOriginsAndClip)
{
    ExpectSame({.before = [](CDC& dc) { dc.SetViewportOrg(-9, -4); }});
    ExpectSame({.before = [](CDC& dc) { dc.SetViewportOrg(6, 11); }});
    ExpectSame({.before = [](CDC& dc) { dc.IntersectClipRect(10, 5, 44, 31); }});
    ExpectSame({.between = [](CDC& dc) { dc.IntersectClipRect(10, 5, 44, 31); }});
    add.dc.SetViewportOrg(3, 2);
    keep.dc.SetViewportOrg(-5, -8);
    ExpectSame({});
}
