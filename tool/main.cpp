// velluto-tool: lists, searches and checks files of the instrument on a console, and fills the factory tables. All rules are in the library
// beside.
#include "platform/machine/Console.h"
#include "platform/machine/MachineFiles.h"
#include "tool/Commands.h"
#include "tool/TablesCommands.h"
#ifdef _WIN32
#include "platform/windows/WinPlaces.h"
#endif

#include <cstdlib>
#include <exception>
#include <iostream>
#include <string>
#include <vector>

namespace velluto::tool {

namespace {

constexpr TwoTexts kSeeHelp{"velluto-tool: %1\nvelluto-tool --help dice che cosa si può scrivere.\n",
                            "velluto-tool: %1\nvelluto-tool --help tells what can be written.\n"};
constexpr TwoTexts kNotWritten{"velluto-tool: la risposta non si può scrivere\n", "velluto-tool: the answer cannot be written\n"};

// Empty where it is not set.
std::string_view Variable(const char *name)
{
    const char *value = std::getenv(name); // NOLINT(concurrency-mt-unsafe): nothing writes the environment
    return value != nullptr ? value : "";
}

// Where the desktop program keeps its user's files; empty where nothing tells.
std::string FolderOfUser()
{
#ifdef _WIN32
    return velluto::UserFolder();
#else
    return UserFolder(Variable("XDG_DATA_HOME"), Variable("HOME"));
#endif
}

// The first of the three that says something.
std::string_view Locale()
{
    for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        if (!Variable(name).empty()) {
            return Variable(name);
        }
    }
    return {};
}

int Run(const Desk &desk, const std::vector<std::string> &words)
{
    std::string complaint;
    std::optional<Arguments> arguments = ParseArguments(words, desk.speaker.linguaBase, complaint);
    if (!arguments) {
        desk.errors << desk.speaker.Say(kSeeHelp, {complaint});
        return ExitCode::Usage;
    }
    if (arguments->folder.empty()) {
        arguments->folder = FolderOfUser();
    }
    switch (arguments->command) {
    case Command::Help:
        desk.out << HelpText(desk.speaker.linguaBase);
        return ExitCode::Fine;
    case Command::Version:
        desk.out << "velluto-tool " VELLUTO_VERSION "\n";
        return ExitCode::Fine;
    case Command::List:
        return ListFiles(desk, *arguments);
    case Command::Find:
        return FindItems(desk, *arguments);
    case Command::Check:
        return CheckFiles(desk, *arguments);
    case Command::Import:
        return ImportTables(desk, *arguments);
    case Command::Export:
        return ExportTables(desk, *arguments);
    case Command::Make:
        return MakeTables(desk, *arguments);
    }
    return ExitCode::Usage;
}

int Main(const std::vector<std::string> &words)
{
    PrepareStreams();
    std::ios::sync_with_stdio(false);
    MachineFiles files;
    const Desk desk{files, std::cout, std::cerr, Speaker{LanguageAsked(words).value_or(LanguageOfLocale(Locale()))}};
    const int code = Run(desk, words);
    if (!std::cout.flush()) {
        std::cerr << desk.speaker.Say(kNotWritten);
        return ExitCode::Unreadable;
    }
    return code;
}

} // namespace

} // namespace velluto::tool

int main(int argc, char **argv)
{
    try {
        return velluto::tool::Main(velluto::WordsOfCommand(argc, argv));
    } catch (const std::exception &error) { // no memory, most likely
        std::cerr << "velluto-tool: " << error.what() << '\n';
        return velluto::tool::ExitCode::Unreadable;
    }
}
