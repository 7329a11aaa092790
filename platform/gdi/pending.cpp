// Calls that are declared and not drawn yet: they fail with ERROR_NOT_SUPPORTED.
#include "platform/gdi/gdi.h"

BOOL DeleteObject(HGDIOBJ)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HGDIOBJ GetStockObject(int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HGDIOBJ SelectObject(HDC, HGDIOBJ)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HGDIOBJ GetCurrentObject(HDC, UINT)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
DWORD GetObjectType(HGDIOBJ)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int GetObjectW(HANDLE, int, LPVOID)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL UnrealizeObject(HGDIOBJ)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL GdiFlush()
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HPEN CreatePen(int, int, COLORREF)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HPEN CreatePenIndirect(const LOGPEN*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HPEN ExtCreatePen(DWORD, DWORD, const LOGBRUSH*, DWORD, const DWORD*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HBRUSH CreateSolidBrush(COLORREF)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HBRUSH CreateHatchBrush(int, COLORREF)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HBRUSH CreatePatternBrush(HBITMAP)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HBRUSH CreateBrushIndirect(const LOGBRUSH*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HBRUSH CreateDIBPatternBrushPt(const void*, UINT)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
COLORREF GetSysColor(int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HBRUSH GetSysColorBrush(int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HBITMAP CreateBitmap(int, int, UINT, UINT, const void*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HBITMAP CreateBitmapIndirect(const BITMAP*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HBITMAP CreateCompatibleBitmap(HDC, int, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HBITMAP CreateDIBSection(HDC, const BITMAPINFO*, UINT, void**, HANDLE, DWORD)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HBITMAP CreateDIBitmap(HDC, const BITMAPINFOHEADER*, DWORD, const void*, const BITMAPINFO*, UINT)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
LONG GetBitmapBits(HBITMAP, LONG, LPVOID)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
LONG SetBitmapBits(HBITMAP, DWORD, const void*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int GetDIBits(HDC, HBITMAP, UINT, UINT, LPVOID, BITMAPINFO*, UINT)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int SetDIBits(HDC, HBITMAP, UINT, UINT, const void*, const BITMAPINFO*, UINT)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int SetDIBitsToDevice(HDC, int, int, DWORD, DWORD, int, int, UINT, UINT, const void*, const BITMAPINFO*, UINT)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int StretchDIBits(HDC, int, int, int, int, int, int, int, int, const void*, const BITMAPINFO*, UINT, DWORD)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
UINT GetDIBColorTable(HDC, UINT, UINT, RGBQUAD*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
UINT SetDIBColorTable(HDC, UINT, UINT, const RGBQUAD*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HDC CreateCompatibleDC(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HDC CreateDCW(LPCWSTR, LPCWSTR, LPCWSTR, const void*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL DeleteDC(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int SaveDC(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL RestoreDC(HDC, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int GetDeviceCaps(HDC, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL GetDCOrgEx(HDC, POINT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int SetROP2(HDC, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int GetROP2(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int SetPolyFillMode(HDC, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int GetPolyFillMode(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int SetStretchBltMode(HDC, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int GetStretchBltMode(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int SetBkMode(HDC, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int GetBkMode(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
COLORREF SetBkColor(HDC, COLORREF)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
COLORREF GetBkColor(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
COLORREF SetTextColor(HDC, COLORREF)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
COLORREF GetTextColor(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
COLORREF SetDCPenColor(HDC, COLORREF)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
COLORREF GetDCPenColor(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
COLORREF SetDCBrushColor(HDC, COLORREF)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
COLORREF GetDCBrushColor(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
UINT SetTextAlign(HDC, UINT)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
UINT GetTextAlign(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL SetBrushOrgEx(HDC, int, int, POINT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL GetBrushOrgEx(HDC, POINT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int SetArcDirection(HDC, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int GetArcDirection(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
DWORD GetLayout(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
COLORREF GetNearestColor(HDC, COLORREF)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int SetGraphicsMode(HDC, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int GetGraphicsMode(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int SetMapMode(HDC, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int GetMapMode(HDC)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL SetWindowOrgEx(HDC, int, int, POINT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL GetWindowOrgEx(HDC, POINT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL OffsetWindowOrgEx(HDC, int, int, POINT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL SetWindowExtEx(HDC, int, int, SIZE*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL GetWindowExtEx(HDC, SIZE*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL ScaleWindowExtEx(HDC, int, int, int, int, SIZE*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL SetViewportOrgEx(HDC, int, int, POINT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL GetViewportOrgEx(HDC, POINT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL OffsetViewportOrgEx(HDC, int, int, POINT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL SetViewportExtEx(HDC, int, int, SIZE*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL GetViewportExtEx(HDC, SIZE*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL ScaleViewportExtEx(HDC, int, int, int, int, SIZE*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL SetWorldTransform(HDC, const XFORM*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL GetWorldTransform(HDC, XFORM*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL ModifyWorldTransform(HDC, const XFORM*, DWORD)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL CombineTransform(XFORM*, const XFORM*, const XFORM*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL LPtoDP(HDC, POINT*, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL DPtoLP(HDC, POINT*, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HRGN CreateRectRgn(int, int, int, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HRGN CreateRectRgnIndirect(const RECT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL SetRectRgn(HRGN, int, int, int, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int CombineRgn(HRGN, HRGN, HRGN, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int GetRgnBox(HRGN, RECT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int OffsetRgn(HRGN, int, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL EqualRgn(HRGN, HRGN)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL PtInRegion(HRGN, int, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL RectInRegion(HRGN, const RECT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
DWORD GetRegionData(HRGN, DWORD, RGNDATA*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL FillRgn(HDC, HRGN, HBRUSH)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL PaintRgn(HDC, HRGN)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL InvertRgn(HDC, HRGN)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int SelectClipRgn(HDC, HRGN)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int ExtSelectClipRgn(HDC, HRGN, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int GetClipRgn(HDC, HRGN)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int IntersectClipRect(HDC, int, int, int, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int ExcludeClipRect(HDC, int, int, int, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int OffsetClipRgn(HDC, int, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int GetClipBox(HDC, RECT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL PtVisible(HDC, int, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL RectVisible(HDC, const RECT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL MoveToEx(HDC, int, int, POINT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL GetCurrentPositionEx(HDC, POINT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL LineTo(HDC, int, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL Polyline(HDC, const POINT*, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL PolylineTo(HDC, const POINT*, DWORD)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL PolyPolyline(HDC, const POINT*, const DWORD*, DWORD)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL Polygon(HDC, const POINT*, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL PolyPolygon(HDC, const POINT*, const int*, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL Rectangle(HDC, int, int, int, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL Ellipse(HDC, int, int, int, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL Arc(HDC, int, int, int, int, int, int, int, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
COLORREF SetPixel(HDC, int, int, COLORREF)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL SetPixelV(HDC, int, int, COLORREF)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
COLORREF GetPixel(HDC, int, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int FillRect(HDC, const RECT*, HBRUSH)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int FrameRect(HDC, const RECT*, HBRUSH)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL InvertRect(HDC, const RECT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL DrawFocusRect(HDC, const RECT*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL DrawEdge(HDC, RECT*, UINT, UINT)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL DrawFrameControl(HDC, RECT*, UINT, UINT)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL PatBlt(HDC, int, int, int, int, DWORD)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL BitBlt(HDC, int, int, int, int, HDC, int, int, DWORD)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL StretchBlt(HDC, int, int, int, int, HDC, int, int, int, int, DWORD)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HFONT CreateFontIndirectW(const LOGFONTW*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
HFONT CreateFontW(int, int, int, int, int, DWORD, DWORD, DWORD, DWORD, DWORD, DWORD, DWORD, DWORD, LPCWSTR)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL TextOutW(HDC, int, int, LPCWSTR, int)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL ExtTextOutW(HDC, int, int, UINT, const RECT*, LPCWSTR, UINT, const int*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int DrawTextW(HDC, LPCWSTR, int, RECT*, UINT)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL GetTextExtentPoint32W(HDC, LPCWSTR, int, SIZE*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL GetTextExtentExPointW(HDC, LPCWSTR, int, int, int*, int*, SIZE*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL GetCharWidth32W(HDC, UINT, UINT, int*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
BOOL GetTextMetricsW(HDC, TEXTMETRICW*)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
int GetTextFaceW(HDC, int, LPWSTR)
{
    SetLastError(ERROR_NOT_SUPPORTED);
    return {};
}
