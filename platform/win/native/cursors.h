// Cursors as Qt knows them.
#pragma once

#include "platform/win/user.h"

#include <QCursor>

namespace kv::win
{
QCursor ToQt(HCURSOR cursor); // null: the blank one
} // namespace kv::win
