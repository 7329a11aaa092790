// Reading and writing XML documents: what is refused, how text is kept whole, how errors are told.
#include "contracts/xml/XML_PARSER_p.h"

#include "contracts/basics/KvAtomicFile.h"

#include <cerrno>
#include <cstdio>
#include <cstring>
#include <utility>

namespace KvN
{
namespace
{
// Text that consists of blanks is kept where it is all there is below an element: between elements it only indents.
// The first text of an element is held in the element itself, which halves the number of nodes. Text beside the root is
// read as if the document were a fragment, since the library would pass over it otherwise.
constexpr unsigned reading = pugi::parse_default | pugi::parse_comments | pugi::parse_ws_pcdata_single |
                             pugi::parse_embed_pcdata | pugi::parse_fragment;
constexpr unsigned writing = pugi::format_indent | pugi::format_no_declaration;
constexpr const char* indent = "  ";
constexpr std::string_view declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n";

struct CloseFile
{
    void operator()(std::FILE* file) const { std::fclose(file); }
};

// Memory that the XML library takes over and frees.
struct LibraryMemory
{
    char* data = nullptr;
    std::size_t size = 0;
    std::size_t capacity = 0;

    LibraryMemory() = default;
    LibraryMemory(const LibraryMemory&) = delete;
    LibraryMemory& operator=(const LibraryMemory&) = delete;
    ~LibraryMemory()
    {
        if (data)
            pugi::get_memory_deallocation_function()(data);
    }

    bool Grow(std::size_t wanted)
    {
        auto* fresh = static_cast<char*>(pugi::get_memory_allocation_function()(wanted));
        if (!fresh)
            return false;
        if (data)
        {
            std::memcpy(fresh, data, size);
            pugi::get_memory_deallocation_function()(data);
        }
        data = fresh;
        capacity = wanted;
        return true;
    }
};

// The whole content; works for pipes too, whose size nobody knows. An errno value, 0 for success.
int ReadAll(std::FILE* file, const std::filesystem::path& path, LibraryMemory& content)
{
    std::error_code unknown;
    const auto expected = std::filesystem::file_size(path, unknown);
    if (!content.Grow(unknown ? 1 << 16 : static_cast<std::size_t>(expected) + 1))
        return ENOMEM;
    for (;;)
    {
        if (content.size == content.capacity && !content.Grow(content.capacity * 2))
            return ENOMEM;
        errno = 0;
        const std::size_t wanted = content.capacity - content.size;
        const std::size_t done = std::fread(content.data + content.size, 1, wanted, file);
        content.size += done;
        if (done < wanted)
            return std::ferror(file) ? errno : 0;
    }
}

bool TooDeep(pugi::xml_node top, pugi::xml_node& where)
{
    int depth = 0;
    for (pugi::xml_node node = top;;)
    {
        if (const pugi::xml_node child = node.first_child())
        {
            node = child;
            if (++depth > XML_PARSER::deepest)
            {
                where = node;
                return true;
            }
            continue;
        }
        while (node != top && !node.next_sibling())
        {
            node = node.parent();
            --depth;
        }
        if (node == top)
            return false;
        node = node.next_sibling();
    }
}

// Hands text out with carriage returns as character references: a reader takes a plain one for a line feed. None comes
// from the formatting itself, and within attributes the library has replaced them already.
template <class Sink>
class TextWriter : public pugi::xml_writer
{
public:
    explicit TextWriter(Sink sink_) : sink(sink_) {}

    void write(const void* data, std::size_t size) override
    {
        std::string_view rest(static_cast<const char*>(data), size);
        for (std::size_t at; (at = rest.find('\r')) != std::string_view::npos; rest.remove_prefix(at + 1))
        {
            sink(rest.substr(0, at));
            sink("&#13;");
        }
        sink(rest);
    }

private:
    Sink sink;
};

template <class Sink>
void WriteTree(const pugi::xml_document& tree, Sink sink)
{
    TextWriter<Sink> writer(sink);
    sink(declaration);
    tree.save(writer, indent, writing, pugi::encoding_utf8);
}
} // namespace

void XML_PARSER::Document::Reset()
{
    tree.reset();
    cursor = tree;
    errorText.clear();
    errorOffset = -1;
}

int XML_PARSER::Document::Fail(std::string text_, std::ptrdiff_t offset)
{
    Reset();
    errorText = std::move(text_);
    errorOffset = offset;
    return 0;
}

int XML_PARSER::Document::Accept(const pugi::xml_parse_result& result)
{
    encoding = result.encoding;
    if (!result)
        return Fail(std::string("not XML: ") + result.description(), result.offset);
    const pugi::xml_node root = tree.document_element();
    if (!root)
        return Fail("not XML: no root element", 0);
    for (const pugi::xml_node node : tree.children())
    {
        if (node.type() == pugi::node_element && node != root)
            return Fail("not XML: a second root element", node.offset_debug());
        if (node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata)
            return Fail("not XML: text outside of the root element", node.offset_debug());
    }
    pugi::xml_node where;
    if (TooDeep(tree, where))
        return Fail("elements are nested more than " + std::to_string(deepest) + " levels deep", where.offset_debug());
    cursor = tree;
    return 1;
}

int XML_PARSER::Load_XML_Document(const wchar_t* path)
{
    return Load_XML_File(CStringT(path).Utf8());
}

int XML_PARSER::Load_XML_File(const std::filesystem::path& path)
{
    document->Reset();
    const std::unique_ptr<std::FILE, CloseFile> file(std::fopen(path.c_str(), "rb"));
    if (!file)
        return document->Fail(std::strerror(errno));
    LibraryMemory content;
    if (const int failure = ReadAll(file.get(), path, content))
        return document->Fail(std::strerror(failure));
    char* const data = std::exchange(content.data, nullptr);
    return document->Accept(document->tree.load_buffer_inplace_own(data, content.size, reading));
}

int XML_PARSER::Load_XML_Buffer(const void* bytes, std::size_t size)
{
    document->Reset();
    return document->Accept(document->tree.load_buffer(bytes, size, reading));
}

int XML_PARSER::Save_XML_Document(const wchar_t* path)
{
    return Save_XML_File(CStringT(path).Utf8());
}

int XML_PARSER::Save_XML_File(const std::filesystem::path& path)
{
    document->errorText.clear();
    document->errorOffset = -1;
    if (!document->tree.document_element())
    {
        document->errorText = "an empty document can't be saved";
        return 0;
    }
    KvAtomicFile file(path);
    WriteTree(document->tree, [&file](std::string_view bytes) { file.Write(bytes); });
    if (file.Commit())
        return 1;
    document->errorText = file.Error().message();
    return 0;
}

std::string XML_PARSER::Save_XML_Text() const
{
    std::string text;
    if (document->tree.document_element())
        WriteTree(document->tree, [&text](std::string_view bytes) { text += bytes; });
    return text;
}

const std::string& XML_PARSER::Get_ErrorText() const
{
    return document->errorText;
}

std::ptrdiff_t XML_PARSER::Get_ErrorOffset() const
{
    return document->errorOffset;
}

} // namespace KvN
