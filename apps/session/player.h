// The player: reads a session line by line, acts, prints, and stops at the first command that can't be done.
#pragma once

#include "apps/session/commands.h"
#include "apps/session/images.h"
#include "apps/session/stage.h"

#include <any>
#include <filesystem>
#include <iosfwd>
#include <string>
#include <typeindex>
#include <vector>

class CException;

namespace kv::session
{

class Player
{
public:
    struct Options
    {
        std::filesystem::path out = "."; // where pictures and files go
        int slow = 0;                    // milliseconds between commands
    };

    Player(const CommandTable& commands, Options options, std::ostream& facts, std::ostream& errors);
    ~Player();

    // Plays the file. 0 if it ran to its end, 2 if it can't be read or a command can't be done.
    int Play(const std::string& file);

    // Prints one fact.
    void Print(const std::string& line);
    // Prints a failure and deletes it.
    void PrintException(CException* failure);

    // Where a file to read is: in the output folder, else (or if it is nowhere) beside the session.
    std::filesystem::path InputFile(const std::string& name) const;
    // Where a file to write goes; its folder is made.
    std::filesystem::path OutputFile(const std::string& name) const;

    // An area's own state, made at its first use.
    template <class State>
    State& Get()
    {
        std::any& slot = states[typeid(State)];
        if (!slot.has_value())
            slot.emplace<std::shared_ptr<State>>(std::make_shared<State>());
        return **std::any_cast<std::shared_ptr<State>>(&slot);
    }

    Images images;
    Stage stage;

private:
    bool Step();
    void Run(const std::string& line);
    void StepInModalLoop();

    const CommandTable& table;
    Options options;
    std::ostream& facts;
    std::ostream& errors;
    std::string name;
    std::filesystem::path folder;
    std::vector<std::string> lines;
    size_t next = 0;
    bool failed = false;
    std::map<std::type_index, std::any> states;
};

} // namespace kv::session
