// Icons of the tools and operations, drawn to any size.
#pragma once

#include <QIcon>

namespace kv::workbench
{

enum class Picture
{
    Select,
    Rectangle,
    Ellipse,
    Polygon,
    Polyline,
    Points,
    Undo,
    Redo,
    Open,
    Save,
    Delete,
    Invert,
    FullFrame,
    ZoomIn,
    ZoomOut,
    Fit,
    Mask
};

// Figures are drawn in the editor's colour of an included contour, or in that of an excluded one.
QIcon IconOf(Picture picture, bool excluded = false);

} // namespace kv::workbench
