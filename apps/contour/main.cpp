// kvcontour: the frame around the subcommands. Exit 0 done, 1 the input is at fault, 2 the command line is.
#include "apps/contour/commands.h"
#include "apps/contour/failure.h"
#include "contracts/basics/KvException.h"

#include <csignal>
#include <iostream>
#include <memory>
#include <new>

namespace
{
enum ExitCode
{
    Done = 0,
    BadInput = 1,
    BadCommandLine = 2
};

std::string CommandLineError(const CLI::App*, const CLI::Error& error)
{
    return "kvcontour: " + std::string(error.what()) + "\nRun with --help for more information.\n";
}

void Setup(CLI::App& app)
{
    app.name("kvcontour");
    app.set_version_flag("--version", "kvcontour " KV_VERSION);
    app.failure_message(CommandLineError);
    app.require_subcommand(1);
    app.footer("Run kvcontour SUBCOMMAND --help for its options and examples.");
    kvcontour::AddMask(app);
    kvcontour::AddInfo(app);
    kvcontour::AddDraw(app);
    kvcontour::AddConvert(app);
    kvcontour::AddCheck(app);
}

int Run(int argc, char** argv)
try
{
    CLI::App app("Masks, pictures, measures and conversions of contour files.");
    Setup(app);
    try
    {
        app.parse(argc, argv);
    }
    catch (const CLI::ParseError& error)
    {
        return app.exit(error) == 0 ? Done : BadCommandLine;
    }
    return Done;
}
catch (const kvcontour::Failure& failure)
{
    std::cerr << failure.what() << '\n';
    return BadInput;
}
catch (KvN::KvException* thrown)
{
    const std::unique_ptr<KvN::KvException> failure(thrown);
    std::cerr << "kvcontour: " << failure->GetMessageW().Utf8() << '\n';
    return BadInput;
}
catch (const std::bad_alloc&)
{
    std::cerr << "kvcontour: the memory does not suffice\n";
    return BadInput;
}
} // namespace

int main(int argc, char** argv)
{
    std::ios::sync_with_stdio(false);
    std::signal(SIGXFSZ, SIG_IGN); // a file that may not grow further is told like a full disk
    const int result = Run(argc, argv);
    if (!std::cout.flush() && result == Done)
    {
        std::cerr << "kvcontour: standard output: can't be written\n";
        return BadInput;
    }
    return result;
}
