// A 12-megapixel AOI on a 1600 by 1000 surface through its table, beside QPainter drawing the same indexed image
// unsmoothed, and beside a plain copy of the surface. Run without arguments.
#include "contracts/image/KvAOITypes.h"
#include "platform/afx/dc.h"

#include <QGuiApplication>
#include <QImage>
#include <QPainter>

#include <chrono>
#include <cstdio>
#include <cstring>
#include <functional>
#include <vector>

namespace
{
using namespace KvN;

constexpr int surfaceWidth = 1600, surfaceHeight = 1000;
constexpr short imageWidth = 4000, imageHeight = 3000;

double BestMilliseconds(const std::function<void()>& work)
{
    double best = 1e30;
    for (int i = 0; i < 30; ++i)
    {
        const auto start = std::chrono::steady_clock::now();
        work();
        const std::chrono::duration<double, std::milli> took = std::chrono::steady_clock::now() - start;
        best = std::min(best, took.count());
    }
    return best;
}

KvBufferAOI8 Picture()
{
    KvBufferAOI8 aoi({imageWidth, imageHeight});
    unsigned state = 1;
    for (int y = 0; y < imageHeight; ++y)
    {
        unsigned char* row = aoi.GetRowPointer(y);
        for (int x = 0; x < imageWidth; ++x)
        {
            state = state * 1664525u + 1013904223u;
            row[x] = static_cast<unsigned char>((x + y) / 8 + (state >> 28));
        }
    }
    aoi.SetOLut(pOLutMgr->GetLut(L"Rainbow"));
    return aoi;
}

QImage IndexedImage(const KvBufferAOI8& aoi)
{
    QImage image(imageWidth, imageHeight, QImage::Format_Indexed8);
    QList<QRgb> colors;
    for (const KvColor& color : aoi.GetOLut()->GetColors())
        colors.append(qRgb(color.red, color.green, color.blue));
    image.setColorTable(colors);
    for (int y = 0; y < imageHeight; ++y)
        std::memcpy(image.scanLine(y), aoi.GetRowPointer(y), imageWidth);
    return image;
}
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QGuiApplication application(argc, argv);
    const KvBufferAOI8 aoi = Picture();
    const QImage image = IndexedImage(aoi);

    BITMAPINFO info{};
    info.bmiHeader = {sizeof(BITMAPINFOHEADER), surfaceWidth, -surfaceHeight, 1, 32, BI_RGB, 0, 0, 0, 0, 0};
    void* bits = nullptr;
    CDC dc;
    dc.CreateCompatibleDC(nullptr);
    CBitmap section;
    section.Attach(::CreateDIBSection(nullptr, &info, DIB_RGB_COLORS, &bits, nullptr, 0));
    const HGDIOBJ former = dc.SelectObject(section.GetSafeHandle());
    QImage screen(surfaceWidth, surfaceHeight, QImage::Format_RGB32);
    std::vector<unsigned> copy(surfaceWidth * surfaceHeight);

    const double plain = BestMilliseconds([&] { std::memcpy(copy.data(), bits, copy.size() * 4); });
    std::printf("plain copy %.2f ms\n%6s %10s %12s %7s\n", plain, "zoom", "Kv", "QPainter", "ratio");
    for (const double zoom : {0.25, 1.0, 3.0, 8.0})
    {
        dc.SetMapMode(MM_ANISOTROPIC);
        dc.SetWindowExt(100, 100);
        dc.SetViewportExt(int(100 * zoom), int(100 * zoom));
        // Scrolled to the middle, as a view would be.
        const int left = std::max(0, int((imageWidth * zoom - surfaceWidth) / 2));
        const int top = std::max(0, int((imageHeight * zoom - surfaceHeight) / 2));
        dc.SetViewportOrg(-left, -top);
        const double ours = BestMilliseconds([&] { aoi.ShowStretched(aoi.AOIRect(), aoi.AOIRect(), &dc); });
        const double theirs = BestMilliseconds(
            [&]
            {
                QPainter painter(&screen);
                painter.translate(-left, -top);
                painter.scale(zoom, zoom);
                painter.drawImage(0, 0, image);
            });
        std::printf("%6.2f %7.2f ms %9.2f ms %7.2f\n", zoom, ours, theirs, ours / theirs);
    }
    dc.SelectObject(former);
}
