// Life of the drawing objects, and what they make of their arguments.
#include "platform/afx/gdiobject.h"

#include "platform/afx/dc.h"
#include "platform/afx/exception.h"
#include "platform/afx/handlemap.h"
#include "platform/afx/module.h"

#include <algorithm>
#include <cstring>

IMPLEMENT_DYNCREATE(CGdiObject, CObject)
IMPLEMENT_DYNAMIC(CPen, CGdiObject)
IMPLEMENT_DYNAMIC(CBitmap, CGdiObject)
IMPLEMENT_DYNAMIC(CBrush, CGdiObject)
IMPLEMENT_DYNAMIC(CFont, CGdiObject)
IMPLEMENT_DYNAMIC(CRgn, CGdiObject)

namespace
{
using Owners = kv::afx::HandleOwners<CGdiObject>;

template <class Object>
void LetGo(Object& object)
{
    object.m_hObject = nullptr;
}

template <class Object>
auto& Borrowers()
{
    static thread_local kv::afx::HandleBorrowers<Object, &LetGo<Object>> borrowers;
    return borrowers;
}

template <class Object>
Object* ObjectFor(HGDIOBJ handle)
{
    if (!handle)
        return nullptr;
    if (auto* owner = dynamic_cast<Object*>(Owners::Find(handle)))
        return owner;
    Object& borrower = Borrowers<Object>().For(handle);
    borrower.m_hObject = handle;
    return &borrower;
}

// A device-independent bitmap as resources hold it: header, colour table, rows. Null for anything malformed.
HBITMAP BitmapOfResource(ResourceImage::Bytes bytes)
{
    BITMAPINFOHEADER header{};
    if (bytes.size() < sizeof header)
        return nullptr;
    std::memcpy(&header, bytes.data(), sizeof header);
    if (header.biSize < sizeof header || header.biWidth < 1 || header.biHeight == 0 || header.biHeight == INT32_MIN ||
        header.biWidth > 0x7FFF || header.biBitCount > 32)
        return nullptr;
    const size_t tableLimit = header.biBitCount <= 8 ? size_t(1) << header.biBitCount : 0;
    const size_t colors = header.biClrUsed ? std::min<size_t>(header.biClrUsed, 256) : tableLimit;
    const size_t bits = header.biSize + 4 * colors;
    const size_t rows = size_t(header.biHeight < 0 ? -header.biHeight : header.biHeight);
    const size_t stride = (size_t(header.biWidth) * header.biBitCount + 31) / 32 * 4;
    if (bits > bytes.size() || rows > (bytes.size() - bits) / stride)
        return nullptr;
    const HBITMAP bitmap = ::CreateBitmap(header.biWidth, int(rows), 1, 32, nullptr);
    // The bytes of a resource may start anywhere, while a BITMAPINFO wants its alignment.
    alignas(BITMAPINFO) unsigned char info[sizeof(BITMAPINFOHEADER) + 256 * sizeof(RGBQUAD)] = {};
    std::memcpy(info, &header, sizeof header);
    reinterpret_cast<BITMAPINFO*>(info)->bmiHeader.biSize = sizeof header;
    std::memcpy(info + sizeof header, bytes.data() + header.biSize, 4 * std::min<size_t>(colors, 256));
    const HDC dc = ::CreateCompatibleDC(nullptr);
    const int lines = ::SetDIBits(dc, bitmap, 0, UINT(rows), bytes.data() + bits,
                                  reinterpret_cast<const BITMAPINFO*>(info), DIB_RGB_COLORS);
    ::DeleteDC(dc);
    if (lines > 0)
        return bitmap;
    ::DeleteObject(bitmap);
    return nullptr;
}
} // namespace

CGdiObject* CGdiObject::FromHandle(HGDIOBJ handle)
{
    return ObjectFor<CGdiObject>(handle);
}
CPen* CPen::FromHandle(HPEN handle)
{
    return ObjectFor<CPen>(handle);
}
CBitmap* CBitmap::FromHandle(HBITMAP handle)
{
    return ObjectFor<CBitmap>(handle);
}
CBrush* CBrush::FromHandle(HBRUSH handle)
{
    return ObjectFor<CBrush>(handle);
}
CFont* CFont::FromHandle(HFONT handle)
{
    return ObjectFor<CFont>(handle);
}
CRgn* CRgn::FromHandle(HRGN handle)
{
    return ObjectFor<CRgn>(handle);
}

void CGdiObject::DeleteTempMap()
{
    Borrowers<CGdiObject>().Clear();
    Borrowers<CPen>().Clear();
    Borrowers<CBitmap>().Clear();
    Borrowers<CBrush>().Clear();
    Borrowers<CFont>().Clear();
    Borrowers<CRgn>().Clear();
}

BOOL CGdiObject::Attach(HGDIOBJ handle)
{
    if (!handle)
        return FALSE;
    m_hObject = handle;
    Owners::Add(handle, this);
    return TRUE;
}

HGDIOBJ CGdiObject::Detach()
{
    const HGDIOBJ handle = m_hObject;
    if (handle)
        Owners::Remove(handle, this);
    m_hObject = nullptr;
    return handle;
}

BOOL CGdiObject::DeleteObject()
{
    const HGDIOBJ handle = Detach();
    return handle ? ::DeleteObject(handle) : FALSE;
}

void CGdiObject::AttachOrThrow(HGDIOBJ handle, const CString& what)
{
    if (!Attach(handle))
        AfxThrowResourceException(what);
}

CPen::CPen(int style, int width, COLORREF color)
{
    AttachOrThrow(::CreatePen(style, width, color), L"CreatePen");
}

CPen::CPen(int style, int width, const LOGBRUSH* brush, int count, const DWORD* lengths)
{
    AttachOrThrow(::ExtCreatePen(DWORD(style), DWORD(width), brush, DWORD(count), lengths), L"ExtCreatePen");
}

BOOL CPen::CreatePen(int style, int width, const LOGBRUSH* brush, int count, const DWORD* lengths)
{
    return Attach(::ExtCreatePen(DWORD(style), DWORD(width), brush, DWORD(count), lengths));
}

BOOL CBitmap::LoadBitmap(UINT id)
{
    const CDynLinkLibrary* module = AfxFindResourceHandle(ResourceKind::Bitmap, id);
    return module && Attach(BitmapOfResource(module->Resources().Find(ResourceKind::Bitmap, id)));
}

BOOL CBitmap::CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits)
{
    return Attach(::CreateBitmap(width, height, planes, bitsPerPixel, bits));
}

BOOL CBitmap::CreateCompatibleBitmap(CDC* dc, int width, int height)
{
    return Attach(::CreateCompatibleBitmap(dc ? dc->m_hDC : nullptr, width, height));
}

DWORD CBitmap::GetBitmapBits(DWORD count, LPVOID bits) const
{
    return DWORD(::GetBitmapBits(*this, LONG(count), bits));
}

DWORD CBitmap::SetBitmapBits(DWORD count, const void* bits)
{
    return DWORD(::SetBitmapBits(*this, count, bits));
}

CSize CBitmap::GetBitmapDimension() const
{
    BITMAP bitmap{};
    return GetObject(sizeof bitmap, &bitmap) ? CSize(bitmap.bmWidth, bitmap.bmHeight) : CSize();
}

CBrush::CBrush(COLORREF color)
{
    AttachOrThrow(::CreateSolidBrush(color), L"CreateSolidBrush");
}

CBrush::CBrush(int hatch, COLORREF color)
{
    AttachOrThrow(::CreateHatchBrush(hatch, color), L"CreateHatchBrush");
}

CBrush::CBrush(CBitmap* pattern)
{
    AttachOrThrow(pattern ? ::CreatePatternBrush(*pattern) : nullptr, L"CreatePatternBrush");
}

BOOL CBrush::CreatePatternBrush(CBitmap* pattern)
{
    return pattern ? Attach(::CreatePatternBrush(*pattern)) : FALSE;
}

BOOL CFont::CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic, BYTE underline,
                       BYTE strikeOut, BYTE charSet, BYTE outPrecision, BYTE clipPrecision, BYTE quality,
                       BYTE pitchAndFamily, const CString& face)
{
    return Attach(::CreateFontW(height, width, escapement, orientation, weight, italic, underline, strikeOut, charSet,
                                outPrecision, clipPrecision, quality, pitchAndFamily, face.Wide().c_str()));
}

BOOL CFont::CreatePointFont(int tenths, const CString& face, CDC* dc)
{
    const int dpi = dc ? dc->GetDeviceCaps(LOGPIXELSY) : 96;
    LOGFONT font{};
    font.lfHeight = -::MulDiv(tenths, dpi, 720);
    font.lfCharSet = DEFAULT_CHARSET;
    face.Wide().copy(font.lfFaceName, LF_FACESIZE - 1);
    return CreateFontIndirect(&font);
}

int CRgn::CombineRgn(const CRgn* first, const CRgn* second, int mode)
{
    return ::CombineRgn(*this, first ? HRGN(*first) : nullptr, second ? HRGN(*second) : nullptr, mode);
}
