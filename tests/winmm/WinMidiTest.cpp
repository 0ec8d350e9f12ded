// The adapter to the system's MIDI devices, over the winmm.dll on paper that lies beside this program.
#include "platform/windows/WinMidi.h"

#include "Paper.h"

#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;

// What the program's callback has heard, and on which thread.
struct Heard {
    std::vector<std::array<std::uint32_t, 4>> calls; // handle, message, two parameters
    DWORD thread = 0;

    static void Proc(MidiHandle handle, std::uint32_t message, void *instance, std::uint32_t parameter1, std::uint32_t parameter2)
    {
        auto *heard = static_cast<Heard *>(instance);
        heard->calls.push_back({handle, message, parameter1, parameter2});
        heard->thread = ::GetCurrentThreadId();
    }
};

class WinMidiTest : public testing::Test {
protected:
    WinMidiTest()
    {
        Paper("reset");
        Paper("out Synth");
        Paper("out Keys");
        Paper("in Keys");
    }
    [[nodiscard]] static std::string Log() { return Paper(""); }
    [[nodiscard]] static std::string Name(const MidiDeviceCaps &caps) { return caps.name.data(); }

    Heard heard; // outlives the devices
    WinMidi midi;
    MidiHandle out = 0;
    MidiHandle in = 0;
};

TEST_F(WinMidiTest, DevicesHaveTheSystemsNumbersAndNames)
{
    EXPECT_EQ(midi.midiOutGetNumDevs(), 2);
    EXPECT_EQ(midi.midiInGetNumDevs(), 1);
    MidiDeviceCaps caps;
    EXPECT_EQ(midi.midiOutGetDevCapsA(1, caps), 0);
    EXPECT_EQ(Name(caps), "Keys");
    EXPECT_EQ(midi.midiOutGetDevCapsA(2, caps), 2);
    EXPECT_EQ(midi.midiInGetDevCapsA(0, caps), 0);
    EXPECT_EQ(Name(caps), "Keys");
    EXPECT_EQ(midi.midiInGetDevCapsA(1, caps), 2);
}

TEST_F(WinMidiTest, ALongNameEndsWithAWholeLetter)
{
    Paper("out "
          "\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8\xC3\xA8"
          "\xC3\xA8");
    MidiDeviceCaps caps;
    EXPECT_EQ(midi.midiOutGetDevCapsA(2, caps), 0);
    EXPECT_EQ(Name(caps).size(), 30U); // 15 letters of two bytes
}

TEST_F(WinMidiTest, TheMapperIsTheNumberBelowNought)
{
    MidiDeviceCaps caps;
    EXPECT_EQ(midi.midiOutGetDevCapsA(-1, caps), 0);
    EXPECT_EQ(Name(caps), "MIDI Mapper");
    EXPECT_EQ(midi.midiOutOpen(out, -1), 0);
    EXPECT_THAT(Log(), HasSubstr("midiOutOpen -1 0 = 0\n"));
}

TEST_F(WinMidiTest, ShortMessagesGoOutPackedAndInOrder)
{
    ASSERT_EQ(midi.midiOutOpen(out, 1), 0);
    EXPECT_EQ(midi.midiOutShortMsg(out, ShortMessage(MidiStatus::kControlChange, 0, 0, 121)), 0);
    EXPECT_EQ(midi.midiOutShortMsg(out, ShortMessage(MidiStatus::kProgramChange, 0, 4)), 0);
    EXPECT_EQ(midi.midiOutClose(out), 0);
    EXPECT_EQ(Log(), "midiOutOpen 1 0 = 0\nmidiOutShortMsg 1 7900B0 = 0\nmidiOutShortMsg 1 0004C0 = 0\nmidiOutClose 1 = 0\n");
}

TEST_F(WinMidiTest, ResultCodesComeBackUnchanged)
{
    for (const int code : {1, 4, 6, 7, 11, 68, 100}) {
        const std::string number = std::to_string(code);
        Paper("fail midiOutOpen " + number);
        Paper("fail midiInOpen " + number);
        EXPECT_EQ(midi.midiOutOpen(out, 0), code);
        EXPECT_EQ(midi.midiInOpen(in, 0, {&Heard::Proc, &heard}), code);
    }
    Paper("fail midiOutOpen 0");
    Paper("fail midiInOpen 0");
    ASSERT_EQ(midi.midiOutOpen(out, 0), 0);
    ASSERT_EQ(midi.midiInOpen(in, 0, {&Heard::Proc, &heard}), 0);
    for (const char *call :
         {"midiOutShortMsg", "midiInStart", "midiInStop", "midiConnect", "midiDisconnect", "midiOutClose", "midiInClose"}) {
        Paper(std::string("fail ") + call + " 65");
    }
    EXPECT_EQ(midi.midiOutShortMsg(out, ShortMessage(MidiStatus::kNoteOn, 0, 60, 100)), 65);
    EXPECT_EQ(midi.midiInStart(in), 65);
    EXPECT_EQ(midi.midiInStop(in), 65);
    EXPECT_EQ(midi.midiConnect(in, out), 65);
    EXPECT_EQ(midi.midiDisconnect(in, out), 65);
    EXPECT_EQ(midi.midiOutClose(out), 65);
    EXPECT_EQ(midi.midiInClose(in), 65);
    Paper("fail midiOutClose 0");
    Paper("fail midiInClose 0");
    EXPECT_EQ(midi.midiOutClose(out), 0) << "what could not be closed is still open";
    EXPECT_EQ(midi.midiInClose(in), 0);
}

TEST_F(WinMidiTest, ADeviceInUseIsRefusedUntilItsUserCloses)
{
    WinMidi other;
    MidiHandle theirs = 0;
    ASSERT_EQ(other.midiOutOpen(theirs, 0), 0);
    EXPECT_EQ(midi.midiOutOpen(out, 0), MidiCode::kAllocated);
    EXPECT_EQ(out, 0U);
    EXPECT_EQ(other.midiOutClose(theirs), 0);
    EXPECT_EQ(midi.midiOutOpen(out, 0), 0);
}

TEST_F(WinMidiTest, APulledDeviceAnswersWithItsCodeAndCanBeClosed)
{
    ASSERT_EQ(midi.midiOutOpen(out, 0), 0);
    ASSERT_EQ(midi.midiInOpen(in, 0, {&Heard::Proc, &heard}), 0);
    Paper("pull out 0");
    Paper("pull in 0");
    EXPECT_EQ(midi.midiOutShortMsg(out, ShortMessage(MidiStatus::kNoteOn, 0, 60, 100)), MidiCode::kNoDevice);
    EXPECT_EQ(midi.midiInStart(in), MidiCode::kNoDevice);
    EXPECT_EQ(midi.midiOutClose(out), 0);
    EXPECT_EQ(midi.midiInClose(in), 0);
    EXPECT_EQ(midi.midiOutOpen(out, 0), MidiCode::kNoDevice);
}

TEST_F(WinMidiTest, WhatIsClosedIsNotShownToTheSystemAgain)
{
    ASSERT_EQ(midi.midiOutOpen(out, 0), 0);
    ASSERT_EQ(midi.midiInOpen(in, 0, {&Heard::Proc, &heard}), 0);
    EXPECT_EQ(midi.midiOutClose(out), 0);
    EXPECT_EQ(midi.midiInClose(in), 0);
    const std::string before = Log();
    EXPECT_EQ(midi.midiOutShortMsg(out, ShortMessage(MidiStatus::kNoteOn, 0, 60, 100)), 5);
    EXPECT_EQ(midi.midiInStart(in), 5);
    EXPECT_EQ(midi.midiInStop(in), 5);
    EXPECT_EQ(midi.midiConnect(in, out), 5);
    EXPECT_EQ(midi.midiDisconnect(in, out), 5);
    EXPECT_EQ(midi.midiOutClose(out), 0);
    EXPECT_EQ(midi.midiInClose(in), 0);
    EXPECT_EQ(midi.midiOutClose(0), 0);
    EXPECT_EQ(Log(), before);
}

TEST_F(WinMidiTest, AnInputIsHeardOnAThreadOfTheSystems)
{
    ASSERT_EQ(midi.midiInOpen(in, 0, {&Heard::Proc, &heard}), 0);
    Paper("receive 0 403C90 7");
    EXPECT_EQ(midi.midiInStart(in), 0);
    Paper("receive 0 643C90 1234");
    EXPECT_NE(heard.thread, ::GetCurrentThreadId());
    EXPECT_EQ(midi.midiInStop(in), 0);
    Paper("receive 0 003C80 1300");
    EXPECT_EQ(midi.midiInClose(in), 0);
    EXPECT_THAT(heard.calls, ElementsAre(std::array<std::uint32_t, 4>{in, MidiInMessage::kOpen, 0, 0},
                                         std::array<std::uint32_t, 4>{in, MidiInMessage::kData, 0x643C90, 1234},
                                         std::array<std::uint32_t, 4>{in, MidiInMessage::kClose, 0, 0}));
    EXPECT_THAT(Log(), HasSubstr("midiInOpen 0 196608 = 0\n"));
}

TEST_F(WinMidiTest, ThruIsTheSystemsOwn)
{
    ASSERT_EQ(midi.midiOutOpen(out, 1), 0);
    ASSERT_EQ(midi.midiInOpen(in, 0, {&Heard::Proc, &heard}), 0);
    EXPECT_EQ(midi.midiConnect(in, out), 0);
    EXPECT_EQ(midi.midiConnect(in, out), 67) << "it is connected";
    EXPECT_EQ(midi.midiInStart(in), 0);
    Paper("receive 0 643C90 5");
    EXPECT_THAT(Log(), HasSubstr("midiConnect 0 1 = 0\n"));
    EXPECT_THAT(Log(), HasSubstr("thru 1 643C90\n"));
    EXPECT_EQ(midi.midiDisconnect(in, out), 0);
    EXPECT_EQ(midi.midiDisconnect(in, out), 11) << "nothing is connected";
}

TEST_F(WinMidiTest, WhatIsOpenIsClosedAtTheEnd)
{
    {
        WinMidi other;
        ASSERT_EQ(other.midiOutOpen(out, 0), 0);
        ASSERT_EQ(other.midiInOpen(in, 0, {&Heard::Proc, &heard}), 0);
    }
    EXPECT_THAT(Log(), HasSubstr("midiInClose 0 = 0\nmidiOutClose 0 = 0\n"));
    EXPECT_EQ(midi.midiOutOpen(out, 0), 0);
}

TEST_F(WinMidiTest, NotesAndPedalsEndBeforeTheirOutputCloses)
{
    ASSERT_EQ(midi.midiOutOpen(out, 0), 0);
    for (const ShortMessage message :
         {ShortMessage(MidiStatus::kNoteOn, 0, 60, 100), ShortMessage(MidiStatus::kNoteOn, 0, 62, 100),
          ShortMessage(MidiStatus::kNoteOff, 0, 60, 0), ShortMessage(MidiStatus::kControlChange, 1, 64, 127)}) {
        EXPECT_EQ(midi.midiOutShortMsg(out, message), 0);
    }
    const std::size_t before = Log().size();
    EXPECT_EQ(midi.midiOutClose(out), 0);
    EXPECT_EQ(Log().substr(before), "midiOutShortMsg 0 403E80 = 0\nmidiOutShortMsg 0 0040B1 = 0\nmidiOutClose 0 = 0\n");
}

TEST_F(WinMidiTest, NotesEndWithTheProgramToo)
{
    {
        WinMidi other;
        ASSERT_EQ(other.midiOutOpen(out, 0), 0);
        ASSERT_EQ(other.midiOutShortMsg(out, ShortMessage(MidiStatus::kNoteOn, 0, 60, 100)), 0);
    }
    EXPECT_THAT(Log(), HasSubstr("midiOutShortMsg 0 403C80 = 0\nmidiOutClose 0 = 0\n"));
}

TEST_F(WinMidiTest, ANoteThatTheSystemRefusedIsNotEnded)
{
    ASSERT_EQ(midi.midiOutOpen(out, 0), 0);
    Paper("fail midiOutShortMsg 65");
    EXPECT_EQ(midi.midiOutShortMsg(out, ShortMessage(MidiStatus::kNoteOn, 0, 60, 100)), 65);
    Paper("fail midiOutShortMsg 0");
    EXPECT_EQ(midi.midiOutClose(out), 0);
    EXPECT_THAT(Log(), testing::Not(HasSubstr("403C80")));
}

TEST_F(WinMidiTest, NotesOnADeviceThatWentEndWhenItIsOpenedAgain)
{
    ASSERT_EQ(midi.midiOutOpen(out, 0), 0);
    ASSERT_EQ(midi.midiOutShortMsg(out, ShortMessage(MidiStatus::kNoteOn, 0, 60, 100)), 0);
    Paper("pull out 0");
    EXPECT_EQ(midi.midiOutClose(out), 0);
    Paper("plug out 0");
    MidiHandle other = 0;
    ASSERT_EQ(midi.midiOutOpen(other, 1), 0);
    EXPECT_EQ(midi.midiOutClose(other), 0);
    const std::size_t before = Log().size();
    ASSERT_EQ(midi.midiOutOpen(out, 0), 0);
    EXPECT_EQ(Log().substr(before), "midiOutOpen 0 0 = 0\nmidiOutShortMsg 0 403C80 = 0\n");
    EXPECT_EQ(midi.midiOutClose(out), 0);
    EXPECT_THAT(Log(), testing::EndsWith("midiOutShortMsg 0 403C80 = 0\nmidiOutClose 0 = 0\n")) << "once";
}

// With Thru on, and a note held on it.
class WinThruTest : public WinMidiTest {
protected:
    WinThruTest()
    {
        EXPECT_EQ(midi.midiOutOpen(out, 1), 0);
        EXPECT_EQ(midi.midiInOpen(in, 0, {&Heard::Proc, &heard}), 0);
        EXPECT_EQ(midi.midiInStart(in), 0);
        Paper("receive 0 643E90 4"); // before Thru
        EXPECT_EQ(midi.midiConnect(in, out), 0);
        Paper("receive 0 643C90 5");
        before_ = Log().size();
    }
    [[nodiscard]] std::string LogSince() const { return Log().substr(before_); }

private:
    std::size_t before_ = 0;
};

TEST_F(WinThruTest, ItsNotesEndWithIt)
{
    EXPECT_EQ(midi.midiDisconnect(in, out), 0);
    EXPECT_EQ(LogSince(), "midiDisconnect 0 1 = 0\nmidiOutShortMsg 1 403C80 = 0\n");
    Paper("receive 0 643D90 6");
    EXPECT_EQ(midi.midiOutClose(out), 0);
    EXPECT_THAT(LogSince(), testing::EndsWith("403C80 = 0\nmidiOutClose 1 = 0\n")) << "what came later was not Thru's";
}

TEST_F(WinThruTest, ItsNotesEndWhereTheInputStopsOrCloses)
{
    EXPECT_EQ(midi.midiInStop(in), 0);
    EXPECT_EQ(LogSince(), "midiInStop 0 = 0\nmidiOutShortMsg 1 403C80 = 0\n");
    EXPECT_EQ(midi.midiInStart(in), 0);
    Paper("receive 0 643D90 7");
    EXPECT_EQ(midi.midiInClose(in), 0);
    EXPECT_THAT(LogSince(), testing::EndsWith("midiInClose 0 = 0\nmidiOutShortMsg 1 403D80 = 0\n"));
}

TEST_F(WinThruTest, ItsNotesEndBeforeTheOutputCloses)
{
    EXPECT_EQ(midi.midiOutClose(out), 0);
    EXPECT_EQ(LogSince(), "midiOutShortMsg 1 403C80 = 0\nmidiOutClose 1 = 0\n");
}

TEST_F(WinThruTest, WhereItCouldNotEndItsNotesSoundOn)
{
    Paper("fail midiDisconnect 65");
    EXPECT_EQ(midi.midiDisconnect(in, out), 65);
    EXPECT_EQ(LogSince(), "midiDisconnect 0 1 = 65\n");
}

TEST_F(WinMidiTest, WhereThruDidNotComeAboutNothingOfItEnds)
{
    ASSERT_EQ(midi.midiOutOpen(out, 1), 0);
    ASSERT_EQ(midi.midiInOpen(in, 0, {&Heard::Proc, &heard}), 0);
    Paper("fail midiConnect 67");
    EXPECT_EQ(midi.midiConnect(in, out), 67);
    EXPECT_EQ(midi.midiInStart(in), 0);
    Paper("receive 0 643C90 5");
    EXPECT_EQ(midi.midiInStop(in), 0);
    EXPECT_EQ(midi.midiOutClose(out), 0);
    EXPECT_THAT(Log(), testing::Not(HasSubstr("midiOutShortMsg")));
}

} // namespace
} // namespace velluto::test
