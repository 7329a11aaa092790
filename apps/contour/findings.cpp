// Examines each contour as the reader sees it, and what the reader passes over in silence.
#include "apps/contour/findings.h"

#include "C/syContourXMLImport.h"
#include "apps/contour/contour_file.h"
#include "apps/contour/failure.h"
#include "apps/contour/figure_types.h"
#include "contracts/xml.h"

#include <cmath>
#include <unordered_map>
#include <utility>

namespace kvcontour
{
using namespace KvN;
namespace
{
constexpr int mostPoints = 65535;

bool IsBlank(const KvString& text)
{
    return text.Utf8().find_first_not_of(" \t\r\n\v\f") == std::string::npos;
}

// Texts of files can be long and hold anything; a message is one line.
std::string Quoted(const KvString& text)
{
    constexpr std::size_t longest = 40;
    std::string shown = text.Utf8();
    for (char& c : shown)
        c = static_cast<unsigned char>(c) < 0x20 || c == 0x7F ? ' ' : c;
    if (shown.size() > longest)
    {
        std::size_t end = longest;
        while ((static_cast<unsigned char>(shown[end]) & 0xC0) == 0x80) // not within a character
            --end;
        shown = shown.substr(0, end) + "...";
    }
    return '"' + shown + '"';
}

class Examiner
{
public:
    explicit Examiner(XML_PARSER& parser_) : parser(parser_) {}

    std::vector<Finding> Run()
    {
        if (parser.Go_to_Child("Contour"))
        {
            do
                ExamineContour();
            while (parser.Go_Forward("Contour"));
        }
        parser.Go_to_Root();
        return std::move(findings);
    }

private:
    XML_PARSER& parser;
    std::vector<Finding> findings;
    std::unordered_map<std::int32_t, int> places; // of the contours by identity

    // Of the contour that is examined:
    int place = 0;
    std::string name;
    bool coordinatesMissing = false;

    void Add(std::string what, bool unreadable = false)
    {
        findings.push_back({parser.Get_Offset(), name + ": " + std::move(what), unreadable});
    }

    void ExamineContour()
    {
        KvContour contour;
        int found = 0;
        const int read = KvContourXMLImport(0).Execute(parser, contour, KvContourXMLImport::eReadForward, found, 0);
        name = NameOf(++place, contour);
        coordinatesMissing = false;
        ExamineId(contour);
        if (!ExamineType())
            return;
        ExamineFields();
        const int points = ExaminePoints();
        // The figure is what was meant only if all its coordinates were read.
        if (!read || !coordinatesMissing)
            ExamineFigure(contour, points, !read);
    }

    void ExamineId(const KvContour& contour)
    {
        const int count = parser.Get_Attribute_Count();
        const bool hasId = parser.Has_Attribute("Id");
        if (hasId && count > 1)
            return Add("a second attribute makes its Id ignored");
        if (!hasId && count == 1)
            return Add("the attribute " + Quoted(parser.Get_Attribute_Name(0)) + " is not read");
        if (count == 1 && !KvString(parser.Get_Attribute_Value(0).Text()).IsIntNum())
            return Add("its Id " + Quoted(parser.Get_Attribute_Value(0).Text()) + " is no number");
        if (contour.ID() < 0)
            return;
        const auto [former, fresh] = places.emplace(contour.ID(), place);
        if (!fresh)
            Add("has the Id of contour " + std::to_string(former->second));
    }

    // False if nothing else of the contour is read.
    bool ExamineType()
    {
        if (!parser.Go_to_Child("ContourType"))
        {
            Add("has no ContourType");
            return false;
        }
        const KvString text = parser.Get_TextValue();
        const int type = text;
        const bool isNumber = text.IsIntNum();
        const bool known = isNumber && IsFigureType(type);
        if (!isNumber)
            Add("its ContourType " + Quoted(text) + " is no number");
        else if (!known)
            Add("unknown ContourType " + Quoted(text), true);
        parser.Go_to_Parent();
        return known;
    }

    void ExamineFields()
    {
        for (const char* integer : {"Exclude", "ReadOnly", "SequenceID", "Color"})
            ExamineField(integer, &KvString::IsIntNum);
        for (const char* real : {"LineWidth", "Angle"})
            ExamineField(real, &KvString::IsFloatNum);
    }

    // An empty node is a value that isn't set.
    void ExamineField(const char* field, int (KvString::*isNumber)() const)
    {
        if (!parser.Go_to_Child(field))
            return;
        const KvString text = parser.Get_TextValue();
        if (!IsBlank(text) && !(text.*isNumber)())
            Add("its " + std::string(field) + " " + Quoted(text) + " is no number");
        parser.Go_to_Parent();
    }

    // How many points there are.
    int ExaminePoints()
    {
        if (!parser.Go_to_Child("Point"))
            return 0;
        int point = 0;
        do
        {
            ++point;
            ExamineCoordinate("PositionX", point);
            ExamineCoordinate("PositionY", point);
        } while (parser.Go_Forward("Point"));
        parser.Go_to_Parent();
        return point;
    }

    void ExamineCoordinate(const char* coordinate, int point)
    {
        const std::string what = std::string(coordinate) + " of point " + std::to_string(point);
        if (!parser.Go_to_Child(coordinate))
        {
            coordinatesMissing = true;
            return Add(what + " is missing");
        }
        const KvString text = parser.Get_TextValue();
        const bool isNumber = text.IsFloatNum() && std::isfinite(static_cast<double>(text));
        if (!isNumber)
        {
            coordinatesMissing = true;
            Add(what + ", " + Quoted(text) + ", is no number");
        }
        parser.Go_to_Parent();
    }

    void ExamineFigure(const KvContour& contour, int count, bool unreadable)
    {
        const FigureType type = FigureTypeOf(contour.ContourType());
        if (count < type.leastPoints || count > type.mostPoints)
            Add("a wrong point count: " + std::to_string(count) + (count == 1 ? " point in " : " points in ") +
                    type.withArticle + ", which has " + type.pointCount,
                unreadable);
        else if (count > mostPoints)
            Add("more than " + std::to_string(mostPoints) + " points");
        else if (!contour.IsValid())
            Add(contour.GetArea() < 0.0 ? "an invalid figure: it runs clockwise"
                                        : std::string("an invalid figure: it has no ") +
                                              (contour.ContourType() == KvContour::ePolyline ? "length" : "area"));
    }
};
} // namespace

void OpenXml(XML_PARSER& parser, const std::string& file, const std::string& source)
{
    if (!parser.Load_XML_Buffer(source.data(), source.size()))
        throw Failure(file, parser.Get_ErrorText(), XML_LINES(parser, source).At(parser.Get_ErrorOffset()));
    parser.Go_to_Root();
    if (!parser.Is_CurrentName("Contours"))
        throw Failure(file, "the root element is " + Quoted(parser.Get_CurrentName()) + ", not \"Contours\"",
                      XML_LINES(parser, source).At(parser.Get_Offset()));
}

std::vector<Finding> FindingsOf(XML_PARSER& parser)
{
    parser.Go_to_Root();
    return Examiner(parser).Run();
}

} // namespace kvcontour
