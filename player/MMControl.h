// The hidden multimedia control of the player's window: the machine's sequencer as one window sees it. It begins without a
// file and without a last command.
#pragma once

#include "platform/Sequencer.h"
#include "view/Control.h"

#include <string>
#include <string_view>

namespace velluto {

class MMControl : public Control {
public:
    MMControl(Form &form, std::string name, Sequencer &device) : Control(form, std::move(name), kNoIndex), device_(device) {}

    std::string FileName;               // the full path, written before "open"
    std::function<void(int code)> Done; // a command has finished: 1 normally, 4 aborted

    // Executes the word at once.
    void Command(std::string_view word);
    [[nodiscard]] const std::string &Command() const { return command_; } // the last word; empty before the first
    // Length, Position and From in the device's own unit.
    [[nodiscard]] int Mode() const { return device_.Mode(); }
    [[nodiscard]] std::int32_t Position() const { return device_.Position(); }
    [[nodiscard]] std::int32_t Length() const { return device_.Length(); }
    [[nodiscard]] std::int32_t From() const { return device_.From(); }
    void From(std::int32_t position) { device_.SetFrom(position); }
    [[nodiscard]] int Error() const { return device_.Error(); }
    [[nodiscard]] Refusal Reason() const { return device_.Reason(); } // for Error
    // Playing or paused.
    [[nodiscard]] bool InPlay() const { return Mode() == SequencerMode::kPlaying || Mode() == SequencerMode::kPaused; }

    // The window takes hold of the device, and lets it go. It is not closed with the window, but nothing sounds on; the next window
    // begins without a file.
    void Take();
    void LetGo();

private:
    Sequencer &device_;
    std::string command_;
};

} // namespace velluto
