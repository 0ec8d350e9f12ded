// A player with three files of 20, 10 and 30 units in the folder d, and two compilations of them. For the tests of what comes
// after the end of a file.
#pragma once

#include "player/Transport.h"
#include "unit/player/PlayerRun.h"

namespace velluto::test {

class SongsRun : public PlayerRun {
protected:
    SongsRun()
    {
        using namespace std::string_literals;
        Song("d/a.mid", 20);
        Song("d/b.mid", 10);
        Song("d/c.mid", 30);
        WriteText("c-mix.cmp", "\1" + At("d") + "\0a.mid\0b.mid\0\xFF"s);
        WriteText("c-other.cmp", "\1" + At("d") + "\0c.mid\0\xFF"s);
    }
    // With the first file of the first compilation open.
    void StartWithCompilation()
    {
        Start();
        Click(form().ListComp, 0);
        Click(form().ListMidiCorr, 0);
    }
    void Play() { Transport(TransportButton::Play); }
};

} // namespace velluto::test
