// The placed figure of a mask window and its handles.
#include "C/uiMaskWndFigure.h"

#include "C/uiAOIBaseViewWnd.h"
#include "C/uiMaskWndDrawing_p.h"

#include <cstdlib>

namespace KvN
{

namespace
{

constexpr short noValue = KvTRectangle<short>::NoValue;

bool IsBetween(int value, int a, int b)
{
    return value >= std::min(a, b) && value <= std::max(a, b);
}

// The cursors of the handles, by id. A circle's side handles are dead, and look it.
UINT MarkerCursor(unsigned short id, KvSurroundRect::ToolType type)
{
    switch (id)
    {
    case 0:
    case 7:
        return IDC_SIZENWSE;
    case 2:
    case 5:
        return IDC_SIZENESW;
    case 1:
    case 6:
        return type == KvSurroundRect::ToolCircle ? IDC_SIZEALL : IDC_SIZENS;
    default:
        return type == KvSurroundRect::ToolCircle ? IDC_SIZEALL : IDC_SIZEWE;
    }
}

} // namespace

KvTPoint<short> KvMaskWndDraggableNode::Corner() const
{
    return {static_cast<short>(pos.x - size.width / 2), static_cast<short>(pos.y - size.height / 2)};
}

void KvMaskWndDraggableNode::Draw(const KvTPoint<short>& centre)
{
    pos = centre;
    const KvTPoint<short> corner = Corner();
    CDC& dc = *view->GetOutputDevice();
    DrawWith(dc, pen, brush,
             [&]
             {
                 dc.SetROP2(R2_XORPEN);
                 dc.Rectangle(corner.x, corner.y, corner.x + size.width, corner.y + size.height);
             });
}

int KvMaskWndDraggableNode::IsInside(const KvTPoint<short>& point) const
{
    if (size.width == 0 || size.height == 0)
        return 0;
    const KvTPoint<short> corner = Corner();
    return IsBetween(point.x, corner.x, corner.x + size.width - 1) &&
           IsBetween(point.y, corner.y, corner.y + size.height - 1);
}

void KvSurroundRect::Init(KvAOIBaseViewWnd* parentView)
{
    view = parentView;
    initialised = 0;
    for (unsigned short id = 0; id < markers.size(); ++id)
    {
        markers[id] = std::make_unique<KvMaskWndDraggableNode>();
        markers[id]->Init(view);
        markers[id]->SetId(id);
        markers[id]->SetPointer(StandardCursor(MarkerCursor(id, ToolRectangle)));
    }
    pointer = StandardCursor(IDC_SIZEALL);
    pen = std::make_unique<CPen>(static_cast<int>(PS_SOLID), lineWidth, RGB(255, 255, 255));
    brush.DeleteObject();
    brush.CreateStockObject(NULL_BRUSH);
    initialised = 1;
}

KvTPoint<short> KvSurroundRect::MarkerPlace(unsigned short id) const
{
    const bool flat = rect.right == noValue || rect.bottom == noValue;
    const short right = rect.right == noValue ? rect.left : rect.right;
    const short bottom = rect.bottom == noValue ? rect.top : rect.bottom;
    const auto middleX = static_cast<short>(std::abs(rect.left - rect.right) / 2 + std::min(rect.left, rect.right));
    const auto middleY = static_cast<short>(rect.top + (rect.bottom - rect.top) / 2);
    switch (id)
    {
    case 1:
        return flat ? KvTPoint<short>(rect.left, rect.top) : KvTPoint<short>(middleX, std::min(rect.top, rect.bottom));
    case 2:
        return {right, rect.top};
    case 3:
        return flat ? KvTPoint<short>(rect.left, rect.top) : KvTPoint<short>(std::min(rect.left, rect.right), middleY);
    case 4:
        return flat ? KvTPoint<short>(rect.left, rect.top) : KvTPoint<short>(std::max(rect.left, rect.right), middleY);
    case 5:
        return {rect.left, bottom};
    case 6:
        return flat ? KvTPoint<short>(rect.left, rect.top) : KvTPoint<short>(middleX, std::max(rect.top, rect.bottom));
    case 7:
        return {right, bottom};
    default:
        return {rect.left, rect.top};
    }
}

void KvSurroundRect::Draw()
{
    if (!visible)
        return;
    CDC& dc = *view->GetOutputDevice();
    DrawWith(dc, *pen, brush,
             [&]
             {
                 dc.SetROP2(R2_XORPEN);
                 if (toolType == ToolCircle || toolType == ToolEllipse)
                     dc.Ellipse(rect.left, rect.top, rect.right + 1, rect.bottom + 1);
                 dc.Rectangle(rect.left, rect.top, rect.right + 1, rect.bottom + 1);
                 for (const auto& marker : markers)
                     marker->Draw(MarkerPlace(marker->GetId()));
             });
}

void KvSurroundRect::Draw(const KvTRectangle<short>& bounds)
{
    rect = bounds;
    Draw();
}

int KvSurroundRect::IsInside(const KvTPoint<short>& point)
{
    const bool inRect = rect.right != noValue && rect.bottom != noValue && IsBetween(point.x, rect.left, rect.right) &&
                        IsBetween(point.y, rect.top, rect.bottom);
    insideMarker = 0;
    for (const auto& marker : markers)
        if (marker && marker->IsInside(point))
        {
            markerId = marker->GetId();
            insideMarker = 1;
        }
    if (inRect && !insideMarker)
        markerId = InsideId;
    return inRect;
}

void KvSurroundRect::SetToolType(ToolType type)
{
    toolType = type;
    for (const unsigned short side : {1, 3, 4, 6})
        if (markers[side])
            markers[side]->SetPointer(StandardCursor(MarkerCursor(side, type)));
}

void KvSurroundRect::SetLineWidth(unsigned short width)
{
    lineWidth = width;
    SetPenWidth(pen, width);
}

} // namespace KvN
