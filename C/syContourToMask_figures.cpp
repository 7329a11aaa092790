// From contours to integer figures, and from those to pixels.
#include "C/syContourToMask_p.h"

#include <algorithm>
#include <cstring>
#include <limits>
#include <span>

namespace KvN::mask
{

namespace raster = kv::raster;

namespace
{

// More points than that a figure can't have.
constexpr std::size_t mostPoints = 65535;
// Dots of wider pens are computed while they are drawn.
constexpr int widestPreparedPen = 1 << 16;

// Truncated toward zero; what doesn't fit, and a NaN, becomes the nearest bound or the lowest int.
int Truncated(double value)
{
    if (!(value > INT32_MIN))
        return INT32_MIN;
    return value < INT32_MAX ? static_cast<int>(value) : INT32_MAX;
}

POINT Truncated(const KvVec2d& point)
{
    return {Truncated(point.x), Truncated(point.y)};
}

// The contour's box in whole pixels, all four bounds inside.
KvTRectangle<int> BoxOf(const KvContour& contour)
{
    KvTRectangle<double> box(0.0, 0.0, KvTRectangle<int>::NoValue, KvTRectangle<int>::NoValue);
    contour.MakeBoundingBox(box);
    return {Truncated(box.left), Truncated(box.top), Truncated(box.right), Truncated(box.bottom)};
}

RECT Common(const KvTRectangle<int>& box, int width, int height)
{
    return {std::max(box.left, 0), std::max(box.top, 0), std::min(box.right, width - 1) + 1,
            std::min(box.bottom, height - 1) + 1};
}

} // namespace

void Figures::Add(const KvContour& contour)
{
    const KvTRectangle<int> box = BoxOf(contour);
    Figure figure{Kind::Polygon, contour.Exclude() != 0, -1, Common(box, maskWidth, maskHeight), points.size(), 0};
    if (figure.clip.left >= figure.clip.right || figure.clip.top >= figure.clip.bottom)
        return;
    switch (contour.ContourType())
    {
    case KvContour::eRectangle:
    case KvContour::ePolygon:
    case KvContour::eSquare:
        AddPoints(contour.CurvePositions(), figure);
        break;
    case KvContour::ePolyline:
        figure.kind = Kind::Polyline;
        figure.pen = PenOfWidth(contour.LineWidth());
        AddPoints(contour.CurvePositions(), figure);
        break;
    case KvContour::eEllipse:
    {
        KvTList<KvVec2d> samples;
        contour.CreateSegments(0.0, KvMath::TwoPi, 100, samples);
        AddPoints(samples, figure);
        break;
    }
    case KvContour::eCircle:
    {
        const auto behind = [](int v) { return v < INT32_MAX ? v + 1 : v; };
        figure.kind = Kind::Circle;
        points.insert(points.end(), {{box.left, box.top}, {behind(box.right), behind(box.bottom)}});
        figure.count = 2;
        break;
    }
    default:
        return;
    }
    // The drawing calls refuse figures of a single point.
    if (figure.count >= 2)
        figures.push_back(figure);
}

void Figures::AddPoints(const KvTList<KvVec2d>& from, Figure& figure)
{
    for (const auto* node = from.head; node && figure.count < mostPoints; node = node->next, ++figure.count)
        points.push_back(Truncated(node->value));
}

// Widths in whole pixels, rounded; a width below 2 is a line one pixel wide.
int Figures::PenOfWidth(double lineWidth)
{
    const int width = lineWidth == KvContour::NoLineWidth ? 1 : Truncated(lineWidth + 0.5);
    // The sign of a pen's width plays no part.
    const int size = width == INT32_MIN ? INT32_MAX : std::abs(width);
    if (size < 2)
        return -1;
    const auto same = std::find_if(pens.begin(), pens.end(), [=](const auto& pen) { return pen.width() == size; });
    if (same != pens.end())
        return static_cast<int>(same - pens.begin());
    pens.emplace_back(size);
    return static_cast<int>(pens.size()) - 1;
}

bool Figures::Reserve()
{
    std::size_t most = 4; // of a slanted piece of a wide line
    bool circles = false;
    for (const Figure& figure : figures)
    {
        most = std::max(most, figure.count);
        circles = circles || figure.kind == Kind::Circle;
    }
    filler.reserve(most, maskHeight);
    if (circles)
        ellipse.reserve(maskHeight);
    return std::all_of(pens.begin(), pens.end(), [](const auto& pen) { return pen.width() <= widestPreparedPen; });
}

// A mask whose rows are cleared when a figure first touches them, while they are about to be in the cache anyway.
class Figures::Painter
{
public:
    Painter(Figures& figures_, const Target& target_) : all(figures_), target(target_), firstUnclean(0) {}

    void Paint(const Figure& figure, unsigned char value)
    {
        const raster::ByteFill fill{{target.pixels, target.width}, value};
        const std::span<const POINT> outline(all.points.data() + figure.first, figure.count);
        switch (figure.kind)
        {
        case Kind::Polygon:
            PaintPolygon(fill, figure.clip, outline);
            break;
        case Kind::Polyline:
            ClearTo(figure.clip.bottom);
            if (figure.pen < 0)
                raster::polyline(fill, figure.clip, outline, false);
            else
                all.pens[static_cast<std::size_t>(figure.pen)].polyline(fill, figure.clip, outline, false, all.filler);
            break;
        case Kind::Circle:
            ClearTo(figure.clip.bottom);
            all.ellipse.reset({outline[0].x, outline[0].y, outline[1].x, outline[1].y},
                              {0, 0, target.width, target.height});
            all.ellipse.fill(fill, figure.clip);
            break;
        }
    }

    void ClearTo(int bottom)
    {
        if (bottom <= firstUnclean)
            return;
        std::memset(Row(firstUnclean), 0, static_cast<std::size_t>(bottom - firstUnclean) * Stride());
        firstUnclean = bottom;
    }

private:
    // Rows of a filling come in order, so each can be cleared just before its first span.
    struct ClearingFill
    {
        raster::ByteFill fill;
        Painter* painter;

        void span(int y, int from, int to) const
        {
            painter->ClearTo(y);
            if (y >= painter->firstUnclean)
                painter->ClearAround(y, from, to);
            fill.span(y, from, to);
        }
    };

    void PaintPolygon(const raster::ByteFill& fill, const RECT& clip, std::span<const POINT> outline)
    {
        if (clip.bottom > firstUnclean)
            all.filler.fill(ClearingFill{fill, this}, clip, outline, raster::FillRule::Winding);
        else
            all.filler.fill(fill, clip, outline, raster::FillRule::Winding);
        ClearTo(clip.bottom);
        raster::polyline(fill, clip, outline, true);
    }

    // Row y, the first unclean one, but for the pixels that are about to be filled.
    void ClearAround(int y, int from, int to)
    {
        std::memset(Row(y), 0, static_cast<std::size_t>(from));
        std::memset(Row(y) + to, 0, Stride() - static_cast<std::size_t>(to));
        firstUnclean = y + 1;
    }

    unsigned char* Row(int y) const { return target.pixels + static_cast<std::size_t>(y) * Stride(); }
    std::size_t Stride() const { return static_cast<std::size_t>(target.width); }

    Figures& all;
    const Target& target;
    int firstUnclean; // the rows above are clean or drawn on
};

void Figures::Draw(const Target& target, unsigned char value)
{
    Painter painter(*this, target);
    for (const Figure& figure : figures)
        painter.Paint(figure, figure.exclude ? 0 : value);
    painter.ClearTo(target.height);
}

} // namespace KvN::mask
