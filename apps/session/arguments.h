// A line of a session: its words, and typed access to them.
#pragma once

#include "platform/gdi/gdi.h"

#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace kv::session
{

// What is wrong with a command; the player adds file and line.
class CommandError : public std::runtime_error
{
public:
    using std::runtime_error::runtime_error;
};

// Words are separated by blanks; one with blanks stands in double quotes. `#` outside quotes begins a comment. Throws
// CommandError for a quote that isn't closed.
std::vector<std::string> SplitWords(std::string_view line);

// The words behind a command's name. Each access throws CommandError for a word that is missing or of another form.
class Arguments
{
public:
    explicit Arguments(std::vector<std::string> words_) : words(std::move(words_)) {}

    size_t Count() const { return words.size(); }
    const std::string& Text(size_t i) const;
    bool Is(size_t i, std::string_view text) const { return i < words.size() && words[i] == text; }
    // The same words without the one at `i`.
    Arguments Without(size_t i) const;
    long Integer(size_t i, long least = -2147483647L, long most = 2147483647L) const;
    double Number(size_t i) const;
    bool OnOff(size_t i) const;      // `on` or `off`
    bool ZeroOne(size_t i) const;    // `0` or `1`
    COLORREF Colour(size_t i) const; // RRGGBB

    // KEY=VALUE words: the key, and the value as the one word of further arguments.
    std::pair<std::string, Arguments> KeyValue(size_t i) const;

private:
    std::vector<std::string> words;
};

} // namespace kv::session
