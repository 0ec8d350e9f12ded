// Selecting a row of any list window on the instrument: from the window's role to a channel, from its kind, slot and
// row to bank select and program change. The click handlers of all list windows come here.
#pragma once

#include "banks/FactoryTables.h"
#include "files/Files.h"
#include "midi/MIDI.h"

namespace velluto {

inline constexpr int kNoChannel = 99;

struct RecallState {
    RecallState(Modulo1 &core, MidiState &midiLink, FilesState &filesState) : app(core), midi(midiLink), files(filesState) {}

    Modulo1 &app;
    MidiState &midi;
    FilesState &files;
    FactoryTables tables;
    int roleScratch = 0;             // the role that the last lookup read; stands in where a kind has none
    bool clearingOtherLists = false; // re-entry flag of the overviews
};

// 0 to 15, or kNoChannel. Leaves the record it read in the working record of its type, and kind and slot in app.
int ResolveChannel(RecallState &recall, Form &window);
// Sends bank select MSB, LSB and program change for the 0-based row on LastChannel, and reports the eight bytes.
void RecallItem(RecallState &recall, const WindowTag &tag, int row);
// What every click handler of a window with one list does once its own test has passed: channel, monitor flag, recall.
void SelectOnInstrument(RecallState &recall, Form &window, int row);
// A click in list number `list` (from 1) of an overview: leaves the selection in that list alone, then recalls its
// current row.
void SelectFromOverview(RecallState &recall, Form &window, int list);

} // namespace velluto
