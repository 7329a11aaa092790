// PNG by libpng. libpng reports errors by a jump, so whatever needs a destructor lives outside the guarded calls.
#include "contracts/image/imagefile_p.h"
#include "resources/resource.h"

#include <png.h>

#include <algorithm>
#include <csetjmp>
#include <cstring>

namespace KvN::imagefile
{

namespace
{

// Runs `step`, whose locals must be trivial; false if libpng jumped out of it.
template <class Step>
bool Guarded(png_structp png, Step step)
{
    if (setjmp(png_jmpbuf(png)))
        return false;
    step();
    return true;
}

struct Trouble
{
    char text[128] = {};
    bool cutOff = false;
};

[[noreturn]] void OnError(png_structp png, png_const_charp message)
{
    auto* trouble = static_cast<Trouble*>(png_get_error_ptr(png));
    std::strncpy(trouble->text, message, sizeof trouble->text - 1);
    png_longjmp(png, 1);
}

void OnWarning(png_structp, png_const_charp) {}

class Reader
{
public:
    explicit Reader(Bytes file_) : file(file_)
    {
        png = png_create_read_struct(PNG_LIBPNG_VER_STRING, &trouble, OnError, OnWarning);
        info = png ? png_create_info_struct(png) : nullptr;
        if (!info)
        {
            png_destroy_read_struct(&png, nullptr, nullptr);
            throw std::bad_alloc();
        }
        png_set_read_fn(png, this, OnRead);
        png_set_user_limits(png, PNG_UINT_31_MAX, PNG_UINT_31_MAX);
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    ~Reader() { png_destroy_read_struct(&png, &info, nullptr); }

    Size ReadHeader()
    {
        Check(Guarded(png, [this] { png_read_info(png, info); }));
        return {png_get_image_width(png, info), png_get_image_height(png, info)};
    }

    Pixels ReadPixels(const Size& size, const Limits& limits)
    {
        const bool color = HoldsColors();
        const bool deep = !color && png_get_bit_depth(png, info) == 16;
        limits.Check(size, color ? sizeof(KvColor) : deep ? sizeof(float) : 1);
        CheckPlausible(size);
        if (color)
            return ReadAs<KvColor>(size);
        if (!deep)
            return ReadAs<unsigned char>(size);
        KvTBuf2D<float> values = ReadAs<float>(size);
        SpreadWords(values);
        return values;
    }

private:
    static void OnRead(png_structp png, png_bytep out, png_size_t count)
    {
        auto* self = static_cast<Reader*>(png_get_io_ptr(png));
        if (count > self->file.size() - self->at)
        {
            self->trouble.cutOff = true;
            png_error(png, "end of file");
        }
        std::memcpy(out, self->file.data() + self->at, count);
        self->at += count;
    }

    void Check(bool done) const
    {
        if (!done)
            throw trouble.cutOff ? Reason(IDS_IMAGE_CUT_OFF) : Reason(IDS_IMAGE_DAMAGED, trouble.text);
    }

    bool HoldsColors() const
    {
        const int type = png_get_color_type(png, info);
        if (type != PNG_COLOR_TYPE_PALETTE)
            return type & PNG_COLOR_MASK_COLOR;
        png_colorp palette = nullptr;
        int count = 0;
        png_get_PLTE(png, info, &palette, &count);
        return std::any_of(palette, palette + count,
                           [](const png_color& c) { return c.red != c.green || c.red != c.blue; });
    }

    // Deflate packs at most about a thousand to one, so a file too small for its size needs no memory to be refused.
    void CheckPlausible(const Size& size) const
    {
        const std::uint64_t bits = std::uint64_t(size.width) * size.height * png_get_bit_depth(png, info);
        if (bits / 8 / 1100 > file.size())
            throw Reason(IDS_IMAGE_CUT_OFF);
    }

    template <class T>
    void RequestFormat()
    {
        const int type = png_get_color_type(png, info);
        png_set_strip_alpha(png);
        png_set_packing(png);
        if (type == PNG_COLOR_TYPE_PALETTE)
            png_set_palette_to_rgb(png);
        if constexpr (std::is_same_v<T, KvColor>)
        {
            png_set_scale_16(png);
            png_set_bgr(png);
            png_set_filler(png, 0, PNG_FILLER_AFTER);
        }
        else
        {
            if (type == PNG_COLOR_TYPE_PALETTE)
                png_set_rgb_to_gray_fixed(png, PNG_ERROR_ACTION_NONE, -1, -1);
            if (type == PNG_COLOR_TYPE_GRAY)
                png_set_expand_gray_1_2_4_to_8(png);
        }
        if constexpr (std::is_same_v<T, float>)
            png_set_swap(png); // words of the machine's order, little endian
    }

    template <class T>
    KvTBuf2D<T> ReadAs(const Size& size)
    {
        KvTBuf2D<T> pixels(static_cast<int>(size.width), static_cast<int>(size.height));
        const bool done = Guarded(png,
                                  [this, &pixels]
                                  {
                                      RequestFormat<T>();
                                      const int passes = png_set_interlace_handling(png);
                                      png_read_update_info(png, info);
                                      if (png_get_rowbytes(png, info) > static_cast<size_t>(pixels.width) * sizeof(T))
                                          png_error(png, "unexpected row size");
                                      for (int pass = 0; pass < passes; ++pass)
                                      {
                                          for (int y = 0; y < pixels.height; ++y)
                                              png_read_row(png, reinterpret_cast<png_bytep>(pixels.Row(y)), nullptr);
                                      }
                                      png_read_end(png, nullptr);
                                  });
        Check(done);
        return pixels;
    }

    // 16-bit words were read into the first half of each row of floats; the last one is spread first.
    static void SpreadWords(KvTBuf2D<float>& values)
    {
        for (int y = 0; y < values.height; ++y)
        {
            float* row = values.Row(y);
            const auto* words = reinterpret_cast<const unsigned char*>(row);
            for (int x = values.width - 1; x >= 0; --x)
            {
                std::uint16_t word;
                std::memcpy(&word, words + 2 * static_cast<size_t>(x), sizeof word);
                row[x] = word;
            }
        }
    }

    Bytes file;
    size_t at = 0;
    Trouble trouble;
    png_structp png = nullptr;
    png_infop info = nullptr;
};

class Writer
{
public:
    explicit Writer(Sink& sink_) : sink(sink_)
    {
        png = png_create_write_struct(PNG_LIBPNG_VER_STRING, &trouble, OnError, OnWarning);
        info = png ? png_create_info_struct(png) : nullptr;
        if (!info)
        {
            png_destroy_write_struct(&png, nullptr);
            throw std::bad_alloc();
        }
        png_set_write_fn(png, this, OnWrite, OnFlush);
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;
    ~Writer() { png_destroy_write_struct(&png, &info); }

    template <class T>
    void Write(const View<T>& pixels)
    {
        constexpr bool color = std::is_same_v<T, KvColor>;
        const bool done = Guarded(png,
                                  [this, &pixels]
                                  {
                                      png_set_IHDR(png, info, static_cast<png_uint_32>(pixels.width),
                                                   static_cast<png_uint_32>(pixels.height), 8,
                                                   color ? PNG_COLOR_TYPE_RGB : PNG_COLOR_TYPE_GRAY, PNG_INTERLACE_NONE,
                                                   PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
                                      // Differences to the row above pack masks and photographs well and cost little to
                                      // find.
                                      png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_UP);
                                      png_set_compression_level(png, 4);
                                      png_write_info(png, info);
                                      if (color)
                                      {
                                          png_set_bgr(png);
                                          png_set_filler(png, 0, PNG_FILLER_AFTER);
                                      }
                                      for (int y = 0; y < pixels.height; ++y)
                                          png_write_row(png, reinterpret_cast<png_const_bytep>(pixels.Row(y)));
                                      png_write_end(png, info);
                                  });
        if (!done && !sinkFailed)
            throw Reason(IDS_IMAGE_NOT_WRITTEN, trouble.text);
    }

private:
    static void OnWrite(png_structp png, png_bytep data, png_size_t count)
    {
        auto* self = static_cast<Writer*>(png_get_io_ptr(png));
        if (self->sink.Write(data, count))
            return;
        self->sinkFailed = true;
        png_error(png, "write");
    }
    static void OnFlush(png_structp) {}

    Sink& sink;
    bool sinkFailed = false;
    Trouble trouble;
    png_structp png = nullptr;
    png_infop info = nullptr;
};

} // namespace

Size SizeOfPng(Bytes file)
{
    return Reader(file).ReadHeader();
}

Pixels DecodePng(Bytes file, const Limits& limits)
{
    Reader reader(file);
    const Size size = reader.ReadHeader();
    return reader.ReadPixels(size, limits);
}

void EncodePng(const PixelView& pixels, Sink& sink)
{
    Writer writer(sink);
    if (const auto* grey = std::get_if<View<unsigned char>>(&pixels))
        writer.Write(*grey);
    else if (const auto* color = std::get_if<View<KvColor>>(&pixels))
        writer.Write(*color);
    else
        throw Reason(IDS_IMAGE_NO_FLOATS, "PNG");
}

} // namespace KvN::imagefile
