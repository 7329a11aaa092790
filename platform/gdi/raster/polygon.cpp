// Edges of a polygon, and how they come into play row by row.
#include "platform/gdi/raster/polygon.h"

namespace kv::raster
{

namespace
{

// Up to this many edges are put in order by insertion.
constexpr std::size_t few = 24;

// The quotient rounded down and the rest, for a positive divisor.
template <class Value>
std::pair<Value, Value> divide(Value a, Value b)
{
    Value quotient = a / b, rest = a % b;
    if (rest < 0)
    {
        rest += b;
        --quotient;
    }
    return {quotient, rest};
}

// `Difference` holds the difference of two coordinates, `Product` that of a difference and a height.
template <class Difference, class Product, class Int>
bool make(Edge<Int>& edge, POINT from, POINT to, const RECT& clip)
{
    edge.direction = from.y < to.y ? 1 : -1;
    if (from.y > to.y)
        std::swap(from, to);
    edge.top = std::max(from.y, clip.top);
    edge.bottom = std::min(to.y, clip.bottom);
    if (edge.top >= edge.bottom)
        return false;
    const Difference width = Difference(to.x) - from.x, height = Difference(to.y) - from.y;
    edge.height = Int(height);
    edge.x = from.x;
    edge.error = Int(height - 1);
    if (height == 1 || width == 0)
    {
        edge.step = 0;
        edge.errorStep = 0;
        return true;
    }
    const auto [step, rest] = divide<Difference>(width, height);
    edge.step = std::int32_t(step);
    edge.errorStep = Int(rest);
    if (edge.top != from.y)
    {
        const Product travelled = Product(width) * (Difference(edge.top) - from.y) + edge.error;
        const auto [moved, error] = divide<Product>(travelled, height);
        edge.x = std::int32_t(from.x + moved);
        edge.error = Int(error);
    }
    return true;
}

template <class Int>
bool leftOf(const Edge<Int>& a, const Edge<Int>& b)
{
    return a.x < b.x;
}

// Moves the last edge to its place among the sorted ones before it, and returns how far.
template <class Int>
std::size_t sink(std::vector<Edge<Int>>& edges, std::size_t last)
{
    if (last == 0 || edges[last - 1].x <= edges[last].x)
        return 0;
    const Edge<Int> edge = edges[last];
    std::size_t at = last;
    for (; at > 0 && edges[at - 1].x > edge.x; --at)
        edges[at] = edges[at - 1];
    edges[at] = edge;
    return last - at;
}

} // namespace

bool makeEdge(NearEdge& edge, POINT from, POINT to, const RECT& clip)
{
    return make<std::int32_t, std::int64_t>(edge, from, to, clip);
}

bool makeEdge(FarEdge& edge, POINT from, POINT to, const RECT& clip)
{
    return make<std::int64_t, __int128>(edge, from, to, clip);
}

OutlineShape shapeOf(std::span<const POINT> outline)
{
    OutlineShape shape;
    if (outline.empty())
        return shape;
    bool near = true;
    int first = 0, last = 0; // directions: 1 down, -1 up, 0 not known yet
    POINT from = outline.back();
    for (std::size_t i = 0; i < outline.size(); ++i)
    {
        const POINT to = outline[i];
        near &= isNear(to);
        if (to.y != from.y)
        {
            const int direction = to.y > from.y ? 1 : -1;
            shape.turns += last != 0 && direction != last;
            first = first == 0 ? direction : first;
            last = direction;
        }
        if (to.y < outline[shape.top].y)
            shape.top = i;
        from = to;
    }
    shape.turns += last != first;
    shape.near = near;
    return shape;
}

void PolygonFiller::add(std::span<const POINT> outline)
{
    points.insert(points.end(), outline.begin(), outline.end());
    outlines.push_back(points.size());
}

void PolygonFiller::reserve(std::size_t count, int targetRows)
{
    nearTable.reserve(count);
    farTable.reserve(count);
    rowStarts.reserve(std::size_t(std::max(targetRows, 0)) + 1);
}

template <class Int>
bool PolygonFiller::prepare(Table<Int>& table, std::span<const POINT> all, std::span<const std::size_t> ends,
                            const RECT& clip)
{
    table.edges.clear();
    if (clip.left >= clip.right || clip.top >= clip.bottom)
        return false;
    std::size_t begin = 0;
    for (const std::size_t end : ends)
    {
        if (begin == end)
            continue;
        POINT from = all[end - 1];
        for (std::size_t i = begin; i < end; ++i)
        {
            const POINT to = all[i];
            if (Edge<Int> edge; from.y != to.y && makeEdge(edge, from, to, clip))
                table.edges.push_back(edge);
            from = to;
        }
        begin = end;
    }
    if (table.edges.empty())
        return false;
    sortByTop(table, clip);
    return true;
}

template <class Int>
void PolygonFiller::sortByTop(Table<Int>& table, const RECT& clip)
{
    const auto& edges = table.edges;
    auto& order = table.order;
    order.resize(edges.size());
    if (edges.size() <= few)
    {
        for (std::uint32_t i = 0; i < edges.size(); ++i)
        {
            std::uint32_t at = i;
            for (; at > 0 && edges[order[at - 1]].top > edges[i].top; --at)
                order[at] = order[at - 1];
            order[at] = i;
        }
        return;
    }
    // Counted by rows: the tops lie inside the clip.
    int first = clip.bottom, last = clip.top;
    for (const Edge<Int>& edge : edges)
    {
        first = std::min(first, edge.top);
        last = std::max(last, edge.top);
    }
    rowStarts.assign(std::size_t(last - first) + 2, 0);
    for (const Edge<Int>& edge : edges)
        ++rowStarts[std::size_t(edge.top - first) + 1];
    for (std::size_t i = 1; i < rowStarts.size(); ++i)
        rowStarts[i] += rowStarts[i - 1];
    for (std::uint32_t i = 0; i < edges.size(); ++i)
        order[rowStarts[std::size_t(edges[i].top - first)]++] = i;
}

template <class Int>
std::size_t PolygonFiller::enter(Table<Int>& table, std::size_t next, int y)
{
    auto& active = table.active;
    if (active.empty())
    {
        const std::size_t first = next;
        for (; next < table.order.size() && table.edges[table.order[next]].top == y; ++next)
        {
            active.push_back(table.edges[table.order[next]]);
            if (next - first <= few)
                sink(active, active.size() - 1);
        }
        if (next - first > few)
            std::sort(active.begin(), active.end(), leftOf<Int>);
        return next;
    }
    auto& entering = table.entering;
    entering.clear();
    for (; next < table.order.size() && table.edges[table.order[next]].top == y; ++next)
    {
        entering.push_back(table.edges[table.order[next]]);
        if (entering.size() <= few)
            sink(entering, entering.size() - 1);
    }
    if (entering.size() > few)
        std::sort(entering.begin(), entering.end(), leftOf<Int>);
    // Merged from behind, so that nothing moves twice.
    std::size_t from = active.size(), rest = entering.size(), to = from + rest;
    active.resize(to);
    while (rest > 0)
        if (from > 0 && active[from - 1].x > entering[rest - 1].x)
            active[--to] = active[--from];
        else
            active[--to] = entering[--rest];
    return next;
}

template <class Int>
void PolygonFiller::resort(std::vector<Edge<Int>>& active)
{
    // Nearly sorted as a rule; where very many edges cross in one row, insertion would be quadratic.
    std::size_t budget = 16 * active.size();
    for (std::size_t i = 1; i < active.size(); ++i)
    {
        const std::size_t moved = sink(active, i);
        if (moved > budget)
        {
            std::sort(active.begin(), active.end(), leftOf<Int>);
            return;
        }
        budget -= moved;
    }
}

template bool PolygonFiller::prepare(Table<std::int32_t>&, std::span<const POINT>, std::span<const std::size_t>,
                                     const RECT&);
template bool PolygonFiller::prepare(Table<std::int64_t>&, std::span<const POINT>, std::span<const std::size_t>,
                                     const RECT&);
template std::size_t PolygonFiller::enter(Table<std::int32_t>&, std::size_t, int);
template std::size_t PolygonFiller::enter(Table<std::int64_t>&, std::size_t, int);
template void PolygonFiller::resort(std::vector<NearEdge>&);
template void PolygonFiller::resort(std::vector<FarEdge>&);

} // namespace kv::raster
