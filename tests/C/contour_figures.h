// Figures for the contour tests: built from points, or random with a fixed seed.
#pragma once

#include "C/syContour.h"

#include <cmath>
#include <initializer_list>
#include <random>
#include <utility>
#include <vector>

namespace figures
{
using KvN::KvContour;
using KvN::KvMath;
using KvN::KvVec2d;

// Points as pairs, which compare exactly and print.
using Pairs = std::vector<std::pair<double, double>>;

inline Pairs Points(const KvTList<KvVec2d>& list)
{
    Pairs pairs;
    for (const auto* node = list.head; node; node = node->next)
        pairs.emplace_back(node->value.x, node->value.y);
    return pairs;
}

inline Pairs Points(const KvContour& contour)
{
    return Points(contour.CurvePositions());
}

inline KvTList<KvVec2d> List(std::initializer_list<KvVec2d> points)
{
    KvTList<KvVec2d> list;
    for (const KvVec2d& point : points)
        list.AddTail(point);
    return list;
}

inline KvContour Figure(KvContour::eContourType type, std::initializer_list<KvVec2d> points)
{
    KvContour contour;
    contour.ContourType() = type;
    contour.CurvePositions() = List(points);
    return contour;
}

// (0,0), (0,5), (10,5), (10,0): counter-clockwise on an image, where y runs downward.
inline KvContour Rectangle10x5()
{
    return Figure(KvContour::eRectangle, {{0.0, 0.0}, {0.0, 5.0}, {10.0, 5.0}, {10.0, 0.0}});
}

inline KvN::KvTMem<KvN::KvTPoint<double>> Mem(std::initializer_list<KvVec2d> points)
{
    KvN::KvTMem<KvN::KvTPoint<double>> mem(static_cast<unsigned>(points.size()));
    unsigned i = 0;
    for (const KvVec2d& point : points)
        mem[i++] = {point.x, point.y};
    return mem;
}

// The same numbers on every machine.
class Random
{
public:
    explicit Random(unsigned seed) : engine(seed) {}

    double In(double low, double high) { return low + (high - low) * (static_cast<double>(engine() >> 11) * 0x1p-53); }
    int Int(int low, int high) { return low + static_cast<int>(engine() % static_cast<unsigned>(high - low + 1)); }
    KvVec2d Point(double extent = 1000.0) { return {In(-extent, extent), In(-extent, extent)}; }
    std::uint64_t Bits() { return engine(); }

private:
    std::mt19937_64 engine;
};

// A star-shaped polygon around a random centre.
inline KvContour RandomPolygon(Random& random, int corners)
{
    KvContour polygon;
    polygon.ContourType() = KvContour::ePolygon;
    const KvVec2d centre = random.Point();
    for (int i = 0; i < corners; ++i)
    {
        const double angle = KvMath::TwoPi * (i + random.In(0.0, 0.8)) / corners;
        const double radius = random.In(5.0, 200.0);
        polygon.CurvePositions().AddTail({centre.x + radius * std::cos(angle), centre.y - radius * std::sin(angle)});
    }
    polygon.MakeCCW();
    return polygon;
}

inline KvContour RandomPolyline(Random& random, int vertices)
{
    KvContour line;
    line.ContourType() = KvContour::ePolyline;
    for (int i = 0; i < vertices; ++i)
        line.CurvePositions().AddTail(random.Point());
    return line;
}

// A valid figure of that type at a random place, of random size, turned by a random angle.
inline KvContour RandomFigure(Random& random, KvContour::eContourType type)
{
    KvContour figure;
    const KvVec2d at = random.Point();
    const double size = random.In(1.0, 300.0);
    switch (type)
    {
    case KvContour::eRectangle:
        figure.MakeRectFromDiagonal(at, at + KvVec2d(size, random.In(1.0, 300.0)));
        break;
    case KvContour::ePolygon:
        figure = RandomPolygon(random, random.Int(3, 40));
        break;
    case KvContour::ePolyline:
        figure = RandomPolyline(random, random.Int(2, 40));
        break;
    case KvContour::eSquare:
        figure.MakeSquareFromDiagonal(at, at + KvVec2d(size, -size));
        break;
    case KvContour::eEllipse:
        figure.MakeEllipse(at, 0.0, size, random.In(1.0, 300.0));
        break;
    case KvContour::eCircle:
        figure.MakeCircle(at, size);
        break;
    }
    figure.Transform(figure.GetCMS(), {0.0, 0.0}, random.In(-7.0, 7.0));
    return figure;
}

constexpr KvContour::eContourType allTypes[] = {KvContour::eRectangle, KvContour::ePolygon, KvContour::ePolyline,
                                                KvContour::eSquare,    KvContour::eEllipse, KvContour::eCircle};

constexpr auto foreignType = static_cast<KvContour::eContourType>(6);
constexpr auto negativeType = static_cast<KvContour::eContourType>(-1);
} // namespace figures
