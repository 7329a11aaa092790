// Contour lists to masks, beside OpenCV drawing the same integer figures: one thread, a mask that is already mapped.
// OpenCV gets its points ready made; here the time includes the contour list being passed by value and read. The last
// column is our time over OpenCV's. Run without arguments.
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
    KvTList<KvContour> contours;
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

std::vector<Work> Works()
{
    std::vector<Work> works(6);
    works[0] = {"1,000 mixed figures, 4096 x 4096", 0.7, 4096, 4096, {}};
    for (int i = 0; i < 1000; ++i)
        works[0].contours.AddTail(MixedFigure(i));
    works[1] = {"100,000 small polygons, 20000 x 20000", 0.5, 20000, 20000, {}};
    for (int i = 0; i < 100000; ++i)
        works[1].contours.AddTail(Star(Uniform(0, 20000), Uniform(0, 20000), Uniform(2.5, 15), 6 + i % 7));
    works[2] = {"20 curves of 60,000 points, 16384 x 16384", 0.6, 16384, 16384, {}};
    for (int i = 0; i < 20; ++i)
        works[2].contours.AddTail(Curve(i));
    for (const int wide : {0, 1})
    {
        works[3 + wide] = {wide ? "5,000 polylines of 500 points, width 9" : "5,000 polylines of 500 points, width 1",
                           wide ? 0.4 : 0.5,
                           8192,
                           8192,
                           {}};
        for (int i = 0; i < 5000; ++i)
            works[3 + wide].contours.AddTail(Walk(Uniform(0, 8192), Uniform(0, 8192), 20, 500, wide ? 9.0 : 1.0));
    }
    works[5] = {"one full-frame rectangle, 32767 x 2000", 1.0, 32767, 2000, {}};
    KvContour frame;
    frame.Default({32767, 2000});
    works[5].contours.AddTail(frame);
    return works;
}

cv::Point Whole(const KvVec2d& point)
{
    return {static_cast<int>(point.x), static_cast<int>(point.y)};
}

Shape ShapeOf(const KvContour& contour)
{
    Shape shape{Shape::Filled, {}, 1, contour.Exclude() ? 0 : 255};
    KvTList<KvVec2d> points = contour.CurvePositions();
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
        contour.CreateSegments(0.0, KvMath::TwoPi, 100, points);
    for (const auto* node = points.head; node; node = node->next)
        shape.points.push_back(Whole(node->value));
    return shape;
}

void Draw(const std::vector<Shape>& shapes, cv::Mat& mask)
{
    mask.setTo(0);
    for (const Shape& shape : shapes)
    {
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
    std::vector<Shape> shapes;
    for (const auto* node = work.contours.head; node; node = node->next)
        shapes.push_back(ShapeOf(node->value));
    KvBufferAOI8 aoi({work.width, work.height});
    cv::Mat mask(work.height, work.width, CV_8U, cv::Scalar(0));
    double ours = 1e30, theirs = 1e30;
    // In turn, so that both meet the same machine; the best of each.
    for (int i = 0; i < 9; ++i)
    {
        ours = std::min(ours, Milliseconds([&] { KvContourToMask().Execute(work.contours, &aoi); }));
        theirs = std::min(theirs, Milliseconds([&] { Draw(shapes, mask); }));
    }
    size_t covered = 0;
    for (short y = 0; y < work.height; ++y)
    {
        for (short x = 0; x < work.width; ++x)
            covered += (aoi.GetRowPointer(y)[x] != 0) != (mask.at<unsigned char>(y, x) != 0);
    }
    std::printf("%-44s %9.2f ms %9.2f ms   ratio %.2f   goal %.1f   (%.2f %% of pixels differ)\n", work.name, ours,
                theirs, ours / theirs, work.goal, 100.0 * double(covered) / (double(work.width) * work.height));
}
} // namespace

int main()
{
    cv::setNumThreads(1);
    std::printf("%-44s %12s %12s\n", "", "Kv", "OpenCV");
    for (const Work& work : Works())
        Measure(work);
}
