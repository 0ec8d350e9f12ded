// The file panel: drives, folders, and the MIDI files of the folder that is open. It makes the window narrow or wide.
#pragma once

#include "player/frmMIDIPlayer.h"

namespace velluto {

// Fills the drive list and opens the folder of the last run, where it can be read; nobody is told where not.
void FillFilePanel(frmMIDIPlayer &form);
// Opens a folder: its rows, its files. A folder that cannot be read leaves all as it was.
RuntimeError OpenFolder(frmMIDIPlayer &form, const std::string &path);
// Shows the folder of a MIDI file in the panel, which opens where it is closed, and opens the file. A folder that cannot be
// read is told where it is not there, and leaves all as it was.
void ShowMidiFile(frmMIDIPlayer &form, const std::string &path);
void DriveMidiSel_Change(frmMIDIPlayer &form);
// A double click on a row of the folder list.
void DirMidiSel_DblClick(frmMIDIPlayer &form);
void CommSel_Click(frmMIDIPlayer &form);

} // namespace velluto
