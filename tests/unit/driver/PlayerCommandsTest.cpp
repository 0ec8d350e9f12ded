// What the commands say and do about the player: its device, its folder lists, its variables, its waiting handlers.
#include "unit/driver/DriverTest.h"
#include "unit/support/NativePath.h"

namespace velluto::driver {
namespace {

class PlayerCommands : public DriverTest {
protected:
    PlayerCommands()
    {
        std::filesystem::create_directory(folder.At("d"));
        for (const char *name : {"d/a.mid", "d/b.mid"}) {
            test::WriteBytes(folder.At(name), test::Bytes{1, 2, 3});
        }
    }
    void StartPlayer(const std::string &language = "en")
    {
        Ok("device out One");
        Ok("device in One");
        Ok("start " + language);
        Ok("menu mnuMidiPlayer");
        Ok("press frmMIDIPlayer CommSel");
        Ok("set frmMIDIPlayer DirMidiSel d");
    }
    [[nodiscard]] Json Shown(const std::string &control) { return Ok("show frmMIDIPlayer " + control).at("controls").at(control); }
};

TEST_F(PlayerCommands, AFolderIsSetByItsPathAndShownAsText)
{
    StartPlayer();
    EXPECT_EQ(Shown("DirMidiSel").at("text"), folder.At("d"));
    EXPECT_EQ(Shown("ListMidiSel").at("rows"), (Json{"a.mid   (3)", "b.mid   (3)"}));
    Ok("set frmMIDIPlayer DirMidiSel nowhere"); // what cannot be opened leaves all as it was
    EXPECT_EQ(Shown("DirMidiSel").at("text"), folder.At("d"));
}

TEST_F(PlayerCommands, ADriveIsSetByItsPathAndShownAsText)
{
    StartPlayer();
    const std::string drive = test::Root();
    Ok("set frmMIDIPlayer DriveMidiSel " + drive);
    EXPECT_EQ(Shown("DriveMidiSel").at("text"), drive);
    EXPECT_EQ(Shown("DirMidiSel").at("text"), drive);
    Ok("set frmMIDIPlayer DriveMidiSel d"); // taken for one that has just been mounted
    EXPECT_EQ(Shown("DriveMidiSel").at("text"), folder.At("d"));
    EXPECT_EQ(Error("set frmMIDIPlayer DriveMidiSel nowhere"), "no drive nowhere");
}

TEST_F(PlayerCommands, TogglesShowTheirColour)
{
    StartPlayer();
    EXPECT_EQ(Shown("CommRep").at("color"), 0xF0F0F0);
    Ok("press frmMIDIPlayer CommRep");
    EXPECT_EQ(Shown("CommRep").at("color"), 0x00FF00);
}

TEST_F(PlayerCommands, TheSequencerKnowsWhatItWasTold)
{
    StartPlayer();
    Ok("seq define d/a.mid 40");
    Ok(R"(seq refuse d/b.mid 300 "It will not open.")");
    Ok("seq rate 10");
    Ok("click frmMIDIPlayer ListMidiSel 0");
    EXPECT_EQ(Ok("value Mode").at("value"), 525);
    EXPECT_EQ(Ok("value Length").at("value"), 40);
    EXPECT_EQ(Ok("value Command").at("value"), "open");
    Ok("press frmMIDIPlayer MCIPuls(2)");
    Ok("clock 100");
    EXPECT_EQ(Ok("value Position").at("value"), 10);
    Ok("clock 300");
    EXPECT_EQ(Ok("value Mode").at("value"), 525); // the end, told and handled
    EXPECT_EQ(Ok("value Command").at("value"), "stop");
    Ok("click frmMIDIPlayer ListMidiSel 1");
    EXPECT_EQ(Ok("value Error").at("value"), 0); // of the close behind it
    EXPECT_EQ(Ok("boxes").at("boxes").at(0).at("text"), "It will not open.");
}

TEST_F(PlayerCommands, WhatItWasNotToldOfIsReadForReal)
{
    // One track with one beat of 96 ticks: four positions.
    test::WriteBytes(folder.At("d/c.mid"), {'M', 'T', 'h', 'd', 0,  0, 0,    6,  0,  0,  0,    1,  0, 96, 'M',  'T',  'r',
                                            'k', 0,   0,   0,   12, 0, 0x90, 60, 64, 96, 0x80, 60, 0, 0,  0xFF, 0x2F, 0});
    StartPlayer();
    Ok("click frmMIDIPlayer ListMidiSel 2");
    EXPECT_EQ(Ok("value Length").at("value"), 4);
    Ok("click frmMIDIPlayer ListMidiSel 0"); // three bytes are no MIDI file
    EXPECT_EQ(Ok("boxes").at("boxes").size(), 1U);
    Ok("fault read d/c.mid 57");
    Ok("click frmMIDIPlayer ListMidiSel 2");
    EXPECT_EQ(Ok("boxes").at("boxes").at(0).at("text"), "The MIDI file cannot be read.");
    std::filesystem::remove(folder.At("d/c.mid"));
    Ok("click frmMIDIPlayer ListMidiSel 2");
    EXPECT_EQ(Ok("boxes").at("boxes").at(0).at("text"), "The MIDI file cannot be found.");
}

TEST_F(PlayerCommands, ARefusalIsInTheLanguageOfTheRun)
{
    StartPlayer("it");
    Ok("click frmMIDIPlayer ListMidiSel 0");
    EXPECT_EQ(Ok("boxes").at("boxes").at(0).at("text"), "Questo non è un file MIDI.");
}

TEST_F(PlayerCommands, AWaitingHandlerLetsOtherCommandsIn)
{
    StartPlayer();
    Ok("seq define d/a.mid 10");
    Ok("seq define d/b.mid 10");
    Ok("click frmMIDIPlayer ListMidiSel 0");
    Ok("press frmMIDIPlayer CommPlayAll");
    Ok("press frmMIDIPlayer MCIPuls(2)");
    Ok("clock 1300");
    EXPECT_EQ(Ok("value Mode").at("value"), 524);
    EXPECT_EQ(Shown("ListMidiSel").at("selected"), Json{1});
    Ok("clock 300");
    EXPECT_EQ(Ok("value Mode").at("value"), 526);
    Ok("clock 1100");
    EXPECT_EQ(Ok("exit").at("running"), false);
    EXPECT_EQ(Ok("start none").at("running"), true); // nothing of the wait is left
    Ok("clock 5000");
    EXPECT_EQ(Ok("value Mode").at("value"), 524);
}

TEST_F(PlayerCommands, ThePlayersVariablesHaveTheirNames)
{
    StartPlayer();
    Ok("seq define d/a.mid 10");
    Ok("click frmMIDIPlayer ListMidiSel 0");
    EXPECT_EQ(Ok("value MarksActive").at("value"), false);
    EXPECT_EQ(Ok("value TrackLength").at("value"), 10);
    EXPECT_EQ(Ok("value TickMap").at("value").size(), 30001U);
    EXPECT_EQ(Ok("value TickMap(30000)").at("value"), 0);
    EXPECT_EQ(Ok("value PlayDir").at("value"), folder.At("d"));
    Ok("press frmMIDIPlayer CommNuovo");
    Ok("press frmMIDIPlayer CommAdd");
    EXPECT_EQ(Ok("value CompilationDirty").at("value"), true);
    const std::string image = Ok("value CompilationImage").at("value");
    EXPECT_EQ(image, "\x01" + folder.At("d") + std::string("\0a.mid\0\xC3\xBF", 9));
    Ok("close frmMIDIPlayer");
    EXPECT_EQ(Ok("value Command").at("value"), "open");
}

TEST_F(PlayerCommands, TheEndOfTheFileComesBeforeTheTimersOfItsMoment)
{
    StartPlayer();
    Ok("seq define d/a.mid 10");
    Ok("click frmMIDIPlayer ListMidiSel 0");
    Ok("press frmMIDIPlayer MCIPuls(2)");
    Ok("clock 1000"); // Timer1 would look at that moment
    EXPECT_EQ(Shown("LabTrackPosition").at("caption"), "7 (70%)");
    EXPECT_EQ(Shown("Timer1").at("enabled"), false);
    EXPECT_EQ(Ok("value TickCount").at("value"), 5);
}

} // namespace
} // namespace velluto::driver
