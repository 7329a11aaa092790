// Figures prepared for the raster, and the raster. Private to the mask code, its tests and benchmarks.
#pragma once

#include "C/syContour.h"
#include "platform/gdi/raster/ellipse.h"
#include "platform/gdi/raster/line.h"
#include "platform/gdi/raster/polygon.h"
#include "platform/gdi/raster/wide_line.h"

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

// A list of figures in whole pixels, ready to be drawn into a mask of one size. Everything that can fail happens when a
// figure is added; drawing allocates nothing.
class Figures
{
public:
    Figures(int width, int height) : maskWidth(width), maskHeight(height) {}

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
        int pen;           // index of a wide pen, -1: one pixel wide
        RECT clip;         // the figure's own box inside the mask; right and bottom are outside
        std::size_t first; // points; a circle's box is two of them
        std::size_t count;
    };

    class Painter;

    void AddPoints(const KvTList<KvVec2d>& from, Figure& figure);
    int PenOfWidth(double lineWidth);

    int maskWidth;
    int maskHeight;
    std::vector<Figure> figures;
    std::vector<POINT> points;
    std::vector<kv::raster::WidePen> pens;
    kv::raster::PolygonFiller filler;
    kv::raster::Ellipse ellipse;
};

} // namespace KvN::mask
