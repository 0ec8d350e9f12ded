// Any sequence of what a hand can do, on the window and on the model.
#include "unit/keyboard/KeyboardModel.h"
#include "unit/support/KeyboardLink.h"

#include <gtest/gtest.h>

#include <random>

namespace velluto::test {
namespace {

constexpr int kSequences = 300;
constexpr int kEvents = 150;

class Both : public KeyboardLink {
public:
    explicit Both(unsigned seed) : chance_(seed)
    {
        Open();
        EXPECT_EQ(midi.ShortMsg.Packed(), model.shortMsg);
    }

    KeyboardModel model;
    Recorder recorder;

    int Any(int below) { return static_cast<int>(chance_() % static_cast<unsigned>(below)); }
    // An octave's worth of keys often, any key at times.
    int AnyKey() { return Any(4) == 0 ? Any(61) : 20 + Any(12); }

    std::string Step(bool channels)
    {
        const int key = AnyKey();
        switch (Any(channels ? 13 : 12)) {
        case 0:
        case 1:
            Down(key);
            model.Down(key);
            return "down " + std::to_string(key);
        case 2:
            Up(key);
            model.Up(key);
            return "up " + std::to_string(key);
        case 3:
        case 4:
            return Point(key);
        case 5:
            Form().Frame1.MouseMove();
            model.Leave();
            return "leave";
        case 6:
            Push(Form().CheckClickKey);
            model.WriteClick(!model.click);
            return "click key";
        case 7:
            return PushHold();
        case 8:
            return PushChord();
        case 9:
            return Any(4) == 0 ? Silence() : Shift();
        case 10:
            return Shift();
        case 11:
            return Slide();
        default:
            model.channel = Any(16);
            Form().Combo1.ListIndex = model.channel;
            return "channel";
        }
    }
    std::string Silence()
    {
        Push(Form().CommAllNoteOff);
        model.AllNoteOff();
        return "all notes off";
    }
    void Listen()
    {
        const Sent sent = Taken();
        EXPECT_EQ(sent, model.sent);
        for (const std::uint32_t message : sent) {
            recorder.Hear(message);
        }
        model.sent.clear();
    }
    void Compare()
    {
        Listen();
        const frmTastiera &form = Form();
        EXPECT_EQ(form.CheckClickKey.value, model.click);
        EXPECT_EQ(form.CheckHoldNote.value, model.hold);
        EXPECT_EQ(form.CheckHoldNote.enabled, model.holdEnabled);
        EXPECT_EQ(form.CommHoldChord.enabled, model.chordEnabled);
        EXPECT_EQ(form.Text1.text.Get(), model.text);
        EXPECT_EQ(form.notes.BaseNote, model.base);
        EXPECT_EQ(form.notes.CurrentNote, model.current);
        EXPECT_EQ(form.notes.ChordArmed, model.armed);
        EXPECT_EQ(form.notes.ClickGuard, model.guard);
        EXPECT_EQ(Held(), Ints(model.held.begin(), model.held.end()));
        EXPECT_EQ(Chord(), Ints(model.chord.begin(), model.chord.end()));
        EXPECT_EQ(Dots(), Ints(model.dots.begin(), model.dots.end()));
    }

private:
    std::string Point(int key)
    {
        const int y = Any(3) == 0 ? 900 + Any(504) : Any(936);
        Move(key, y);
        model.Move(key, y);
        return "move " + std::to_string(key) + " " + std::to_string(y);
    }
    std::string PushHold()
    {
        if (Push(Form().CheckHoldNote)) {
            model.WriteHold(!model.hold);
        }
        return "hold note";
    }
    std::string PushChord()
    {
        if (Push(Form().CommHoldChord)) {
            model.HoldChord();
        }
        return "hold chord";
    }
    std::string Shift()
    {
        const int value = Any(4);
        ScrollGesture::MoveTo(Form().HScroll1, value);
        model.Shift(value);
        return "shift " + std::to_string(value);
    }
    std::string Slide()
    {
        const int i = Any(11);
        const int value = Any(128);
        ScrollGesture::MoveTo(Form().VScroll[i], value);
        model.Slide(i, value);
        return "slider " + std::to_string(i) + " " + std::to_string(value);
    }

    std::minstd_rand chance_;
};

TEST(AnySequence, DoesWhatTheModelDoes)
{
    for (unsigned seed = 1; seed <= kSequences; ++seed) {
        Both both(seed);
        std::string story;
        for (int event = 0; event < kEvents; ++event) {
            story += both.Step(true) + "\n";
            both.Compare();
            ASSERT_FALSE(testing::Test::HasFailure()) << "seed " << seed << "\n" << story;
        }
    }
}

TEST(AnySequence, LeavesNothingSoundingAfterAllNotesOffAndAfterClosing)
{
    int soundingBefore = 0;
    for (unsigned seed = 1; seed <= kSequences; ++seed) {
        Both both(seed);
        const int events = both.Any(kEvents);
        for (int event = 0; event < events; ++event) {
            both.Step(false);
            both.Listen();
        }
        soundingBefore += both.recorder.sounding[0].empty() ? 0 : 1;
        if (seed % 2 == 0) {
            both.Silence();
        } else {
            both.Close();
            both.model.AllNoteOff();
        }
        both.Listen();
        for (const auto &channel : both.recorder.sounding) {
            ASSERT_TRUE(channel.empty()) << "seed " << seed;
        }
    }
    EXPECT_GT(soundingBefore, kSequences / 4); // there was something to silence
}

TEST(AnySequence, WithChannelsChangedTheChannelOfNowFallsSilent)
{
    for (unsigned seed = 1; seed <= kSequences; ++seed) {
        Both both(seed);
        for (int event = 0; event < kEvents; ++event) {
            both.Step(true);
            both.Listen();
        }
        both.Close();
        both.model.AllNoteOff();
        both.Listen();
        ASSERT_TRUE(both.recorder.sounding[static_cast<std::size_t>(both.model.channel)].empty()) << "seed " << seed;
    }
}

TEST(Recorder, HearsNotesAndTheirEnds)
{
    Recorder recorder;
    recorder.Hear(NoteOn(60));
    recorder.Hear(NoteOn(64));
    recorder.Hear(NoteOn(67, 64, 3));
    recorder.Hear(NoteOff(60));
    EXPECT_EQ(recorder.sounding[0], (std::set<int>{64}));
    recorder.Hear(NoteOn(64, 0));
    EXPECT_TRUE(recorder.sounding[0].empty());
    recorder.Hear(AllNotesOff(0));
    EXPECT_EQ(recorder.sounding[3], (std::set<int>{67}));
    recorder.Hear(AllNotesOff(3));
    EXPECT_TRUE(recorder.sounding[3].empty());
}

} // namespace
} // namespace velluto::test
