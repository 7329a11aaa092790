// What is left behind, and for whom. tests/realwindow/kill_test.cpp kills the program itself.
#include "apps/workbench/Autosave.h"

#include "apps/workbench/ContourFile.h"
#include "apps/workbench/MaskBits.h"
#include "tests/workbench/desk.h"

#include <QCoreApplication>
#include <QElapsedTimer>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace kv::test;
using namespace kv::workbench;

namespace
{
class Autosaves : public testing::Test
{
protected:
    QTemporaryDir folder;
    QString image = folder.filePath("teil.png");
    int written = 0;
    Autosave autosave{[this](const QString& path) { return ++written && WriteContours(path, {}).isEmpty(); }};

    Autosaves()
    {
        QFile(image).open(QIODevice::WriteOnly);
        autosave.Begin(image);
    }
    // An end without a good-bye, but for what is on its way.
    void Crash() { autosave.Begin({}); }

    void WaitForContours()
    {
        QElapsedTimer patience;
        patience.start();
        while (!written && patience.elapsed() < 30000)
            QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    }
    // A mask with as many pixels of the user mask.
    static std::shared_ptr<const KvN::KvAOI8> Mask(int pixels, short width = 100, short height = 10)
    {
        auto mask = std::make_shared<KvN::KvBufferAOI8>(KvN::KvTSize<short>(width, height));
        std::fill_n(mask->GetRowPointer(0), pixels, userBit);
        return mask;
    }
    int PixelsLeft() const
    {
        const QString left = Autosave::LeftBehind(image).mask;
        const auto mask = left.isEmpty() ? nullptr : LoadGrey(left);
        return mask ? CountBits(*mask, userBit) : -1;
    }
};
} // namespace

TEST_F(Autosaves, WhatIsDiscardedIsNotOffered)
{
    autosave.TouchContours();
    WaitForContours();
    EXPECT_EQ(written, 1);
    EXPECT_TRUE(Autosave::LeftBehind(image).IsEmpty()) << "it is in use";
    Crash();
    EXPECT_FALSE(Autosave::LeftBehind(image).contours.isEmpty());
    autosave.Begin(image);
    autosave.DiscardContours();
    Crash();
    EXPECT_TRUE(Autosave::LeftBehind(image).IsEmpty());
}

TEST_F(Autosaves, TheLastMaskIsLeft)
{
    for (int pixels = 1; pixels <= 20; ++pixels)
        autosave.TouchMask(Mask(pixels));
    Crash();
    EXPECT_EQ(PixelsLeft(), 20);
    EXPECT_EQ(Autosave::AnyLeftBehind(), image);
    EXPECT_TRUE(Autosave::LeftBehind(image).contours.isEmpty()) << "they are a matter of their own";
    autosave.Begin(image);
    autosave.DiscardMask();
}

TEST_F(Autosaves, AMaskThatIsDiscardedWhileItIsWrittenLeavesNothing)
{
    autosave.TouchMask(Mask(7, 4000, 4000));
    autosave.DiscardMask();
    Crash();
    EXPECT_TRUE(Autosave::LeftBehind(image).IsEmpty());
    autosave.Begin(image);
    autosave.TouchMask(Mask(7, 4000, 4000));
    autosave.DiscardMask();
    autosave.TouchMask(Mask(9));
    Crash();
    EXPECT_EQ(PixelsLeft(), 9) << "a later one stays";
    autosave.Begin(image);
    autosave.DiscardMask();
}

TEST_F(Autosaves, MaskAndContoursAreDiscardedOnTheirOwn)
{
    autosave.TouchContours();
    autosave.TouchMask(Mask(5));
    WaitForContours();
    Crash();
    EXPECT_FALSE(Autosave::LeftBehind(image).contours.isEmpty());
    EXPECT_EQ(PixelsLeft(), 5);
    autosave.Begin(image);
    autosave.DiscardContours();
    Crash();
    EXPECT_TRUE(Autosave::LeftBehind(image).contours.isEmpty());
    EXPECT_EQ(PixelsLeft(), 5);
    autosave.Begin(image);
    autosave.DiscardMask();
    Crash();
    EXPECT_TRUE(Autosave::AnyLeftBehind().isEmpty());
}

TEST_F(Autosaves, AMaskThatCouldNotBeWrittenIsTriedAgain)
{
    autosave.TouchMask(Mask(5));
    Crash();
    const QString file = Autosave::LeftBehind(image).mask;
    QFile::remove(file);
    QDir(file).mkpath("im/weg"); // a folder of its name
    autosave.Begin(image);
    autosave.TouchMask(Mask(6));
    QElapsedTimer patience;
    patience.start();
    while (patience.elapsed() < 300)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    QDir(file).removeRecursively();
    while (!QFileInfo(file).isFile() && patience.elapsed() < 30000)
        QCoreApplication::processEvents(QEventLoop::AllEvents, 50);
    Crash();
    EXPECT_EQ(PixelsLeft(), 6);
    autosave.Begin(image);
    autosave.DiscardMask();
}
