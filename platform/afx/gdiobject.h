// Drawing objects of the class layer: each owns its handle and frees it when it goes.
#pragma once

#include "platform/afx/cstring.h"
#include "platform/afx/geometry.h"
#include "platform/afx/object.h"

class CDC;

// Owns one handle, or none. An object that is still selected somewhere must be deselected before it goes.
class CGdiObject : public CObject
{
    DECLARE_DYNCREATE(CGdiObject)

public:
    HGDIOBJ m_hObject = nullptr;

    CGdiObject() = default;
    CGdiObject(const CGdiObject&) = delete;
    CGdiObject& operator=(const CGdiObject&) = delete;
    ~CGdiObject() override { DeleteObject(); }

    // The object that owns `handle`, else one that borrows it; null for a null handle. A borrowing object holds until
    // `DeleteTempMap` of the same thread.
    static CGdiObject* FromHandle(HGDIOBJ handle);
    // Forgets the borrowing objects of this thread; a message loop does so when it has nothing else to do.
    static void DeleteTempMap();

    HGDIOBJ GetSafeHandle() const { return m_hObject; }
    // Takes the handle over. False for a null handle. A handle held before must have been detached or deleted.
    BOOL Attach(HGDIOBJ handle);
    HGDIOBJ Detach();
    // Frees the handle; false if there is none.
    BOOL DeleteObject();
    int GetObject(int size, LPVOID out) const { return ::GetObjectW(m_hObject, size, out); }
    UINT GetObjectType() const { return ::GetObjectType(m_hObject); }
    BOOL CreateStockObject(int index) { return Attach(::GetStockObject(index)); }
    BOOL UnrealizeObject() { return ::UnrealizeObject(m_hObject); }

    bool operator==(const CGdiObject& other) const { return m_hObject == other.m_hObject; }

protected:
    // Throws CResourceException if `handle` is null: what constructors with arguments do.
    void AttachOrThrow(HGDIOBJ handle, const CString& what);
};

class CPen : public CGdiObject
{
    DECLARE_DYNAMIC(CPen)

public:
    CPen() = default;
    // A pen that can't be made throws CResourceException.
    CPen(int style, int width, COLORREF color);
    CPen(int style, int width, const LOGBRUSH* brush, int count = 0, const DWORD* lengths = nullptr);

    static CPen* FromHandle(HPEN handle);
    operator HPEN() const { return static_cast<HPEN>(GetSafeHandle()); }
    BOOL CreatePen(int style, int width, COLORREF color) { return Attach(::CreatePen(style, width, color)); }
    BOOL CreatePen(int style, int width, const LOGBRUSH* brush, int count = 0, const DWORD* lengths = nullptr);
    BOOL CreatePenIndirect(const LOGPEN* pen) { return Attach(::CreatePenIndirect(pen)); }
    int GetLogPen(LOGPEN* pen) const { return GetObject(sizeof *pen, pen); }
};

class CBitmap : public CGdiObject
{
    DECLARE_DYNAMIC(CBitmap)

public:
    CBitmap() = default;

    static CBitmap* FromHandle(HBITMAP handle);
    operator HBITMAP() const { return static_cast<HBITMAP>(GetSafeHandle()); }
    // The bitmap resource of that number of any loaded module, in 32 bits. False if there is none.
    BOOL LoadBitmap(UINT id);
    BOOL CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits);
    BOOL CreateBitmapIndirect(const BITMAP* bitmap) { return Attach(::CreateBitmapIndirect(bitmap)); }
    BOOL CreateCompatibleBitmap(CDC* dc, int width, int height);
    int GetBitmap(BITMAP* bitmap) const { return GetObject(sizeof *bitmap, bitmap); }
    DWORD GetBitmapBits(DWORD count, LPVOID bits) const;
    DWORD SetBitmapBits(DWORD count, const void* bits);
    CSize GetBitmapDimension() const; // width and height in pixels
};

class CBrush : public CGdiObject
{
    DECLARE_DYNAMIC(CBrush)

public:
    CBrush() = default;
    // A brush that can't be made throws CResourceException.
    explicit CBrush(COLORREF color);
    CBrush(int hatch, COLORREF color);
    explicit CBrush(CBitmap* pattern);

    static CBrush* FromHandle(HBRUSH handle);
    operator HBRUSH() const { return static_cast<HBRUSH>(GetSafeHandle()); }
    BOOL CreateSolidBrush(COLORREF color) { return Attach(::CreateSolidBrush(color)); }
    BOOL CreateHatchBrush(int hatch, COLORREF color) { return Attach(::CreateHatchBrush(hatch, color)); }
    BOOL CreatePatternBrush(CBitmap* pattern);
    BOOL CreateBrushIndirect(const LOGBRUSH* brush) { return Attach(::CreateBrushIndirect(brush)); }
    BOOL CreateSysColorBrush(int index) { return Attach(::CreateSolidBrush(::GetSysColor(index))); }
    int GetLogBrush(LOGBRUSH* brush) const { return GetObject(sizeof *brush, brush); }
};

class CFont : public CGdiObject
{
    DECLARE_DYNAMIC(CFont)

public:
    CFont() = default;

    static CFont* FromHandle(HFONT handle);
    operator HFONT() const { return static_cast<HFONT>(GetSafeHandle()); }
    BOOL CreateFontIndirect(const LOGFONT* font) { return Attach(::CreateFontIndirectW(font)); }
    BOOL CreateFont(int height, int width, int escapement, int orientation, int weight, BYTE italic, BYTE underline,
                    BYTE strikeOut, BYTE charSet, BYTE outPrecision, BYTE clipPrecision, BYTE quality,
                    BYTE pitchAndFamily, const CString& face);
    // `tenths` of a point, converted for `dc`, or for the screen if it is null.
    BOOL CreatePointFont(int tenths, const CString& face, CDC* dc = nullptr);
    int GetLogFont(LOGFONT* font) const { return GetObject(sizeof *font, font); }
};

class CRgn : public CGdiObject
{
    DECLARE_DYNAMIC(CRgn)

public:
    CRgn() = default;

    static CRgn* FromHandle(HRGN handle);
    operator HRGN() const { return static_cast<HRGN>(GetSafeHandle()); }
    BOOL CreateRectRgn(int l, int t, int r, int b) { return Attach(::CreateRectRgn(l, t, r, b)); }
    BOOL CreateRectRgnIndirect(const RECT* rect) { return Attach(::CreateRectRgnIndirect(rect)); }
    void SetRectRgn(int l, int t, int r, int b) { ::SetRectRgn(*this, l, t, r, b); }
    void SetRectRgn(const RECT* rect) { SetRectRgn(rect->left, rect->top, rect->right, rect->bottom); }
    int CombineRgn(const CRgn* first, const CRgn* second, int mode);
    int CopyRgn(const CRgn* from) { return CombineRgn(from, nullptr, RGN_COPY); }
    BOOL EqualRgn(const CRgn* other) const { return ::EqualRgn(*this, *other); }
    int OffsetRgn(int x, int y) { return ::OffsetRgn(*this, x, y); }
    int OffsetRgn(POINT by) { return OffsetRgn(by.x, by.y); }
    int GetRgnBox(RECT* box) const { return ::GetRgnBox(*this, box); }
    BOOL PtInRegion(int x, int y) const { return ::PtInRegion(*this, x, y); }
    BOOL PtInRegion(POINT point) const { return PtInRegion(point.x, point.y); }
    BOOL RectInRegion(const RECT* rect) const { return ::RectInRegion(*this, rect); }
};
