// The notes and the sustain pedals that a stream of messages has left sounding, and the messages that end them. One
// for each way to an output: the program's own and Thru.
#pragma once

#include "platform/MidiDevices.h"

#include <bitset>
#include <vector>

namespace velluto {

class NoteTracker {
public:
    // Takes note of a message that went out. Allocates nothing.
    void Passed(std::span<const std::uint8_t> message);
    // The note-offs, then the sustain-offs, that leave nothing sounding; channel by channel, notes upwards.
    [[nodiscard]] std::vector<ShortMessage> Releases() const;
    [[nodiscard]] bool Silent() const;
    void Clear();
    void Add(const NoteTracker &other); // what either has left sounding

private:
    static constexpr std::size_t kNotes = 128;
    std::array<std::bitset<kNotes>, kMidiChannels> sounding_;
    std::bitset<kMidiChannels> sustained_;
};

// Ends on the port, which has a Send for bytes that gives a MidiCode, what the tracker knows to sound, and clears the tracker. False
// where the port took it not: then the tracker keeps its notes.
template <class Port>
bool Silence(Port &port, NoteTracker &notes)
{
    for (const ShortMessage &message : notes.Releases()) {
        if (port.Send(message.View()) != MidiCode::kSuccess) {
            return false;
        }
    }
    notes.Clear();
    return true;
}

} // namespace velluto
