// Sets of pixels as bands of rectangles.
#include "platform/gdi/region.h"

#include "platform/gdi/raster/polygon.h"
#include "platform/gdi/raster/rect.h"

#include <algorithm>

namespace kv::gdi
{

namespace
{

// One band of a region seen as the sorted left and right edges of its rectangles.
class Bands
{
public:
    explicit Bands(const std::vector<RECT>& rects) : list(rects) {}

    // The next row below y at which the rectangles of a row change.
    std::int64_t nextChange(int y)
    {
        skipTo(y);
        if (at == list.size())
            return INT64_MAX;
        return list[at].top > y ? list[at].top : list[at].bottom;
    }

    void edges(int y, std::vector<int>& out)
    {
        skipTo(y);
        out.clear();
        for (std::size_t i = at; i < list.size() && list[i].top <= y && list[i].top == list[at].top; ++i)
        {
            out.push_back(list[i].left);
            out.push_back(list[i].right);
        }
    }

private:
    void skipTo(int y)
    {
        while (at < list.size() && list[at].bottom <= y)
            ++at;
    }

    const std::vector<RECT>& list;
    std::size_t at = 0;
};

bool keep(bool a, bool b, Area::Operation operation)
{
    switch (operation)
    {
    case Area::Operation::And:
        return a && b;
    case Area::Operation::Or:
        return a || b;
    case Area::Operation::Xor:
        return a != b;
    default:
        return a && !b;
    }
}

// Edges of the combined row.
void merge(const std::vector<int>& a, const std::vector<int>& b, Area::Operation operation, std::vector<int>& out)
{
    out.clear();
    std::size_t i = 0, j = 0;
    bool inside = false;
    while (i < a.size() || j < b.size())
    {
        const int x = i < a.size() && (j == b.size() || a[i] <= b[j]) ? a[i] : b[j];
        while (i < a.size() && a[i] == x)
            ++i;
        while (j < b.size() && b[j] == x)
            ++j;
        const bool now = keep(i % 2 == 1, j % 2 == 1, operation);
        if (now != inside)
            out.push_back(x);
        inside = now;
    }
}

} // namespace

Area::Area(RECT rect)
{
    if (rect.left > rect.right)
        std::swap(rect.left, rect.right);
    if (rect.top > rect.bottom)
        std::swap(rect.top, rect.bottom);
    if (rect.left < rect.right && rect.top < rect.bottom)
        list.push_back(rect);
}

Area Area::polygon(std::span<const POINT> outline)
{
    // Rows come in order, so they are collected band by band. The coordinates of a device end long before these.
    constexpr int reach = 1 << 16;
    struct Collector
    {
        Area* area;
        std::vector<int>* edges;
        int* row;

        void span(int y, int from, int to) const
        {
            if (y != *row)
                flush();
            *row = y;
            if (!edges->empty() && edges->back() == from)
                edges->back() = to;
            else
                edges->insert(edges->end(), {from, to});
        }
        void flush() const
        {
            if (!edges->empty())
                area->addBand(*row, *row + 1, *edges);
            edges->clear();
        }
    };
    Area area;
    std::vector<int> edges;
    int row = INT32_MIN;
    const Collector collector{&area, &edges, &row};
    raster::PolygonFiller filler;
    filler.fill(collector, {-reach, -reach, reach, reach}, outline, raster::FillRule::Alternate);
    collector.flush();
    return area;
}

RECT Area::box() const
{
    if (list.empty())
        return {0, 0, 0, 0};
    RECT all = list.front();
    for (const RECT& r : list)
    {
        all.left = std::min(all.left, r.left);
        all.right = std::max(all.right, r.right);
    }
    all.bottom = list.back().bottom;
    return all;
}

bool Area::contains(POINT p) const
{
    return std::any_of(list.begin(), list.end(),
                       [&](const RECT& r) { return p.x >= r.left && p.x < r.right && p.y >= r.top && p.y < r.bottom; });
}

bool Area::touches(const RECT& rect) const
{
    return std::any_of(list.begin(), list.end(),
                       [&](const RECT& r)
                       {
                           return std::max(r.left, rect.left) < std::min(r.right, rect.right) &&
                                  std::max(r.top, rect.top) < std::min(r.bottom, rect.bottom);
                       });
}

void Area::offset(int x, int y)
{
    for (RECT& r : list)
        r = {raster::saturated(std::int64_t(r.left) + x), raster::saturated(std::int64_t(r.top) + y),
             raster::saturated(std::int64_t(r.right) + x), raster::saturated(std::int64_t(r.bottom) + y)};
    std::erase_if(list, raster::isEmpty);
}

void Area::addBand(int top, int bottom, const std::vector<int>& edges)
{
    const std::size_t count = edges.size() / 2;
    const auto continues = [&]
    {
        if (list.empty() || list.back().bottom != top || list.size() - lastBand != count)
            return false;
        for (std::size_t i = 0; i < count; ++i)
            if (list[lastBand + i].left != edges[2 * i] || list[lastBand + i].right != edges[2 * i + 1])
                return false;
        return true;
    };
    if (continues())
    {
        for (std::size_t i = lastBand; i < list.size(); ++i)
            list[i].bottom = bottom;
        return;
    }
    if (count == 0)
        return;
    lastBand = list.size();
    for (std::size_t i = 0; i < count; ++i)
        list.push_back({edges[2 * i], top, edges[2 * i + 1], bottom});
}

Area Area::combine(const Area& first, const Area& second, Operation operation)
{
    Area result;
    if (first.empty() && second.empty())
        return result;
    int y = INT32_MAX;
    for (const Area* area : {&first, &second})
        if (!area->empty())
            y = std::min(y, area->list.front().top);
    Bands a(first.list), b(second.list);
    std::vector<int> edgesA, edgesB, edges;
    for (;;)
    {
        const std::int64_t next = std::min(a.nextChange(y), b.nextChange(y));
        if (next == INT64_MAX)
            break;
        a.edges(y, edgesA);
        b.edges(y, edgesB);
        merge(edgesA, edgesB, operation, edges);
        result.addBand(y, int(next), edges);
        y = int(next);
    }
    return result;
}

bool operator==(const Area& a, const Area& b)
{
    return std::equal(a.list.begin(), a.list.end(), b.list.begin(), b.list.end(),
                      [](const RECT& p, const RECT& q)
                      { return p.left == q.left && p.top == q.top && p.right == q.right && p.bottom == q.bottom; });
}

} // namespace kv::gdi
