// kvcontour mask: pixels, sizes, values, times, and everything that can be wrong.
#include "contracts/image/KvImageFile.h"
#include "tests/contour/kvcontour.h"

using namespace KvN;
using kv::testing::ContourXml;
using kv::testing::File;
using kv::testing::Outcome;
using testing::HasSubstr;
using testing::MatchesRegex;

namespace
{
class ContourMask : public kv::testing::Program
{
protected:
    // The mask as rows of digits: 0 for 0, 1 for `value`, ? for anything else.
    std::string Pixels(const std::string& name, int value = 255) const
    {
        const auto aoi = KvxLoadAOI(KvString((folder / name).c_str()));
        const auto& mask = dynamic_cast<const KvAOI8&>(*aoi);
        std::string text;
        for (short y = 0; y < mask.AOIHeight(); ++y)
        {
            for (short x = 0; x < mask.AOIWidth(); ++x)
                text += mask.GetPoint(x, y) == value ? '1' : mask.GetPoint(x, y) == 0 ? '0' : '?';
            text += '\n';
        }
        return text;
    }
};

const std::string figures =
    File(ContourXml("", "0", {{"0", "0"}, {"0", "3"}, {"4", "3"}, {"4", "0"}}) +
         ContourXml("", "0", {{"1", "1"}, {"1", "2"}, {"2", "2"}, {"2", "1"}}, "<Exclude>1</Exclude>"));
const std::string expected = "111110\n"
                             "100110\n"
                             "100110\n"
                             "111110\n"
                             "000000\n";
} // namespace

TEST_F(ContourMask, DrawsInTheOrderOfTheFile)
{
    Put("a.xml", figures);
    const Outcome outcome = Run("mask a.xml --size 6x5 -o m.png");
    EXPECT_EQ(outcome.exitCode, 0) << outcome.error;
    EXPECT_EQ(outcome.out, "");
    EXPECT_EQ(outcome.error, "") << "no progress where there is no terminal";
    EXPECT_EQ(Pixels("m.png"), expected);
}

TEST_F(ContourMask, TakesTheSizeOfAnImageAndWritesTiff)
{
    Put("a.xml", figures);
    KvBufferAOI32Color({6, 5}).Save(KvString((folder / "like.bmp").c_str()));
    EXPECT_EQ(Run("mask a.xml --like like.bmp -o m.TIF").exitCode, 0);
    EXPECT_EQ(Pixels("m.TIF"), expected);
}

TEST_F(ContourMask, CoveredPixelsGetTheValue)
{
    Put("a.xml", figures);
    EXPECT_EQ(Run("mask a.xml --size 6x5 -o m.png --value 7").exitCode, 0);
    EXPECT_EQ(Pixels("m.png", 7), expected);
}

TEST_F(ContourMask, TellsItsTimes)
{
    Put("a.xml", figures);
    EXPECT_THAT(Run("mask a.xml --size 6x5 -o m.png --time").out,
                MatchesRegex("load=[0-9]+\\.[0-9]+ raster=[0-9]+\\.[0-9]+ save=[0-9]+\\.[0-9]+\n"));
}

TEST_F(ContourMask, SizesOutOfRangeAreTheInputsFault)
{
    Put("a.xml", figures);
    for (const char* size : {"0x5", "5x0", "-3x5", "32768x5", "5x99999999999999999999"})
    {
        const Outcome outcome = Run(std::string("mask a.xml --size=") + size + " -o m.png");
        EXPECT_EQ(outcome.exitCode, 1) << size;
        EXPECT_EQ(outcome.error, std::string("kvcontour: --size ") + size + ": each side has 1 to 32767 pixels\n");
    }
    EXPECT_EQ(Files(), 1);
}

TEST_F(ContourMask, LargestSizeWorks)
{
    Put("a.xml", figures);
    EXPECT_EQ(Run("mask a.xml --size 32767x2 -o m.png").exitCode, 0);
    EXPECT_EQ(KvxImageSize(KvString((folder / "m.png").c_str())), KvTSize<short>(32767, 2));
}

TEST_F(ContourMask, CommandLineFaultsAreTold)
{
    Put("a.xml", figures);
    for (const char* arguments :
         {"mask a.xml -o m.png", "mask a.xml --size 5 -o m.png", "mask a.xml --size axb -o m.png",
          "mask a.xml --size 5x5 --like b.png -o m.png", "mask a.xml --size 5x5", "mask a.xml --size 5x5 -o m.jpg",
          "mask a.xml --size 5x5 -o m.png --value 256", "mask --size 5x5 -o m.png"})
    {
        const Outcome outcome = Run(arguments);
        EXPECT_EQ(outcome.exitCode, 2) << arguments;
        EXPECT_THAT(outcome.error, HasSubstr("kvcontour: ")) << arguments;
    }
    EXPECT_EQ(Files(), 1);
}

TEST_F(ContourMask, BadFilesLeaveNoMask)
{
    Put("a.xml", figures);
    Put("bad.xml", "<Contours><Contour>");
    Put("bad.png", "\x89PNG\r\n\x1A\n");
    Put("no.png", "no image");
    EXPECT_EQ(Run("mask bad.xml --size 5x5 -o m.png").exitCode, 1);
    Outcome outcome = Run("mask a.xml --like bad.png -o m.png");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.error, "kvcontour: bad.png: the image is cut off\n");
    outcome = Run("mask a.xml --like no.png -o m.png");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_EQ(outcome.error, "kvcontour: no.png: is no PNG, BMP, JPEG or TIFF image\n");
    outcome = Run("mask a.xml --like missing.png -o m.png");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.error, HasSubstr("kvcontour: missing.png: can't be read"));
    EXPECT_EQ(Run("mask missing.xml --size 5x5 -o m.png").exitCode, 1);
    outcome = Run("mask a.xml --size 5x5 -o missing/m.png");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.error, HasSubstr("kvcontour: missing/m.png: can't be written"));
    EXPECT_EQ(Files(), 4);
}

TEST_F(ContourMask, AFullDiskKeepsTheFormerMask)
{
    Put("a.xml", figures);
    Put("m.tif", "former");
    const Outcome outcome = Run("mask a.xml --size 2000x2000 -o m.tif", "ulimit -f 1;");
    EXPECT_EQ(outcome.exitCode, 1);
    EXPECT_THAT(outcome.error, HasSubstr("kvcontour: m.tif: can't be written"));
    EXPECT_EQ(Get("m.tif"), "former");
    EXPECT_EQ(Files(), 2);
}
