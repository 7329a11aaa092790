// The two binary forms of dialog resources, and the initial data of their controls.
#include "platform/win/native/dialog_template.h"

#include "platform/win/native/bytes.h"

namespace kv::win
{
namespace
{
CRect NextPlace(Reader& reader)
{
    const int x = reader.Next<SHORT>();
    const int y = reader.Next<SHORT>();
    const int cx = reader.Next<SHORT>();
    const int cy = reader.Next<SHORT>();
    return CRect(x, y, x + cx, y + cy);
}

constexpr WORD isNumber = 0xFFFF;

// A name, or 0xFFFF and a number.
CString NextName(Reader& reader, WORD& number)
{
    Reader ahead = reader;
    number = 0;
    if (ahead.Next<WORD>() != isNumber)
        return reader.Text();
    reader.Skip(2);
    number = reader.Next<WORD>();
    return CString();
}

CString ClassOf(Reader& reader)
{
    WORD atom = 0;
    const CString name = NextName(reader, atom);
    switch (atom)
    {
    case 0x80:
        return CString("Button");
    case 0x81:
        return CString("Edit");
    case 0x82:
        return CString("Static");
    case 0x84:
        return CString("ScrollBar");
    default:
        return name;
    }
}

DialogItem NextItem(Reader& reader, bool extended)
{
    reader.Align4();
    DialogItem item{};
    if (extended)
    {
        reader.Skip(4); // help id
        item.exStyle = reader.Next<DWORD>();
        item.style = reader.Next<DWORD>();
    }
    else
    {
        item.style = reader.Next<DWORD>();
        item.exStyle = reader.Next<DWORD>();
    }
    item.place = NextPlace(reader);
    item.id = extended ? static_cast<int>(reader.Next<DWORD>()) : reader.Next<WORD>();
    if (item.id == 0xFFFF)
        item.id = -1;
    item.className = ClassOf(reader);
    WORD number = 0;
    item.text = NextName(reader, number);
    reader.Skip(reader.Next<WORD>());
    return item;
}
} // namespace

std::optional<DialogTemplate> ReadDialogTemplate(ResourceImage::Bytes data)
{
    Reader reader(data);
    Reader ahead = reader;
    const bool extended = ahead.Next<WORD>() == 1 && ahead.Next<WORD>() == 0xFFFF;
    DialogTemplate result{};
    if (extended)
    {
        reader.Skip(8); // version, signature, help id
        result.exStyle = reader.Next<DWORD>();
        result.style = reader.Next<DWORD>();
    }
    else
    {
        result.style = reader.Next<DWORD>();
        result.exStyle = reader.Next<DWORD>();
    }
    const int count = reader.Next<WORD>();
    result.place = NextPlace(reader);
    WORD number = 0;
    NextName(reader, number); // menu
    NextName(reader, number); // class
    result.title = NextName(reader, number);
    if (result.style & DS_SETFONT)
    {
        result.pointSize = reader.Next<WORD>();
        if (extended)
            reader.Skip(4); // weight, italic, character set
        result.face = reader.Text();
    }
    if (reader.AtEnd() && count > 0)
        return std::nullopt;
    for (int i = 0; i < count && i < 1000; ++i)
    {
        if (reader.AtEnd())
            return std::nullopt;
        result.items.push_back(NextItem(reader, extended));
    }
    return result;
}

std::vector<InitialData> ReadDialogInit(ResourceImage::Bytes data)
{
    std::vector<InitialData> entries;
    Reader reader(data);
    while (!reader.AtEnd())
    {
        const int id = reader.Next<WORD>();
        if (id == 0)
            break;
        const UINT message = reader.Next<WORD>();
        const auto length = reader.Next<DWORD>();
        entries.push_back({id, message, reader.Block(length)});
    }
    return entries;
}
} // namespace kv::win
