// The dialogs paint in copies: a failure on their way leaves the workbench's mask alone.
#include "apps/workbench/MaskDialogs.h"

#include "C/uiMaskDlg.h"
#include "C/uiMaskDlgOverlay.h"
#include "apps/workbench/MaskBits.h"
#include "apps/workbench/Progress.h"
#include "apps/workbench/Settings.h"
#include "apps/workbench/Texts.h"
#include "platform/win/qt_host.h"

#include <QFileInfo>
#include <QSettings>
#include <QTemporaryFile>

#include <algorithm>
#include <functional>

namespace kv::workbench
{
namespace
{
using namespace KvN;

// The overlay dialog takes the rows of a mask to follow each other without padding, which skews a mask whose width is
// no multiple of four. It gets widened images and masks; what is added repeats the last column.
short EvenWidth(int width)
{
    return static_cast<short>((width + 3) / 4 * 4);
}

template <class Buffer, class AOI>
std::unique_ptr<KvAOI> Widened(const AOI& image)
{
    auto wide = std::make_unique<Buffer>(KvTSize<short>(EvenWidth(image.AOIWidth()), image.AOIHeight()));
    for (int y = 0; y < image.AOIHeight(); ++y)
    {
        const auto* from = image.GetRowPointer(y);
        auto* to = wide->GetRowPointer(y);
        std::copy(from, from + image.AOIWidth(), to);
        std::fill(to + image.AOIWidth(), to + wide->AOIWidth(), from[image.AOIWidth() - 1]);
    }
    return wide;
}

// Null for an image that has the right width.
std::unique_ptr<KvAOI> WidenedIfNeeded(const KvAOI& image)
{
    if (image.AOIWidth() == EvenWidth(image.AOIWidth()))
        return nullptr;
    std::unique_ptr<KvAOI> wide;
    if (const auto* grey = dynamic_cast<const KvAOI8*>(&image))
        wide = Widened<KvBufferAOI8>(*grey);
    else if (const auto* number = dynamic_cast<const KvAOI32Float*>(&image))
        wide = Widened<KvBufferAOI32Float>(*number);
    else
        wide = Widened<KvBufferAOI32Color>(dynamic_cast<const KvAOI32Color&>(image));
    wide->SetAOIName(image.GetAOIName());
    wide->SetUIName(image.GetUIName());
    if (image.aoiInfo)
        wide->SetAOIInfo(new KvAOIInfo(*image.aoiInfo));
    if (const auto* container = dynamic_cast<const KvOLutContainer*>(&image))
        dynamic_cast<KvOLutContainer&>(*wide).TakeOLut(container->GetOLut());
    return wide;
}

// `run` starts the dialog and answers its result.
DialogEnd Run(const std::function<INT_PTR()>& run)
{
    DialogEnd end;
    end.failure = FailureOf(
        [&]
        {
            try
            {
                end.accepted = run() == IDOK;
            }
            catch (KvReadKeywordException*)
            {
                end.badSettings = true;
                throw;
            }
        });
    return end;
}

// The settings class tells of damage only at the first reading of a file, so it reads a copy.
bool IsDamaged(const QString& path)
{
    QFile original(path);
    QTemporaryFile copy;
    if (!original.open(QIODevice::ReadOnly) || !copy.open())
        return false;
    copy.write(original.readAll());
    copy.close();
    const QSettings settings(copy.fileName(), QSettings::IniFormat);
    static_cast<void>(settings.allKeys());
    return settings.status() == QSettings::FormatError;
}

CWnd* ParentOf(QWidget& host)
{
    return CWnd::FromHandle(kv::win::HostWindow(&host));
}
} // namespace

bool FitsMaskDialogs(const KvAOI& image)
{
    return image.AOIWidth() <= longestDialogSide && image.AOIHeight() <= longestDialogSide &&
           static_cast<long long>(image.AOIWidth()) * image.AOIHeight() <= largestDialogPixels;
}

QString MaskSettingsFile()
{
    return Settings::Folder() + "/masks.ini";
}

SettingsFault FaultOfMaskSettings()
{
    const QFileInfo file(MaskSettingsFile());
    if (file.exists() && (!file.isFile() || !file.isReadable()))
        return {Text(IDS_WB_SETTINGS_UNREADABLE, file.filePath()), false};
    if (IsDamaged(file.filePath()))
        return {Text(IDS_WB_SETTINGS_BROKEN, file.filePath()), true};
    if (!QSettings(file.filePath(), QSettings::IniFormat).isWritable())
        return {Text(IDS_WB_SETTINGS_UNWRITABLE, file.filePath()), false};
    return {};
}

DialogEnd RunMaskDialog(QWidget& host, const KvAOI& image, KvAOI8& mask)
{
    const auto painted = PaintedBits(mask);
    KvMaskDlg dialog(ParentOf(host));
    dialog.Init(FromQt(MaskSettingsFile()), &image, painted.get());
    DialogEnd end = Run([&] { return dialog.DoModal(); });
    if (end.accepted)
        TakeBits(*painted, userBit, mask);
    return end;
}

DialogEnd RunOverlayMaskDialog(QWidget& host, KvAOI& image, const Backgrounds& others, KvAOI8& mask)
{
    std::unique_ptr<KvAOI8> painted = PaintedBits(mask);
    if (auto wide = WidenedIfNeeded(*painted))
        painted.reset(static_cast<KvAOI8*>(wide.release()));
    std::vector<std::unique_ptr<KvAOI>> wides; // owns what had to be widened
    const auto fitting = [&wides](KvAOI& background)
    {
        wides.push_back(WidenedIfNeeded(background));
        return wides.back() ? wides.back().get() : &background;
    };
    KvMaskDlgOverlay dialog(ParentOf(host), IDD_MASK_OVERLAY, IDR_MASK_OVERLAY_INCLUDE, IDR_MASK_OVERLAY_EXCLUDE);
    for (const auto& background : others.before)
        dialog.AddAOI(fitting(*background));
    KvAOI* const shown = fitting(image);
    dialog.AddAOI(shown);
    for (const auto& background : others.behind)
        dialog.AddAOI(fitting(*background));
    DialogEnd end = Run(
        [&]
        {
            dialog.Init(FromQt(MaskSettingsFile()), shown, painted.get());
            return dialog.DoModal();
        });
    if (!end.accepted)
        return end;
    // Required of the dialog: it gives a deleted system mask back all the same.
    if (dialog.IsSystemMaskDeleted())
        ClearBits(systemBit, *painted);
    TakeBits(*painted, userBit | systemBit, mask);
    return end;
}

} // namespace kv::workbench
