// The machine's sequencer: plays one MIDI file at a time in real time. Made once by main and handed to the program as its
// Sequencer.
#pragma once

#include "platform/Sequencer.h"

namespace velluto {

// One interface thread calls everything.
class MachineSequencer : public Sequencer {
public:
    // Runs a call later on the interface thread; any thread may ask for it.
    using Post = std::function<void(std::function<void()>)>;

    explicit MachineSequencer(Post post) : post_(std::move(post)) {}

    void SetFileName(std::string_view path) override { fileName_ = path; }
    [[nodiscard]] std::string FileName() const override { return fileName_; }
    void SetCommand(std::string_view word) override;
    [[nodiscard]] std::string Command() const override { return command_; }
    [[nodiscard]] int Mode() const override { return SequencerMode::kNotReady; }
    [[nodiscard]] std::int32_t Position() const override { return 0; }
    [[nodiscard]] std::int32_t Length() const override { return 0; }
    [[nodiscard]] std::int32_t From() const override { return from_; }
    void SetFrom(std::int32_t position) override { from_ = position; }
    [[nodiscard]] int Error() const override { return error_; }
    [[nodiscard]] std::string ErrorMessage() const override;

private:
    Post post_;
    std::string fileName_;
    std::string command_;
    std::int32_t from_ = 0;
    int error_ = 0;
};

} // namespace velluto
