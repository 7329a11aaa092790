// Image files: round trips, what formats can't hold, damaged and oversized files.
#include "contracts/image/KvImageFile.h"

#include "contracts/basics/KvException.h"
#include "contracts/image/imagefile_p.h"

#include <gtest/gtest.h>

#include <png.h>
#include <tiffio.h>

#include <unistd.h>

#include <cmath>
#include <cstring>
#include <filesystem>
#include <fstream>
#include <functional>

namespace
{
using namespace KvN;
namespace fs = std::filesystem;

class ImageFiles : public testing::Test
{
protected:
    void SetUp() override
    {
        folder = fs::temp_directory_path() / ("kv-image-test-" + std::to_string(getpid()) + "-" +
                                              testing::UnitTest::GetInstance()->current_test_info()->name());
        fs::create_directories(folder);
    }
    void TearDown() override { fs::remove_all(folder); }

    KvString Path(const char* name) const { return KvString((folder / name).c_str()); }

    std::string Bytes(const char* name) const
    {
        std::ifstream in(folder / name, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }

    KvString Write(const char* name, const std::string& bytes) const
    {
        std::ofstream(folder / name, std::ios::binary) << bytes;
        return Path(name);
    }

    fs::path folder;
};

// The message of the exception that `work` throws, without the file's folder; empty if none comes.
std::string Failure(const std::function<void()>& work)
{
    try
    {
        work();
    }
    catch (KvException* failure)
    {
        const std::string message = failure->GetMessageW().Utf8();
        failure->Delete();
        const size_t name = message.find(": ");
        return message.substr(message.rfind('/', name) + 1);
    }
    return {};
}

KvBufferAOI8 GreyPicture(short width, short height)
{
    KvBufferAOI8 aoi({width, height});
    for (short y = 0; y < height; ++y)
    {
        for (short x = 0; x < width; ++x)
            aoi.SetPoint({x, y}, static_cast<unsigned char>(7 * x + 31 * y));
    }
    return aoi;
}

KvBufferAOI32Color ColorPicture(short width, short height)
{
    KvBufferAOI32Color aoi({width, height});
    for (short y = 0; y < height; ++y)
    {
        for (short x = 0; x < width; ++x)
            aoi.SetPoint({x, y}, KvColor(9 * x % 256, 5 * y % 256, (x + y) % 256));
    }
    return aoi;
}

template <class T>
void ExpectSamePixels(const KvTAOI<T>& a, const KvTAOI<T>& b)
{
    ASSERT_EQ(a.AOISize(), b.AOISize());
    for (int y = 0; y < a.AOIHeight(); ++y)
        ASSERT_TRUE(std::equal(a.GetRowPointer(y), a.GetRowPointer(y) + a.AOIWidth(), b.GetRowPointer(y))) << y;
}

template <class AOI>
const AOI& As(const std::unique_ptr<KvAOI>& aoi)
{
    const auto* fitting = dynamic_cast<const AOI*>(aoi.get());
    if (!fitting)
        throw std::runtime_error("another kind of AOI was loaded");
    return *fitting;
}
} // namespace

TEST_F(ImageFiles, EightBitsSurviveEveryLosslessFormat)
{
    // Widths that leave every kind of row padding.
    for (const char* name : {"a.png", "a.bmp", "a.tif", "a.TIFF"})
    {
        for (short width : {1, 2, 3, 4, 33})
        {
            auto aoi = GreyPicture(width, 5);
            aoi.Save(Path(name));
            const auto loaded = KvxLoadAOI(Path(name));
            ExpectSamePixels<unsigned char>(aoi, As<KvAOI8>(loaded));
            EXPECT_EQ(loaded->GetAOIName().Utf8(), name);
            EXPECT_EQ(KvxImageSize(Path(name)), KvTSize<short>(width, 5));
        }
    }
}

TEST_F(ImageFiles, ColoursSurviveEveryLosslessFormat)
{
    for (const char* name : {"a.png", "a.bmp", "a.tif"})
    {
        for (short width : {1, 2, 3, 31})
        {
            auto aoi = ColorPicture(width, 4);
            aoi.Save(Path(name));
            ExpectSamePixels<KvColor>(aoi, As<KvAOI32Color>(KvxLoadAOI(Path(name))));
        }
    }
}

TEST_F(ImageFiles, JpegKeepsSizeAndComesClose)
{
    KvBufferAOI8 grey({40, 30});
    KvBufferAOI32Color color({40, 30});
    for (int y = 0; y < 30; ++y)
    {
        std::fill_n(grey.GetRowPointer(y), 40, static_cast<unsigned char>(4 * y));
        std::fill_n(color.GetRowPointer(y), 40, KvColor(200, 100, 4 * y));
    }
    grey.Save(Path("g.jpg"));
    color.Save(Path("c.jpeg"));
    const auto g = KvxLoadAOI(Path("g.jpg")), c = KvxLoadAOI(Path("c.jpeg"));
    EXPECT_NEAR(As<KvAOI8>(g).GetPoint(20, 20), 80, 3);
    EXPECT_NEAR(As<KvAOI32Color>(c).GetPoint(20, 20).red, 200, 4);
    EXPECT_NEAR(As<KvAOI32Color>(c).GetPoint(20, 20).blue, 80, 4);
    EXPECT_EQ(KvxImageSize(Path("c.jpeg")), KvTSize<short>(40, 30));
}

TEST_F(ImageFiles, FloatsSurviveTiffAndNothingElseTakesThem)
{
    KvBufferAOI32Float aoi({3, 2});
    aoi.SetPoint({0, 0}, -1.25e30f);
    aoi.SetPoint({2, 1}, 3.0e-20f);
    aoi.Save(Path("f.tif"));
    ExpectSamePixels<float>(aoi, As<KvAOI32Float>(KvxLoadAOI(Path("f.tif"))));
    EXPECT_EQ(Failure([&] { aoi.Save(Path("f.png")); }),
              "f.png: PNG-Dateien können keine Gleitkommawerte aufnehmen; TIFF kann es");
    EXPECT_NE(Failure([&] { aoi.Save(Path("f.bmp")); }), "");
    EXPECT_NE(Failure([&] { aoi.Save(Path("f.jpg")); }), "");
    EXPECT_FALSE(fs::exists(folder / "f.png")) << "a failed save leaves no file";
    EXPECT_FALSE(fs::exists(folder / "f.bmp"));
    EXPECT_FALSE(fs::exists(folder / "f.jpg"));
}

TEST_F(ImageFiles, UnknownEndingIsRefusedAndNothingWritten)
{
    auto aoi = GreyPicture(2, 2);
    EXPECT_EQ(Failure([&] { aoi.Save(Path("a.gif")); }).find("a.gif: die Endung"), 0u);
    EXPECT_NE(Failure([&] { aoi.Save(Path("png")); }), "");
    EXPECT_TRUE(fs::is_empty(folder));
}

TEST_F(ImageFiles, AnEmptyAOICannotBeSaved)
{
    KvBufferAOI8 aoi({0, 3});
    EXPECT_EQ(Failure([&] { aoi.Save(Path("a.png")); }), "a.png: ein Bild ohne Pixel kann nicht gespeichert werden");
}

TEST_F(ImageFiles, AFailedSaveKeepsTheFormerFile)
{
    const KvString name = Write("a.png", "precious");
    KvBufferAOI32Float aoi({1, 1});
    EXPECT_NE(Failure([&] { aoi.Save(name); }), "");
    EXPECT_EQ(Bytes("a.png"), "precious");
    EXPECT_NE(Failure([&] { GreyPicture(1, 1).Save(Path("missing/a.png")); }), "");
}

TEST_F(ImageFiles, MissingEmptyAndForeignFilesSayWhatIsWrong)
{
    EXPECT_EQ(Failure([&] { KvxLoadAOI(Path("no.png")); }).find("no.png: die Datei kann nicht gelesen werden"), 0u);
    EXPECT_EQ(Failure([&] { KvxLoadAOI(Write("e.png", "")); }), "e.png: die Bilddatei ist abgeschnitten");
    EXPECT_EQ(Failure([&] { KvxLoadAOI(Write("x.png", "hello, world")); }).find("x.png: kein bekanntes Bildformat"),
              0u);
    EXPECT_NE(Failure([&] { KvxLoadAOI(KvString(folder.c_str())); }), "");
}

TEST_F(ImageFiles, TheContentTellsTheFormatNotTheName)
{
    auto aoi = GreyPicture(3, 3);
    aoi.Save(Path("a.bmp"));
    fs::rename(folder / "a.bmp", folder / "a.png");
    ExpectSamePixels<unsigned char>(aoi, As<KvAOI8>(KvxLoadAOI(Path("a.png"))));
}

TEST_F(ImageFiles, EveryTruncationIsAnErrorAndNoCrash)
{
    for (const char* name : {"a.png", "a.bmp", "a.jpg", "a.tif", "f.tif"})
    {
        if (name[0] == 'f')
            KvBufferAOI32Float({9, 7}).Save(Path(name));
        else
            ColorPicture(9, 7).Save(Path(name));
        const std::string whole = Bytes(name);
        for (size_t length = 0; length < whole.size(); length += length < 200 ? 1 : 7)
        {
            const KvString cut = Write("cut", whole.substr(0, length));
            const std::string failure = Failure([&] { KvxLoadAOI(cut); });
            EXPECT_NE(failure, "") << name << " cut to " << length << " of " << whole.size();
        }
    }
}

TEST_F(ImageFiles, AnOversizedHeaderIsRefusedBeforeItCostsMemory)
{
    auto aoi = GreyPicture(3, 3);
    aoi.Save(Path("a.bmp"));
    std::string bytes = Bytes("a.bmp");
    const auto withSize = [&](int width, int height)
    {
        std::memcpy(&bytes[18], &width, 4);
        std::memcpy(&bytes[22], &height, 4);
        return Failure([&] { KvxLoadAOI(Write("b.bmp", bytes)); });
    };
    EXPECT_NE(withSize(32768, 1).find("ein Bild von 32768 x 1 Pixeln ist nicht möglich"), std::string::npos);
    EXPECT_NE(withSize(1, -32768).find("nicht möglich"), std::string::npos);
    EXPECT_NE(withSize(0, 1).find("nicht möglich"), std::string::npos);
    EXPECT_NE(withSize(-5, 1).find("nicht möglich"), std::string::npos);
    EXPECT_NE(withSize(1, INT32_MIN).find("nicht möglich"), std::string::npos);
    EXPECT_EQ(withSize(32767, 32767), "b.bmp: die Bilddatei ist abgeschnitten");
}

TEST_F(ImageFiles, MorePixelsThanMemoryAreRefused)
{
    auto aoi = GreyPicture(30, 30);
    for (const char* name : {"a.png", "a.bmp", "a.jpg", "a.tif"})
    {
        aoi.Save(Path(name));
        const std::string text = Bytes(name);
        const imagefile::Bytes bytes(reinterpret_cast<const unsigned char*>(text.data()), text.size());
        const auto decode = [&](const imagefile::Limits& limits)
        {
            switch (name[2])
            {
            case 'p':
                return imagefile::DecodePng(bytes, limits);
            case 'b':
                return imagefile::DecodeBmp(bytes, limits);
            case 'j':
                return imagefile::DecodeJpeg(bytes, limits);
            default:
                return imagefile::DecodeTiff(bytes, limits);
            }
        };
        EXPECT_NO_THROW(decode({100000})) << name;
        EXPECT_THROW(decode({899}), imagefile::Fault) << name;
    }
}

TEST_F(ImageFiles, BmpOfFewBitsAndBothRowOrdersIsRead)
{
    // 3 by 2 pixels of 1 bit with the colours red and white, first bottom up, then top down.
    std::string bytes("BM\0\0\0\0\0\0\0\0\x3E\0\0\0"
                      "\x28\0\0\0\x03\0\0\0\x02\0\0\0\x01\0\x01\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0"
                      "\0\0\xFF\0\xFF\xFF\xFF\0"
                      "\x40\0\0\0\x20\0\0\0",
                      14 + 40 + 8 + 8);
    const auto bottomUp = KvxLoadAOI(Write("a.bmp", bytes));
    EXPECT_EQ(As<KvAOI32Color>(bottomUp).GetPoint(1, 1), KvColor(255, 255, 255));
    EXPECT_EQ(As<KvAOI32Color>(bottomUp).GetPoint(2, 0), KvColor(255, 255, 255));
    EXPECT_EQ(As<KvAOI32Color>(bottomUp).GetPoint(0, 0), KvColor(255, 0, 0));
    const int height = -2;
    std::memcpy(&bytes[22], &height, 4);
    EXPECT_EQ(As<KvAOI32Color>(KvxLoadAOI(Write("b.bmp", bytes))).GetPoint(1, 0), KvColor(255, 255, 255));
    // With grey colours only it is an 8-bit picture.
    bytes[14 + 40 + 2] = 0;
    EXPECT_EQ(As<KvAOI8>(KvxLoadAOI(Write("c.bmp", bytes))).GetPoint(1, 0), 255);
    bytes[30] = 1;
    EXPECT_NE(Failure([&] { KvxLoadAOI(Write("d.bmp", bytes)); }).find("nicht unterstützt"), std::string::npos);
}

TEST_F(ImageFiles, SixteenBitPngLoadsAsFloat)
{
    const unsigned short values[] = {0, 1, 256, 65535, 4660, 43981};
    {
        std::FILE* file = std::fopen((folder / "deep.png").c_str(), "wb");
        png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
        png_infop info = png_create_info_struct(png);
        png_init_io(png, file);
        png_set_IHDR(png, info, 3, 2, 16, PNG_COLOR_TYPE_GRAY, PNG_INTERLACE_ADAM7, PNG_COMPRESSION_TYPE_DEFAULT,
                     PNG_FILTER_TYPE_DEFAULT);
        png_write_info(png, info);
        png_set_swap(png);
        png_const_bytep rows[] = {reinterpret_cast<png_const_bytep>(values),
                                  reinterpret_cast<png_const_bytep>(values + 3)};
        png_write_image(png, const_cast<png_bytepp>(rows));
        png_write_end(png, info);
        png_destroy_write_struct(&png, &info);
        std::fclose(file);
    }
    const auto aoi = KvxLoadAOI(Path("deep.png"));
    for (int i = 0; i < 6; ++i)
        EXPECT_EQ(As<KvAOI32Float>(aoi).GetPoint(static_cast<short>(i % 3), static_cast<short>(i / 3)), values[i]);
    KvBufferAOI8 grey({1, 1});
    EXPECT_NE(Failure([&] { grey.Load(Path("deep.png")); }), "");
    EXPECT_EQ(grey.AOISize(), KvTSize<short>(1, 1));
}

namespace
{
// A grey TIFF of 37 by 21 pixels with value x + 40 * y, as the fields say.
template <class Number>
void WriteTiff(const fs::path& name, int format, bool tiled, int rowsPerStrip, int compression)
{
    TIFF* tiff = TIFFOpen(name.c_str(), "w");
    TIFFSetField(tiff, TIFFTAG_IMAGEWIDTH, 37);
    TIFFSetField(tiff, TIFFTAG_IMAGELENGTH, 21);
    TIFFSetField(tiff, TIFFTAG_BITSPERSAMPLE, static_cast<int>(8 * sizeof(Number)));
    TIFFSetField(tiff, TIFFTAG_SAMPLESPERPIXEL, 1);
    TIFFSetField(tiff, TIFFTAG_SAMPLEFORMAT, format);
    TIFFSetField(tiff, TIFFTAG_PHOTOMETRIC, PHOTOMETRIC_MINISBLACK);
    TIFFSetField(tiff, TIFFTAG_COMPRESSION, compression);
    if (tiled)
    {
        TIFFSetField(tiff, TIFFTAG_TILEWIDTH, 16);
        TIFFSetField(tiff, TIFFTAG_TILELENGTH, 16);
        for (unsigned top = 0; top < 21; top += 16)
        {
            for (unsigned left = 0; left < 37; left += 16)
            {
                std::vector<Number> tile(16 * 16);
                for (unsigned i = 0; i < tile.size(); ++i)
                    tile[i] = static_cast<Number>(left + i % 16 + 40 * (top + i / 16));
                TIFFWriteTile(tiff, tile.data(), left, top, 0, 0);
            }
        }
    }
    else
    {
        TIFFSetField(tiff, TIFFTAG_ROWSPERSTRIP, rowsPerStrip);
        for (unsigned y = 0; y < 21; ++y)
        {
            std::vector<Number> row(37);
            for (unsigned x = 0; x < 37; ++x)
                row[x] = static_cast<Number>(x + 40 * y);
            TIFFWriteScanline(tiff, row.data(), y, 0);
        }
    }
    TIFFClose(tiff);
}
} // namespace

TEST_F(ImageFiles, TiffValuesOfEveryKindLoadAsFloat)
{
    const auto check = [&](const char* what)
    {
        const auto loaded = KvxLoadAOI(Path("t.tif"));
        const auto& aoi = As<KvAOI32Float>(loaded);
        ASSERT_EQ(aoi.AOISize(), KvTSize<short>(37, 21)) << what;
        for (short y = 0; y < 21; ++y)
        {
            for (short x = 0; x < 37; ++x)
                ASSERT_EQ(aoi.GetPoint(x, y), static_cast<float>(x + 40 * y)) << what;
        }
    };
    WriteTiff<std::uint16_t>(folder / "t.tif", SAMPLEFORMAT_UINT, false, 4, COMPRESSION_NONE);
    check("16 bit, strips");
    WriteTiff<std::uint16_t>(folder / "t.tif", SAMPLEFORMAT_UINT, true, 0, COMPRESSION_LZW);
    check("16 bit, tiles");
    WriteTiff<std::int16_t>(folder / "t.tif", SAMPLEFORMAT_INT, false, 5, COMPRESSION_LZW);
    check("16 bit signed");
    WriteTiff<std::uint32_t>(folder / "t.tif", SAMPLEFORMAT_UINT, false, 21, COMPRESSION_NONE);
    check("32 bit");
    WriteTiff<float>(folder / "t.tif", SAMPLEFORMAT_IEEEFP, true, 0, COMPRESSION_NONE);
    check("float, tiles");
    WriteTiff<double>(folder / "t.tif", SAMPLEFORMAT_IEEEFP, false, 1, COMPRESSION_NONE);
    check("double");
}

TEST_F(ImageFiles, TiledEightBitTiffLoadsAsGrey)
{
    WriteTiff<unsigned char>(folder / "t.tif", SAMPLEFORMAT_UINT, true, 0, COMPRESSION_PACKBITS);
    const auto loaded = KvxLoadAOI(Path("t.tif"));
    EXPECT_EQ(As<KvAOI8>(loaded).GetPoint(36, 20), static_cast<unsigned char>(36 + 800));
}

TEST_F(ImageFiles, LoadIntoAnAOIConvertsAndReplacesIt)
{
    ColorPicture(4, 3).Save(Path("c.png"));
    GreyPicture(2, 5).Save(Path("g.png"));
    KvBufferAOI8 grey({1, 1});
    const KvAOI8 other(grey.GetDevice());
    grey.Load(Path("c.png"));
    EXPECT_EQ(grey.AOISize(), KvTSize<short>(4, 3));
    EXPECT_EQ(other.AOISize(), KvTSize<short>(1, 1));
    KvBufferAOI32Color color({1, 1});
    color.Load(Path("g.png"));
    EXPECT_EQ(color.GetPoint(1, 1), KvColor(38, 38, 38));
    KvBufferAOI32Float real({1, 1});
    real.Load(Path("g.png"));
    EXPECT_EQ(real.GetPoint(1, 1), 38.0f);
}
