// Files that are made from an image's contours and from its mask.
#pragma once

#include "C/syContour.h"
#include "apps/workbench/Progress.h"

#include <memory>
#include <vector>

namespace KvN
{
class KvAOI;
class KvAOI8;
} // namespace KvN

namespace kv::workbench
{

// A mask file's name: with the ending .png if it has none. Empty for the name of a format that doesn't keep every bit
// of a mask.
QString MaskFileName(const QString& chosen);

// All write the file whole or not at all, with progress.
Outcome WriteContourMask(QWidget* parent, const QString& path, const KvN::KvAOI& image,
                         const std::vector<KvN::KvContour>& contours);
Outcome WritePicture(QWidget* parent, const QString& path, const KvN::KvAOI& image,
                     const std::vector<KvN::KvContour>& contours);
// All eight bits of the mask.
Outcome WriteMask(QWidget* parent, const QString& path, const KvN::KvAOI8& mask);

// The contours' mask of the image's size, 255 in what they include; null if the operator broke it off or it failed, the
// reason being in `outcome`.
std::unique_ptr<KvN::KvAOI8> DrawContourMask(QWidget* parent, const KvN::KvAOI& image,
                                             const std::vector<KvN::KvContour>& contours, Outcome& outcome);

} // namespace kv::workbench
