// Commands of the host and of the view in it.
#include "apps/session/commands.h"
#include "apps/session/player.h"
#include "apps/session/switch.h"
#include "apps/session/view_content.h"

namespace kv::session
{

namespace
{
using namespace KvN;

constexpr long longestSide = 32767;

void Host(Player& player, const Arguments& words)
{
    player.stage.SizeHost(
        CSize(static_cast<int>(words.Integer(0, 1, longestSide)), static_cast<int>(words.Integer(1, 1, longestSide))));
}

// Of the open dialog, or of the host.
void Resize(Player& player, const Arguments& words)
{
    player.stage.TopLevel().SetWindowPos(nullptr, 0, 0, static_cast<int>(words.Integer(0, 1, longestSide)),
                                         static_cast<int>(words.Integer(1, 1, longestSide)),
                                         SWP_NOMOVE | SWP_NOZORDER | SWP_NOACTIVATE);
}

void View(Player& player, const Arguments& words)
{
    KvAOI& aoi = player.images.Get(words.Text(0));
    CWnd& host = player.stage.EmptyHost();
    auto content = std::make_unique<ViewContent>(host);
    KvAOIBaseViewWnd* view = content->Window()->GetAOIBaseViewWnd();
    player.stage.Fill(std::move(content));
    view->SetAOI(&aoi);
}

void Close(Player& player, const Arguments&)
{
    player.stage.Close();
}

void Aois(Player& player, const Arguments& words)
{
    KvTMem<KvAOI*> list(static_cast<unsigned>(words.Count()));
    for (unsigned i = 0; i < list.size; ++i)
        list[i] = &player.images.Get(words.Text(i));
    player.stage.View().SetAOIList(&list);
}

void Zoom(Player& player, const Arguments& words)
{
    const double x = words.Number(0);
    const double y = words.Count() == 2 ? words.Number(1) : x;
    KvAOIBaseViewWnd& view = player.stage.View();
    view.SetDefaultOff();
    if (words.Count() == 1)
        view.SetZoomFactor(x);
    else
        view.SetZoomFactor(x, y);
}

void DefaultZoom(Player& player, const Arguments& words)
{
    const double zoom = words.Number(0);
    player.stage.View().SetDefaultZoomFactor(zoom);
}

void DefaultFitted(Player& player, const Arguments& words)
{
    const bool on = words.ZeroOne(0);
    player.stage.View().SetDefaultFittedToWindow(on);
}

void DefaultAspect(Player& player, const Arguments& words)
{
    const bool on = words.ZeroOne(0);
    player.stage.View().SetDefaultAspectRatioMaintained(on);
}

void Scroll(Player& player, const Arguments& words)
{
    const KvTPoint<short> to(static_cast<short>(words.Integer(0, -32768, 32767)),
                             static_cast<short>(words.Integer(1, -32768, 32767)));
    player.stage.View().SetAOIPos(to);
}

void Shrink(Player& player, const Arguments& words)
{
    const auto reduction = static_cast<unsigned short>(words.Integer(0, 0, 65535));
    KvAOIBaseViewWnd& view = player.stage.View();
    view.SetShrink(reduction);
    view.InvalidateRect(nullptr);
}

void MemDC(Player& player, const Arguments& words)
{
    const bool on = words.OnOff(0);
    KvAOIBaseViewWnd& view = player.stage.View();
    view.UseMemDC() = on;
    view.InvalidateRect(nullptr);
}

void Show(Player& player, const Arguments& words)
{
    KvAOI* aoi = words.Is(0, "none") ? nullptr : &player.images.Get(words.Text(0));
    player.stage.View().SetAOI(aoi);
}

void Tool(Player& player, const Arguments& words)
{
    player.stage.Current().SetTool(words.Integer(0, 0, 65535));
}
} // namespace

ViewContent::ViewContent(CWnd& host)
{
    window.Create(&host);
}

ViewContent::~ViewContent()
{
    window.DestroyWindow();
}

void AddViewCommands(CommandTable& table)
{
    table.Add("host", 2, 2, Host);
    table.Add("resize", 2, 2, Resize);
    table.Add("view", 1, 1, View);
    table.Add("close", 0, 0, Close);
    table.Add("aois", 0, CommandTable::any, Aois);
    table.Add("zoom", 1, 2, Zoom);
    table.Add("default", 1, 1, Switch<&KvAOIBaseViewWnd::SetDefaultOn, &KvAOIBaseViewWnd::SetDefaultOff>);
    table.Add("default zoom", 1, 1, DefaultZoom);
    table.Add("default fitted", 1, 1, DefaultFitted);
    table.Add("default aspect", 1, 1, DefaultAspect);
    table.Add("fit", 1, 1, Switch<&KvAOIBaseViewWnd::FitAOIToWindowOn, &KvAOIBaseViewWnd::FitAOIToWindowOff>);
    table.Add("aspect", 1, 1,
              Switch<&KvAOIBaseViewWnd::MaintainPixelAspectRatioOn, &KvAOIBaseViewWnd::MaintainPixelAspectRatioOff>);
    table.Add("scroll", 2, 2, Scroll);
    table.Add("shrink", 1, 1, Shrink);
    table.Add("memdc", 1, 1, MemDC);
    table.Add("show", 1, 1, Show);
    table.Add("tool", 1, 1, Tool);
}

} // namespace kv::session
