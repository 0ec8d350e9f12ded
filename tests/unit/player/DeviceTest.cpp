// The device as one window sees it, and the routines that all of the player shares.
#include "player/PlayerDisplay.h"

#include "unit/player/PlayerRun.h"

namespace velluto::test {
namespace {

using Device = PlayerRun;

TEST_F(Device, BeginsWithoutAFileAndWithoutACommand)
{
    Start();
    EXPECT_EQ(device().Mode(), 524);
    EXPECT_EQ(device().Command(), "");
    EXPECT_FALSE(device().visible);
    EXPECT_EQ(Buttons(), "1111111"); // no last command: as the form has them
}

TEST_F(Device, IsNotClosedWithItsWindowAndBeginsAnewWithTheNext)
{
    Song("d/a.mid", 50);
    StartWithPanel();
    DoubleClick(form().ListMidiSel, 0);
    Clock(1000);
    Do("close frmMIDIPlayer");
    EXPECT_EQ(session.sequencer.Mode(), 525); // stopped, with its file open
    EXPECT_FALSE(session.ticks.Running());
    Start();
    EXPECT_EQ(device().Mode(), 524);
    EXPECT_EQ(device().Command(), "");
    EXPECT_EQ(Buttons(), "1111111");
    Clock(10000);
    EXPECT_EQ(device().Command(), ""); // nothing is heard of the file before
}

TEST_F(Device, WhatPausesIsStoppedWithItsWindowToo)
{
    Song("d/a.mid", 50);
    StartWithPanel();
    DoubleClick(form().ListMidiSel, 0);
    Press(form().MCIPuls[3]);
    EXPECT_EQ(device().Mode(), 529);
    Do("close frmMIDIPlayer");
    EXPECT_EQ(session.sequencer.Mode(), 525);
}

TEST_F(Device, WhatEndsWithoutAWindowIsToldToNobody)
{
    Song("d/a.mid", 50);
    StartWithPanel();
    DoubleClick(form().ListMidiSel, 0);
    Press(form().CommPlayAll);
    Do("close frmMIDIPlayer");
    Clock(60000);
    EXPECT_EQ(session.sequencer.Mode(), 525);
    EXPECT_EQ(session.sequencer.Command(), "stop"); // no second file was begun
}

TEST_F(Device, TheCaptionNamesTheFile)
{
    Start();
    ShowPlayerCaption(form(), Native("/somewhere/my song.mid"));
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER - my song.mid");
    ShowPlayerCaption(form(), "");
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER - ");
    ResetPlayerCaption(form());
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER");
}

TEST_F(Device, TheLastCommandDecidesWhichButtonsAreOn)
{
    Song("d/a.mid", 50);
    Start();
    device().FileName = At("d/a.mid");
    const auto after = [this](const char *command) {
        device().Command(command);
        UpdateTransportButtons(form());
        return Buttons();
    };
    EXPECT_EQ(after("open"), "1110000");
    EXPECT_EQ(after("play"), "1101111");
    EXPECT_EQ(after("pause"), "1111111");
    EXPECT_EQ(after("stop"), "1110000");
    EXPECT_EQ(after("play"), "1101111");
    EXPECT_EQ(after("rewind"), "1101111"); // any other word leaves them
    EXPECT_EQ(after("close"), "0000000");
}

TEST_F(Device, AReasonIsToldInTheLanguageOfTheRun)
{
    Start();
    session.sequencer.songs[At("gone.mid")] = {0, SequencerError::kFileNotFound, {Refusal::Why::NotFound}};
    device().FileName = At("gone.mid");
    for (const auto &[base, text] :
         {std::pair(kItalianBase, "Il file MIDI non si trova."), std::pair(kEnglishBase, "The MIDI file cannot be found.")}) {
        form().app.messages.LinguaBase = base;
        device().Command("open");
        EXPECT_EQ(CheckDeviceError(form()), SequencerError::kFileNotFound);
        EXPECT_EQ(session.face.boxes.back().text, text);
    }
}

TEST_F(Device, AnErrorIsToldInTheDevicesOwnWords)
{
    Start();
    session.sequencer.songs[At("bad.mid")] = {0, 301, InWords("This is no MIDI file.")};
    device().FileName = At("bad.mid");
    device().Command("open");
    EXPECT_EQ(CheckDeviceError(form()), 301);
    ASSERT_EQ(session.face.boxes.size(), 1U);
    EXPECT_EQ(session.face.boxes[0].text, "This is no MIDI file.");
    EXPECT_EQ(session.face.boxes[0].title, "Velluto v 1.1");
    device().Command("close");
    EXPECT_EQ(CheckDeviceError(form()), 0);
    EXPECT_EQ(session.face.boxes.size(), 1U);
}

TEST_F(Device, ResetOfTheTimeDisplay)
{
    Start();
    form().Line1.SetX(500);
    form().Label1.caption = std::string("3:21");
    form().LabTrackPosition.caption = std::string("17 (3%)");
    state().TickCount = 7;
    ResetTimeDisplay(form());
    EXPECT_EQ(form().Line1.X1(), 30);
    EXPECT_EQ(form().Line1.place.Get().width, 0);
    EXPECT_EQ(form().Label1.caption.Get(), "0:00");
    EXPECT_EQ(form().LabTrackPosition.caption.Get(), "0");
    EXPECT_EQ(state().TickCount, 0);
}

} // namespace
} // namespace velluto::test
