// Making, describing and deleting drawing objects.
#include "platform/gdi/objects.h"

#include "platform/gdi/dc.h"
#include "platform/gdi/gdi.h"

#include <algorithm>
#include <array>
#include <cstring>

namespace kv::gdi
{

namespace
{

HANDLE stockPen(DWORD style, COLORREF color)
{
    auto pen = std::make_shared<Pen>(false);
    pen->style = style;
    pen->width = style == PS_NULL ? 1 : 0;
    pen->color = color;
    return addObject(std::move(pen), true);
}

HANDLE stockBrush(UINT style, COLORREF color)
{
    auto brush = std::make_shared<Brush>();
    brush->style = style;
    brush->color = color;
    return addObject(std::move(brush), true);
}

HANDLE stockFont(int height, int width, int weight, BYTE charSet, BYTE pitchAndFamily, const wchar_t* face)
{
    LOGFONTW font{};
    font.lfHeight = height;
    font.lfWidth = width;
    font.lfWeight = weight;
    font.lfCharSet = charSet;
    font.lfPitchAndFamily = pitchAndFamily;
    std::wcsncpy(font.lfFaceName, face, LF_FACESIZE - 1);
    return addObject(std::make_shared<Font>(font), true);
}

using StockObjects = std::array<HANDLE, DC_PEN + 2>;
constexpr std::size_t defaultBitmapIndex = DC_PEN + 1;

const StockObjects& stockObjects()
{
    static const StockObjects all = []
    {
        StockObjects s{};
        s[WHITE_BRUSH] = stockBrush(BS_SOLID, RGB(255, 255, 255));
        s[LTGRAY_BRUSH] = stockBrush(BS_SOLID, RGB(192, 192, 192));
        s[GRAY_BRUSH] = stockBrush(BS_SOLID, RGB(128, 128, 128));
        s[DKGRAY_BRUSH] = stockBrush(BS_SOLID, RGB(64, 64, 64));
        s[BLACK_BRUSH] = stockBrush(BS_SOLID, 0);
        s[NULL_BRUSH] = stockBrush(BS_NULL, 0);
        s[WHITE_PEN] = stockPen(PS_SOLID, RGB(255, 255, 255));
        s[BLACK_PEN] = stockPen(PS_SOLID, 0);
        s[NULL_PEN] = stockPen(PS_NULL, 0);
        s[OEM_FIXED_FONT] = stockFont(12, 0, FW_NORMAL, 255, FIXED_PITCH | FF_MODERN, L"");
        s[ANSI_FIXED_FONT] = stockFont(12, 0, FW_NORMAL, ANSI_CHARSET, FIXED_PITCH | FF_MODERN, L"Courier");
        s[ANSI_VAR_FONT] = stockFont(12, 0, FW_NORMAL, ANSI_CHARSET, VARIABLE_PITCH | FF_SWISS, L"MS Sans Serif");
        s[SYSTEM_FONT] = stockFont(16, 7, FW_BOLD, ANSI_CHARSET, VARIABLE_PITCH | FF_SWISS, L"System");
        s[DEVICE_DEFAULT_FONT] = stockFont(16, 0, FW_BOLD, ANSI_CHARSET, VARIABLE_PITCH | FF_SWISS, L"System");
        s[DEFAULT_PALETTE] = addObject(std::make_shared<Palette>(), true);
        s[SYSTEM_FIXED_FONT] = stockFont(16, 0, FW_NORMAL, ANSI_CHARSET, FIXED_PITCH | FF_MODERN, L"Courier");
        s[DEFAULT_GUI_FONT] = stockFont(-11, 0, FW_NORMAL, ANSI_CHARSET, VARIABLE_PITCH | FF_SWISS, L"MS Shell Dlg");
        s[DC_BRUSH] = stockBrush(BS_SOLID, RGB(255, 255, 255));
        s[DC_PEN] = stockPen(PS_SOLID, 0);
        s[defaultBitmapIndex] = addObject(Bitmap::make(1, 1, 1, false, true, twoColors()), true);
        return s;
    }();
    return all;
}

HPEN addPen(std::shared_ptr<Pen> pen)
{
    return static_cast<HPEN>(addObject(std::move(pen)));
}

HBRUSH addBrush(UINT style, COLORREF color, ULONG_PTR hatch, std::shared_ptr<const Bitmap> pattern = nullptr)
{
    auto brush = std::make_shared<Brush>();
    brush->style = style;
    brush->color = color;
    brush->hatch = hatch;
    brush->pattern = std::move(pattern);
    return static_cast<HBRUSH>(addObject(std::move(brush)));
}

template <class T>
T* refused(DWORD error)
{
    SetLastError(error);
    return nullptr;
}

// ---- GetObject

// Copies as much of a description as asked for; those that come only whole give 0 if there is less room.
int describe(const void* what, int whole, int size, void* out, bool partly = false)
{
    if (!out)
        return whole;
    if (std::uint32_t(size) < std::uint32_t(whole))
    {
        if (!partly || size <= 0)
        {
            SetLastError(ERROR_INSUFFICIENT_BUFFER);
            return 0;
        }
        whole = size;
    }
    std::memcpy(out, what, std::size_t(whole));
    return whole;
}

int describeBitmap(const Bitmap& bitmap, int size, void* out)
{
    DIBSECTION section{};
    BITMAP& b = section.dsBm;
    b.bmWidth = bitmap.width();
    b.bmHeight = bitmap.height();
    b.bmWidthBytes = bitmap.strideBytes();
    b.bmPlanes = 1;
    b.bmBitsPixel = WORD(bitmap.depth());
    b.bmBits = bitmap.isSection() ? bitmap.firstByte() : nullptr;
    if (!out || !bitmap.isSection() || std::uint32_t(size) < sizeof section)
        return describe(&b, sizeof b, size, out);
    BITMAPINFOHEADER& h = section.dsBmih;
    h.biSize = sizeof h;
    h.biWidth = bitmap.width();
    h.biHeight = bitmap.height();
    h.biPlanes = 1;
    h.biBitCount = WORD(bitmap.depth());
    h.biSizeImage = DWORD(bitmap.size());
    h.biClrUsed = DWORD(bitmap.table().size());
    return describe(&section, sizeof section, size, out);
}

int describePen(const Pen& pen, int size, void* out)
{
    if (pen.kind == OBJ_PEN)
    {
        const LOGPEN log{pen.style, {pen.width, 0}, pen.color};
        return describe(&log, sizeof log, size, out);
    }
    const std::size_t fixed = offsetof(EXTLOGPEN, elpStyleEntry);
    std::vector<BYTE> log(fixed + pen.lengths.size() * sizeof(DWORD));
    EXTLOGPEN head{};
    head.elpPenStyle = pen.style;
    head.elpWidth = DWORD(pen.width);
    head.elpBrushStyle = pen.brushStyle;
    head.elpColor = pen.color;
    head.elpHatch = pen.hatch;
    head.elpNumEntries = DWORD(pen.lengths.size());
    std::memcpy(log.data(), &head, fixed);
    if (!pen.lengths.empty())
        std::memcpy(log.data() + fixed, pen.lengths.data(), pen.lengths.size() * sizeof(DWORD));
    return describe(log.data(), int(log.size()), size, out);
}

} // namespace

HBITMAP defaultBitmap()
{
    return static_cast<HBITMAP>(stockObjects()[defaultBitmapIndex]);
}

COLORREF plainColor(COLORREF color)
{
    switch (color >> 24)
    {
    case 0:
    case 2:
        return color & 0xFFFFFF;
    case 1:
    { // the default palette has the first and last ten entries of the default table
        const DWORD index = color & 0xFFFF;
        if (index >= 20)
            return 0;
        return colorOf(packed(defaultTable()[index < 10 ? index : 236 + index]));
    }
    default:
        return 0;
    }
}

} // namespace kv::gdi

using namespace kv::gdi;

HGDIOBJ GetStockObject(int index)
{
    return index < 0 || index > DC_PEN ? nullptr : stockObjects()[std::size_t(index)];
}

BOOL DeleteObject(HGDIOBJ object)
{
    const std::shared_ptr<Object> found = findObject(object);
    if (!found)
    {
        SetLastError(ERROR_INVALID_HANDLE);
        return FALSE;
    }
    if (found->kind == OBJ_MEMDC)
        return DeleteDC(static_cast<HDC>(object));
    return removeObject(object);
}

DWORD GetObjectType(HGDIOBJ object)
{
    const std::shared_ptr<Object> found = findObject(object);
    if (!found)
        SetLastError(ERROR_INVALID_HANDLE);
    return found ? DWORD(found->kind) : 0;
}

BOOL UnrealizeObject(HGDIOBJ object)
{
    return GetObjectType(object) != 0;
}

BOOL GdiFlush()
{
    return TRUE;
}

int GetObjectW(HANDLE object, int size, LPVOID out)
{
    const std::shared_ptr<Object> found = findObject(object);
    switch (found ? found->kind : 0)
    {
    case OBJ_BITMAP:
        return describeBitmap(static_cast<const Bitmap&>(*found), size, out);
    case OBJ_PEN:
    case OBJ_EXTPEN:
        return describePen(static_cast<const Pen&>(*found), size, out);
    case OBJ_BRUSH:
    {
        const Brush& brush = static_cast<const Brush&>(*found);
        const LOGBRUSH log{brush.style, brush.color, brush.hatch};
        return describe(&log, sizeof log, size, out, true);
    }
    case OBJ_FONT:
        return describe(&static_cast<const Font&>(*found).log, sizeof(LOGFONTW), size, out, true);
    default:
        SetLastError(ERROR_INVALID_HANDLE);
        return 0;
    }
}

// ---- Pens

HPEN CreatePen(int style, int width, COLORREF color)
{
    auto pen = std::make_shared<Pen>(false);
    pen->style = style >= 0 && style <= int(PS_INSIDEFRAME) ? DWORD(style) : PS_SOLID;
    pen->width = width == INT32_MIN ? INT32_MAX : width < 0 ? -width : width;
    pen->color = color;
    if (pen->style == PS_NULL)
    {
        pen->width = 1;
        pen->color = 0;
    }
    return addPen(std::move(pen));
}

HPEN CreatePenIndirect(const LOGPEN* pen)
{
    return pen ? CreatePen(int(pen->lopnStyle), pen->lopnWidth.x, pen->lopnColor)
               : refused<HPEN__>(ERROR_INVALID_PARAMETER);
}

HPEN ExtCreatePen(DWORD style, DWORD width, const LOGBRUSH* brush, DWORD count, const DWORD* lengths)
{
    const DWORD line = style & PS_STYLE_MASK, type = style & PS_TYPE_MASK;
    const bool user = line == PS_USERSTYLE;
    const bool valid = brush && line <= PS_ALTERNATE && (type == PS_GEOMETRIC || type == PS_COSMETIC) &&
                       (type == PS_COSMETIC ? width == 1 : line != PS_ALTERNATE) &&
                       (user ? count > 0 && count <= 16 && lengths : count == 0) &&
                       (type == PS_GEOMETRIC || line != PS_INSIDEFRAME);
    if (!valid || width > INT32_MAX)
        return refused<HPEN__>(ERROR_INVALID_PARAMETER);
    if (user && (std::any_of(lengths, lengths + count, [](DWORD v) { return v > INT32_MAX; }) ||
                 std::all_of(lengths, lengths + count, [](DWORD v) { return v == 0; })))
        return refused<HPEN__>(ERROR_INVALID_PARAMETER);
    auto pen = std::make_shared<Pen>(true);
    pen->style = brush->lbStyle == BS_NULL ? (style & ~PS_STYLE_MASK) | PS_NULL : style;
    pen->width = int(width);
    pen->color = brush->lbColor;
    pen->brushStyle = brush->lbStyle;
    pen->hatch = brush->lbHatch;
    if (user)
        pen->lengths.assign(lengths, lengths + count);
    return addPen(std::move(pen));
}

// ---- Brushes

HBRUSH CreateSolidBrush(COLORREF color)
{
    return addBrush(BS_SOLID, color, 0);
}

HBRUSH CreateHatchBrush(int hatch, COLORREF color)
{
    if (hatch < HS_HORIZONTAL || hatch > HS_DIAGCROSS)
        return refused<HBRUSH__>(ERROR_INVALID_PARAMETER);
    return addBrush(BS_HATCHED, color, ULONG_PTR(hatch));
}

HBRUSH CreatePatternBrush(HBITMAP bitmap)
{
    const auto original = find<Bitmap>(bitmap);
    if (!original)
        return nullptr;
    auto copy = Bitmap::make(original->width(), original->height(), original->depth(), original->isSection(),
                             original->isTopDown(), original->table());
    if (!copy)
        return refused<HBRUSH__>(ERROR_NOT_ENOUGH_MEMORY);
    std::memcpy(copy->firstByte(), original->firstByte(), original->size());
    return addBrush(BS_PATTERN, 0, ULONG_PTR(bitmap), std::move(copy));
}

HBRUSH CreateDIBPatternBrushPt(const void* packedDib, UINT usage)
{
    const auto* const info = static_cast<const BITMAPINFO*>(packedDib);
    if (!info || usage != DIB_RGB_COLORS || info->bmiHeader.biSize != sizeof(BITMAPINFOHEADER))
        return refused<HBRUSH__>(ERROR_INVALID_PARAMETER);
    const BITMAPINFOHEADER& h = info->bmiHeader;
    void* ignored = nullptr;
    const HDC dc = CreateCompatibleDC(nullptr);
    BITMAPINFO whole{};
    whole.bmiHeader = h;
    whole.bmiHeader.biBitCount = 32;
    whole.bmiHeader.biCompression = BI_RGB;
    const HBITMAP picture = CreateDIBSection(nullptr, &whole, DIB_RGB_COLORS, &ignored, nullptr, 0);
    const DWORD colors = h.biBitCount > 8 ? 0 : h.biClrUsed ? std::min<DWORD>(h.biClrUsed, 256) : 1u << h.biBitCount;
    const BYTE* const bits = static_cast<const BYTE*>(packedDib) + h.biSize + colors * sizeof(RGBQUAD);
    HBRUSH brush = nullptr;
    if (picture && SetDIBits(dc, picture, 0, UINT(std::abs(std::int64_t(h.biHeight))), bits, info, DIB_RGB_COLORS))
        brush = CreatePatternBrush(picture);
    DeleteObject(picture);
    DeleteDC(dc);
    return brush ? brush : refused<HBRUSH__>(ERROR_INVALID_PARAMETER);
}

HBRUSH CreateBrushIndirect(const LOGBRUSH* brush)
{
    switch (brush ? brush->lbStyle : BS_INDEXED)
    {
    case BS_SOLID:
        return CreateSolidBrush(brush->lbColor);
    case BS_NULL:
        return addBrush(BS_NULL, brush->lbColor, 0);
    case BS_HATCHED:
        return CreateHatchBrush(int(brush->lbHatch), brush->lbColor);
    case BS_PATTERN:
        return CreatePatternBrush(reinterpret_cast<HBITMAP>(brush->lbHatch));
    case BS_DIBPATTERNPT:
        return CreateDIBPatternBrushPt(reinterpret_cast<const void*>(brush->lbHatch), brush->lbColor & 0xFFFF);
    default:
        return refused<HBRUSH__>(ERROR_INVALID_PARAMETER);
    }
}

COLORREF GetSysColor(int index)
{
    static constexpr COLORREF colors[] = {
        0xC8C8C8, 0x000000, 0xD1B499, 0xDBCDBF, 0xF0F0F0, 0xFFFFFF, 0x646464, 0x000000, 0x000000, 0x000000, 0xB4B4B4,
        0xFCF7F4, 0xABABAB, 0xFF9933, 0xFFFFFF, 0xF0F0F0, 0xA0A0A0, 0x6D6D6D, 0x000000, 0x544E43, 0xFFFFFF, 0x696969,
        0xE3E3E3, 0x000000, 0xE1FFFF, 0x000000, 0xCC6600, 0xEAD1B9, 0xF2E4D7, 0xFF9933, 0xF0F0F0};
    return index >= 0 && std::size_t(index) < std::size(colors) ? colors[index] : 0;
}

HBRUSH GetSysColorBrush(int index)
{
    static constexpr int count = 31;
    static const std::array<HANDLE, count> brushes = []
    {
        std::array<HANDLE, count> all;
        for (int i = 0; i < count; ++i)
            all[std::size_t(i)] = stockBrush(BS_SOLID, GetSysColor(i));
        return all;
    }();
    return index >= 0 && index < count ? static_cast<HBRUSH>(brushes[std::size_t(index)]) : nullptr;
}

HFONT CreateFontIndirectW(const LOGFONTW* font)
{
    if (!font)
        return refused<HFONT__>(ERROR_INVALID_PARAMETER);
    LOGFONTW log = *font;
    log.lfFaceName[LF_FACESIZE - 1] = 0;
    return static_cast<HFONT>(addObject(std::make_shared<Font>(log)));
}

HFONT CreateFontW(int height, int width, int escapement, int orientation, int weight, DWORD italic, DWORD underline,
                  DWORD strikeOut, DWORD charSet, DWORD outPrecision, DWORD clipPrecision, DWORD quality,
                  DWORD pitchAndFamily, LPCWSTR face)
{
    LOGFONTW log{height,
                 width,
                 escapement,
                 orientation,
                 weight,
                 BYTE(italic),
                 BYTE(underline),
                 BYTE(strikeOut),
                 BYTE(charSet),
                 BYTE(outPrecision),
                 BYTE(clipPrecision),
                 BYTE(quality),
                 BYTE(pitchAndFamily),
                 {}};
    if (face)
        std::wcsncpy(log.lfFaceName, face, LF_FACESIZE - 1);
    return CreateFontIndirectW(&log);
}
