// The player: reads a session line by line, acts, prints, and stops at the first command that can't be done.
#include "apps/session/player.h"

#include "apps/session/format.h"
#include "platform/win/input.h"
#include "platform/win/modal.h"
#include "platform/win/win.h"

#include <chrono>
#include <fstream>
#include <thread>

namespace kv::session
{

namespace
{
// The text of a framework's exception, whatever its length.
std::string TextOf(const CException& failure)
{
    std::vector<wchar_t> buffer(4096);
    if (!failure.GetErrorMessage(buffer.data(), static_cast<unsigned>(buffer.size())))
        return {};
    return CString(buffer.data()).Utf8();
}

// Ends what runs modally as Escape does.
void CloseModal()
{
    if (kv::win::IsMenuOpen())
        kv::win::DismissMenu();
    else if (kv::win::OpenMessageBox())
        kv::win::CloseMessageBox(IDCANCEL) || kv::win::CloseMessageBox(IDOK) || kv::win::CloseMessageBox(IDNO);
    else if (auto* dialog = dynamic_cast<CDialog*>(CWnd::FromHandlePermanent(kv::win::ActiveModal())))
        dialog->EndDialog(IDCANCEL);
}
} // namespace

Player::Player(const CommandTable& commands, Options options_, std::ostream& facts_, std::ostream& errors_)
    : table(commands), options(std::move(options_)), facts(facts_), errors(errors_)
{
    kv::win::SetModalHook([this] { StepInModalLoop(); });
    kv::win::SetExceptionHandler([this](CException* failure) { PrintException(failure); });
}

Player::~Player()
{
    kv::win::SetModalHook({});
    kv::win::SetExceptionHandler({});
}

int Player::Play(const std::string& file)
{
    name = file;
    folder = std::filesystem::path(file).parent_path();
    std::ifstream in(file);
    if (!in || std::filesystem::is_directory(file))
    {
        errors << file << ": the session can't be read\n";
        return 2;
    }
    for (std::string line; std::getline(in, line);)
        lines.push_back(line);
    while (Step())
    {
    }
    return failed ? 2 : 0;
}

// Runs the next command. False at the end, and after a failure.
bool Player::Step()
{
    if (failed || next == lines.size())
        return false;
    const size_t number = ++next;
    try
    {
        Run(lines[number - 1]);
    }
    catch (const std::exception& error)
    {
        // A command that waits for a menu or dialog may fail after those that ran in it.
        if (!failed)
            errors << name << ':' << number << ": " << error.what() << '\n';
        failed = true;
    }
    return !failed;
}

void Player::Run(const std::string& line)
{
    const std::vector<std::string> words = SplitWords(line);
    if (words.empty())
        return;
    try
    {
        table.Execute(*this, words);
        kv::win::Settle();
    }
    catch (CException* failure)
    {
        PrintException(failure);
    }
    if (options.slow > 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(options.slow));
}

// The commands that follow act in the open menu or dialog; at the session's end it closes.
void Player::StepInModalLoop()
{
    if (!Step())
        CloseModal();
}

void Player::Print(const std::string& line)
{
    facts << line << std::endl;
}

void Player::PrintException(CException* failure)
{
    Print(std::string("exception ") + failure->GetRuntimeClass()->m_lpszClassName + " " + Quoted(TextOf(*failure)));
    failure->Delete();
}

std::filesystem::path Player::InputFile(const std::string& file) const
{
    const std::filesystem::path inOut = options.out / file;
    return std::filesystem::exists(inOut) ? inOut : folder / file;
}

std::filesystem::path Player::OutputFile(const std::string& file) const
{
    const std::filesystem::path path = options.out / file;
    std::filesystem::create_directories(path.parent_path());
    return path;
}

} // namespace kv::session
