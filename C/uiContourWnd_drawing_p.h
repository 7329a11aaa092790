// Drawing that stored contours and the figure in progress share.
#pragma once

#include "C/syContour.h"
#include "platform/afx/dcguards.h"

#include <functional>

namespace kv::editor
{

// The outline through the contour's points; `closed` goes back to the first one. Without points nothing is drawn.
void DrawPath(CDC& dc, const KvTList<KvN::KvVec2d>& points, bool closed);
// The same pixels for a solid pen that covers what is there, in fewer calls.
void DrawSolidPath(CDC& dc, const KvTList<KvN::KvVec2d>& points, bool closed);

// A valid ellipse or circle with the pen and brush of the context. GDI draws upright ellipses only, so a turned one is
// drawn in a turned world, whose viewport origin is what `originOf` makes of the ellipse's centre.
void DrawEllipse(CDC& dc, const KvN::KvContour& contour, const std::function<POINT(POINT)>& originOf);

// Handles of one kind, selected into the context for their life: `size` across, `line` is the outline's width.
class HandlePainter
{
public:
    HandlePainter(CDC& dc_, int size, int line, COLORREF outline, COLORREF fill);

    void Square(const KvN::KvVec2d& centre);
    void Round(const KvN::KvVec2d& centre); // a little larger

private:
    CDC& dc;
    int half;
    CPen pen;
    CBrush brush;
    SelectedObject selectedPen;
    SelectedObject selectedBrush;
};

} // namespace kv::editor
