// The contour editor with 10,000 contours of 20 points on an AOI of 4096 by 3072 in a window of 1600 by 1000: a mouse
// move over nothing, one step of a drag, and one undo step of 1,000 contours.
#include "C/uiContourWnd.h"
#include "platform/win/input.h"

#include <QApplication>
#include <benchmark/benchmark.h>

#include <cmath>
#include <cstdlib>
#include <fstream>
#include <memory>
#include <string>
#include <unistd.h>

namespace
{

using namespace KvN;

// The contours stand in a grid, each within its cell of 40 by 30.
std::unique_ptr<KvContour> Star(int number)
{
    auto contour = std::make_unique<KvContour>();
    contour->ContourType() = KvContour::ePolygon;
    contour->ID() = contour->SequenceID() = number;
    const double x = 20.0 + 40.0 * (number % 100);
    const double y = 15.0 + 30.0 * static_cast<double>(number / 100);
    for (int i = 0; i < 20; ++i)
    {
        const double angle = -KvMath::TwoPi * i / 20;
        const double radius = i % 2 == 0 ? 12.0 : 8.0;
        contour->CurvePositions().AddTail(KvVec2d(x + radius * std::cos(angle), y + radius * std::sin(angle)));
    }
    return contour;
}

class Editor
{
public:
    explicit Editor(int contours) : aoi(KvTSize<short>(4096, 3072), 0)
    {
        host.CreateEx(0, AfxRegisterWndClass(0), "", WS_POPUP | WS_VISIBLE, 0, 0, 1600, 1000, nullptr, nullptr);
        editor.Create(&host);
        editor.Init(&aoi);
        editor.SetHandler();
        editor.SetUndoRedo(&undo);
        KvTPList<KvContour> list;
        list.SetClearFunction(&KvContour::ClrFunc);
        for (int i = 0; i < contours; ++i)
            list.AddEntry(Star(i).release());
        editor.SetContourList(list);
        kv::win::Settle();
    }
    ~Editor()
    {
        editor.SetUndoRedo(nullptr);
        editor.DestroyWindow();
        host.DestroyWindow();
    }
    Editor(const Editor&) = delete;
    Editor& operator=(const Editor&) = delete;

    HWND View() { return editor.GetAOIBaseViewWnd()->GetSafeHwnd(); }

    CWnd host;
    KvBufferAOI8 aoi;
    KvUndoRedo undo;
    KvContourWnd editor;
};

void MoveOverNothing(benchmark::State& state)
{
    Editor window(10000);
    window.editor.SetCatchSize(4);
    int x = 0;
    for (auto _ : state)
    {
        x = 1 - x;
        ::SendMessage(window.View(), WM_MOUSEMOVE, 0, MAKELPARAM(40 + x, 30));
    }
}
BENCHMARK(MoveOverNothing)->Unit(benchmark::kMillisecond);

void DragStep(benchmark::State& state)
{
    Editor window(10000);
    ::SendMessage(window.View(), WM_MOUSEMOVE, 0, MAKELPARAM(32, 15));
    ::SendMessage(window.View(), WM_LBUTTONDOWN, MK_LBUTTON, MAKELPARAM(32, 15));
    int x = 0;
    for (auto _ : state)
    {
        x = (x + 1) % 100;
        ::SendMessage(window.View(), WM_MOUSEMOVE, MK_LBUTTON, MAKELPARAM(40 + x, 30));
    }
    ::SendMessage(window.View(), WM_LBUTTONUP, 0, MAKELPARAM(40 + x, 30));
}
BENCHMARK(DragStep)->Unit(benchmark::kMillisecond);

double ResidentMiB()
{
    std::ifstream file("/proc/self/statm");
    long total = 0;
    long resident = 0;
    file >> total >> resident;
    return static_cast<double>(resident) * static_cast<double>(sysconf(_SC_PAGESIZE)) / (1024.0 * 1024.0);
}

// A step that changes one contour, and for comparison one that changes all of them.
void UndoStep(benchmark::State& state)
{
    Editor window(1000);
    const double before = ResidentMiB();
    int step = 0;
    for (auto _ : state)
    {
        window.editor.SaveUndoRedoState();
        if (state.range(0) == 1)
            window.editor.GetContourByIndex(step % 1000)->Exclude() ^= 1;
        else
            for (long i = 0; i < 1000; ++i)
                window.editor.GetContourByIndex(i)->Exclude() ^= 1;
        ++step;
    }
    state.counters["MiB"] = ResidentMiB() - before;
}
BENCHMARK(UndoStep)->Arg(1)->Arg(1000)->Iterations(1000)->Unit(benchmark::kMillisecond);

} // namespace

int main(int argc, char** argv)
{
    setenv("QT_QPA_PLATFORM", "offscreen", 0);
    const QApplication application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
}
