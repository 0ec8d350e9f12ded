#include "midi/MIDI.h"
#include "midi/frmMIDISetup.h"
#include "midi/frmMsgEx.h"

namespace velluto {

MidiState::MidiState(Modulo1 &core) : app(core) {}

MidiState::~MidiState() = default;

} // namespace velluto
