// Reading and writing of image files, with the words of this program for what can be wrong.
#include "apps/contour/image_file.h"

#include "apps/contour/failure.h"
#include "contracts/image/KvImageException.h"
#include "contracts/image/KvImageFile.h"
#include "resources/resource.h"

#include <algorithm>
#include <cctype>
#include <filesystem>

namespace kvcontour
{
using namespace KvN;
namespace
{
std::string Words(const KvImageException& failure)
{
    const std::string size = std::to_string(failure.Width()) + " x " + std::to_string(failure.Height());
    const std::string detail = failure.Detail().Utf8();
    switch (failure.Reason())
    {
    case IDS_IMAGE_NOT_READ:
        return "can't be read: " + detail;
    case IDS_IMAGE_UNKNOWN_FORMAT:
        return "is no PNG, BMP, JPEG or TIFF image";
    case IDS_IMAGE_CUT_OFF:
        return "the image is cut off";
    case IDS_IMAGE_DAMAGED:
        return "the image is damaged: " + detail;
    case IDS_IMAGE_TOO_LARGE:
        return "an image of " + size + " pixels is not possible; each side has 1 to 32767";
    case IDS_IMAGE_NO_MEMORY:
        return "the memory does not suffice for " + size + " pixels";
    case IDS_IMAGE_UNSUPPORTED:
        return "this kind of image is not supported: " + detail;
    case IDS_IMAGE_UNKNOWN_ENDING:
        return "the name must end in .png, .bmp, .jpg, .jpeg, .tif or .tiff";
    case IDS_IMAGE_NO_FLOATS:
        return detail + " files can't hold floating-point values; TIFF can";
    case IDS_IMAGE_NOT_WRITTEN:
        return "can't be written: " + detail;
    default:
        return failure.GetMessageW().Utf8();
    }
}

// Runs `work` and puts what the library says of an image file into this program's words.
template <class Work>
auto Worded(Work work) -> decltype(work())
{
    try
    {
        return work();
    }
    catch (KvImageException* thrown)
    {
        const std::unique_ptr<KvImageException> failure(thrown);
        throw Failure(failure->ImageFile().Utf8(), Words(*failure));
    }
}

KvString NameOf(const std::string& file)
{
    return KvString(file.c_str());
}
} // namespace

std::unique_ptr<KvAOI> ReadImage(const std::string& file)
{
    return Worded([&] { return KvxLoadAOI(NameOf(file)); });
}

KvTSize<short> SizeOfImage(const std::string& file)
{
    return Worded([&] { return KvxImageSize(NameOf(file)); });
}

void WriteImage(const std::string& file, const KvAOI& aoi)
{
    Worded([&] { KvxSaveAOI(aoi, NameOf(file)); });
}

std::string CheckEnding(const std::string& file, std::initializer_list<const char*> endings)
{
    std::string own = std::filesystem::path(file).extension().string();
    std::transform(own.begin(), own.end(), own.begin(), [](unsigned char c) { return std::tolower(c); });
    std::string wanted;
    for (const char* ending : endings)
    {
        if (own == ending)
            return {};
        wanted += (wanted.empty() ? "" : ", ") + std::string(ending);
    }
    return "the name of " + file + " ends in none of " + wanted;
}

} // namespace kvcontour
