#include "platform/music/NoteTracker.h"

#include "FakePorts.h"

#include <gmock/gmock.h>

namespace velluto::test {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

ShortMessage Message(std::uint8_t status, int data1, int data2)
{
    return {status, 0, data1, data2};
}

NoteTracker After(const std::vector<Bytes> &messages)
{
    NoteTracker tracker;
    for (const Bytes &message : messages) {
        tracker.Passed(message);
    }
    return tracker;
}

TEST(NoteTracker, NothingSoundsAtTheBeginning)
{
    EXPECT_TRUE(NoteTracker().Silent());
    EXPECT_THAT(NoteTracker().Releases(), IsEmpty());
}

TEST(NoteTracker, ANoteOnIsReleasedByANoteOffOnItsChannel)
{
    EXPECT_THAT(After({{0x93, 60, 100}}).Releases(), ElementsAre(Message(0x83, 60, 64)));
}

TEST(NoteTracker, ANoteOffEndsTheNote)
{
    EXPECT_TRUE(After({{0x93, 60, 100}, {0x83, 60, 64}}).Silent());
}

TEST(NoteTracker, ANoteOnOfVelocityZeroEndsTheNote)
{
    EXPECT_TRUE(After({{0x93, 60, 100}, {0x93, 60, 0}}).Silent());
}

TEST(NoteTracker, TheSameNoteOnAnotherChannelSoundsOn)
{
    EXPECT_THAT(After({{0x90, 60, 100}, {0x91, 60, 100}, {0x80, 60, 0}}).Releases(), ElementsAre(Message(0x81, 60, 64)));
}

TEST(NoteTracker, SustainIsHeldFrom64AndLetGoBelow)
{
    EXPECT_THAT(After({{0xB2, 64, 64}}).Releases(), ElementsAre(Message(0xB2, 64, 0)));
    EXPECT_TRUE(After({{0xB2, 64, 127}, {0xB2, 64, 63}}).Silent());
}

TEST(NoteTracker, NotesComeBeforeTheSustainOfTheirChannel)
{
    EXPECT_THAT(After({{0xB1, 64, 127}, {0x91, 72, 1}, {0x91, 48, 1}, {0x90, 50, 1}}).Releases(),
                ElementsAre(Message(0x80, 50, 64), Message(0x81, 48, 64), Message(0x81, 72, 64), Message(0xB1, 64, 0)));
}

TEST(NoteTracker, AllNotesOffEndsTheNotesOfItsChannelButNotTheSustain)
{
    EXPECT_THAT(After({{0x90, 60, 9}, {0x91, 61, 9}, {0xB0, 64, 127}, {0xB0, 123, 0}}).Releases(),
                ElementsAre(Message(0xB0, 64, 0), Message(0x81, 61, 64)));
}

TEST(NoteTracker, AllSoundOffEndsTheNotesToo)
{
    EXPECT_TRUE(After({{0x90, 60, 9}, {0xB0, 120, 0}}).Silent());
}

TEST(NoteTracker, ResetAllControllersLetsTheSustainGo)
{
    EXPECT_TRUE(After({{0xB5, 64, 127}, {0xB5, 121, 0}}).Silent());
}

TEST(NoteTracker, OtherMessagesChangeNothing)
{
    EXPECT_TRUE(After({{0xC0, 60}, {0xE0, 60, 100}, {0xA0, 60, 100}, {0xF0, 0x90, 60, 100, 0xF7}, {0xF8}, {}, {0x90, 200, 1}}).Silent());
}

TEST(NoteTracker, ASystemResetEndsEverything)
{
    EXPECT_TRUE(After({{0x90, 60, 9}, {0xB5, 64, 127}, {0xFF}}).Silent());
}

TEST(NoteTracker, AddJoinsWhatTwoHaveLeft)
{
    NoteTracker one = After({{0x90, 60, 9}});
    one.Add(After({{0x90, 62, 9}, {0xB0, 64, 127}}));
    EXPECT_THAT(one.Releases(), ElementsAre(Message(0x80, 60, 64), Message(0x80, 62, 64), Message(0xB0, 64, 0)));
}

TEST(NoteTracker, SilenceSendsTheReleasesOnceAndKeepsThemWhereThePortHasGone)
{
    FakePorts ports;
    FakePorts::Output port(ports, "synth");
    NoteTracker tracker = After({{0x90, 60, 9}});
    ports.gone.insert("synth");
    EXPECT_FALSE(Silence(port, tracker));
    EXPECT_FALSE(tracker.Silent());
    ports.gone.clear();
    EXPECT_TRUE(Silence(port, tracker));
    EXPECT_TRUE(Silence(port, tracker));
    EXPECT_THAT(ports.received["synth"], ElementsAre(Bytes{0x80, 60, 64}));
}

} // namespace
} // namespace velluto::test
