// Contour files beside their XML library used bare: the same file, the same tree, the same lists, in the same run.
// The `Memory` benchmarks give the peak of each above what the process held before, in a process of its own.
#include "C/syContourXMLExport.h"
#include "C/syContourXMLImport.h"

#include <benchmark/benchmark.h>
#include <pugixml.hpp>

#include <cmath>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <malloc.h>
#include <random>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

using namespace KvN;
namespace
{
constexpr int polygons = 100000;

KvTList<KvContour> MakePolygons()
{
    std::mt19937_64 random(20240601);
    std::uniform_real_distribution<double> pixels(0.0, 4096.0);
    KvTList<KvContour> contours;
    for (int i = 0; i < polygons; ++i)
    {
        KvContour contour;
        contour.ID() = i;
        contour.SequenceID() = i;
        contour.ContourType() = KvContour::ePolygon;
        contour.Angle() = pixels(random) / 1000.0;
        const KvVec2d centre(pixels(random), pixels(random));
        const int points = 6 + static_cast<int>(random() % 7);
        for (int p = 0; p < points; ++p)
        {
            const double angle = -KvMath::TwoPi * p / points;
            contour.CurvePositions().AddTail({centre.x + 100 * std::cos(angle), centre.y + 100 * std::sin(angle)});
        }
        contours.AddTail(contour);
    }
    return contours;
}

const KvTList<KvContour>& Polygons()
{
    static const KvTList<KvContour> contours = MakePolygons();
    return contours;
}

// A folder for the run, with the file that is read.
class Folder
{
public:
    Folder()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "kv-bench-XXXXXX").string();
        path = mkdtemp(pattern.data());
        KvContourXMLExport().Execute(Name("in.xml"), Polygons());
    }
    ~Folder() { std::filesystem::remove_all(path); }
    KvString Name(const char* file) const { return KvString((path / file).c_str()); }
    std::string File(const char* file) const { return (path / file).string(); }

private:
    std::filesystem::path path;
};

const Folder& TheFolder()
{
    static const Folder folder;
    return folder;
}

// ---- The peer: what a program does that uses the library as its manual shows --------------------------------------

void Take(pugi::xml_node node, double& value)
{
    if (*node.child_value())
        value = node.text().as_double();
}

KvContour BareContour(pugi::xml_node node)
{
    KvContour contour;
    contour.ID() = node.attribute("Id").as_int(-1);
    contour.ContourType() = static_cast<KvContour::eContourType>(node.child("ContourType").text().as_int());
    contour.Color() = node.child("Color").text().as_uint(KvContour::NoColor);
    Take(node.child("Angle"), contour.Angle());
    Take(node.child("LineWidth"), contour.LineWidth());
    contour.Exclude() = node.child("Exclude").text().as_int();
    contour.ReadOnly() = node.child("ReadOnly").text().as_int();
    contour.SequenceID() = node.child("SequenceID").text().as_int(-1);
    contour.Description() = KvString(node.child("Description").text().get());
    for (const pugi::xml_node point : node.children("Point"))
        contour.CurvePositions().AddTail(
            {point.child("PositionX").text().as_double(), point.child("PositionY").text().as_double()});
    return contour;
}

int BareRead(const std::string& file, KvTList<KvContour>& contours)
{
    pugi::xml_document document;
    document.load_file(file.c_str());
    for (const pugi::xml_node node : document.child("Contours").children("Contour"))
        contours.AddTail(BareContour(node));
    return contours.count;
}

void Put(pugi::xml_node node, const char* name, const char* format, double value)
{
    char text[400];
    std::snprintf(text, sizeof text, format, value);
    node.append_child(name).text().set(text);
}

void BareWriteContour(pugi::xml_node node, const KvContour& contour)
{
    node.append_attribute("Id").set_value(contour.ID());
    node.append_child("ContourType").text().set(static_cast<int>(contour.ContourType()));
    node.append_child("Exclude").text().set(contour.Exclude());
    node.append_child("ReadOnly").text().set(contour.ReadOnly());
    node.append_child("SequenceID").text().set(contour.SequenceID());
    node.append_child("Color");
    node.append_child("LineWidth");
    Put(node, "Angle", "%6.5f", contour.Angle());
    for (const auto* point = contour.CurvePositions().head; point; point = point->next)
    {
        pugi::xml_node child = node.append_child("Point");
        Put(child, "PositionX", "%4.3f", point->value.x);
        Put(child, "PositionY", "%4.3f", point->value.y);
    }
}

bool BareWrite(const std::string& file, const KvTList<KvContour>& contours)
{
    pugi::xml_document document;
    pugi::xml_node root = document.append_child("Contours");
    for (const auto* node = contours.head; node; node = node->next)
        BareWriteContour(root.append_child("Contour"), node->value);
    return document.save_file(file.c_str(), "  ");
}

// ---- Time -----------------------------------------------------------------------------------------------------------

void Check(benchmark::State& state, bool right)
{
    if (!right)
        state.SkipWithError("wrong result");
}

void ReadBare(benchmark::State& state)
{
    const std::string file = TheFolder().File("in.xml");
    for (auto _ : state)
    {
        KvTList<KvContour> contours;
        Check(state, BareRead(file, contours) == polygons);
    }
    state.counters["MB"] = static_cast<double>(std::filesystem::file_size(file)) / 1e6;
}

void ReadKv(benchmark::State& state)
{
    const KvString file = TheFolder().Name("in.xml");
    for (auto _ : state)
    {
        KvTList<KvContour> contours;
        Check(state, KvContourXMLImport().Execute(file, contours) && contours.count == polygons);
    }
}

void WriteBare(benchmark::State& state)
{
    const std::string file = TheFolder().File("bare.xml");
    for (auto _ : state)
        Check(state, BareWrite(file, Polygons()));
}

// The saving includes a sync to the disk, which the peer does without.
void WriteKv(benchmark::State& state)
{
    const KvString file = TheFolder().Name("kv.xml");
    for (auto _ : state)
        Check(state, KvContourXMLExport().Execute(file, Polygons()));
}

BENCHMARK(ReadBare)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(ReadKv)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(WriteBare)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(WriteKv)->Unit(benchmark::kMillisecond)->UseRealTime();

// ---- Memory ---------------------------------------------------------------------------------------------------------

// A line of /proc/self/status in MB.
double StatusMb(const std::string& name)
{
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);)
    {
        if (line.rfind(name + ":", 0) == 0)
            return std::stod(line.substr(name.size() + 1)) / 1000.0;
    }
    return 0.0;
}

// Runs an operation in a child process and gives the peak of its memory above the start.
template <class Operation>
double PeakMb(Operation operation)
{
    int ends[2];
    if (pipe(ends) != 0)
        return 0.0;
    const pid_t child = fork();
    if (child == 0)
    {
        malloc_trim(0);                                // what earlier benchmarks freed must not serve this one
        std::ofstream("/proc/self/clear_refs") << "5"; // forgets the former peak
        const double before = StatusMb("VmRSS");
        operation();
        const double peak = StatusMb("VmHWM") - before;
        _exit(write(ends[1], &peak, sizeof peak) == sizeof peak ? 0 : 1);
    }
    double peak = 0.0;
    if (read(ends[0], &peak, sizeof peak) != sizeof peak)
        peak = 0.0;
    close(ends[0]);
    close(ends[1]);
    waitpid(child, nullptr, 0);
    return peak;
}

template <class Operation>
void Measure(benchmark::State& state, Operation operation)
{
    for (auto _ : state)
        state.counters["peakMB"] = PeakMb(operation);
}

void MemoryReadBare(benchmark::State& state)
{
    const std::string file = TheFolder().File("in.xml");
    Measure(state,
            [&]
            {
                KvTList<KvContour> contours;
                BareRead(file, contours);
            });
}

void MemoryReadKv(benchmark::State& state)
{
    const KvString file = TheFolder().Name("in.xml");
    Measure(state,
            [&]
            {
                KvTList<KvContour> contours;
                KvContourXMLImport().Execute(file, contours);
            });
}

void MemoryWriteBare(benchmark::State& state)
{
    const std::string file = TheFolder().File("bare.xml");
    Measure(state, [&] { BareWrite(file, Polygons()); });
}

void MemoryWriteKv(benchmark::State& state)
{
    const KvString file = TheFolder().Name("kv.xml");
    Measure(state, [&] { KvContourXMLExport().Execute(file, Polygons()); });
}

BENCHMARK(MemoryReadBare)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(MemoryReadKv)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(MemoryWriteBare)->Iterations(1)->Unit(benchmark::kMillisecond);
BENCHMARK(MemoryWriteKv)->Iterations(1)->Unit(benchmark::kMillisecond);
} // namespace
