#include "midi/MIDI.h"

#include "app/Catalogue.h"
#include "midi/frmMIDISetup.h"
#include "midi/frmMsgEx.h"

namespace velluto {

MidiState::MidiState(Modulo1 &core) : app(core) {}

MidiState::~MidiState() = default;

void ShowMidiError(MidiState &midi, int textId, MidiSite site, int code)
{
    std::string digits = std::to_string(code);
    if (digits.size() < 2) {
        digits.insert(0, 1, '0');
    }
    const std::string siteText = " " + std::to_string(static_cast<int>(site));
    midi.ErrorText = midi.app.messages.Text(textId) + " (Cod Err:" + siteText + digits + ")";
    midi.app.messages.ShowMessage(MessageNo::InsertOnly, kProgramTitle, midi.ErrorText);
}

} // namespace velluto
