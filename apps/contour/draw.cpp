// kvcontour draw: contours over an image, as a picture.
#include "C/syContourPicture.h"
#include "apps/contour/commands.h"
#include "apps/contour/contour_file.h"
#include "apps/contour/failure.h"
#include "apps/contour/image_file.h"
#include "apps/contour/progress.h"

#include <memory>

namespace kvcontour
{
using namespace KvN;
namespace
{
struct Options
{
    std::string input;
    std::string image;
    std::string output;
};

std::string CheckOutput(const std::string& name)
{
    return CheckEnding(name, {".png", ".bmp", ".jpg", ".jpeg", ".tif", ".tiff"});
}

void Draw(const Options& options)
{
    Progress progress;
    progress.Show("1/3 reading " + options.image);
    const KvTList<KvContour> contours = ReadContours(options.input);
    auto image = ReadImage(options.image);

    progress.Show("2/3 drawing " + std::to_string(contours.count) + " contours");
    KvContourPicture picture(*image);
    image.reset();
    for (const auto* node = contours.head; node; node = node->next)
        picture.Add(node->value);

    progress.Show("3/3 writing " + options.output);
    WriteImage(options.output, picture.Pixels());
}
} // namespace

void AddDraw(CLI::App& app)
{
    CLI::App* command = app.add_subcommand("draw", "Draws the contours over an image");
    const auto options = std::make_shared<Options>();
    command->add_option("IN", options->input, "Contour file: .kvb for byte arrays, else XML")->required();
    command->add_option("--image", options->image, "The image: PNG, BMP, JPEG or TIFF")->required();
    command->add_option("-o,--output", options->output, "The picture: .png, .bmp, .jpg or .tif")
        ->required()
        ->check(CheckOutput, "");
    command->footer("Each contour has its own colour, or green if it has none; excluded ones are red. A description\n"
                    "stands beside its figure. An image of floating-point values is shown from black to white.\n\n"
                    "Example:\n"
                    "  kvcontour draw part.contours.xml --image part.png -o picture.png");
    command->callback([options] { Draw(*options); });
}

} // namespace kvcontour
