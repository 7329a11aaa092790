// A line of a session: its words, and typed access to them.
#include "apps/session/arguments.h"

#include <charconv>
#include <cmath>

namespace kv::session
{

namespace
{
bool IsBlank(char c)
{
    return c == ' ' || c == '\t' || c == '\r';
}

[[noreturn]] void Refuse(const std::string& word, const std::string& wanted)
{
    throw CommandError("\"" + word + "\" is not " + wanted);
}

// The whole word as a number of that type.
template <class T, class... Format>
bool Parse(const std::string& word, T& value, Format... format)
{
    const char* end = word.data() + word.size();
    const auto result = std::from_chars(word.data(), end, value, format...);
    return result.ec == std::errc() && result.ptr == end;
}
} // namespace

std::vector<std::string> SplitWords(std::string_view line)
{
    std::vector<std::string> words;
    for (size_t i = 0; i < line.size();)
    {
        if (IsBlank(line[i]))
        {
            ++i;
            continue;
        }
        if (line[i] == '#')
            break;
        std::string word;
        while (i < line.size() && !IsBlank(line[i]) && line[i] != '#')
        {
            if (line[i] != '"')
            {
                word += line[i++];
                continue;
            }
            const size_t close = line.find('"', i + 1);
            if (close == std::string_view::npos)
                throw CommandError("a quote is not closed");
            word += line.substr(i + 1, close - i - 1);
            i = close + 1;
        }
        words.push_back(std::move(word));
    }
    return words;
}

const std::string& Arguments::Text(size_t i) const
{
    if (i >= words.size())
        throw CommandError("a value is missing");
    return words[i];
}

Arguments Arguments::Without(size_t i) const
{
    std::vector<std::string> rest = words;
    rest.erase(rest.begin() + static_cast<long>(i));
    return Arguments(std::move(rest));
}

long Arguments::Integer(size_t i, long least, long most) const
{
    long value = 0;
    if (!Parse(Text(i), value))
        Refuse(words[i], "a whole number");
    if (value < least || value > most)
        Refuse(words[i], "within " + std::to_string(least) + " to " + std::to_string(most));
    return value;
}

double Arguments::Number(size_t i) const
{
    double value = 0;
    if (!Parse(Text(i), value) || !std::isfinite(value))
        Refuse(words[i], "a number");
    return value;
}

bool Arguments::OnOff(size_t i) const
{
    const std::string& word = Text(i);
    if (word != "on" && word != "off")
        Refuse(word, "on or off");
    return word == "on";
}

bool Arguments::ZeroOne(size_t i) const
{
    return Integer(i, 0, 1) != 0;
}

COLORREF Arguments::Colour(size_t i) const
{
    const std::string& word = Text(i);
    unsigned value = 0;
    if (word.size() != 6 || !Parse(word, value, 16))
        Refuse(word, "a colour RRGGBB");
    return RGB(value >> 16 & 0xFF, value >> 8 & 0xFF, value & 0xFF);
}

std::pair<std::string, Arguments> Arguments::KeyValue(size_t i) const
{
    const std::string& word = Text(i);
    const size_t at = word.find('=');
    if (at == std::string::npos)
        Refuse(word, "of the form KEY=VALUE");
    return {word.substr(0, at), Arguments({word.substr(at + 1)})};
}

} // namespace kv::session
