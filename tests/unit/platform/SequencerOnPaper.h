// A sequencer on its own thread, with outputs on paper and files that fail when told to. For the tests of MachineSequencer.
#pragma once

#include "platform/machine/MachineFiles.h"
#include "platform/music/MachineSequencer.h"
#include "standin/FaultyFiles.h"
#include "unit/platform/PaperOutputs.h"
#include "unit/sequencer/MidiBytes.h"
#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

namespace velluto::test {

struct SequencerOnPaper : testing::Test {
    SequencerOnPaper()
    {
        sequencer->Done = [this](int code) { told.push_back(code); };
    }

    std::string Place(const Bytes &bytes)
    {
        const std::string path = folder.At("song" + std::to_string(++files) + ".mid");
        WriteBytes(path, bytes);
        return path;
    }
    void Open(const std::string &path)
    {
        sequencer->SetFileName(path);
        sequencer->SetCommand("open");
    }
    // As who chooses an output does.
    void PlayOn(const std::string &device) const
    {
        if (outputs->Choose(device)) {
            sequencer->FollowOutputs();
        }
    }
    // The messages, once so many have come.
    std::vector<Bytes> Arrived(std::size_t count)
    {
        constexpr std::chrono::seconds kLimit(10);
        std::unique_lock lock(heard.mutex);
        heard.came.wait_for(lock, kLimit, [&]() { return heard.messages.size() >= count; });
        return heard.messages;
    }

    TempFolder folder;
    MachineFiles machine;
    FaultyFiles store{machine};
    int files = 0;
    Mail mail;
    Heard heard;
    std::vector<int> told;                           // by Done
    PaperOutputs *outputs = new PaperOutputs(heard); // the sequencer's
    std::unique_ptr<MachineSequencer> sequencer = std::make_unique<MachineSequencer>(
        store, std::unique_ptr<PlayerOutputs>(outputs), [this](std::function<void()> call) { mail.Post(std::move(call)); });
};

// A note for a beat of 1 ms, and its end.
inline const Bytes kShort = File(0, 96, {{0, 0xFF, 0x51, 3, 0x00, 0x03, 0xE8, 0, 0x90, 60, 100, 96, 60, 0, 0, 0xFF, 0x2F, 0}});
// A note that is held for more than an hour of beats of half a second; a program on the second beat, a note on the third.
inline const Bytes kLong = File(0, 96, {{0, 0x90, 60, 100, 96, 0xC0, 5, 96, 0x90, 61, 100, 0xB0, 0x00, 0xFF, 0x2F, 0}});

} // namespace velluto::test
