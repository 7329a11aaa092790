// kvcontour check: what is wrong with a contour file, line by line.
#include "apps/contour/commands.h"
#include "apps/contour/contour_file.h"
#include "apps/contour/failure.h"
#include "apps/contour/findings.h"
#include "contracts/xml.h"

#include <iostream>
#include <memory>

namespace kvcontour
{
namespace
{
void Check(const std::string& file)
{
    const std::string source = ReadFile(file);
    KvN::XML_PARSER parser;
    OpenXml(parser, file, source);
    const std::vector<Finding> findings = FindingsOf(parser);
    if (findings.empty())
        return;
    const KvN::XML_LINES lines(parser, source);
    for (std::size_t i = 0; i + 1 < findings.size(); ++i)
        std::cerr << Failure(file, findings[i].what, lines.At(findings[i].offset)).what() << '\n';
    throw Failure(file, findings.back().what, lines.At(findings.back().offset));
}
} // namespace

void AddCheck(CLI::App& app)
{
    CLI::App* command = app.add_subcommand("check", "Tells what is wrong with a contour file, line by line");
    const auto file = std::make_shared<std::string>();
    command->add_option("IN.xml", *file, "Contour file")->required();
    command->footer("Names file, line and contour of everything that is wrong, on the standard error output:\n"
                    "no XML, another root than Contours, an unknown type, a wrong point count, a coordinate that is\n"
                    "no number, a figure that is invalid or runs clockwise, an Id used twice, a second attribute that\n"
                    "makes an Id ignored. Prints nothing for a sound file.\n"
                    "Exit status: 0 nothing is wrong, 1 something is, 2 the command line is wrong.\n\n"
                    "Examples:\n"
                    "  kvcontour check part.contours.xml\n"
                    "  kvcontour check part.contours.xml && kvcontour convert part.contours.xml part.kvb");
    command->callback([file] { Check(*file); });
}

} // namespace kvcontour
