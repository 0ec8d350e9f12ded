// The desktop program: gives the program this machine's answers and lets Qt run it.
#include "desktop/EndSignals.h"
#include "desktop/Look.h"
#include "desktop/QtClock.h"
#include "desktop/QtFace.h"
#include "desktop/QtPrinter.h"
#include "desktop/QtTicks.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixFolders.h"
#include "platform/rtmidi/MachineMusic.h"
#include "program/NamedFiles.h"
#include "program/Velluto.h"

#include <QApplication>
#include <QFileInfo>

namespace velluto {

namespace {

// The files that a file manager, or a user at a shell, has named.
void OpenFilesNamedAtStart(Velluto &program)
{
    const QStringList arguments = QApplication::arguments();
    for (const QString &path : arguments.mid(1)) {
        OpenFileByName(program, QFileInfo(path).absoluteFilePath().toStdString());
    }
}

int Run()
{
    PosixFiles files;
    QtClock clock;
    QtFace face;
    const MachineMusic music = MakeMachineMusic(
        files, [&face](std::function<void()> call) { face.Post(std::move(call)); }, files.CurrentFolder() + "/Velluto-devices.txt");
    GetReadyToDraw(); // while the MIDI systems are looked for
    QtPrinter printer(face);
    PosixFolders folders;
    QtTicks ticks(face.Gate());
    Velluto program({files, *music.midi, clock, printer, *music.sequencer, folders, ticks}, face);
    face.Attach({program.app.frame, program.app.children, program.app.messages.LinguaBase, [&program] { return CloseFrame(program); },
                 [&program](const std::string &path) { OpenFileByName(program, path); }});
    clock.Follow(program.app.messages.LinguaBase);
    printer.Follow(program.app);
    const EndSignals endSignals;
    int result = 0;
    if (StartUp(program)) {
        OpenFilesNamedAtStart(program);
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
    // Without this, looking for JACK would start a server of its own.
    qputenv("JACK_NO_START_SERVER", "1");
    const QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("velluto"));
    QGuiApplication::setDesktopFileName(QStringLiteral("velluto"));
    velluto::SetUpLook();
    return velluto::Run();
}
