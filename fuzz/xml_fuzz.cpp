// Contour files from anywhere: whatever is read is written and read again without loss of a figure.
#include "C/syContourXMLExport.h"
#include "C/syContourXMLImport.h"
#include "contracts/basics/KvException.h"
#include "contracts/xml.h"

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string_view>

using namespace KvN;
namespace
{
void Require(bool condition)
{
    if (!condition)
        std::abort();
}

// Every failure that is thrown must be one of the two that reading has.
void ReadWithExceptions(XML_PARSER& parser)
{
    KvTList<KvContour> contours;
    try
    {
        KvContourXMLImport().Execute(parser, contours, KvContourXMLImport::eReadFirstChild, 1);
    }
    catch (KvException* thrown)
    {
        const std::unique_ptr<KvException> failure(thrown);
        Require(failure->Line() == 41 || failure->Line() == 122);
    }
}

void ReadInEveryMode(XML_PARSER& parser, KvTList<KvContour>& contours)
{
    KvContourXMLImport importer(0);
    importer.Execute(parser, contours, KvContourXMLImport::eReadBackward, 1);
    importer.Execute(parser, contours, KvContourXMLImport::eReadFirstSibling, 1);
    importer.Execute(parser, contours, KvContourXMLImport::eReadForward, 1);
}

std::string Written(const KvTList<KvContour>& contours)
{
    XML_PARSER parser;
    Require(parser.Add_FirstChildNode("Contours"));
    Require(KvContourXMLExport(0).Execute(parser, contours, KvContourXMLExport::eWriteLastChild, 1));
    return parser.Save_XML_Text();
}

void RoundTrip(const KvTList<KvContour>& contours)
{
    const std::string text = Written(contours);
    XML_PARSER parser;
    Require(parser.Load_XML_Buffer(text.data(), text.size()));
    Require(parser.Go_to_Root());
    KvTList<KvContour> back;
    Require(KvContourXMLImport(0).Execute(parser, back, KvContourXMLImport::eReadFirstChild, 1));
    Require(back.count == contours.count);
    const auto* read = back.head;
    for (const auto* node = contours.head; node; node = node->next, read = read->next)
    {
        Require(read->value.CurvePositions().count == node->value.CurvePositions().count);
        Require(read->value.Description() == node->value.Description());
    }
}
} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    XML_PARSER parser;
    const bool loaded = parser.Load_XML_Buffer(data, size);
    const XML_LINES lines(parser, {reinterpret_cast<const char*>(data), size});
    if (!loaded)
    {
        lines.At(parser.Get_ErrorOffset());
        return 0;
    }
    parser.Go_to_Root();
    Require(lines.At(parser.Get_Offset()) >= 1);
    KvTList<KvContour> contours;
    KvContourXMLImport(0).Execute(parser, contours, KvContourXMLImport::eReadFirstChild, 1);
    RoundTrip(contours);
    ReadInEveryMode(parser, contours);
    parser.Go_to_Root();
    ReadWithExceptions(parser);
    return 0;
}
