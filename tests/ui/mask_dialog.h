// Mask dialogs of the tests: a configuration file, and an operator who acts while the dialog runs.
#pragma once

#include "C/uiMaskDlg.h"
#include "C/uiMaskDlgOverlay.h"
#include "tests/ui/mask_window.h"

#include <filesystem>
#include <functional>
#include <string>

namespace kv::test
{

// A configuration file in a folder of its own, which goes with this object.
class ConfigFile
{
public:
    explicit ConfigFile(const std::string& text = {}); // no file for an empty text
    ~ConfigFile();
    KvN::KvString Name() const { return KvN::KvString(path.string().c_str()); }
    std::string Text() const; // empty for a missing file
    bool Exists() const { return std::filesystem::exists(path); }

private:
    std::filesystem::path folder;
    std::filesystem::path path;
};

// Runs the dialog and calls `act` once while it runs; a dialog that is still open afterwards is cancelled.
INT_PTR RunDialog(CDialog& dialog, const std::function<void()>& act);

// Clicks the middle of a control, or a button of the toolbar that shows.
void ClickControl(const CWnd& dialog, int id);
void ClickTool(const KvN::KvMaskDlgBase& dialog, int id);
bool IsToolChecked(const KvN::KvMaskDlgBase& dialog, int id);
bool IsToolEnabled(const KvN::KvMaskDlgBase& dialog, int id);
bool IsControlEnabled(const CWnd& dialog, int id);
bool IsControlShown(const CWnd& dialog, int id);
bool IsControlChecked(const CWnd& dialog, int id);
double SpinValue(const CWnd& dialog, int id);
// A drag over the dialog's view, in AOI pixels.
void DragInDialog(KvN::KvMaskDlgBase& dialog, int x1, int y1, int x2, int y2);

// What a wrong key says.
struct KeyFailure
{
    std::string source;
    unsigned long line = 0;
    std::string key;
    std::string group;
    std::string file;
};
KeyFailure KeyFailureOf(const std::function<void()>& run);

} // namespace kv::test
