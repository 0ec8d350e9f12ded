// Any sequence of what a hand can do, and what sounds after it.
#include "unit/keyboard/Recorder.h"
#include "unit/support/KeyboardLink.h"

#include <gtest/gtest.h>

#include <random>

namespace velluto::test {
namespace {

constexpr int kSequences = 300;
constexpr int kEvents = 150;

class Hand : public KeyboardLink {
public:
    explicit Hand(unsigned seed) : chance_(seed) { Open(); }

    Recorder recorder;

    int Any(int below) { return static_cast<int>(chance_() % static_cast<unsigned>(below)); }
    // An octave's worth of keys often, any key at times.
    int AnyKey() { return Any(4) == 0 ? Any(61) : 20 + Any(12); }

    void Step(bool channels)
    {
        const int key = AnyKey();
        switch (Any(channels ? 13 : 12)) {
        case 0:
        case 1:
            Down(key);
            break;
        case 2:
            Up(key);
            break;
        case 3:
        case 4:
            Move(key, Any(3) == 0 ? 900 + Any(504) : Any(936));
            break;
        case 5:
            Form().Frame1.MouseMove();
            break;
        case 6:
            Push(Form().CheckClickKey);
            break;
        case 7:
            Push(Form().CheckHoldNote);
            break;
        case 8:
            Push(Form().CommHoldChord);
            break;
        case 9:
            Push(Form().CommAllNoteOff);
            break;
        case 10:
            ScrollGesture::MoveTo(Form().HScroll1, Any(4));
            break;
        case 11:
            ScrollGesture::MoveTo(Form().VScroll[Any(11)], Any(128));
            break;
        default:
            Form().Combo1.ListIndex = Any(16);
        }
        Listen();
    }
    void Listen()
    {
        for (const std::uint32_t message : Taken()) {
            recorder.Hear(message);
        }
    }

private:
    std::minstd_rand chance_;
};

TEST(AnySequence, LeavesNothingSoundingAfterAllNotesOffAndAfterClosing)
{
    int soundingBefore = 0;
    for (unsigned seed = 1; seed <= kSequences; ++seed) {
        Hand hand(seed);
        for (int events = hand.Any(kEvents); events > 0; --events) {
            hand.Step(false);
        }
        soundingBefore += hand.recorder.sounding[0].empty() ? 0 : 1;
        if (seed % 2 == 0) {
            hand.Push(hand.Form().CommAllNoteOff);
        } else {
            hand.Close();
        }
        hand.Listen();
        for (const auto &channel : hand.recorder.sounding) {
            ASSERT_TRUE(channel.empty()) << "seed " << seed;
        }
    }
    EXPECT_GT(soundingBefore, kSequences / 4); // there was something to silence
}

TEST(AnySequence, WithChannelsChangedTheChannelOfNowFallsSilent)
{
    for (unsigned seed = 1; seed <= kSequences; ++seed) {
        Hand hand(seed);
        for (int event = 0; event < kEvents; ++event) {
            hand.Step(true);
        }
        const auto channel = static_cast<std::size_t>(hand.Form().Combo1.ListIndex.Get());
        hand.Close();
        hand.Listen();
        ASSERT_TRUE(hand.recorder.sounding[channel].empty()) << "seed " << seed;
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
    recorder.Hear(test::AllNotesOff(0));
    EXPECT_EQ(recorder.sounding[3], (std::set<int>{67}));
    recorder.Hear(test::AllNotesOff(3));
    EXPECT_TRUE(recorder.sounding[3].empty());
}

} // namespace
} // namespace velluto::test
