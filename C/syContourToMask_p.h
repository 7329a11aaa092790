// Figures prepared for the raster, and the raster. Private to the mask code and its benchmarks.
#pragma once

#include "C/syContour.h"
#include "platform/gdi/raster/ellipse.h"
#include "platform/gdi/raster/line.h"
#include "platform/gdi/raster/polygon.h"
#include "platform/gdi/raster/wide_line.h"

#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

namespace KvN::mask
{

// 8-bit pixels, row after row.
struct Target
{
    unsigned char* pixels;
    int width;
    int height;
};

// Points that stay where they are while more are added.
class PointStore
{
public:
    // Room for so many neighbouring points; valid as long as the store.
    POINT* Take(std::size_t count)
    {
        if (count > static_cast<std::size_t>(end - next))
            Grow(count);
        return std::exchange(next, next + count);
    }
    // Gives up the room from here on, which was taken last.
    void GiveBack(POINT* from) { next = from; }

private:
    void Grow(std::size_t count);

    std::vector<std::unique_ptr<POINT[]>> blocks;
    POINT* next = nullptr;
    POINT* end = nullptr;
};

// A list of figures in whole pixels, ready to be drawn into a mask of one size. Everything that can fail happens before
// the drawing, which allocates nothing.
// A large mask is drawn in bands of rows, each with all its figures in list order, so that its pixels stay in the cache
// while they are cleared, filled and outlined.
class Figures
{
public:
    Figures(int width, int height);

    // Makes room for so many figures.
    void Expect(int count) { figures.reserve(static_cast<std::size_t>(count)); }
    void Add(const KvContour& contour);
    // Makes room for the drawing. To be called once after the last figure. False if there are figures, lines wider than
    // any mask, that need memory while they are drawn.
    bool Reserve();
    // Overwrites all of the target, whatever it holds: figures get `value`, excluding ones 0, and so does the rest.
    void Draw(const Target& target, unsigned char value);

private:
    enum class Kind
    {
        Polygon,
        Polyline,
        Circle
    };

    struct Figure
    {
        Kind kind;
        bool exclude;
        int pen;       // index of a wide pen, -1: one pixel wide
        RECT clip;     // the figure's own box inside the mask; right and bottom are outside
        POINT* points; // a polygon's first one stands at its end, too, and a circle's box is two of them
        std::uint32_t count;
    };

    // Neighbouring points of a figure, with the lines between them that may touch a band.
    struct Piece
    {
        const POINT* first;
        std::uint32_t count;
        std::uint32_t figure;
    };
    using Pieces = std::vector<Piece>;

    class Painter;

    int BandRows() const { return 1 << bandBits; }

    KvTRectangle<double> TakePoints(const KvTList<KvVec2d>& from, Figure& figure);
    void AddCircle(const KvTRectangle<int>& box, Figure& figure);
    int PenOfWidth(double lineWidth);
    void Enter(const Figure& figure);
    void EnterPieces(const Figure& figure, int firstBand, int lastBand);

    int maskWidth;
    int maskHeight;
    int bandBits; // rows of a band as a power of two
    std::vector<Figure> figures;
    PointStore points;
    std::vector<Pieces> bands;
    std::vector<POINT> joined; // the pieces of the polygon that is being drawn
    std::vector<kv::raster::WidePen> pens;
    kv::raster::PolygonFiller filler;
    kv::raster::Ellipse ellipse;
};

} // namespace KvN::mask
