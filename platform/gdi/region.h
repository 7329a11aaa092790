// A set of pixels as rectangles: sorted from the top and then from the left, disjoint, in bands of equal top and
// bottom; bands that continue one another are one.
#pragma once

#include "platform/gdi/gdi_types.h"

#include <span>
#include <vector>

namespace kv::gdi
{

class Area
{
public:
    enum class Operation
    {
        And,
        Or,
        Xor,
        Without
    };

    Area() = default;
    explicit Area(RECT rect); // corners in any order
    static Area polygon(std::span<const POINT> outline);

    bool empty() const { return list.empty(); }
    bool simple() const { return list.size() == 1; }
    const std::vector<RECT>& rects() const { return list; }
    RECT box() const; // all 0 if empty
    bool contains(POINT p) const;
    bool touches(const RECT& rect) const;
    void offset(int x, int y); // what leaves the range of coordinates is cut off

    static Area combine(const Area& first, const Area& second, Operation operation);

    friend bool operator==(const Area& a, const Area& b);

private:
    void addBand(int top, int bottom, const std::vector<int>& edges);

    std::vector<RECT> list;
    std::size_t lastBand = 0; // index of the last band's first rectangle, while bands are added
};

} // namespace kv::gdi
