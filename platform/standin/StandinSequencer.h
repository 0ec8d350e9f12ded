// A sequencer without sound, whose time stands still until it is told to pass. Used by the driver and by tests.
#pragma once

#include "platform/Sequencer.h"

namespace velluto {

class StandinSequencer : public Sequencer {
public:
    void SetFileName(std::string_view path) override { fileName_ = path; }
    [[nodiscard]] std::string FileName() const override { return fileName_; }
    void SetCommand(std::string_view word) override { command_ = word; }
    [[nodiscard]] std::string Command() const override { return command_; }
    [[nodiscard]] int Mode() const override { return SequencerMode::kNotReady; }
    [[nodiscard]] std::int32_t Position() const override { return 0; }
    [[nodiscard]] std::int32_t Length() const override { return 0; }
    [[nodiscard]] std::int32_t From() const override { return from_; }
    void SetFrom(std::int32_t position) override { from_ = position; }
    [[nodiscard]] int Error() const override { return 0; }
    [[nodiscard]] std::string ErrorMessage() const override { return {}; }

private:
    std::string fileName_;
    std::string command_;
    std::int32_t from_ = 0;
};

} // namespace velluto
