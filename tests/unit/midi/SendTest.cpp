// The send path, the notes, and the words of its failures.
#include "midi/MidiOut.h"
#include "unit/support/MidiLink.h"

#include "midi/frmMsgEx.h"

#include <gtest/gtest.h>

namespace velluto::test {
namespace {

TEST(Send, HandsThePackedMessageToTheDevice)
{
    MidiLink link;
    link.OpenOneOut();
    link.Send(0x7900B0);
    EXPECT_EQ(link.devices.sent, (Sent{0x7900B0}));
}

TEST(Send, WithoutADeviceReturnsAtOnceAndWithoutABox)
{
    MidiLink link;
    link.midi.SendArmed = true;
    link.Send(0x643C90);
    EXPECT_TRUE(link.devices.sent.empty());
    EXPECT_TRUE(link.face.boxes.empty());
}

TEST(Send, NoteOnIsStatus144WithVelocityInTheThirdByte)
{
    MidiLink link;
    link.OpenOneOut();
    SendNoteOn(link.midi, 3, 60, 100);
    EXPECT_EQ(link.devices.sent, (Sent{100 * 65536 + 60 * 256 + 147}));
}

TEST(Send, NoteOffIsATrueStatus128)
{
    MidiLink link;
    link.OpenOneOut();
    SendNoteOff(link.midi, 15, 127, 64);
    EXPECT_EQ(link.devices.sent, (Sent{64 * 65536 + 127 * 256 + 143}));
}

TEST(Send, NotesDoNothingWithoutADevice)
{
    MidiLink link;
    link.midi.SendArmed = true;
    SendNoteOn(link.midi, 0, 60, 100);
    SendNoteOff(link.midi, 0, 60, 100);
    EXPECT_EQ(link.midi.ShortMsg.Packed(), 0U);
    EXPECT_TRUE(link.devices.sent.empty());
}

TEST(Send, AllNotesOffIsController123WithValue0)
{
    MidiLink link;
    link.OpenOneOut();
    SendAllNotesOff(link.midi, 2);
    EXPECT_EQ(link.devices.sent, (Sent{0x007BB2}));
}

TEST(Send, AFailureShowsOneBoxWithSite4AndDisarmsThePath)
{
    MidiLink link;
    link.OpenOneOut();
    link.devices.outs[0].codes.send = 11;
    link.Send(0x643C90);
    ASSERT_EQ(link.BoxTexts(), (Texts{"Error accessing MIDI output device (Cod Err: 411)"}));
    EXPECT_EQ(link.face.boxes[0].title, "Velluto v 1.1");
    EXPECT_EQ(link.face.boxes[0].style, Box::kNotice);
    EXPECT_FALSE(link.midi.SendArmed);
    EXPECT_TRUE(link.midi.MidiOutOpen);
    EXPECT_EQ(link.midi.MidiResult, 11);
}

TEST(Send, ASecondFailedSendShowsNoSecondBox)
{
    MidiLink link;
    link.OpenOneOut();
    link.devices.outs[0].codes.send = 11;
    link.Send(0x643C90);
    link.Send(0x643C90);
    EXPECT_EQ(link.face.boxes.size(), 1U);
}

TEST(Send, AnotherMessageBehindTheOpenBoxShowsNoSecondBox)
{
    MidiLink link;
    struct SendingFace : StandinFace {
        MidiState *midi = nullptr;
        int MessageBox(const std::string &title, const std::string &text, int style) override
        {
            SendShortMsg(*midi);
            return StandinFace::MessageBox(title, text, style);
        }
    } face;
    Modulo1 app{Ports{link.files, link.devices, link.clock, link.printer, link.sequencer, link.folders, link.ticks}, face};
    MidiState midi{app};
    face.midi = &midi;
    link.AddOuts(1);
    app.settings.MidiOutDev = 0;
    OpenMidiOut(midi);
    link.devices.outs[0].codes.send = 11;
    SendShortMsg(midi);
    EXPECT_EQ(face.boxes.size(), 1U);
}

TEST(Send, AfterAFailureNothingIsSentUntilADeviceIsOpenedAgain)
{
    MidiLink link;
    link.OpenOneOut();
    link.devices.outs[0].codes.send = 11;
    link.Send(0x643C90);
    EXPECT_EQ(link.devices.sent, (Sent{0x643C90})); // handed over, and refused
    link.devices.outs[0].codes.send = 0;
    link.Send(0x653C90);
    EXPECT_EQ(link.devices.sent, (Sent{0x643C90}));
    OpenMidiOut(link.midi);
    EXPECT_TRUE(link.midi.SendArmed);
    link.Send(0x663C90);
    EXPECT_EQ(link.devices.sent, (Sent{0x643C90, 0x663C90}));
}

TEST(Send, CodesHaveAtLeastTwoDigits)
{
    const struct {
        int code;
        const char *digits;
    } rows[] = {{5, "05"}, {7, "07"}, {64, "64"}, {100, "100"}, {1234, "1234"}};
    for (const auto &row : rows) {
        MidiLink link;
        link.OpenOneOut();
        link.devices.outs[0].codes.send = row.code;
        link.Send(0x643C90);
        EXPECT_EQ(link.BoxTexts(), (Texts{std::string("Error accessing MIDI output device (Cod Err: 4") + row.digits + ")"}));
        EXPECT_EQ(link.midi.ErrorText, link.BoxTexts()[0]);
    }
}

TEST(Send, AFailureInItalian)
{
    MidiLink link;
    link.app.messages.LinguaBase = 0;
    link.OpenOneOut();
    link.devices.outs[0].codes.send = 5;
    link.Send(0x643C90);
    EXPECT_EQ(link.BoxTexts(), (Texts{"Errore accesso dispositivo MIDI di uscita (Cod Err: 405)"}));
}

using OpenOut = Linked<MidiLink>;

TEST_F(OpenOut, ADeviceInUseIsTold)
{
    link.AddOuts(1);
    link.devices.outs[0].codes.open = 4;
    link.app.settings.MidiOutDev = 0;
    EXPECT_EQ(OpenMidiOut(link.midi), 4);
    EXPECT_FALSE(link.midi.MidiOutOpen);
    EXPECT_EQ(link.BoxTexts(), (Texts{"Output MIDI Device already in use"}));
    EXPECT_EQ(link.face.boxes[0].title, "Velluto v 1.1");
}

TEST_F(OpenOut, ADeviceInUseIsToldInItalian)
{
    link.app.messages.LinguaBase = 0;
    link.AddOuts(1);
    link.devices.outs[0].codes.open = 4;
    link.app.settings.MidiOutDev = 0;
    OpenMidiOut(link.midi);
    EXPECT_EQ(link.BoxTexts(), (Texts{"Dispositivo MIDI di Uscita già in uso"}));
}

TEST_F(OpenOut, AnyOtherFailureHasSite6)
{
    link.AddOuts(1);
    link.devices.outs[0].codes.open = 7;
    link.app.settings.MidiOutDev = 0;
    EXPECT_EQ(OpenMidiOut(link.midi), 7);
    EXPECT_EQ(link.BoxTexts(), (Texts{"Error accessing MIDI output device (Cod Err: 607)"}));
    EXPECT_FALSE(link.midi.MidiOutOpen);
}

TEST_F(OpenOut, AFailedOpenDoesNotTouchTheArming)
{
    link.AddOuts(1);
    link.devices.outs[0].codes.open = 7;
    link.app.settings.MidiOutDev = 0;
    link.midi.SendArmed = false;
    OpenMidiOut(link.midi);
    EXPECT_FALSE(link.midi.SendArmed);
}

using CloseOut = Linked<MidiLink>;

TEST_F(CloseOut, AFailingCloseAfterCleanSendsIsNotTold)
{
    link.OpenOneOut();
    link.devices.outs[0].codes.close = 9;
    EXPECT_EQ(CloseMidiOut(link.midi), 9);
    EXPECT_FALSE(link.midi.MidiOutOpen);
    EXPECT_TRUE(link.face.boxes.empty());
}

TEST_F(CloseOut, AGoodCloseAfterAFailedSendIsToldWithItsOwnResult)
{
    link.OpenOneOut();
    link.devices.outs[0].codes.send = 11;
    link.Send(0x643C90);
    EXPECT_EQ(CloseMidiOut(link.midi), 0);
    ASSERT_EQ(link.face.boxes.size(), 2U);
    EXPECT_EQ(link.face.boxes[1].text, "Error accessing MIDI output device (Cod Err: 800)");
    EXPECT_EQ(link.face.boxes[1].title, "Velluto v 1.1");
}

TEST_F(CloseOut, ACloseAfterAFailedQueryIsTold)
{
    link.AddOuts(1);
    link.AddIns(1);
    link.devices.ins[0].codes.caps = 2; // the last query of all is the one that is kept
    link.app.settings.MidiOutDev = 0;
    link.Survey();
    ASSERT_TRUE(link.midi.MidiOutOpen);
    CloseMidiOut(link.midi);
    EXPECT_EQ(link.BoxTexts(), (Texts{"Error accessing MIDI output device (Cod Err: 800)"}));
}

} // namespace
} // namespace velluto::test
