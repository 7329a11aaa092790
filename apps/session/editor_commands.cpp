// Commands of the contour editor.
#include "apps/session/commands.h"
#include "apps/session/player.h"

namespace kv::session
{

void AddEditorCommands(CommandTable&) {}

} // namespace kv::session
