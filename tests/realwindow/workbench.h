// The workbench on the desk, with an image whose pixels name themselves.
#pragma once

#include "C/syContour.h"
#include "tests/realwindow/desk.h"

namespace kv::realwindow
{

class WorkbenchDesk : public Desk
{
protected:
    // Writes an image of coordinates and gives its path.
    QString MakeImage(const QString& name = "part.png", QSize size = {400, 300}) const;
    // Starts the workbench on a file, at the size of nearly the whole screen, and waits until it has the keyboard.
    QProcess& OpenWorkbench(const QStringList& arguments);
    // Waits until the image is shown at its original size.
    QProcess& OpenAtOriginalSize(const QString& image);
    // Saves by its key and reads what is in the image's file then.
    std::vector<KvN::KvContour> Save(const QString& image) const;
    // Waits for a message box over the main window, answers it by a key, and waits for its end.
    void Answer(const QString& key) const;
    // Waits for a menu, or for the innermost of nested ones, and gives its place on the screen.
    QRect OpenedMenu(size_t nested = 1) const;
    // Waits until the measured zoom is the wanted one.
    void ExpectZoom(double wanted, int x = 0, int y = 0) const;
};

} // namespace kv::realwindow
