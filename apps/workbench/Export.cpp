// Exports run beside the window's own work, on copies of everything they need.
#include "apps/workbench/Export.h"

#include "C/syContourPicture.h"
#include "C/syContourToMask.h"
#include "apps/workbench/Texts.h"
#include "contracts/basics.h"
#include "contracts/image.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QUuid>

#include <filesystem>
#include <stdexcept>

namespace kv::workbench
{
namespace
{
using KvN::KvBufferAOI8;
using KvN::KvContour;

KvTList<KvContour> ToList(const std::vector<KvContour>& contours)
{
    KvTList<KvContour> list;
    for (const KvContour& contour : contours)
        list.AddTail(contour);
    return list;
}

// Writes beside the file and renames at the end, so that work that is broken off while it writes leaves nothing.
Outcome WriteWhole(QWidget* parent, unsigned short text, const QString& path,
                   const std::function<void(const QString& file, const std::atomic<bool>& cancelled)>& write)
{
    const QFileInfo target(path);
    const QString part =
        target.dir().filePath(QString(".%1.%2").arg(QUuid::createUuid().toString(QUuid::Id128), target.fileName()));
    Outcome outcome = RunWithProgress(parent, text,
                                      [=](const std::atomic<bool>& cancelled)
                                      {
                                          write(part, cancelled);
                                          std::error_code error;
                                          if (!cancelled)
                                              std::filesystem::rename(part.toStdString(), path.toStdString(), error);
                                          QFile::remove(part); // whatever is left of it
                                          if (error)
                                              throw std::runtime_error(Text(IDS_WB_ERROR_NOT_WRITTEN).toStdString());
                                      });
    outcome.failure.replace(part, path);
    return outcome;
}
} // namespace

QString MaskFileName(const QString& chosen)
{
    const QString ending = QFileInfo(chosen).suffix().toLower();
    if (ending == "png" || ending == "tif" || ending == "tiff")
        return chosen;
    return ending.isEmpty() ? chosen + ".png" : QString();
}

Outcome WriteContourMask(QWidget* parent, const QString& path, const KvN::KvAOI& image,
                         const std::vector<KvContour>& contours)
{
    return WriteWhole(parent, IDS_WB_PROGRESS_EXPORT, path,
                      [size = image.AOISize(), contours](const QString& file, const std::atomic<bool>& cancelled)
                      {
                          KvBufferAOI8 mask(size);
                          KvN::KvContourToMask().Execute(ToList(contours), &mask);
                          if (!cancelled)
                              mask.Save(FromQt(file));
                      });
}

Outcome WritePicture(QWidget* parent, const QString& path, const KvN::KvAOI& image,
                     const std::vector<KvContour>& contours)
{
    const auto picture = std::make_shared<KvN::KvContourPicture>(image);
    return WriteWhole(parent, IDS_WB_PROGRESS_EXPORT, path,
                      [picture, contours](const QString& file, const std::atomic<bool>& cancelled)
                      {
                          for (const KvContour& contour : contours)
                          {
                              if (cancelled)
                                  return;
                              picture->Add(contour);
                          }
                          KvN::KvBufferAOI32Color pixels(picture->Pixels());
                          if (!cancelled)
                              pixels.Save(FromQt(file));
                      });
}

Outcome WriteMask(QWidget* parent, const QString& path, const KvN::KvAOI8& mask)
{
    const auto copy = std::make_shared<KvBufferAOI8>(mask.AOISize());
    KvN::KvLTransfer().Copy(&mask, copy.get());
    return WriteWhole(parent, IDS_WB_PROGRESS_SAVE_MASK, path,
                      [copy](const QString& file, const std::atomic<bool>&) { copy->Save(FromQt(file)); });
}

std::unique_ptr<KvN::KvAOI8> DrawContourMask(QWidget* parent, const KvN::KvAOI& image,
                                             const std::vector<KvContour>& contours, Outcome& outcome)
{
    const auto mask = std::make_shared<std::unique_ptr<KvBufferAOI8>>();
    outcome = RunWithProgress(parent, IDS_WB_PROGRESS_MASK,
                              [mask, size = image.AOISize(), contours](const std::atomic<bool>&)
                              {
                                  auto drawn = std::make_unique<KvBufferAOI8>(size);
                                  KvN::KvContourToMask().Execute(ToList(contours), drawn.get());
                                  *mask = std::move(drawn);
                              });
    return outcome.IsDone() ? std::move(*mask) : nullptr;
}

} // namespace kv::workbench
