// From contours to integer figures, and from those to pixels.
#include "C/syContourToMask_p.h"

#include <algorithm>
#include <bit>
#include <cstring>
#include <span>

namespace KvN::mask
{

namespace raster = kv::raster;

namespace
{

// More points than that a figure can't have.
constexpr std::uint32_t mostPoints = 65535;
// Dots of wider pens are computed while they are drawn.
constexpr int widestPreparedPen = 1 << 16;
// What stays in the cache of a processor; too few rows would cut too many figures.
constexpr int bandBytes = 4 << 20;
constexpr int fewestBandRowBits = 6;
// Figures of fewer points are drawn whole in every band that they touch.
constexpr std::uint32_t fewPoints = 32;

// Overwrites 8-bit pixels, long spans as well through the cache, where a band's rows are needed again.
struct Fill
{
    raster::ByteFill plain;

    void span(int y, int from, int to) const
    {
        constexpr int shortest = 17;
        if (to - from < shortest)
            plain.span(y, from, to);
        else
            std::memset(plain.rows.at(from, y), plain.value, static_cast<std::size_t>(to - from));
    }
    auto cursor(int x, int y, raster::Step major, raster::Step minor) const { return plain.cursor(x, y, major, minor); }
};

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

// In whole pixels, all four bounds inside.
KvTRectangle<int> Truncated(const KvTRectangle<double>& box)
{
    return {Truncated(box.left), Truncated(box.top), Truncated(box.right), Truncated(box.bottom)};
}

RECT Common(const KvTRectangle<int>& box, int width, int height)
{
    return {std::max(box.left, 0), std::max(box.top, 0), std::min(box.right, width - 1) + 1,
            std::min(box.bottom, height - 1) + 1};
}

} // namespace

void PointStore::Grow(std::size_t count)
{
    constexpr std::size_t usual = 1 << 14;
    const std::size_t size = std::max(count, usual);
    blocks.push_back(std::make_unique_for_overwrite<POINT[]>(size));
    next = blocks.back().get();
    end = next + size;
}

Figures::Figures(int width, int height)
    : maskWidth(width), maskHeight(height),
      bandBits(std::max(static_cast<int>(std::bit_width(static_cast<unsigned>(bandBytes / std::max(width, 1)))) - 1,
                        fewestBandRowBits))
{
    bands.resize(static_cast<std::size_t>((height + BandRows() - 1) >> bandBits));
}

void Figures::Add(const KvContour& contour)
{
    Figure figure{Kind::Polygon, contour.Exclude() != 0, -1, {}, nullptr, 0};
    KvTRectangle<double> box;
    switch (contour.ContourType())
    {
    case KvContour::eRectangle:
    case KvContour::ePolygon:
    case KvContour::eSquare:
        box = TakePoints(contour.CurvePositions(), figure);
        break;
    case KvContour::ePolyline:
        figure.kind = Kind::Polyline;
        box = TakePoints(contour.CurvePositions(), figure);
        if (contour.LineWidth() != KvContour::NoLineWidth)
        {
            const double half = contour.LineWidth() * 0.5;
            box = {box.left - half, box.top - half, box.right + half, box.bottom + half};
            figure.pen = PenOfWidth(contour.LineWidth());
        }
        break;
    case KvContour::eEllipse:
    {
        KvTList<KvVec2d> samples;
        contour.CreateSegments(0.0, KvMath::TwoPi, 100, samples);
        TakePoints(samples, figure);
        contour.MakeBoundingBox(box);
        break;
    }
    case KvContour::eCircle:
        // As of an ellipse: nothing is drawn of an invalid one, though it may have a box.
        if (!contour.IsValid())
            return;
        contour.MakeBoundingBox(box);
        AddCircle(Truncated(box), figure);
        break;
    default:
        return;
    }
    figure.clip = Common(Truncated(box), maskWidth, maskHeight);
    // The drawing calls refuse figures of a single point.
    if (figure.count < 2 || figure.clip.left >= figure.clip.right || figure.clip.top >= figure.clip.bottom)
    {
        points.GiveBack(figure.points);
        return;
    }
    if (figure.kind == Kind::Polygon)
        figure.points[figure.count++] = figure.points[0];
    Enter(figure);
}

// The box is that of `MakeBoundingBox`, taken on the same walk.
KvTRectangle<double> Figures::TakePoints(const KvTList<KvVec2d>& from, Figure& figure)
{
    figure.count = std::min(static_cast<std::uint32_t>(from.count), mostPoints);
    figure.points = points.Take(figure.count + 1); // the last one for the first again
    if (!from.head)
        return {};
    KvTRectangle<double> box(from.head->value.x, from.head->value.y, from.head->value.x, from.head->value.y);
    POINT* out = figure.points;
    POINT* const end = out + figure.count;
    for (const auto* node = from.head; node; node = node->next)
    {
        const KvVec2d& point = node->value;
        box.left = std::min(box.left, point.x);
        box.top = std::min(box.top, point.y);
        box.right = std::max(box.right, point.x);
        box.bottom = std::max(box.bottom, point.y);
        if (out != end)
            *out++ = Truncated(point);
    }
    return box;
}

// The box that the ellipse is drawn in, right and bottom outside, as two points.
void Figures::AddCircle(const KvTRectangle<int>& box, Figure& figure)
{
    const auto behind = [](int v) { return v < INT32_MAX ? v + 1 : v; };
    figure.kind = Kind::Circle;
    figure.count = 2;
    figure.points = points.Take(2);
    figure.points[0] = {box.left, box.top};
    figure.points[1] = {behind(box.right), behind(box.bottom)};
}

// Widths in whole pixels, rounded; a width below 2 is a line one pixel wide.
int Figures::PenOfWidth(double lineWidth)
{
    const int width = Truncated(lineWidth + 0.5);
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

void Figures::Enter(const Figure& figure)
{
    const int firstBand = figure.clip.top >> bandBits, lastBand = (figure.clip.bottom - 1) >> bandBits;
    figures.push_back(figure);
    if (firstBand < lastBand && figure.count > fewPoints)
        return EnterPieces(figure, firstBand, lastBand);
    for (int band = firstBand; band <= lastBand; ++band)
        bands[static_cast<std::size_t>(band)].push_back(
            {figure.points, figure.count, static_cast<std::uint32_t>(figures.size() - 1)});
}

// A figure of many points leaves in each band only those of its lines that touch it.
void Figures::EnterPieces(const Figure& figure, int firstBand, int lastBand)
{
    const auto index = static_cast<std::uint32_t>(figures.size() - 1);
    const std::int64_t margin = figure.pen < 0 ? 0 : pens[static_cast<std::size_t>(figure.pen)].width() + 2;
    const auto bandAt = [&](std::int64_t y)
    { return static_cast<int>(std::clamp<std::int64_t>(y, figure.clip.top, figure.clip.bottom - 1) >> bandBits); };
    for (const POINT* from = figure.points; from + 1 < figure.points + figure.count; ++from)
    {
        const auto [upper, lower] = std::minmax(from[0].y, from[1].y);
        if (upper - margin >= figure.clip.bottom || lower + margin < figure.clip.top)
            continue;
        const int last = std::min(bandAt(lower + margin), lastBand);
        for (int band = std::max(bandAt(upper - margin), firstBand); band <= last; ++band)
        {
            Pieces& pieces = bands[static_cast<std::size_t>(band)];
            Piece* open = pieces.empty() ? nullptr : &pieces.back();
            if (open && open->figure == index && open->first + open->count == from + 1)
                ++open->count;
            else
                pieces.push_back({from, 2, index});
        }
    }
}

bool Figures::Reserve()
{
    std::size_t most = 4; // of a slanted piece of a wide line
    bool circles = false;
    for (const Figure& figure : figures)
    {
        most = std::max<std::size_t>(most, figure.count);
        circles = circles || figure.kind == Kind::Circle;
    }
    // Pieces share the points at which they meet.
    joined.reserve(2 * most);
    filler.reserve(2 * most, maskHeight);
    if (circles)
        ellipse.reserve(maskHeight);
    return std::all_of(pens.begin(), pens.end(), [](const auto& pen) { return pen.width() <= widestPreparedPen; });
}

// Draws band by band. Rows are cleared when a figure first touches them, while they are about to be in the cache
// anyway.
class Figures::Painter
{
public:
    Painter(Figures& figures_, const Target& target_, unsigned char value_)
        : all(figures_), target(target_), value(value_)
    {
    }

    void PaintBand(int top, const Pieces& pieces)
    {
        const int bottom = std::min(top + all.BandRows(), target.height);
        for (auto piece = pieces.begin(); piece != pieces.end();)
        {
            if (pieces.end() - piece > ahead)
                Fetch(piece[ahead]);
            const Figure& figure = all.figures[piece->figure];
            const auto end =
                std::find_if(piece, pieces.end(), [&](const Piece& other) { return other.figure != piece->figure; });
            RECT clip = figure.clip;
            clip.top = std::max(clip.top, top);
            clip.bottom = std::min(clip.bottom, bottom);
            Paint(figure, clip, std::span(piece, end));
            piece = end;
        }
        ClearTo(bottom);
    }

private:
    using FigurePieces = std::span<const Piece>;

    static constexpr int ahead = 6;

    // Into the cache: the figures of a band lie scattered among all figures.
    void Fetch(const Piece& piece) const
    {
        constexpr int line = 64 / sizeof(POINT);
        __builtin_prefetch(&all.figures[piece.figure]);
        __builtin_prefetch(piece.first);
        __builtin_prefetch(piece.first + line);
    }

    // Rows of a filling come in order, so each can be cleared just before its first span.
    struct ClearingFill
    {
        Fill fill;
        Painter* painter;

        void span(int y, int from, int to) const
        {
            painter->ClearTo(y);
            if (y >= painter->firstUnclean)
                painter->ClearAround(y, from, to);
            fill.span(y, from, to);
        }
    };

    void Paint(const Figure& figure, const RECT& clip, FigurePieces pieces)
    {
        const Fill fill{{{target.pixels, target.width}, figure.exclude ? static_cast<unsigned char>(0) : value}};
        switch (figure.kind)
        {
        case Kind::Polygon:
            FillPolygon(fill, clip, pieces);
            ClearTo(clip.bottom);
            for (const Piece& piece : pieces)
                raster::polyline(fill, clip, PointsOf(piece), false);
            break;
        case Kind::Polyline:
            ClearTo(clip.bottom);
            for (const Piece& piece : pieces)
                PaintLine(fill, clip, figure, piece);
            break;
        case Kind::Circle:
            ClearTo(clip.bottom);
            PaintCircle(fill, clip, PointsOf(pieces.front()));
            break;
        }
    }

    void FillPolygon(const Fill& fill, const RECT& clip, FigurePieces pieces)
    {
        const std::span<const POINT> outline = OutlineOf(pieces);
        if (clip.bottom > firstUnclean)
            all.filler.fill(ClearingFill{fill, this}, clip, outline, raster::FillRule::Winding);
        else
            all.filler.fill(fill, clip, outline, raster::FillRule::Winding);
    }

    // What is left out between two pieces lies above the band or below it, and so does a straight way past it.
    std::span<const POINT> OutlineOf(FigurePieces pieces)
    {
        if (pieces.size() == 1)
            return PointsOf(pieces.front());
        all.joined.clear();
        for (const Piece& piece : pieces)
        {
            const std::span<const POINT> points = PointsOf(piece);
            all.joined.insert(all.joined.end(), points.begin(), points.end());
        }
        return all.joined;
    }

    void PaintLine(const Fill& fill, const RECT& clip, const Figure& figure, const Piece& piece)
    {
        if (figure.pen < 0)
            raster::polyline(fill, clip, PointsOf(piece), false);
        else
            all.pens[static_cast<std::size_t>(figure.pen)].polyline(fill, clip, PointsOf(piece), false, all.filler);
    }

    void PaintCircle(const Fill& fill, const RECT& clip, std::span<const POINT> box)
    {
        all.ellipse.reset({box[0].x, box[0].y, box[1].x, box[1].y}, clip);
        all.ellipse.fill(fill, clip);
    }

    std::span<const POINT> PointsOf(const Piece& piece) const { return {piece.first, piece.count}; }

    void ClearTo(int bottom)
    {
        if (bottom <= firstUnclean)
            return;
        std::memset(Row(firstUnclean), 0, static_cast<std::size_t>(bottom - firstUnclean) * Stride());
        firstUnclean = bottom;
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
    unsigned char value;
    int firstUnclean = 0; // the rows above are clean or drawn on
};

void Figures::Draw(const Target& target, unsigned char value)
{
    Painter painter(*this, target, value);
    for (std::size_t band = 0; band < bands.size(); ++band)
        painter.PaintBand(static_cast<int>(band) << bandBits, bands[band]);
}

} // namespace KvN::mask
