// How a file gets chosen: clicks and double clicks on the two file lists.
#pragma once

#include "player/frmMIDIPlayer.h"

namespace velluto {

// A click opens the file and leaves it stopped; while a file plays the lists only change their selection.
void ListMidiSel_Click(frmMIDIPlayer &form);
void ListMidiCorr_Click(frmMIDIPlayer &form);
// A double click plays, whatever the state.
void ListMidiSel_DblClick(frmMIDIPlayer &form);
void ListMidiCorr_DblClick(frmMIDIPlayer &form);
// Opens the file of this name in the folder that is shown, as a click on its row does; a name that the list leaves out is
// opened without a row.
void OpenFileOfFolder(frmMIDIPlayer &form, const std::string &name);
// Once after the load: selects the file of the last run.
void TimerListMidiCorr_Timer(frmMIDIPlayer &form);

} // namespace velluto
