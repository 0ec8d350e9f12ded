// Windows' MIDI devices that come and go while the program runs, over the winmm.dll on paper that lies beside this program.
#include "platform/windows/WinMidi.h"

#include "Paper.h"
#include "midi/DeviceMenus.h"
#include "unit/support/MidiLink.h"

#include <gmock/gmock.h>
#include <mmsystem.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

class WinDevicesTest : public testing::Test {
protected:
    WinDevicesTest()
    {
        Paper("reset");
        Paper("out Synth");
        Paper("out Keys");
        Paper("in Keys");
    }
    // As the program does at its start.
    void Survey()
    {
        Names(midi.midiOutGetNumDevs());
        InNames(midi.midiInGetNumDevs());
    }
    // The names of the outputs by number; "" where the query fails.
    std::vector<std::string> Names(int count) { return NamesBy(count, &MidiDevices::midiOutGetDevCapsA); }
    std::vector<std::string> InNames(int count) { return NamesBy(count, &MidiDevices::midiInGetDevCapsA); }
    std::vector<std::string> Counted() { return Names(midi.CountAgain()->outs); }
    // What the system was asked to open, and what it said.
    std::string Opened(int number)
    {
        const std::size_t before = Paper("").size();
        const int result = midi.midiOutOpen(out, number);
        const std::string log = Paper("").substr(before);
        const std::size_t at = log.find("midiOutOpen");
        return std::to_string(result) + (at == std::string::npos ? "" : ": " + log.substr(at, log.find('\n', at) - at));
    }

    WinMidi midi;
    MidiHandle out = 0;

private:
    std::vector<std::string> NamesBy(int count, int (MidiDevices::*query)(int, MidiDeviceCaps &))
    {
        std::vector<std::string> names;
        for (int number = 0; number < count; ++number) {
            MidiDeviceCaps caps;
            (midi.*query)(number, caps);
            names.emplace_back(caps.name.data());
        }
        return names;
    }
};

TEST_F(WinDevicesTest, WithoutAChangeTheNumbersAreTheSystems)
{
    Survey();
    EXPECT_THAT(Counted(), ElementsAre("Synth", "Keys"));
    EXPECT_EQ(Opened(1), "0: midiOutOpen 1 0 = 0");
}

TEST_F(WinDevicesTest, OneThatComesHasTheNextNumber)
{
    Survey();
    Paper("out Late");
    Paper("in Late");
    EXPECT_THAT(Counted(), ElementsAre("Synth", "Keys", "Late"));
    EXPECT_THAT(InNames(midi.CountAgain()->ins), ElementsAre("Keys", "Late"));
    EXPECT_EQ(Opened(2), "0: midiOutOpen 2 0 = 0");
}

TEST_F(WinDevicesTest, OneThatComesIsInTheMenuWhenItOpensAndCanBeChosen)
{
    MidiLink link; // for all but its devices
    Modulo1 app{Ports{link.files, midi, link.clock, link.printer, link.sequencer, link.folders, link.ticks}, link.face};
    MidiState state{app};
    SurveyMidiDevices(state, [] {});
    FillDeviceMenus(state);
    EXPECT_FALSE(app.frame.mnuDevMIDIOut[2].visible);
    Paper("insert out 0 Late");
    ShowNewDevices(state);
    EXPECT_TRUE(app.frame.mnuDevMIDIOut[2].visible);
    EXPECT_EQ(app.frame.mnuDevMIDIOut[1].caption.Get(), "Keys");
    EXPECT_EQ(app.frame.mnuDevMIDIOut[2].caption.Get(), "Late");
    mnuDevMIDIOut_Click(state, 2);
    EXPECT_TRUE(app.frame.mnuDevMIDIOut[2].checked);
    EXPECT_THAT(Paper(""), HasSubstr("midiOutOpen 0 0 = 0\n"));
}

TEST_F(WinDevicesTest, OneThatTheSystemPutsInTheMidstOfThemMovesNone)
{
    Survey();
    Paper("insert out 0 First");
    EXPECT_THAT(Counted(), ElementsAre("Synth", "Keys", "First"));
    EXPECT_EQ(Opened(1), "0: midiOutOpen 2 0 = 0");
    EXPECT_EQ(Opened(2), "0: midiOutOpen 0 0 = 0");
}

TEST_F(WinDevicesTest, OneThatGoesLeavesItsNumberToNobodyAndReturnsToIt)
{
    Survey();
    Paper("remove out 0");
    EXPECT_THAT(Counted(), ElementsAre("", "Keys"));
    EXPECT_EQ(Opened(0), "68");
    EXPECT_EQ(Opened(1), "0: midiOutOpen 0 0 = 0");
    Paper("out New");
    EXPECT_THAT(Counted(), ElementsAre("", "Keys", "New"));
    Paper("out Synth");
    EXPECT_THAT(Counted(), ElementsAre("Synth", "Keys", "New"));
    EXPECT_EQ(Opened(0), "0: midiOutOpen 2 0 = 0");
}

TEST_F(WinDevicesTest, OneThatHasMovedIsFoundWithoutACount)
{
    Survey();
    Paper("remove out 0");
    EXPECT_EQ(Opened(1), "0: midiOutOpen 0 0 = 0");
    EXPECT_EQ(Opened(0), "68");
    EXPECT_EQ(midi.midiOutGetNumDevs(), 2);
    Paper("insert in 0 First");
    MidiHandle in = 0;
    EXPECT_EQ(midi.midiInOpen(in, 0, {}), 0);
    EXPECT_THAT(Paper(""), HasSubstr("midiInOpen 1 196608 = 0\n"));
    Paper("remove in 1");
    EXPECT_EQ(midi.midiInClose(in), 0);
    EXPECT_EQ(midi.midiInOpen(in, 0, {}), MidiCode::kNoDevice);
}

TEST_F(WinDevicesTest, AnInputThatHasMovedIsStillHeard)
{
    Survey();
    int heard = 0;
    const auto count = [](MidiHandle, std::uint32_t message, void *instance, std::uint32_t, std::uint32_t) {
        *static_cast<int *>(instance) += message == MIM_DATA ? 1 : 0;
    };
    MidiHandle in = 0;
    ASSERT_EQ(midi.midiInOpen(in, 0, {count, &heard}), 0);
    ASSERT_EQ(midi.midiInStart(in), 0);
    Paper("insert in 0 First");
    Paper("receive 0 643C90 5");
    EXPECT_EQ(heard, 0);
    Paper("receive 1 643C90 5");
    EXPECT_EQ(heard, 1);
    EXPECT_EQ(midi.midiInClose(in), 0);
}

TEST_F(WinDevicesTest, OfTwoWithOneNameEachHasItsNumber)
{
    Paper("out Keys");
    Survey();
    Paper("insert out 0 Keys");
    EXPECT_THAT(Counted(), ElementsAre("Synth", "Keys", "Keys", "Keys"));
    EXPECT_EQ(Opened(1), "0: midiOutOpen 0 0 = 0");
    EXPECT_EQ(Opened(2), "0: midiOutOpen 2 0 = 0");
    EXPECT_EQ(Opened(3), "0: midiOutOpen 3 0 = 0");
}

TEST_F(WinDevicesTest, OfTwoWithOneNameTheOneThatStaysKeepsItsNumber)
{
    Paper("out Keys");
    Paper("place out 1 \\\\?\\usb#1");
    Paper("place out 2 \\\\?\\usb#2");
    Survey();
    Paper("remove out 1");
    EXPECT_EQ(Opened(1), "68");
    EXPECT_EQ(Opened(2), "0: midiOutOpen 1 0 = 0");
    EXPECT_THAT(Counted(), ElementsAre("Synth", "", "Keys"));
    Paper("insert out 0 Keys"); // the first one, in another socket
    Paper("place out 0 \\\\?\\usb#3");
    EXPECT_THAT(Counted(), ElementsAre("Synth", "Keys", "Keys"));
    EXPECT_EQ(Opened(1), "0: midiOutOpen 0 0 = 0");
}

TEST_F(WinDevicesTest, OneThatSaidNothingOfItselfKeepsTheSystemsNumber)
{
    Paper("pull out 0");
    Survey();
    EXPECT_THAT(Counted(), ElementsAre("", "Keys"));
    EXPECT_EQ(Opened(0), "68: midiOutOpen 0 0 = 68");
    Paper("plug out 0");
    EXPECT_THAT(Counted(), ElementsAre("Synth", "Keys"));
    EXPECT_EQ(Opened(0), "0: midiOutOpen 0 0 = 0");
}

TEST_F(WinDevicesTest, OneThatSaidNothingOfItselfIsNoneThatHasMovedToItsPlace)
{
    Paper("pull out 0");
    Survey();
    Paper("remove out 0");
    EXPECT_EQ(Opened(0), "68");
    EXPECT_EQ(Opened(1), "0: midiOutOpen 0 0 = 0");
    EXPECT_THAT(Counted(), ElementsAre("", "Keys"));
}

TEST_F(WinDevicesTest, SongsGoToTheFirstThatIsThere)
{
    Survey();
    Paper("remove out 0");
    EXPECT_NE(midi.ForSongs(), nullptr);
    EXPECT_THAT(Paper(""), HasSubstr("midiOutOpen 0 0 = 0\n"));
    EXPECT_EQ(midi.ForSongs()->Number(), 1);
}

TEST_F(WinDevicesTest, NotesThatOneWentWithEndWhereItIsBack)
{
    Survey();
    ASSERT_EQ(midi.midiOutOpen(out, 1), 0);
    ASSERT_EQ(midi.midiOutShortMsg(out, ShortMessage(MidiStatus::kNoteOn, 0, 60, 100)), 0);
    Paper("remove out 1");
    EXPECT_EQ(midi.midiOutShortMsg(out, ShortMessage(MidiStatus::kNoteOff, 0, 60, 0)), MidiCode::kNoDevice);
    EXPECT_EQ(midi.midiOutClose(out), 0);
    Paper("insert out 0 Keys");
    const std::size_t before = Paper("").size();
    ASSERT_EQ(midi.midiOutOpen(out, 1), 0);
    EXPECT_THAT(Paper("").substr(before), HasSubstr("midiOutOpen 0 0 = 0\nmidiOutShortMsg 0 403C80 = 0\n"));
}

} // namespace
} // namespace velluto::test
