// Calls that are declared and not drawn yet: they fail with ERROR_NOT_SUPPORTED.
#include "platform/gdi/gdi.h"

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
