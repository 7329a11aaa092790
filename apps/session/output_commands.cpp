// Commands that print facts of images, view, cursor and window, and take pictures.
#include "apps/session/commands.h"
#include "apps/session/format.h"
#include "apps/session/player.h"
#include "apps/session/pointing.h"
#include "platform/win/screen.h"

#include <zlib.h>

#include <cstdio>

namespace kv::session
{

namespace
{
using namespace KvN;

std::string Pair(double x, double y)
{
    return Number(x) + "," + Number(y);
}

std::string NameOf(KvAOIBaseViewWnd& view)
{
    KvAOI* aoi = view.GetAOI();
    if (!aoi)
        return "none";
    return (aoi->GetUIName().Length() > 0 ? aoi->GetUIName() : aoi->GetAOIName()).Utf8();
}

std::string LutOf(KvAOIBaseViewWnd& view)
{
    return dynamic_cast<KvOLutContainer*>(view.GetAOI()) ? view.GetOutputLut().Utf8() : "none";
}

// The frame's place in the window that hosts it.
CRect FrameOf(KvAOIBaseViewWnd& view)
{
    CRect place;
    const CFrameWnd* frame = view.GetParentFrame();
    frame->GetWindowRect(&place);
    frame->GetParent()->ScreenToClient(&place);
    return place;
}

void PrintView(Player& player, const Arguments&)
{
    KvAOIBaseViewWnd& view = player.stage.View();
    const CRect frame = FrameOf(view);
    const KvTPoint<short> scroll = view.GetScrollPos();
    const KvTSize<short> needs = view.GetNecessaryOutputSize();
    player.Print("view zoom=" + Pair(view.GetZoomFactorX(), view.GetZoomFactorY()) +
                 " fit=" + Bit(view.IsAOIFittedToWindow()) + " default=" + Bit(view.IsDefaultOn()) +
                 " aspect=" + Bit(view.IsPixelAspectRatioMaintained()) + " frame=" + Pair(frame.left, frame.top) + "," +
                 Pair(frame.Width(), frame.Height()) + " scroll=" + Pair(scroll.x, scroll.y) +
                 " needs=" + Pair(needs.width, needs.height) + " image=" + NameOf(view) + " lut=" + LutOf(view));
}

void PrintCursor(Player& player, const Arguments&)
{
    const UINT id = CursorId(GetCursor());
    switch (id)
    {
    case 0:
        return player.Print("cursor none");
    case IDC_ARROW:
        return player.Print("cursor arrow");
    case IDC_CROSS:
        return player.Print("cursor cross");
    case IDC_SIZEALL:
        return player.Print("cursor size-all");
    case IDC_SIZEWE:
        return player.Print("cursor size-we");
    case IDC_SIZENS:
        return player.Print("cursor size-ns");
    case IDC_SIZENWSE:
        return player.Print("cursor size-nwse");
    case IDC_SIZENESW:
        return player.Print("cursor size-nesw");
    default:
        return player.Print("cursor " + std::to_string(id));
    }
}

void PrintEvents(Player& player, const Arguments&)
{
    const std::vector<std::string> events = player.stage.Current().TakeEvents();
    for (const std::string& event : events)
        player.Print(event);
    player.Print("events " + std::to_string(events.size()));
}

void PrintMask(Player& player, const Arguments& words)
{
    const KvAOI8& mask = player.images.Grey(words.Text(0));
    long bit7 = 0;
    long bit6 = 0;
    long other = 0;
    uLong crc = crc32(0, nullptr, 0);
    for (int y = 0; y < mask.AOIHeight(); ++y)
    {
        const unsigned char* row = mask.GetRowPointer(y);
        crc = crc32(crc, row, static_cast<uInt>(mask.AOIWidth()));
        for (int x = 0; x < mask.AOIWidth(); ++x)
        {
            bit7 += (row[x] & 0x80) != 0;
            bit6 += (row[x] & 0x40) != 0;
            other += (row[x] & 0x3F) != 0;
        }
    }
    char hex[9];
    std::snprintf(hex, sizeof hex, "%08lX", crc);
    player.Print("mask " + words.Text(0) + " " + std::to_string(mask.AOIWidth()) + " " +
                 std::to_string(mask.AOIHeight()) + " bit7=" + std::to_string(bit7) + " bit6=" + std::to_string(bit6) +
                 " other=" + std::to_string(other) + " crc=" + hex);
}

void PrintRows(Player& player, const Arguments& words)
{
    const KvAOI8& aoi = player.images.Grey(words.Text(0));
    const long left = words.Integer(1, 0, aoi.AOIWidth());
    const long top = words.Integer(2, 0, aoi.AOIHeight());
    const long width = words.Integer(3, 0, aoi.AOIWidth() - left);
    const long height = words.Integer(4, 0, aoi.AOIHeight() - top);
    for (long y = top; y < top + height; ++y)
    {
        std::string line;
        for (long x = left; x < left + width; ++x)
        {
            char hex[4];
            std::snprintf(hex, sizeof hex, "%02X", unsigned{aoi.GetRowPointer(static_cast<int>(y))[x]});
            line += (line.empty() ? "" : " ") + std::string(hex);
        }
        player.Print(line);
    }
}

void PrintPixel(Player& player, const Arguments& words)
{
    KvAOIBaseViewWnd& view = player.stage.View();
    const CPoint image(static_cast<int>(words.Integer(0)), static_cast<int>(words.Integer(1)));
    const CPoint client = ClientPoint(view, image);
    CRect shown;
    view.GetClientRect(&shown);
    if (!shown.PtInRect(client) || !view.IsWindowVisible())
        throw CommandError("pixel " + Pair(image.x, image.y) + " is not on the screen");
    char hex[7];
    std::snprintf(hex, sizeof hex, "%06X", kv::win::ShownPixel(view.m_hWnd, client) & 0xFFFFFFu);
    player.Print("pixel " + Pair(image.x, image.y) + " " + hex);
}

void PrintSay(Player& player, const Arguments& words)
{
    player.Print(words.Text(0));
}

HWND ShotOf(Player& player, const Arguments& words)
{
    if (words.Count() == 1)
        return player.stage.TopLevel().m_hWnd;
    if (words.Is(1, "view"))
        return player.stage.View().m_hWnd;
    if (words.Is(1, "host"))
        return player.stage.Host().m_hWnd;
    if (!words.Is(1, "dialog"))
        throw CommandError("\"" + words.Text(1) + "\" is nothing to take a picture of");
    if (!player.stage.Dialog())
        throw CommandError("no dialog is open");
    return player.stage.Dialog()->m_hWnd;
}

void Shot(Player& player, const Arguments& words)
{
    const HWND window = ShotOf(player, words);
    const std::string path = player.OutputFile(words.Text(0)).string();
    if (!kv::win::SavePicture(kv::win::PictureOf(window), path))
        throw CommandError("\"" + path + "\" can't be written");
}
} // namespace

void AddOutputCommands(CommandTable& table)
{
    table.Add("print view", 0, 0, PrintView);
    table.Add("print cursor", 0, 0, PrintCursor);
    table.Add("print events", 0, 0, PrintEvents);
    table.Add("print mask", 1, 1, PrintMask);
    table.Add("print rows", 5, 5, PrintRows);
    table.Add("print pixel", 2, 2, PrintPixel);
    table.Add("print say", 1, 1, PrintSay);
    table.Add("shot", 1, 2, Shot);
}

} // namespace kv::session
