// Commands that run the mask dialogs, and what they say about the dialog and its configuration.
#include "apps/session/commands.h"
#include "apps/session/format.h"
#include "apps/session/mask_commands.h"
#include "apps/session/mask_content.h"
#include "apps/session/player.h"

#include <fstream>
#include <map>

namespace kv::session
{

namespace
{
using namespace KvN;

// The dialog's window is the session's window as long as this lives.
class OpenDialog
{
public:
    OpenDialog(Stage& stage_, KvMaskDlgBase& dialog) : stage(stage_), content(dialog)
    {
        stage.SetDialog(&dialog, &content);
    }
    ~OpenDialog() { stage.SetDialog(nullptr, nullptr); }
    OpenDialog(const OpenDialog&) = delete;
    OpenDialog& operator=(const OpenDialog&) = delete;

private:
    Stage& stage;
    MaskDialogContent content;
};

// Where the configuration is: in the output folder, to which one that comes with the session is copied first.
KvString Configuration(const Player& player, const std::string& name)
{
    const std::filesystem::path file = player.OutputFile(name).lexically_normal();
    const std::filesystem::path given = player.InputFile(name);
    if (!std::filesystem::exists(file) && std::filesystem::exists(given))
        std::filesystem::copy_file(given, file);
    return KvString(file.string().c_str());
}

// Runs the dialog; the commands that follow act in it until it closes.
void Run(Player& player, KvMaskDlgBase& dialog)
{
    auto& state = player.Get<DialogState>();
    const OpenDialog open(player.stage, dialog);
    state.result = "cancel"; // also where the start fails
    if (dialog.DoModal() == IDOK)
        state.result = "ok";
}

CWnd* ParentOf(const Player& player)
{
    try
    {
        return &player.stage.Host();
    }
    catch (const CommandError&)
    {
        return nullptr;
    }
}

void MaskDialog(Player& player, const Arguments& words)
{
    const KvAOI& background = player.images.Get(words.Text(0));
    KvAOI8& mask = player.images.Grey(words.Text(1));
    PlayedDialog<KvMaskDlg> dialog(player.Get<DialogState>(), ParentOf(player));
    dialog.Init(Configuration(player, words.Text(2)), &background, &mask, 0);
    Run(player, dialog);
}

// ---- The overlay dialog's settings

struct Settings
{
    bool segment = false;
    bool object = false;
};

using Setting = void (*)(KvMaskDlgOverlay&, Settings&, const Arguments&);

void SetDefect(KvMaskDlgOverlay& dialog, COLORREF color)
{
    unsigned long defect = 0;
    unsigned long surround = 0;
    dialog.GetColors(defect, surround);
    dialog.SetColors(color, surround);
}

void SetSurround(KvMaskDlgOverlay& dialog, COLORREF color)
{
    unsigned long defect = 0;
    unsigned long surround = 0;
    dialog.GetColors(defect, surround);
    dialog.SetColors(defect, color);
}

const std::map<std::string, Setting>& SettingsTable()
{
    static const std::map<std::string, Setting> table = {
        {"surrounding", [](KvMaskDlgOverlay& d, Settings&, const Arguments& v)
         { v.ZeroOne(0) ? d.SetShowSurroundingOn() : d.SetShowSurroundingOff(); }},
        {"system", [](KvMaskDlgOverlay& d, Settings&, const Arguments& v)
         { v.ZeroOne(0) ? d.SetShowSystemMaskOn() : d.SetShowSystemMaskOff(); }},
        {"segment", [](KvMaskDlgOverlay&, Settings& s, const Arguments& v) { s.segment = v.ZeroOne(0); }},
        {"object", [](KvMaskDlgOverlay&, Settings& s, const Arguments& v) { s.object = v.ZeroOne(0); }},
        {"width", [](KvMaskDlgOverlay& d, Settings&, const Arguments& v)
         { d.SetExternalLineWidth(static_cast<unsigned short>(v.Integer(0, 0, 65535))); }},
        {"defect", [](KvMaskDlgOverlay& d, Settings&, const Arguments& v) { SetDefect(d, v.Colour(0)); }},
        {"surround", [](KvMaskDlgOverlay& d, Settings&, const Arguments& v) { SetSurround(d, v.Colour(0)); }},
        {"lut", [](KvMaskDlgOverlay& d, Settings&, const Arguments& v) { d.SetOLutName(v.Text(0).c_str()); }},
        {"fitted",
         [](KvMaskDlgOverlay& d, Settings&, const Arguments& v) { d.SetDefaultFittedToWindow(v.ZeroOne(0)); }},
        {"aspect",
         [](KvMaskDlgOverlay& d, Settings&, const Arguments& v) { d.SetDefaultAspectRatioMaintained(v.ZeroOne(0)); }},
        {"zoom", [](KvMaskDlgOverlay& d, Settings&, const Arguments& v) { d.SetDefaultZoomFactor(v.Number(0)); }}};
    return table;
}

void Apply(KvMaskDlgOverlay& dialog, const Arguments& words, size_t from)
{
    Settings settings;
    for (size_t i = from; i < words.Count(); ++i)
    {
        const auto [key, value] = words.KeyValue(i);
        const auto found = SettingsTable().find(key);
        if (found == SettingsTable().end())
            throw CommandError("\"" + key + "\" is no setting of the dialog");
        found->second(dialog, settings, value);
    }
    if (settings.segment)
        dialog.ActivateSegment(settings.object);
    else
        dialog.DeactivateSegment(settings.object);
}

void OverlayDialog(Player& player, const Arguments& words)
{
    const KvAOI& background = player.images.Get(words.Text(0));
    KvAOI8& mask = player.images.Grey(words.Text(1));
    PlayedDialog<KvMaskDlgOverlay> dialog(player.Get<DialogState>(), ParentOf(player), unsigned{IDD_MASK_OVERLAY},
                                          unsigned{IDR_MASK_OVERLAY_INCLUDE}, unsigned{IDR_MASK_OVERLAY_EXCLUDE});
    size_t i = 3;
    for (; i < words.Count() && !words.Is(i, "with"); ++i)
        dialog.AddAOI(&player.images.Get(words.Text(i)));
    Apply(dialog, words, i + 1);
    dialog.Init(Configuration(player, words.Text(2)), &background, &mask);
    Run(player, dialog);
}

// ---- Output

void PrintDialog(Player& player, const Arguments&)
{
    DialogState state = player.Get<DialogState>();
    if (const CWnd* dialog = player.stage.Dialog())
    {
        state.Look(*dialog);
        state.result = "open";
    }
    if (state.result.empty())
        throw CommandError("there was no dialog");
    player.Print("dialog " + state.result + " title=" + Quoted(state.title) + " client=" + Number(state.client.cx) +
                 "," + Number(state.client.cy));
}

// The keys of the group "Mask" of an INI file.
std::map<std::string, std::string> MaskKeys(const std::filesystem::path& path)
{
    std::map<std::string, std::string> keys;
    std::ifstream file(path);
    bool inGroup = false;
    for (std::string line; std::getline(file, line);)
    {
        if (!line.empty() && line.back() == '\r')
            line.pop_back();
        const size_t equals = line.find('=');
        if (line.starts_with('['))
            inGroup = line == "[Mask]";
        else if (inGroup && equals != std::string::npos && !line.starts_with(';'))
            keys[line.substr(0, equals)] = line.substr(equals + 1);
    }
    return keys;
}

void PrintConfig(Player& player, const Arguments& words)
{
    for (const auto& [key, value] : MaskKeys(player.InputFile(words.Text(0))))
        player.Print(key + "=" + value);
}
} // namespace

void DialogState::Look(const CWnd& dialog)
{
    CString text;
    dialog.GetWindowText(text);
    title = text.Utf8();
    CRect area;
    dialog.GetClientRect(&area);
    client = area.Size();
}

void AddMaskDialogCommands(CommandTable& table)
{
    table.Add("maskdlg", 3, 3, MaskDialog);
    table.Add("overlaydlg", 3, CommandTable::any, OverlayDialog);
    table.Add("print dialog", 0, 0, PrintDialog);
    table.Add("print config", 1, 1, PrintConfig);
}

} // namespace kv::session
