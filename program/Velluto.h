// The whole program as one record: every room's state and the ports below them. Made in main, in the driver or in a
// test, and handed down by reference; two of them can live side by side. The making attaches the frame's commands.
#pragma once

#include "app/Modulo1.h"
#include "banks/FactoryWindows.h"
#include "banks/Recall.h"
#include "files/Files.h"
#include "keyboard/KeyboardWindow.h"
#include "midi/MIDI.h"
#include "notes/Notes.h"
#include "player/PlayerWindow.h"

namespace velluto {

struct Velluto {
    Velluto(Ports ports, Face &face);

    Modulo1 app;
    MidiState midi;
    FilesState files;
    RecallState recall;
    BankState banks;
    KeyboardState keyboard;
    NotesState notes;
    PlayerState player;
};

// The entry routine: paths, settings, device survey, frame. False where the program ends without a window.
bool StartUp(Velluto &program);

// The load of the frame, step by step: captions in the language of the run, states from the settings, the device
// lists, the factory tables, the place on the screen. Run by the frame's Form_Load.
void frmMain_Load(Velluto &program);

// The user closes the frame: asks the children, and when none refuses closes the devices and writes the settings.
// False where a child refused.
bool CloseFrame(Velluto &program);

} // namespace velluto
