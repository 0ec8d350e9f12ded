// The desktop program: gives the program this machine's answers and lets Qt run it.
#include "desktop/EndSignals.h"
#include "desktop/Inbox.h"
#include "desktop/Look.h"
#include "desktop/QtClock.h"
#include "desktop/QtFace.h"
#include "desktop/QtPrinter.h"
#include "desktop/QtTicks.h"
#include "desktop/Start.h"
#include "files/Opening.h"
#include "platform/HandOver.h"
#include "platform/machine/MachineFiles.h"
#include "platform/music/MachineMusic.h"
#include "program/NamedFiles.h"
#include "program/Velluto.h"

#include <QApplication>
#include <QTimer>

#include <chrono>
#include <future>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace velluto {

namespace {

// From the end of the start: time enough to paint the frame, where the machine is not very busy.
constexpr std::chrono::milliseconds kFirstPicture(250);

std::string DevicesPath(MachineFiles &files)
{
    return files.CurrentFolder() + "/Velluto-devices.txt";
}

void OpenFile(Velluto &program, const std::string &path)
{
    const Argument what = KindOf(path);
    if (what == Argument::File && IsFileForUs(path)) {
        OpenFileByName(program, path);
    } else {
        OpenArgument(program.files, path, what);
    }
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

// True where this start is only a question about the program.
bool IsAnswered(const std::vector<std::string> &words)
{
    if (words.empty() || (words.front() != "--version" && words.front() != "--help" && words.front() != "-h")) {
        return false;
    }
    const bool version = words.front() == "--version";
    Tell(version ? "velluto " VELLUTO_VERSION "\n" : kHelp.In(SystemSpeaksItalian() ? kItalianBase : kEnglishBase));
    return true;
}

// True where this start had files for a program that runs already.
bool IsHandedOver(const std::vector<std::string> &words, const std::string &address)
{
    HandedFiles files;
    for (const std::string &word : words) {
        if (word.empty() || word.front() == '-') {
            return false; // for the toolkit, which sorts it out in a program of its own
        }
        files.paths.push_back(FromRoot(word));
    }
    files.activation = Activation();
    return !words.empty() && HandOver(address, files);
}

// words: what the toolkit has left of the command line.
int Run(HandOverInbox &handedOver, std::shared_ptr<MidiSystems> systems, const std::vector<std::string> &words)
{
    MachineFiles files;
    files.KeepWhole(files.CurrentFolder());
    QtClock clock;
    QtFace face;
    const MachineMusic music = MakeMachineMusic(
        files, [&face](std::function<void()> call) { face.Post(std::move(call)); }, DevicesPath(files), std::move(systems));
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
    const EndSignals endSignals([&program, &face] {
        const bool isFree =
            !face.Gate().Busy() && QApplication::activeModalWidget() == nullptr && QApplication::activePopupWidget() == nullptr;
        return isFree && CloseFrame(program);
    });
    int result = 0;
    if (StartUp(program)) {
        OpenFilesNamedAtStart(program, words);
        inbox.Begin();
        QTimer::singleShot(kFirstPicture, &GiveBackMemory);
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
    std::vector<std::string> words = velluto::WordsAtStart(argc, argv);
    if (velluto::IsAnswered(words)) {
        return 0;
    }
    velluto::GoToUserFolder(words);
    const std::string address = velluto::HandOverAddress();
    if (velluto::IsHandedOver(words, address)) {
        return 0;
    }
    velluto::HandOverInbox handedOver(address);
    // Without this, looking for JACK would start a server of its own.
    qputenv("JACK_NO_START_SERVER", "1");
    velluto::SetLocale(); // while there is no other thread yet
    // Both go on while Qt connects to the display.
    velluto::MachineFiles files;
    std::shared_ptr<velluto::MidiSystems> systems =
        velluto::LookForMidiSystems(velluto::ReadKnownDevices(files, velluto::DevicesPath(files)));
    const std::future<void> fonts = velluto::ReadFontsAhead();
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("velluto"));
    QGuiApplication::setDesktopFileName(QStringLiteral("velluto"));
    velluto::SetUpLook();
    velluto::GetReadyToDraw(fonts);
    return velluto::Run(handedOver, std::move(systems), velluto::WordsLeft(words, argc, argv));
}
