// Reading with an account of what was left out, and writing all or nothing.
#include "apps/workbench/ContourFile.h"

#include "C/syContourXMLExport.h"
#include "C/syContourXMLImport.h"
#include "apps/workbench/Texts.h"
#include "contracts/xml.h"

#include <QFile>

#include <algorithm>
#include <cctype>
#include <set>

namespace kv::workbench
{
namespace
{
using KvN::KvContour;
using KvN::XML_PARSER;

// Contours without a number of their own get one behind all others: the editor tells contours apart by it.
void NumberTheRest(std::vector<KvContour>& contours)
{
    std::int32_t next = 0;
    for (const KvContour& contour : contours)
        next = std::max(next, contour.ID() + 1);
    for (KvContour& contour : contours)
    {
        if (contour.ID() < 0)
            contour.ID() = next++;
    }
}

// Takes over what can be shown, and says of the rest why not.
void TakeOver(std::vector<KvContour>&& read, ContourFile& file)
{
    std::set<std::int32_t> numbers;
    for (size_t i = 0; i < read.size(); ++i)
    {
        KvContour& contour = read[i];
        if (!contour.IsValid())
            file.skipped << Text(IDS_WB_SKIPPED_INVALID, i + 1);
        else if (contour.ID() >= 0 && !numbers.insert(contour.ID()).second)
            file.skipped << Text(IDS_WB_SKIPPED_DOUBLE, i + 1);
        else
            file.contours.push_back(std::move(contour));
    }
    NumberTheRest(file.contours);
}

// The contours of a document whose cursor stands on its first contour. A faulty one comes as far as it could be read.
std::vector<KvContour> ReadAll(XML_PARSER& parser)
{
    std::vector<KvContour> contours;
    KvN::KvContourXMLImport import(0);
    do
    {
        KvContour contour;
        int found = 0;
        import.Execute(parser, contour, KvN::KvContourXMLImport::eReadForward, found, 0);
        if (found)
            contours.push_back(contour);
    } while (parser.Go_Forward());
    return contours;
}

bool Load(XML_PARSER& parser, const QByteArray& xml)
{
    return parser.Load_XML_Buffer(xml.constData(), static_cast<size_t>(xml.size())) != 0;
}

// Loads the longest beginning of a damaged file that ends with a contour. How long it is; 0 if there is none.
qsizetype LoadWholeContours(XML_PARSER& parser, const QByteArray& xml)
{
    const QByteArray end = "</Contour>";
    std::vector<qsizetype> ends;
    for (qsizetype at = xml.indexOf(end); at >= 0; at = xml.indexOf(end, at + end.size()))
        ends.push_back(at + end.size());
    const auto loads = [&](qsizetype length) { return Load(parser, xml.left(length) + "</Contours>"); };
    const auto firstBad = std::partition_point(ends.begin(), ends.end(), loads);
    if (firstBad == ends.begin())
        return 0;
    loads(*std::prev(firstBad));
    return *std::prev(firstBad);
}

// The line on which the first thing behind a place stands.
qsizetype LineBehind(const QByteArray& xml, qsizetype place)
{
    while (place < xml.size() && std::isspace(static_cast<unsigned char>(xml[place])))
        ++place;
    return xml.left(place).count('\n') + 1;
}

int LineOfDamage(const QByteArray& xml)
{
    XML_PARSER parser;
    Load(parser, xml);
    const KvN::XML_LINES lines(parser, {xml.constData(), static_cast<size_t>(xml.size())});
    return std::max(lines.At(parser.Get_ErrorOffset()), 1);
}

KvTList<KvContour> ToList(const std::vector<KvContour>& contours)
{
    KvTList<KvContour> list;
    for (const KvContour& contour : contours)
        list.AddTail(contour);
    return list;
}

// A document with all contours below its root.
void Build(XML_PARSER& parser, const std::vector<KvContour>& contours)
{
    parser.Reset_XML_Document();
    parser.Add_FirstChildNode("Contours");
    KvN::KvContourXMLExport().Execute(parser, ToList(contours), KvN::KvContourXMLExport::eWriteLastChild, 1);
}
} // namespace

QString ContourFileOf(const QString& image)
{
    return image + ".contours.xml";
}

ContourFile ReadContours(const QString& path)
{
    ContourFile file;
    XML_PARSER parser;
    QFile source(path);
    if (!source.open(QIODevice::ReadOnly))
    {
        file.failure = Text(IDS_WB_ERROR_MISSING);
        return file;
    }
    const QByteArray xml = source.readAll();
    if (!Load(parser, xml))
    {
        const qsizetype good = LoadWholeContours(parser, xml);
        if (good == 0)
        {
            file.failure = Text(IDS_WB_ERROR_BROKEN, LineOfDamage(xml));
            return file;
        }
        file.skipped << Text(IDS_WB_SKIPPED_REST, LineBehind(xml, good));
    }
    if (!parser.Go_to_Root() || !parser.Is_CurrentName("Contours"))
        file.failure = Text(IDS_WB_ERROR_NO_CONTOURS);
    else if (parser.Go_to_Child("Contour"))
        TakeOver(ReadAll(parser), file);
    return file;
}

QString WriteContours(const QString& path, const std::vector<KvContour>& contours)
{
    XML_PARSER parser;
    Build(parser, contours);
    return parser.Save_XML_File(path.toStdString()) ? QString() : QString::fromStdString(parser.Get_ErrorText());
}

QByteArray ContoursToXml(const std::vector<KvContour>& contours)
{
    XML_PARSER parser;
    Build(parser, contours);
    return QByteArray::fromStdString(parser.Save_XML_Text());
}

std::vector<KvContour> ContoursFromXml(const QByteArray& xml)
{
    ContourFile file;
    XML_PARSER parser;
    if (Load(parser, xml) && parser.Go_to_Root() && parser.Go_to_Child("Contour"))
        TakeOver(ReadAll(parser), file);
    return file.contours;
}

} // namespace kv::workbench
