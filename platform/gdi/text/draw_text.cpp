// DrawText: lines inside a rectangle.
#include "platform/gdi/dc.h"
#include "platform/gdi/gdi.h"
#include "platform/gdi/raster/rect.h"

#include <algorithm>
#include <cwchar>
#include <string>
#include <vector>

using namespace kv::gdi;

namespace
{

// A mnemonic's character is underlined; `mark` is its place in the line, or none.
struct Line
{
    std::wstring text;
    std::size_t mark = std::wstring::npos;
    int width = 0;
};

int widthOf(HDC dc, const std::wstring& text)
{
    SIZE size{};
    GetTextExtentPoint32W(dc, text.c_str(), int(text.size()), &size);
    return size.cx;
}

// Takes single ampersands out of a text; double ones stand for one.
Line withoutPrefixes(const std::wstring& text, UINT format)
{
    Line line;
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        if (text[i] == L'&' && !(format & DT_NOPREFIX) && i + 1 < text.size())
        {
            ++i;
            if (text[i] != L'&')
                line.mark = line.text.size();
        }
        line.text += text[i];
    }
    if (format & DT_HIDEPREFIX)
        line.mark = std::wstring::npos;
    return line;
}

std::wstring withTabs(const std::wstring& text, UINT format)
{
    if (!(format & DT_EXPANDTABS))
        return text;
    std::wstring out;
    for (const wchar_t c : text)
        if (c == L'\t')
            out.append(8 - out.size() % 8, L' ');
        else
            out += c;
    return out;
}

std::vector<std::wstring> paragraphs(const std::wstring& text, UINT format)
{
    std::vector<std::wstring> result(1);
    for (std::size_t i = 0; i < text.size(); ++i)
    {
        const bool breaks = (text[i] == L'\n' || text[i] == L'\r') && !(format & DT_SINGLELINE);
        if (!breaks)
        {
            result.back() += text[i];
            continue;
        }
        if (text[i] == L'\r' && i + 1 < text.size() && text[i + 1] == L'\n')
            ++i;
        result.emplace_back();
    }
    return result;
}

// Breaks at blanks; a word that is too wide alone stays whole.
std::vector<std::wstring> wrapped(HDC dc, const std::wstring& text, int width)
{
    std::vector<std::wstring> lines;
    std::wstring line;
    for (std::size_t i = 0; i < text.size();)
    {
        const std::size_t blanks = std::min(text.find_first_not_of(L' ', i), text.size());
        const std::size_t end = std::min(text.find(L' ', blanks), text.size());
        const std::wstring longer = line + text.substr(i, end - i);
        if (!line.empty() && widthOf(dc, longer) > width)
        {
            lines.push_back(line);
            line = text.substr(blanks, end - blanks);
        }
        else
            line = longer;
        i = end;
    }
    lines.push_back(line);
    return lines;
}

void shorten(HDC dc, Line& line, int width)
{
    if (line.width <= width)
        return;
    std::wstring text = line.text;
    while (!text.empty() && widthOf(dc, text + L"...") > width)
        text.pop_back();
    line.text = text + L"...";
    line.width = widthOf(dc, line.text);
    if (line.mark >= text.size())
        line.mark = std::wstring::npos;
}

std::vector<Line> layOut(HDC dc, const std::wstring& text, int width, UINT format)
{
    std::vector<Line> lines;
    for (const std::wstring& paragraph : paragraphs(text, format))
    {
        const std::wstring expanded = withTabs(paragraph, format);
        const bool wraps = (format & DT_WORDBREAK) && !(format & DT_SINGLELINE);
        for (const std::wstring& piece : wraps ? wrapped(dc, expanded, width) : std::vector{expanded})
        {
            Line line = withoutPrefixes(piece, format);
            line.width = widthOf(dc, line.text);
            if (format & DT_END_ELLIPSIS)
                shorten(dc, line, width);
            lines.push_back(line);
        }
    }
    return lines;
}

void drawMark(HDC dc, const Line& line, int x, int y, int ascent)
{
    const int from = widthOf(dc, line.text.substr(0, line.mark)), to = widthOf(dc, line.text.substr(0, line.mark + 1));
    const HBRUSH brush = CreateSolidBrush(GetTextColor(dc));
    const RECT rule{x + from, y + ascent + 1, x + to, y + ascent + 2};
    FillRect(dc, &rule, brush);
    DeleteObject(brush);
}

} // namespace

int DrawTextW(HDC dc, LPCWSTR text, int count, RECT* rect, UINT format)
{
    TEXTMETRICW metrics{};
    if (!text || !rect || count < -1 || !GetTextMetricsW(dc, &metrics))
        return 0;
    const std::wstring all(text, count == -1 ? std::wcslen(text) : std::size_t(count));
    const RECT box = kv::raster::limited(*rect);
    const int width = std::max(0, box.right - box.left);
    const std::vector<Line> lines = layOut(dc, all, width, format);
    const int step = metrics.tmHeight + (format & DT_EXTERNALLEADING ? metrics.tmExternalLeading : 0);
    const int height = int(std::min<std::size_t>(std::size_t(std::max(step, 0)) * lines.size(), 1 << 28));
    int top = box.top;
    if (format & DT_SINGLELINE)
    {
        const int room = box.bottom - box.top - height;
        if (format & DT_BOTTOM)
            top = box.top + room;
        else if (format & DT_VCENTER)
            top = box.top + room / 2;
    }
    int widest = 0;
    for (const Line& line : lines)
        widest = std::max(widest, line.width);
    if (format & DT_CALCRECT)
    {
        rect->right = box.left + widest;
        if (!(format & DT_SINGLELINE) || !(format & (DT_BOTTOM | DT_VCENTER)))
            rect->bottom = box.top + height;
        return height;
    }

    const int saved = SaveDC(dc);
    SetTextAlign(dc, TA_LEFT | TA_TOP);
    if (!(format & DT_NOCLIP))
        IntersectClipRect(dc, box.left, box.top, box.right, box.bottom);
    int y = top;
    for (const Line& line : lines)
    {
        const int room = width - line.width;
        const int x = box.left + (format & DT_CENTER ? room / 2 : format & DT_RIGHT ? room : 0);
        TextOutW(dc, x, y, line.text.c_str(), int(line.text.size()));
        if (line.mark != std::wstring::npos)
            drawMark(dc, line, x, y, metrics.tmAscent);
        y += step;
    }
    RestoreDC(dc, saved);
    return top + height - box.top;
}
