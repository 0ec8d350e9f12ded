// The monitor: what it writes, when it is cleared, and its window.
#include "midi/Monitor.h"
#include "midi/MidiOut.h"
#include "midi/frmMsgEx.h"
#include "unit/support/MidiLink.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

struct MonitorLink : MidiLink {
    frmMsgEx &Open()
    {
        mnuMsgEx_Click(midi);
        return *midi.monitor;
    }
    Size Natural()
    {
        const Size a = face.MeasureA(Font{"courier new", 10, 400});
        return {64 * a.width + face.ChildFrame().width, 30 * a.height + face.ChildFrame().height};
    }
    WindowPlacement &entry = app.settings.PlacementTable[8];
};

void Report(MonitorLink &link, const std::vector<std::uint8_t> &bytes)
{
    MonitorReport(link.midi, bytes);
}

using Monitor = Linked<MonitorLink>;

TEST_F(Monitor, BytesAreWrittenInHexadecimalWithABlankEachAndAnEmptyLine)
{
    frmMsgEx &form = link.Open();
    Report(link, {0x90, 0x3C, 0x64});
    EXPECT_EQ(form.Text1.text.Get(), "90 3C 64 \r\n\r\n");
}

TEST_F(Monitor, EachReportIsAppended)
{
    frmMsgEx &form = link.Open();
    Report(link, {0xB0});
    Report(link, {0xFF, 0x0A});
    EXPECT_EQ(form.Text1.text.Get(), "B0 \r\n\r\nFF 0A \r\n\r\n");
}

TEST_F(Monitor, AnEmptyTextClears)
{
    frmMsgEx &form = link.Open();
    Report(link, {0xB0});
    MonitorReport(link.midi, {});
    EXPECT_EQ(form.Text1.text.Get(), "");
}

TEST_F(Monitor, ASingleByte0IsTwoZerosAndNotAnEmptyText)
{
    frmMsgEx &form = link.Open();
    Report(link, {0});
    EXPECT_EQ(form.Text1.text.Get(), "00 \r\n\r\n");
}

TEST_F(Monitor, OneReportShowsAtMost21666Bytes)
{
    frmMsgEx &form = link.Open();
    Report(link, std::vector<std::uint8_t>(21667, 1));
    EXPECT_EQ(form.Text1.text.Get().size(), 21666U * 3 + 4);
}

TEST_F(Monitor, ClosedNothingIsWrittenAndMonitorEnabledMayStayTrue)
{
    link.midi.MonitorEnabled = true;
    Report(link, {0x90, 0x3C, 0x64});
    link.OpenOneOut();
    link.Send(0x643C90);
    EXPECT_EQ(link.devices.sent.size(), 1U);
    EXPECT_TRUE(link.midi.MonitorEnabled);
}

TEST_F(Monitor, SwitchedOffNothingIsWritten)
{
    frmMsgEx &form = link.Open();
    link.midi.MonitorEnabled = false;
    Report(link, {0x90});
    EXPECT_EQ(form.Text1.text.Get(), "");
}

TEST_F(Monitor, TheMenuEntrysStateIsTheTestForAnOpenWindow)
{
    frmMsgEx &form = link.Open();
    link.app.frame.mnuMsgEx.enabled = true;
    Report(link, {0x90});
    EXPECT_EQ(form.Text1.text.Get(), "");
}

TEST_F(Monitor, AShortMessageReplacesWhatWasThere)
{
    link.OpenOneOut();
    frmMsgEx &form = link.Open();
    link.Send(0x7900B0);
    link.Send(0x0004C0);
    EXPECT_EQ(form.Text1.text.Get(), "C0 04 00 \r\n\r\n");
}

TEST_F(Monitor, AMessageThatFailsIsSeenToo)
{
    link.OpenOneOut();
    link.devices.outs[0].codes.send = 11;
    frmMsgEx &form = link.Open();
    link.Send(0x643C90);
    EXPECT_EQ(form.Text1.text.Get(), "90 3C 64 \r\n\r\n");
    // Disarmed, the path reports nothing any more.
    link.Send(0x003C80);
    EXPECT_EQ(form.Text1.text.Get(), "90 3C 64 \r\n\r\n");
}

TEST_F(Monitor, ANoteIsShownAlone)
{
    link.OpenOneOut();
    frmMsgEx &form = link.Open();
    SendNoteOn(link.midi, 1, 60, 100);
    EXPECT_EQ(form.Text1.text.Get(), "91 3C 64 \r\n\r\n");
    SendNoteOff(link.midi, 1, 60, 0);
    EXPECT_EQ(form.Text1.text.Get(), "81 3C 00 \r\n\r\n");
}

TEST_F(Monitor, AllNotesOffShowsASecondLineOfTwoBytes)
{
    link.OpenOneOut();
    frmMsgEx &form = link.Open();
    SendNoteOn(link.midi, 1, 60, 100);
    SendAllNotesOff(link.midi, 1);
    EXPECT_EQ(form.Text1.text.Get(), "B1 7B 00 \r\n\r\nB1 7B \r\n\r\n");
}

TEST_F(Monitor, OnADisarmedPathANoteOnlyClears)
{
    link.OpenOneOut();
    frmMsgEx &form = link.Open();
    SendNoteOn(link.midi, 1, 60, 100);
    link.midi.SendArmed = false;
    SendNoteOff(link.midi, 1, 60, 0);
    EXPECT_EQ(form.Text1.text.Get(), "");
}

TEST_F(Monitor, OnADisarmedPathAllNotesOffShowsItsTwoBytesAlone)
{
    link.OpenOneOut();
    frmMsgEx &form = link.Open();
    SendNoteOn(link.midi, 1, 60, 100);
    link.midi.SendArmed = false;
    SendAllNotesOff(link.midi, 1);
    EXPECT_EQ(form.Text1.text.Get(), "B1 7B \r\n\r\n");
}

TEST_F(Monitor, WithoutADeviceANoteLeavesWhatStandsThere)
{
    frmMsgEx &form = link.Open();
    Report(link, {0xB0});
    SendNoteOn(link.midi, 1, 60, 100);
    SendNoteOff(link.midi, 1, 60, 0);
    EXPECT_EQ(form.Text1.text.Get(), "B0 \r\n\r\n");
}

TEST_F(Monitor, AGroupIsShownInOneLineAndWrittenOnce)
{
    link.OpenOneOut();
    frmMsgEx &form = link.Open();
    link.Send(0x643C90);
    int written = 0;
    form.Text1.observer = [&written](Aspect aspect) { written += aspect == Aspect::Text ? 1 : 0; };
    SendGroup(link.midi, {ShortMessage(0x7900B0), ShortMessage(0x4020B0), ShortMessage(0x0004C0)});
    EXPECT_EQ(form.Text1.text.Get(), "B0 00 79 B0 20 40 C0 04 \r\n\r\n");
    EXPECT_EQ(written, 1);
    EXPECT_EQ(link.midi.ShortMsg, ShortMessage(0x0004C0));
}

TEST_F(Monitor, WhileTheBoxOfAFailedSendStandsTheMessageThatFailedIsShown)
{
    struct LookingFace : StandinFace {
        MidiState *midi = nullptr;
        std::vector<std::string> seen;
        int MessageBox(const std::string &title, const std::string &text, int style) override
        {
            seen.push_back(midi->monitor->Text1.text.Get());
            return StandinFace::MessageBox(title, text, style);
        }
    } face;
    Modulo1 app{Ports{link.files, link.devices, link.clock, link.printer, link.sequencer, link.folders, link.ticks}, face};
    MidiState midi{app};
    face.midi = &midi;
    mnuMsgEx_Click(midi);
    link.AddOuts(1);
    app.settings.MidiOutDev = 0;
    OpenMidiOut(midi);
    link.devices.outs[0].codes.send = 11;
    SendGroup(midi, {ShortMessage(0x7900B0), ShortMessage(0x4020B0), ShortMessage(0x0004C0)});
    EXPECT_EQ(face.seen, (std::vector<std::string>{"B0 00 79 \r\n\r\n"}));
    EXPECT_EQ(midi.monitor->Text1.text.Get(), "B0 00 79 B0 20 40 C0 04 \r\n\r\n");
    EXPECT_EQ(link.devices.sent.size(), 1U);
}

using MonitorWindow = Linked<MonitorLink>;

TEST_F(MonitorWindow, TheFirstOpeningHasItsNaturalSizeAtTheTopLeft)
{
    frmMsgEx &form = link.Open();
    const Size natural = link.Natural();
    EXPECT_EQ(form.place.Get(), (Place{0, 0, natural.width, natural.height}));
    EXPECT_EQ(link.entry.Width, natural.width);
    EXPECT_EQ(link.entry.Height, natural.height);
    EXPECT_EQ(link.entry.MinWidth, natural.width);
    EXPECT_EQ(link.entry.MinHeight, natural.height);
    EXPECT_EQ(link.entry.State, 1);
    EXPECT_STREQ(form.Text1.font.name, "courier new");
    EXPECT_EQ(form.Text1.font.size, 10);
    EXPECT_EQ(form.Text1.font.weight, 400);
}

TEST_F(MonitorWindow, KeepsTheChildContract)
{
    frmMsgEx &form = link.Open();
    EXPECT_EQ(form.caption.Get(), "MIDI messages - Velluto v 1.1");
    EXPECT_EQ(form.Tag.prefix, std::string(1, '\x09') + std::string(19, '\0'));
    EXPECT_TRUE(link.midi.MonitorEnabled);
    EXPECT_FALSE(link.app.frame.mnuMsgEx.enabled);
    EXPECT_EQ(link.app.children.ChildCount, 1);
    EXPECT_FALSE(link.app.children.RestoringLayout);
    EXPECT_TRUE(link.app.frame.mnuWindow.enabled);
    EXPECT_EQ(form.Text1.accessibleName, "MIDI messages");
}

TEST_F(MonitorWindow, TheCaptionInItalian)
{
    link.app.messages.LinguaBase = 0;
    EXPECT_EQ(link.Open().caption.Get(), "Messaggi MIDI - Velluto v 1.1");
}

TEST_F(MonitorWindow, ALaterOpeningTakesItsStoredPlaceAndStartsEmpty)
{
    frmMsgEx &first = link.Open();
    const Size natural = link.Natural();
    Report(link, {0x90});
    link.app.children.Resize(first, natural.width + 300, natural.height + 600);
    link.app.children.Move(first, 150, 225);
    link.app.children.Unload(first);
    link.app.children.Sweep();
    frmMsgEx &second = link.Open();
    EXPECT_EQ(second.place.Get(), (Place{150, 225, natural.width + 300, natural.height + 600}));
    EXPECT_EQ(second.Text1.text.Get(), "");
}

TEST_F(MonitorWindow, ClosedItGivesBackItsEntryAndStoresItsPlace)
{
    frmMsgEx &form = link.Open();
    link.app.children.Move(form, -75, 225);
    link.app.children.Unload(form);
    link.app.children.Sweep();
    EXPECT_TRUE(link.app.frame.mnuMsgEx.enabled);
    EXPECT_EQ(link.entry.Left, -75);
    EXPECT_EQ(link.entry.Top, 225);
    EXPECT_EQ(link.entry.State, 0);
    EXPECT_EQ(link.app.children.ChildCount, 0);
    EXPECT_FALSE(link.midi.MonitorEnabled);
    EXPECT_FALSE(link.app.frame.mnuModifica.enabled);
    EXPECT_EQ(link.midi.monitor, nullptr);
}

TEST_F(MonitorWindow, ClosedWithTheFrameItsStateIs0Too)
{
    link.Open();
    link.app.children.ClosingAll = true;
    link.app.children.UnloadAll();
    link.app.children.Sweep();
    EXPECT_EQ(link.entry.State, 0);
}

TEST_F(MonitorWindow, BelowItsNaturalSizeItSnapsBack)
{
    frmMsgEx &form = link.Open();
    const Size natural = link.Natural();
    link.app.children.Resize(form, 1000, natural.height + 900);
    EXPECT_EQ(form.Width(), natural.width);
    EXPECT_EQ(form.Height(), natural.height + 900);
    EXPECT_EQ(link.entry.Width, natural.width);
    EXPECT_EQ(link.entry.Height, natural.height + 900);
    link.app.children.Resize(form, natural.width + 900, 1000);
    EXPECT_EQ(form.Width(), natural.width + 900);
    EXPECT_EQ(form.Height(), natural.height);
}

TEST_F(MonitorWindow, MinimisedItsStateIs2AndRestored1)
{
    frmMsgEx &form = link.Open();
    link.app.children.Minimise(form);
    EXPECT_EQ(link.entry.State, 2);
    link.app.children.Restore(form);
    EXPECT_EQ(link.entry.State, 1);
}

TEST_F(MonitorWindow, MaximisedItsStateStaysWhatItWas)
{
    frmMsgEx &form = link.Open();
    link.app.children.Minimise(form);
    link.app.children.Maximise(form);
    EXPECT_EQ(link.entry.State, 2);
}

TEST_F(MonitorWindow, WhileALoadRunsAResizeStoresNothing)
{
    frmMsgEx &form = link.Open();
    const Size natural = link.Natural();
    link.app.children.RestoringLayout = true;
    link.app.children.Resize(form, natural.width + 900, natural.height + 900);
    EXPECT_EQ(link.entry.Width, natural.width);
    EXPECT_EQ(link.entry.Height, natural.height);
}

TEST_F(MonitorWindow, TheTextFillsTheInnerSizeLess400InHeight)
{
    frmMsgEx &form = link.Open();
    EXPECT_EQ(form.Text1.place.Get(), (Place{0, 0, form.ScaleWidth(), form.ScaleHeight() - 400}));
    link.app.children.Resize(form, form.Width() + 1500, form.Height() + 1500);
    EXPECT_EQ(form.Text1.place.Get(), (Place{0, 0, form.ScaleWidth(), form.ScaleHeight() - 400}));
}

TEST_F(MonitorWindow, AWindowNoTallerThan400LeavesTheTextAsItWas)
{
    link.entry.MinWidth = 100;
    link.entry.MinHeight = 100;
    link.entry.Width = 6000;
    link.entry.Height = 3000;
    frmMsgEx &form = link.Open();
    const Place before = form.Text1.place;
    link.app.children.Resize(form, 7000, 400);
    EXPECT_EQ(form.Text1.place.Get(), before);
    link.app.children.Resize(form, 7000, 401); // the inner height is below 400: nothing negative comes of it
    EXPECT_EQ(form.Text1.place.Get(), (Place{0, 0, form.ScaleWidth(), 0}));
}

TEST_F(MonitorWindow, TheRightButtonPopsUpTheEditMenu)
{
    frmMsgEx &form = link.Open();
    form.Form_MouseDown(MouseButton::Right);
    Raise(form.Text1.MouseDown, MouseButton::Right);
    Raise(form.Text1.MouseDown, MouseButton::Left);
    EXPECT_EQ(link.face.popUps, (std::vector<MenuEntry *>(2, &link.app.frame.mnuModifica)));
}

} // namespace
} // namespace velluto::test
