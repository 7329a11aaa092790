// Walks a folder outward from an image, in both directions by turns.
#include "apps/workbench/Backgrounds.h"

#include "apps/workbench/ImageFolder.h"
#include "apps/workbench/Texts.h"
#include "contracts/basics.h"
#include "contracts/image.h"

#include <QFileInfo>

#include <algorithm>

namespace kv::workbench
{
namespace
{
using KvN::KvAOI;

// The image in a file if it has the size; null otherwise, and if it can't be read.
std::unique_ptr<KvAOI> LoadIfFitting(const QString& path, const KvN::KvTSize<short>& size)
{
    std::unique_ptr<KvAOI> image;
    const QString failure = FailureOf(
        [&]
        {
            if (KvN::KvxImageSize(FromQt(path)) == size)
            {
                image = KvN::KvxLoadAOI(FromQt(path));
                image->SetUIName(image->GetAOIName());
            }
        });
    return failure.isEmpty() ? std::move(image) : nullptr;
}

size_t MostOthers(const KvN::KvTSize<short>& size)
{
    const long long pixels = std::max(1LL, static_cast<long long>(size.width) * size.height);
    const auto affordable = static_cast<size_t>(mostBackgroundPixels / pixels);
    return std::min(mostBackgrounds, std::max<size_t>(affordable, 1)) - 1;
}

// Places of a list by their distance from one that is left out.
std::vector<qsizetype> Outward(qsizetype from, qsizetype count)
{
    std::vector<qsizetype> places;
    for (qsizetype step = 1; step < count; ++step)
    {
        for (const qsizetype place : {from + step, from - step})
        {
            if (place >= 0 && place < count)
                places.push_back(place);
        }
    }
    return places;
}

Backgrounds Load(const QStringList& paths, qsizetype here, const KvN::KvTSize<short>& size,
                 const std::atomic<bool>& cancelled)
{
    Backgrounds found;
    for (const qsizetype place : Outward(here, paths.size()))
    {
        if (cancelled || found.before.size() + found.behind.size() >= MostOthers(size))
            break;
        if (auto image = LoadIfFitting(paths[place], size))
            (place < here ? found.before : found.behind).push_back(std::move(image));
    }
    std::reverse(found.before.begin(), found.before.end());
    return found;
}
} // namespace

Outcome LoadBackgrounds(QWidget* parent, const QString& path, const KvAOI& image, Backgrounds& backgrounds)
{
    const QStringList paths = ImagesOfFolder(path);
    const qsizetype here = paths.indexOf(QFileInfo(path).absoluteFilePath());
    if (here < 0)
        return {};
    const auto loaded = std::make_shared<Backgrounds>();
    const Outcome outcome = RunWithProgress(parent, IDS_WB_PROGRESS_BACKGROUNDS,
                                            [=, size = image.AOISize()](const std::atomic<bool>& cancelled)
                                            { *loaded = Load(paths, here, size, cancelled); });
    if (outcome.IsDone())
        backgrounds = std::move(*loaded);
    return outcome;
}

} // namespace kv::workbench
