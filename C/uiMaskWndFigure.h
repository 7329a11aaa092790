// The placed figure of a mask window: its bounds, its eight handles, and what lies under the pointer.
// All coordinates are logic coordinates of the view, that is, pixels of the mask AOI. Everything is drawn by XOR on the
// view's output device, so a second drawing erases.
#pragma once

#include "contracts/basics.h"
#include "contracts/image.h"

#include <array>
#include <memory>

namespace KvN
{

class KvAOIBaseViewWnd;

// One handle: a filled square around its position. The view is not owned.
class KvMaskWndDraggableNode
{
public:
    KvMaskWndDraggableNode() = default;

    void Init(KvAOIBaseViewWnd* parentView) { view = parentView; }
    // Moves the handle to `centre` and draws it there.
    void Draw(const KvTPoint<short>& centre);
    // Non-zero on the square, its sides included.
    int IsInside(const KvTPoint<short>& point) const;

    unsigned short GetId() const { return id; }
    void SetId(unsigned short place) { id = place; }
    const KvTPoint<short>& GetPos() const { return pos; }
    void SetPos(const KvTPoint<short>& centre) { pos = centre; }
    const KvTSize<short>& GetSize() const { return size; }
    HCURSOR GetPointer() const { return pointer; }
    void SetPointer(HCURSOR cursor) { pointer = cursor; }

private:
    KvTPoint<short> Corner() const;

    KvAOIBaseViewWnd* view = nullptr;
    KvTSize<short> size{7, 7};
    unsigned short id = 0;
    KvTPoint<short> pos;
    HCURSOR pointer = nullptr;
    CPen pen{static_cast<int>(PS_SOLID), 0, RGB(255, 255, 255)};
    CBrush brush{RGB(255, 255, 255)};
};

// The figure with its box and handles. The view is not owned.
class KvSurroundRect
{
public:
    enum ToolType
    {
        ToolRectangle = 0,
        ToolCircle = 1,
        ToolEllipse = 2
    };

    // `GetMarkerId` for the figure's inside, and before the first hit.
    static constexpr unsigned short InsideId = 8;
    static constexpr unsigned short NoMarkerId = 10;

    KvSurroundRect() = default;

    // Makes the handles and the pen. To be called before the figure is drawn or hit.
    void Init(KvAOIBaseViewWnd* parentView);

    // Draws the figure, or erases it if it is drawn. A hidden figure draws nothing.
    void Draw();
    void Draw(const KvTRectangle<short>& bounds);
    // Non-zero if the point lies in the rectangle, sides included. Handles are tried too, the highest id winning; their
    // outer halves lie outside the rectangle, so `IsInsideMarker` may be set with a result of 0.
    int IsInside(const KvTPoint<short>& point);

    void SetToolType(ToolType type);
    ToolType GetToolType() const { return toolType; }
    void SetLineWidth(unsigned short width); // no redraw
    unsigned short GetLineWidth() const { return lineWidth; }
    void Show() { visible = 1; }
    void Hide() { visible = 0; }
    int IsVisible() const { return visible; }
    void SetRect(const KvTRectangle<short>& bounds) { rect = bounds; }
    const KvTRectangle<short>& GetRect() const { return rect; }
    void SetPointer(HCURSOR cursor) { pointer = cursor; }
    HCURSOR GetPointer() const { return pointer; }
    int IsInsideMarker() const { return insideMarker; }
    // 0 to 7 for a handle, 8 for the inside, 10 until the first hit; a miss leaves it.
    unsigned short GetMarkerId() const { return markerId; }
    // The handle of `GetMarkerId`, which must be 0 to 7.
    KvMaskWndDraggableNode* GetCurrentMarker() const { return markers[markerId].get(); }

private:
    KvTPoint<short> MarkerPlace(unsigned short id) const;

    KvAOIBaseViewWnd* view = nullptr;
    std::array<std::unique_ptr<KvMaskWndDraggableNode>, 8> markers;
    KvTRectangle<short> rect;
    HCURSOR pointer = nullptr;
    ToolType toolType = ToolRectangle;
    int visible = 0;
    int insideMarker = 0;
    unsigned short markerId = NoMarkerId;
    unsigned short lineWidth = 1;
    std::unique_ptr<CPen> pen;
    CBrush brush;
    int initialised = 0;
};

} // namespace KvN
