// Walking the images of a folder.
#include "apps/workbench/ImageFolder.h"

#include <QCollator>
#include <QDir>
#include <QFileInfo>
#include <QLocale>

#include <algorithm>

namespace kv::workbench
{

QStringList ImagePatterns()
{
    return {"*.png", "*.bmp", "*.jpg", "*.jpeg", "*.tif", "*.tiff"};
}

bool IsImageFile(const QString& path)
{
    return QDir::match(ImagePatterns(), QFileInfo(path).fileName());
}

QString NeighbourImage(const QString& path, int step)
{
    const QFileInfo info(path);
    const QDir folder = info.absoluteDir();
    QStringList names = folder.entryList(ImagePatterns(), QDir::Files);
    QCollator byNumber{QLocale(QLocale::German)}; // the C locale knows no numbers in names
    byNumber.setNumericMode(true);
    std::sort(names.begin(), names.end(), byNumber);
    const qsizetype wanted = names.indexOf(info.fileName()) + step;
    return names.contains(info.fileName()) && wanted >= 0 && wanted < names.size() ? folder.filePath(names[wanted])
                                                                                   : QString();
}

} // namespace kv::workbench
