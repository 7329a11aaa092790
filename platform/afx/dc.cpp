// Life of a device context object, and the calls that translate arguments.
#include "platform/afx/dc.h"

#include "platform/afx/handlemap.h"

#include <cstdlib>
#include <string>

IMPLEMENT_DYNCREATE(CDC, CObject)

namespace
{
using Owners = kv::afx::HandleOwners<CDC>;

void LetGo(CDC& dc)
{
    dc.m_hDC = nullptr;
    dc.m_hAttribDC = nullptr;
}

auto& Borrowers()
{
    static thread_local kv::afx::HandleBorrowers<CDC, &LetGo> borrowers;
    return borrowers;
}

// A region as the flat functions take it.
HRGN HandleOf(CRgn* region)
{
    return region ? HRGN(*region) : nullptr;
}

// The length of a vector's image under a mapping of points; origins cancel.
template <class Map>
SIZE MappedExtent(SIZE size, Map map)
{
    POINT ends[2] = {{0, 0}, {size.cx, size.cy}};
    map(ends, 2);
    return {std::abs(ends[1].x - ends[0].x), std::abs(ends[1].y - ends[0].y)};
}
} // namespace

CDC* CDC::FromHandle(HDC handle)
{
    if (!handle)
        return nullptr;
    if (CDC* owner = Owners::Find(handle))
        return owner;
    CDC& borrower = Borrowers().For(handle);
    borrower.m_hDC = borrower.m_hAttribDC = handle;
    return &borrower;
}

void CDC::DeleteTempMap()
{
    Borrowers().Clear();
}

BOOL CDC::Attach(HDC handle)
{
    if (!handle)
        return FALSE;
    m_hDC = m_hAttribDC = handle;
    Owners::Add(handle, this);
    return TRUE;
}

HDC CDC::Detach()
{
    const HDC handle = m_hDC;
    if (handle)
        Owners::Remove(handle, this);
    m_hDC = m_hAttribDC = nullptr;
    return handle;
}

BOOL CDC::CreateCompatibleDC(CDC* dc)
{
    return Attach(::CreateCompatibleDC(dc ? dc->m_hDC : nullptr));
}

BOOL CDC::CreateDC(const CString& driver, const CString& device)
{
    return Attach(::CreateDCW(driver.Wide().c_str(), device.Wide().c_str(), nullptr, nullptr));
}

BOOL CDC::DeleteDC()
{
    const HDC handle = Detach();
    return handle ? ::DeleteDC(handle) : FALSE;
}

CGdiObject* CDC::SelectObject(CGdiObject* object)
{
    return CGdiObject::FromHandle(SelectObject(object ? object->GetSafeHandle() : nullptr));
}

CPen* CDC::SelectObject(CPen* pen)
{
    return CPen::FromHandle(static_cast<HPEN>(SelectObject(pen ? pen->GetSafeHandle() : nullptr)));
}

CBrush* CDC::SelectObject(CBrush* brush)
{
    return CBrush::FromHandle(static_cast<HBRUSH>(SelectObject(brush ? brush->GetSafeHandle() : nullptr)));
}

CFont* CDC::SelectObject(CFont* font)
{
    return CFont::FromHandle(static_cast<HFONT>(SelectObject(font ? font->GetSafeHandle() : nullptr)));
}

CBitmap* CDC::SelectObject(CBitmap* bitmap)
{
    return CBitmap::FromHandle(static_cast<HBITMAP>(SelectObject(bitmap ? bitmap->GetSafeHandle() : nullptr)));
}

CGdiObject* CDC::SelectStockObject(int index)
{
    return CGdiObject::FromHandle(SelectObject(::GetStockObject(index)));
}

CPen* CDC::GetCurrentPen() const
{
    return CPen::FromHandle(static_cast<HPEN>(::GetCurrentObject(m_hAttribDC, OBJ_PEN)));
}

CBrush* CDC::GetCurrentBrush() const
{
    return CBrush::FromHandle(static_cast<HBRUSH>(::GetCurrentObject(m_hAttribDC, OBJ_BRUSH)));
}

CFont* CDC::GetCurrentFont() const
{
    return CFont::FromHandle(static_cast<HFONT>(::GetCurrentObject(m_hAttribDC, OBJ_FONT)));
}

CBitmap* CDC::GetCurrentBitmap() const
{
    return CBitmap::FromHandle(static_cast<HBITMAP>(::GetCurrentObject(m_hAttribDC, OBJ_BITMAP)));
}

CPoint CDC::SetBrushOrg(int x, int y)
{
    CPoint old;
    ::SetBrushOrgEx(m_hDC, x, y, &old);
    return old;
}

CPoint CDC::GetBrushOrg() const
{
    CPoint origin;
    ::GetBrushOrgEx(m_hAttribDC, &origin);
    return origin;
}

CPoint CDC::SetViewportOrg(int x, int y)
{
    CPoint old;
    ::SetViewportOrgEx(m_hDC, x, y, &old);
    return old;
}

CPoint CDC::OffsetViewportOrg(int x, int y)
{
    CPoint old;
    ::OffsetViewportOrgEx(m_hDC, x, y, &old);
    return old;
}

CPoint CDC::GetViewportOrg() const
{
    CPoint origin;
    ::GetViewportOrgEx(m_hAttribDC, &origin);
    return origin;
}

CSize CDC::SetViewportExt(int x, int y)
{
    CSize old;
    ::SetViewportExtEx(m_hDC, x, y, &old);
    return old;
}

CSize CDC::ScaleViewportExt(int xn, int xd, int yn, int yd)
{
    CSize old;
    ::ScaleViewportExtEx(m_hDC, xn, xd, yn, yd, &old);
    return old;
}

CSize CDC::GetViewportExt() const
{
    CSize extent;
    ::GetViewportExtEx(m_hAttribDC, &extent);
    return extent;
}

CPoint CDC::SetWindowOrg(int x, int y)
{
    CPoint old;
    ::SetWindowOrgEx(m_hDC, x, y, &old);
    return old;
}

CPoint CDC::OffsetWindowOrg(int x, int y)
{
    CPoint old;
    ::OffsetWindowOrgEx(m_hDC, x, y, &old);
    return old;
}

CPoint CDC::GetWindowOrg() const
{
    CPoint origin;
    ::GetWindowOrgEx(m_hAttribDC, &origin);
    return origin;
}

CSize CDC::SetWindowExt(int x, int y)
{
    CSize old;
    ::SetWindowExtEx(m_hDC, x, y, &old);
    return old;
}

CSize CDC::ScaleWindowExt(int xn, int xd, int yn, int yd)
{
    CSize old;
    ::ScaleWindowExtEx(m_hDC, xn, xd, yn, yd, &old);
    return old;
}

CSize CDC::GetWindowExt() const
{
    CSize extent;
    ::GetWindowExtEx(m_hAttribDC, &extent);
    return extent;
}

void CDC::DPtoLP(SIZE* size) const
{
    *size = MappedExtent(*size, [this](POINT* points, int count) { DPtoLP(points, count); });
}

void CDC::LPtoDP(SIZE* size) const
{
    *size = MappedExtent(*size, [this](POINT* points, int count) { LPtoDP(points, count); });
}

int CDC::SelectClipRgn(CRgn* region)
{
    return ::SelectClipRgn(m_hDC, HandleOf(region));
}

int CDC::SelectClipRgn(CRgn* region, int mode)
{
    return ::ExtSelectClipRgn(m_hDC, HandleOf(region), mode);
}

CPoint CDC::GetCurrentPosition() const
{
    CPoint position;
    ::GetCurrentPositionEx(m_hAttribDC, &position);
    return position;
}

CPoint CDC::MoveTo(int x, int y)
{
    CPoint old;
    ::MoveToEx(m_hDC, x, y, &old);
    return old;
}

BOOL CDC::PolylineTo(const POINT* points, int count)
{
    return ::PolylineTo(m_hDC, points, DWORD(count));
}

BOOL CDC::PolyPolyline(const POINT* points, const DWORD* counts, int figures)
{
    return ::PolyPolyline(m_hDC, points, counts, DWORD(figures));
}

BOOL CDC::PolyPolygon(const POINT* points, const int* counts, int figures)
{
    return ::PolyPolygon(m_hDC, points, counts, figures);
}

BOOL CDC::Arc(int l, int t, int r, int b, int startX, int startY, int endX, int endY)
{
    return ::Arc(m_hDC, l, t, r, b, startX, startY, endX, endY);
}

BOOL CDC::Arc(const RECT* box, POINT start, POINT end)
{
    return Arc(box->left, box->top, box->right, box->bottom, start.x, start.y, end.x, end.y);
}

void CDC::FillRect(const RECT* rect, CBrush* brush)
{
    ::FillRect(m_hDC, rect, brush ? HBRUSH(*brush) : nullptr);
}

void CDC::FrameRect(const RECT* rect, CBrush* brush)
{
    ::FrameRect(m_hDC, rect, brush ? HBRUSH(*brush) : nullptr);
}

void CDC::FillSolidRect(const RECT* rect, COLORREF color)
{
    ::SetBkColor(m_hDC, color);
    const HBRUSH brush = ::CreateSolidBrush(color);
    ::FillRect(m_hDC, rect, brush);
    ::DeleteObject(brush);
}

void CDC::FillSolidRect(int x, int y, int width, int height, COLORREF color)
{
    FillSolidRect(CRect(CPoint(x, y), CSize(width, height)), color);
}

void CDC::Draw3dRect(const RECT* rect, COLORREF topLeft, COLORREF bottomRight)
{
    const CRect box(rect);
    FillSolidRect(box.left, box.top, box.Width() - 1, 1, topLeft);
    FillSolidRect(box.left, box.top, 1, box.Height() - 1, topLeft);
    FillSolidRect(box.right - 1, box.top, 1, box.Height(), bottomRight);
    FillSolidRect(box.left, box.bottom - 1, box.Width(), 1, bottomRight);
}

BOOL CDC::FillRgn(CRgn* region, CBrush* brush)
{
    return ::FillRgn(m_hDC, HandleOf(region), brush ? HBRUSH(*brush) : nullptr);
}

BOOL CDC::BitBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, DWORD rop)
{
    return ::BitBlt(m_hDC, x, y, width, height, source ? source->m_hDC : nullptr, sourceX, sourceY, rop);
}

BOOL CDC::StretchBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, int sourceWidth,
                     int sourceHeight, DWORD rop)
{
    return ::StretchBlt(m_hDC, x, y, width, height, source ? source->m_hDC : nullptr, sourceX, sourceY, sourceWidth,
                        sourceHeight, rop);
}

BOOL CDC::TextOut(int x, int y, const CString& text)
{
    const std::wstring units = text.Wide();
    return ::TextOutW(m_hDC, x, y, units.c_str(), int(units.size()));
}

BOOL CDC::ExtTextOut(int x, int y, UINT options, const RECT* rect, const CString& text, const int* advances)
{
    const std::wstring units = text.Wide();
    return ::ExtTextOutW(m_hDC, x, y, options, rect, units.c_str(), UINT(units.size()), advances);
}

int CDC::DrawText(const CString& text, RECT* rect, UINT format)
{
    const std::wstring units = text.Wide();
    return ::DrawTextW(m_hDC, units.c_str(), int(units.size()), rect, format);
}

CSize CDC::GetTextExtent(const CString& text) const
{
    const std::wstring units = text.Wide();
    CSize size;
    ::GetTextExtentPoint32W(m_hAttribDC, units.c_str(), int(units.size()), &size);
    return size;
}
