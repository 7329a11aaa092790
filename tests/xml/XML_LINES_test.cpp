// Lines of nodes and of errors, in every kind of line break and encoding.
#include "contracts/xml.h"

#include <gtest/gtest.h>

using KvN::XML_LINES;
using KvN::XML_PARSER;

namespace
{
// The line of the element <x> below the root.
int LineOfX(std::string_view source)
{
    XML_PARSER parser;
    EXPECT_TRUE(parser.Load_XML_Buffer(source.data(), source.size())) << parser.Get_ErrorText();
    EXPECT_TRUE(parser.Go_to_Root() && parser.Go_to_Child("x"));
    return XML_LINES(parser, source).At(parser.Get_Offset());
}

template <class Unit>
std::string Bytes(std::basic_string_view<Unit> text, bool swap)
{
    std::string bytes;
    for (const Unit unit : text)
    {
        for (size_t i = 0; i < sizeof(Unit); ++i)
            bytes += static_cast<char>(unit >> 8 * (swap ? sizeof(Unit) - 1 - i : i));
    }
    return bytes;
}
} // namespace

TEST(XmlLines, CountsEveryKindOfLineBreak)
{
    EXPECT_EQ(LineOfX("<r><x/></r>"), 1);
    EXPECT_EQ(LineOfX("<r>\n<a>1\n2</a>\n<x/></r>"), 4);
    EXPECT_EQ(LineOfX("<r>\r\n<a>1\r\n2</a>\r\n<x/></r>"), 4);
    EXPECT_EQ(LineOfX("<r>\r<a>1\r2</a>\r<x/></r>"), 4);
    EXPECT_EQ(LineOfX("<r>\n\r<x/></r>"), 3);
}

TEST(XmlLines, CountsInEveryEncoding)
{
    const std::u16string utf16 = u"\uFEFF<?xml version='1.0'?>\n<r>\n<a>Größe 漢字 😀😀</a>\n<a/><x/>\n</r>";
    const std::u32string utf32 = U"\uFEFF<?xml version='1.0'?>\n<r>\n<a>Größe 漢字 😀😀</a>\n<a/><x/>\n</r>";
    EXPECT_EQ(LineOfX("\xEF\xBB\xBF<?xml version='1.0'?>\n<r>\n<a>Größe 漢字 😀😀</a>\n<a/><x/>\n</r>"), 4);
    for (const bool swap : {false, true})
    {
        EXPECT_EQ(LineOfX(Bytes<char16_t>(utf16, swap)), 4);
        EXPECT_EQ(LineOfX(Bytes<char32_t>(utf32, swap)), 4);
    }
    EXPECT_EQ(LineOfX("<?xml version='1.0' encoding='latin1'?>\n<r>\n<a>\xF6\xF6\xF6\xF6</a>\n<x/>\n</r>"), 4);
}

TEST(XmlLines, TellsTheLineOfAnError)
{
    XML_PARSER parser;
    const std::string_view source = "<r>\n<a>\n</b>\n</r>";
    EXPECT_FALSE(parser.Load_XML_Buffer(source.data(), source.size()));
    EXPECT_EQ(XML_LINES(parser, source).At(parser.Get_ErrorOffset()), 3);
}

TEST(XmlLines, AnUnknownPlaceIsLineZero)
{
    XML_PARSER parser;
    EXPECT_EQ(XML_LINES(parser, "").At(-1), 0);
    ASSERT_TRUE(parser.Add_FirstChildNode("r"));
    EXPECT_EQ(parser.Get_Offset(), -1);
}
