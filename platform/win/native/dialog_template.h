// Dialog resources, read.
#pragma once

#include "platform/win/user.h"

#include <optional>
#include <vector>

namespace kv::win
{
struct DialogItem
{
    DWORD style;
    DWORD exStyle;
    CRect place; // dialog units
    int id;
    CString className;
    CString text;
};

struct DialogTemplate
{
    DWORD style;
    DWORD exStyle;
    CRect place; // dialog units
    CString title;
    CString face; // empty: none given
    int pointSize = 0;
    std::vector<DialogItem> items;
};

// Both forms of the resource; null for one that is cut off. At most 1000 items.
std::optional<DialogTemplate> ReadDialogTemplate(ResourceImage::Bytes data);

struct InitialData
{
    int id;
    UINT message;
    ResourceImage::Bytes data;
};
// What a dialog's controls start with.
std::vector<InitialData> ReadDialogInit(ResourceImage::Bytes data);
} // namespace kv::win
