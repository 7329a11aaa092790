// The cursor of an XML document: moves, additions, texts, attributes, and what is not to be broken by them.
#include "contracts/xml/XML_PARSER.h"

#include <gtest/gtest.h>

using KvN::KvString;
using KvN::XML_PARSER;

namespace
{
constexpr const char* head = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

// A document of the given source, with the cursor at its root element.
class XmlCursor : public testing::Test
{
protected:
    XML_PARSER parser;

    void Read(std::string_view source)
    {
        ASSERT_TRUE(parser.Load_XML_Buffer(source.data(), source.size())) << parser.Get_ErrorText();
        ASSERT_TRUE(parser.Go_to_Root());
    }
    std::string Name() { return parser.Get_CurrentName().Utf8(); }
    std::string Text() { return parser.Get_TextValue().Utf8(); }
};
} // namespace

TEST_F(XmlCursor, AnEmptyDocumentHasANamelessTopAndNoChildren)
{
    EXPECT_TRUE(parser.Is_Root());
    EXPECT_FALSE(parser.HasChildren());
    EXPECT_EQ(parser.Get_CurrentName().Length(), 0);
    EXPECT_FALSE(parser.Go_to_Root());
    EXPECT_FALSE(parser.Go_to_Parent());
    EXPECT_FALSE(parser.Go_Forward());
    EXPECT_FALSE(parser.Go_Backward());
    EXPECT_FALSE(parser.Go_to_FirstSibling("a"));
}

TEST_F(XmlCursor, TheDocumentAndItsRootElementAreRootAndNothingElse)
{
    Read("<a><b/></a>");
    EXPECT_TRUE(parser.Is_Root());
    EXPECT_TRUE(parser.Go_to_Child(L"b"));
    EXPECT_FALSE(parser.Is_Root());
    EXPECT_TRUE(parser.Go_to_Parent());
    EXPECT_TRUE(parser.Go_to_Parent());
    EXPECT_TRUE(parser.Is_Root());
    EXPECT_EQ(Name(), "");
    EXPECT_FALSE(parser.Go_to_Parent());
}

TEST_F(XmlCursor, AddingMovesOntoTheNewNode)
{
    EXPECT_TRUE(parser.Add_FirstChildNode(L"root"));
    EXPECT_EQ(Name(), "root");
    EXPECT_TRUE(parser.Add_LastChildNode(L"b"));
    EXPECT_TRUE(parser.Add_NodeBefore(L"a"));
    EXPECT_TRUE(parser.Add_NodeAfter(L"a2"));
    EXPECT_TRUE(parser.Go_to_Parent());
    EXPECT_TRUE(parser.Add_FirstChildNode(L"first"));
    EXPECT_TRUE(parser.Go_to_Parent());
    EXPECT_TRUE(parser.Add_LastChildNode(L"last"));
    EXPECT_EQ(Name(), "last");
    EXPECT_EQ(parser.Save_XML_Text(),
              head + std::string("<root>\n  <first />\n  <a />\n  <a2 />\n  <b />\n  <last />\n</root>\n"));
}

TEST_F(XmlCursor, ASecondRootIsNotAdded)
{
    EXPECT_FALSE(parser.Add_NodeAfter("a"));
    EXPECT_TRUE(parser.Add_LastChildNode("root"));
    EXPECT_FALSE(parser.Add_NodeAfter("a"));
    EXPECT_FALSE(parser.Add_NodeBefore("a"));
    EXPECT_TRUE(parser.Go_to_Parent());
    EXPECT_FALSE(parser.Add_FirstChildNode("a"));
    EXPECT_FALSE(parser.Add_LastChildNode("a"));
    EXPECT_EQ(parser.Save_XML_Text(), head + std::string("<root />\n"));
}

TEST_F(XmlCursor, ANameThatIsNoneIsRefused)
{
    ASSERT_TRUE(parser.Add_FirstChildNode("root"));
    for (const char* name : {"", "1a", "a b", "a<", "-a", "a>b", "a\"b", ".a"})
    {
        EXPECT_FALSE(parser.Add_LastChildNode(name)) << name;
        EXPECT_FALSE(parser.Set_Attribute(name, "x")) << name;
    }
    EXPECT_TRUE(parser.Add_LastChildNode(L"Gr\u00f6\u00dfe-1.x"));
    EXPECT_EQ(Name(), "Gr\u00f6\u00dfe-1.x");
}

TEST_F(XmlCursor, MovesThatFailLeaveTheCursor)
{
    Read("<a><b/><c/></a>");
    EXPECT_FALSE(parser.Go_to_Child("x"));
    EXPECT_EQ(Name(), "a");
    ASSERT_TRUE(parser.Go_to_Child("c"));
    EXPECT_FALSE(parser.Go_Forward());
    EXPECT_FALSE(parser.Go_Forward("b"));
    EXPECT_FALSE(parser.Go_Backward(L"x"));
    EXPECT_FALSE(parser.Go_to_FirstSibling(L"x"));
    EXPECT_EQ(Name(), "c");
}

TEST_F(XmlCursor, FirstSiblingSearchesFromTheFirstAndIncludesTheCurrentNode)
{
    Read("<r><a i='1'/><b/><a i='2'/><c/></r>");
    ASSERT_TRUE(parser.Go_to_Child("c"));
    EXPECT_TRUE(parser.Go_to_FirstSibling("a"));
    EXPECT_EQ(KvString(parser.Get_Attribute_Value(0).Text()).Utf8(), "1");
    EXPECT_TRUE(parser.Go_to_FirstSibling("a"));
    EXPECT_EQ(KvString(parser.Get_Attribute_Value(0).Text()).Utf8(), "1");
    EXPECT_TRUE(parser.Go_to_FirstSibling("c"));
    EXPECT_EQ(Name(), "c");
}

TEST_F(XmlCursor, ForwardAndBackwardStepOverComments)
{
    Read("<r><!--1--><a/><!--2--><b/><!--3--><a2/><b i='2'/></r>");
    ASSERT_TRUE(parser.Go_to_Child("a"));
    EXPECT_TRUE(parser.Go_Forward());
    EXPECT_EQ(Name(), "b");
    EXPECT_TRUE(parser.Go_Forward("b"));
    EXPECT_EQ(parser.Get_Attribute_Count(), 1);
    EXPECT_TRUE(parser.Go_Backward(L"b"));
    EXPECT_EQ(parser.Get_Attribute_Count(), 0);
    EXPECT_TRUE(parser.Go_Backward());
    EXPECT_EQ(Name(), "a");
    EXPECT_FALSE(parser.Go_Backward());
}

TEST_F(XmlCursor, OnlyElementsCountAsChildren)
{
    Read("<r><!--1--></r>");
    EXPECT_FALSE(parser.HasChildren());
    Read("<r>text</r>");
    EXPECT_FALSE(parser.HasChildren());
    Read("<r>text<a/></r>");
    EXPECT_TRUE(parser.HasChildren());
}

TEST_F(XmlCursor, AttributesAreSetChangedAndCounted)
{
    ASSERT_TRUE(parser.Add_FirstChildNode("r"));
    EXPECT_EQ(parser.Get_Attribute_Count(), 0);
    EXPECT_TRUE(parser.Set_Attribute(L"Id", L"7"));
    EXPECT_TRUE(parser.Set_Attribute(L"b", L"<\"&'\n\t\r>"));
    EXPECT_TRUE(parser.Set_Attribute(L"Id", KvString(8L)));
    EXPECT_EQ(parser.Get_Attribute_Count(), 2);
    EXPECT_TRUE(parser.Has_Attribute("b"));
    EXPECT_FALSE(parser.Has_Attribute("c"));
    EXPECT_EQ(parser.Get_Attribute_Name(0).Utf8(), "Id");
    EXPECT_EQ(KvString(parser.Get_Attribute_Value(0).Text()).Utf8(), "8");
    const std::string saved = parser.Save_XML_Text();
    Read(saved);
    EXPECT_EQ(KvString(parser.Get_Attribute_Value(1).Text()).Utf8(), "<\"&'\n\t\r>");
    EXPECT_EQ(parser.Get_Attribute_Name(1).Utf8(), "b");
}

TEST_F(XmlCursor, AnAttributeOutOfRangeIsEmpty)
{
    Read("<r a='1'/>");
    for (const int index : {-1, 1, 1000})
    {
        EXPECT_EQ(parser.Get_Attribute_Name(index).Length(), 0);
        EXPECT_EQ(parser.Get_Attribute_Value(index).Text().GetLength(), 0);
    }
    ASSERT_TRUE(parser.Go_to_Parent());
    EXPECT_FALSE(parser.Set_Attribute("a", "b"));
    EXPECT_EQ(parser.Get_Attribute_Count(), 0);
}

TEST_F(XmlCursor, TextIsThatOfTheNodeAlone)
{
    Read("<r>one<a>inner</a><!-- not --> two <![CDATA[<three>]]></r>");
    EXPECT_EQ(Text(), "one two <three>");
    EXPECT_TRUE(parser.Set_TextValue(L"new"));
    EXPECT_EQ(Text(), "new");
    ASSERT_TRUE(parser.Go_to_Child("a"));
    EXPECT_EQ(Text(), "inner");
    ASSERT_TRUE(parser.Go_to_Parent());
    ASSERT_TRUE(parser.Go_to_Parent());
    EXPECT_EQ(Text(), "");
    EXPECT_FALSE(parser.Set_TextValue("no place for text"));
}

TEST_F(XmlCursor, TextIsReplacedAndEmptied)
{
    ASSERT_TRUE(parser.Add_FirstChildNode("r"));
    EXPECT_TRUE(parser.Set_TextValue(L"first"));
    EXPECT_TRUE(parser.Set_TextValue("second and longer"));
    EXPECT_EQ(Text(), "second and longer");
    EXPECT_TRUE(parser.Set_TextValue(L""));
    EXPECT_EQ(Text(), "");
    Read("<r>read</r>");
    EXPECT_TRUE(parser.Set_TextValue(L""));
    EXPECT_EQ(Text(), "");
}

TEST_F(XmlCursor, TextSurvivesWhole)
{
    const std::u16string texts[] = {
        u" ",
        u"   ",
        u"\t",
        u"\n",
        u"\r",
        u"\r\n",
        u" a ",
        u"\n a\n",
        u"a\rb\r\nc\n\rd",
        u"<&>\"'",
        u"]]>",
        u"&amp;",
        u"Größe µm – 漢字 😀",
        u"x",
        u"\u00a0",
        std::u16string(100000, u'\r') + u"z",
    };
    for (const std::u16string& text : texts)
    {
        const KvString whole(text.c_str());
        parser.Reset_XML_Document();
        ASSERT_TRUE(parser.Add_FirstChildNode("r"));
        ASSERT_TRUE(parser.Add_LastChildNode("t"));
        ASSERT_TRUE(parser.Set_TextValue(whole));
        const std::string saved = parser.Save_XML_Text();
        EXPECT_EQ(saved.find('\r'), std::string::npos);
        Read(saved);
        ASSERT_TRUE(parser.Go_to_Child("t"));
        EXPECT_TRUE(parser.Get_TextValue() == whole) << saved.substr(0, 200);
    }
}

TEST_F(XmlCursor, BlanksBetweenElementsDoNotSpoilTheFormatting)
{
    Read("<r>\n\n</r>");
    ASSERT_TRUE(parser.Add_LastChildNode("a"));
    ASSERT_TRUE(parser.Set_TextValue("  "));
    ASSERT_TRUE(parser.Go_to_Parent());
    ASSERT_TRUE(parser.Add_FirstChildNode("b"));
    EXPECT_EQ(parser.Save_XML_Text(), head + std::string("<r>\n  <b />\n  <a>  </a>\n</r>\n"));
    ASSERT_TRUE(parser.Go_Forward("a"));
    ASSERT_TRUE(parser.Add_LastChildNode("c"));
    EXPECT_EQ(parser.Save_XML_Text(), head + std::string("<r>\n  <b />\n  <a>\n    <c />\n  </a>\n</r>\n"));
}

TEST_F(XmlCursor, CommentsOfADocumentAreKept)
{
    Read("<!-- top --><r><!-- in --><a/></r>");
    EXPECT_EQ(parser.Save_XML_Text(), head + std::string("<!-- top -->\n<r>\n  <!-- in -->\n  <a />\n</r>\n"));
}

TEST_F(XmlCursor, ResetEmptiesAndForgetsTheError)
{
    EXPECT_FALSE(parser.Load_XML_Buffer("<a", 2));
    EXPECT_FALSE(parser.Get_ErrorText().empty());
    parser.Reset_XML_Document();
    EXPECT_TRUE(parser.Get_ErrorText().empty());
    EXPECT_EQ(parser.Get_ErrorOffset(), -1);
    EXPECT_EQ(parser.Save_XML_Text(), "");
}
