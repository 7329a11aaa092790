// The menu of the mask: the two dialogs, and the mask's files.
#include "apps/workbench/Backgrounds.h"
#include "apps/workbench/Export.h"
#include "apps/workbench/Icons.h"
#include "apps/workbench/MainWindow.h"
#include "apps/workbench/MaskBits.h"
#include "apps/workbench/MaskDialogs.h"
#include "apps/workbench/Texts.h"
#include "contracts/image.h"

#include <QAction>
#include <QFile>
#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMenuBar>
#include <QMessageBox>
#include <QStatusBar>
#include <QToolBar>

namespace kv::workbench
{

void MainWindow::BuildMaskMenu()
{
    QMenu* menu = menuBar()->addMenu(Text(IDS_WB_MENU_MASK));
    toolBar->addSeparator();
    needImage << AddAction(menu, IDS_WB_MASK_PAINT, Qt::Key_F9, &MainWindow::PaintMask, Picture::Mask);
    needImage << AddAction(menu, IDS_WB_MASK_PAINT_OVER, Qt::SHIFT | Qt::Key_F9, &MainWindow::PaintMaskOverFolder);
    needImage << AddAction(menu, IDS_WB_MASK_FROM_CONTOURS, QKeySequence(), &MainWindow::TakeContoursMask);
    menu->addSeparator();
    needImage << AddAction(menu, IDS_WB_MASK_OPEN, QKeySequence(), &MainWindow::OpenMask);
    needImage << AddAction(menu, IDS_WB_MASK_SYSTEM, QKeySequence(), &MainWindow::LoadSystemMask);
    needMask << AddAction(menu, IDS_WB_MASK_SAVE, Qt::CTRL | Qt::ALT | Qt::Key_S, &MainWindow::SaveMaskCommand);
    needMask << AddAction(menu, IDS_WB_MASK_SAVE_AS, QKeySequence(), &MainWindow::SaveMaskAsCommand);
    menu->addSeparator();
    showMask = AddAction(menu, IDS_WB_MASK_SHOW, Qt::Key_F4, &MainWindow::ShowMask);
    showMask->setCheckable(true);
    needMask << showMask;
}

// ---- The mask that the window holds

void MainWindow::SetMask(std::unique_ptr<KvN::KvAOI8> newMask, bool modified)
{
    pane->ShowMask(nullptr);
    mask = std::move(newMask);
    maskShown = mask ? PaintedBits(*mask) : nullptr;
    maskModified = modified;
    if (modified)
        autosave.TouchMask(mask);
    else
        autosave.DiscardMask();
    ShowMask();
    UpdateModified();
    UpdateActions();
}

void MainWindow::ForgetMask()
{
    maskPath.clear();
    SetMask(nullptr, false);
}

// Takes what a crash left behind; an empty path means nothing. A file that is no mask of the image is told about and
// given up.
void MainWindow::RecoverMask(const QString& path)
{
    const auto read = path.isEmpty() ? nullptr : ReadMask(path);
    if (!read)
        return autosave.DiscardMask();
    auto recovered = EmptyMask(*image);
    TakeBits(static_cast<const KvN::KvAOI8&>(*read), 0xFF, *recovered);
    showMask->setChecked(true);
    SetMask(std::move(recovered), true);
}

// A copy of the mask to work on, or an empty one.
std::unique_ptr<KvN::KvAOI8> MainWindow::CopyOfMask() const
{
    auto copy = EmptyMask(*image);
    if (mask)
        TakeBits(*mask, 0xFF, *copy);
    return copy;
}

void MainWindow::ChangeMask(std::unique_ptr<KvN::KvAOI8> changed)
{
    if (mask ? AreEqual(*mask, *changed) : !HasBits(*changed, 0xFF))
        return;
    showMask->setChecked(true);
    SetMask(std::move(changed), true);
}

void MainWindow::ShowMask()
{
    pane->ShowMask(showMask->isChecked() ? maskShown.get() : nullptr);
}

// ---- The dialogs

// Whether the dialogs can run: on this image, with their settings.
bool MainWindow::MayPaint()
{
    if (!FitsMaskDialogs(*image))
    {
        QMessageBox::warning(this, Text(IDS_WB_APP),
                             Text(IDS_WB_ERROR_TOO_LARGE, image->AOIWidth(), image->AOIHeight(),
                                  largestDialogPixels / 1'000'000, longestDialogSide));
        return false;
    }
    const SettingsFault fault = FaultOfMaskSettings();
    return fault.text.isEmpty() || MendSettings(fault.text, fault.mendable);
}

// Tells what is wrong with the dialogs' settings. True if they are good now.
bool MainWindow::MendSettings(const QString& fault, bool mendable)
{
    if (!mendable)
    {
        QMessageBox::warning(this, Text(IDS_WB_APP), Text(IDS_WB_ERROR_SETTINGS, fault));
        return false;
    }
    return QMessageBox::warning(this, Text(IDS_WB_APP), Text(IDS_WB_ASK_RESET_SETTINGS, fault),
                                QMessageBox::Yes | QMessageBox::No) == QMessageBox::Yes &&
           QFile::remove(MaskSettingsFile());
}

// The mask that a dialog starts with; null if the operator doesn't want to start after all.
std::unique_ptr<KvN::KvAOI8> MainWindow::StartingMask()
{
    if ((mask && HasBits(*mask, userBit)) || pane->Count() == 0)
        return CopyOfMask();
    const auto answer = QMessageBox::question(this, Text(IDS_WB_APP), Text(IDS_WB_ASK_FROM_CONTOURS),
                                              QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel);
    if (answer == QMessageBox::Cancel)
        return nullptr;
    return answer == QMessageBox::Yes ? MaskWithContours() : CopyOfMask();
}

// The mask with the contours' mask in place of the user mask; null if that failed, which the operator was told.
std::unique_ptr<KvN::KvAOI8> MainWindow::MaskWithContours()
{
    Outcome outcome;
    const auto drawn = DrawContourMask(this, *image, pane->Contours(), outcome);
    if (!outcome.failure.isEmpty())
        QMessageBox::warning(this, Text(IDS_WB_APP), Text(IDS_WB_ERROR_MASK_DIALOG, outcome.failure));
    if (!drawn)
        return nullptr;
    auto changed = CopyOfMask();
    TakeBits(*drawn, userBit, *changed);
    return changed;
}

// Runs a dialog until it ends without a fault that the operator has mended.
void MainWindow::RunPainting(const std::function<DialogEnd(KvN::KvAOI8&)>& run)
{
    auto painted = StartingMask();
    if (!painted)
        return;
    DialogEnd end = run(*painted);
    while (end.badSettings && MendSettings(end.failure, true))
        end = run(*painted);
    if (!end.failure.isEmpty() && !end.badSettings)
        QMessageBox::warning(this, Text(IDS_WB_APP), Text(IDS_WB_ERROR_MASK_DIALOG, end.failure));
    if (end.accepted)
        ChangeMask(std::move(painted));
}

void MainWindow::PaintMask()
{
    if (MayPaint())
        RunPainting([this](KvN::KvAOI8& painted) { return RunMaskDialog(*pane, *image, painted); });
}

void MainWindow::PaintMaskOverFolder()
{
    Backgrounds others;
    if (!MayPaint() || !LoadBackgrounds(this, imagePath, *image, others).IsDone())
        return;
    RunPainting([&](KvN::KvAOI8& painted) { return RunOverlayMaskDialog(*pane, *image, others, painted); });
}

void MainWindow::TakeContoursMask()
{
    if (mask && HasBits(*mask, userBit) &&
        QMessageBox::question(this, Text(IDS_WB_APP), Text(IDS_WB_ASK_REPLACE_MASK)) != QMessageBox::Yes)
        return;
    if (auto changed = MaskWithContours())
        ChangeMask(std::move(changed));
}

// ---- Files

// An 8-bit image of the image's size; null if the file is none, which the operator is told.
std::unique_ptr<KvN::KvAOI> MainWindow::ReadMask(const QString& path)
{
    std::unique_ptr<KvN::KvAOI> read;
    QString why = FailureOf([&] { read = KvN::KvxLoadAOI(FromQt(path)); });
    if (read && !dynamic_cast<KvN::KvAOI8*>(read.get()))
        why = Text(IDS_WB_ERROR_MASK_DEPTH);
    else if (read && read->AOISize() != image->AOISize())
        why = Text(IDS_WB_ERROR_MASK_SIZE, read->AOIWidth(), read->AOIHeight(), image->AOIWidth(), image->AOIHeight());
    if (why.isEmpty())
        return read;
    TellFailure(IDS_WB_ERROR_OPEN, path, why);
    return nullptr;
}

QString MainWindow::AskForMask(unsigned short title)
{
    return QFileDialog::getOpenFileName(this, Text(title).remove('&'), QFileInfo(imagePath).path(),
                                        Text(IDS_WB_FILTER_IMAGES));
}

void MainWindow::OpenMask()
{
    const QString path = AskForMask(IDS_WB_MASK_OPEN);
    if (path.isEmpty() || !MayDiscardMask())
        return;
    const auto read = ReadMask(path);
    if (!read)
        return;
    auto opened = EmptyMask(*image);
    TakeBits(static_cast<const KvN::KvAOI8&>(*read), 0xFF, *opened);
    maskPath = MaskFileName(path) == path ? path : QString();
    showMask->setChecked(true);
    SetMask(std::move(opened), false);
}

void MainWindow::LoadSystemMask()
{
    const QString path = AskForMask(IDS_WB_MASK_SYSTEM);
    const auto read = path.isEmpty() ? nullptr : ReadMask(path);
    if (!read)
        return;
    auto changed = CopyOfMask();
    TakeSystemMask(static_cast<const KvN::KvAOI8&>(*read), *changed);
    ChangeMask(std::move(changed));
    statusBar()->showMessage(Text(IDS_WB_STATUS_SYSTEM_MASK, QFileInfo(path).fileName()), 5000);
}

bool MainWindow::SaveMaskTo(const QString& chosen)
{
    const QString path = MaskFileName(chosen);
    if (path.isEmpty())
    {
        TellFailure(IDS_WB_ERROR_SAVE, chosen, Text(IDS_WB_ERROR_MASK_FORMAT));
        return false;
    }
    const Outcome outcome = WriteMask(this, path, *mask);
    if (!outcome.failure.isEmpty())
        TellFailure(IDS_WB_ERROR_SAVE, path, outcome.failure);
    if (!outcome.IsDone())
        return false;
    maskPath = path;
    maskModified = false;
    autosave.DiscardMask();
    UpdateModified();
    statusBar()->showMessage(Text(IDS_WB_STATUS_SAVED, QFileInfo(path).fileName()), 5000);
    return true;
}

bool MainWindow::SaveMask()
{
    return maskPath.isEmpty() ? SaveMaskAs() : SaveMaskTo(maskPath);
}

bool MainWindow::SaveMaskAs()
{
    const QString proposed = maskPath.isEmpty() ? imagePath + ".mask.png" : maskPath;
    const QString path =
        QFileDialog::getSaveFileName(this, Text(IDS_WB_MASK_SAVE_AS).remove('&'), proposed, Text(IDS_WB_FILTER_MASK));
    return !path.isEmpty() && SaveMaskTo(path);
}

} // namespace kv::workbench
