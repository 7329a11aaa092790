// The command table: which words of a session do what.
#include "apps/session/commands.h"

namespace kv::session
{

namespace
{
std::string Needs(const std::string& name, const Command& command)
{
    std::string text = "\"" + name + "\" takes " + std::to_string(command.least);
    if (command.most >= CommandTable::any)
        text += " or more";
    else if (command.most != command.least)
        text += " to " + std::to_string(command.most);
    return text + (command.least == 1 && command.most == 1 ? " value" : " values");
}
} // namespace

// With its second word where other commands begin with the same word, as in `print`.
std::string CommandTable::FullName(const std::vector<std::string>& words) const
{
    const auto next = commands.lower_bound(words[0] + " ");
    const bool family = next != commands.end() && next->first.rfind(words[0] + " ", 0) == 0;
    return family && words.size() >= 2 ? words[0] + " " + words[1] : words[0];
}

void CommandTable::Add(const std::string& name, size_t least, size_t most, Command::Run run)
{
    commands[name] = {least, most, std::move(run)};
}

void CommandTable::Execute(Player& player, const std::vector<std::string>& words) const
{
    size_t used = 2;
    auto found = words.size() >= 2 ? commands.find(words[0] + " " + words[1]) : commands.end();
    if (found == commands.end())
    {
        used = 1;
        found = commands.find(words[0]);
    }
    if (found == commands.end())
        throw CommandError("unknown command \"" + FullName(words) + "\"");
    const auto& [name, command] = *found;
    const size_t count = words.size() - used;
    if (count < command.least || count > command.most)
        throw CommandError(Needs(name, command));
    command.run(player, Arguments({words.begin() + static_cast<long>(used), words.end()}));
}

std::vector<std::string> CommandTable::Names() const
{
    std::vector<std::string> names;
    for (const auto& [name, command] : commands)
        names.push_back(name);
    return names;
}

void AddAllCommands(CommandTable& table)
{
    AddImageCommands(table);
    AddViewCommands(table);
    AddInputCommands(table);
    AddMenuCommands(table);
    AddOutputCommands(table);
    AddEditorCommands(table);
    AddMaskCommands(table);
}

} // namespace kv::session
