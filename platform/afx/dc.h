// CDC: a device context of the class layer, thin over the flat functions. Drawing goes to `m_hDC`, questions go to
// `m_hAttribDC`; the two are the same context here unless somebody sets them apart.
#pragma once

#include "platform/afx/gdiobject.h"

// Owns its context, or borrows one if it came from `FromHandle`. Calls on an object without context fail.
class CDC : public CObject
{
    DECLARE_DYNCREATE(CDC)

public:
    HDC m_hDC = nullptr;
    HDC m_hAttribDC = nullptr;
    BOOL m_bPrinting = FALSE;

    CDC() = default;
    CDC(const CDC&) = delete;
    CDC& operator=(const CDC&) = delete;
    ~CDC() override { DeleteDC(); }

    // The object that owns `handle`, else one that borrows it; null for a null handle. A borrowing object holds until
    // `DeleteTempMap` of the same thread.
    static CDC* FromHandle(HDC handle);
    static void DeleteTempMap();

    HDC GetSafeHdc() const { return m_hDC; }
    operator HDC() const { return m_hDC; }
    BOOL Attach(HDC handle);
    HDC Detach();
    virtual void SetAttribDC(HDC handle) { m_hAttribDC = handle; }
    virtual void SetOutputDC(HDC handle) { m_hDC = handle; }
    virtual void ReleaseAttribDC() { m_hAttribDC = nullptr; }
    virtual void ReleaseOutputDC() { m_hDC = nullptr; }
    BOOL IsPrinting() const { return m_bPrinting; }

    BOOL CreateCompatibleDC(CDC* dc);
    BOOL CreateDC(const CString& driver, const CString& device);
    BOOL DeleteDC();
    virtual int SaveDC() { return ::SaveDC(m_hDC); }
    virtual BOOL RestoreDC(int level) { return ::RestoreDC(m_hDC, level); }
    int GetDeviceCaps(int index) const { return ::GetDeviceCaps(m_hAttribDC, index); }

    // Each gives the object selected before; null if that failed.
    CGdiObject* SelectObject(CGdiObject* object);
    virtual CPen* SelectObject(CPen* pen);
    virtual CBrush* SelectObject(CBrush* brush);
    virtual CFont* SelectObject(CFont* font);
    CBitmap* SelectObject(CBitmap* bitmap);
    int SelectObject(CRgn* region) { return SelectClipRgn(region); }
    HGDIOBJ SelectObject(HGDIOBJ object) { return ::SelectObject(m_hDC, object); }
    virtual CGdiObject* SelectStockObject(int index);
    CPen* GetCurrentPen() const;
    CBrush* GetCurrentBrush() const;
    CFont* GetCurrentFont() const;
    CBitmap* GetCurrentBitmap() const;

    // ---- State; each setter gives the former value
    int SetROP2(int mode) { return ::SetROP2(m_hDC, mode); }
    int GetROP2() const { return ::GetROP2(m_hAttribDC); }
    int SetPolyFillMode(int mode) { return ::SetPolyFillMode(m_hDC, mode); }
    int GetPolyFillMode() const { return ::GetPolyFillMode(m_hAttribDC); }
    int SetStretchBltMode(int mode) { return ::SetStretchBltMode(m_hDC, mode); }
    int GetStretchBltMode() const { return ::GetStretchBltMode(m_hAttribDC); }
    int SetBkMode(int mode) { return ::SetBkMode(m_hDC, mode); }
    int GetBkMode() const { return ::GetBkMode(m_hAttribDC); }
    virtual COLORREF SetBkColor(COLORREF color) { return ::SetBkColor(m_hDC, color); }
    COLORREF GetBkColor() const { return ::GetBkColor(m_hAttribDC); }
    virtual COLORREF SetTextColor(COLORREF color) { return ::SetTextColor(m_hDC, color); }
    COLORREF GetTextColor() const { return ::GetTextColor(m_hAttribDC); }
    UINT SetTextAlign(UINT align) { return ::SetTextAlign(m_hDC, align); }
    UINT GetTextAlign() const { return ::GetTextAlign(m_hAttribDC); }
    int SetArcDirection(int direction) { return ::SetArcDirection(m_hDC, direction); }
    int GetArcDirection() const { return ::GetArcDirection(m_hAttribDC); }
    CPoint SetBrushOrg(int x, int y);
    CPoint GetBrushOrg() const;
    COLORREF GetNearestColor(COLORREF color) const { return ::GetNearestColor(m_hAttribDC, color); }

    // ---- Mapping
    virtual int SetMapMode(int mode) { return ::SetMapMode(m_hDC, mode); }
    int GetMapMode() const { return ::GetMapMode(m_hAttribDC); }
    virtual CPoint SetViewportOrg(int x, int y);
    CPoint SetViewportOrg(POINT point) { return SetViewportOrg(point.x, point.y); }
    virtual CPoint OffsetViewportOrg(int x, int y);
    CPoint GetViewportOrg() const;
    virtual CSize SetViewportExt(int x, int y);
    CSize SetViewportExt(SIZE size) { return SetViewportExt(size.cx, size.cy); }
    virtual CSize ScaleViewportExt(int xn, int xd, int yn, int yd);
    CSize GetViewportExt() const;
    CPoint SetWindowOrg(int x, int y);
    CPoint SetWindowOrg(POINT point) { return SetWindowOrg(point.x, point.y); }
    CPoint OffsetWindowOrg(int x, int y);
    CPoint GetWindowOrg() const;
    virtual CSize SetWindowExt(int x, int y);
    CSize SetWindowExt(SIZE size) { return SetWindowExt(size.cx, size.cy); }
    virtual CSize ScaleWindowExt(int xn, int xd, int yn, int yd);
    CSize GetWindowExt() const;
    int SetGraphicsMode(int mode) { return ::SetGraphicsMode(m_hDC, mode); }
    int GetGraphicsMode() const { return ::GetGraphicsMode(m_hAttribDC); }
    BOOL SetWorldTransform(const XFORM* transform) { return ::SetWorldTransform(m_hDC, transform); }
    BOOL GetWorldTransform(XFORM* transform) const { return ::GetWorldTransform(m_hAttribDC, transform); }
    BOOL ModifyWorldTransform(const XFORM* transform, DWORD mode)
    {
        return ::ModifyWorldTransform(m_hDC, transform, mode);
    }
    void DPtoLP(POINT* points, int count = 1) const { ::DPtoLP(m_hAttribDC, points, count); }
    void DPtoLP(RECT* rect) const { DPtoLP(reinterpret_cast<POINT*>(rect), 2); }
    void DPtoLP(SIZE* size) const; // an extent: origins play no part, the result is at least 0
    void LPtoDP(POINT* points, int count = 1) const { ::LPtoDP(m_hAttribDC, points, count); }
    void LPtoDP(RECT* rect) const { LPtoDP(reinterpret_cast<POINT*>(rect), 2); }
    void LPtoDP(SIZE* size) const; // likewise

    // ---- Clipping
    virtual int GetClipBox(RECT* box) const { return ::GetClipBox(m_hAttribDC, box); }
    int SelectClipRgn(CRgn* region);
    int SelectClipRgn(CRgn* region, int mode);
    int IntersectClipRect(int l, int t, int r, int b) { return ::IntersectClipRect(m_hDC, l, t, r, b); }
    int IntersectClipRect(const RECT* rect)
    {
        return IntersectClipRect(rect->left, rect->top, rect->right, rect->bottom);
    }
    int ExcludeClipRect(int l, int t, int r, int b) { return ::ExcludeClipRect(m_hDC, l, t, r, b); }
    int ExcludeClipRect(const RECT* rect) { return ExcludeClipRect(rect->left, rect->top, rect->right, rect->bottom); }
    int OffsetClipRgn(int x, int y) { return ::OffsetClipRgn(m_hDC, x, y); }
    BOOL PtVisible(int x, int y) const { return ::PtVisible(m_hDC, x, y); }
    BOOL RectVisible(const RECT* rect) const { return ::RectVisible(m_hDC, rect); }

    // ---- Lines and figures
    CPoint GetCurrentPosition() const;
    CPoint MoveTo(int x, int y);
    CPoint MoveTo(POINT point) { return MoveTo(point.x, point.y); }
    BOOL LineTo(int x, int y) { return ::LineTo(m_hDC, x, y); }
    BOOL LineTo(POINT point) { return LineTo(point.x, point.y); }
    BOOL Polyline(const POINT* points, int count) { return ::Polyline(m_hDC, points, count); }
    BOOL PolylineTo(const POINT* points, int count);
    BOOL PolyPolyline(const POINT* points, const DWORD* counts, int figures);
    BOOL Polygon(const POINT* points, int count) { return ::Polygon(m_hDC, points, count); }
    BOOL PolyPolygon(const POINT* points, const int* counts, int figures);
    BOOL Rectangle(int l, int t, int r, int b) { return ::Rectangle(m_hDC, l, t, r, b); }
    BOOL Rectangle(const RECT* rect) { return Rectangle(rect->left, rect->top, rect->right, rect->bottom); }
    BOOL Ellipse(int l, int t, int r, int b) { return ::Ellipse(m_hDC, l, t, r, b); }
    BOOL Ellipse(const RECT* rect) { return Ellipse(rect->left, rect->top, rect->right, rect->bottom); }
    BOOL Arc(int l, int t, int r, int b, int startX, int startY, int endX, int endY);
    BOOL Arc(const RECT* box, POINT start, POINT end);
    COLORREF SetPixel(int x, int y, COLORREF color) { return ::SetPixel(m_hDC, x, y, color); }
    BOOL SetPixelV(int x, int y, COLORREF color) { return ::SetPixelV(m_hDC, x, y, color); }
    COLORREF GetPixel(int x, int y) const { return ::GetPixel(m_hDC, x, y); }
    void FillRect(const RECT* rect, CBrush* brush);
    void FrameRect(const RECT* rect, CBrush* brush);
    void InvertRect(const RECT* rect) { ::InvertRect(m_hDC, rect); }
    void FillSolidRect(const RECT* rect, COLORREF color); // leaves `color` behind as background colour
    void FillSolidRect(int x, int y, int width, int height, COLORREF color);
    void Draw3dRect(const RECT* rect, COLORREF topLeft, COLORREF bottomRight);
    void DrawFocusRect(const RECT* rect) { ::DrawFocusRect(m_hDC, rect); }
    BOOL DrawEdge(RECT* rect, UINT edge, UINT flags) { return ::DrawEdge(m_hDC, rect, edge, flags); }
    BOOL DrawFrameControl(RECT* rect, UINT kind, UINT state) { return ::DrawFrameControl(m_hDC, rect, kind, state); }
    BOOL FillRgn(CRgn* region, CBrush* brush);
    BOOL PaintRgn(CRgn* region) { return ::PaintRgn(m_hDC, *region); }

    // ---- Blits
    BOOL PatBlt(int x, int y, int width, int height, DWORD rop) { return ::PatBlt(m_hDC, x, y, width, height, rop); }
    BOOL BitBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, DWORD rop);
    BOOL StretchBlt(int x, int y, int width, int height, CDC* source, int sourceX, int sourceY, int sourceWidth,
                    int sourceHeight, DWORD rop);

    // ---- Text
    virtual BOOL TextOut(int x, int y, const CString& text);
    virtual BOOL ExtTextOut(int x, int y, UINT options, const RECT* rect, const CString& text, const int* advances);
    virtual int DrawText(const CString& text, RECT* rect, UINT format);
    CSize GetTextExtent(const CString& text) const;
    BOOL GetTextMetrics(TEXTMETRICW* metrics) const { return ::GetTextMetricsW(m_hAttribDC, metrics); }
};
