// Life of the off-screen context.
#include "contracts/image/KvMemDC.h"

namespace KvN
{

KvMemDC::KvMemDC(CDC* reference, int width, int height)
{
    if (!CreateCompatibleDC(reference) || !bitmap.CreateCompatibleBitmap(reference, width, height))
        return;
    former = SelectObject(bitmap.GetSafeHandle());
    PatBlt(0, 0, width, height, BLACKNESS);
}

KvMemDC::~KvMemDC()
{
    if (former)
        SelectObject(former);
}

void KvMemDC::Paint(CDC* target, KvTRectangle<short>& area)
{
    target->BitBlt(area.left, area.top, area.Width(), area.Height(), this, area.left, area.top, SRCCOPY);
}

} // namespace KvN
