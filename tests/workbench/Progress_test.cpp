// Work beside the window: what it says, and that the operator can break it off.
#include "apps/workbench/Progress.h"

#include "apps/workbench/Export.h"
#include "apps/workbench/Texts.h"
#include "tests/workbench/desk.h"

#include <QProgressDialog>
#include <QThread>

#include <stdexcept>

using namespace kv::workbench;
using kv::test::Desk;

TEST(Progresses, ShortWorkShowsNothing)
{
    Desk desk; // fails on whatever opens
    bool ran = false;
    const Outcome outcome = RunWithProgress(nullptr, IDS_WB_PROGRESS_EXPORT, [&](const auto&) { ran = true; });
    EXPECT_TRUE(ran);
    EXPECT_TRUE(outcome.IsDone());
}

TEST(Progresses, LongWorkCanBeBrokenOff)
{
    Desk desk;
    const auto ended = std::make_shared<std::atomic<bool>>(false);
    desk.Expect("progress",
                [](QWidget& opened)
                {
                    auto& progress = dynamic_cast<QProgressDialog&>(opened);
                    EXPECT_EQ(progress.labelText(), Text(IDS_WB_PROGRESS_EXPORT));
                    progress.cancel();
                });
    const Outcome outcome = RunWithProgress(desk.window.get(), IDS_WB_PROGRESS_EXPORT,
                                            [ended](const std::atomic<bool>& cancelled)
                                            {
                                                while (!cancelled)
                                                    QThread::msleep(1);
                                                *ended = true;
                                            });
    EXPECT_TRUE(outcome.cancelled);
    EXPECT_FALSE(outcome.IsDone());
    for (int i = 0; i < 10000 && !*ended; ++i)
        QThread::msleep(1);
    EXPECT_TRUE(*ended) << "the work was told";
}

TEST(Progresses, AFailureIsTheOutcome)
{
    const Outcome outcome =
        RunWithProgress(nullptr, IDS_WB_PROGRESS_EXPORT, [](const auto&) { throw std::runtime_error("kein Platz"); });
    EXPECT_EQ(outcome.failure, "kein Platz");
    const Outcome memory =
        RunWithProgress(nullptr, IDS_WB_PROGRESS_EXPORT, [](const auto&) { throw std::bad_alloc(); });
    EXPECT_EQ(memory.failure, Text(IDS_WB_ERROR_MEMORY));
}

TEST(MaskFileNames, KeepEveryBit)
{
    EXPECT_EQ(MaskFileName("/a/b.png"), "/a/b.png");
    EXPECT_EQ(MaskFileName("/a/b.TIF"), "/a/b.TIF");
    EXPECT_EQ(MaskFileName("/a/b"), "/a/b.png");
    EXPECT_EQ(MaskFileName("/a/b.jpg"), "");
}
