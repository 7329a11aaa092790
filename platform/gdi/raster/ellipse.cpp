// The integer walk along a quarter of an ellipse, and its closed form for those too large to walk.
#include "platform/gdi/raster/ellipse.h"

#include <cmath>

namespace kv::raster
{

namespace
{

// Up to this size the error terms fit into 64 bits, and walking is quick.
constexpr std::int64_t walkLimit = 1 << 16;

} // namespace

std::size_t Ellipse::mostRows(int targetRows)
{
    // Half of the largest ellipse that is walked; of larger ones the visible rows, mirror images included.
    return std::max(std::size_t(walkLimit / 2 + 1), 2 * std::size_t(std::max(targetRows, 0)) + 2);
}

void Ellipse::reset(const RECT& bounds, const RECT& visible)
{
    box = bounds;
    upperMiddle = lowerMiddle = skipped = 0;
    rows.clear();
    const std::int64_t width = std::int64_t(box.right) - box.left, height = std::int64_t(box.bottom) - box.top;
    if (width <= 0 || height <= 0)
    {
        box = {};
        return;
    }
    upperMiddle = int(box.top + (height - 1) / 2);
    lowerMiddle = int(box.top + height / 2);
    if (width > walkLimit || height > walkLimit)
        computeRows(visible);
    else
        walkRows(width, height);
}

void Ellipse::walkRows(std::int64_t width, std::int64_t height)
{
    const int half = int((height + 1) / 2);
    if (height == 1)
    {
        rows.assign(1, {0, int(width - 1)});
        return;
    }
    if (width <= 2)
    {
        rows.assign(std::size_t(half), {0, 0});
        return;
    }
    const std::int64_t a = width - 1, b = height - 1, odd = b & 1;
    const std::int64_t growX = 8 * b * b, growY = 8 * a * a;
    std::int64_t dx = 4 * (1 - a) * b * b, dy = 4 * (odd + 1) * a * a, error = dx + dy + odd * a * a;
    int inside = 0; // columns from the side of the box
    rows.reserve(std::size_t(half));
    rows.push_back({0, 0});
    while (2 * inside <= a)
    {
        rows.back().last = inside;
        const std::int64_t doubled = 2 * error;
        const bool down = doubled <= dy, inward = doubled >= dx;
        if (down)
        {
            dy += growY;
            error += dy;
        }
        if (inward)
        {
            ++inside;
            dx += growX;
            error += dx;
        }
        if (down && 2 * inside <= a)
        {
            if (int(rows.size()) == half)
                break;
            rows.push_back({inside, inside});
        }
    }
}

void Ellipse::computeRows(const RECT& visible)
{
    walked = false;
    const double width = double(box.right) - box.left, height = double(box.bottom) - box.top;
    const std::int64_t half = (std::int64_t(box.bottom) - box.top + 1) / 2;
    // Rows i that reach into the visible ones, above or below the middle.
    std::int64_t first = half, end = 0;
    const auto need = [&](std::int64_t from, std::int64_t to)
    {
        from = std::max<std::int64_t>(from, 0);
        to = std::min(to, half);
        if (from < to)
        {
            first = std::min(first, from);
            end = std::max(end, to);
        }
    };
    need(std::int64_t(visible.top) - lowerMiddle, std::int64_t(visible.bottom) - lowerMiddle);
    need(std::int64_t(upperMiddle) - visible.bottom + 1, std::int64_t(upperMiddle) - visible.top + 1);
    if (first >= end)
    {
        box = {};
        return;
    }
    // Columns from the side to where the curve crosses a level, that many rows below the centre.
    const auto inset = [&](double level)
    {
        const double t = std::min(1.0, std::max(0.0, level / (height / 2)));
        return width / 2 * (1 - std::sqrt((1 - t) * (1 + t)));
    };
    const double middle = lowerMiddle - (double(box.top) + double(box.bottom) - 1) / 2;
    skipped = int(first);
    for (std::int64_t i = first; i < end; ++i)
    {
        const double level = double(i) + middle;
        const int from = int(inset(level - 0.5)), to = int(std::min(inset(level + 0.5), (width - 1) / 2));
        rows.push_back({from, std::max(from, to)});
    }
}

std::vector<POINT> Ellipse::walk() const
{
    std::vector<POINT> right, left; // of the lower half, downward
    for (int i = firstRow(); i < endRow(); ++i)
        for (int k = row(i).first; k <= row(i).last; ++k)
        {
            right.push_back({box.right - 1 - k, lower(i)});
            left.push_back({box.left + k, lower(i)});
        }
    std::vector<POINT> ring;
    ring.reserve(4 * right.size());
    const auto add = [&](POINT p)
    {
        if (ring.empty() || ring.back().x != p.x || ring.back().y != p.y)
            ring.push_back(p);
    };
    const auto above = [&](POINT p) { return POINT{p.x, upperMiddle - (p.y - lowerMiddle)}; };
    for (const POINT& p : right)
        add(above(p));
    for (auto p = left.rbegin(); p != left.rend(); ++p)
        add(above(*p));
    for (const POINT& p : left)
        add(p);
    for (auto p = right.rbegin(); p != right.rend(); ++p)
        add(*p);
    if (ring.size() > 1 && ring.back().x == ring.front().x && ring.back().y == ring.front().y)
        ring.pop_back();
    return ring;
}

} // namespace kv::raster
