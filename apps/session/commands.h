// The command table: which words of a session do what. Each area of commands adds its own in a file of its own.
#pragma once

#include "apps/session/arguments.h"

#include <functional>
#include <map>
#include <string>

namespace kv::session
{

class Player;

struct Command
{
    using Run = std::function<void(Player&, const Arguments&)>;

    size_t least = 0; // how many words follow the name
    size_t most = 0;
    Run run;
};

// Names are one word (`zoom`) or two (`print view`); the longer one is tried first.
class CommandTable
{
public:
    static constexpr size_t any = 1000;

    void Add(const std::string& name, size_t least, size_t most, Command::Run run);
    // Runs the command that the words name. Throws CommandError for an unknown one, or the wrong number of words.
    void Execute(Player& player, const std::vector<std::string>& words) const;
    // Of all commands, in alphabetical order.
    std::vector<std::string> Names() const;

private:
    std::string FullName(const std::vector<std::string>& words) const;

    std::map<std::string, Command> commands;
};

void AddImageCommands(CommandTable& table);
void AddViewCommands(CommandTable& table);
void AddInputCommands(CommandTable& table);
void AddMenuCommands(CommandTable& table);
void AddOutputCommands(CommandTable& table);
void AddEditorCommands(CommandTable& table);
void AddMaskCommands(CommandTable& table);
void AddAllCommands(CommandTable& table);

} // namespace kv::session
