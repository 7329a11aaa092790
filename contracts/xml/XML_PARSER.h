// XML_PARSER: an XML document and a cursor on one of its nodes.
#pragma once

#include "contracts/basics/KvString.h"
#include "platform/afx/variant.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <string>
#include <string_view>

namespace KvN
{

// Moves return non-zero when they moved and leave the cursor alone when they didn't. Adding a node moves the cursor
// onto the new node; an addition that would break the document (a second root, a name that is none) returns 0 and
// changes nothing. The cursor stands on elements and on the document itself; comments are kept and never visited.
//
// Names and texts come in two forms: as KvString, and as UTF-8 for callers that handle many nodes. Both mean the same.
// An object belongs to one thread. What is returned by reference or as a view holds until the next call.
class XML_PARSER
{
public:
    // A document nested deeper is refused: nothing real needs it, and walking or saving it would take forever.
    static constexpr int deepest = 1024;

    XML_PARSER();
    ~XML_PARSER();
    XML_PARSER(const XML_PARSER&) = delete;
    XML_PARSER& operator=(const XML_PARSER&) = delete;

    // An empty document with the cursor at its top.
    void Reset_XML_Document();

    // Reading: non-zero on success, with the cursor at the top of the document. Whatever fails (no file, no XML, a
    // second root, text beside the root, nesting beyond `deepest`) leaves an empty document and an error. Any encoding
    // that can be told from the first bytes or the declaration is read; entities of a document's own are not expanded.
    int Load_XML_Document(const wchar_t* path);
    int Load_XML_File(const std::filesystem::path& path);
    int Load_XML_Buffer(const void* bytes, std::size_t size);

    // Writing: UTF-8 with declaration, two blanks of indent, LF. Non-zero on success; otherwise an older file of that
    // name is untouched, nothing new is left behind, and there is an error. A document without a root isn't written.
    int Save_XML_Document(const wchar_t* path);
    int Save_XML_File(const std::filesystem::path& path);
    std::string Save_XML_Text() const;

    // What went wrong with the last reading or writing, in English; empty if nothing did.
    const std::string& Get_ErrorText() const;
    // Where in the source it went wrong, for XML_LINES; -1 if the failure has no place.
    std::ptrdiff_t Get_ErrorOffset() const;
    // Where in the source the current element's name stands; -1 for nodes that were not read.
    std::ptrdiff_t Get_Offset() const;

    // Non-zero on the document itself and on its root element.
    int Is_Root() const;
    // Non-zero if there is an element below the current node.
    int HasChildren() const;
    // Empty on the document itself.
    KvString& Get_CurrentName();
    int Is_CurrentName(const char* utf8) const;

    int Add_FirstChildNode(const char* utf8);
    int Add_LastChildNode(const char* utf8);
    int Add_NodeBefore(const char* utf8);
    int Add_NodeAfter(const char* utf8);
    int Add_FirstChildNode(const KvString& name) { return Add_FirstChildNode(name.Utf8().c_str()); }
    int Add_LastChildNode(const KvString& name) { return Add_LastChildNode(name.Utf8().c_str()); }
    int Add_NodeBefore(const KvString& name) { return Add_NodeBefore(name.Utf8().c_str()); }
    int Add_NodeAfter(const KvString& name) { return Add_NodeAfter(name.Utf8().c_str()); }

    // The text directly below the node, without that of its children. Everything survives saving and loading: blanks
    // at its ends, nothing but blanks, line feeds and carriage returns. U+0000 ends a text.
    int Set_TextValue(const char* utf8);
    int Set_TextValue(const KvString& text) { return Set_TextValue(text.Utf8().c_str()); }
    KvString Get_TextValue() const;
    std::string_view Get_Utf8Text() const;

    // Sets an attribute of the current node, or changes it. An index out of range gives empty names and values.
    int Set_Attribute(const char* utf8Name, const char* utf8Value);
    int Set_Attribute(const KvString& name, const KvString& value)
    {
        return Set_Attribute(name.Utf8().c_str(), value.Utf8().c_str());
    }
    int Get_Attribute_Count() const;
    KvString& Get_Attribute_Name(int index);
    CComVariant Get_Attribute_Value(int index) const;
    int Has_Attribute(const char* utf8Name) const;

    // To the root element, up one level (from the root element to the document), to the first child of a name.
    int Go_to_Root();
    int Go_to_Parent();
    int Go_to_Child(const char* utf8);
    int Go_to_Child(const KvString& name) { return Go_to_Child(name.Utf8().c_str()); }
    // To the first of all siblings that has the name; the current node is one of them.
    int Go_to_FirstSibling(const char* utf8);
    int Go_to_FirstSibling(const KvString& name) { return Go_to_FirstSibling(name.Utf8().c_str()); }
    // To the next or previous sibling: of any name, or the nearest one of the name.
    int Go_Forward();
    int Go_Backward();
    int Go_Forward(const char* utf8);
    int Go_Backward(const char* utf8);
    int Go_Forward(const KvString& name) { return Go_Forward(name.Utf8().c_str()); }
    int Go_Backward(const KvString& name) { return Go_Backward(name.Utf8().c_str()); }

private:
    friend class XML_LINES;
    struct Document;
    std::unique_ptr<Document> document;
};

} // namespace KvN
