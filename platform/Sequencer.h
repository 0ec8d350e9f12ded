// The machine's sequencer: one device that plays one MIDI file at a time, driven by command words. Used by player/;
// answered by the real sequencer and by the stand-in of driver and tests.
#pragma once

#include "platform/Refusal.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>

namespace velluto {

// What Mode reads.
namespace SequencerMode {
inline constexpr int kNotReady = 524; // no file is open
inline constexpr int kStopped = 525;
inline constexpr int kPlaying = 526;
inline constexpr int kPaused = 529;
} // namespace SequencerMode

// What Done tells.
namespace NotifyCode {
inline constexpr int kNormalEnd = 1; // the end of the file was reached
inline constexpr int kAborted = 4;   // a stop or close ended a running play
} // namespace NotifyCode

// What Error reads, where a file or a command is at fault.
namespace SequencerError {
inline constexpr int kUnknownCommand = 261;
inline constexpr int kNoMemory = 264;
inline constexpr int kNotOpen = 263;
inline constexpr int kFileNotFound = 275;
inline constexpr int kInvalidFile = 296;
} // namespace SequencerError

class Sequencer {
public:
    virtual ~Sequencer() = default;

    // Raised on the interface's thread when a play has ended: never inside a command, always later from the event loop.
    std::function<void(int notifyCode)> Done;

    // Written before "open"; the path as the machine writes it, in UTF-8.
    virtual void SetFileName(std::string_view path) = 0;
    [[nodiscard]] virtual std::string FileName() const = 0;

    // Executes "open", "play", "pause", "stop" or "close" at once and sets Error. Any other word is an error.
    // "play" starts from a From written since the last "play", else goes on from Position.
    virtual void SetCommand(std::string_view word) = 0;
    // The last word written; empty at first.
    [[nodiscard]] virtual std::string Command() const = 0;

    [[nodiscard]] virtual int Mode() const = 0; // a SequencerMode
    // All in the device's own unit: a quarter of a beat, or a tenth of a second where the file counts seconds.
    [[nodiscard]] virtual std::int32_t Position() const = 0;
    [[nodiscard]] virtual std::int32_t Length() const = 0; // of the open file, 0 for none
    // Reads as last written, 0 after "open".
    [[nodiscard]] virtual std::int32_t From() const = 0;
    virtual void SetFrom(std::int32_t position) = 0;

    [[nodiscard]] virtual int Error() const = 0;      // of the last command; 0 is success
    [[nodiscard]] virtual Refusal Reason() const = 0; // for Error
};

} // namespace velluto
