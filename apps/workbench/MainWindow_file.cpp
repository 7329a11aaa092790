// Files: images, contours, exports.
#include "apps/workbench/ContourFile.h"
#include "apps/workbench/Export.h"
#include "apps/workbench/ImageFolder.h"
#include "apps/workbench/MainWindow.h"
#include "apps/workbench/Settings.h"
#include "apps/workbench/Texts.h"
#include "contracts/basics.h"
#include "contracts/image.h"

#include <QFileDialog>
#include <QFileInfo>
#include <QMenu>
#include <QMessageBox>
#include <QStatusBar>

namespace kv::workbench
{
void MainWindow::TellFailure(unsigned short text, const QString& path, const QString& why)
{
    QMessageBox::warning(this, Text(IDS_WB_APP), Text(text, QFileInfo(path).fileName(), why));
}

void MainWindow::TellSkipped(const QString& path, const QStringList& skipped)
{
    constexpr qsizetype shown = 12;
    QStringList lines = skipped.mid(0, shown);
    if (skipped.size() > shown)
        lines << Text(IDS_WB_SKIPPED_MORE, skipped.size() - shown);
    if (!lines.isEmpty())
        QMessageBox::warning(this, Text(IDS_WB_APP),
                             Text(IDS_WB_WARN_SKIPPED, QFileInfo(path).fileName(), lines.join("\n")));
}

void MainWindow::Open()
{
    const QString path = QFileDialog::getOpenFileName(this, Text(IDS_WB_OPEN).remove('&'), QFileInfo(imagePath).path(),
                                                      Text(IDS_WB_FILTER_IMAGES));
    if (!path.isEmpty())
        OpenImage(path);
}

bool MainWindow::OpenImage(const QString& path)
{
    if (!MayDiscard())
        return false;
    std::unique_ptr<KvN::KvAOI> opened;
    const QString why = FailureOf([&] { opened = KvN::KvxLoadAOI(FromQt(path)); });
    if (!opened)
    {
        TellFailure(IDS_WB_ERROR_OPEN, path, why);
        return false;
    }
    opened->SetUIName(opened->GetAOIName()); // as menus show it
    autosave.DiscardContours();
    autosave.DiscardMask();
    const bool fitted = image && pane->IsFitted();
    contourPath = ContourFileOf(path);
    Autosave::LeftOver left = Autosave::LeftBehind(path);
    if (!MayRecover(left, path))
        left = {};
    const auto contours = LoadBeside(left.contours.isEmpty() ? contourPath : left.contours);
    ForgetMask();
    pane->Show(opened.get(), contours);
    image = std::move(opened);
    imagePath = QFileInfo(path).absoluteFilePath();
    autosave.Begin(imagePath);
    if (left.contours.isEmpty())
        autosave.DiscardContours();
    SetModified(!left.contours.isEmpty());
    RecoverMask(left.mask);
    Settings::AddRecentFile(imagePath);
    if (fitted)
        pane->FitToWindow();
    ShowZoom();
    UpdateActions();
    return true;
}

// Whether the operator wants back what a crash left behind.
bool MainWindow::MayRecover(const Autosave::LeftOver& left, const QString& path)
{
    if (left.IsEmpty())
        return false;
    const unsigned short question = left.mask.isEmpty()       ? IDS_WB_ASK_RECOVER
                                    : left.contours.isEmpty() ? IDS_WB_ASK_RECOVER_MASK
                                                              : IDS_WB_ASK_RECOVER_BOTH;
    return QMessageBox::question(this, Text(IDS_WB_APP), Text(question, QFileInfo(path).fileName())) ==
           QMessageBox::Yes;
}

// The contours of a file that may not be there.
EditorPane::ContourList MainWindow::LoadBeside(const QString& path)
{
    if (!QFile::exists(path))
        return {};
    const ContourFile file = ReadContours(path);
    if (!file.failure.isEmpty())
        TellFailure(IDS_WB_ERROR_OPEN, path, file.failure);
    TellSkipped(path, file.skipped);
    return file.contours;
}

void MainWindow::OpenContours()
{
    const QString path = QFileDialog::getOpenFileName(this, Text(IDS_WB_OPEN_CONTOURS).remove('&'),
                                                      QFileInfo(imagePath).path(), Text(IDS_WB_FILTER_CONTOURS));
    if (path.isEmpty())
        return;
    const ContourFile file = ReadContours(path);
    if (!file.failure.isEmpty())
        return TellFailure(IDS_WB_ERROR_OPEN, path, file.failure);
    pane->Replace(file.contours); // one undo step, so that what was there is not lost
    TellSkipped(path, file.skipped);
}

bool MainWindow::SaveTo(const QString& path)
{
    const QString why = WriteContours(path, pane->Contours());
    if (!why.isEmpty())
    {
        TellFailure(IDS_WB_ERROR_SAVE, path, why);
        return false;
    }
    contourPath = path;
    autosave.DiscardContours();
    SetModified(false);
    statusBar()->showMessage(Text(IDS_WB_STATUS_SAVED, QFileInfo(path).fileName()), 5000);
    return true;
}

bool MainWindow::Save()
{
    return SaveTo(contourPath);
}

bool MainWindow::SaveAs()
{
    const QString path =
        QFileDialog::getSaveFileName(this, Text(IDS_WB_SAVE_AS).remove('&'), contourPath, Text(IDS_WB_FILTER_CONTOURS));
    return !path.isEmpty() && SaveTo(path);
}

// Whether what is there may go: it is saved, or the operator gives it up.
bool MainWindow::MayDiscard(bool modified, unsigned short question, bool (MainWindow::*save)())
{
    if (!modified)
        return true;
    const auto answer = QMessageBox::question(this, Text(IDS_WB_APP), Text(question),
                                              QMessageBox::Save | QMessageBox::Discard | QMessageBox::Cancel);
    return answer == QMessageBox::Save ? (this->*save)() : answer == QMessageBox::Discard;
}

bool MainWindow::MayDiscardContours()
{
    return MayDiscard(contoursModified, IDS_WB_ASK_SAVE, &MainWindow::Save);
}

bool MainWindow::MayDiscardMask()
{
    return MayDiscard(maskModified, IDS_WB_ASK_SAVE_MASK, &MainWindow::SaveMask);
}

// Tells how an export ended.
void MainWindow::TellExport(const QString& path, const Outcome& outcome)
{
    if (!outcome.failure.isEmpty())
        TellFailure(IDS_WB_ERROR_SAVE, path, outcome.failure);
    else if (outcome.cancelled)
        statusBar()->showMessage(Text(IDS_WB_STATUS_CANCELLED), 5000);
    else
        statusBar()->showMessage(Text(IDS_WB_STATUS_EXPORTED, QFileInfo(path).fileName()), 5000);
}

void MainWindow::ExportMask()
{
    const QString chosen = QFileDialog::getSaveFileName(this, Text(IDS_WB_EXPORT_MASK).remove('&'),
                                                        imagePath + ".mask.png", Text(IDS_WB_FILTER_MASK));
    if (chosen.isEmpty())
        return;
    const QString path = MaskFileName(chosen);
    if (path.isEmpty())
        return TellFailure(IDS_WB_ERROR_SAVE, chosen, Text(IDS_WB_ERROR_MASK_FORMAT));
    TellExport(path, WriteContourMask(this, path, *image, pane->Contours()));
}

void MainWindow::ExportPicture()
{
    const QString path = QFileDialog::getSaveFileName(this, Text(IDS_WB_EXPORT_PICTURE).remove('&'),
                                                      imagePath + ".contours.png", Text(IDS_WB_FILTER_PICTURE));
    if (!path.isEmpty())
        TellExport(path, WritePicture(this, path, *image, pane->Contours()));
}

void MainWindow::OpenNeighbour(int step)
{
    const QString path = NeighbourImage(imagePath, step);
    if (!path.isEmpty())
        OpenImage(path);
}

void MainWindow::OpenDropped(const QStringList& paths)
{
    for (const QString& path : paths)
    {
        if (IsImageFile(path))
        {
            OpenImage(path);
            return;
        }
    }
    if (!paths.isEmpty())
        OpenImage(paths.front()); // which says what is wrong with it
}

void MainWindow::FillRecent()
{
    recentMenu->clear();
    for (const QString& path : Settings::RecentFiles())
        connect(recentMenu->addAction(path), &QAction::triggered, this, [this, path] { OpenImage(path); });
    if (recentMenu->isEmpty())
        recentMenu->addAction(Text(IDS_WB_RECENT_NONE))->setEnabled(false);
}

void MainWindow::OfferRecovery()
{
    const QString left = Autosave::AnyLeftBehind();
    if (!left.isEmpty())
        OpenImage(left);
}

} // namespace kv::workbench
