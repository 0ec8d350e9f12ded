// Windows' outputs for the sequencer: what the program has open, shared with it, or else the first device while something plays. Windows
// knows no ports of programs. Made by MakeMachineMusic.
#pragma once

#include "platform/music/PlayerOutputs.h"
#include "platform/windows/WinMidi.h"

#include <memory>

namespace velluto {

class WinOutputs : public PlayerOutputs {
public:
    explicit WinOutputs(WinMidi &midi) : midi_(midi) {} // outlives this object

    void Show() override {}
    void Move() override;
    // A device that goes later takes the rest of the play with it.
    bool Wake() override;
    // The first device is free for other programs again.
    void Rest() override;
    void Send(std::span<const std::uint8_t> message, TimePoint due) override;
    void KeepTime(bool messagesFallDue) override;

private:
    WinMidi &midi_;
    std::shared_ptr<WinOutput> output_; // of the last waking
    bool isForSongsAlone_ = false;
};

} // namespace velluto
