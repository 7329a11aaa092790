// The software GDI: device contexts, bitmaps, pens, brushes, regions, fonts and what is drawn with them, under the
// platform's names and signatures. A program written against these declarations also compiles against the platform's.
//
// Every handle is checked: a null or stale handle, or one of another kind, fails as on the platform (0, FALSE, null or
// CLR_INVALID; GetLastError tells) and nothing is drawn. Coordinates may be any int. Objects belong to who made them
// and are freed by DeleteObject or DeleteDC. Drawing calls on different contexts may run in different threads.
#pragma once

#include "platform/gdi/gdi_constants.h"
#include "platform/gdi/gdi_types.h"

// The calling thread's last error
DWORD GetLastError();
void SetLastError(DWORD error);

// ---- Objects

BOOL DeleteObject(HGDIOBJ object);
HGDIOBJ GetStockObject(int index);
HGDIOBJ SelectObject(HDC dc, HGDIOBJ object);
HGDIOBJ GetCurrentObject(HDC dc, UINT kind);
DWORD GetObjectType(HGDIOBJ object);
int GetObjectW(HANDLE object, int size, LPVOID out); // bytes written, or needed if `out` is null
inline int GetObject(HANDLE object, int size, LPVOID out)
{
    return GetObjectW(object, size, out);
}
BOOL UnrealizeObject(HGDIOBJ object);
BOOL GdiFlush();

HPEN CreatePen(int style, int width, COLORREF color);
HPEN CreatePenIndirect(const LOGPEN* pen);
HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD count, const DWORD* lengths);

HBRUSH CreateSolidBrush(COLORREF color);
HBRUSH CreateHatchBrush(int hatch, COLORREF color);
HBRUSH CreatePatternBrush(HBITMAP bitmap); // keeps a copy of the bitmap
HBRUSH CreateBrushIndirect(const LOGBRUSH* brush);
HBRUSH CreateDIBPatternBrushPt(const void* packedDib, UINT usage);

COLORREF GetSysColor(int index);
HBRUSH GetSysColorBrush(int index); // not to be deleted

// ---- Bitmaps

HBITMAP CreateBitmap(int width, int height, UINT planes, UINT bitsPerPixel, const void* bits);
HBITMAP CreateBitmapIndirect(const BITMAP* bitmap);
HBITMAP CreateCompatibleBitmap(HDC dc, int width, int height);
// The bits are writable, stay where they are until the section is deleted, and belong to it.
HBITMAP CreateDIBSection(HDC dc, const BITMAPINFO* info, UINT usage, void** bits, HANDLE mapping, DWORD offset);
HBITMAP CreateDIBitmap(HDC dc, const BITMAPINFOHEADER* header, DWORD flags, const void* bits, const BITMAPINFO* info,
                       UINT usage);
LONG GetBitmapBits(HBITMAP bitmap, LONG count, LPVOID bits);
LONG SetBitmapBits(HBITMAP bitmap, DWORD count, const void* bits);
int GetDIBits(HDC dc, HBITMAP bitmap, UINT start, UINT lines, LPVOID bits, BITMAPINFO* info, UINT usage);
int SetDIBits(HDC dc, HBITMAP bitmap, UINT start, UINT lines, const void* bits, const BITMAPINFO* info, UINT usage);
int SetDIBitsToDevice(HDC dc, int x, int y, DWORD width, DWORD height, int sourceX, int sourceY, UINT start, UINT lines,
                      const void* bits, const BITMAPINFO* info, UINT usage);
int StretchDIBits(HDC dc, int x, int y, int width, int height, int sourceX, int sourceY, int sourceWidth,
                  int sourceHeight, const void* bits, const BITMAPINFO* info, UINT usage, DWORD rop);
UINT GetDIBColorTable(HDC dc, UINT start, UINT count, RGBQUAD* colors);
UINT SetDIBColorTable(HDC dc, UINT start, UINT count, const RGBQUAD* colors);

// ---- Device contexts

HDC CreateCompatibleDC(HDC dc);
HDC CreateDCW(LPCWSTR driver, LPCWSTR device, LPCWSTR port, const void* mode); // "DISPLAY": a screen of its own
BOOL DeleteDC(HDC dc);
int SaveDC(HDC dc);
BOOL RestoreDC(HDC dc, int level);
int GetDeviceCaps(HDC dc, int index);
BOOL GetDCOrgEx(HDC dc, POINT* origin);

int SetROP2(HDC dc, int mode);
int GetROP2(HDC dc);
int SetPolyFillMode(HDC dc, int mode);
int GetPolyFillMode(HDC dc);
int SetStretchBltMode(HDC dc, int mode);
int GetStretchBltMode(HDC dc);
int SetBkMode(HDC dc, int mode);
int GetBkMode(HDC dc);
COLORREF SetBkColor(HDC dc, COLORREF color);
COLORREF GetBkColor(HDC dc);
COLORREF SetTextColor(HDC dc, COLORREF color);
COLORREF GetTextColor(HDC dc);
COLORREF SetDCPenColor(HDC dc, COLORREF color);
COLORREF GetDCPenColor(HDC dc);
COLORREF SetDCBrushColor(HDC dc, COLORREF color);
COLORREF GetDCBrushColor(HDC dc);
UINT SetTextAlign(HDC dc, UINT align);
UINT GetTextAlign(HDC dc);
BOOL SetBrushOrgEx(HDC dc, int x, int y, POINT* old);
BOOL GetBrushOrgEx(HDC dc, POINT* origin);
int SetArcDirection(HDC dc, int direction);
int GetArcDirection(HDC dc);
DWORD GetLayout(HDC dc);
COLORREF GetNearestColor(HDC dc, COLORREF color);

// ---- Mapping

int SetGraphicsMode(HDC dc, int mode);
int GetGraphicsMode(HDC dc);
int SetMapMode(HDC dc, int mode);
int GetMapMode(HDC dc);
BOOL SetWindowOrgEx(HDC dc, int x, int y, POINT* old);
BOOL GetWindowOrgEx(HDC dc, POINT* origin);
BOOL OffsetWindowOrgEx(HDC dc, int x, int y, POINT* old);
BOOL SetWindowExtEx(HDC dc, int x, int y, SIZE* old);
BOOL GetWindowExtEx(HDC dc, SIZE* extent);
BOOL ScaleWindowExtEx(HDC dc, int xn, int xd, int yn, int yd, SIZE* old);
BOOL SetViewportOrgEx(HDC dc, int x, int y, POINT* old);
BOOL GetViewportOrgEx(HDC dc, POINT* origin);
BOOL OffsetViewportOrgEx(HDC dc, int x, int y, POINT* old);
BOOL SetViewportExtEx(HDC dc, int x, int y, SIZE* old);
BOOL GetViewportExtEx(HDC dc, SIZE* extent);
BOOL ScaleViewportExtEx(HDC dc, int xn, int xd, int yn, int yd, SIZE* old);
BOOL SetWorldTransform(HDC dc, const XFORM* transform);
BOOL GetWorldTransform(HDC dc, XFORM* transform);
BOOL ModifyWorldTransform(HDC dc, const XFORM* transform, DWORD mode);
BOOL CombineTransform(XFORM* result, const XFORM* first, const XFORM* second);
BOOL LPtoDP(HDC dc, POINT* points, int count);
BOOL DPtoLP(HDC dc, POINT* points, int count);

// ---- Regions and clipping

HRGN CreateRectRgn(int left, int top, int right, int bottom);
HRGN CreateRectRgnIndirect(const RECT* rect);
BOOL SetRectRgn(HRGN region, int left, int top, int right, int bottom);
int CombineRgn(HRGN result, HRGN first, HRGN second, int mode);
int GetRgnBox(HRGN region, RECT* box);
int OffsetRgn(HRGN region, int x, int y);
BOOL EqualRgn(HRGN first, HRGN second);
BOOL PtInRegion(HRGN region, int x, int y);
BOOL RectInRegion(HRGN region, const RECT* rect);
DWORD GetRegionData(HRGN region, DWORD size, RGNDATA* data);
BOOL FillRgn(HDC dc, HRGN region, HBRUSH brush);
BOOL PaintRgn(HDC dc, HRGN region);
BOOL InvertRgn(HDC dc, HRGN region);

int SelectClipRgn(HDC dc, HRGN region); // copies the region; device coordinates
int ExtSelectClipRgn(HDC dc, HRGN region, int mode);
int GetClipRgn(HDC dc, HRGN region);
int IntersectClipRect(HDC dc, int left, int top, int right, int bottom);
int ExcludeClipRect(HDC dc, int left, int top, int right, int bottom);
int OffsetClipRgn(HDC dc, int x, int y);
int GetClipBox(HDC dc, RECT* box);
BOOL PtVisible(HDC dc, int x, int y);
BOOL RectVisible(HDC dc, const RECT* rect);

// ---- Lines and figures

BOOL MoveToEx(HDC dc, int x, int y, POINT* old);
BOOL GetCurrentPositionEx(HDC dc, POINT* position);
BOOL LineTo(HDC dc, int x, int y);
BOOL Polyline(HDC dc, const POINT* points, int count);
BOOL PolylineTo(HDC dc, const POINT* points, DWORD count);
BOOL PolyPolyline(HDC dc, const POINT* points, const DWORD* counts, DWORD figures);
BOOL Polygon(HDC dc, const POINT* points, int count);
BOOL PolyPolygon(HDC dc, const POINT* points, const int* counts, int figures);
BOOL Rectangle(HDC dc, int left, int top, int right, int bottom);
BOOL Ellipse(HDC dc, int left, int top, int right, int bottom);
BOOL Arc(HDC dc, int left, int top, int right, int bottom, int startX, int startY, int endX, int endY);
COLORREF SetPixel(HDC dc, int x, int y, COLORREF color);
BOOL SetPixelV(HDC dc, int x, int y, COLORREF color);
COLORREF GetPixel(HDC dc, int x, int y);
int FillRect(HDC dc, const RECT* rect, HBRUSH brush); // a system colour's index plus one serves as brush
int FrameRect(HDC dc, const RECT* rect, HBRUSH brush);
BOOL InvertRect(HDC dc, const RECT* rect);
BOOL DrawFocusRect(HDC dc, const RECT* rect);
BOOL DrawEdge(HDC dc, RECT* rect, UINT edge, UINT flags);
BOOL DrawFrameControl(HDC dc, RECT* rect, UINT kind, UINT state);

// ---- Blits

BOOL PatBlt(HDC dc, int x, int y, int width, int height, DWORD rop);
BOOL BitBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, DWORD rop);
BOOL StretchBlt(HDC dc, int x, int y, int width, int height, HDC source, int sourceX, int sourceY, int sourceWidth,
                int sourceHeight, DWORD rop);

// ---- Text

HFONT CreateFontIndirectW(const LOGFONTW* font);
inline HFONT CreateFontIndirect(const LOGFONTW* font)
{
    return CreateFontIndirectW(font);
}
HFONT CreateFontW(int height, int width, int escapement, int orientation, int weight, DWORD italic, DWORD underline,
                  DWORD strikeOut, DWORD charSet, DWORD outPrecision, DWORD clipPrecision, DWORD quality,
                  DWORD pitchAndFamily, LPCWSTR face);
inline HFONT CreateFont(int height, int width, int escapement, int orientation, int weight, DWORD italic,
                        DWORD underline, DWORD strikeOut, DWORD charSet, DWORD outPrecision, DWORD clipPrecision,
                        DWORD quality, DWORD pitchAndFamily, LPCWSTR face)
{
    return CreateFontW(height, width, escapement, orientation, weight, italic, underline, strikeOut, charSet,
                       outPrecision, clipPrecision, quality, pitchAndFamily, face);
}
BOOL TextOutW(HDC dc, int x, int y, LPCWSTR text, int count);
inline BOOL TextOut(HDC dc, int x, int y, LPCWSTR text, int count)
{
    return TextOutW(dc, x, y, text, count);
}
BOOL ExtTextOutW(HDC dc, int x, int y, UINT options, const RECT* rect, LPCWSTR text, UINT count, const int* advances);
inline BOOL ExtTextOut(HDC dc, int x, int y, UINT options, const RECT* rect, LPCWSTR text, UINT count,
                       const int* advances)
{
    return ExtTextOutW(dc, x, y, options, rect, text, count, advances);
}
int DrawTextW(HDC dc, LPCWSTR text, int count, RECT* rect, UINT format);
inline int DrawText(HDC dc, LPCWSTR text, int count, RECT* rect, UINT format)
{
    return DrawTextW(dc, text, count, rect, format);
}
BOOL GetTextExtentPoint32W(HDC dc, LPCWSTR text, int count, SIZE* size);
inline BOOL GetTextExtentPoint32(HDC dc, LPCWSTR text, int count, SIZE* size)
{
    return GetTextExtentPoint32W(dc, text, count, size);
}
BOOL GetTextExtentExPointW(HDC dc, LPCWSTR text, int count, int limit, int* fit, int* advances, SIZE* size);
BOOL GetCharWidth32W(HDC dc, UINT first, UINT last, int* widths);
BOOL GetTextMetricsW(HDC dc, TEXTMETRICW* metrics);
inline BOOL GetTextMetrics(HDC dc, TEXTMETRICW* metrics)
{
    return GetTextMetricsW(dc, metrics);
}
int GetTextFaceW(HDC dc, int count, LPWSTR face);

// ---- Rectangles and arithmetic

BOOL SetRect(RECT* rect, int left, int top, int right, int bottom);
BOOL SetRectEmpty(RECT* rect);
BOOL CopyRect(RECT* to, const RECT* from);
BOOL IsRectEmpty(const RECT* rect);
BOOL EqualRect(const RECT* first, const RECT* second);
BOOL InflateRect(RECT* rect, int x, int y);
BOOL OffsetRect(RECT* rect, int x, int y);
BOOL IntersectRect(RECT* result, const RECT* first, const RECT* second);
BOOL UnionRect(RECT* result, const RECT* first, const RECT* second);
BOOL SubtractRect(RECT* result, const RECT* first, const RECT* second);
BOOL PtInRect(const RECT* rect, POINT point);
int MulDiv(int number, int numerator, int denominator); // rounded to nearest, -1 on overflow or division by 0
