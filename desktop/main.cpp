// The desktop program: gives the program this machine's answers and lets Qt run it.
#include "desktop/EndSignals.h"
#include "desktop/Inbox.h"
#include "desktop/Look.h"
#include "desktop/QtClock.h"
#include "desktop/QtFace.h"
#include "desktop/QtPrinter.h"
#include "desktop/QtTicks.h"
#include "files/Opening.h"
#include "platform/machine/MachineFiles.h"
#include "platform/posix/HandOver.h"
#include "platform/music/MachineMusic.h"
#include "program/NamedFiles.h"
#include "program/Velluto.h"

#include <QApplication>

#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <system_error>
#include <vector>

namespace velluto {

namespace {

void OpenFile(Velluto &program, const std::string &path)
{
    std::error_code unknown;
    const std::filesystem::file_status there = std::filesystem::status(path, unknown);
    const bool isFolder = std::filesystem::is_directory(there);
    const Argument what = !std::filesystem::exists(there) ? Argument::Missing : (isFolder ? Argument::Folder : Argument::File);
    if (what == Argument::File && IsFileForUs(path)) {
        OpenFileByName(program, path);
    } else {
        OpenArgument(program.files, path, what);
    }
}

// The bytes of a name stay as they are: it need be no text.
std::string FromRoot(const std::string &path)
{
    std::error_code error;
    const std::filesystem::path absolute = std::filesystem::absolute(path, error);
    return error ? path : absolute.lexically_normal().string();
}

// The files that a file manager, or a user at a shell, has named.
void OpenFilesNamedAtStart(Velluto &program, const std::vector<std::string> &words)
{
    for (const std::string &word : words) {
        if (!word.empty()) {
            OpenFile(program, FromRoot(word));
        }
    }
}

constexpr TwoTexts kHelp{"uso: velluto [FILE]...\n\n"
                         "Gestisce i file della KORG PA80 (.pcg, .sty, .prf) e comanda lo strumento via MIDI. Ogni FILE si apre in una\n"
                         "finestra, nel programma che già gira se ce n'è uno.\n\n"
                         "  -h, --help   questo aiuto\n"
                         "  --version    la versione\n",
                         "usage: velluto [FILE]...\n\n"
                         "Manages files of the KORG PA80 (.pcg, .sty, .prf) and controls the instrument over MIDI. Each FILE opens in a\n"
                         "window, of the program that runs already if there is one.\n\n"
                         "  -h, --help   this help\n"
                         "  --version    the version\n"};

// In the language of the system: the program's own is not known before its settings are.
std::string_view HelpAtStart()
{
    for (const char *name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
        const char *const value = std::getenv(name);
        if (value != nullptr && *value != '\0') {
            return kHelp.In(std::string_view(value).starts_with("it") ? kItalianBase : kEnglishBase);
        }
    }
    return kHelp.In(kEnglishBase);
}

// True where this start is only a question about the program, or has files for one that runs already.
bool IsAnswered(const std::vector<std::string> &words, const std::string &address)
{
    if (words.empty()) {
        return false;
    }
    if (words.front() == "--version" || words.front() == "--help" || words.front() == "-h") {
        const bool version = words.front() == "--version";
        std::cout << (version ? std::string_view("velluto " VELLUTO_VERSION "\n") : HelpAtStart());
        return true;
    }
    HandedFiles files;
    for (const std::string &word : words) {
        if (word.empty() || word.front() == '-') {
            return false; // for the toolkit, which sorts it out in a program of its own
        }
        files.paths.push_back(FromRoot(word));
    }
    const char *const activation = std::getenv("XDG_ACTIVATION_TOKEN");
    files.activation = activation != nullptr ? activation : "";
    return HandOver(address, files);
}

// words: what the toolkit has left of the command line.
int Run(HandOverInbox &handedOver, const std::vector<std::string> &words)
{
    MachineFiles files;
    files.KeepWhole(files.CurrentFolder());
    QtClock clock;
    QtFace face;
    const MachineMusic music = MakeMachineMusic(
        files, [&face](std::function<void()> call) { face.Post(std::move(call)); }, files.CurrentFolder() + "/Velluto-devices.txt");
    GetReadyToDraw(); // while the MIDI systems are looked for
    QtPrinter printer(face);
    MachineFolders folders;
    QtTicks ticks(face.Gate());
    Velluto program({files, *music.midi, clock, printer, *music.sequencer, folders, ticks}, face);
    face.Attach({program.app.frame, program.app.children, program.app.messages.LinguaBase, [&program] { return CloseFrame(program); },
                 [&program](const std::string &path) { OpenFileByName(program, path); }});
    clock.Follow(program.app.messages.LinguaBase);
    printer.Follow(program.app);
    const auto take = [&handedOver](std::string &activation) {
        const std::optional<HandedFiles> taken = handedOver.Take();
        activation = taken ? taken->activation : "";
        return taken ? taken->paths : std::vector<std::string>();
    };
    Inbox inbox(handedOver.Descriptor(), take, face, [&program](const std::string &path) { OpenFile(program, path); });
    const EndSignals endSignals;
    int result = 0;
    if (StartUp(program)) {
        OpenFilesNamedAtStart(program, words);
        inbox.Begin();
        // A signal that came while a question of the start was up has ended that question's loop, not this one.
        bool toRun = !endSignals.Told();
        do {
            result = toRun ? QApplication::exec() : 0;
            toRun = true;
        } while (!CloseFrame(program)); // where something else than the frame has ended the loop
    }
    face.Detach();
    return result;
}

} // namespace

} // namespace velluto

int main(int argc, char **argv)
{
    const std::string address = velluto::HandOverAddress();
    if (velluto::IsAnswered({argv + 1, argv + argc}, address)) {
        return 0;
    }
    velluto::HandOverInbox handedOver(address);
    // Without this, looking for JACK would start a server of its own.
    qputenv("JACK_NO_START_SERVER", "1");
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("velluto"));
    QGuiApplication::setDesktopFileName(QStringLiteral("velluto"));
    velluto::SetUpLook();
    return velluto::Run(handedOver, {argv + 1, argv + argc});
}
