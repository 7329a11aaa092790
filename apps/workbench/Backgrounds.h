// The images beside an image that can be shown below its mask.
#pragma once

#include "apps/workbench/Progress.h"

#include <memory>
#include <vector>

namespace KvN
{
class KvAOI;
}

namespace kv::workbench
{

// In the order of their names: those before the image and those behind it.
struct Backgrounds
{
    std::vector<std::unique_ptr<KvN::KvAOI>> before;
    std::vector<std::unique_ptr<KvN::KvAOI>> behind;
};

// How many images can be offered, the image included, and how many pixels they have together.
constexpr size_t mostBackgrounds = 16;
constexpr long long mostBackgroundPixels = 200'000'000;

// Loads the images of the folder that are as large as the image, the nearest ones if there are many. Files that can't
// be read are passed over.
Outcome LoadBackgrounds(QWidget* parent, const QString& path, const KvN::KvAOI& image, Backgrounds& backgrounds);

} // namespace kv::workbench
