// Reading contours from XML nodes. Level-3 nodes are looked up by name, so that their order is free.
#include "C/syContourXMLImport.h"

#include "C/syContourXMLNumbers_p.h"
#include "contracts/basics/KvException.h"
#include "contracts/basics/KvLibrary.h"
#include "resources/resource.h"

#include <utility>

namespace KvN
{
namespace
{
constexpr const char* source = "C/syContourXMLImport";
constexpr int wholeString = 0x7FFFFFFF;

KvString ResourceText(unsigned short id)
{
    return KvString(KvResId(id, GetResourceModule()));
}

// Takes the number of a sibling of the current node, if there is one and it holds a number.
template <class Number>
void Take(XML_PARSER& parser, const char* name, Number& value)
{
    if (parser.Go_to_FirstSibling(name))
        xmlnumbers::Read(parser.Get_Utf8Text(), value);
}

void ReadFields(XML_PARSER& parser, KvContour& contour)
{
    Take(parser, "Color", contour.Color());
    Take(parser, "Angle", contour.Angle());
    Take(parser, "LineWidth", contour.LineWidth());
    Take(parser, "Exclude", contour.Exclude());
    Take(parser, "ReadOnly", contour.ReadOnly());
    Take(parser, "SequenceID", contour.SequenceID());
    if (parser.Go_to_FirstSibling("Description"))
        contour.Description() = parser.Get_TextValue();
}

// Reads a `Point` node and comes back to it. Both coordinates must be there; one that is no number stays 0.
void ReadPoint(XML_PARSER& parser, KvTList<KvVec2d>& points)
{
    KvVec2d point;
    if (!parser.Go_to_Child("PositionX"))
        return;
    xmlnumbers::Read(parser.Get_Utf8Text(), point.x);
    if (parser.Go_to_FirstSibling("PositionY"))
    {
        xmlnumbers::Read(parser.Get_Utf8Text(), point.y);
        points.AddTail(point);
    }
    parser.Go_to_Parent();
}

// A `Contour` keeps its identity only if that is its one attribute: that is required.
void ReadId(XML_PARSER& parser, KvContour& contour)
{
    if (parser.Get_Attribute_Count() != 1 || parser.Get_Attribute_Name(0).Compare(L"Id", wholeString) != 0)
        return;
    const CComVariant value = parser.Get_Attribute_Value(0);
    xmlnumbers::Read(value.Text().Utf8(), contour.ID());
}

int Find(XML_PARSER& parser, KvContourXMLImport::eReadMode mode)
{
    switch (mode)
    {
    case KvContourXMLImport::eReadForward:
        return parser.Is_CurrentName("Contour") || parser.Go_Forward("Contour");
    case KvContourXMLImport::eReadBackward:
        return parser.Is_CurrentName("Contour") || parser.Go_Backward("Contour");
    case KvContourXMLImport::eReadFirstSibling:
        return parser.Go_to_FirstSibling("Contour");
    case KvContourXMLImport::eReadFirstChild:
        return parser.Go_to_Child("Contour");
    }
    return 0;
}

// Appends a contour that is not needed any more: its points change hands instead of being copied.
void Append(KvTList<KvContour>& contours, KvContour& contour)
{
    KvTList<KvVec2d> points(std::move(contour.CurvePositions()));
    contours.AddTail(contour);
    contours.tail->value.CurvePositions() = std::move(points);
}
} // namespace

KvContourXMLImport::KvContourXMLImport(int useExceptions) : UseExceptions(useExceptions) {}
KvContourXMLImport::~KvContourXMLImport() = default;

int KvContourXMLImport::Fail(const KvString& text, unsigned long line) const
{
    if (UseExceptions)
        throw new KvException(source, line, text);
    return 0;
}

int KvContourXMLImport::Execute(const KvString& fileName, KvTList<KvContour>& contours)
{
    XML_PARSER parser;
    parser.Load_XML_Document(fileName.Text().Wide().c_str());
    parser.Go_to_Root();
    if (parser.Get_CurrentName().Compare(L"Contours", wholeString) != 0)
        return 1;
    return Execute(parser, contours, eReadFirstChild, 1);
}

int KvContourXMLImport::Execute(XML_PARSER& parser, KvTList<KvContour>& contours, eReadMode mode, int goToParent)
{
    const int result = Find(parser, mode) ? ReadList(parser, contours, mode == eReadBackward) : 1;
    // What the list held before counts as well, even if nothing was found: that is required.
    if (goToParent && mode == eReadFirstChild && contours.count > 0)
        parser.Go_to_Parent();
    return result;
}

// Reads from the current node to the last sibling in one direction.
int KvContourXMLImport::ReadList(XML_PARSER& parser, KvTList<KvContour>& contours, bool backward)
{
    int result = 1;
    do
    {
        KvContour contour;
        int found = 0;
        if (!Execute(parser, contour, backward ? eReadBackward : eReadForward, found, 0))
            result = 0;
        if (found == 1)
            Append(contours, contour);
    } while (backward ? parser.Go_Backward() : parser.Go_Forward());
    return result;
}

int KvContourXMLImport::Execute(XML_PARSER& parser, KvContour& contour, eReadMode mode, int& found, int goToParent)
{
    found = 0;
    contour.FromByteArray({}); // all defaults, the compare tolerance included
    if (!Find(parser, mode))
        return 1;
    found = 1;
    ReadId(parser, contour);
    const int result = ReadContents(parser, contour);
    if (goToParent && mode == eReadFirstChild)
        parser.Go_to_Parent();
    return result;
}

int KvContourXMLImport::ReadContents(XML_PARSER& parser, KvContour& contour)
{
    if (!parser.Go_to_Child("ContourType"))
        return 1;
    int result = 1;
    std::int32_t type = 0;
    if (xmlnumbers::Read(parser.Get_Utf8Text(), type))
    {
        if (type < KvContour::eRectangle || type > KvContour::eCircle)
            result = Fail(KvString().SPrintf(ResourceText(IDS_XML_READ_TYPE).Text().Wide().c_str(), long{type}), 41);
        else
        {
            contour.ContourType() = static_cast<KvContour::eContourType>(type);
            ReadFields(parser, contour);
            result = ReadPoints(parser, contour);
        }
    }
    parser.Go_to_Parent();
    return result;
}

int KvContourXMLImport::ReadPoints(XML_PARSER& parser, KvContour& contour) const
{
    if (!parser.Go_to_FirstSibling("Point"))
        return 1;
    int count = 0;
    do
    {
        // A node without coordinates counts too, and no other type is checked: both are required.
        if (contour.ContourType() == KvContour::eRectangle && count >= 4)
            return Fail(ResourceText(IDS_XML_READ_POINT_COUNT), 122);
        ReadPoint(parser, contour.CurvePositions());
        ++count;
    } while (parser.Go_Forward("Point"));
    return 1;
}

} // namespace KvN
