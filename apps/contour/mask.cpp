// kvcontour mask: contours as an 8-bit mask.
#include "C/syContourToMask.h"
#include "apps/contour/commands.h"
#include "apps/contour/contour_file.h"
#include "apps/contour/failure.h"
#include "apps/contour/image_file.h"
#include "apps/contour/progress.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <iomanip>
#include <iostream>
#include <memory>
#include <optional>

namespace kvcontour
{
using namespace KvN;
namespace
{
constexpr long largestSide = 32767;
constexpr unsigned char covered = 255; // what a mask's covered pixels are before --value

struct Options
{
    std::string input;
    std::string size;
    std::string like;
    std::string output;
    int value = covered;
    bool time = false;
};

// "WxH" as two numbers, which may be anything; nothing for another text.
std::optional<std::pair<long, long>> SizeIn(const std::string& text)
{
    const size_t cross = text.find('x');
    long width = 0, height = 0;
    const char *begin = text.data(), *end = begin + text.size();
    if (cross == std::string::npos)
        return std::nullopt;
    const auto first = std::from_chars(begin, begin + cross, width);
    const auto second = std::from_chars(begin + cross + 1, end, height);
    const auto read = [](const auto& result, const char* to)
    {
        // A number that is too long is a number all the same.
        return result.ptr == to && result.ec != std::errc::invalid_argument;
    };
    if (!read(first, begin + cross) || !read(second, end))
        return std::nullopt;
    return std::pair(first.ec == std::errc() ? width : 0, second.ec == std::errc() ? height : 0);
}

std::string CheckSize(const std::string& text)
{
    return SizeIn(text) ? "" : "a size is given as WIDTHxHEIGHT, such as 640x480";
}

std::string CheckOutput(const std::string& name)
{
    return CheckEnding(name, {".png", ".tif", ".tiff"});
}

KvTSize<short> MaskSize(const Options& options)
{
    if (!options.like.empty())
        return SizeOfImage(options.like);
    const auto [width, height] = *SizeIn(options.size);
    if (width < 1 || height < 1 || width > largestSide || height > largestSide)
        throw Failure("--size " + options.size, "each side has 1 to 32767 pixels");
    return {static_cast<short>(width), static_cast<short>(height)};
}

void ReplaceCovered(KvAOI8& mask, unsigned char value)
{
    for (int y = 0; y < mask.AOIHeight(); ++y)
    {
        unsigned char* row = mask.GetRowPointer(y);
        std::replace(row, row + mask.AOIWidth(), covered, value);
    }
}

class Stopwatch
{
public:
    // Milliseconds since the last lap.
    double Lap()
    {
        const auto now = std::chrono::steady_clock::now();
        const std::chrono::duration<double, std::milli> took = now - start;
        start = now;
        return took.count();
    }

private:
    std::chrono::steady_clock::time_point start = std::chrono::steady_clock::now();
};

void Mask(const Options& options)
{
    Progress progress;
    Stopwatch watch;
    progress.Show("1/3 reading " + options.input);
    const KvTSize<short> size = MaskSize(options);
    const KvTList<KvContour> contours = ReadContours(options.input);
    KvBufferAOI8 mask(size);
    const double load = watch.Lap();

    progress.Show("2/3 drawing " + std::to_string(contours.count) + " contours");
    KvContourToMask().Draw(contours, &mask);
    if (options.value != covered)
        ReplaceCovered(mask, static_cast<unsigned char>(options.value));
    const double raster = watch.Lap();

    progress.Show("3/3 writing " + options.output);
    WriteImage(options.output, mask);
    const double save = watch.Lap();
    if (options.time)
        std::cout << std::fixed << std::setprecision(3) << "load=" << load << " raster=" << raster << " save=" << save
                  << '\n';
}
} // namespace

void AddMask(CLI::App& app)
{
    CLI::App* command = app.add_subcommand("mask", "Draws the contours into an 8-bit mask");
    const auto options = std::make_shared<Options>();
    command->add_option("IN", options->input, "Contour file: .kvb for byte arrays, else XML")->required();
    CLI::Option_group* size = command->add_option_group("size", "The mask's size");
    size->add_option("--size", options->size, "As WIDTHxHEIGHT in pixels, each 1 to 32767")->check(CheckSize, "");
    size->add_option("--like", options->like, "That of an image: PNG, BMP, JPEG or TIFF");
    size->require_option(1);
    command->add_option("-o,--output", options->output, "The mask: .png, .tif or .tiff")
        ->required()
        ->check(CheckOutput, "");
    command->add_option("--value", options->value, "Of covered pixels; others are 0. Default 255")
        ->check(CLI::Range(0, 255));
    command->add_flag("--time", options->time, "Prints how long each step took, in ms");
    command->footer("Contours are drawn in the order of the file; an excluded one takes away what came before.\n\n"
                    "Examples:\n"
                    "  kvcontour mask part.contours.xml --like part.png -o mask.png\n"
                    "  kvcontour mask part.contours.xml --size 4096x3000 -o mask.tif --value 1 --time");
    command->callback([options] { Mask(*options); });
}

} // namespace kvcontour
