// TextOut, text metrics and extents.
#include "platform/gdi/gdi.h"
#include "platform/gdi/raster/rect.h"
#include "platform/gdi/text/text_out.h"

#include <algorithm>
#include <cmath>
#include <cwchar>

using namespace kv::gdi;

namespace
{

template <class Result>
Result refused(Result result, DWORD error = ERROR_INVALID_PARAMETER)
{
    SetLastError(error);
    return result;
}

// Text and count of a call; false if they do not fit together.
bool isText(LPCWSTR text, std::int64_t count)
{
    return count >= 0 && (text || count == 0);
}

} // namespace

BOOL TextOutW(HDC dc, int x, int y, LPCWSTR text, int count)
{
    return count < 0 ? refused(FALSE) : ExtTextOutW(dc, x, y, 0, nullptr, text, UINT(count), nullptr);
}

BOOL ExtTextOutW(HDC handle, int x, int y, UINT options, const RECT* rect, LPCWSTR text, UINT count,
                 const int* advances)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    if (!isText(text, count) || ((options & (ETO_OPAQUE | ETO_CLIPPED)) && !rect))
        return refused(FALSE);
    std::optional<RECT> clip;
    if (rect)
    {
        const RECT box = dc->state.mapping.deviceRect(*rect);
        if (options & ETO_CLIPPED)
            clip = box;
        if (options & ETO_OPAQUE)
        {
            const HBRUSH background = CreateSolidBrush(dc->state.background);
            FillRect(handle, rect, background);
            DeleteObject(background);
        }
    }
    if (count == 0)
        return TRUE;
    const TextFont font(*dc);
    if (!font)
        return refused(FALSE, ERROR_NOT_SUPPORTED);
    const TextLine line = layOut(font, {text, count}, advances);
    const bool update = (dc->state.textAlign & TA_UPDATECP) != 0;
    const POINT from = update ? dc->state.position : POINT{x, y};
    const POINT at = dc->state.mapping.device(from);
    drawLine(*dc, font, line, at.x, at.y, clip);
    if (update && (dc->state.textAlign & TA_CENTER) != TA_CENTER)
    {
        const int step = font.logicalAlong(line.width);
        dc->state.position.x =
            kv::raster::saturated(std::int64_t(from.x) + (dc->state.textAlign & TA_RIGHT ? -step : step));
    }
    return TRUE;
}

BOOL GetTextExtentPoint32W(HDC handle, LPCWSTR text, int count, SIZE* size)
{
    return GetTextExtentExPointW(handle, text, count, 0, nullptr, nullptr, size);
}

BOOL GetTextExtentExPointW(HDC handle, LPCWSTR text, int count, int limit, int* fit, int* advances, SIZE* size)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    if (!isText(text, count) || !size)
        return refused(FALSE);
    const TextFont font(*dc);
    if (!font)
        return refused(FALSE, ERROR_NOT_SUPPORTED);
    std::int64_t width = 0;
    int fitting = 0;
    for (int i = 0; i < count; ++i)
    {
        // The two units of a pair share one character; its width counts with the second.
        const std::vector<std::uint32_t> pair = charactersOf({text + i, std::size_t(std::min(2, count - i))});
        const bool first = pair.size() == 1 && count - i >= 2;
        if (first)
        {
            if (advances)
                advances[i] = font.logicalAlong(width);
            ++i;
        }
        width += font.advance(pair.front());
        const int sum = font.logicalAlong(width);
        if (advances)
            advances[i] = sum;
        if (sum <= limit)
            fitting = i + 1;
    }
    if (fit)
        *fit = fitting;
    *size = {font.logicalAlong(width), font.logicalAcross(font.height())};
    return TRUE;
}

BOOL GetCharWidth32W(HDC handle, UINT first, UINT last, int* widths)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    if (!widths || first > last || last > 0x10FFFF)
        return refused(FALSE);
    const TextFont font(*dc);
    if (!font)
        return refused(FALSE, ERROR_NOT_SUPPORTED);
    for (UINT c = first; c <= last; ++c)
        widths[c - first] = font.logicalAlong(font.advance(c));
    return TRUE;
}

BOOL GetTextMetricsW(HDC handle, TEXTMETRICW* metrics)
{
    const auto dc = findDc(handle);
    if (!dc)
        return FALSE;
    if (!metrics)
        return refused(FALSE);
    const TextFont font(*dc);
    if (!font)
        return refused(FALSE, ERROR_NOT_SUPPORTED);
    const LOGFONTW& log = dc->font->log;
    TEXTMETRICW m{};
    m.tmAscent = font.logicalAcross(font.ascent());
    m.tmHeight = font.logicalAcross(font.height());
    m.tmDescent = m.tmHeight - m.tmAscent;
    m.tmInternalLeading = std::max(0, m.tmHeight - font.logicalAcross(font.em()));
    m.tmExternalLeading = font.logicalAcross(font.externalLeading());
    m.tmAveCharWidth = font.logicalAlong(font.averageWidth());
    m.tmMaxCharWidth = font.logicalAlong(font.maximalWidth());
    m.tmWeight = font.typeface().bolder ? FW_BOLD : font.typeface().weight;
    m.tmDigitizedAspectX = m.tmDigitizedAspectY = 96;
    m.tmFirstChar = 0x20;
    m.tmLastChar = 0xFFFC;
    m.tmDefaultChar = 0x1F;
    m.tmBreakChar = 0x20;
    m.tmItalic = log.lfItalic ? 255 : 0;
    m.tmUnderlined = log.lfUnderline;
    m.tmStruckOut = log.lfStrikeOut;
    // The lowest bit says that the pitch is not fixed.
    m.tmPitchAndFamily = BYTE((log.lfPitchAndFamily & 0xF0) | TMPF_VECTOR | TMPF_TRUETYPE |
                              (font.typeface().fixedPitch ? 0 : TMPF_FIXED_PITCH));
    m.tmCharSet = log.lfCharSet == DEFAULT_CHARSET ? ANSI_CHARSET : log.lfCharSet;
    *metrics = m;
    return TRUE;
}

int GetTextFaceW(HDC handle, int count, LPWSTR face)
{
    const auto dc = findDc(handle);
    if (!dc)
        return 0;
    const wchar_t* const name = dc->font->log.lfFaceName;
    const int length = int(std::wcslen(name)) + 1;
    if (!face)
        return length;
    if (count <= 0)
        return refused(0);
    const int copied = std::min(length, count);
    std::wmemcpy(face, name, std::size_t(copied));
    face[copied - 1] = 0;
    return copied;
}
