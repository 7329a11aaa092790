// The work, its thread, and the box that waits for it.
#include "apps/workbench/Progress.h"

#include "apps/workbench/Texts.h"
#include "contracts/basics.h"

#include <QElapsedTimer>
#include <QEventLoop>
#include <QProgressDialog>
#include <QThreadPool>
#include <QTimer>

#include <memory>

namespace kv::workbench
{
namespace
{
constexpr int patience = 500; // ms until the operator is shown that something takes its time

struct Job
{
    std::atomic<bool> cancelled = false;
    std::atomic<bool> done = false;
    QString failure;
};

// Until the work is done or patience is over. Nothing blocks the window yet, so input has to wait: it must not change
// what the work is about.
void WaitUnseen(const Job& job)
{
    QElapsedTimer clock;
    clock.start();
    QEventLoop loop;
    while (!job.done && clock.elapsed() < patience)
        loop.processEvents(QEventLoop::ExcludeUserInputEvents | QEventLoop::WaitForMoreEvents);
}

// Until the work is done or the operator cancels it.
void WaitWithBox(Job& job, QWidget* parent, unsigned short text)
{
    QProgressDialog progress(Text(text), Text(IDS_WB_CANCEL), 0, 0, parent);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(0);
    progress.show();
    QEventLoop loop;
    while (!job.done && !job.cancelled)
    {
        loop.processEvents(QEventLoop::WaitForMoreEvents);
        job.cancelled = progress.wasCanceled();
    }
}
} // namespace

QString FailureOf(const std::function<void()>& action)
try
{
    action();
    return {};
}
catch (KvN::KvException* failure)
{
    const QString text = ToQt(failure->GetMessageW());
    failure->Delete();
    return text;
}
catch (const std::bad_alloc&)
{
    return Text(IDS_WB_ERROR_MEMORY);
}
catch (const std::exception& failure)
{
    return QString::fromUtf8(failure.what());
}

Outcome RunWithProgress(QWidget* parent, unsigned short text, const Work& work)
{
    const auto job = std::make_shared<Job>();
    QThreadPool::globalInstance()->start(
        [job, work]
        {
            job->failure = FailureOf([&] { work(job->cancelled); });
            job->done = true;
        });

    QTimer poll; // wakes the loops below
    poll.start(10);
    WaitUnseen(*job);
    if (!job->done)
        WaitWithBox(*job, parent, text);
    // Work that was told to stop may be done by now.
    if (job->cancelled)
        return {true, {}};
    return {false, job->failure};
}

} // namespace kv::workbench
