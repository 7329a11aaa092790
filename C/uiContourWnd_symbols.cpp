// Symbols along a line: direction arrows and marker ticks.
#include "C/uiContourWnd_symbols_p.h"

#include <cmath>
#include <limits>
#include <vector>

using namespace KvN;

namespace kv::editor
{

int Truncated(double value)
{
    if (std::isnan(value))
        return 0;
    if (value >= std::numeric_limits<int>::max())
        return std::numeric_limits<int>::max();
    if (value <= std::numeric_limits<int>::min())
        return std::numeric_limits<int>::min();
    return static_cast<int>(value);
}

POINT PointOf(const KvVec2d& point)
{
    return {static_cast<short>(Truncated(point.x)), static_cast<short>(Truncated(point.y))};
}

double AngleOf(const KvVec2d& from, const KvVec2d& to)
{
    return std::atan2(to.y - from.y, to.x - from.x);
}

void DrawSymbol(CDC& dc, std::span<const KvVec2d> symbol, double angle, const KvVec2d& origin)
{
    if (symbol.empty())
        return;
    const double c = std::cos(angle);
    const double s = std::sin(angle);
    std::vector<KvVec2d> placed;
    for (const KvVec2d& p : symbol)
        placed.emplace_back(p.x * c - p.y * s + origin.x, p.x * s + p.y * c + origin.y);

    dc.MoveTo(Truncated(placed.front().x), Truncated(placed.front().y));
    for (size_t i = 1; i < placed.size(); ++i)
        dc.LineTo(Truncated(placed[i].x), Truncated(placed[i].y));

    const KvVec2d gap = placed.back() - placed.front();
    if (placed.size() < 2 || std::abs(gap.x) >= KvMath::Epsilon || std::abs(gap.y) >= KvMath::Epsilon)
        return;
    std::vector<POINT> corners;
    for (const KvVec2d& p : placed)
        corners.push_back({Rounded(p.x), Rounded(p.y)});
    dc.Polygon(corners.data(), static_cast<int>(corners.size()));
}

} // namespace kv::editor
