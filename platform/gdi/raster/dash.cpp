// Dashes along a line.
#include "platform/gdi/raster/dash.h"

#include <algorithm>
#include <cmath>
#include <numeric>

namespace kv::raster
{

DashPosition::DashPosition(std::span<const int> row) : lengths(row), left(row.front())
{
    period = row.size() * (row.size() % 2 == 0 ? 1 : 2);
    total = std::accumulate(row.begin(), row.end(), std::int64_t(0)) * std::int64_t(period / row.size());
}

void DashPosition::next()
{
    index = (index + 1) % period;
    left = lengths[index % lengths.size()];
}

void DashPosition::advance(std::int64_t steps)
{
    steps %= total;
    while (steps >= left)
    {
        steps -= left;
        next();
    }
    left -= steps;
}

void dashPieces(std::vector<DashPiece>& pieces, const RECT& clip, int width, const Segment& line,
                DashPosition& position)
{
    const POINT from = line.from, to = line.to;
    const double dx = double(to.x) - from.x, dy = double(to.y) - from.y;
    const double length = std::sqrt(dx * dx + dy * dy);
    const std::int64_t whole = std::int64_t(length);
    const auto at = [&](std::int64_t steps)
    {
        if (double(steps) >= length)
            return to;
        return POINT{LONG(from.x + std::int64_t(dx * double(steps) / length)),
                     LONG(from.y + std::int64_t(dy * double(steps) / length))};
    };

    // Positions between which the line is near the clip.
    double first = 0, last = length;
    const double margin = double(width) + 2;
    const auto limit = [&](double start, double delta, double low, double high)
    {
        if (delta == 0)
        {
            if (start < low || start > high)
                last = -1;
            return;
        }
        double a = (low - start) / delta * length, b = (high - start) / delta * length;
        if (a > b)
            std::swap(a, b);
        first = std::max(first, a);
        last = std::min(last, b);
    };
    limit(from.x, dx, clip.left - margin, clip.right + margin);
    limit(from.y, dy, clip.top - margin, clip.bottom + margin);

    DashPosition walk = position;
    position.advance(whole);
    if (first > last || length == 0)
        return;
    std::int64_t steps = std::int64_t(first);
    if (steps > 0)
        walk.advance(steps);
    // A dash that is under way there is drawn from its beginning, so that its slant stays the same.
    std::int64_t reached = steps;
    steps = std::max<std::int64_t>(steps - walk.elapsed(), 0);
    for (;;)
    {
        const std::int64_t end = reached + walk.rest();

        if (walk.isDash())
            pieces.push_back(DashPiece{{at(steps), at(end)}, line});
        steps = reached = end;
        if (double(steps) > last)
            return;
        walk.next();
    }
}

} // namespace kv::raster
