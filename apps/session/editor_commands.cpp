// Commands of the contour editor.
#include "C/syContourXMLExport.h"
#include "C/syContourXMLImport.h"
#include "apps/session/commands.h"
#include "apps/session/editor_content.h"
#include "apps/session/format.h"
#include "apps/session/player.h"

#include <filesystem>
#include <limits>

namespace kv::session
{

namespace
{
using namespace KvN;

constexpr long widest = std::numeric_limits<unsigned short>::max();

EditorContent& ContentOf(Player& player)
{
    auto* content = player.stage.As<EditorContent>();
    if (!content)
        throw CommandError("the window is no contour editor");
    return *content;
}

SessionEditor& EditorOf(Player& player)
{
    return ContentOf(player).Editor();
}

void Editor(Player& player, const Arguments& words)
{
    KvAOI& aoi = player.images.Get(words.Text(0));
    CWnd& host = player.stage.EmptyHost();
    auto content = std::make_unique<EditorContent>(host);
    SessionEditor& editor = content->Editor();
    player.stage.Fill(std::move(content));
    editor.Init(&aoi);
    editor.SetHandler();
}

// ---- Options

using SetNumber = void (KvContourWnd::*)(unsigned short);
using SetColour = void (KvContourWnd::*)(unsigned long);
using SetFlag = void (KvContourWnd::*)();

Command::Run Number(SetNumber set)
{
    return [set](Player& player, const Arguments& words)
    {
        const auto number = static_cast<unsigned short>(words.Integer(0, 0, widest));
        (EditorOf(player).*set)(number);
    };
}

Command::Run ColourOption(SetColour set)
{
    return [set](Player& player, const Arguments& words)
    {
        const COLORREF color = words.Colour(0);
        (EditorOf(player).*set)(color);
    };
}

Command::Run Flag(SetFlag on, SetFlag off)
{
    return [on, off](Player& player, const Arguments& words) { (EditorOf(player).*(words.OnOff(0) ? on : off))(); };
}

void CursorRequest(Player& player, const Arguments& words)
{
    ContentOf(player).RequestCursors(words.OnOff(0));
}

// ---- Contours

void Marker(Player& player, const Arguments& words)
{
    SessionEditor& editor = EditorOf(player);
    const auto id = static_cast<int>(words.Integer(0));
    const auto position = static_cast<int>(words.Integer(2));
    int width = 0;
    COLORREF color = CLR_INVALID;
    for (size_t i = 3; i < words.Count(); ++i)
    {
        const auto [key, value] = words.KeyValue(i);
        if (key == "width")
            width = static_cast<int>(value.Integer(0, 1, widest));
        else if (key == "color")
            color = value.Colour(0);
        else
            throw CommandError("\"" + key + "\" is nothing that a marker has");
    }
    KvSymbolMarker* marker = editor.GetSymbolMarkerList().AddMarker(id, KvString(words.Text(1).c_str()));
    marker->IndexPosition() = position;
    if (width > 0)
        marker->Width() = width;
    if (color != CLR_INVALID)
        marker->Color() = color;
    player.stage.View().InvalidateRect(nullptr, FALSE);
}

void Select(Player& player, const Arguments& words)
{
    EditorOf(player).SelectContour(words.Integer(0));
}

void Undo(Player& player, const Arguments&)
{
    EditorOf(player).Undo();
}

void Redo(Player& player, const Arguments&)
{
    EditorOf(player).Redo();
}

void Load(Player& player, const Arguments& words)
{
    SessionEditor& editor = EditorOf(player);
    const std::filesystem::path path = player.InputFile(words.Text(0));
    if (!std::filesystem::is_regular_file(path))
        throw CommandError("\"" + path.string() + "\" can't be read");
    KvTList<KvContour> read;
    KvContourXMLImport().Execute(KvString(path.string().c_str()), read);
    KvTPList<KvContour> list;
    list.SetClearFunction(&KvContour::ClrFunc);
    for (auto* node = read.head; node; node = node->next)
        list.AddEntry(new KvContour(node->value));
    editor.SetContourList(list);
}

void Save(Player& player, const Arguments& words)
{
    const KvTPList<KvContour>& contours = *EditorOf(player).GetContourList();
    KvTList<KvContour> list;
    for (unsigned long i = 0; i < contours.NumEntries(); ++i)
        list.AddTail(*contours.GetEntry(i));
    const std::filesystem::path path = player.OutputFile(words.Text(0));
    KvContourXMLExport().Execute(KvString(path.string().c_str()), list);
    if (!std::filesystem::exists(path))
        throw CommandError("\"" + path.string() + "\" can't be written");
}

// ---- Facts

std::string IdText(long id)
{
    return id == -1 ? "none" : std::to_string(id);
}

std::string TextOf(const KvContour& contour)
{
    std::string text =
        "contour " + IdText(contour.ID()) + " seq=" + IdText(contour.SequenceID()) +
        " type=" + std::to_string(contour.ContourType()) + " exclude=" + Bit(contour.Exclude() != 0) +
        " readonly=" + Bit(contour.ReadOnly() != 0) + " angle=" + session::Number(contour.Angle()) +
        " width=" + (contour.LineWidth() == KvContour::NoLineWidth ? "none" : session::Number(contour.LineWidth())) +
        " color=" + (contour.Color() == KvContour::NoColor ? "none" : Colour(contour.Color())) +
        " text=" + Quoted(contour.Description().Utf8()) + " points=";
    for (auto* node = contour.CurvePositions().head; node; node = node->next)
        text += "(" + session::Number(node->value.x) + "," + session::Number(node->value.y) + ")";
    return text;
}

void PrintContours(Player& player, const Arguments&)
{
    const KvTPList<KvContour>& contours = *EditorOf(player).GetContourList();
    for (unsigned long i = 0; i < contours.NumEntries(); ++i)
        player.Print(TextOf(*contours.GetEntry(i)));
}

void PrintEditor(Player& player, const Arguments&)
{
    const SessionEditor& editor = EditorOf(player);
    const KvContour& figure = editor.Figure();
    player.Print("editor tool=" + std::to_string(editor.GetTool()) + " mode=" + std::to_string(editor.EditMode()) +
                 " active=" + Bit(editor.IsFigureActive() != 0) + " selected=" + IdText(editor.SelectedID()) +
                 " editing=" + Bit(editor.IsEditing() != 0) + " figure=" + std::to_string(figure.ContourType()) + ":" +
                 std::to_string(figure.CurvePositions().count) + " undo=" + Bit(editor.CanUndo() != 0) +
                 " redo=" + Bit(editor.CanRedo() != 0));
}
} // namespace

void AddEditorCommands(CommandTable& table)
{
    using Wnd = KvContourWnd;
    table.Add("editor", 1, 1, Editor);
    table.Add("set catch-size", 1, 1, Number(&Wnd::SetCatchSize));
    table.Add("set thumb-size", 1, 1, Number(&Wnd::SetThumbSize));
    table.Add("set line-width", 1, 1, Number(&Wnd::SetLineWidth));
    table.Add("set line-width-thumb", 1, 1, Number(&Wnd::SetLineWidthThumb));
    table.Add("set polyline-width", 1, 1, Number(&Wnd::SetPolylineWidth));
    table.Add("set color", 1, 1, ColourOption(&Wnd::SetColor));
    table.Add("set color-excluded", 1, 1, ColourOption(&Wnd::SetColorExcluded));
    table.Add("set delete", 1, 1, Flag(&Wnd::SetEnableDeleteOn, &Wnd::SetEnableDeleteOff));
    table.Add("set invert", 1, 1, Flag(&Wnd::SetEnableInvertOn, &Wnd::SetEnableInvertOff));
    table.Add("set interaction", 1, 1, Flag(&Wnd::SetInteractionOn, &Wnd::SetInteractionOff));
    table.Add("set thumbs", 1, 1, Flag(&Wnd::SetShowThumbsOn, &Wnd::SetShowThumbsOff));
    table.Add("set direction", 1, 1, Flag(&Wnd::SetShowPolylineDirectionOn, &Wnd::SetShowPolylineDirectionOff));
    table.Add("set use-polyline-width", 1, 1, Flag(&Wnd::SetUsePolylineWidthOn, &Wnd::SetUsePolylineWidthOff));
    table.Add("set cursor-request", 1, 1, CursorRequest);
    table.Add("marker", 3, 5, Marker);
    table.Add("select", 1, 1, Select);
    table.Add("undo", 0, 0, Undo);
    table.Add("redo", 0, 0, Redo);
    table.Add("load", 1, 1, Load);
    table.Add("save", 1, 1, Save);
    table.Add("print contours", 0, 0, PrintContours);
    table.Add("print editor", 0, 0, PrintEditor);
}

} // namespace kv::session
