// The walk through a folder's images.
#include "apps/workbench/ImageFolder.h"

#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace kv::workbench;

TEST(ImageFolders, AreWalkedByTheNumbersInTheNames)
{
    QTemporaryDir folder;
    for (const char* name : {"teil 10.png", "teil 9.png", "teil 11.tif", "notiz.txt"})
        ASSERT_TRUE(QFile(folder.filePath(name)).open(QIODevice::WriteOnly));
    const auto next = [&](const char* name, int step)
    { return QFileInfo(NeighbourImage(folder.filePath(name), step)).fileName().toStdString(); };
    EXPECT_EQ(next("teil 9.png", 1), "teil 10.png");
    EXPECT_EQ(next("teil 10.png", 1), "teil 11.tif");
    EXPECT_EQ(next("teil 10.png", -1), "teil 9.png");
    EXPECT_EQ(next("teil 11.tif", 1), "");
    EXPECT_EQ(next("teil 9.png", -1), "");
    EXPECT_EQ(next("nicht da.png", 1), "");
}

TEST(ImageFolders, KnowImagesByTheirNames)
{
    EXPECT_TRUE(IsImageFile("/a/b.PNG"));
    EXPECT_TRUE(IsImageFile("b.jpeg"));
    EXPECT_FALSE(IsImageFile("b.xml"));
}
