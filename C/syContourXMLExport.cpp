// Writing contours as XML nodes: the order of nodes, the number formats, and where a second root would come about.
#include "C/syContourXMLExport.h"

#include "C/syContourXMLNumbers_p.h"
#include "contracts/basics/KvException.h"
#include "contracts/basics/KvLibrary.h"
#include "resources/resource.h"

namespace KvN
{
namespace
{
using xmlnumbers::Text;

constexpr const char* source = "C/syContourXMLExport";

// Adds a node behind the current one; an unset value leaves it empty.
void AddAfter(XML_PARSER& parser, const char* name, const char* text)
{
    parser.Add_NodeAfter(name);
    parser.Set_TextValue(text);
}

void AddReal(XML_PARSER& parser, const char* name, double value, int width, int precision)
{
    if (value == KvContour::NoLineWidth)
        parser.Add_NodeAfter(name);
    else
        AddAfter(parser, name, Text(value, width, precision).Utf8());
}

void WriteFields(XML_PARSER& parser, const KvContour& contour)
{
    parser.Add_LastChildNode("ContourType");
    parser.Set_TextValue(Text(static_cast<std::int32_t>(contour.ContourType())).Utf8());
    AddAfter(parser, "Exclude", Text(static_cast<std::int32_t>(contour.Exclude())).Utf8());
    AddAfter(parser, "ReadOnly", Text(static_cast<std::int32_t>(contour.ReadOnly())).Utf8());
    AddAfter(parser, "SequenceID", Text(contour.SequenceID()).Utf8());
    if (contour.Description().Length() > 0)
        AddAfter(parser, "Description", contour.Description().Utf8().c_str());
    if (contour.Color() == KvContour::NoColor)
        parser.Add_NodeAfter("Color");
    else
        AddAfter(parser, "Color", Text(contour.Color()).Utf8());
    AddReal(parser, "LineWidth", contour.LineWidth(), 4, 3);
    AddReal(parser, "Angle", contour.Angle(), 6, 5);
}

void WritePoint(XML_PARSER& parser, const KvVec2d& point)
{
    parser.Add_NodeAfter("Point");
    parser.Add_LastChildNode("PositionX");
    parser.Set_TextValue(Text(point.x, 4, 3).Utf8());
    AddAfter(parser, "PositionY", Text(point.y, 4, 3).Utf8());
    parser.Go_to_Parent();
}

int AddNode(XML_PARSER& parser, KvContourXMLExport::eWriteMode mode)
{
    switch (mode)
    {
    case KvContourXMLExport::eWriteAfter:
        return parser.Add_NodeAfter("Contour");
    case KvContourXMLExport::eWriteBefore:
        return parser.Add_NodeBefore("Contour");
    case KvContourXMLExport::eWriteLastChild:
        return parser.Add_LastChildNode("Contour");
    case KvContourXMLExport::eWriteFirstChild:
        return parser.Add_FirstChildNode("Contour");
    }
    return 0;
}
} // namespace

KvContourXMLExport::KvContourXMLExport(int useExceptions) : UseExceptions(useExceptions) {}
KvContourXMLExport::~KvContourXMLExport() = default;

int KvContourXMLExport::Fail(unsigned short textId, unsigned long line) const
{
    if (UseExceptions)
        throw new KvException(source, line, KvString(KvResId(textId, GetResourceModule())));
    return 0;
}

int KvContourXMLExport::Execute(const KvString& fileName, const KvTList<KvContour>& contours)
{
    XML_PARSER parser;
    parser.Reset_XML_Document();
    parser.Add_FirstChildNode("Contours");
    const int result = Execute(parser, contours, eWriteLastChild, 1);
    parser.Save_XML_Document(fileName.Text().Wide().c_str());
    return result;
}

int KvContourXMLExport::Execute(XML_PARSER& parser, const KvTList<KvContour>& contours, eWriteMode mode, int goToParent)
{
    if (contours.count == 0)
        return 1;
    const bool forward = mode == eWriteAfter || mode == eWriteLastChild;
    const auto* node = forward ? contours.head : contours.tail;
    int result = Execute(parser, node->value, mode, 0);
    const eWriteMode next = forward ? eWriteAfter : eWriteBefore;
    while ((node = forward ? node->next : node->prev))
    {
        if (!WriteNext(parser, node->value, next, result))
            return 0;
    }
    if (goToParent && (mode == eWriteLastChild || mode == eWriteFirstChild))
        parser.Go_to_Parent();
    return result;
}

// Writes a further contour of a list beside the former one. 0 if it can't have a place; contents that fail only show in
// `result`.
int KvContourXMLExport::WriteNext(XML_PARSER& parser, const KvContour& contour, eWriteMode mode, int& result)
{
    if (parser.Is_Root())
        return Fail(IDS_XML_SECOND_ROOT, 105);
    AddNode(parser, mode);
    if (!WriteNode(parser, contour))
        result = 0;
    return 1;
}

int KvContourXMLExport::Execute(XML_PARSER& parser, const KvContour& contour, eWriteMode mode, int goToParent)
{
    const bool asSibling = mode == eWriteAfter || mode == eWriteBefore;
    if (parser.Is_Root())
    {
        if (asSibling)
            return Fail(IDS_XML_SECOND_ROOT, 105);
        if (parser.Is_CurrentName("") && parser.HasChildren())
            return Fail(IDS_XML_SECOND_ROOT, 117);
    }
    if (!AddNode(parser, mode))
        return 0;
    const int result = WriteNode(parser, contour);
    if (goToParent && !asSibling)
        parser.Go_to_Parent();
    return result;
}

// Fills the new `Contour` node that the cursor stands on.
int KvContourXMLExport::WriteNode(XML_PARSER& parser, const KvContour& contour)
{
    if (contour.ID() >= 0)
        parser.Set_Attribute("Id", Text(contour.ID()).Utf8());
    return WriteContents(parser, contour);
}

int KvContourXMLExport::WriteContents(XML_PARSER& parser, const KvContour& contour)
{
    WriteFields(parser, contour);
    int count = 0;
    int result = 1;
    for (const auto* node = contour.CurvePositions().head; node; node = node->next)
    {
        // Only rectangles are checked, and only for too many points: that is required.
        if (contour.ContourType() == KvContour::eRectangle && ++count > 4)
        {
            result = Fail(IDS_XML_WRITE_POINT_COUNT, 67);
            break;
        }
        WritePoint(parser, node->value);
    }
    parser.Go_to_Parent();
    return result;
}

} // namespace KvN
