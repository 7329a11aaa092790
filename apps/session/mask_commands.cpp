// Commands of the mask windows and dialogs.
#include "apps/session/mask_commands.h"

#include "apps/session/commands.h"
#include "apps/session/format.h"
#include "apps/session/mask_content.h"
#include "apps/session/player.h"

namespace kv::session
{

namespace
{
using namespace KvN;

KvMaskWndBase& MaskOf(Player& player)
{
    auto* content = player.stage.As<MaskContent>();
    KvMaskWndBase* mask = content ? content->Mask() : nullptr;
    if (!mask)
        throw CommandError("the window is no mask window");
    return *mask;
}

template <class Wnd>
void MaskWindow(Player& player, const Arguments& words)
{
    const KvAOI& background = player.images.Get(words.Text(0));
    KvAOI8& mask = player.images.Grey(words.Text(1));
    CWnd& host = player.stage.EmptyHost();
    player.stage.Fill(std::make_unique<MaskWindowContent<Wnd>>(host, background, mask));
}

void LineWidth(Player& player, const Arguments& words)
{
    const auto width = static_cast<unsigned short>(words.Integer(0, 0, 65535));
    MaskOf(player).SetLineWidth(width);
}

void Accept(Player& player, const Arguments&)
{
    MaskOf(player).IntegrateFigure();
}

void Drop(Player& player, const Arguments&)
{
    MaskOf(player).DeleteFigure();
}

void Store(Player& player, const Arguments&)
{
    MaskOf(player).MaskToAOI();
}

std::string FigureText(const KvMaskWndBase& mask)
{
    if (!mask.IsInChangeMode())
        return "none";
    const KvTRectangle<short>& rect = mask.GetFigure().GetRect();
    return Number(rect.left) + "," + Number(rect.top) + "," + Number(rect.right) + "," + Number(rect.bottom);
}

void PrintMaskWindow(Player& player, const Arguments&)
{
    const KvMaskWndBase& mask = MaskOf(player);
    const bool overlay = dynamic_cast<const KvMaskWndOverlay*>(&mask);
    const int tool = overlay ? static_cast<unsigned short>(mask.SelectedTool()) : mask.SelectedTool();
    player.Print("maskwnd tool=" + Number(tool) + " drawing=" + Bit(mask.IsDrawing()) +
                 " placed=" + Bit(mask.IsInChangeMode()) + " open=" + Bit(mask.IsPolygonOpen()) +
                 " figure=" + FigureText(mask) + " marker=" + Number(mask.GetDragMarker()) +
                 " system=" + Bit(mask.IsSystemMaskShown()) + " width=" + Number(mask.GetLineWidth()));
}
} // namespace

void MaskContent::SetTool(long tool)
{
    Mask()->SelectTool(static_cast<int>(tool));
}

void AddMaskWindowCommands(CommandTable& table)
{
    table.Add("maskwnd", 2, 2, MaskWindow<KvMaskWnd>);
    table.Add("overlaywnd", 2, 2, MaskWindow<KvMaskWndOverlay>);
    table.Add("linewidth", 1, 1, LineWidth);
    table.Add("accept", 0, 0, Accept);
    table.Add("drop", 0, 0, Drop);
    table.Add("store", 0, 0, Store);
    table.Add("print maskwnd", 0, 0, PrintMaskWindow);
}

void AddMaskCommands(CommandTable& table)
{
    AddMaskWindowCommands(table);
    AddMaskDialogCommands(table);
    AddDialogControlCommands(table);
}

} // namespace kv::session
