// Pictures on the screen against committed ones, at zero tolerance.
#include "tests/ui/golden.h"

#include "contracts/basics.h"
#include "contracts/image.h"

#include <algorithm>
#include <cstdlib>

using kv::win::Picture;

namespace kv::test
{

namespace
{
// Empty if there is no such file.
Picture Loaded(const std::string& path)
{
    Picture picture;
    try
    {
        const auto aoi = KvN::KvxLoadAOI(KvN::KvString(path.c_str()));
        const auto* grey = dynamic_cast<const KvN::KvAOI8*>(aoi.get());
        const auto* color = dynamic_cast<const KvN::KvAOI32Color*>(aoi.get());
        picture.width = aoi->AOIWidth();
        picture.height = aoi->AOIHeight();
        for (int y = 0; y < picture.height; ++y)
        {
            for (int x = 0; x < picture.width; ++x)
            {
                const KvN::KvColor pixel = color  ? color->GetRowPointer(y)[x]
                                           : grey ? KvN::KvColor(grey->GetRowPointer(y)[x], grey->GetRowPointer(y)[x],
                                                                 grey->GetRowPointer(y)[x])
                                                  : KvN::KvColor();
                picture.pixels.push_back(static_cast<std::uint32_t>(pixel.red << 16 | pixel.green << 8 | pixel.blue));
            }
        }
    }
    catch (KvN::KvException* failure)
    {
        failure->Delete();
        return {};
    }
    return picture;
}

// White where the two differ.
Picture Difference(const Picture& a, const Picture& b)
{
    Picture difference = a;
    for (int y = 0; y < a.height; ++y)
    {
        for (int x = 0; x < a.width; ++x)
        {
            const bool same = x < b.width && y < b.height && (a.At(x, y) & 0xFFFFFF) == (b.At(x, y) & 0xFFFFFF);
            difference.pixels[static_cast<size_t>(y) * static_cast<size_t>(a.width) + static_cast<size_t>(x)] =
                same ? 0x000000 : 0xFFFFFF;
        }
    }
    return difference;
}
} // namespace

::testing::AssertionResult IsGolden(const Picture& actual, const std::string& name)
{
    const std::string path = KV_TEST_DATA "/ui/golden/" + name + ".png";
    if (std::getenv("KV_WRITE_GOLDENS"))
    {
        if (!kv::win::SavePicture(actual, path))
            return ::testing::AssertionFailure() << path << " can't be written";
        return ::testing::AssertionSuccess();
    }
    const Picture expected = Loaded(path);
    if (expected.width == 0)
        return ::testing::AssertionFailure() << path << " can't be read";
    const Picture difference = Difference(actual, expected);
    const auto count = std::count(difference.pixels.begin(), difference.pixels.end(), 0xFFFFFFu);
    if (count == 0 && actual.width == expected.width && actual.height == expected.height)
        return ::testing::AssertionSuccess();
    kv::win::SavePicture(actual, name + ".actual.png");
    kv::win::SavePicture(expected, name + ".expected.png");
    kv::win::SavePicture(difference, name + ".difference.png");
    return ::testing::AssertionFailure() << name << ": " << count << " pixels differ";
}

} // namespace kv::test
