// Geometry of the largest polygon, 65,535 points: what a mouse move over it costs. The goal is 5 ns a vertex.
#include "C/syContour.h"

#include <benchmark/benchmark.h>

#include <cmath>
#include <random>

namespace
{
using KvN::KvContour;
using KvN::KvMath;
using KvN::KvVec2d;

constexpr int vertices = 65535;

// A ragged star, so that branches can't be guessed and no vertex or edge comes near its centre.
KvContour Star()
{
    std::mt19937_64 random(42);
    KvContour star;
    star.ContourType() = KvContour::ePolygon;
    for (int i = 0; i < vertices; ++i)
    {
        const double angle = KvMath::TwoPi * i / vertices;
        const double radius = 1000.0 + static_cast<double>(random() % 1000);
        star.CurvePositions().AddTail({2000.0 + radius * std::cos(angle), 2000.0 - radius * std::sin(angle)});
    }
    return star;
}

// A line with edges all over the image.
KvContour Scribble()
{
    std::mt19937_64 random(43);
    KvContour line;
    line.ContourType() = KvContour::ePolyline;
    for (int i = 0; i < vertices; ++i)
        line.CurvePositions().AddTail({static_cast<double>(random() % 4000), static_cast<double>(random() % 4000)});
    return line;
}

void ReportPerVertex(benchmark::State& state)
{
    using benchmark::Counter;
    state.counters["vertex"] = Counter(vertices, Counter::kIsIterationInvariantRate | Counter::kInvert);
}

template <class Question>
void Ask(benchmark::State& state, const Question& question, const KvContour& figure = Star())
{
    for (auto _ : state)
        benchmark::DoNotOptimize(question(figure));
    ReportPerVertex(state);
}

void MakeBoundingBox(benchmark::State& state)
{
    Ask(state,
        [](const KvContour& star)
        {
            KvN::KvTRectangle<double> box;
            star.MakeBoundingBox(box);
            return box;
        });
}
BENCHMARK(MakeBoundingBox);

void IsMatchWithoutHit(benchmark::State& state)
{
    Ask(state, [](const KvContour& star) { return star.IsMatch({2000.0, 2000.0}, 8.0); });
}
BENCHMARK(IsMatchWithoutHit);

// Beside the image, so that nothing matches though lines run in all directions.
void IsMatchOfScribble(benchmark::State& state)
{
    Ask(
        state,
        [](const KvContour& line) {
            return line.IsMatch({-10.0, 2000.0}, 8.0);
        },
        Scribble());
}
BENCHMARK(IsMatchOfScribble);

void GetPointMatchWithoutHit(benchmark::State& state)
{
    Ask(state, [](const KvContour& star) { return star.GetPointMatch({2000.0, 2000.0}, 8.0); });
}
BENCHMARK(GetPointMatchWithoutHit);

void GetArea(benchmark::State& state)
{
    Ask(state, [](const KvContour& star) { return star.GetArea(); });
}
BENCHMARK(GetArea);

void Copy(benchmark::State& state)
{
    Ask(state, [](const KvContour& star) { return KvContour(star).CurvePositions().count; });
}
BENCHMARK(Copy);

void ToByteArrayAndBack(benchmark::State& state)
{
    KvContour star = Star();
    KvContour read;
    KvTArray<unsigned char> bytes;
    for (auto _ : state)
    {
        star.ToByteArray(bytes);
        read.FromByteArray(bytes);
        benchmark::DoNotOptimize(read.CurvePositions().count);
    }
    ReportPerVertex(state);
}
BENCHMARK(ToByteArrayAndBack);
} // namespace
