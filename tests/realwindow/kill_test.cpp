// The workbench is killed at moments that nobody chose, while an operator works: at most the last two seconds are lost.
#include "tests/realwindow/workbench.h"

#include "C/syContourXMLImport.h"

#include <QElapsedTimer>
#include <QThread>

#include <algorithm>
#include <random>

namespace kv::realwindow
{
namespace
{
constexpr qint64 mayBeLost = 2000; // ms

class RealKill : public WorkbenchDesk, public ::testing::WithParamInterface<unsigned>
{
protected:
    // When each contour was seen on the screen, which is after it was made.
    std::vector<qint64> seen;
    qint64 killed = 0;

    QDir Autosaves() const { return QDir(Path(".local/state/kv/autosave")); }

    // The screen once it stands still and differs from `before`.
    QImage Changed(const QImage& before, const QElapsedTimer& clock, qint64 moment) const
    {
        QImage last = screen->Shot();
        while (clock.elapsed() < moment)
        {
            QThread::msleep(10);
            const QImage now = screen->Shot();
            if (now == last && now != before)
                break;
            last = now;
        }
        return last;
    }

    // Marks the whole image again and again, each time once the one before shows, until the moment comes.
    void WorkUntil(const QElapsedTimer& clock, qint64 moment)
    {
        QImage shown = Changed({}, clock, moment);
        while (true)
        {
            screen->Keys({"ctrl+b"});
            shown = Changed(shown, clock, moment);
            if (clock.elapsed() >= moment)
                return; // nobody knows of the last one
            seen.push_back(clock.elapsed());
        }
    }

    // What is left to recover, by the numbers of the contours.
    std::vector<int> Left() const
    {
        const QStringList files = Autosaves().entryList({"*.xml"});
        KvTList<KvN::KvContour> list;
        if (!files.isEmpty())
        {
            const KvN::KvString file(Autosaves().filePath(files.front()).toUtf8().constData());
            EXPECT_TRUE(KvN::KvContourXMLImport().Execute(file, list));
        }
        std::vector<int> numbers;
        for (int i = 0; i < list.count; ++i)
            numbers.push_back(list[i].ID());
        return numbers;
    }

    void ExpectNearlyAllLeft() const
    {
        const auto least =
            std::count_if(seen.begin(), seen.end(), [this](qint64 at) { return at <= killed - mayBeLost; });
        const std::vector<int> left = Left();
        EXPECT_GE(left.size(), static_cast<size_t>(least)) << "of " << seen.size();
        for (size_t i = 0; i < left.size(); ++i)
            EXPECT_EQ(left[i], static_cast<int>(i)) << "whole and in order";
    }
};
} // namespace

TEST_P(RealKill, LosesAtMostTheLastTwoSeconds)
{
    std::mt19937 random(GetParam());
    size_t witnesses = 0;
    for (int round = 0; round < 10; ++round)
    {
        Autosaves().removeRecursively();
        OpenWorkbench({MakeImage(QString("part%1.png").arg(round))});
        At(0, 0);
        seen.clear();
        QElapsedTimer clock;
        clock.start();
        WorkUntil(clock, 300 + random() % 3700);
        killed = clock.elapsed();
        KillAll();
        ExpectNearlyAllLeft();
        witnesses += !seen.empty() && seen.front() <= killed - mayBeLost;
    }
    EXPECT_GT(witnesses, 0u) << "none lived longer than what may be lost";
}

// Five times ten kills, so that none of the tests takes long.
INSTANTIATE_TEST_SUITE_P(FiftyTimes, RealKill, ::testing::Values(1u, 2u, 3u, 4u, 5u));

} // namespace kv::realwindow
