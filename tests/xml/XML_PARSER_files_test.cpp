// Reading and writing XML: encodings, what is refused, files that fail, and hostile sources.
#include "contracts/xml/XML_PARSER.h"

#include <csignal>
#include <fstream>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

using KvN::KvString;
using KvN::XML_PARSER;
namespace fs = std::filesystem;

namespace
{
class XmlFiles : public testing::Test
{
protected:
    XML_PARSER parser;
    fs::path folder;

    void SetUp() override
    {
        std::string pattern = (fs::temp_directory_path() / "kv-xml-XXXXXX").string();
        folder = mkdtemp(pattern.data());
    }
    void TearDown() override { fs::remove_all(folder); }

    int Read(std::string_view source) { return parser.Load_XML_Buffer(source.data(), source.size()); }
    std::wstring Wide(const char* name) const { return CStringT((folder / name).c_str()).Wide(); }
    std::ptrdiff_t Entries() const { return std::distance(fs::directory_iterator(folder), fs::directory_iterator()); }
};

std::string Content(const fs::path& file)
{
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

std::string Nested(int levels)
{
    std::string source;
    for (int i = 0; i < levels; ++i)
        source += "<a>";
    for (int i = 0; i < levels; ++i)
        source += "</a>";
    return source;
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

TEST_F(XmlFiles, SavesUtf8WithDeclarationIndentAndLineFeeds)
{
    ASSERT_TRUE(parser.Add_FirstChildNode(L"Größe"));
    ASSERT_TRUE(parser.Add_LastChildNode(L"a"));
    ASSERT_TRUE(parser.Set_TextValue(L"µ"));
    EXPECT_TRUE(parser.Save_XML_Document(Wide("ä.xml").c_str()));
    EXPECT_EQ(Content(folder / "ä.xml"), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<Größe>\n  <a>µ</a>\n</Größe>\n");
    EXPECT_EQ(Entries(), 1);

    XML_PARSER other;
    EXPECT_TRUE(other.Load_XML_Document(Wide("ä.xml").c_str()));
    EXPECT_TRUE(other.Go_to_Root());
    EXPECT_EQ(other.Get_CurrentName().Utf8(), "Größe");
}

TEST_F(XmlFiles, ReadsEveryEncodingThatCanBeTold)
{
    const std::u16string utf16 = u"\uFEFF<r>Größe 😀</r>";
    const std::u32string utf32 = U"\uFEFF<r>Größe 😀</r>";
    const std::string sources[] = {
        "<r>Größe 😀</r>",
        "\xEF\xBB\xBF<?xml version='1.0'?><r>Größe 😀</r>",
        Bytes<char16_t>(utf16, false),
        Bytes<char16_t>(utf16, true),
        Bytes<char16_t>(std::u16string_view(utf16).substr(1), false),
        Bytes<char32_t>(utf32, false),
        Bytes<char32_t>(utf32, true),
    };
    for (const std::string& source : sources)
    {
        ASSERT_TRUE(Read(source)) << parser.Get_ErrorText();
        ASSERT_TRUE(parser.Go_to_Root());
        EXPECT_EQ(parser.Get_TextValue().Utf8(), "Größe 😀");
    }
    ASSERT_TRUE(Read("<?xml version=\"1.0\" encoding=\"ISO-8859-1\"?><r>Gr\xF6\xDF"
                     "e</r>"));
    ASSERT_TRUE(parser.Go_to_Root());
    EXPECT_EQ(parser.Get_TextValue().Utf8(), "Größe");
    EXPECT_EQ(parser.Save_XML_Text(), "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n<r>Größe</r>\n");
}

TEST_F(XmlFiles, LineBreaksOfOtherSystemsReadAsLineFeeds)
{
    ASSERT_TRUE(Read("<r>a\r\nb\rc</r>"));
    ASSERT_TRUE(parser.Go_to_Root());
    EXPECT_EQ(parser.Get_TextValue().Utf8(), "a\nb\nc");
}

TEST_F(XmlFiles, WhatIsNoXmlLeavesAnEmptyDocumentAndAnError)
{
    for (const char* source :
         {"", " ", "text", "<a", "<a>", "<a></b>", "<a/><b/>", "<?xml version='1.0'?>", "<a b></a>", "<!-- only -->",
          "<a><![CDATA[</a>", "<a/>text", "text<a/>", "<a/><![CDATA[x]]>"})
    {
        ASSERT_TRUE(Read("<former/>"));
        EXPECT_FALSE(Read(source)) << source;
        EXPECT_NE(parser.Get_ErrorText(), "") << source;
        EXPECT_GE(parser.Get_ErrorOffset(), 0) << source;
        EXPECT_TRUE(parser.Is_Root());
        EXPECT_FALSE(parser.HasChildren());
    }
}

TEST_F(XmlFiles, AFileThatIsMissingOrAFolderFailsWithoutPlace)
{
    EXPECT_FALSE(parser.Load_XML_Document(Wide("none.xml").c_str()));
    EXPECT_EQ(parser.Get_ErrorText(), "No such file or directory");
    EXPECT_EQ(parser.Get_ErrorOffset(), -1);
    EXPECT_FALSE(parser.Load_XML_File(folder));
    EXPECT_EQ(parser.Get_ErrorText(), "Is a directory");
}

TEST_F(XmlFiles, APipeIsRead)
{
    const fs::path pipe = folder / "pipe";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    const std::string source = "<r>" + std::string(300000, 'x') + "</r>";
    const pid_t child = fork();
    if (child == 0)
    {
        std::ofstream(pipe) << source;
        _exit(0);
    }
    EXPECT_TRUE(parser.Load_XML_File(pipe));
    waitpid(child, nullptr, 0);
    ASSERT_TRUE(parser.Go_to_Root());
    EXPECT_EQ(parser.Get_TextValue().Length(), 300000);
}

TEST_F(XmlFiles, NestingUpToTheLimitIsReadAndBeyondIsRefused)
{
    EXPECT_TRUE(Read(Nested(XML_PARSER::deepest)));
    EXPECT_FALSE(Read(Nested(XML_PARSER::deepest + 1)));
    EXPECT_EQ(parser.Get_ErrorOffset(), 3 * XML_PARSER::deepest + 1);
    EXPECT_FALSE(Read(Nested(1000000)));
    EXPECT_NE(parser.Get_ErrorText().find("nested"), std::string::npos);
}

TEST_F(XmlFiles, EntitiesOfTheDocumentAreNotExpanded)
{
    std::string bomb = "<!DOCTYPE r [<!ENTITY a0 \"ha\">";
    for (int i = 1; i < 30; ++i)
    {
        const std::string former = "&a" + std::to_string(i - 1) + ";";
        bomb += "<!ENTITY a" + std::to_string(i) + " \"" + former + former + former + former + "\">";
    }
    bomb += "<!ENTITY f SYSTEM \"file:///etc/passwd\">]><r>&a29;&f;</r>";
    ASSERT_TRUE(Read(bomb));
    ASSERT_TRUE(parser.Go_to_Root());
    EXPECT_EQ(parser.Get_TextValue().Utf8(), "&a29;&f;");
}

TEST_F(XmlFiles, AFailedSaveKeepsTheOldFileAndNothingElse)
{
    const fs::path file = folder / "a.xml";
    std::ofstream(file) << "old";
    ASSERT_TRUE(parser.Add_FirstChildNode("r"));
    ASSERT_TRUE(parser.Set_TextValue(std::string(300000, 'x').c_str()));
    const pid_t child = fork();
    if (child == 0)
    {
        const rlimit limit = {100000, 100000};
        std::signal(SIGXFSZ, SIG_IGN);
        setrlimit(RLIMIT_FSIZE, &limit);
        _exit(parser.Save_XML_File(file) == 0 && parser.Get_ErrorText() == "File too large" ? 0 : 1);
    }
    int status = 1;
    waitpid(child, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(Content(file), "old");
    EXPECT_EQ(Entries(), 1);
    EXPECT_FALSE(parser.Save_XML_File(folder / "none" / "a.xml"));
    EXPECT_EQ(parser.Get_ErrorText(), "No such file or directory");
    EXPECT_FALSE(parser.Save_XML_Document(L"/dev/full"));
    EXPECT_TRUE(parser.Save_XML_File(file));
    EXPECT_EQ(parser.Get_ErrorText(), "");
}

TEST_F(XmlFiles, AnEmptyDocumentIsNotSaved)
{
    EXPECT_FALSE(parser.Save_XML_Document(Wide("a.xml").c_str()));
    EXPECT_EQ(Entries(), 0);
}
