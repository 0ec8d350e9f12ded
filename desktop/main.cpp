// The desktop program: gives the program this machine's answers and lets Qt run it.
#include "app/FrameCommands.h"
#include "app/Velluto.h"
#include "desktop/EndSignals.h"
#include "desktop/Look.h"
#include "desktop/QtClock.h"
#include "desktop/QtFace.h"
#include "desktop/QtPrinter.h"
#include "desktop/QtTicks.h"
#include "platform/posix/PosixFiles.h"
#include "platform/posix/PosixFolders.h"
#include "platform/rtmidi/MachineMusic.h"

#include <QApplication>

namespace velluto {

namespace {

int Run()
{
    PosixFiles files;
    QtClock clock;
    QtFace face;
    const MachineMusic music = MakeMachineMusic([&face](std::function<void()> call) { face.Post(std::move(call)); });
    QtPrinter printer(face);
    PosixFolders folders;
    QtTicks ticks(face.Gate());
    Velluto program({files, *music.midi, clock, printer, *music.sequencer, folders, ticks}, face);
    face.Attach({program.app.frame, program.app.children, program.app.messages.LinguaBase, [&program] { return CloseFrame(program); }});
    clock.Follow(program.app.messages.LinguaBase);
    printer.Follow(program.app);
    const EndSignals endSignals;
    int result = 0;
    if (StartUp(program)) {
        do {
            result = QApplication::exec();
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
