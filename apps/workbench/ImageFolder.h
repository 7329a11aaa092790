// The images beside an image, in the order in which Page Up and Page Down walk them.
#pragma once

#include <QString>
#include <QStringList>

namespace kv::workbench
{

// File name patterns of the formats that can be opened.
QStringList ImagePatterns();
bool IsImageFile(const QString& path);

// The images of the folder in which `path` lies, as paths in natural order of names.
QStringList ImagesOfFolder(const QString& path);

// The image `step` places behind `path` in its folder (before it if negative), by natural order of names. Empty if
// there is none: the walk ends at the folder's first and last image.
QString NeighbourImage(const QString& path, int step);

} // namespace kv::workbench
