// What the tests share: a screen, programs on it, and a picture of it when a test fails.
#pragma once

#include "tests/realwindow/xserver.h"

#include <gtest/gtest.h>

#include <QDir>
#include <QTemporaryDir>

#include <memory>
#include <vector>

namespace kv::realwindow
{

class Desk : public ::testing::Test
{
protected:
    void SetUp() override;
    void TearDown() override;

    // Screen pixels for each pixel of the programs' windows, each way.
    virtual int Scale() const { return 1; }

    // Starts a program on the screen, in a home folder of the test's own. It is ended with the test; one that has
    // crashed by then fails the test.
    QProcess& Start(const QString& program, const QStringList& arguments);
    // Ends all programs as a power cut does.
    void KillAll();

    QString Path(const QString& name) const { return QDir(home.path()).filePath(name); }

    // The middle of what shows an image pixel. Waits until it shows.
    QPoint At(int x, int y) const;
    bool Shows(int x, int y) const;
    // The image pixel that shows at a screen pixel.
    std::optional<QPoint> Under(QPoint at) const;
    // Screen pixels for each image pixel, measured over so many image pixels from (x, y) on to the right.
    double MeasuredZoom(int x = 0, int y = 0, int over = 100) const;

    std::unique_ptr<XServer> screen;

private:
    QTemporaryDir home;
    std::vector<std::unique_ptr<QProcess>> programs;
};

} // namespace kv::realwindow
