// Reading and writing contour files, with a message for everything that can be wrong with them.
#include "apps/contour/contour_file.h"

#include "C/syContourXMLExport.h"
#include "C/syContourXMLImport.h"
#include "apps/contour/failure.h"
#include "apps/contour/findings.h"
#include "contracts/basics/KvAtomicFile.h"
#include "contracts/xml.h"

#include <algorithm>
#include <cerrno>
#include <cstdint>
#include <cstdio>
#include <cstring>
#include <memory>

namespace kvcontour
{
using namespace KvN;
namespace
{
constexpr std::size_t lengthBytes = 4;

struct CloseFile
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};

std::uint32_t LengthAt(const std::string& bytes, std::size_t at)
{
    std::uint32_t length = 0;
    for (std::size_t i = 0; i < lengthBytes; ++i)
        length |= static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at + i])) << 8 * i;
    return length;
}

KvTList<KvContour> ReadBytes(const std::string& file)
{
    const std::string bytes = ReadFile(file);
    KvTList<KvContour> contours;
    for (std::size_t at = 0; at < bytes.size();)
    {
        const std::string record = "record " + std::to_string(contours.count + 1) + " at byte " + std::to_string(at);
        const std::size_t rest = bytes.size() - at;
        if (rest < lengthBytes || LengthAt(bytes, at) > rest - lengthBytes)
            throw Failure(file, record + " ends behind the end of the file");
        const std::uint32_t length = LengthAt(bytes, at);
        if (length > INT32_MAX)
            throw Failure(file, record + " is too long");
        KvTArray<unsigned char> array(static_cast<int>(length));
        std::copy_n(bytes.data() + at + lengthBytes, length, array.data);
        contours.AddTail(KvContour());
        contours.tail->value.FromByteArray(array);
        if (!contours.tail->value.IsValid())
            throw Failure(file, record + " holds no valid contour");
        at += lengthBytes + length;
    }
    return contours;
}

// The line of a contour of an XML file, counted from 1; 0 if it can't be found again (a pipe is read once).
int LineOf(const std::string& file, int place)
try
{
    const std::string source = ReadFile(file);
    XML_PARSER parser;
    bool found =
        parser.Load_XML_Buffer(source.data(), source.size()) && parser.Go_to_Root() && parser.Go_to_Child("Contour");
    for (; found && place > 1; --place)
        found = parser.Go_Forward("Contour");
    return found ? XML_LINES(parser, source).At(parser.Get_Offset()) : 0;
}
catch (const Failure&)
{
    return 0;
}

void WriteBytes(const std::string& file, const KvTList<KvContour>& contours, const std::string& input)
{
    KvAtomicFile out(file);
    KvTArray<unsigned char> array;
    int place = 0;
    for (const auto* node = contours.head; node; node = node->next)
    {
        ++place;
        KvContour contour(node->value); // writing bytes is no const operation
        contour.ToByteArray(array);
        if (array.size < 1)
            throw Failure(input, NameOf(place, contour) + " is not valid and has no byte form",
                          FormatOf(input) == Format::Bytes ? 0 : LineOf(input, place));
        unsigned char length[lengthBytes];
        for (std::size_t i = 0; i < lengthBytes; ++i)
            length[i] = static_cast<unsigned char>(static_cast<std::uint32_t>(array.size) >> 8 * i);
        out.Write(length, lengthBytes);
        out.Write(array.data, static_cast<std::size_t>(array.size));
    }
    if (!out.Commit())
        throw Failure(file, out.Error().message());
}

void WriteXml(const std::string& file, const KvTList<KvContour>& contours)
{
    XML_PARSER parser;
    parser.Add_FirstChildNode("Contours");
    if (!KvContourXMLExport(0).Execute(parser, contours, KvContourXMLExport::eWriteLastChild, 1))
        throw Failure(file, "a rectangle has more than 4 points");
    if (!parser.Save_XML_File(file))
        throw Failure(file, parser.Get_ErrorText());
}

KvTList<KvContour> ReadXml(const std::string& file)
{
    const std::string source = ReadFile(file);
    XML_PARSER parser;
    OpenXml(parser, file, source);
    KvTList<KvContour> contours;
    KvContourXMLImport importer(0);
    const int whole = importer.Execute(parser, contours, KvContourXMLImport::eReadFirstChild, 0);
    if (whole)
        return contours;
    for (const Finding& finding : FindingsOf(parser))
    {
        if (finding.unreadable)
            throw Failure(file, finding.what, XML_LINES(parser, source).At(finding.offset));
    }
    throw Failure(file, "holds a contour that can't be read");
}
} // namespace

Format FormatOf(const std::string& file)
{
    const auto endsWith = [&file](std::string_view end)
    {
        return file.size() >= end.size() &&
               std::equal(end.begin(), end.end(), file.end() - static_cast<std::ptrdiff_t>(end.size()),
                          [](char a, char b) { return a == (b >= 'A' && b <= 'Z' ? b - 'A' + 'a' : b); });
    };
    return endsWith(".xml") ? Format::Xml : endsWith(".kvb") ? Format::Bytes : Format::Unknown;
}

std::string ReadFile(const std::string& file)
{
    const std::unique_ptr<std::FILE, CloseFile> in(std::fopen(file.c_str(), "rb"));
    if (!in)
        throw Failure(file, std::strerror(errno));
    std::string content;
    constexpr std::size_t piece = 1 << 20;
    for (;;)
    {
        const std::size_t size = content.size();
        content.resize(size + piece);
        errno = 0;
        const std::size_t done = std::fread(content.data() + size, 1, piece, in.get());
        content.resize(size + done);
        if (done == piece)
            continue;
        if (std::ferror(in.get()))
            throw Failure(file, std::strerror(errno));
        return content;
    }
}

KvTList<KvContour> ReadContours(const std::string& file)
{
    return FormatOf(file) == Format::Bytes ? ReadBytes(file) : ReadXml(file);
}

void WriteContours(const std::string& file, const KvTList<KvContour>& contours, const std::string& input)
{
    if (FormatOf(file) == Format::Bytes)
        WriteBytes(file, contours, input);
    else
        WriteXml(file, contours);
}

std::string NameOf(int place, const KvContour& contour)
{
    const std::string name = "contour " + std::to_string(place);
    return contour.ID() < 0 ? name : name + " (Id " + std::to_string(contour.ID()) + ")";
}

} // namespace kvcontour
