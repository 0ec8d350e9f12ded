// The sequencer against a real JACK server: what a file's playing sends to another client, and that nothing is left sounding.
#include "JackServer.h"
#include "platform/music/MachineMusic.h"
#include "unit/sequencer/MidiBytes.h"
#include "unit/support/TestProgram.h"

#include <gmock/gmock.h>
#include <jack/jack.h>

#include <csignal>

namespace velluto::test {
namespace {

class SequencerTest : public testing::Test {
protected:
    SequencerTest() { ::setenv("VELLUTO_SOUNDFONT", "", 1); }

    void StartAll()
    {
        server_.Start();
        StartInstrument();
        MakeMusic();
    }
    void StartInstrument()
    {
        instrument_ = std::make_unique<Process>(std::vector<std::string>{JACK_INSTRUMENT, "pa80"});
        ASSERT_TRUE(instrument_->WaitUntilReady());
    }
    void MakeMusic()
    {
        music_ = MakeMachineMusic(files_, [this](std::function<void()> call) {
            const std::lock_guard lock(mutex_);
            calls_.push_back(std::move(call));
        });
        music_.sequencer->Done = [this](int code) { told_.push_back(code); };
    }
    // Opens the instrument as the program's output, as a choice in Preferences does.
    MidiHandle Choose(const std::string &wanted = "pa80:midi_in")
    {
        MidiHandle handle = 0;
        for (int i = music_.midi->midiOutGetNumDevs() - 1; i >= 0; --i) {
            MidiDeviceCaps caps;
            music_.midi->midiOutGetDevCapsA(i, caps);
            if (wanted == caps.name.data()) {
                EXPECT_EQ(music_.midi->midiOutOpen(handle, i), 0);
            }
        }
        EXPECT_NE(handle, 0U);
        return handle;
    }
    // Plays the part of a patch bay.
    static void Patch()
    {
        jack_client_t *bay = jack_client_open("bay", JackNoStartServer, nullptr);
        ASSERT_NE(bay, nullptr);
        EXPECT_EQ(jack_connect(bay, "Velluto:Velluto player", "pa80:midi_in"), 0);
        // A connection is there from the period on in which it is listed.
        jack_port_t *const player = jack_port_by_name(bay, "Velluto:Velluto player");
        EXPECT_TRUE(Eventually([player]() { return jack_port_connected_to(player, "pa80:midi_in") != 0; }));
        jack_client_close(bay);
    }

    Sequencer &Device() { return *music_.sequencer; }
    void Open(const Bytes &bytes)
    {
        WriteBytes(folder_.At("song.mid"), bytes);
        Device().SetFileName(folder_.At("song.mid"));
        Device().SetCommand("open");
        ASSERT_FALSE(Device().Reason());
    }
    // Opens it, plays it to the patched instrument, and waits for the first note.
    void PlayLong()
    {
        Open(kLong);
        Patch();
        Device().SetCommand("play");
        ASSERT_TRUE(Arrives({"90 3C 64"}));
    }
    // The events that the sequencer has posted, as the event loop would run them.
    std::vector<int> Told()
    {
        std::vector<std::function<void()>> calls;
        {
            const std::lock_guard lock(mutex_);
            calls.swap(calls_);
        }
        for (const auto &call : calls) {
            call();
        }
        return told_;
    }
    bool Ends(int code)
    {
        return Eventually([&]() { return Told() == std::vector<int>{code}; });
    }
    // Whether exactly these messages have arrived, once so many have.
    testing::AssertionResult Arrives(const std::vector<std::string> &messages)
    {
        Eventually([&]() { return instrument_->Lines().size() >= messages.size(); });
        if (instrument_->Lines() == messages) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << testing::PrintToString(instrument_->Lines());
    }

    // A note that is held for an hour.
    const Bytes kLong = File(0, 1, {{0, 0x90, 60, 100, 0xB8, 0x20, 60, 0, 0, 0xFF, 0x2F, 0}});
    const std::vector<std::string> kEnded = {"90 3C 64", "80 3C 40", "B0 7B 00"};

    TempFolder folder_;
    JackServer server_;
    std::unique_ptr<Process> instrument_;
    std::mutex mutex_;
    std::vector<std::function<void()>> calls_;
    std::vector<int> told_;
    MachineFiles files_;
    MachineMusic music_;
};

TEST_F(SequencerTest, TheEventsOfAFileArriveInTheirOrder)
{
    StartAll();
    const Bytes tempo = {0, 0xFF, 0x51, 3, 0x00, 0xC3, 0x50, 0, 0xFF, 0x2F, 0}; // a beat lasts 50 ms
    const Bytes first = {0, 0xB0, 0,  121, 0,  32, 3, 0, 0xC0, 5,   0,  0xF0, 5, 0x7E, 0x7F, 0x09, 0x01, 0xF7,
                         0, 0x90, 60, 100, 96, 60, 0, 0, 62,   100, 96, 62,   0, 0,    0xFF, 0x2F, 0};
    const Bytes second = {48, 0x91, 64, 90, 96, 64, 0, 0, 0xE1, 0, 80, 0, 0xD1, 7, 0, 0xFF, 0x2F, 0};
    Open(File(1, 96, {tempo, first, second}));
    EXPECT_EQ(Device().Length(), 8);
    Patch();
    Device().SetCommand("play");
    EXPECT_TRUE(Ends(NotifyCode::kNormalEnd));
    EXPECT_TRUE(Arrives({"B0 00 79", "B0 20 03", "C0 05", "F0 7E 7F 09 01 F7", "90 3C 64", "91 40 5A", "90 3C 00", "90 3E 64", "91 40 00",
                         "E1 00 50", "D1 07", "90 3E 00"}));
    EXPECT_EQ(Device().Position(), 8);
}

TEST_F(SequencerTest, APlayFromTheMiddleRestoresTheChannelsFirst)
{
    StartAll();
    Open(File(0, 96, {{0, 0xC0, 5, 0, 0x90, 60, 100, 96, 60, 0, 0, 0xE0, 0, 80, 0xB8, 0x20, 0x90, 62, 100, 96, 62, 0, 0, 0xFF, 0x2F, 0}}));
    Patch();
    Device().SetFrom(Device().Length() - 4);
    Device().SetCommand("play");
    EXPECT_TRUE(Arrives({"C0 05", "E0 00 50", "90 3E 64", "90 3E 00"}));
}

TEST_F(SequencerTest, APauseLeavesNothingSounding)
{
    StartAll();
    PlayLong();
    Device().SetCommand("pause");
    EXPECT_TRUE(Arrives(kEnded));
}

TEST_F(SequencerTest, AStopLeavesNothingSounding)
{
    StartAll();
    PlayLong();
    Device().SetCommand("stop");
    EXPECT_TRUE(Arrives(kEnded));
    EXPECT_TRUE(Ends(NotifyCode::kAborted));
}

TEST_F(SequencerTest, ACloseLeavesNothingSounding)
{
    StartAll();
    PlayLong();
    Device().SetCommand("close");
    EXPECT_TRUE(Arrives(kEnded));
    EXPECT_TRUE(Ends(NotifyCode::kAborted));
}

TEST_F(SequencerTest, TheEndOfTheProgramLeavesNothingSounding)
{
    StartAll();
    PlayLong();
    music_.sequencer.reset();
    music_.midi.reset();
    EXPECT_TRUE(Arrives(kEnded));
}

TEST_F(SequencerTest, TheChosenDeviceHearsTheSongAndNobodyHasPatched)
{
    StartAll();
    Open(kLong);
    const MidiHandle out = Choose();
    Device().SetCommand("play");
    EXPECT_TRUE(Arrives({"90 3C 64"}));
    Device().SetCommand("stop");
    EXPECT_TRUE(Arrives(kEnded));
    EXPECT_EQ(music_.midi->midiOutShortMsg(out, ShortMessage(0x0004C0)), 0); // beside the song's connection
    EXPECT_TRUE(Arrives({"90 3C 64", "80 3C 40", "B0 7B 00", "C0 04"}));
}

TEST_F(SequencerTest, AnotherDeviceInMidSongTakesItOver)
{
    StartAll();
    Process other({JACK_INSTRUMENT, "other"});
    ASSERT_TRUE(other.WaitUntilReady());
    // A program, a note held, and another one after two beats.
    Open(File(0, 1, {{0, 0xC0, 5, 0, 0x90, 60, 100, 2, 0x90, 62, 100, 0xB8, 0x20, 60, 0, 0, 0xFF, 0x2F, 0}}));
    const MidiHandle out = Choose();
    Device().SetCommand("play");
    EXPECT_TRUE(Arrives({"C0 05", "90 3C 64"}));
    music_.midi->midiOutClose(out);
    Choose("other:midi_in");
    Told();
    EXPECT_EQ(Device().Mode(), SequencerMode::kPlaying);
    EXPECT_TRUE(Arrives({"C0 05", "90 3C 64", "80 3C 40", "B0 7B 00"}));
    EXPECT_TRUE(Eventually([&]() { return other.Lines() == std::vector<std::string>({"C0 05", "90 3E 64"}); }));
    EXPECT_EQ(instrument_->Lines().size(), 4U);
}

TEST_F(SequencerTest, TheEndOfTheProgramLeavesNothingSoundingOnTheDevice)
{
    StartAll();
    Open(kLong);
    const MidiHandle out = Choose();
    Device().SetCommand("play");
    ASSERT_TRUE(Arrives({"90 3C 64"}));
    music_.midi->midiOutClose(out); // as the frame does when it goes
    music_.sequencer.reset();
    music_.midi.reset();
    EXPECT_TRUE(Arrives(kEnded));
}

TEST_F(SequencerTest, ADeviceThatGoesDoesNotStopTheSongAndIsHeardAgainWhenItIsBack)
{
    StartAll();
    Open(kLong);
    Choose();
    Device().SetCommand("play");
    ASSERT_TRUE(Arrives({"90 3C 64"}));
    instrument_->Leave();
    const std::int32_t position = Device().Position();
    EXPECT_TRUE(Eventually([&]() { return Device().Position() > position; }));
    Device().SetCommand("pause");
    EXPECT_EQ(Device().Mode(), SequencerMode::kPaused);
    StartInstrument();
    Device().SetFrom(0);
    Device().SetCommand("play");
    EXPECT_TRUE(Eventually([&]() { return !instrument_->Lines().empty() && instrument_->Lines().back() == "90 3C 64"; }));
    EXPECT_EQ(instrument_->Lines().front(), "80 3C 40"); // the note that it went away with
}

TEST_F(SequencerTest, ItsPortIsNoDeviceOfTheProgram)
{
    StartAll();
    Open(kLong);
    for (int i = music_.midi->midiInGetNumDevs() - 1; i >= 0; --i) {
        MidiDeviceCaps caps;
        EXPECT_EQ(music_.midi->midiInGetDevCapsA(i, caps), 0);
        EXPECT_THAT(std::string(caps.name.data(), 7), testing::Ne("Velluto"));
    }
}

TEST_F(SequencerTest, WithoutAServerASongPlaysAllTheSame)
{
    ::unsetenv("VELLUTO_SOUNDFONT");
    MakeMusic();
    testing::internal::CaptureStderr();
    Open(File(0, 96, {{0, 0xFF, 0x51, 3, 0x00, 0xC3, 0x50, 0, 0x90, 60, 100, 96, 60, 0, 0, 0xFF, 0x2F, 0}}));
    Device().SetCommand("play");
    EXPECT_EQ(Device().Mode(), SequencerMode::kPlaying);
    EXPECT_TRUE(Ends(NotifyCode::kNormalEnd));
    EXPECT_EQ(Device().Position(), 4);
    EXPECT_EQ(testing::internal::GetCapturedStderr(), "");
}

TEST_F(SequencerTest, AServerThatDiesDoesNotStopTheSongAndTheNextOpenFindsTheNewOne)
{
    StartAll();
    PlayLong();
    server_.End(SIGKILL);
    const std::int32_t position = Device().Position();
    EXPECT_TRUE(Eventually([&]() { return Device().Position() > position; }));
    EXPECT_EQ(Device().Mode(), SequencerMode::kPlaying);
    Device().SetCommand("close");
    instrument_->End(SIGKILL);
    server_.Start();
    StartInstrument();
    PlayLong();
    Device().SetCommand("stop");
    EXPECT_TRUE(Arrives(kEnded));
}

TEST_F(SequencerTest, AServerThatStandsStillNeverHoldsTheSong)
{
    StartAll();
    PlayLong();
    server_.Stop();
    const std::int32_t position = Device().Position();
    EXPECT_TRUE(Eventually([&]() { return Device().Position() > position; }));
    Device().SetCommand("stop");
    EXPECT_EQ(Device().Mode(), SequencerMode::kStopped);
    server_.Continue();
    EXPECT_TRUE(Arrives(kEnded));
}

} // namespace
} // namespace velluto::test
