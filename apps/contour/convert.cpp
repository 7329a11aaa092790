// kvcontour convert: from XML to byte arrays and back.
#include "apps/contour/commands.h"
#include "apps/contour/contour_file.h"

#include <memory>

namespace kvcontour
{
namespace
{
struct Options
{
    std::string in;
    std::string out;
};

std::string KnownFormat(const std::string& file)
{
    return FormatOf(file) == Format::Unknown ? "the name of " + file + " ends neither in .xml nor in .kvb" : "";
}
} // namespace

void AddConvert(CLI::App& app)
{
    CLI::App* command = app.add_subcommand("convert", "Converts contour files: XML (.xml) and byte arrays (.kvb)");
    const auto options = std::make_shared<Options>();
    command->add_option("IN", options->in, "File to read")->required()->check(KnownFormat, "");
    command->add_option("OUT", options->out, "File to write; replaced only if all went well")
        ->required()
        ->check(KnownFormat, "");
    command->footer("The names tell the formats. A .kvb file holds the byte array of each contour behind its length\n"
                    "(32 bits, little-endian). It keeps every value in full, while XML keeps three digits behind the\n"
                    "point, five of an angle; only valid figures have a byte array.\n\n"
                    "Examples:\n"
                    "  kvcontour convert part.contours.xml part.kvb\n"
                    "  kvcontour convert part.kvb part.contours.xml");
    command->callback([options] { WriteContours(options->out, ReadContours(options->in), options->in); });
}

} // namespace kvcontour
