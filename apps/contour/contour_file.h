// Contour files as the subcommands read and write them: XML, and byte arrays each behind its length.
#pragma once

#include "C/syContour.h"

#include <string>

namespace kvcontour
{

// Told by the end of a file's name, upper and lower case being the same.
enum class Format
{
    Unknown,
    Xml,  // .xml
    Bytes // .kvb: each contour's byte array behind its length of 32 bits, little-endian
};
Format FormatOf(const std::string& file);

// The whole content. Throws a Failure.
std::string ReadFile(const std::string& file);

// All contours of a file, read as XML unless its name says .kvb; invalid figures in XML are read as they stand. Throws
// a Failure for a file that can't be read, is none of its format, or holds what no contour is made of.
KvTList<KvN::KvContour> ReadContours(const std::string& file);

// Writes by `FormatOf`: the whole file or nothing. An invalid figure has no byte form, for which the `input` is blamed
// that the contours came from. Throws a Failure.
void WriteContours(const std::string& file, const KvTList<KvN::KvContour>& contours, const std::string& input);

// How messages name a contour: by its place in the file, from 1, and its identity if it has one.
std::string NameOf(int place, const KvN::KvContour& contour);

} // namespace kvcontour
