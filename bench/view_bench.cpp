// Frame times of the AOI view: each zoom, straight, through a paint's memory context and through the persistent one,
// beside QPainter drawing the same indexed image; alone and with 1,000 polygon outlines of 2 pixels.
#include "C/uiAOIBaseViewWnd.h"
#include "C/uiAOIWnd.h"
#include "contracts/image.h"
#include "platform/win/input.h"

#include <QApplication>
#include <QImage>
#include <QPainter>
#include <benchmark/benchmark.h>

#include <cmath>
#include <fstream>
#include <iterator>
#include <memory>
#include <unistd.h>
#include <vector>

using namespace KvN;

namespace
{
constexpr double zooms[] = {0.25, 1.0, 3.0, 8.0};
enum Path
{
    Direct,
    Buffered,
    Persistent
};

std::unique_ptr<KvBufferAOI8> Pattern(int width, int height)
{
    auto aoi = std::make_unique<KvBufferAOI8>(KvTSize<short>(static_cast<short>(width), static_cast<short>(height)), 0);
    for (int y = 0; y < height; ++y)
    {
        unsigned char* row = aoi->GetRowPointer(y);
        for (int x = 0; x < width; ++x)
            row[x] = static_cast<unsigned char>(x * 7 + y * 3);
    }
    return aoi;
}

// A thousand polygons of twelve points, spread over the given extent.
std::vector<std::vector<POINT>> Outlines(int width, int height)
{
    std::vector<std::vector<POINT>> outlines(1000);
    unsigned seed = 1;
    const auto random = [&](int below)
    {
        seed = seed * 1664525u + 1013904223u;
        return static_cast<int>((seed >> 8) % static_cast<unsigned>(below));
    };
    for (auto& outline : outlines)
    {
        const int x = random(width);
        const int y = random(height);
        const int radius = 10 + random(40);
        for (int i = 0; i < 12; ++i)
            outline.push_back({x + static_cast<LONG>(radius * std::cos(i * 0.5236)),
                               y + static_cast<LONG>(radius * std::sin(i * 0.5236))});
    }
    return outlines;
}

// A host with a view of an AOI, and a handler that draws outlines.
class Scene
{
public:
    Scene(CSize client, int aoiWidth, int aoiHeight, double zoom, Path path, bool withOutlines)
        : aoi(Pattern(aoiWidth, aoiHeight)),
          outlines(withOutlines ? Outlines(aoiWidth, aoiHeight) : decltype(outlines)())
    {
        host.CreateEx(0, AfxRegisterWndClass(0), CString(), WS_POPUP | WS_VISIBLE, CRect(CPoint(0, 0), client), nullptr,
                      0);
        window.Create(&host);
        view = window.GetAOIBaseViewWnd();
        view->SetAOI(aoi.get());
        view->SetDefaultOff();
        view->SetZoomFactor(zoom);
        view->UseMemDC() = path == Persistent;
        const KvTools::Link link(this,
                                 [](void* self, void*) -> long long
                                 {
                                     static_cast<Scene*>(self)->Draw();
                                     return 1;
                                 });
        if (path == Direct)
            view->ChangeMousePaintHdl(link);
        else
            view->ChangePaintHdl(link);
        view->postPaintSignal.Connect(this,
                                      [](void* self, KvAOIBaseViewWnd&) { static_cast<Scene*>(self)->painted = true; });
        kv::win::Settle();
    }
    ~Scene()
    {
        window.DestroyWindow();
        host.DestroyWindow();
    }

    // One paint, a little further along where there is something to scroll.
    void Frame()
    {
        painted = false;
        step = (step + 3) % 200;
        view->SetAOIPos(KvTPoint<short>(static_cast<short>(step), static_cast<short>(step)));
        if (painted)
            return;
        view->InvalidateRect(nullptr);
        view->UpdateWindow();
    }

private:
    void Draw()
    {
        if (outlines.empty())
            return;
        CDC* dc = view->GetOutputDevice();
        CPen pen(PS_SOLID, 2, RGB(255, 0, 0));
        const HGDIOBJ formerPen = dc->SelectObject(static_cast<HGDIOBJ>(pen));
        const HGDIOBJ formerBrush = dc->SelectObject(GetStockObject(NULL_BRUSH));
        for (const auto& outline : outlines)
            dc->Polygon(outline.data(), static_cast<int>(outline.size()));
        dc->SelectObject(formerPen);
        dc->SelectObject(formerBrush);
    }

    std::unique_ptr<KvBufferAOI8> aoi;
    std::vector<std::vector<POINT>> outlines;
    CWnd host;
    KvAOIWnd window;
    KvAOIBaseViewWnd* view = nullptr;
    int step = 0;
    bool painted = false;
};

void View(benchmark::State& state, Path path, bool outlines)
{
    Scene scene(CSize(1600, 1000), 4000, 4000, zooms[state.range(0)], path, outlines);
    for (auto _ : state)
        scene.Frame();
    state.SetLabel("zoom " + std::to_string(zooms[state.range(0)]).substr(0, 4));
}

// The same picture by QPainter, from an indexed image onto one of 32 bits.
void Peer(benchmark::State& state, bool withOutlines)
{
    const double zoom = zooms[state.range(0)];
    const auto aoi = Pattern(4000, 4000);
    QImage image(aoi->GetRowPointer(0), 4000, 4000, 4000, QImage::Format_Indexed8);
    QList<QRgb> grey;
    for (int i = 0; i < 256; ++i)
        grey.append(qRgb(i, i, i));
    image.setColorTable(grey);
    std::vector<QPolygon> outlines;
    if (withOutlines)
    {
        for (const auto& outline : Outlines(4000, 4000))
        {
            QPolygon polygon;
            for (const POINT& point : outline)
                polygon << QPoint(point.x, point.y);
            outlines.push_back(polygon);
        }
    }
    QImage screen(1600, 1000, QImage::Format_RGB32);
    int step = 0;
    for (auto _ : state)
    {
        step = (step + 3) % 200;
        QPainter painter(&screen);
        painter.scale(zoom, zoom);
        painter.translate(-step, -step);
        const QRectF visible(step, step, 1600 / zoom, 1000 / zoom);
        painter.drawImage(visible, image, visible);
        painter.setPen(QPen(QColor(255, 0, 0), 2));
        for (const QPolygon& polygon : outlines)
            painter.drawPolygon(polygon);
    }
    state.SetLabel("zoom " + std::to_string(zoom).substr(0, 4));
}

double ResidentMiB()
{
    std::ifstream file("/proc/self/statm");
    long total = 0;
    long resident = 0;
    file >> total >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1 << 20);
}

enum Extent
{
    Drawn, // into the window's own surface
    Shown  // and from there to the screen
};

// Scrolling at zoom 1, by the extent of the AOI and of the client.
void Scrolling(benchmark::State& state, CSize client, int extent, Path path, Extent until = Drawn,
               bool outlines = false)
{
    Scene scene(client, extent, extent, 1.0, path, outlines);
    for (auto _ : state)
    {
        scene.Frame();
        if (until == Shown)
            kv::win::Settle();
    }
    state.counters["MiB_beside_AOI"] = ResidentMiB() - static_cast<double>(extent) * extent / (1 << 20);
}

// How frames are timed.
void Frames(benchmark::internal::Benchmark* benchmark)
{
    benchmark->MeasureProcessCPUTime()->UseRealTime()->Unit(benchmark::kMicrosecond);
}

void FramesAtEachZoom(benchmark::internal::Benchmark* benchmark)
{
    benchmark->DenseRange(0, static_cast<int>(std::size(zooms)) - 1)->Apply(Frames);
}

BENCHMARK_CAPTURE(View, direct, Direct, false)->Apply(FramesAtEachZoom);
BENCHMARK_CAPTURE(View, buffered, Buffered, false)->Apply(FramesAtEachZoom);
BENCHMARK_CAPTURE(View, persistent, Persistent, false)->Apply(FramesAtEachZoom);
BENCHMARK_CAPTURE(Peer, qpainter, false)->Apply(FramesAtEachZoom);
BENCHMARK_CAPTURE(View, direct_outlines, Direct, true)->Apply(FramesAtEachZoom);
BENCHMARK_CAPTURE(View, buffered_outlines, Buffered, true)->Apply(FramesAtEachZoom);
BENCHMARK_CAPTURE(View, persistent_outlines, Persistent, true)->Apply(FramesAtEachZoom);
BENCHMARK_CAPTURE(Peer, qpainter_outlines, true)->Apply(FramesAtEachZoom);
BENCHMARK_CAPTURE(Scrolling, small_aoi_direct, CSize(1600, 1000), 2000, Direct)->Apply(Frames);
BENCHMARK_CAPTURE(Scrolling, largest_aoi_direct, CSize(1600, 1000), 32767, Direct)->Apply(Frames);
BENCHMARK_CAPTURE(Scrolling, small_aoi_buffered, CSize(1600, 1000), 2000, Buffered)->Apply(Frames);
BENCHMARK_CAPTURE(Scrolling, largest_aoi_buffered, CSize(1600, 1000), 32767, Buffered)->Apply(Frames);
BENCHMARK_CAPTURE(Scrolling, large_window_direct, CSize(3840, 2160), 8000, Direct)->Apply(Frames);
BENCHMARK_CAPTURE(Scrolling, large_window_buffered, CSize(3840, 2160), 8000, Buffered)->Apply(Frames);
BENCHMARK_CAPTURE(Scrolling, largest_aoi_persistent, CSize(1600, 1000), 32767, Persistent)->Apply(Frames);
BENCHMARK_CAPTURE(Scrolling, largest_aoi_buffered_outlines, CSize(1600, 1000), 32767, Buffered, Drawn, true)
    ->Apply(Frames);
BENCHMARK_CAPTURE(Scrolling, large_window_direct_shown, CSize(3840, 2160), 8000, Direct, Shown)->Apply(Frames);
BENCHMARK_CAPTURE(Scrolling, large_window_buffered_shown, CSize(3840, 2160), 8000, Buffered, Shown)->Apply(Frames);
BENCHMARK_CAPTURE(Scrolling, large_window_outlines_shown, CSize(3840, 2160), 8000, Buffered, Shown, true)
    ->Apply(Frames);
} // namespace

int main(int argc, char** argv)
{
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    return 0;
}
