// Contour lists to masks, beside OpenCV drawing the same integer figures: one thread, a mask that is already mapped.
// Both start from the contour list and end with the mask. "by value" is what `Execute` takes, which copies the list
// first. Run without arguments.
#include "C/syContourToMask.h"

#include <opencv2/imgproc.hpp>

#include <chrono>
#include <cstdio>
#include <functional>
#include <random>
#include <vector>

namespace
{
using namespace KvN;

struct Work
{
    const char* name;
    double goal; // of our time over OpenCV's
    short width;
    short height;
    KvTList<KvContour> contours{};
};

// What OpenCV draws for one contour.
struct Shape
{
    enum Kind
    {
        Filled,
        Line,
        Circle
    } kind;
    std::vector<cv::Point> points;
    int width;
    int value;
};

std::mt19937 random_(1);

double Uniform(double low, double high)
{
    return std::uniform_real_distribution<>(low, high)(random_);
}

KvContour Star(double x, double y, double radius, int points)
{
    KvContour contour;
    contour.ContourType() = KvContour::ePolygon;
    for (int i = 0; i < points; ++i)
    {
        const double angle = -KvMath::TwoPi * i / points, r = radius * Uniform(0.6, 1.0);
        contour.CurvePositions().AddTail({x + r * std::cos(angle), y + r * std::sin(angle)});
    }
    return contour;
}

KvContour Round(KvContour::eContourType type, double x, double y, double a, double b)
{
    KvContour contour;
    contour.ContourType() = type;
    contour.CurvePositions().AddTail({x, y});
    contour.CurvePositions().AddTail({x + a, y});
    if (type == KvContour::eEllipse)
        contour.CurvePositions().AddTail({x, y + b});
    return contour;
}

KvContour Walk(double x, double y, double step, int points, double width)
{
    KvContour contour;
    contour.ContourType() = KvContour::ePolyline;
    contour.LineWidth() = width;
    for (int i = 0; i < points; ++i)
    {
        contour.CurvePositions().AddTail({x, y});
        x += Uniform(-step, step);
        y += Uniform(-step, step);
    }
    return contour;
}

KvContour MixedFigure(int i)
{
    const double size = Uniform(20, 400), x = Uniform(0, 4096), y = Uniform(0, 4096), other = Uniform(20, 400);
    KvContour contour;
    switch (i % 6)
    {
    case 0:
        contour.MakeRectFromDiagonal(x, y, x + size, y + other);
        break;
    case 1:
        contour = Star(x, y, size / 2, 5 + i % 20);
        break;
    case 2:
        contour = Walk(x, y, size / 8, 10, i % 12 == 2 ? 1.0 : 5.0);
        break;
    case 3:
        contour.MakeSquareFromDiagonal(x, y, x + size, y + size);
        break;
    case 4:
        contour = Round(KvContour::eEllipse, x, y, size / 2, other / 2);
        break;
    default:
        contour = Round(KvContour::eCircle, x, y, size / 2, 0);
        break;
    }
    contour.Exclude() = i % 5 == 4;
    return contour;
}

KvContour Curve(int i)
{
    KvContour contour;
    contour.ContourType() = KvContour::ePolygon;
    for (int k = 0; k < 60000; ++k)
    {
        const double angle = -KvMath::TwoPi * k / 60000;
        const double r = 3000 + 150.0 * i + 700 * std::sin(7 * angle) + 60 * std::sin(400 * angle + i);
        contour.CurvePositions().AddTail({8192 + r * std::cos(angle), 8192 + r * std::sin(angle)});
    }
    return contour;
}

constexpr int workCount = 6;

// Made one at a time: the lists are large.
Work WorkOf(int number)
{
    Work work;
    switch (number)
    {
    case 0:
        work = {"1,000 mixed figures, 4096 x 4096", 0.7, 4096, 4096, {}};
        for (int i = 0; i < 1000; ++i)
            work.contours.AddTail(MixedFigure(i));
        break;
    case 1:
        work = {"100,000 small polygons, 20000 x 20000", 0.5, 20000, 20000, {}};
        for (int i = 0; i < 100000; ++i)
            work.contours.AddTail(Star(Uniform(0, 20000), Uniform(0, 20000), Uniform(2.5, 15), 6 + i % 7));
        break;
    case 2:
        work = {"20 curves of 60,000 points, 16384 x 16384", 0.6, 16384, 16384, {}};
        for (int i = 0; i < 20; ++i)
            work.contours.AddTail(Curve(i));
        break;
    case 3:
    case 4:
        work = {"5,000 polylines of 500 points, width 1", 0.5, 8192, 8192, {}};
        if (number == 4)
            work = {"5,000 polylines of 500 points, width 9", 0.4, 8192, 8192, {}};
        for (int i = 0; i < 5000; ++i)
            work.contours.AddTail(Walk(Uniform(0, 8192), Uniform(0, 8192), 20, 500, number == 4 ? 9.0 : 1.0));
        break;
    default:
        work = {"one full-frame rectangle, 32767 x 2000", 1.0, 32767, 2000, {}};
        work.contours.AddTail(KvContour());
        work.contours.tail->value.Default({32767, 2000});
        break;
    }
    return work;
}

cv::Point Whole(const KvVec2d& point)
{
    return {static_cast<int>(point.x), static_cast<int>(point.y)};
}

void SetShape(const KvContour& contour, Shape& shape)
{
    shape.kind = Shape::Filled;
    shape.points.clear();
    shape.width = 1;
    shape.value = contour.Exclude() ? 0 : 255;
    KvTList<KvVec2d> samples;
    const KvTList<KvVec2d>* points = &contour.CurvePositions();
    if (contour.ContourType() == KvContour::eCircle)
    {
        shape.kind = Shape::Circle;
        shape.width = static_cast<int>(contour.Radius());
    }
    else if (contour.ContourType() == KvContour::ePolyline)
    {
        shape.kind = Shape::Line;
        shape.width = contour.LineWidth() == KvContour::NoLineWidth ? 1 : static_cast<int>(contour.LineWidth() + 0.5);
    }
    else if (contour.ContourType() == KvContour::eEllipse)
    {
        contour.CreateSegments(0.0, KvMath::TwoPi, 100, samples);
        points = &samples;
    }
    for (const auto* node = points->head; node; node = node->next)
        shape.points.push_back(Whole(node->value));
}

void Draw(const KvTList<KvContour>& contours, cv::Mat& mask)
{
    Shape shape;
    mask.setTo(0);
    for (const auto* node = contours.head; node; node = node->next)
    {
        SetShape(node->value, shape);
        const cv::Point* points = shape.points.data();
        const int count = static_cast<int>(shape.points.size());
        if (shape.kind == Shape::Circle)
            cv::circle(mask, points[0], shape.width, shape.value, cv::FILLED, cv::LINE_8);
        else if (shape.kind == Shape::Line)
            cv::polylines(mask, &points, &count, 1, false, shape.value, shape.width, cv::LINE_8);
        else
            cv::fillPoly(mask, &points, &count, 1, shape.value, cv::LINE_8);
    }
}

double Milliseconds(const std::function<void()>& work)
{
    const auto start = std::chrono::steady_clock::now();
    work();
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count();
}

void Measure(const Work& work)
{
    KvBufferAOI8 aoi({work.width, work.height});
    cv::Mat mask(work.height, work.width, CV_8U, cv::Scalar(0));
    double ours = 1e30, byValue = 1e30, theirs = 1e30;
    // In turn, so that both meet the same machine; the best of each.
    for (int i = 0; i < 9; ++i)
    {
        ours = std::min(ours, Milliseconds([&] { KvContourToMask().Draw(work.contours, &aoi); }));
        byValue = std::min(byValue, Milliseconds([&] { KvContourToMask().Execute(work.contours, &aoi); }));
        theirs = std::min(theirs, Milliseconds([&] { Draw(work.contours, mask); }));
    }
    size_t differing = 0;
    for (short y = 0; y < work.height; ++y)
    {
        for (short x = 0; x < work.width; ++x)
            differing += (aoi.GetRowPointer(y)[x] != 0) != (mask.at<unsigned char>(y, x) != 0);
    }
    std::printf("%-42s %7.1f ms %7.1f ms %7.1f ms  %5.2f %5.2f  (%.2f %% of pixels differ)\n", work.name, ours, byValue,
                theirs, ours / theirs, work.goal, 100.0 * double(differing) / (double(work.width) * work.height));
}
} // namespace

int main()
{
    cv::setNumThreads(1);
    std::printf("%-42s %10s %10s %10s  %5s %5s\n", "", "Kv", "by value", "OpenCV", "ratio", "goal");
    for (int number = 0; number < workCount; ++number)
        Measure(WorkOf(number));
}
