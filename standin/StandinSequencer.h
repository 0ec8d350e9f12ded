// A sequencer without sound, whose time stands still until it is told to pass. Used by the driver and by tests.
#pragma once

#include "platform/Sequencer.h"

#include <chrono>
#include <deque>
#include <map>
#include <optional>

namespace velluto {

// What opening a file comes to.
struct StandinSong {
    std::int32_t length = 0; // of a file that opens
    int error = 0;           // not 0: the file is refused with it
    Refusal refusal;         // why
};

// A reason that only this device knows.
[[nodiscard]] Refusal InWords(std::string words);

class StandinSequencer : public Sequencer {
public:
    using Milliseconds = std::chrono::milliseconds;

    std::map<std::string, StandinSong> songs; // by path
    // Asked about a path that songs does not know; without it such a file is not found.
    std::function<StandinSong(const std::string &path)> OtherSong;
    // One position unit lasts so long. From the next play or pause on.
    Milliseconds rate{100};

    // Lets time pass: a running play goes on, and ends where its file does.
    void Advance(Milliseconds passed);
    // How long until the running play reaches the end of its file; nothing where none runs.
    [[nodiscard]] std::optional<Milliseconds> UntilEnd() const;
    // Raises the oldest Done that has not been raised yet. False where there is none.
    bool Deliver();
    // The process has ended: nothing is open or to be told any more. What it knows of files stays.
    void Release();

    void SetFileName(std::string_view path) override { fileName_ = path; }
    [[nodiscard]] std::string FileName() const override { return fileName_; }
    void SetCommand(std::string_view word) override;
    [[nodiscard]] std::string Command() const override { return command_; }
    [[nodiscard]] int Mode() const override { return mode_; }
    [[nodiscard]] std::int32_t Position() const override;
    [[nodiscard]] std::int32_t Length() const override { return length_; }
    [[nodiscard]] std::int32_t From() const override { return from_; }
    void SetFrom(std::int32_t position) override;
    [[nodiscard]] int Error() const override { return error_; }
    [[nodiscard]] Refusal Reason() const override { return refusal_; }

private:
    void Open();
    void Play();
    void Halt(int mode);
    void Fail(int error, Refusal refusal);

    std::string fileName_;
    std::string command_;
    int mode_ = SequencerMode::kNotReady;
    std::int32_t length_ = 0;
    std::int32_t from_ = 0;
    bool fromFresh_ = false;     // written since the last play
    std::int32_t start_ = 0;     // where the running play began, or where a halted one stands
    Milliseconds elapsed_{0};    // of the running play
    Milliseconds playRate_{100}; // of the running play
    int error_ = 0;
    Refusal refusal_;
    std::deque<int> done_; // not raised yet
};

} // namespace velluto
