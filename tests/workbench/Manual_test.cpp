// The manual and its sessions: every picture that a chapter shows is taken by a session that the suite plays.
#include <QDir>
#include <QFile>
#include <QRegularExpression>
#include <QSet>

#include <gtest/gtest.h>

namespace
{
// What the pattern's first group finds in the files of a folder.
QSet<QString> Find(const QString& folder, const char* files, const char* pattern)
{
    QSet<QString> found;
    for (const QFileInfo& info : QDir(folder).entryInfoList({files}, QDir::Files))
    {
        QFile file(info.filePath());
        EXPECT_TRUE(file.open(QIODevice::ReadOnly));
        const QRegularExpression expression(pattern, QRegularExpression::MultilineOption);
        for (auto matches = expression.globalMatch(QString::fromUtf8(file.readAll())); matches.hasNext();)
            found.insert(matches.next().captured(1));
    }
    return found;
}

std::string Names(const QSet<QString>& set)
{
    return QStringList(set.begin(), set.end()).join(' ').toStdString();
}
} // namespace

TEST(Manual, ShowsThePicturesThatItsSessionsTake)
{
    const QString manual = KV_SOURCE_ROOT "/docs/manual";
    const QSet<QString> shown = Find(manual, "*.md", R"(\]\(pictures/(\w+)\.png\))");
    const QSet<QString> taken = Find(manual + "/sessions", "*.kvs", R"(^shot (\w+)$)");
    EXPECT_GT(shown.size(), 40);
    EXPECT_EQ(Names(shown - taken), "") << "no session takes them";
    EXPECT_EQ(Names(taken - shown), "") << "no chapter shows them";
    QSet<QString> there;
    for (const QFileInfo& picture : QDir(manual + "/pictures").entryInfoList(QDir::Files))
        there.insert(picture.completeBaseName());
    EXPECT_EQ(Names(there - taken), "") << "no session takes them";
}
