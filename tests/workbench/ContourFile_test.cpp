// Contour files with faults open as far as they go.
#include "apps/workbench/ContourFile.h"

#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace kv::workbench;

namespace
{
class ContourFiles : public testing::Test
{
protected:
    QTemporaryDir folder;
    QString path = folder.filePath("teil.contours.xml");

    static std::vector<KvN::KvContour> Three()
    {
        std::vector<KvN::KvContour> contours(3);
        for (int i = 0; i < 3; ++i)
        {
            contours[static_cast<size_t>(i)].MakeCircle(50.0 + 10.0 * i, 60.0, 20.0);
            contours[static_cast<size_t>(i)].ID() = i;
        }
        return contours;
    }

    ContourFile Read(const QByteArray& xml)
    {
        QFile file(path);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(xml);
        file.close();
        return ReadContours(path);
    }
};
} // namespace

TEST_F(ContourFiles, ComeBackAsTheyWereWritten)
{
    ASSERT_EQ(WriteContours(path, Three()).toStdString(), "");
    const ContourFile file = ReadContours(path);
    EXPECT_TRUE(file.failure.isEmpty());
    EXPECT_TRUE(file.skipped.isEmpty());
    ASSERT_EQ(file.contours.size(), 3u);
    EXPECT_EQ(ContoursToXml(file.contours), ContoursToXml(Three()));
}

TEST_F(ContourFiles, ACutOffFileGivesItsWholeContoursAndNamesTheLine)
{
    const QByteArray whole = ContoursToXml(Three());
    const qsizetype third =
        whole.lastIndexOf("<Contour ") >= 0 ? whole.lastIndexOf("<Contour ") : whole.lastIndexOf("<Contour>");
    ASSERT_GT(third, 0);
    const ContourFile file = Read(whole.left(third + 30));
    EXPECT_TRUE(file.failure.isEmpty());
    EXPECT_EQ(file.contours.size(), 2u);
    ASSERT_EQ(file.skipped.size(), 1);
    const int line = static_cast<int>(whole.left(third).count('\n')) + 1;
    EXPECT_TRUE(file.skipped[0].contains(QString::number(line))) << file.skipped[0].toStdString();
}

TEST_F(ContourFiles, CutAnywhereTheyNeitherFailNorInventContours)
{
    const QByteArray whole = ContoursToXml(Three());
    for (qsizetype length = 0; length < whole.size() - 1; length += 7)
    {
        const ContourFile file = Read(whole.left(length));
        EXPECT_LE(file.contours.size(), 3u);
        EXPECT_TRUE(!file.failure.isEmpty() || !file.skipped.isEmpty()) << length;
        EXPECT_EQ(static_cast<qsizetype>(file.contours.size()), whole.left(length).count("</Contour>")) << length;
    }
}

TEST_F(ContourFiles, ADoubleNumberIsSkippedAndTold)
{
    auto contours = Three();
    contours[2].ID() = 0;
    const ContourFile file = Read(ContoursToXml(contours));
    EXPECT_EQ(file.contours.size(), 2u);
    EXPECT_EQ(file.skipped.size(), 1);
}

TEST_F(ContourFiles, WhatIsNoContourFileFails)
{
    EXPECT_FALSE(ReadContours(folder.filePath("nicht da")).failure.isEmpty());
    EXPECT_FALSE(Read("kein XML").failure.isEmpty());
    EXPECT_FALSE(Read("<Anderes/>").failure.isEmpty());
    EXPECT_TRUE(Read("<Contours/>").failure.isEmpty());
}
