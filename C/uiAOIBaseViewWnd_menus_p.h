// A part of the view's context menus that does without a view. Private to the view and its tests.
#pragma once

#include "contracts/basics.h"
#include "platform/win/menu.h"

namespace KvN
{

// An item for each table, the one named `current` checked. Tables for which there is no command id are left out.
void AppendLuts(CMenu& popup, const KvTMem<KvString>& names, const KvString& current);

} // namespace KvN
