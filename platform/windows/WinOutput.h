// An open MIDI output of Windows, which the program and its sequencer share: the system gives most devices to one opening alone. Used by
// WinMidi and WinOutputs.
#pragma once

#include "platform/music/NoteTracker.h"

#include <memory>
#include <mutex>
#include <span>
#include <vector>

namespace velluto {

// Result codes are the system's. Any thread may call everything.
class WinOutput {
public:
    using System = void *; // an HMIDIOUT

    // number is what the program calls the device. output is set only with success.
    static int Open(int number, int systemNumber, std::shared_ptr<WinOutput> &output);
    WinOutput(int number, System system);
    ~WinOutput(); // closes
    WinOutput(const WinOutput &) = delete;
    WinOutput &operator=(const WinOutput &) = delete;

    // A short message, packed as the system takes it.
    int Send(ShortMessage message);
    // One whole message. A system exclusive one is handed over and not waited for; one that is too long for the system is left out.
    int Send(std::span<const std::uint8_t> message);

    // Ends what sounds first. Where it fails the output is still open; else nothing reaches the system any more.
    int Close();
    // What could not be ended at the close: the device had gone.
    [[nodiscard]] NoteTracker Abandoned() const;

    [[nodiscard]] int Number() const { return number_; }
    [[nodiscard]] bool IsOpen() const { return Handle() != nullptr; }
    // The device answered that it is not there any more.
    [[nodiscard]] bool Gone() const;
    // Good until the close; null afterwards.
    [[nodiscard]] System Handle() const;

private:
    struct Exclusive; // a message that the system reads

    int SendShort(ShortMessage message);
    int SendExclusive(std::span<const std::uint8_t> message);
    void TakeBack();
    void TakeBackAll();

    const int number_;
    mutable std::mutex mutex_; // guards all that follows
    System system_ = nullptr;  // null once closed
    bool gone_ = false;
    NoteTracker notes_; // of all who send
    std::vector<std::unique_ptr<Exclusive>> exclusives_;
};

} // namespace velluto
