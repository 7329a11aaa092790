// A process locale that writes numbers with a comma, made on the spot: a machine need not have one installed.
#pragma once

#include <clocale>
#include <cstdlib>
#include <filesystem>
#include <string>

namespace kv::testing
{

class CommaLocale
{
public:
    CommaLocale()
    {
        std::string pattern = (std::filesystem::temp_directory_path() / "kv-locale-XXXXXX").string();
        folder = mkdtemp(pattern.data());
        const std::string make =
            "localedef -i de_DE -f UTF-8 '" + (folder / "de_DE.UTF-8").string() + "' >/dev/null 2>&1";
        made = std::system(make.c_str()) != -1;
        setenv("LOCPATH", folder.c_str(), 1);
        made = made && std::setlocale(LC_ALL, "de_DE.UTF-8") && *std::localeconv()->decimal_point == ',';
    }
    ~CommaLocale()
    {
        std::setlocale(LC_ALL, "C");
        unsetenv("LOCPATH");
        std::filesystem::remove_all(folder);
    }
    CommaLocale(const CommaLocale&) = delete;
    CommaLocale& operator=(const CommaLocale&) = delete;

    // False if the machine lacks localedef or its sources (package `locales`).
    bool InForce() const { return made; }

private:
    std::filesystem::path folder;
    bool made = false;
};

} // namespace kv::testing
