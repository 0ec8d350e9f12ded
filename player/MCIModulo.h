// What the player knows while its window is open. The form holds it; PlayerWindow begins it anew.
#pragma once

#include "platform/TickTimer.h"

#include <array>
#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace velluto {

inline constexpr int kToggledColor = 0x00FF00; // of the buttons that are toggles and on
inline constexpr int kTickMapSize = 30001;     // positions 0 to 30000

// A handler that waits while other events come in: what it still has to do, and for how many ticks it waits.
struct WaitingHandler {
    int ticks = 0;
    std::function<void()> goOn;
};

// What the handlers of the window share. PlayerDir, PlayerName, PlayerFile and PlayerPanelOpen live in the settings, since
// they are kept between runs. Rows are 0-based. Positions are the device's.
struct PlayerVariables {
    // Compilations
    std::string image; // the Tag of ListMidiCorr: what the compilation shown is made of
    std::string CompilationName;
    bool CompilationDirty = false;
    bool NotFound = false; // the shared flag: a file was not there

    // Transport
    bool PlayFromCompilation = false; // the open file came from ListMidiCorr; else from ListMidiSel
    bool PlayAllArmed = false;        // clicks on the file lists do nothing
    bool SelectionGuard = false;      // the program is changing selections: click handlers do nothing
    bool DeviceOpenTried = false;
    int CurrentCompRow = 0;
    int CurrentFileRow = 0;    // as the previous and next buttons keep it
    int PlayingFileRow = 0;    // as the end of a file keeps it
    int CompilationIndex = -1; // row in ListComp of the open file's compilation
    std::string NextFilePath;
    std::string PlayDir;
    std::string OpenFilePath;
    int RepeatOff = 0;
    int PlayAllOff = 0;
    int SelOff = 0;

    // Marks and time
    std::int32_t TrackLength = 0;
    std::int32_t StartMark = 0;
    std::int32_t StopMark = 0;
    bool MarksActive = false;
    int TickCount = 0; // ticks of 200 ms
    std::array<std::int16_t, kTickMapSize> TickMap{};
    TickTimer::TimerId tickTimer = 0;    // 0: none runs
    std::vector<WaitingHandler> waiting; // the innermost last; only that one can go on
};

} // namespace velluto
