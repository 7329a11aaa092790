// Exports run beside the window's own work, on copies of everything they need.
#include "apps/workbench/Export.h"

#include "C/syContourPicture.h"
#include "C/syContourToMask.h"
#include "apps/workbench/Texts.h"
#include "contracts/basics.h"
#include "contracts/image.h"

#include <QEventLoop>
#include <QProgressDialog>
#include <QThreadPool>
#include <QTimer>

#include <atomic>
#include <functional>
#include <memory>

namespace kv::workbench
{
namespace
{
using KvN::KvContour;

constexpr int patience = 500; // ms until the operator is shown that something takes its time

struct Job
{
    std::atomic<bool> cancelled = false;
    std::atomic<bool> done = false;
    QString failure;
};

// The work answers why it failed, and leaves off before it writes anything once the job is cancelled.
using Work = std::function<void(Job& job)>;

QString Run(QWidget* parent, const Work& work)
{
    const auto job = std::make_shared<Job>();
    QThreadPool::globalInstance()->start(
        [job, work]
        {
            try
            {
                work(*job);
            }
            catch (KvN::KvException* failure)
            {
                job->failure = ToQt(failure->GetMessageW());
                failure->Delete();
            }
            catch (const std::exception& failure)
            {
                job->failure = QString::fromUtf8(failure.what());
            }
            job->done = true;
        });

    QProgressDialog progress(Text(IDS_WB_PROGRESS_EXPORT), Text(IDS_WB_CANCEL), 0, 0, parent);
    progress.setWindowModality(Qt::WindowModal);
    progress.setMinimumDuration(patience);
    QEventLoop loop;
    QTimer poll;
    QObject::connect(&poll, &QTimer::timeout, &loop,
                     [&]
                     {
                         progress.setValue(0); // shows itself once its patience is over
                         job->cancelled = progress.wasCanceled();
                         if (job->done || job->cancelled)
                             loop.quit();
                     });
    poll.start(20);
    loop.exec();
    return job->done ? job->failure : QString();
}

KvTList<KvContour> ToList(const std::vector<KvContour>& contours)
{
    KvTList<KvContour> list;
    for (const KvContour& contour : contours)
        list.AddTail(contour);
    return list;
}
} // namespace

QString WriteMask(QWidget* parent, const QString& path, const KvN::KvAOI& image, const std::vector<KvContour>& contours)
{
    return Run(parent,
               [path, size = image.AOISize(), contours](Job& job)
               {
                   KvN::KvBufferAOI8 mask(size);
                   KvN::KvContourToMask().Execute(ToList(contours), &mask);
                   if (!job.cancelled)
                       mask.Save(FromQt(path));
               });
}

QString WritePicture(QWidget* parent, const QString& path, const KvN::KvAOI& image,
                     const std::vector<KvContour>& contours)
{
    KvN::KvContourPicture drawn(image);
    for (const KvContour& contour : contours)
        drawn.Add(contour);
    const auto picture = std::make_shared<KvN::KvBufferAOI32Color>(drawn.Pixels());
    return Run(parent,
               [path, picture](Job& job)
               {
                   if (!job.cancelled)
                       picture->Save(FromQt(path));
               });
}

} // namespace kv::workbench
