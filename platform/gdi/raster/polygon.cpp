// Edges of a polygon, and how they come into play row by row.
#include "platform/gdi/raster/polygon.h"

namespace kv::raster
{

namespace
{

// Within these bounds widths, heights and errors fit into 32 bits.
constexpr std::int32_t nearLimit = 1 << 29;

bool isNear(POINT p)
{
    return p.x > -nearLimit && p.x < nearLimit && p.y > -nearLimit && p.y < nearLimit;
}

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

template <class Int>
bool before(const Edge<Int>* a, const Edge<Int>* b)
{
    return a->x < b->x;
}

} // namespace

void PolygonFiller::begin()
{
    segments.clear();
    nearby = true;
}

void PolygonFiller::add(std::span<const POINT> outline)
{
    if (outline.empty())
        return;
    POINT from = outline.back();
    for (const POINT to : outline)
    {
        if (from.y != to.y)
        {
            nearby &= isNear(from) && isNear(to);
            if (from.y < to.y)
                segments.push_back({from, to, 1});
            else
                segments.push_back({to, from, -1});
        }
        from = to;
    }
}

void PolygonFiller::reserve(std::size_t points, int targetRows)
{
    segments.reserve(points);
    nearTable.reserve(points);
    farTable.reserve(points);
    firstOfRow.reserve(std::size_t(std::max(targetRows, 0)));
}

template <class Int>
bool PolygonFiller::prepare(Table<Int>& table, const RECT& clip)
{
    // A quotient of 64-bit products may need more; only edges that begin above the clip have any.
    using Product = std::conditional_t<sizeof(Int) == 4, std::int64_t, __int128>;

    table.edges.clear();
    firstRow = INT32_MAX;
    lastRow = INT32_MIN;
    if (clip.left >= clip.right || clip.top >= clip.bottom)
        return false;
    for (const Segment& s : segments)
    {
        const int top = std::max(s.upper.y, clip.top), bottom = std::min(s.lower.y, clip.bottom);
        if (top >= bottom)
            continue;
        Edge<Int> edge;
        const std::int64_t width = std::int64_t(s.lower.x) - s.upper.x;
        edge.height = Int(std::int64_t(s.lower.y) - s.upper.y);
        edge.top = top;
        edge.bottom = bottom;
        edge.direction = s.direction;
        if (edge.height == 1)
        {
            edge.x = s.upper.x;
            edge.step = 0;
            edge.error = edge.errorStep = 0;
        }
        else
        {
            const auto [step, rest] = divide<std::int64_t>(width, edge.height);
            edge.step = std::int32_t(step);
            edge.errorStep = Int(rest);
            edge.x = s.upper.x;
            edge.error = edge.height - 1;
            if (top != s.upper.y)
            {
                const Product travelled = Product(width) * (std::int64_t(top) - s.upper.y) + edge.error;
                const auto [moved, error] = divide<Product>(travelled, edge.height);
                edge.x = std::int32_t(s.upper.x + moved);
                edge.error = Int(error);
            }
        }
        firstRow = std::min(firstRow, top);
        lastRow = std::max(lastRow, bottom);
        table.edges.push_back(edge);
    }
    if (table.edges.empty())
        return false;

    firstOfRow.assign(std::size_t(lastRow) - std::size_t(firstRow), ~0u);
    for (std::uint32_t i = 0; i < table.edges.size(); ++i)
    {
        std::uint32_t& first = firstOfRow[std::size_t(table.edges[i].top - firstRow)];
        table.edges[i].next = first;
        first = i;
    }
    return true;
}

template <class Int>
void PolygonFiller::enter(Table<Int>& table, int y)
{
    auto& active = table.active;
    auto& entering = table.entering;
    entering.clear();
    for (std::uint32_t i = firstOfRow[std::size_t(y - firstRow)]; i != ~0u; i = table.edges[i].next)
        entering.push_back(&table.edges[i]);
    if (entering.size() > 16)
    {
        std::sort(entering.begin(), entering.end(), before<Int>);
        const auto middle = std::ptrdiff_t(active.size());
        active.insert(active.end(), entering.begin(), entering.end());
        std::inplace_merge(active.begin(), active.begin() + middle, active.end(), before<Int>);
        return;
    }
    for (Edge<Int>* const edge : entering)
    {
        active.push_back(edge);
        std::size_t at = active.size() - 1;
        for (; at > 0 && active[at - 1]->x > edge->x; --at)
            active[at] = active[at - 1];
        active[at] = edge;
    }
}

template <class Int>
void PolygonFiller::resort(Table<Int>& table)
{
    // Nearly sorted as a rule; where very many edges cross in one row, insertion would be quadratic.
    auto& active = table.active;
    std::size_t budget = 16 * active.size();
    for (std::size_t i = 1; i < active.size(); ++i)
    {
        Edge<Int>* const edge = active[i];
        std::size_t at = i;
        for (; at > 0 && active[at - 1]->x > edge->x; --at)
            active[at] = active[at - 1];
        active[at] = edge;
        if (i - at > budget)
        {
            std::sort(active.begin(), active.end(), before<Int>);
            return;
        }
        budget -= i - at;
    }
}

template bool PolygonFiller::prepare(Table<std::int32_t>&, const RECT&);
template bool PolygonFiller::prepare(Table<std::int64_t>&, const RECT&);
template void PolygonFiller::enter(Table<std::int32_t>&, int);
template void PolygonFiller::enter(Table<std::int64_t>&, int);
template void PolygonFiller::resort(Table<std::int32_t>&);
template void PolygonFiller::resort(Table<std::int64_t>&);

} // namespace kv::raster
