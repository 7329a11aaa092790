// An operator at the real window of the workbench: gives commands, and answers what opens in the order that a test
// expects. What opens unexpectedly is a failure and is closed.
#pragma once

#include "apps/workbench/MainWindow.h"
#include "apps/workbench/Texts.h"
#include "contracts/image.h"

#include <QMessageBox>
#include <QPointer>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include <functional>
#include <list>

namespace KvN
{
class KvAOIBaseViewWnd;
class KvMaskDlgBase;
} // namespace KvN

namespace kv::test
{

class Desk
{
public:
    Desk();
    ~Desk();

    // ---- What will open, in order
    void ExpectMessage(unsigned short text, QMessageBox::StandardButton answer);
    void ExpectFileDialog(const QString& answer); // empty: cancelled
    void ExpectMaskDialog(std::function<void(KvN::KvMaskDlgBase& dialog)> act);
    void Expect(const char* what, std::function<void(QWidget& opened)> act);
    // Whether all of that has opened.
    bool IsDone() const { return expected.empty(); }
    // What the last message box said.
    QString said;

    // ---- Commands
    QAction* Action(unsigned short text) const; // of the menus, by its text
    void Do(unsigned short text);               // triggers it; a disabled one is a failure
    kv::workbench::EditorPane& Pane();
    KvN::KvAOIBaseViewWnd& View(); // the editor's
    // Moves the mouse over an image pixel of the editor.
    void PointAt(int x, int y);
    // The colour on the screen at an image pixel of the editor.
    QColor ShownAt(int x, int y);

    // ---- Files of the test's own folder
    QString Path(const QString& name) const { return folder.filePath(name); }
    QString SavePicture(const QString& name, int width, int height, unsigned char grey = 100);
    // Opens it; the window shows it.
    void OpenPicture(const QString& name = "teil.png", int width = 160, int height = 120);

    std::unique_ptr<kv::workbench::MainWindow> window;

private:
    void Look();

    QTemporaryDir folder;
    QTimer watch;
    QPointer<QWidget> seen;
    struct Expected
    {
        std::string what;
        std::function<void(QWidget&)> act;
    };
    std::list<Expected> expected;
};

// Does what is pending.
void Settle();

// ---- In a mask dialog, by the mouse; image pixels
void Drag(KvN::KvMaskDlgBase& dialog, int x1, int y1, int x2, int y2);
void Click(KvN::KvMaskDlgBase& dialog, int control);
void ClickTool(KvN::KvMaskDlgBase& dialog, int id);

// The 8-bit image in a file; null if it is none.
std::unique_ptr<KvN::KvAOI8> LoadGrey(const QString& path);
int CountBits(const KvN::KvAOI8& mask, unsigned char bits); // pixels that have all of them

} // namespace kv::test
