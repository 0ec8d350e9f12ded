// The four states of the player and what leads from each to the next, line by line.
#include "player/Transport.h"

#include "unit/player/PlayerRun.h"

namespace velluto::test {
namespace {

using namespace std::string_literals;

enum class Act { Previous, Next, Play, Pause, Back, Forward, Stop, ClickC, DoubleClickC, EndOfPlay };

struct Line {
    const char *name;
    int from; // the Mode before, with b.mid open unless it is 524
    Act act;
    int to;
    const char *file; // open behind it; empty for none
};

// The files are a.mid, b.mid, c.mid, in this order.
constexpr auto kLines = std::to_array<Line>({
    {"NoFileSelect", 524, Act::ClickC, 525, "c.mid"},
    {"NoFilePlayOnlyTriesToOpen", 524, Act::Play, 524, ""},
    {"NoFileDoubleClick", 524, Act::DoubleClickC, 526, "c.mid"},

    {"StoppedPlay", 525, Act::Play, 526, "b.mid"},
    {"StoppedPrevious", 525, Act::Previous, 526, "a.mid"},
    {"StoppedNext", 525, Act::Next, 526, "c.mid"},
    {"StoppedSelect", 525, Act::ClickC, 525, "c.mid"},
    {"StoppedDoubleClick", 525, Act::DoubleClickC, 526, "c.mid"},

    {"PlayingPause", 526, Act::Pause, 529, "b.mid"},
    {"PlayingStop", 526, Act::Stop, 525, "b.mid"},
    {"PlayingBack", 526, Act::Back, 526, "b.mid"},
    {"PlayingForward", 526, Act::Forward, 526, "b.mid"},
    {"PlayingPrevious", 526, Act::Previous, 526, "a.mid"},
    {"PlayingNext", 526, Act::Next, 526, "c.mid"},
    {"PlayingSelectOpensNothing", 526, Act::ClickC, 526, "b.mid"},
    {"PlayingDoubleClick", 526, Act::DoubleClickC, 526, "c.mid"},
    {"PlayingToItsEnd", 526, Act::EndOfPlay, 525, "b.mid"},

    {"PausedPause", 529, Act::Pause, 526, "b.mid"},
    {"PausedPlay", 529, Act::Play, 526, "b.mid"},
    {"PausedStop", 529, Act::Stop, 525, "b.mid"},
    {"PausedBack", 529, Act::Back, 526, "b.mid"},
    {"PausedForward", 529, Act::Forward, 526, "b.mid"},
    {"PausedPrevious", 529, Act::Previous, 526, "a.mid"},
    {"PausedNext", 529, Act::Next, 526, "c.mid"},
    {"PausedSelectOpensNothing", 529, Act::ClickC, 529, "b.mid"},
    {"PausedDoubleClick", 529, Act::DoubleClickC, 526, "c.mid"},
});

void PrintTo(const Line &line, std::ostream *out)
{
    *out << line.name;
}

class StateTable : public PlayerRun, public testing::WithParamInterface<Line> {
protected:
    StateTable()
    {
        for (const char *name : {"a.mid", "b.mid", "c.mid"}) {
            Song("d/"s + name, 100);
        }
        WriteText("c-mix.cmp", "\1" + At("d") + "\0a.mid\0b.mid\0c.mid\0\xFF"s);
    }
    void Reach(const ListBox &list, int mode)
    {
        if (mode != SequencerMode::kNotReady) {
            Click(list, 1);
        }
        if (mode == SequencerMode::kPlaying || mode == SequencerMode::kPaused) {
            Transport(TransportButton::Play);
            Clock(2000);
        }
        if (mode == SequencerMode::kPaused) {
            Transport(TransportButton::Pause);
        }
        ASSERT_EQ(device().Mode(), mode);
    }
    void Perform(const ListBox &list, Act act)
    {
        if (act == Act::ClickC) {
            Click(list, 2);
        } else if (act == Act::DoubleClickC) {
            DoubleClick(list, 2);
        } else if (act == Act::EndOfPlay) {
            Clock(10000);
        } else {
            ASSERT_TRUE(form().MCIPuls[static_cast<int>(act)].enabled);
            Transport(static_cast<int>(act));
        }
        Clock(10); // the switch to another file comes outside the click
    }
    void Follow(const ListBox &list)
    {
        Reach(list, GetParam().from);
        Perform(list, GetParam().act);
        EXPECT_EQ(device().Mode(), GetParam().to);
        const std::string file = GetParam().file;
        EXPECT_EQ(device().FileName, file.empty() ? "" : At("d/" + file));
        EXPECT_TRUE(session.face.boxes.empty());
    }
};

TEST_P(StateTable, WithAFileOfTheFolder)
{
    StartWithPanel();
    Follow(form().ListMidiSel);
}

TEST_P(StateTable, WithAFileOfACompilation)
{
    Start();
    Click(form().ListComp, 0);
    Follow(form().ListMidiCorr);
}

INSTANTIATE_TEST_SUITE_P(Player, StateTable, testing::ValuesIn(kLines), [](const auto &about) { return std::string(about.param.name); });

static_assert(static_cast<int>(Act::Previous) == TransportButton::Previous && static_cast<int>(Act::Stop) == TransportButton::Stop);

} // namespace
} // namespace velluto::test
