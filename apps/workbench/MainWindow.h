// The workbench's window: an image with its contours, menus, toolbar, list of contours and status bar.
#pragma once

#include "apps/workbench/Autosave.h"
#include "apps/workbench/EditorPane.h"

#include <QMainWindow>

#include <functional>
#include <memory>

class QAction;
class QActionGroup;
class QLabel;
class QTableView;

namespace kv::workbench
{

class ContourTable;
enum class Picture;
struct DialogEnd;
struct Outcome;

class MainWindow : public QMainWindow
{
    Q_OBJECT

public:
    MainWindow();
    ~MainWindow() override;

    // Opens an image with the contours beside it. A file that can't be read is told about and changes nothing.
    bool OpenImage(const QString& path);
    // Offers the contours and the mask that a crash left behind, if there are any.
    void OfferRecovery();

protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

private:
    using Slot = void (MainWindow::*)();

    // MainWindow_build.cpp
    QAction* AddAction(QMenu* menu, unsigned short text, const QKeySequence& shortcut, Slot slot);
    QAction* AddAction(QMenu* menu, unsigned short text, const QKeySequence& shortcut, Slot slot, Picture picture);
    void AddTool(QMenu* menu, unsigned short text, const QKeySequence& shortcut, unsigned short tool, Picture picture,
                 bool excluded);
    void BuildFileMenu();
    void BuildEditMenu();
    void BuildToolsMenu();
    void BuildMaskMenu();
    void BuildViewMenu();
    void BuildDock();
    void BuildStatusBar();
    void ConnectPane();

    // MainWindow_file.cpp
    void Open();
    void OpenContours();
    bool Save();
    bool SaveAs();
    void SaveCommand() { Save(); }
    void SaveAsCommand() { SaveAs(); }
    bool SaveTo(const QString& path);
    bool MayDiscard() { return MayDiscardContours() && MayDiscardMask(); }
    bool MayDiscardContours();
    bool MayDiscardMask();
    bool MayDiscard(bool modified, unsigned short question, bool (MainWindow::*save)());
    void TellExport(const QString& path, const Outcome& outcome);
    void ExportMask();
    void ExportPicture();
    void NextImage() { OpenNeighbour(1); }
    void PreviousImage() { OpenNeighbour(-1); }
    void OpenNeighbour(int step);
    void OpenDropped(const QStringList& paths);
    void FillRecent();
    bool MayRecover(const Autosave::LeftOver& left, const QString& image);
    EditorPane::ContourList LoadBeside(const QString& image);
    void TellFailure(unsigned short text, const QString& path, const QString& why);
    void TellSkipped(const QString& path, const QStringList& skipped);

    // MainWindow_mask.cpp
    void SetMask(std::unique_ptr<KvN::KvAOI8> newMask, bool modified);
    void ForgetMask();
    void RecoverMask(const QString& path);
    std::unique_ptr<KvN::KvAOI8> CopyOfMask() const;
    void ChangeMask(std::unique_ptr<KvN::KvAOI8> changed);
    void ShowMask();
    bool MayPaint();
    bool MendSettings(const QString& fault, bool mendable);
    std::unique_ptr<KvN::KvAOI8> StartingMask();
    std::unique_ptr<KvN::KvAOI8> MaskWithContours();
    void RunPainting(const std::function<DialogEnd(KvN::KvAOI8&)>& run);
    void PaintMask();
    void PaintMaskOverFolder();
    void TakeContoursMask();
    std::unique_ptr<KvN::KvAOI> ReadMask(const QString& path);
    QString AskForMask(unsigned short title);
    void OpenMask();
    void LoadSystemMask();
    bool SaveMaskTo(const QString& chosen);
    bool SaveMask();
    bool SaveMaskAs();
    void SaveMaskCommand() { SaveMask(); }
    void SaveMaskAsCommand() { SaveMaskAs(); }

    // MainWindow_edit.cpp
    void Undo() { pane->Undo(); }
    void Redo() { pane->Redo(); }
    void Cut();
    void Copy();
    void Paste();
    void Duplicate();
    void Delete() { pane->DeleteSelected(); }
    void DeleteAll();
    void Invert() { pane->InvertSelected(); }
    void InvertAll();
    void FullFrame();
    void NextUnderPointer() { pane->SelectNextUnderPointer(); }
    void EditCell(const QModelIndex& index);
    void ShowCellMenu(const QPoint& at);

    void ZoomIn() { pane->ZoomBySteps(1); }
    void ZoomOut() { pane->ZoomBySteps(-1); }
    void ZoomOne() { pane->SetZoom(1.0); }
    void Fit() { pane->FitToWindow(); }
    void ShowHandles();
    void ShowDirection();
    void About();

    // MainWindow.cpp
    void ContoursChanged();
    void SelectionChanged();
    void ToolChanged();
    void ShowPosition();
    void ShowZoom();
    void UpdateActions();
    void UpdateTitle();
    void SetModified(bool modified); // of the contours
    void UpdateModified();

    EditorPane* pane = nullptr;
    ContourTable* table = nullptr;
    QTableView* list = nullptr;
    QToolBar* toolBar = nullptr;
    QMenu* recentMenu = nullptr;
    QActionGroup* tools = nullptr;
    QAction* undo = nullptr;
    QAction* redo = nullptr;
    QAction* showHandles = nullptr;
    QAction* showDirection = nullptr;
    QAction* showMask = nullptr;
    QList<QAction*> needImage;
    QList<QAction*> needSelection;
    QList<QAction*> needMask;
    QLabel* position = nullptr;
    QLabel* value = nullptr;
    QLabel* figure = nullptr;
    QLabel* zoom = nullptr;

    std::unique_ptr<KvN::KvAOI> image;
    QString imagePath;
    QString contourPath;
    bool contoursModified = false;
    std::shared_ptr<const KvN::KvAOI8> mask; // null until there is one; all eight bits
    std::unique_ptr<KvN::KvAOI8> maskShown;  // the two bits of it that can be painted
    QString maskPath;
    bool maskModified = false;
    Autosave autosave;
};

} // namespace kv::workbench
