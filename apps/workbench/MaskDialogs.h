// The two mask dialogs as the workbench runs them. Everything of the window layer that they need stays behind this.
#pragma once

#include "apps/workbench/Backgrounds.h"

class QWidget;
namespace KvN
{
class KvAOI8;
} // namespace KvN

namespace kv::workbench
{

// The largest image that the dialogs take: they hold it several times over, with four bytes a pixel.
constexpr long long largestDialogPixels = 1LL << 26;
constexpr int longestDialogSide = 32764;
bool FitsMaskDialogs(const KvN::KvAOI& image);

// Where the dialogs keep their settings.
QString MaskSettingsFile();
// Why the settings can't be read or written; empty if they can. A file that isn't there can be.
struct SettingsFault
{
    QString text;
    bool mendable = false; // by a new file
};
SettingsFault FaultOfMaskSettings();

struct DialogEnd
{
    bool accepted = false;
    QString failure;          // why the dialog could not run
    bool badSettings = false; // that's the settings' fault
};

// Runs a dialog over the host's window. When it is accepted, bit 7 of the mask is what the operator painted, and after
// the overlay dialog bit 6 the system mask, unless the operator deleted it there. All other bits, and everything in all
// other cases, stay.
DialogEnd RunMaskDialog(QWidget& host, const KvN::KvAOI& image, KvN::KvAOI8& mask);
// The operator chooses between the image and the other backgrounds what is shown below the mask.
DialogEnd RunOverlayMaskDialog(QWidget& host, KvN::KvAOI& image, const Backgrounds& others, KvN::KvAOI8& mask);

} // namespace kv::workbench
