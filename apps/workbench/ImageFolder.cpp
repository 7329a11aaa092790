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

QStringList ImagesOfFolder(const QString& path)
{
    const QDir folder = QFileInfo(path).absoluteDir();
    QStringList names = folder.entryList(ImagePatterns(), QDir::Files);
    QCollator byNumber{QLocale(QLocale::German)}; // the C locale knows no numbers in names
    byNumber.setNumericMode(true);
    std::sort(names.begin(), names.end(), byNumber);
    for (QString& name : names)
        name = folder.filePath(name);
    return names;
}

QString NeighbourImage(const QString& path, int step)
{
    const QStringList images = ImagesOfFolder(path);
    const qsizetype here = images.indexOf(QFileInfo(path).absoluteFilePath());
    const qsizetype wanted = here + step;
    return here >= 0 && wanted >= 0 && wanted < images.size() ? images[wanted] : QString();
}

} // namespace kv::workbench
