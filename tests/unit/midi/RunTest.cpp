// The MIDI link in whole runs of the program: what the settings bring back, and what the menus then show.
#include "midi/frmMIDISetup.h"
#include "midi/frmMsgEx.h"
#include "unit/support/TestProgram.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

// A run over the folder of an earlier one in which both devices were chosen, and Thru where wanted.
std::shared_ptr<TempFolder> FolderWithDevices(bool thru)
{
    TestProgram run;
    run.Start(TestProgram::English);
    frmMain &frame = run.program.app.frame;
    EXPECT_TRUE(run.Choose(frame.mnuDevMIDIOut[0]));
    EXPECT_TRUE(run.Choose(frame.mnuDevMIDIIn[0]));
    if (thru) {
        EXPECT_TRUE(run.Choose(frame.mnuMIDIThru));
    }
    EXPECT_TRUE(run.Exit());
    return run.folder;
}

TEST(Run, AFirstRunOpensNothingAndShowsNothing)
{
    TestProgram run;
    run.Start();
    EXPECT_TRUE(run.midi.calls.empty());
    EXPECT_TRUE(run.face.boxes.empty());
    EXPECT_FALSE(run.program.app.frame.mnuMIDIThru.enabled);
}

TEST(Run, TheChosenDevicesAreOpenAgainInTheNextRun)
{
    TestProgram run(FolderWithDevices(false));
    run.Start();
    EXPECT_EQ(run.midi.calls, (std::vector<std::string>{"midiOutOpen 0", "midiInOpen 0"}));
    EXPECT_TRUE(run.program.app.frame.mnuDevMIDIOut[0].checked);
    EXPECT_TRUE(run.program.app.frame.mnuDevMIDIIn[0].checked);
}

TEST(Run, AnOutputSwitchedOffStaysOffInTheNextRun)
{
    const auto folder = FolderWithDevices(false);
    {
        TestProgram run(folder);
        run.Start();
        run.Choose(run.program.app.frame.mnuDevMIDIOut[0]);
        run.Exit();
    }
    TestProgram run(folder);
    run.Start();
    EXPECT_TRUE(run.midi.calls.empty());
    EXPECT_EQ(run.program.app.settings.MidiOutDev, 99);
}

TEST(Run, ASavedThruComesBackAsACheckMarkOnADisabledEntry)
{
    TestProgram run(FolderWithDevices(true));
    run.Start();
    EXPECT_TRUE(run.program.app.settings.ThruOn);
    EXPECT_TRUE(run.program.app.frame.mnuMIDIThru.checked);
    EXPECT_FALSE(run.program.app.frame.mnuMIDIThru.enabled);
    EXPECT_TRUE(run.midi.thru.empty());
}

TEST(Run, AnotherChoiceOfADeviceAndTwoClicksBringThruBack)
{
    TestProgram run(FolderWithDevices(true));
    run.Start();
    frmMain &frame = run.program.app.frame;
    run.Choose(frame.mnuDevMIDIOut[0]); // off
    run.Choose(frame.mnuDevMIDIOut[0]); // on again
    ASSERT_TRUE(frame.mnuMIDIThru.enabled);
    EXPECT_TRUE(frame.mnuMIDIThru.checked);
    run.Choose(frame.mnuMIDIThru);
    EXPECT_FALSE(frame.mnuMIDIThru.checked);
    run.midi.thru.clear();
    run.Choose(frame.mnuMIDIThru);
    EXPECT_TRUE(frame.mnuMIDIThru.checked);
    ASSERT_EQ(run.midi.thru.size(), 2U);
    EXPECT_EQ(run.midi.thru[0].kind, ThruEvent::Kind::Connect);
    EXPECT_EQ(run.midi.thru[1].kind, ThruEvent::Kind::Start);
}

TEST(Run, AConnectThatFailedIsSavedAsOff)
{
    const auto folder = FolderWithDevices(false);
    {
        TestProgram run(folder);
        run.midi.ins[0].codes.connect = 67;
        run.Start();
        run.Choose(run.program.app.frame.mnuDevMIDIOut[0]);
        run.Choose(run.program.app.frame.mnuDevMIDIOut[0]);
        run.Choose(run.program.app.frame.mnuMIDIThru);
        EXPECT_TRUE(run.program.app.frame.mnuMIDIThru.checked);
        run.Exit();
    }
    EXPECT_EQ(ReadBytes(folder->At("Velluto.ini")).at(20), 0);
}

TEST(Run, WithoutAnOutputTheFrameComesUpWithBothEntriesDisabled)
{
    TestProgram run;
    run.midi.outs.clear();
    run.Start(TestProgram::English);
    ASSERT_EQ(run.face.boxes.size(), 1U);
    EXPECT_EQ(run.face.boxes[0].text, "Output MIDI Device not found");
    EXPECT_FALSE(run.program.app.frame.mnuMIDIOut.enabled);
    EXPECT_FALSE(run.program.app.frame.mnuMIDIThru.enabled);
    EXPECT_TRUE(run.program.app.frame.mnuMIDIIn.enabled);
    EXPECT_NE(run.face.frame, nullptr);
}

TEST(Run, TheMonitorOpensFromTheViewMenuAndClosesAgain)
{
    TestProgram run;
    run.Start();
    frmMain &frame = run.program.app.frame;
    ASSERT_TRUE(run.Choose(frame.mnuMsgEx));
    EXPECT_FALSE(run.Choose(frame.mnuMsgEx)); // open already
    ASSERT_NE(run.program.midi.monitor, nullptr);
    EXPECT_TRUE(run.Close(*run.program.midi.monitor));
    EXPECT_EQ(run.program.midi.monitor, nullptr);
    EXPECT_TRUE(run.Choose(frame.mnuMsgEx));
}

TEST(Run, TheMonitorsPlaceIsKeptForTheNextRun)
{
    const auto folder = std::make_shared<TempFolder>();
    Place stored;
    {
        TestProgram run(folder);
        run.Start();
        run.Choose(run.program.app.frame.mnuMsgEx);
        frmMsgEx &form = *run.program.midi.monitor;
        run.program.app.children.Move(form, 300, 450);
        stored = form.place;
        run.Exit();
    }
    TestProgram run(folder);
    run.Start();
    run.Choose(run.program.app.frame.mnuMsgEx);
    EXPECT_EQ(run.program.midi.monitor->place.Get(), stored);
    EXPECT_EQ(run.program.app.settings.PlacementTable[8].State, 1);
}

TEST(Run, TheChannelSetupIsClosedWithTheFrameAndItsChoicesAreSaved)
{
    TestProgram run;
    run.Start();
    ASSERT_TRUE(run.Choose(run.program.app.frame.mnuMIDISetup));
    run.program.midi.setup->Combo1[16].ListIndex = 5;
    ASSERT_TRUE(run.Exit());
    EXPECT_EQ(run.Ini().at(499), 5);
    EXPECT_EQ(run.Ini().at(484), 2);
    EXPECT_EQ(run.Ini().at(485), 14);
}

TEST(Run, InTheChannelSetupTheEditMenuOffersNothing)
{
    TestProgram run;
    run.Start();
    run.Choose(run.program.app.frame.mnuMIDISetup);
    run.program.midi.setup->Form_MouseDown(MouseButton::Right);
    ASSERT_EQ(run.face.popUps.size(), 1U);
    for (MenuEntry *entry : run.program.app.frame.mnuModifica.children()) {
        EXPECT_TRUE(entry->IsSeparator() || !entry->enabled) << entry->FullName();
    }
}

} // namespace
} // namespace velluto::test
