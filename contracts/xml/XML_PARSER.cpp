// The cursor of an XML document: moves, additions, texts and attributes.
#include "contracts/xml/XML_PARSER_p.h"

#include <algorithm>

namespace KvN
{
namespace
{
bool IsLetter(char c)
{
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' || c == ':' ||
           static_cast<unsigned char>(c) >= 0x80;
}

// Names are written as they stand, so a wrong one would break the file. Characters beyond ASCII all count as letters.
bool IsName(const char* utf8)
{
    if (!IsLetter(*utf8))
        return false;
    while (*++utf8)
    {
        if (!IsLetter(*utf8) && (*utf8 < '0' || *utf8 > '9') && *utf8 != '-' && *utf8 != '.')
            return false;
    }
    return true;
}

bool IsText(pugi::xml_node node)
{
    return node.type() == pugi::node_pcdata || node.type() == pugi::node_cdata;
}

void RemoveText(pugi::xml_node node)
{
    for (pugi::xml_node child = node.first_child(); child;)
    {
        const pugi::xml_node next = child.next_sibling();
        if (IsText(child))
            node.remove_child(child);
        child = next;
    }
    if (*node.value()) // text that was read stands in the element itself
        node.text().set("");
}

// Blanks between elements carry no meaning, but would keep the library from indenting.
void RemoveBlankText(pugi::xml_node node)
{
    const pugi::xml_node first = node.first_child();
    const std::string_view text = IsText(first) ? first.value() : node.value();
    if (!text.empty() && text.find_first_not_of(" \t\r\n") == std::string_view::npos)
        RemoveText(node);
}
} // namespace

XML_PARSER::XML_PARSER() : document(std::make_unique<Document>()) {}
XML_PARSER::~XML_PARSER() = default;

void XML_PARSER::Reset_XML_Document()
{
    document->Reset();
}

std::ptrdiff_t XML_PARSER::Get_Offset() const
{
    return document->cursor.offset_debug();
}

int XML_PARSER::Is_Root() const
{
    const pugi::xml_node cursor = document->cursor;
    return cursor == document->tree || cursor.parent() == document->tree;
}

int XML_PARSER::HasChildren() const
{
    const auto children = document->cursor.children();
    return std::any_of(children.begin(), children.end(),
                       [](pugi::xml_node node) { return node.type() == pugi::node_element; });
}

KvString& XML_PARSER::Get_CurrentName()
{
    return document->name = KvString(document->cursor.name());
}

int XML_PARSER::Is_CurrentName(const char* utf8) const
{
    return std::string_view(document->cursor.name()) == utf8;
}

int XML_PARSER::Add_FirstChildNode(const char* utf8)
{
    pugi::xml_node& cursor = document->cursor;
    if (!IsName(utf8) || (cursor == document->tree && HasChildren()))
        return 0;
    RemoveBlankText(cursor);
    return document->Go(cursor.prepend_child(utf8));
}

int XML_PARSER::Add_LastChildNode(const char* utf8)
{
    pugi::xml_node& cursor = document->cursor;
    if (!IsName(utf8) || (cursor == document->tree && HasChildren()))
        return 0;
    RemoveBlankText(cursor);
    return document->Go(cursor.append_child(utf8));
}

int XML_PARSER::Add_NodeBefore(const char* utf8)
{
    if (!IsName(utf8) || Is_Root())
        return 0;
    return document->Go(document->cursor.parent().insert_child_before(utf8, document->cursor));
}

int XML_PARSER::Add_NodeAfter(const char* utf8)
{
    if (!IsName(utf8) || Is_Root())
        return 0;
    return document->Go(document->cursor.parent().insert_child_after(utf8, document->cursor));
}

int XML_PARSER::Set_TextValue(const char* utf8)
{
    pugi::xml_node cursor = document->cursor;
    if (cursor == document->tree)
        return 0;
    RemoveText(cursor);
    return *utf8 == 0 || cursor.text().set(utf8);
}

KvString XML_PARSER::Get_TextValue() const
{
    return KvString(CStringT(Get_Utf8Text()));
}

std::string_view XML_PARSER::Get_Utf8Text() const
{
    const pugi::xml_node cursor = document->cursor;
    if (cursor == document->tree)
        return {};
    const pugi::xml_node first = cursor.first_child();
    if (!first)
        return cursor.value();
    if (!*cursor.value() && IsText(first) && !first.next_sibling())
        return first.value();
    document->text = cursor.value();
    for (const pugi::xml_node child : cursor.children())
    {
        if (IsText(child))
            document->text += child.value();
    }
    return document->text;
}

int XML_PARSER::Set_Attribute(const char* utf8Name, const char* utf8Value)
{
    pugi::xml_node cursor = document->cursor;
    if (cursor == document->tree || !IsName(utf8Name))
        return 0;
    pugi::xml_attribute attribute = cursor.attribute(utf8Name);
    if (!attribute)
        attribute = cursor.append_attribute(utf8Name);
    return attribute.set_value(utf8Value);
}

namespace
{
pugi::xml_attribute AttributeAt(pugi::xml_node node, int index)
{
    pugi::xml_attribute attribute = index < 0 ? pugi::xml_attribute() : node.first_attribute();
    for (; index > 0 && attribute; --index)
        attribute = attribute.next_attribute();
    return attribute;
}
} // namespace

int XML_PARSER::Get_Attribute_Count() const
{
    const auto attributes = document->cursor.attributes();
    return static_cast<int>(std::distance(attributes.begin(), attributes.end()));
}

KvString& XML_PARSER::Get_Attribute_Name(int index)
{
    return document->name = KvString(AttributeAt(document->cursor, index).name());
}

CComVariant XML_PARSER::Get_Attribute_Value(int index) const
{
    return CComVariant(CStringT(AttributeAt(document->cursor, index).value()));
}

int XML_PARSER::Has_Attribute(const char* utf8Name) const
{
    return !document->cursor.attribute(utf8Name).empty();
}

int XML_PARSER::Go_to_Root()
{
    return document->Go(document->tree.document_element());
}

int XML_PARSER::Go_to_Parent()
{
    return document->Go(document->cursor.parent());
}

int XML_PARSER::Go_to_Child(const char* utf8)
{
    return document->Go(document->cursor.child(utf8));
}

int XML_PARSER::Go_to_FirstSibling(const char* utf8)
{
    return document->Go(document->cursor.parent().child(utf8));
}

int XML_PARSER::Go_Forward()
{
    pugi::xml_node node = document->cursor.next_sibling();
    while (node && node.type() != pugi::node_element)
        node = node.next_sibling();
    return document->Go(node);
}

int XML_PARSER::Go_Backward()
{
    pugi::xml_node node = document->cursor.previous_sibling();
    while (node && node.type() != pugi::node_element)
        node = node.previous_sibling();
    return document->Go(node);
}

int XML_PARSER::Go_Forward(const char* utf8)
{
    return document->Go(document->cursor.next_sibling(utf8));
}

int XML_PARSER::Go_Backward(const char* utf8)
{
    return document->Go(document->cursor.previous_sibling(utf8));
}

} // namespace KvN
