// Life of the off-screen context, and its copy to another.
#include "contracts/image/KvMemDC.h"

#include "contracts/image/pendingpicture_p.h"
#include "platform/gdi/raster/rect.h"

namespace KvN
{

namespace
{

// Bits of a pixel of the bitmap that a context draws on; 0 if there is none.
int DepthOf(const CDC* dc)
{
    BITMAP bitmap{};
    const HGDIOBJ handle = dc ? ::GetCurrentObject(dc->m_hDC, OBJ_BITMAP) : nullptr;
    return handle && ::GetObject(handle, sizeof bitmap, &bitmap) ? bitmap.bmBitsPixel : 0;
}

// The extents that a copy from one context to another covers, if it keeps its direction.
std::unique_ptr<show::Axis> AxisOf(LONG to, LONG toEnd, LONG from, LONG fromEnd, int limit)
{
    if (toEnd <= to || fromEnd <= from)
        return nullptr;
    return std::make_unique<show::Axis>(to, toEnd, from, fromEnd - from, limit);
}

bool IsPixelOnPixel(const kv::gdi::DeviceMapping& mapping)
{
    return mapping.isUpright() && mapping.m11 == 1 && mapping.m22 == 1;
}

} // namespace

KvMemDC::KvMemDC(CDC* reference, int width, int height)
    : size(width, height), depth(DepthOf(reference)), touched(std::make_unique<show::TouchedTiles>())
{
    if (!CreateCompatibleDC(reference))
        return;
    // A new bitmap is black. One of 32 bits is no section, even if that of the reference is: nobody can get at its
    // pixels but by the calls of a context.
    const bool plain = depth == 32 && width > 0 && height > 0;
    if (plain ? bitmap.CreateBitmap(width, height, 1, 32, nullptr)
              : bitmap.CreateCompatibleBitmap(reference, width, height))
        former = SelectObject(bitmap.GetSafeHandle());
}

KvMemDC::~KvMemDC()
{
    if (!former)
        return;
    DropPending();
    SelectObject(former);
}

bool KvMemDC::Suits(const CDC& reference, int width, int height) const
{
    return former && depth == 32 && size == CSize(width, height) && DepthOf(&reference) == depth;
}

bool KvMemDC::DrawsOnOwnBitmap() const
{
    return former && ::GetCurrentObject(m_hDC, OBJ_BITMAP) == bitmap.GetSafeHandle();
}

void KvMemDC::SetPending(std::unique_ptr<show::PendingPicture> picture)
{
    kv::gdi::setPendingPixels(bitmap, picture.get());
    pending = std::move(picture);
    if (pending)
        pending->NoteIn(*touched);
}

std::unique_ptr<show::PendingPicture> KvMemDC::TakePending()
{
    kv::gdi::setPendingPixels(bitmap, nullptr);
    return std::move(pending);
}

void KvMemDC::DropPending()
{
    TakePending();
}

std::int64_t KvMemDC::PixelsInMemory() const
{
    return touched->pixels;
}

void KvMemDC::LimitTo(const CRect& part)
{
    IntersectClipRect(part);
    GetClipBox(&limit);
}

void KvMemDC::Clear()
{
    DropPending();
    kv::gdi::Surface surface;
    if (!DrawsOnOwnBitmap() || !kv::gdi::surfaceOf(m_hDC, surface))
        return;
    if (surface.depth == 32)
        SetPending(std::make_unique<show::PendingPicture>(surface, RECT{0, 0, surface.width, surface.height}, nullptr,
                                                          POINT{}));
    else
        PatBlt(0, 0, surface.width, surface.height, BLACKNESS);
}

// False if it takes the general way.
bool KvMemDC::CombinePending(CDC& source, const CSize& size, DWORD rop)
{
    if (!pending || !pending->IsUntouched() || source.m_hDC == m_hDC || !DrawsOnOwnBitmap() ||
        (rop != SRCAND && rop != SRCPAINT))
        return false;
    auto picture = TakePending();
    kv::gdi::Surface to, from;
    const bool found = kv::gdi::surfaceOf(m_hDC, to) && kv::gdi::surfaceOf(source.m_hDC, from);
    const RECT& box = picture->Box();
    const bool plain = found && to.clip.size() == 1 &&
                       (limit == to.clip.front() || kv::raster::contains(to.clip.front(), box)) && to.depth == 32 &&
                       from.depth == 32 && IsPixelOnPixel(to.mapping) && IsPixelOnPixel(from.mapping);
    if (plain)
    {
        const POINT at = to.mapping.toDevice(0, 0);
        const POINT start = from.mapping.toDevice(0, 0);
        const POINT toSource{start.x - at.x, start.y - at.y};
        const RECT wanted = kv::raster::common(box, {at.x, at.y, at.x + size.cx, at.y + size.cy});
        const RECT there{-toSource.x, -toSource.y, from.width - toSource.x, from.height - toSource.y};
        picture->Combine(from, kv::raster::common(wanted, there), toSource, rop == SRCAND);
    }
    SetPending(std::move(picture));
    return plain;
}

void KvMemDC::Combine(CDC& source, const CSize& size, DWORD rop)
{
    if (!CombinePending(source, size, rop))
        BitBlt(0, 0, size.cx, size.cy, &source, 0, 0, rop);
}

// False if it takes the general way.
bool KvMemDC::CopyPending(CDC& target, const KvTRectangle<short>& area)
{
    if (!pending || target.m_hDC == m_hDC || !DrawsOnOwnBitmap())
        return false;
    // The context's own mapping and bitmap, without asking for the pixels.
    auto picture = TakePending();
    kv::gdi::Surface from;
    const bool found = kv::gdi::surfaceOf(m_hDC, from);
    SetPending(std::move(picture));
    kv::gdi::Surface to;
    if (!found || !kv::gdi::surfaceOf(target.m_hDC, to) || to.depth != 32 || !to.mapping.isUpright() ||
        !from.mapping.isUpright())
        return false;
    const int right = area.left + area.Width();
    const int bottom = area.top + area.Height();
    const POINT toNear = to.mapping.toDevice(area.left, area.top);
    const POINT toFar = to.mapping.toDevice(right, bottom);
    const POINT fromNear = from.mapping.toDevice(area.left, area.top);
    const POINT fromFar = from.mapping.toDevice(right, bottom);
    const auto across = AxisOf(toNear.x, toFar.x, fromNear.x, fromFar.x, from.width);
    const auto down = AxisOf(toNear.y, toFar.y, fromNear.y, fromFar.y, from.height);
    const bool stretches = toFar.x - toNear.x != fromFar.x - fromNear.x || toFar.y - toNear.y != fromFar.y - fromNear.y;
    if (!across || !down || (stretches && ::GetStretchBltMode(target.m_hDC) != COLORONCOLOR))
        return false;
    pending->Copy(to, *across, *down);
    return true;
}

void KvMemDC::Paint(CDC* target, KvTRectangle<short>& area)
{
    if (!CopyPending(*target, area))
        target->BitBlt(area.left, area.top, area.Width(), area.Height(), this, area.left, area.top, SRCCOPY);
}

} // namespace KvN
