// Reads the include lines of every source and holds them against the picture of the house in docs/architecture.md.
#include "tests/house/source_tree.h"

#include <gtest/gtest.h>

#include <cctype>
#include <map>
#include <set>

namespace
{
using kv::house::SourceFile;

// Which rooms the files of a room may include, its own included. Arrows reach through: who may include a room may
// include what that room stands on.
const std::map<std::string, std::set<std::string>>& Arrows()
{
    static const std::set<std::string> core = {"platform/gdi",    "platform/afx",  "contracts/basics",
                                               "contracts/image", "contracts/xml", "contracts/undo"};
    static const auto with = [](std::set<std::string> rooms, const std::set<std::string>& more)
    {
        rooms.insert(more.begin(), more.end());
        return rooms;
    };
    static const std::set<std::string> sy = with(core, {"C/sy"});
    static const std::set<std::string> ui =
        with(sy, {"platform/win", "contracts/apptools", "contracts/config", "C/ui"});
    static const std::map<std::string, std::set<std::string>> arrows = {
        {"platform/gdi", {"platform/gdi"}},
        {"platform/afx", {"platform/gdi", "platform/afx"}},
        {"platform/win", {"platform/gdi", "platform/afx", "platform/win"}},
        {"contracts/basics", {"platform/gdi", "platform/afx", "contracts/basics"}},
        {"contracts/image", {"platform/gdi", "platform/afx", "contracts/basics", "contracts/image"}},
        {"contracts/xml", {"platform/gdi", "platform/afx", "contracts/basics", "contracts/xml"}},
        {"contracts/undo", {"platform/gdi", "platform/afx", "contracts/basics", "contracts/undo"}},
        {"contracts/apptools", with(core, {"platform/win", "contracts/apptools"})},
        {"contracts/config", with(core, {"platform/win", "contracts/config"})},
        {"C/sy", sy},
        {"C/ui", ui},
        {"apps/contour", with(sy, {"apps/contour"})},
        {"apps/session", with(ui, {"apps/session"})},
        {"apps/workbench", with(ui, {"apps/workbench"})},
    };
    return arrows;
}

// The room that a path lies in; an umbrella header such as contracts/xml.h belongs to its room.
std::string RoomOf(const std::string& path)
{
    const size_t folder = path.find('/');
    if (folder == std::string::npos)
        return {};
    if (path.starts_with("C/"))
        return path.substr(0, 4); // the files there are told apart by their first two letters
    return path.substr(0, path.find_first_of("/.", folder + 1));
}

bool IsResourceIds(const std::string& path)
{
    return path.rfind("resources/", 0) == 0;
}

// A Qt header's name, such as <QWidget>, <QtGui/QImage> or <private/qapplication_p.h>.
bool IsQt(const std::string& header)
{
    const bool classHeader = header.size() > 1 && header[0] == 'Q' && (header[1] == 't' || std::isupper(header[1]));
    return classHeader || header.starts_with("private/q") || header.starts_with("qpa/");
}

bool MayNameQt(const std::string& path)
{
    const std::string room = RoomOf(path);
    const bool source = path.ends_with(".cpp");
    return room == "platform/win" || (room.rfind("apps/", 0) == 0 && room != "apps/contour") ||
           (source && (room == "contracts/apptools" || room == "contracts/config"));
}
} // namespace

TEST(IncludeArrows, EverySourceFileLiesInARoomOfTheHouse)
{
    for (const SourceFile& file : kv::house::Sources({"platform", "contracts", "C", "apps"}))
        EXPECT_TRUE(Arrows().contains(RoomOf(file.path))) << file.path;
}

TEST(IncludeArrows, NoFileIncludesARoomThatNoArrowLeadsTo)
{
    for (const SourceFile& file : kv::house::Sources({"platform", "contracts", "C", "apps"}))
    {
        const auto allowed = Arrows().find(RoomOf(file.path));
        if (allowed == Arrows().end())
            continue;
        for (const auto& include : file.quotedIncludes)
        {
            EXPECT_TRUE(IsResourceIds(include.header) || allowed->second.contains(RoomOf(include.header)))
                << file.path << ':' << include.line << " includes " << include.header;
        }
    }
}

TEST(IncludeArrows, QtIsNamedOnlyInTheWindowRooms)
{
    for (const SourceFile& file : kv::house::Sources({"platform", "contracts", "C", "apps"}))
    {
        for (const auto& include : file.angledIncludes)
            EXPECT_TRUE(!IsQt(include.header) || MayNameQt(file.path))
                << file.path << ':' << include.line << " includes <" << include.header << '>';
    }
}

TEST(IncludeArrows, EveryFileOpensWithAWordOnWhatItIsFor)
{
    for (const SourceFile& file : kv::house::Sources({"platform", "contracts", "C", "apps", "tests", "bench", "fuzz"}))
        EXPECT_TRUE(file.firstLine.starts_with("// ")) << file.path;
}
