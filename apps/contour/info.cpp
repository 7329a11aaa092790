// kvcontour info: the measures of each contour, as a table for people or as JSON for programs.
#include "apps/contour/commands.h"
#include "apps/contour/contour_file.h"
#include "apps/contour/figure_types.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <iostream>
#include <memory>
#include <optional>

namespace kvcontour
{
using namespace KvN;
namespace
{
// What a figure has no value of stays empty: a polyline has no centre, an ellipse no length, too few points no box.
struct Measures
{
    std::optional<double> length;
    std::optional<KvVec2d> centre;
    std::optional<KvTRectangle<double>> box;
};

Measures MeasuresOf(const KvContour& contour)
{
    Measures measures;
    const auto type = contour.ContourType();
    const int count = contour.CurvePositions().count;
    const bool isRound = type == KvContour::eEllipse || type == KvContour::eCircle;
    if (type != KvContour::eEllipse)
        measures.length = contour.GetLength();
    if (count > 0 && type != KvContour::ePolyline)
        measures.centre = contour.GetCMS();
    if (count >= (isRound ? FigureTypeOf(type).leastPoints : 1))
        contour.MakeBoundingBox(measures.box.emplace());
    return measures;
}

// ---- The table ------------------------------------------------------------------------------------------------------

constexpr std::size_t columns = 9;
using Cells = std::array<std::string, columns>;
const Cells header = {"#",    "id", "type", "valid", "area", "length", "centre", "box (left, top, right, bottom)",
                      "angle"};

// A zero has no sign for a reader.
std::string Fixed(double value)
{
    char digits[336];
    const auto end = std::to_chars(digits, digits + sizeof digits, value, std::chars_format::fixed, 3).ptr;
    const std::string text(digits, end);
    return text == "-0.000" ? text.substr(1) : text;
}

Cells CellsOf(int place, const KvContour& contour)
{
    const Measures measures = MeasuresOf(contour);
    const std::string none = "-";
    Cells cells = {std::to_string(place),
                   contour.ID() < 0 ? none : std::to_string(contour.ID()),
                   FigureTypeOf(contour.ContourType()).name,
                   contour.IsValid() ? "yes" : "no",
                   Fixed(contour.GetArea()),
                   measures.length ? Fixed(*measures.length) : none,
                   none,
                   none,
                   Fixed(contour.RotationAngle())};
    if (const auto& centre = measures.centre)
        cells[6] = Fixed(centre->x) + ", " + Fixed(centre->y);
    if (const auto& box = measures.box)
        cells[7] = Fixed(box->left) + ", " + Fixed(box->top) + ", " + Fixed(box->right) + ", " + Fixed(box->bottom);
    return cells;
}

// What stands behind the columns: flags and the description, on one line.
std::string Remarks(const KvContour& contour)
{
    std::string text = contour.Description().Utf8();
    if (contour.Exclude())
        text = text.empty() ? "excluded" : "excluded: " + text;
    for (char& c : text)
        c = static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? ' ' : c;
    return text;
}

void PrintRow(const Cells& cells, const std::array<std::size_t, columns>& widths, const std::string& remarks)
{
    constexpr std::size_t typeColumn = 2; // the one column of words
    std::string line;
    for (std::size_t i = 0; i < columns; ++i)
    {
        const std::string padding(widths[i] - cells[i].size(), ' ');
        line += (i == 0 ? "" : "  ") + (i == typeColumn ? cells[i] + padding : padding + cells[i]);
    }
    if (!remarks.empty())
        line += "  " + remarks;
    std::cout << line << '\n';
}

// Computes the cells twice rather than keeping those of a million contours.
void PrintTable(const KvTList<KvContour>& contours)
{
    std::array<std::size_t, columns> widths;
    std::transform(header.begin(), header.end(), widths.begin(), [](const std::string& cell) { return cell.size(); });
    int place = 0;
    for (const auto* node = contours.head; node; node = node->next)
    {
        const Cells cells = CellsOf(++place, node->value);
        for (std::size_t i = 0; i < columns; ++i)
            widths[i] = std::max(widths[i], cells[i].size());
    }
    PrintRow(header, widths, "");
    place = 0;
    for (const auto* node = contours.head; node; node = node->next)
        PrintRow(CellsOf(++place, node->value), widths, Remarks(node->value));
}

// ---- JSON -----------------------------------------------------------------------------------------------------------

// JSON knows neither infinity nor not-a-number. A zero loses its sign.
std::string Json(double value)
{
    if (!std::isfinite(value))
        return "null";
    char text[32];
    return {text, std::to_chars(text, text + sizeof text, value == 0.0 ? 0.0 : value).ptr};
}

std::string Json(const KvString& text)
{
    static constexpr char digits[] = "0123456789abcdef";
    std::string json = "\"";
    for (const char c : text.Utf8())
    {
        if (c == '"' || c == '\\')
            json += {'\\', c};
        else if (static_cast<unsigned char>(c) < 0x20 || c == 0x7F)
            json += {'\\', 'u', '0', '0', digits[c >> 4], digits[c & 15]};
        else
            json += c;
    }
    return json + '"';
}

std::string Json(bool value)
{
    return value ? "true" : "false";
}

std::string Json(const KvVec2d& point)
{
    return "{\"x\":" + Json(point.x) + ",\"y\":" + Json(point.y) + "}";
}

std::string Json(const KvTRectangle<double>& box)
{
    return "{\"left\":" + Json(box.left) + ",\"top\":" + Json(box.top) + ",\"right\":" + Json(box.right) +
           ",\"bottom\":" + Json(box.bottom) + "}";
}

template <class T>
std::string Json(const std::optional<T>& value)
{
    return value ? Json(*value) : "null";
}

void PrintJson(int place, const KvContour& contour)
{
    const Measures measures = MeasuresOf(contour);
    const bool hasWidth = contour.LineWidth() != KvContour::NoLineWidth;
    std::cout << "{\"index\":" << place << ",\"id\":" << (contour.ID() < 0 ? "null" : std::to_string(contour.ID()))
              << ",\"type\":\"" << FigureTypeOf(contour.ContourType()).name
              << "\",\"valid\":" << Json(contour.IsValid() != 0) << ",\"area\":" << Json(contour.GetArea())
              << ",\"length\":" << Json(measures.length) << ",\"centre\":" << Json(measures.centre)
              << ",\"box\":" << Json(measures.box) << ",\"angle\":" << Json(contour.RotationAngle())
              << ",\"points\":" << contour.CurvePositions().count << ",\"sequenceId\":" << contour.SequenceID()
              << ",\"exclude\":" << Json(contour.Exclude() != 0) << ",\"readOnly\":" << Json(contour.ReadOnly() != 0)
              << ",\"lineWidth\":" << (hasWidth ? Json(contour.LineWidth()) : "null")
              << ",\"color\":" << (contour.Color() == KvContour::NoColor ? "null" : std::to_string(contour.Color()))
              << ",\"description\":" << Json(contour.Description()) << "}\n";
}

struct Options
{
    std::string file;
    bool json = false;
};

void Info(const Options& options)
{
    const KvTList<KvContour> contours = ReadContours(options.file);
    if (!options.json)
        return PrintTable(contours);
    int place = 0;
    for (const auto* node = contours.head; node; node = node->next)
        PrintJson(++place, node->value);
}
} // namespace

void AddInfo(CLI::App& app)
{
    CLI::App* command = app.add_subcommand("info", "Prints the measures of each contour");
    const auto options = std::make_shared<Options>();
    command->add_option("IN", options->file, "Contour file: .kvb for byte arrays, else XML")->required();
    command->add_flag("--json", options->json, "One JSON object a contour, one a line");
    command->footer(
        "Lengths are in image pixels, areas in square pixels, angles in radians, counter-clockwise as seen\n"
        "on the image. A clockwise figure has a negative area and is not valid. A polyline has no centre\n"
        "and an ellipse no length: \"-\" in the table, null in JSON.\n\n"
        "Examples:\n"
        "  kvcontour info part.contours.xml\n"
        "  kvcontour info part.contours.xml --json | jq 'select(.valid).area'");
    command->callback([options] { Info(*options); });
}

} // namespace kvcontour
