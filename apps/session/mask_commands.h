// The parts of the mask commands.
#pragma once

namespace kv::session
{

class CommandTable;

void AddMaskWindowCommands(CommandTable& table);
void AddMaskDialogCommands(CommandTable& table);
void AddDialogControlCommands(CommandTable& table);

} // namespace kv::session
