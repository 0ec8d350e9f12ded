// The application core's own record: ports, paths, settings, frame, children, messages. It lies below every other
// room; each room's state holds a reference to it.
#pragma once

#include "app/Messages.h"
#include "app/Paths.h"
#include "app/Settings.h"
#include "app/ViewKind.h"
#include "app/frmMain.h"
#include "platform/Clock.h"
#include "platform/FileStore.h"
#include "platform/Folders.h"
#include "platform/MidiDevices.h"
#include "platform/Printer.h"
#include "platform/Sequencer.h"
#include "platform/TickTimer.h"
#include "view/ChildWindows.h"
#include "view/Face.h"

#include <string>

namespace velluto {

// What the machine answers with; the owner is main, the driver or a test.
struct Ports {
    FileStore &files;
    MidiDevices &midi;
    Clock &clock;
    Printer &printer;
    Sequencer &sequencer;
    Folders &folders;
    TickTimer &ticks;
};

// The files beside the program, in the directory that was current at start.
struct RunPaths {
    std::string AppDir;
    std::string IniPath;
    std::string GuidaPath;
    std::string GuidePath;
    std::string NotebookPath;
    std::string PcgTablePath;
    std::string StyTablePath;
    std::string PrfBank1Path;
};

struct Modulo1 {
    Modulo1(Ports machine, Face &drawnBy);

    Ports ports;
    Face &face;
    Messages messages; // LinguaBase lives here
    RunPaths paths;
    Settings settings;
    frmMain frame;
    ChildWindows children;

    bool StartAborted = false;
    std::string CurrentOperation;  // title of the boxes of the operation under way
    std::string TitleLine;         // the text of LabelNomeAppl
    int NaturalLabelWidth = 0;     // of LabelNomeAppl as measured at load, twips
    int ViewKind = 0;              // valid from the command that sets it to the end of the load or routine that uses it
    RecentRecord WorkRecentRecord; // the one working record of the recent table; scans leave it where they stopped
    int slot = 0;                  // the slot that the last title or selection read from a Tag
};

// The child-window contract: called at the activation of every child, and after the unload of one.
void RefreshWindowMenu(Modulo1 &app);
void RefreshAfterClose(Modulo1 &app);
// The right button on a child pops up the Edit menu, its state computed afresh.
void PopUpEditMenu(Modulo1 &app, int button);

// From a run-time file error to a box under the title and a verdict: 1 give up, 2 repeat the operation.
int ClassifyIoError(const Messages &messages, std::string_view title, RuntimeError error);

} // namespace velluto
