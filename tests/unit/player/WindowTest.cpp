// The player's window: load, unload, and what it keeps between runs.
#include "player/PlayerLayout.h"

#include "player/Transport.h"
#include "unit/player/PlayerRun.h"

#include <initializer_list>

namespace velluto::test {
namespace {

using namespace std::string_literals;
using testing::ElementsAre;

class PlayerWindow : public PlayerRun {
protected:
    PlayerWindow()
    {
        Song("d/a.mid", 100);
        Song("d/b.mid", 60);
        WriteText("c-mix.cmp", "\1" + At("d") + "\0a.mid\0b.mid\0\xFF"s);
    }
    void StartAgain()
    {
        Do("exit");
        Start();
    }
};

TEST_F(PlayerWindow, ComesUpOnceAndTakesItsCommandAway)
{
    Start();
    EXPECT_EQ(form().Tag.Kind(), 17);
    EXPECT_FALSE(session.Program().app.frame.mnuMidiPlayer.enabled);
    EXPECT_EQ(session.Program().app.children.ChildCount, 1);
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER");
    EXPECT_EQ(form().Label1.caption.Get(), "0:00");
    EXPECT_EQ(form().Text2.text.Get(), "");
    EXPECT_FALSE(form().Timer1.enabled);
    EXPECT_FALSE(form().TimerComandi.enabled);
    EXPECT_FALSE(form().TimerListMidiCorr.enabled);
    Do("close frmMIDIPlayer");
    EXPECT_TRUE(session.Program().app.frame.mnuMidiPlayer.enabled);
    EXPECT_EQ(session.Program().app.children.ChildCount, 0);
    EXPECT_EQ(settings().PlacementTable[16].State, 0);
}

TEST_F(PlayerWindow, CaptionsAreThoseOfTheLanguage)
{
    Start();
    EXPECT_EQ(form().CommNuovo.caption.Get(), "New");
    EXPECT_EQ(form().CommCanc.caption.Get(), "Delete");
    EXPECT_EQ(form().CommRim.caption.Get(), "Remove sel.");
    EXPECT_EQ(form().CommRimAll.caption.Get(), "Remove all");
    EXPECT_EQ(form().CommAdd.caption.Get(), "Add sel.");
    EXPECT_EQ(form().CommAddAll.caption.Get(), "Add all");
    EXPECT_EQ(form().MCIPuls[2].toolTip.Get(), "Play");
    settings().Lingua = 1;
    StartAgain();
    EXPECT_EQ(form().CommNuovo.caption.Get(), "Nuova");
    EXPECT_EQ(form().MCIPuls[2].toolTip.Get(), "Riproduci");
    EXPECT_EQ(form().CommSel.caption.Get(), "Selezione Files");
    EXPECT_EQ(form().Frame4.caption.Get(), "Files MIDI");
    EXPECT_EQ(form().Label2[0].caption.Get(), "Lenght");
}

TEST_F(PlayerWindow, SlidersAndMarkersTellWhichMarkIsTheirs)
{
    Start();
    for (const Control *start : std::initializer_list<Control *>{&form().HScrollStart, &form().Picture2}) {
        EXPECT_EQ(start->toolTip.Get(), "Start mark") << start->FullName();
        EXPECT_EQ(start->accessibleName, "Start mark") << start->FullName();
    }
    for (const Control *stop : std::initializer_list<Control *>{&form().HScrollStop, &form().Picture3}) {
        EXPECT_EQ(stop->toolTip.Get(), "Stop mark") << stop->FullName();
        EXPECT_EQ(stop->accessibleName, "Stop mark") << stop->FullName();
    }
}

TEST_F(PlayerWindow, EveryControlHasAPlaceInsideItsHolder)
{
    Start();
    Press(form().CommSel);
    for (const Control *control : form().controls()) {
        const bool drawn = control->visible && dynamic_cast<const Timer *>(control) == nullptr;
        if (!drawn) {
            continue;
        }
        const Place place = control->place;
        const Size room = control->container != nullptr
                              ? Size{control->container->place.Get().width, control->container->place.Get().height}
                              : Size{form().ScaleWidth(), form().ScaleHeight()};
        EXPECT_GE(place.left, 0) << control->FullName();
        EXPECT_GE(place.top, 0) << control->FullName();
        EXPECT_LE(place.left + place.width, room.width) << control->FullName();
        EXPECT_LE(place.top + place.height, room.height) << control->FullName();
        EXPECT_GT(place.height, 0) << control->FullName();
    }
}

TEST_F(PlayerWindow, KeepsItsPlaceBetweenRuns)
{
    Start();
    Do("move frmMIDIPlayer 300 450");
    const int width = form().Width();
    Do("resize frmMIDIPlayer 20000 9000");
    EXPECT_EQ(form().Width(), width); // one of two
    EXPECT_EQ(form().Height(), 9000);
    Do("resize frmMIDIPlayer 100 100");
    EXPECT_EQ(form().Height(), settings().PlacementTable[16].MinHeight);
    Do("resize frmMIDIPlayer 100 9000");
    StartAgain();
    EXPECT_EQ(form().place.Get(), (Place{300, 450, width, 9000}));
    EXPECT_EQ(settings().PlacementTable[16].State, 1);
}

TEST_F(PlayerWindow, TheListsTakeTheHeight)
{
    Start();
    const int before = form().ListMidiCorr.place.Get().height;
    Do("resize frmMIDIPlayer 100 " + std::to_string(form().Height() + 1500));
    EXPECT_EQ(form().ListMidiCorr.place.Get().height, before + 1500);
}

TEST_F(PlayerWindow, TheNaturalSizeIsThatOfItsForm)
{
    Start();
    const int narrow = form().Width();
    Do("drop mnuModifica");
    EXPECT_FALSE(session.Program().app.frame.mnuIngrandisci.enabled);
    Press(form().CommSel);
    EXPECT_GT(form().Width(), narrow);
    Do("resize frmMIDIPlayer 100 12000");
    Do("menu mnuIngrandisci");
    EXPECT_EQ(form().Width(), settings().PlacementTable[16].MinWidth);
    EXPECT_EQ(form().Height(), settings().PlacementTable[16].MinHeight);
}

TEST_F(PlayerWindow, TheFileOfTheLastRunIsSelectedAMomentAfterTheLoad)
{
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 1);
    StartAgain();
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER - b.mid");
    EXPECT_EQ(form().Text2.text.Get(), "mix");
    EXPECT_EQ(form().ListComp.ListIndex(), 0);
    EXPECT_TRUE(form().CommCanc.enabled);
    EXPECT_EQ(form().ListMidiCorr.ListCount(), 2);
    EXPECT_EQ(device().Mode(), 524);
    EXPECT_FALSE(state().CompilationDirty);
    Clock(9);
    EXPECT_EQ(device().Mode(), 524);
    Clock(1);
    EXPECT_EQ(device().Mode(), 525);
    EXPECT_EQ(device().FileName, At("d/b.mid"));
    EXPECT_THAT(Selected(form().ListMidiCorr), ElementsAre(1));
    EXPECT_FALSE(form().TimerListMidiCorr.enabled);
}

TEST_F(PlayerWindow, TheFileOfTheLastRunIsTheOneOfItsWholeName)
{
    Song("d/b.mid.mid", 10);
    WriteText("c-mix.cmp", "\1" + At("d") + "\0b.mid.mid\0b.mid\0\xFF"s);
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 1);
    StartAgain();
    Clock(10);
    EXPECT_THAT(Selected(form().ListMidiCorr), ElementsAre(1));
    EXPECT_EQ(device().FileName, At("d/b.mid"));
}

TEST_F(PlayerWindow, AFileOfTheLastRunThatIsNoLongerListedSelectsNothing)
{
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 1);
    Do("exit");
    std::filesystem::remove(At("d/b.mid"));
    Start();
    Clock(1000);
    EXPECT_THAT(Selected(form().ListMidiCorr), ElementsAre());
    EXPECT_EQ(device().Mode(), 524);
    EXPECT_TRUE(session.face.boxes.empty());
}

TEST_F(PlayerWindow, ACompilationOfTheLastRunThatIsGoneForgetsTheFile)
{
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 1);
    Do("exit");
    std::filesystem::remove(At("c-mix.cmp"));
    Start();
    EXPECT_EQ(settings().PlayerFile, "");
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER");
    EXPECT_EQ(form().LabStart.caption.Get(), "Start");
    EXPECT_FALSE(form().HScrollStart.enabled);
    Clock(1000);
    EXPECT_EQ(device().Mode(), 524);
}

TEST_F(PlayerWindow, AFileOfTheFolderIsNotRemembered)
{
    StartWithPanel();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 1);
    Click(form().ListMidiSel, 0);
    Do("close frmMIDIPlayer");
    EXPECT_EQ(settings().PlayerFile, "");
    EXPECT_EQ(settings().PlayerName, "mix"); // the compilation that is shown comes up again
    Start();
    EXPECT_EQ(form().caption.Get(), "MIDI PLAYER");
    EXPECT_EQ(form().Text2.text.Get(), "mix");
    Do("close frmMIDIPlayer"); // and stays the one
    EXPECT_EQ(settings().PlayerName, "mix");
}

TEST_F(PlayerWindow, WithAFileInHandItsCompilationIsRememberedAndNotTheOneThatIsShown)
{
    WriteText("c-other.cmp", "");
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 1);
    Click(form().ListComp, 1);
    ASSERT_EQ(form().Text2.text.Get(), "other");
    Do("close frmMIDIPlayer");
    EXPECT_EQ(settings().PlayerFile, At("d/b.mid"));
    EXPECT_EQ(settings().PlayerName, "mix");
}

TEST_F(PlayerWindow, ANameThatWasKeptWithARestBehindItIsNotFound)
{
    Start();
    Click(form().ListComp, 0);
    Click(form().ListMidiCorr, 0);
    settings().PlayerDir = "/home/somebody";
    Do("exit");
    Start();
    // "mix" came back with the rest of the longer folder's path behind it.
    EXPECT_EQ(settings().PlayerFile, "");
    EXPECT_EQ(form().ListComp.ListIndex(), -1);
}

TEST_F(PlayerWindow, WindowVariablesBeginAnew)
{
    StartWithPanel();
    Click(form().ListMidiSel, 1);
    Press(form().CommPlayAll);
    Transport(TransportButton::Play);
    Clock(1000);
    Do("close frmMIDIPlayer");
    Start();
    EXPECT_FALSE(state().PlayAllArmed);
    EXPECT_EQ(state().TickCount, 0);
    EXPECT_EQ(state().TrackLength, 0);
    EXPECT_EQ(form().CommPlayAll.color, Button::kPlainColor);
    EXPECT_EQ(form().Label1.caption.Get(), "0:00");
    EXPECT_EQ(device().Mode(), 524);
}

TEST_F(PlayerWindow, TheRightButtonPopsUpTheEditMenu)
{
    Start();
    for (const char *control : {"", " Frame1", " Frame2", " Frame3"}) {
        Do("popup frmMIDIPlayer"s + control);
        ASSERT_EQ(session.face.popUps.size(), 1U) << control;
        EXPECT_EQ(session.face.popUps[0]->name(), "mnuModifica");
    }
    Press(form().CommSel);
    Do("popup frmMIDIPlayer Frame4");
    EXPECT_EQ(session.face.popUps.size(), 1U);
}

TEST_F(PlayerWindow, AMinimisedOneKeepsItsPlace)
{
    Start();
    const Place before = form().place;
    Do("minimise frmMIDIPlayer");
    EXPECT_EQ(settings().PlacementTable[16].State, 2);
    Do("restore frmMIDIPlayer");
    EXPECT_EQ(form().place.Get(), before);
    EXPECT_EQ(settings().PlacementTable[16].State, 1);
}

} // namespace
} // namespace velluto::test
