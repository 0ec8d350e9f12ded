// Taking stock of the devices at start, and reopening the saved ones.
#include "midi/Survey.h"
#include "unit/support/MidiLink.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

TEST(Survey, NoOutputInputsPresentOneBoxAndNoCountOfInputs)
{
    MidiLink link;
    link.AddIns(2);
    link.Survey();
    EXPECT_EQ(link.BoxTexts(), (Texts{"Output MIDI Device not found"}));
    EXPECT_EQ(link.face.boxes[0].title, "Velluto v 1.1");
    EXPECT_FALSE(link.app.frame.mnuMIDIOut.enabled);
    EXPECT_FALSE(link.app.frame.mnuMIDIThru.enabled);
    EXPECT_TRUE(link.app.frame.mnuMIDIIn.enabled);
    EXPECT_EQ(link.midi.MidiInCount, 0);
    EXPECT_TRUE(link.midi.NoMidiOut);
    EXPECT_FALSE(link.midi.NoMidiIn);
}

TEST(Survey, TheSavedNumbersAreSaidBeforeTheFirstCount)
{
    struct Watched : StandinMidi {
        std::vector<int> said;
        void Expect(int out, int in) override { said = {out, in}; }
        int midiOutGetNumDevs() override
        {
            EXPECT_EQ(said, (std::vector{3, 5}));
            return StandinMidi::midiOutGetNumDevs();
        }
    } watched;
    MidiLink link;
    Modulo1 app{Ports{link.files, watched, link.clock, link.printer, link.sequencer, link.folders, link.ticks}, link.face};
    MidiState midi{app};
    app.settings.MidiOutDev = 3;
    app.settings.MidiInDev = 5;
    SurveyMidiDevices(midi, [] {});
    EXPECT_FALSE(watched.said.empty());
}

TEST(Survey, TheFrameIsLoadedBeforeItsEntriesAreDisabled)
{
    MidiLink link;
    SurveyMidiDevices(link.midi, [&link] {
        ++link.frameLoads;
        EXPECT_EQ(link.face.boxes.size(), 1U);
        EXPECT_TRUE(link.app.frame.mnuMIDIOut.enabled);
        EXPECT_TRUE(link.app.frame.mnuMIDIThru.enabled);
    });
    EXPECT_EQ(link.frameLoads, 1);
    EXPECT_FALSE(link.app.frame.mnuMIDIOut.enabled);
}

TEST(Survey, NoOutputInItalian)
{
    MidiLink link;
    link.app.messages.LinguaBase = 0;
    link.Survey();
    EXPECT_EQ(link.BoxTexts(), (Texts{"Dispositivo MIDI di Uscita assente"}));
}

TEST(Survey, OutputsWithoutAnInputOneBoxAndTheSavedOutputStaysClosed)
{
    MidiLink link;
    link.AddOuts(1);
    link.app.settings.MidiOutDev = 0;
    link.app.settings.ThruOn = true;
    link.Survey();
    EXPECT_EQ(link.BoxTexts(), (Texts{"MIDI input device not found"}));
    EXPECT_EQ(link.face.boxes[0].title, "Velluto v 1.1");
    EXPECT_FALSE(link.midi.MidiOutOpen);
    EXPECT_TRUE(link.devices.calls.empty());
    EXPECT_TRUE(link.midi.NoMidiIn);
    EXPECT_FALSE(link.midi.NoMidiOut);
    EXPECT_TRUE(link.app.frame.mnuMIDIOut.enabled);
    EXPECT_FALSE(link.app.frame.mnuMIDIThru.enabled);
    EXPECT_EQ(link.frameLoads, 1);
    EXPECT_EQ(link.app.settings.MidiOutDev, 0);
}

TEST(Survey, NoInputInItalian)
{
    MidiLink link;
    link.app.messages.LinguaBase = 0;
    link.AddOuts(1);
    link.Survey();
    EXPECT_EQ(link.BoxTexts(), (Texts{"Dispositivo MIDI di ingresso assente"}));
}

TEST(Survey, WithoutADeviceThruOnKeepsItsSavedValue)
{
    MidiLink noOut;
    noOut.app.settings.ThruOn = true;
    noOut.Survey();
    EXPECT_TRUE(noOut.app.settings.ThruOn);
    MidiLink noIn;
    noIn.AddOuts(1);
    noIn.app.settings.ThruOn = true;
    noIn.Survey();
    EXPECT_TRUE(noIn.app.settings.ThruOn);
}

TEST(Survey, OfNineOutputsSevenAreUsed)
{
    MidiLink link;
    link.AddOuts(9);
    link.AddIns(8);
    link.Survey();
    EXPECT_EQ(link.midi.MidiOutCount, 7);
    EXPECT_EQ(link.midi.MidiInCount, 7);
    EXPECT_EQ(link.midi.MidiOutValid, (std::array<std::int16_t, 8>{1, 1, 1, 1, 1, 1, 1, 0}));
    EXPECT_EQ(link.midi.MidiInValid, (std::array<std::int16_t, 8>{1, 1, 1, 1, 1, 1, 1, 0}));
}

TEST(Survey, ADeviceWhoseQueryFailsIsNotValid)
{
    MidiLink link;
    link.AddOuts(3);
    link.AddIns(1);
    link.devices.outs[1].codes.caps = 2;
    link.Survey();
    EXPECT_EQ(link.midi.MidiOutValid, (std::array<std::int16_t, 8>{1, 0, 1, 0, 0, 0, 0, 0}));
    EXPECT_STREQ(link.midi.MidiOutCaps[2].name.data(), "Out 2");
}

TEST(Survey, AnInputWhoseQueryFailsIsNotValidAndStaysClosed)
{
    MidiLink link;
    link.AddOuts(1);
    link.AddIns(2);
    link.devices.ins[1].codes.caps = 2;
    link.app.settings.MidiOutDev = 0;
    link.app.settings.MidiInDev = 1;
    link.app.settings.ThruOn = true;
    link.Survey();
    EXPECT_EQ(link.midi.MidiInValid, (std::array<std::int16_t, 8>{1, 0, 0, 0, 0, 0, 0, 0}));
    EXPECT_TRUE(link.midi.MidiOutOpen);
    EXPECT_FALSE(link.midi.MidiInOpen);
    EXPECT_FALSE(link.app.settings.ThruOn);
    EXPECT_TRUE(link.face.boxes.empty());
}

TEST(Survey, ThePathIsArmedWithAndWithoutADevice)
{
    MidiLink none;
    none.Survey();
    EXPECT_TRUE(none.midi.SendArmed);
    MidiLink outputs;
    outputs.AddOuts(1);
    outputs.Survey();
    EXPECT_TRUE(outputs.midi.SendArmed);
}

TEST(Survey, SavedOutput99OpensNothingAndShowsNothing)
{
    MidiLink link;
    link.AddOuts(1);
    link.AddIns(1);
    link.app.settings.MidiInDev = 0;
    link.app.settings.ThruOn = true;
    link.Survey();
    EXPECT_TRUE(link.devices.calls.empty());
    EXPECT_TRUE(link.face.boxes.empty());
    EXPECT_FALSE(link.app.settings.ThruOn);
    EXPECT_EQ(link.frameLoads, 0);
}

TEST(Survey, SavedInput99LeavesTheOutputOpenAndForcesThruOff)
{
    MidiLink link;
    link.AddOuts(1);
    link.AddIns(1);
    link.app.settings.MidiOutDev = 0;
    link.app.settings.ThruOn = true;
    link.Survey();
    EXPECT_TRUE(link.midi.MidiOutOpen);
    EXPECT_FALSE(link.midi.MidiInOpen);
    EXPECT_FALSE(link.app.settings.ThruOn);
}

TEST(Survey, BothSavedDevicesOpenAndThruOnStaysAsSaved)
{
    MidiLink link;
    link.AddOuts(2);
    link.AddIns(2);
    link.app.settings.MidiOutDev = 1;
    link.app.settings.MidiInDev = 1;
    link.app.settings.ThruOn = true;
    link.Survey();
    EXPECT_EQ(link.devices.calls, (Texts{"midiOutOpen 1", "midiInOpen 1"}));
    EXPECT_TRUE(link.midi.MidiOutOpen);
    EXPECT_TRUE(link.midi.MidiInOpen);
    EXPECT_TRUE(link.app.settings.ThruOn);
    EXPECT_FALSE(link.midi.ThruEnabledAtLoad);
    EXPECT_TRUE(link.devices.thru.empty()); // a saved Thru is not connected at start
}

TEST(Survey, AnOutputThatDoesNotOpenIsToldAndForcesThruOff)
{
    MidiLink link;
    link.AddOuts(1);
    link.AddIns(1);
    link.devices.outs[0].codes.open = 4;
    link.app.settings.MidiOutDev = 0;
    link.app.settings.MidiInDev = 0;
    link.app.settings.ThruOn = true;
    link.Survey();
    EXPECT_EQ(link.BoxTexts(), (Texts{"Output MIDI Device already in use"}));
    EXPECT_EQ(link.devices.calls, (Texts{"midiOutOpen 0"}));
    EXPECT_FALSE(link.app.settings.ThruOn);
    EXPECT_EQ(link.app.settings.MidiOutDev, 0);
}

TEST(Survey, AnInputThatDoesNotOpenIsToldAndForcesThruOff)
{
    MidiLink link;
    link.AddOuts(1);
    link.AddIns(1);
    link.devices.ins[0].codes.open = 7;
    link.app.settings.MidiOutDev = 0;
    link.app.settings.MidiInDev = 0;
    link.app.settings.ThruOn = true;
    link.Survey();
    EXPECT_EQ(link.BoxTexts(), (Texts{"Error opening MIDI input device (Cod Err: 507)"}));
    EXPECT_TRUE(link.midi.MidiOutOpen);
    EXPECT_FALSE(link.app.settings.ThruOn);
}

TEST(Survey, ANumberWithoutAValidRecordStaysClosedWithoutAWord)
{
    for (const int number : {3, 7, 8, 98, 255, -1}) {
        MidiLink link;
        link.AddOuts(2);
        link.AddIns(1);
        link.app.settings.MidiOutDev = number;
        link.app.settings.MidiInDev = 0;
        link.Survey();
        EXPECT_TRUE(link.devices.calls.empty()) << number;
        EXPECT_TRUE(link.face.boxes.empty()) << number;
    }
    for (const int number : {3, 7, 8, 98, 255, -1}) {
        MidiLink link;
        link.AddOuts(1);
        link.AddIns(2);
        link.app.settings.MidiOutDev = 0;
        link.app.settings.MidiInDev = number;
        link.Survey();
        EXPECT_EQ(link.devices.calls, (Texts{"midiOutOpen 0"})) << number;
        EXPECT_TRUE(link.face.boxes.empty()) << number;
    }
}

} // namespace
} // namespace velluto::test
