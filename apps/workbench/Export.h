// Exports of an image's contours: the mask, and the picture with the contours in it.
#pragma once

#include "C/syContour.h"

#include <QString>

#include <vector>

class QWidget;
namespace KvN
{
class KvAOI;
}

namespace kv::workbench
{

// Both write the file whole or not at all, show progress with a way out when it takes longer than half a second, and
// answer why it failed: empty on success, and also if the operator broke it off.
QString WriteMask(QWidget* parent, const QString& path, const KvN::KvAOI& image,
                  const std::vector<KvN::KvContour>& contours);
QString WritePicture(QWidget* parent, const QString& path, const KvN::KvAOI& image,
                     const std::vector<KvN::KvContour>& contours);

} // namespace kv::workbench
