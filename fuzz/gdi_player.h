// Plays a sequence of bytes as drawing calls: handles good and bad, numbers of every size. For the fuzz target and for
// seeded tests.
#pragma once

#include "platform/gdi/gdi.h"

#include <algorithm>
#include <cstdint>
#include <iterator>
#include <string>
#include <vector>

class CallBytes
{
public:
    CallBytes(const std::uint8_t* data, std::size_t size) : at(data), end(data + size) {}

    bool empty() const { return at == end; }
    std::uint8_t byte() { return at == end ? 0 : *at++; }
    // Mostly small, sometimes anything.
    int number()
    {
        const std::uint8_t kind = byte();
        if (kind < 160)
            return int(kind) - 40;
        if (kind < 224)
            return (int(kind) - 192) * 100 + byte();
        if (kind < 240)
        {
            std::uint32_t v = 0;
            for (int i = 0; i < 4; ++i)
                v = v << 8 | byte();
            return int(v);
        }
        static constexpr int ends[] = {0,       1,      -1,    INT32_MAX, INT32_MIN,  INT32_MAX - 1, INT32_MIN + 1,
                                       32767,   -32768, 65536, 1 << 29,   -(1 << 29), 1 << 30,       100000,
                                       -100000, 7};
        return ends[kind - 240];
    }
    float real()
    {
        const int n = number();
        return byte() % 4 == 0 ? float(n) : float(n % 256) / 64;
    }

private:
    const std::uint8_t* at;
    const std::uint8_t* end;
};

class CallPlayer
{
public:
    CallPlayer(const std::uint8_t* data, std::size_t size) : in(data, size)
    {
        for (const int depth : {8, 32, 1})
            addContext(depth);
    }
    ~CallPlayer()
    {
        for (const HDC dc : contexts)
            DeleteDC(dc);
        for (const HGDIOBJ object : objects)
            DeleteObject(object);
    }
    CallPlayer(const CallPlayer&) = delete;
    CallPlayer& operator=(const CallPlayer&) = delete;

    void play()
    {
        for (int calls = 0; !in.empty() && calls < 300; ++calls)
            call();
    }

private:
    struct Info
    {
        BITMAPINFOHEADER header;
        RGBQUAD colors[256];
    };

    Info info(int width, int height, int depth)
    {
        Info i{};
        i.header = {sizeof i.header, width, height, 1, WORD(depth), BI_RGB, 0, 0, 0, 0, 0};
        for (int k = 0; k < 256; ++k)
            i.colors[k] = {BYTE(k), BYTE(k * 3), BYTE(255 - k), 0};
        return i;
    }

    void addContext(int depth)
    {
        if (contexts.size() >= 8)
            return;
        Info i = info(1 + in.byte() % 70, (in.byte() % 2 ? 1 : -1) * (1 + in.byte() % 70), depth);
        void* bits = nullptr;
        const HBITMAP bitmap =
            CreateDIBSection(nullptr, reinterpret_cast<BITMAPINFO*>(&i), DIB_RGB_COLORS, &bits, nullptr, 0);
        const HDC dc = CreateCompatibleDC(nullptr);
        SelectObject(dc, bitmap);
        contexts.push_back(dc);
        keep(bitmap);
    }

    void keep(HGDIOBJ object)
    {
        if (object)
            objects.push_back(object);
    }

    HDC context()
    {
        const std::uint8_t n = in.byte();
        if (n >= 250)
            return reinterpret_cast<HDC>(std::uintptr_t(n) << (n - 249) * 6);
        return contexts[n % contexts.size()];
    }
    HGDIOBJ object()
    {
        const std::uint8_t n = in.byte();
        if (n >= 250)
            return reinterpret_cast<HGDIOBJ>(std::uintptr_t(n) << (n - 249) * 6);
        if (n >= 230 || objects.empty())
            return GetStockObject(n % 20);
        return objects[n % objects.size()];
    }
    COLORREF color() { return RGB(in.byte(), in.byte(), in.byte()) | (in.byte() == 255 ? 0x01000000u : 0u); }
    DWORD rop()
    {
        static constexpr DWORD list[] = {SRCCOPY,   SRCPAINT, SRCAND,    SRCINVERT, SRCERASE,  NOTSRCCOPY, PATCOPY,
                                         PATINVERT, PATPAINT, MERGECOPY, DSTINVERT, BLACKNESS, WHITENESS};
        const std::uint8_t n = in.byte();
        return n < 200 ? list[n % std::size(list)] : DWORD(in.byte()) << 16;
    }
    std::vector<POINT> points()
    {
        std::vector<POINT> list(in.byte() % 12);
        for (POINT& p : list)
        {
            const int x = in.number();
            p = {x, in.number()};
        }
        return list;
    }
    RECT rect()
    {
        const int l = in.number(), t = in.number(), r = in.number();
        return {l, t, r, in.number()};
    }
    std::wstring text()
    {
        std::wstring t(in.byte() % 8, L' ');
        for (wchar_t& c : t)
            c = wchar_t(in.byte() < 250 ? 32 + in.byte() % 96 : 0xD700 + in.byte() * 16);
        return t;
    }

    void call()
    {
        switch (in.byte() % 8)
        {
        case 0:
            make();
            break;
        case 1:
            select();
            break;
        case 2:
            setMode();
            break;
        case 3:
            map();
            break;
        case 4:
            clip();
            break;
        case 5:
            copy();
            break;
        case 6:
            exchange();
            break;
        default:
            draw();
        }
    }

    void make()
    {
        const int style = in.number();
        const int width = in.number();
        const COLORREF c = color();
        const LOGBRUSH brush{UINT(in.byte() % 4), c, ULONG_PTR(in.byte() % 8)};
        const DWORD lengths[] = {DWORD(in.byte() % 20), DWORD(in.byte() % 20), DWORD(in.byte() % 20)};
        switch (in.byte() % 9)
        {
        case 0:
            keep(CreatePen(style % 9, width, c));
            break;
        case 1:
            keep(ExtCreatePen(PS_GEOMETRIC | DWORD(style % 8), DWORD(width) % 5000, &brush, 0, nullptr));
            break;
        case 2:
            keep(ExtCreatePen(PS_GEOMETRIC | PS_USERSTYLE, DWORD(width) % 50, &brush, 1 + DWORD(style) % 3, lengths));
            break;
        case 3:
            keep(CreateSolidBrush(c));
            break;
        case 4:
            keep(CreateHatchBrush(style % 8, c));
            break;
        case 5:
            keep(CreatePatternBrush(static_cast<HBITMAP>(object())));
            break;
        case 6:
            keep(CreateBitmap(style % 100, width % 100, 1, UINT(in.byte() % 40), nullptr));
            break;
        case 7:
            keep(CreateCompatibleBitmap(context(), style % 100, width % 100));
            break;
        default:
        {
            const RECT r = rect();
            keep(CreateRectRgnIndirect(&r));
        }
        }
        // Fonts are few: each may open a file.
        if (in.byte() == 0)
        {
            LOGFONTW log{};
            log.lfHeight = in.number() % 200;
            log.lfWidth = in.number() % 50;
            log.lfEscapement = in.number();
            log.lfWeight = in.byte() * 4;
            log.lfItalic = in.byte() % 2;
            log.lfUnderline = in.byte() % 2;
            keep(CreateFontIndirectW(&log));
        }
    }

    void select()
    {
        const HDC dc = context();
        switch (in.byte() % 8)
        {
        case 0:
            SaveDC(dc);
            break;
        case 1:
            RestoreDC(dc, in.number() % 5);
            break;
        case 2:
            DeleteObject(object());
            break;
        case 3:
        {
            std::uint8_t buffer[200];
            GetObjectW(object(), in.byte() % 200, buffer);
            break;
        }
        default:
            SelectObject(dc, object());
        }
    }

    void setMode()
    {
        const HDC dc = context();
        const int mode = in.number() % 20;
        switch (in.byte() % 9)
        {
        case 0:
            SetROP2(dc, mode);
            break;
        case 1:
            SetPolyFillMode(dc, mode % 4);
            break;
        case 2:
            SetStretchBltMode(dc, mode % 6);
            break;
        case 3:
            SetBkMode(dc, mode % 4);
            break;
        case 4:
            SetBkColor(dc, color());
            break;
        case 5:
            SetTextColor(dc, color());
            break;
        case 6:
            SetTextAlign(dc, UINT(mode));
            break;
        case 7:
            SetBrushOrgEx(dc, in.number(), mode, nullptr);
            break;
        default:
            SetArcDirection(dc, mode % 4);
        }
    }

    void map()
    {
        const HDC dc = context();
        const int x = in.number(), y = in.number();
        switch (in.byte() % 11)
        {
        case 0:
            SetMapMode(dc, x % 10);
            break;
        case 1:
            SetWindowOrgEx(dc, x, y, nullptr);
            break;
        case 2:
            SetWindowExtEx(dc, x, y, nullptr);
            break;
        case 3:
            SetViewportOrgEx(dc, x, y, nullptr);
            break;
        case 4:
            SetViewportExtEx(dc, x, y, nullptr);
            break;
        case 5:
            SetGraphicsMode(dc, x % 4);
            break;
        case 6:
        {
            const XFORM m{in.real(), in.real(), in.real(), in.real(), in.real(), in.real()};
            SetWorldTransform(dc, &m);
            break;
        }
        case 7:
        {
            const XFORM m{in.real(), in.real(), in.real(), in.real(), in.real(), in.real()};
            ModifyWorldTransform(dc, &m, DWORD(x % 5));
            break;
        }
        case 8:
            ScaleViewportExtEx(dc, x, y, in.number(), in.number(), nullptr);
            break;
        case 9:
            OffsetViewportOrgEx(dc, x, y, nullptr);
            break;
        default:
        {
            POINT p[2] = {{x, y}, {y, x}};
            LPtoDP(dc, p, 2);
            DPtoLP(dc, p, 2);
        }
        }
    }

    void clip()
    {
        const HDC dc = context();
        RECT r = rect();
        switch (in.byte() % 9)
        {
        case 0:
            IntersectClipRect(dc, r.left, r.top, r.right, r.bottom);
            break;
        case 1:
            ExcludeClipRect(dc, r.left, r.top, r.right, r.bottom);
            break;
        case 2:
            SelectClipRgn(dc, nullptr);
            break;
        case 3:
            SelectClipRgn(dc, static_cast<HRGN>(object()));
            break;
        case 4:
            ExtSelectClipRgn(dc, static_cast<HRGN>(object()), in.byte() % 7);
            break;
        case 5:
            CombineRgn(static_cast<HRGN>(object()), static_cast<HRGN>(object()), static_cast<HRGN>(object()),
                       in.byte() % 7);
            break;
        case 6:
            OffsetRgn(static_cast<HRGN>(object()), r.left, r.top);
            OffsetClipRgn(dc, r.right, r.bottom);
            break;
        case 7:
            RectVisible(dc, &r);
            GetClipBox(dc, &r);
            break;
        default:
            SelectClipRgn(dc, nullptr);
        }
    }

    void copy()
    {
        const HDC to = context(), from = context();
        const RECT a = rect(), b = rect();
        switch (in.byte() % 3)
        {
        case 0:
            BitBlt(to, a.left, a.top, a.right, a.bottom, from, b.left, b.top, rop());
            break;
        case 1:
            StretchBlt(to, a.left, a.top, a.right, a.bottom, from, b.left, b.top, b.right, b.bottom, rop());
            break;
        default:
            PatBlt(to, a.left, a.top, a.right, a.bottom, rop());
        }
    }

    void exchange()
    {
        static constexpr int depths[] = {1, 4, 8, 16, 24, 32, 7, 0};
        const HDC dc = context();
        const int width = 1 + in.byte() % 60, height = 1 + in.byte() % 60, depth = depths[in.byte() % 8];
        Info i = info(width, in.byte() % 2 ? height : -height, depth);
        std::vector<std::uint32_t> bits(std::size_t(height) * std::size_t(width + 1));
        for (std::uint32_t& v : bits)
            v = in.empty() ? 0x10203040u : in.byte() * 0x01030507u;
        auto* const bmi = reinterpret_cast<BITMAPINFO*>(&i);
        const UINT start = in.byte() % 70, lines = in.byte() % 70;
        const RECT r = rect(), s = rect();
        const HBITMAP bitmap = static_cast<HBITMAP>(object());
        switch (in.byte() % 5)
        {
        case 0:
            GetDIBits(dc, bitmap, start, std::min<UINT>(lines, UINT(height)), bits.data(), bmi, DIB_RGB_COLORS);
            break;
        case 1:
            SetDIBits(dc, bitmap, start, std::min<UINT>(lines, UINT(height)), bits.data(), bmi, DIB_RGB_COLORS);
            break;
        case 2:
            StretchDIBits(dc, r.left, r.top, r.right, r.bottom, s.left, s.top, s.right, s.bottom, bits.data(), bmi,
                          DIB_RGB_COLORS, rop());
            break;
        case 3:
            SetDIBitsToDevice(dc, r.left, r.top, DWORD(r.right), DWORD(r.bottom), s.left, s.top, start,
                              std::min<UINT>(lines, UINT(height)), bits.data(), bmi, DIB_RGB_COLORS);
            break;
        default:
        {
            RGBQUAD table[4] = {{1, 2, 3, 0}, {4, 5, 6, 0}, {7, 8, 9, 0}, {255, 255, 255, 0}};
            SetDIBColorTable(dc, start * 4, 4, table);
            GetDIBColorTable(dc, start * 4, 4, table);
        }
        }
    }

    void draw()
    {
        const HDC dc = context();
        RECT r = rect();
        const std::vector<POINT> p = points();
        switch (in.byte() % 14)
        {
        case 0:
            MoveToEx(dc, r.left, r.top, nullptr);
            break;
        case 1:
            LineTo(dc, r.left, r.top);
            break;
        case 2:
            Polyline(dc, p.data(), int(p.size()));
            break;
        case 3:
            Polygon(dc, p.data(), int(p.size()));
            break;
        case 4:
            Rectangle(dc, r.left, r.top, r.right, r.bottom);
            break;
        case 5:
            Ellipse(dc, r.left, r.top, r.right, r.bottom);
            break;
        case 6:
            Arc(dc, r.left, r.top, r.right, r.bottom, in.number(), in.number(), in.number(), in.number());
            break;
        case 7:
            SetPixel(dc, r.left, r.top, color());
            GetPixel(dc, r.right, r.bottom);
            break;
        case 8:
            FillRect(dc, &r, static_cast<HBRUSH>(object()));
            FrameRect(dc, &r, static_cast<HBRUSH>(object()));
            break;
        case 9:
            DrawFrameControl(dc, &r, in.byte() % 6, UINT(in.number()));
            DrawEdge(dc, &r, in.byte() % 16, UINT(in.number()));
            break;
        case 10:
        {
            const std::wstring t = text();
            TextOutW(dc, r.left, r.top, t.c_str(), int(t.size()));
            break;
        }
        case 11:
        {
            const std::wstring t = text();
            DrawTextW(dc, t.c_str(), int(t.size()), &r, UINT(in.number()) & 0x7FFF);
            break;
        }
        case 12:
        {
            if (p.size() < 4)
                break;
            const int counts[] = {2, int(p.size()) - 2};
            PolyPolygon(dc, p.data(), counts, 2);
            break;
        }
        default:
            InvertRect(dc, &r);
            DrawFocusRect(dc, &r);
        }
    }

    CallBytes in;
    std::vector<HDC> contexts;
    std::vector<HGDIOBJ> objects;
};

inline void playCalls(const std::uint8_t* data, std::size_t size)
{
    CallPlayer(data, size).play();
}
