// The tools of the mask windows: which figure a tool number draws, and whether it adds to the mask or cuts out of it.
#pragma once

namespace KvN
{

enum class MaskShape
{
    None,
    Rectangle,
    Circle,
    Ellipse,
    Polygon,
    Polyline
};

struct MaskTool
{
    MaskShape shape = MaskShape::None;
    bool filled = false; // else a frame, or an open line, of the set width
    bool adds = false;   // else it removes

    // Dragged open, then placed and adjusted.
    bool IsBox() const
    {
        return shape == MaskShape::Rectangle || shape == MaskShape::Circle || shape == MaskShape::Ellipse;
    }
    // Clicked vertex by vertex.
    bool IsPolygonal() const { return shape == MaskShape::Polygon || shape == MaskShape::Polyline; }
};

// The three tool numbers that act on the whole mask at once.
inline constexpr int MaskToolClear = 10;
inline constexpr int MaskToolFill = 20;
inline constexpr int MaskToolInvert = 21;

// 1 to 9 add, 11 to 19 remove the same figures. Any other number draws nothing.
constexpr MaskTool DescribeMaskTool(int tool)
{
    const bool adds = tool < 10;
    switch (adds ? tool : tool - 10)
    {
    case 1:
        return {MaskShape::Rectangle, true, adds};
    case 2:
        return {MaskShape::Circle, true, adds};
    case 3:
        return {MaskShape::Ellipse, true, adds};
    case 4:
        return {MaskShape::Polygon, true, adds};
    case 5:
        return {MaskShape::Rectangle, false, adds};
    case 6:
        return {MaskShape::Circle, false, adds};
    case 7:
        return {MaskShape::Ellipse, false, adds};
    case 8:
        return {MaskShape::Polygon, false, adds};
    case 9:
        return {MaskShape::Polyline, false, adds};
    default:
        return {};
    }
}

} // namespace KvN
