// A circle or rectangle that follows the mouse over an AOI and changes its size while the right button is held.
#pragma once

#include "contracts/apptools.h"
#include "contracts/basics.h"
#include "contracts/image.h"

namespace KvN
{

class KvAOIBaseViewWnd;
class KvAOIWnd;

enum SizeableMode : int
{
    SizeableNone = 0,   // the size is fixed
    SizeableWidth = 1,  // only the width changes
    SizeableHeight = 2, // only the height changes
    SizeableBoth = 3,   // both, independently
    SizeableUniform = 4 // both, by one common amount
};

enum CursorType : int // any int may stand here
{
    CursorCircle = 0,
    CursorRectangle = 1
};

// Takes over three handlers of a window's view while connected. Drawn by XOR: a second drawing removes the figure.
// Positions and sizes are logic coordinates. Must be disconnected before it goes; a copy copies the connection too.
class KvAbstractSizeableCursor
{
public:
    // `cursor` is shown over the view; null stands for the standard cross.
    KvAbstractSizeableCursor(const KvTSize<short>& size, HICON cursor, SizeableMode mode);
    virtual ~KvAbstractSizeableCursor() = default;
    KvAbstractSizeableCursor(const KvAbstractSizeableCursor&) = default;
    KvAbstractSizeableCursor& operator=(const KvAbstractSizeableCursor&) = default;

    // `window` stays the caller's and must show an AOI. Connecting a connected cursor isn't guarded against.
    virtual void Connect(KvAOIWnd* window);
    // Hands the handlers back and removes a visible figure. The view keeps the mouse cursor.
    virtual void Disconnect();
    virtual void Draw(const KvTPoint<short>& position, const KvTSize<short>& extent) = 0;
    virtual void Erase(const KvTPoint<short>& position, const KvTSize<short>& extent);
    // Both store only; nothing is redrawn.
    virtual void SetSize(const KvTSize<short>& extent) { size = extent; }
    virtual void SetSizeableMode(SizeableMode newMode) { mode = newMode; }

    KvTPoint<short> GetHotSpot() const { return hotSpot; }
    KvTSize<short> GetSize() const { return size; }
    SizeableMode GetSizeableMode() const { return mode; }
    int IsSizeable() const { return mode != SizeableNone; }
    // The figure's rectangle, the hot spot in its middle.
    KvTRectangle<short> GetBoundingRectangle() const;

    static long long LinkStubMouseMoveHdl(void* instance, void* data);
    static long long LinkStubMouseButtonUpHdl(void* instance, void* data);
    static long long LinkStubPaintHdl(void* instance, void* data);

protected:
    virtual void Update(const KvTSize<short>&) {}

    long long MouseMoveHdl(void* data);
    long long MouseButtonUpHdl(void* data);
    long long PaintHdl(void* data);

    KvAOIBaseViewWnd* View() const;

    KvTPoint<short> hotSpot;
    KvTSize<short> size;
    SizeableMode mode;
    KvAOIWnd* wnd = nullptr;
    HICON cursorHandle;
    KvTSize<short> minSize{3, 3};
    int visible = 0;
    int connected = 0;
    KvTools::Link savedMouseMoveHdl;
    KvTools::Link savedMouseButtonUpHdl;
    KvTools::Link savedPaintHdl;

private:
    KvTSize<short> Resized(const KvTPoint<short>& mouse, KvAOIBaseViewWnd& view) const;
};

class KvSizeableCursor : public KvAbstractSizeableCursor
{
public:
    KvSizeableCursor(CursorType type, const KvTSize<short>& size, HICON cursor, SizeableMode mode);

    void Draw(const KvTPoint<short>& position, const KvTSize<short>& extent) override;
    virtual void SetCursorType(CursorType type) { cursorType = type; } // stores only
    CursorType GetCursorType() const { return cursorType; }

protected:
    CursorType cursorType;
};

} // namespace KvN
