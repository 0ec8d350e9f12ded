// Windows' MIDI devices from one run of the program to the next, over the winmm.dll on paper that lies beside this program.
#include "platform/machine/MachineFiles.h"
#include "platform/music/MachineMusic.h"
#include "platform/windows/WinMidi.h"

#include "Paper.h"
#include "unit/support/TestProgram.h"

#include <gmock/gmock.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;

class WinRunsTest : public testing::Test {
protected:
    WinRunsTest()
    {
        Paper("reset");
        Paper("out Synth");
        Paper("out Keys");
        Paper("in Keys");
    }
    ~WinRunsTest() override { End(); }

    void Begin()
    {
        End();
        music_ = MakeMachineMusic(files_, {}, Path());
    }
    void End()
    {
        music_.sequencer.reset();
        music_.midi.reset();
    }
    // The names of the outputs, or inputs, by number; "" where the query fails.
    std::vector<std::string> Outs() { return Names(music_.midi->midiOutGetNumDevs(), &MidiDevices::midiOutGetDevCapsA); }
    std::vector<std::string> Ins() { return Names(music_.midi->midiInGetNumDevs(), &MidiDevices::midiInGetDevCapsA); }
    // Opens an output and closes it: which one the system was asked for, or the result.
    std::string Opened(int number)
    {
        const std::size_t before = Paper("").size();
        MidiHandle out = 0;
        const int result = music_.midi->midiOutOpen(out, number);
        music_.midi->midiOutClose(out);
        const std::string log = Paper("").substr(before);
        const std::size_t at = log.find("midiOutOpen ");
        return at == std::string::npos ? std::to_string(result) : log.substr(at, log.find(' ', at + 12) - at);
    }
    [[nodiscard]] std::string Kept() const
    {
        const Bytes bytes = ReadBytes(Path());
        return {bytes.begin(), bytes.end()};
    }
    void Keep(const std::string &text) const { WriteBytes(Path(), Bytes(text.begin(), text.end())); }

private:
    std::vector<std::string> Names(int count, int (MidiDevices::*query)(int, MidiDeviceCaps &))
    {
        std::vector<std::string> names;
        for (int number = 0; number < count; ++number) {
            MidiDeviceCaps caps;
            (music_.midi.get()->*query)(number, caps);
            names.emplace_back(caps.name.data());
        }
        return names;
    }
    [[nodiscard]] std::string Path() const { return folder_.At("Velluto-devices.txt"); }

    const TempFolder folder_;
    MachineFiles files_;
    MachineMusic music_;
};

TEST_F(WinRunsTest, WithNothingKnownTheNumbersAreTheSystemsAndAreKept)
{
    Begin();
    EXPECT_THAT(Outs(), ElementsAre("Synth", "Keys"));
    EXPECT_THAT(Ins(), ElementsAre("Keys"));
    EXPECT_EQ(Opened(1), "midiOutOpen 1");
    End();
    EXPECT_EQ(Kept(), "out 0 - Synth\nout 1 * Keys\nin 0 - Keys\n");
}

TEST_F(WinRunsTest, OneThatCameInARunHasItsNumberInTheNext)
{
    Begin();
    Outs();
    Paper("insert out 0 PA80");
    EXPECT_THAT(Outs(), ElementsAre("Synth", "Keys", "PA80"));
    EXPECT_EQ(Opened(2), "midiOutOpen 0");
    Begin();
    EXPECT_THAT(Outs(), ElementsAre("Synth", "Keys", "PA80"));
    EXPECT_EQ(Opened(2), "midiOutOpen 0");
    Paper("insert out 0 New");
    Paper("insert in 0 New");
    Begin();
    EXPECT_THAT(Outs(), ElementsAre("Synth", "Keys", "PA80", "New"));
    EXPECT_EQ(Opened(1), "midiOutOpen 3");
}

TEST_F(WinRunsTest, AnInputToo)
{
    Begin();
    Ins();
    Paper("insert in 0 PA80");
    Begin();
    EXPECT_THAT(Ins(), ElementsAre("Keys", "PA80"));
}

TEST_F(WinRunsTest, TheNumberOfTheChosenOneIsNobodyElses)
{
    Keep("out 0 * PA80\n");
    Begin();
    EXPECT_THAT(Outs(), ElementsAre("", "Synth", "Keys"));
    EXPECT_EQ(Opened(0), "68");
    EXPECT_EQ(Opened(1), "midiOutOpen 0");
    Paper("out PA80");
    EXPECT_THAT(Outs(), ElementsAre("PA80", "Synth", "Keys"));
    EXPECT_EQ(Opened(0), "midiOutOpen 2");
    for (const char *name : {"3", "4", "5", "6"}) {
        Paper(std::string("out ") + name);
    }
    Paper("remove out 2");
    Begin();
    EXPECT_THAT(Outs(), ElementsAre("", "Synth", "Keys", "3", "4", "5", "6"));
    Paper("out One too many");
    EXPECT_EQ(Outs().size(), 7U);
    EXPECT_EQ(Opened(7), "midiOutOpen 7") << "of which there is none, and not the eighth";
}

TEST_F(WinRunsTest, OneThatSaysNothingOfItselfAtTheStartHasItsNumberWhenItDoes)
{
    Keep("out 0 * Synth\nout 1 - Keys\n");
    Paper("pull out 0");
    Begin();
    EXPECT_THAT(Outs(), ElementsAre("", "Keys", ""));
    EXPECT_EQ(Opened(0), "68");
    Paper("plug out 0");
    EXPECT_EQ(Opened(0), "midiOutOpen 0");
    EXPECT_EQ(Outs().at(0), "Synth");
}

TEST_F(WinRunsTest, OfTwoWithOneNameTheFirstHasTheFirstNumber)
{
    Keep("out 0 - Keys\nout 2 * Keys\n");
    Begin();
    EXPECT_THAT(Outs(), ElementsAre("Keys", "Synth"));
    Paper("out Keys");
    EXPECT_THAT(Outs(), ElementsAre("Keys", "Synth", "Keys"));
    EXPECT_EQ(Opened(2), "midiOutOpen 2");
}

TEST_F(WinRunsTest, AListOfLinuxOpensNothingElseAndIsKept)
{
    const std::string linux = "out 0 - Velluto Synthesizer\nout 1 * PA80:PA80 MIDI 1 24:0\n";
    Keep(linux);
    Begin();
    EXPECT_THAT(Outs(), ElementsAre("", "", "Synth", "Keys"));
    EXPECT_EQ(Opened(1), "68");
    End();
    EXPECT_THAT(Kept(), testing::StartsWith(linux));
}

TEST_F(WinRunsTest, WhatHasNotChangedIsNotKeptAnew)
{
    const KnownDevices known{{{0, false, "Synth"}, {1, true, "Keys"}}, {{0, false, "Keys"}}};
    auto midi = std::make_unique<WinMidi>(known);
    bool isKept = false;
    midi->keep = [&](const KnownDevices &) { isKept = true; };
    midi->midiOutGetNumDevs();
    midi->midiInGetNumDevs();
    EXPECT_NE(midi->ForSongs(), nullptr); // which is no choice
    midi.reset();
    EXPECT_FALSE(isKept);
}

} // namespace
} // namespace velluto::test
