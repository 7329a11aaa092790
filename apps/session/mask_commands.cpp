// Commands of the mask windows and dialogs.
#include "apps/session/commands.h"
#include "apps/session/player.h"

namespace kv::session
{

void AddMaskCommands(CommandTable&) {}

} // namespace kv::session
