// Runs kvcontour in a folder of its own and hands back what it said and left.
#pragma once

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iterator>
#include <string>
#include <sys/wait.h>
#include <utility>
#include <vector>

namespace kv::testing
{

struct Outcome
{
    int exitCode = -1;
    std::string out;
    std::string error;
};

class Program : public ::testing::Test
{
protected:
    std::filesystem::path folder;

    void SetUp() override
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "kvcontour-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        std::filesystem::create_directory(Logs());
    }
    void TearDown() override
    {
        std::filesystem::remove_all(folder);
        std::filesystem::remove_all(Logs());
    }

    // Runs with the folder as the current one. `before` are shell commands of the same process, such as a limit.
    Outcome Run(const std::string& arguments, const std::string& before = "") const
    {
        const std::string command = "cd '" + folder.string() + "' && " + before + " '" KVCONTOUR "' " + arguments +
                                    " >'" + (Logs() / "out").string() + "' 2>'" + (Logs() / "error").string() + "'";
        const int status = std::system(command.c_str());
        return {WIFEXITED(status) ? WEXITSTATUS(status) : -1, Content(Logs() / "out"), Content(Logs() / "error")};
    }
    void Put(const std::string& name, const std::string& content) const
    {
        std::ofstream(folder / name, std::ios::binary) << content;
    }
    std::string Get(const std::string& name) const { return Content(folder / name); }
    std::ptrdiff_t Files() const
    {
        return std::distance(std::filesystem::directory_iterator(folder), std::filesystem::directory_iterator());
    }

private:
    std::filesystem::path Logs() const { return folder.string() + "-logs"; }
    static std::string Content(const std::filesystem::path& file)
    {
        std::ifstream in(file, std::ios::binary);
        return {std::istreambuf_iterator<char>(in), {}};
    }
};

// A contour as lines of a file: the attributes with a blank in front, the type, then "x,y" pairs.
inline std::string ContourXml(const std::string& attributes, const std::string& type,
                              const std::vector<std::pair<std::string, std::string>>& points,
                              const std::string& fields = "")
{
    std::string xml = "<Contour" + attributes + ">\n<ContourType>" + type + "</ContourType>\n" + fields;
    for (const auto& [x, y] : points)
        xml += "<Point>\n<PositionX>" + x + "</PositionX>\n<PositionY>" + y + "</PositionY>\n</Point>\n";
    return xml + "</Contour>\n";
}

inline std::string File(const std::string& contours)
{
    return "<Contours>\n" + contours + "</Contours>\n";
}

} // namespace kv::testing
