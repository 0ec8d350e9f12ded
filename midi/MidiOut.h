// The output: the short-message send path that all traffic to the instrument takes, the notes, opening and closing.
#pragma once

#include "midi/MIDI.h"

namespace velluto {

// Sends midi.ShortMsg. Silent without an open device; the first failure is shown and disarms the path.
void SendShortMsg(MidiState &midi);
// Sends them one after the other; the last of them stays in ShortMsg. The monitor shows the bytes of all in one line, and only one that
// fails by itself, while its box stands.
void SendGroup(MidiState &midi, const std::array<ShortMessage, 3> &messages);
// channel 0 to 15, note and velocity 0 to 127.
void SendNoteOn(MidiState &midi, int channel, int note, int velocity);
void SendNoteOff(MidiState &midi, int channel, int note, int velocity);
void SendAllNotesOff(MidiState &midi, int channel);

// Both return the platform's result code.
int OpenMidiOut(MidiState &midi);
int CloseMidiOut(MidiState &midi);

} // namespace velluto
