// Contour files as the workbench reads and writes them: a file with faults opens as far as it goes.
#pragma once

#include "C/syContour.h"

#include <QString>
#include <QStringList>

#include <optional>
#include <vector>

namespace kv::workbench
{

// Where the contours of an image are kept: IMAGE.contours.xml beside it.
QString ContourFileOf(const QString& image);

struct ContourFile
{
    std::vector<KvN::KvContour> contours;
    QStringList skipped; // a line for each thing that could not be taken over
    QString failure;     // why nothing could be read; empty if the file is a contour file
};

ContourFile ReadContours(const QString& path);

// Writes the file whole or not at all. Why it could not be written; empty on success.
QString WriteContours(const QString& path, const std::vector<KvN::KvContour>& contours);

// The same as XML text, as it goes to the clipboard.
QByteArray ContoursToXml(const std::vector<KvN::KvContour>& contours);
std::vector<KvN::KvContour> ContoursFromXml(const QByteArray& xml);

} // namespace kv::workbench
