// Which format a file has, and what of it fits into which AOI.
#include "contracts/image/KvImageFile.h"

#include "contracts/basics/KvAtomicFile.h"
#include "contracts/image/KvImageException.h"
#include "contracts/image/KvOperators.h"
#include "contracts/image/imagefile_p.h"
#include "resources/resource.h"

#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <filesystem>
#include <memory>
#include <new>

namespace KvN::imagefile
{

namespace
{

constexpr short largestSide = 32767;

struct Codec
{
    const char* magic;
    size_t magicLength;
    Size (*size)(Bytes);
    Pixels (*decode)(Bytes, const Limits&);
    void (*encode)(const PixelView&, Sink&);
    std::array<const char*, 2> endings;
};

const std::array<Codec, 5> codecs = {{
    {"\x89PNG\r\n\x1A\n", 8, SizeOfPng, DecodePng, EncodePng, {".png", ""}},
    {"BM", 2, SizeOfBmp, DecodeBmp, EncodeBmp, {".bmp", ""}},
    {"\xFF\xD8\xFF", 3, SizeOfJpeg, DecodeJpeg, EncodeJpeg, {".jpg", ".jpeg"}},
    {"II", 2, SizeOfTiff, DecodeTiff, EncodeTiff, {".tif", ".tiff"}},
    {"MM", 2, SizeOfTiff, DecodeTiff, EncodeTiff, {".tif", ".tiff"}},
}};

const Codec& CodecOf(Bytes file)
{
    for (const Codec& codec : codecs)
    {
        const size_t length = std::min(codec.magicLength, file.size());
        if (length > 0 && std::memcmp(file.data(), codec.magic, length) == 0)
        {
            if (length < codec.magicLength)
                throw Reason(IDS_IMAGE_CUT_OFF);
            return codec;
        }
    }
    throw Reason(file.empty() ? IDS_IMAGE_CUT_OFF : IDS_IMAGE_UNKNOWN_FORMAT);
}

const Codec& CodecOf(const std::filesystem::path& file)
{
    std::string ending = file.extension().string();
    std::transform(ending.begin(), ending.end(), ending.begin(), [](unsigned char c) { return std::tolower(c); });
    for (const Codec& codec : codecs)
    {
        if (!ending.empty() && (ending == codec.endings[0] || ending == codec.endings[1]))
            return codec;
    }
    throw Reason(IDS_IMAGE_UNKNOWN_ENDING);
}

std::vector<unsigned char> Read(const std::string& name)
{
    const auto close = [](std::FILE* f) { std::fclose(f); };
    const std::unique_ptr<std::FILE, decltype(close)> file(std::fopen(name.c_str(), "rb"), close);
    std::vector<unsigned char> bytes;
    std::array<unsigned char, 1 << 16> part;
    size_t got = 0;
    while (file && (got = std::fread(part.data(), 1, part.size(), file.get())) > 0)
        bytes.insert(bytes.end(), part.data(), part.data() + got);
    if (!file || std::ferror(file.get()))
        throw Reason(IDS_IMAGE_NOT_READ, std::strerror(errno));
    return bytes;
}

// Runs `work` and makes its faults exceptions that name the file.
template <class Work>
auto Naming(const KvString& file, Work work) -> decltype(work())
{
    try
    {
        return work();
    }
    catch (const Fault& fault)
    {
        throw new KvImageException(file, fault.reason, KvString(fault.detail.c_str()), fault.size.width,
                                   fault.size.height);
    }
}

Pixels Load(const KvString& file)
{
    const std::vector<unsigned char> bytes = Read(file.Utf8());
    const Codec& codec = CodecOf(bytes);
    try
    {
        return codec.decode(bytes, Limits::OfMachine());
    }
    catch (const std::bad_alloc&)
    {
        throw Fault{IDS_IMAGE_NO_MEMORY, {}, codec.size(bytes)};
    }
}

template <class To, class From>
KvTBuf2D<To> Converted(KvTBuf2D<From>&& from)
{
    using Source = KvTBufferAOI<KvTDevice<From, KvTAOI<From>::Device::deviceType>,
                                std::conditional_t<sizeof(From) == 1, KvAOI8, KvAOI32Color>>;
    using Target =
        std::conditional_t<sizeof(To) == 1, KvBufferAOI8,
                           std::conditional_t<std::is_same_v<To, float>, KvBufferAOI32Float, KvBufferAOI32Color>>;
    Source source({0, 0});
    source.Adopt(std::move(from));
    Target target(source.AOISize());
    KvLTransfer().Copy(&source, &target);
    KvTBuf2D<To> result;
    target.GetBlock(result);
    return result;
}

template <class T>
KvTBuf2D<T> Fitting(Pixels&& pixels)
{
    if (auto* same = std::get_if<KvTBuf2D<T>>(&pixels))
        return std::move(*same);
    if constexpr (!std::is_same_v<T, unsigned char>)
    {
        if (auto* grey = std::get_if<KvTBuf2D<unsigned char>>(&pixels))
            return Converted<T>(std::move(*grey));
    }
    if constexpr (!std::is_same_v<T, KvColor>)
    {
        if (auto* color = std::get_if<KvTBuf2D<KvColor>>(&pixels))
            return Converted<T>(std::move(*color));
    }
    throw Reason(IDS_IMAGE_NOT_8_BIT);
}

template <class AOI, class T>
std::unique_ptr<KvAOI> AOIFrom(KvTBuf2D<T>&& pixels)
{
    auto aoi = std::make_unique<AOI>(KvTSize<short>());
    aoi->Adopt(std::move(pixels));
    return aoi;
}
std::unique_ptr<KvAOI> MakeAOI(KvTBuf2D<unsigned char>&& p)
{
    return AOIFrom<KvBufferAOI8>(std::move(p));
}
std::unique_ptr<KvAOI> MakeAOI(KvTBuf2D<float>&& p)
{
    return AOIFrom<KvBufferAOI32Float>(std::move(p));
}
std::unique_ptr<KvAOI> MakeAOI(KvTBuf2D<KvColor>&& p)
{
    return AOIFrom<KvBufferAOI32Color>(std::move(p));
}

class FileSink : public Sink
{
public:
    explicit FileSink(const std::filesystem::path& name) : file(name) {}
    bool Write(const void* data, std::size_t size) override { return file.Write(data, size); }
    void Commit()
    {
        if (!file.Commit())
            throw Reason(IDS_IMAGE_NOT_WRITTEN, file.Error().message());
    }

private:
    KvAtomicFile file;
};

template <class T>
PixelView ViewOf(const KvTAOI<T>& aoi)
{
    return View<T>{aoi.GetRowPointer(0), aoi.AOIWidth(), aoi.AOIHeight()};
}

PixelView ViewOf(const KvAOI& aoi)
{
    if (aoi.AOIWidth() < 1 || aoi.AOIHeight() < 1)
        throw Reason(IDS_IMAGE_NO_PIXELS);
    if (const auto* grey = dynamic_cast<const KvTAOI<unsigned char>*>(&aoi))
        return ViewOf(*grey);
    if (const auto* real = dynamic_cast<const KvTAOI<float>*>(&aoi))
        return ViewOf(*real);
    if (const auto* color = dynamic_cast<const KvTAOI<KvColor>*>(&aoi))
        return ViewOf(*color);
    throw Reason(IDS_IMAGE_NO_PIXELS);
}

} // namespace

Limits Limits::OfMachine()
{
    const long pages = sysconf(_SC_PHYS_PAGES), page = sysconf(_SC_PAGESIZE);
    return {pages > 0 && page > 0 ? static_cast<std::uint64_t>(pages) * static_cast<std::uint64_t>(page) : UINT64_MAX};
}

void Limits::Check(const Size& size, std::size_t bytesPerPixel) const
{
    if (size.width < 1 || size.height < 1 || size.width > largestSide || size.height > largestSide)
        throw Fault{IDS_IMAGE_TOO_LARGE, {}, size};
    if (std::uint64_t(size.width) * size.height * bytesPerPixel > bytes)
        throw Fault{IDS_IMAGE_NO_MEMORY, {}, size};
}

template <class T>
KvTBuf2D<T> LoadPixels(const KvString& file)
{
    return Naming(file, [&] { return Fitting<T>(Load(file)); });
}
template KvTBuf2D<unsigned char> LoadPixels(const KvString& file);
template KvTBuf2D<float> LoadPixels(const KvString& file);
template KvTBuf2D<KvColor> LoadPixels(const KvString& file);

} // namespace KvN::imagefile

namespace KvN
{

std::unique_ptr<KvAOI> KvxLoadAOI(const KvString& file)
{
    return imagefile::Naming(file,
                             [&]
                             {
                                 auto aoi =
                                     std::visit([](auto&& pixels) { return imagefile::MakeAOI(std::move(pixels)); },
                                                imagefile::Load(file));
                                 aoi->SetAOIName(std::filesystem::path(file.Utf8()).filename().string().c_str());
                                 return aoi;
                             });
}

void KvxSaveAOI(const KvAOI& aoi, const KvString& file)
{
    imagefile::Naming(file,
                      [&]
                      {
                          const std::filesystem::path name(file.Utf8());
                          const auto& codec = imagefile::CodecOf(name);
                          const auto pixels = imagefile::ViewOf(aoi);
                          imagefile::FileSink sink(name);
                          codec.encode(pixels, sink);
                          sink.Commit();
                      });
}

KvTSize<short> KvxImageSize(const KvString& file)
{
    return imagefile::Naming(file,
                             [&]
                             {
                                 const auto bytes = imagefile::Read(file.Utf8());
                                 const imagefile::Size size = imagefile::CodecOf(imagefile::Bytes(bytes)).size(bytes);
                                 imagefile::Limits{UINT64_MAX}.Check(size, 1);
                                 return KvTSize<short>(static_cast<short>(size.width), static_cast<short>(size.height));
                             });
}

} // namespace KvN
