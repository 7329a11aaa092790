// JPEG by libjpeg-turbo. It reports errors by a jump, so whatever needs a destructor lives outside the guarded calls.
#include "contracts/image/imagefile_p.h"
#include "resources/resource.h"

#include <cstdio> // jpeglib.h wants FILE

#include <jerror.h>
#include <jpeglib.h>

#include <csetjmp>
#include <cstdlib>
#include <cstring>
#include <new>

namespace KvN::imagefile
{

namespace
{

struct Trouble : jpeg_error_mgr
{
    std::jmp_buf escape;
    char text[JMSG_LENGTH_MAX] = {};
    bool cutOff = false;
};

[[noreturn]] void OnError(j_common_ptr codec)
{
    auto* trouble = static_cast<Trouble*>(codec->err);
    codec->err->format_message(codec, trouble->text);
    std::longjmp(trouble->escape, 1);
}

// Pictures that decode only in part count as damaged; a few oddities that change no pixel pass.
void OnMessage(j_common_ptr codec, int level)
{
    const int code = codec->err->msg_code;
    if (level >= 0 || code == JWRN_EXTRANEOUS_DATA || code == JWRN_ADOBE_XFORM || code == JWRN_JFIF_MAJOR)
        return;
    static_cast<Trouble*>(codec->err)->cutOff = code == JWRN_JPEG_EOF;
    OnError(codec);
}

// More scans than any camera writes: a small file that costs hours.
void OnProgress(j_common_ptr codec)
{
    auto* decoder = reinterpret_cast<j_decompress_ptr>(codec);
    if (decoder->input_scan_number > 200)
        ERREXIT(codec, JERR_BAD_PROGRESSION);
}

// Runs `step`, whose locals must be trivial; false if libjpeg jumped out of it.
template <class Step>
bool Guarded(Trouble& trouble, Step step)
{
    if (setjmp(trouble.escape))
        return false;
    step();
    return true;
}

void PrepareErrors(Trouble& trouble)
{
    jpeg_std_error(&trouble);
    trouble.error_exit = OnError;
    trouble.emit_message = OnMessage;
}

class Reader
{
public:
    explicit Reader(Bytes file_) : file(file_)
    {
        PrepareErrors(trouble);
        codec.err = &trouble;
        Check(Guarded(trouble,
                      [this]
                      {
                          jpeg_create_decompress(&codec);
                          progress.progress_monitor = OnProgress;
                          codec.progress = &progress;
                      }));
    }
    Reader(const Reader&) = delete;
    Reader& operator=(const Reader&) = delete;
    ~Reader() { jpeg_destroy_decompress(&codec); }

    Size ReadHeader()
    {
        Check(Guarded(trouble,
                      [this]
                      {
                          jpeg_mem_src(&codec, file.data(), static_cast<unsigned long>(file.size()));
                          jpeg_read_header(&codec, TRUE);
                      }));
        return {codec.image_width, codec.image_height};
    }

    Pixels ReadPixels(const Size& size, const Limits& limits)
    {
        const bool grey = codec.num_components == 1;
        limits.Check(size, grey ? 1 : sizeof(KvColor));
        // A block of 64 pixels takes no less than a few bits.
        if (std::uint64_t(size.width) * size.height / 64 / 8 / 4 > file.size())
            throw Reason(IDS_IMAGE_CUT_OFF);
        if (grey)
            return ReadAs<unsigned char>(size, JCS_GRAYSCALE);
        if (codec.num_components != 4)
            return ReadAs<KvColor>(size, JCS_EXT_BGRX);
        KvTBuf2D<KvColor> pixels = ReadAs<KvColor>(size, JCS_CMYK);
        FromInks(pixels);
        return pixels;
    }

private:
    void Check(bool done)
    {
        if (!done)
            throw trouble.cutOff ? Reason(IDS_IMAGE_CUT_OFF) : Reason(IDS_IMAGE_DAMAGED, trouble.text);
    }

    template <class T>
    KvTBuf2D<T> ReadAs(const Size& size, J_COLOR_SPACE space)
    {
        KvTBuf2D<T> pixels(static_cast<int>(size.width), static_cast<int>(size.height));
        Check(Guarded(trouble,
                      [this, space, &pixels]
                      {
                          codec.out_color_space = space;
                          jpeg_start_decompress(&codec);
                          while (codec.output_scanline < codec.output_height)
                          {
                              JSAMPROW row =
                                  reinterpret_cast<JSAMPROW>(pixels.Row(static_cast<int>(codec.output_scanline)));
                              jpeg_read_scanlines(&codec, &row, 1);
                          }
                          jpeg_finish_decompress(&codec);
                      }));
        return pixels;
    }

    // Cyan, magenta, yellow and black stand in the bytes of a pixel, inverted as all writers of such files do.
    static void FromInks(KvTBuf2D<KvColor>& pixels)
    {
        for (size_t i = 0; i < pixels.Count(); ++i)
        {
            const KvColor inks = pixels.data[i];
            const int k = inks.unused;
            pixels.data[i] = KvColor(inks.blue * k / 255, inks.green * k / 255, inks.red * k / 255);
        }
    }

    Bytes file;
    Trouble trouble;
    jpeg_decompress_struct codec{};
    jpeg_progress_mgr progress{};
};

class Writer
{
public:
    Writer()
    {
        PrepareErrors(trouble);
        codec.err = &trouble;
        Check(Guarded(trouble, [this] { jpeg_create_compress(&codec); }));
    }
    Writer(const Writer&) = delete;
    Writer& operator=(const Writer&) = delete;
    ~Writer()
    {
        jpeg_destroy_compress(&codec);
        std::free(bytes);
    }

    template <class T>
    void Write(const View<T>& pixels, Sink& sink)
    {
        Check(Guarded(trouble,
                      [this, &pixels]
                      {
                          jpeg_mem_dest(&codec, &bytes, &size);
                          codec.image_width = static_cast<JDIMENSION>(pixels.width);
                          codec.image_height = static_cast<JDIMENSION>(pixels.height);
                          codec.input_components = sizeof(T);
                          codec.in_color_space = sizeof(T) == 1 ? JCS_GRAYSCALE : JCS_EXT_BGRX;
                          jpeg_set_defaults(&codec);
                          jpeg_set_quality(&codec, 95, TRUE);
                          jpeg_start_compress(&codec, TRUE);
                          for (int y = 0; y < pixels.height; ++y)
                          {
                              auto* row = const_cast<JSAMPROW>(reinterpret_cast<const JSAMPLE*>(pixels.Row(y)));
                              jpeg_write_scanlines(&codec, &row, 1);
                          }
                          jpeg_finish_compress(&codec);
                      }));
        sink.Write(bytes, size);
    }

private:
    void Check(bool done)
    {
        if (!done)
            throw Reason(IDS_IMAGE_NOT_WRITTEN, trouble.text);
    }

    Trouble trouble;
    jpeg_compress_struct codec{};
    unsigned char* bytes = nullptr;
    unsigned long size = 0;
};

} // namespace

Size SizeOfJpeg(Bytes file)
{
    return Reader(file).ReadHeader();
}

Pixels DecodeJpeg(Bytes file, const Limits& limits)
{
    Reader reader(file);
    const Size size = reader.ReadHeader();
    return reader.ReadPixels(size, limits);
}

void EncodeJpeg(const PixelView& pixels, Sink& sink)
{
    Writer writer;
    if (const auto* grey = std::get_if<View<unsigned char>>(&pixels))
        writer.Write(*grey, sink);
    else if (const auto* color = std::get_if<View<KvColor>>(&pixels))
        writer.Write(*color, sink);
    else
        throw Reason(IDS_IMAGE_NO_FLOATS, "JPEG");
}

} // namespace KvN::imagefile
