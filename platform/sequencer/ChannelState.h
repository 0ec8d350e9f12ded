// What messages have set the sixteen channels of an instrument to, and the messages that set them so again. SongPlayer keeps
// two: the state in which the song has the channels where it stands, and the state in which the instrument was left.
#pragma once

#include "platform/ShortMessage.h"

#include <bitset>
#include <vector>

namespace velluto {

struct ChannelState {
    static constexpr std::int16_t kUnset = -1; // no message has said
    static constexpr std::size_t kControllers = 120;

    // A registered or non-registered parameter and the two data entries that it got.
    struct Parameter {
        bool registered = true;
        std::int16_t numberMsb = kUnset;
        std::int16_t numberLsb = kUnset;
        std::int16_t dataMsb = kUnset;
        std::int16_t dataLsb = kUnset;
    };

    ChannelState() { controllers.fill(kUnset); }

    std::array<std::int16_t, kControllers> controllers{}; // the data entries and the choice of a parameter are kept apart
    std::int16_t programMsb = kUnset;                     // the bank that was selected when the program was
    std::int16_t programLsb = kUnset;
    std::int16_t program = kUnset;
    std::int16_t pressure = kUnset;
    std::int16_t bend = kUnset; // 0 to 16383
    Parameter chosen;           // the parameter that data entries go to
    std::vector<Parameter> parameters;
    std::bitset<128> sounding;
};

using ChannelStates = std::array<ChannelState, kMidiChannels>;

// Takes note of a message; one that is no channel message changes nothing.
void Absorb(ChannelStates &channels, std::span<const std::uint8_t> message);

// The messages that end what sounds: the notes of each channel, all its notes at once, the pedals that hold notes.
std::vector<ShortMessage> Silencing(const ChannelStates &told);

// The messages that bring an instrument left in the one state into the other: for each channel bank and program,
// controllers, parameters, pressure and bend, where the two differ; all that is set where `whole`. What the wanted state has
// not set stays as it is, but for what a "reset all controllers" stands for: that goes back to rest.
std::vector<ShortMessage> Restoring(const ChannelStates &wanted, const ChannelStates &told, bool whole);

} // namespace velluto
