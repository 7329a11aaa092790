// kvsession: plays an operator's session from a text file at the real windows, with or without a display.
#include "apps/session/player.h"
#include "contracts/apptools.h"

#include <CLI/CLI.hpp>
#include <QApplication>

#include <iostream>

namespace
{
// What a session says on stderr is its own; Qt's remarks on the desktop are left out.
void PassFailuresOnly(QtMsgType type, const QMessageLogContext&, const QString& text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        std::cerr << text.toStdString() << std::endl;
}
} // namespace

int main(int argc, char** argv)
{
    CLI::App cli("Plays an operator's session at the real windows.", "kvsession");
    std::string file;
    bool show = false;
    kv::session::Player::Options options;
    cli.add_option("FILE", file, "The session to play")->required();
    cli.add_flag("--show", show, "Show the windows; otherwise no display is needed");
    cli.add_option("--out", options.out, "Where pictures and files that the session writes go")->type_name("DIR");
    cli.add_option("--slow", options.slow, "Milliseconds to wait after each command")
        ->type_name("MS")
        ->check(CLI::NonNegativeNumber);
    try
    {
        cli.parse(argc, argv);
    }
    catch (const CLI::ParseError& error)
    {
        return cli.exit(error) == 0 ? 0 : 2;
    }

    qInstallMessageHandler(PassFailuresOnly);
    if (!show)
        qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication qt(argc, argv);
    kv::session::CommandTable commands;
    kv::session::AddAllCommands(commands);
    return kv::session::Player(commands, options, std::cout, std::cerr).Play(file);
}
