// The player's record and the small routines that its other files share: the window's caption, the state of its buttons, the
// test of the device for errors. The chief header of the room.
#pragma once

#include "app/Modulo1.h"
#include "platform/TickTimer.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace velluto {

class frmMIDIPlayer;

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

struct PlayerState : PlayerVariables {
    explicit PlayerState(Modulo1 &core);
    ~PlayerState();
    PlayerState(const PlayerState &) = delete;
    PlayerState &operator=(const PlayerState &) = delete;

    Modulo1 &app;
    std::unique_ptr<frmMIDIPlayer> window; // while it is open
};

void ShowPlayerCaption(frmMIDIPlayer &form, std::string_view path);
// The caption of a player without a file.
void ResetPlayerCaption(frmMIDIPlayer &form);
void ResetPositionLine(frmMIDIPlayer &form);
void ResetTimeDisplay(frmMIDIPlayer &form);
// By the last command written.
void UpdateTransportButtons(frmMIDIPlayer &form);
// Shows the device's own text for its error, if there is one. Returns the error.
int CheckDeviceError(frmMIDIPlayer &form);

// Reads TrackLength and shows it, and the device's position as a plain number.
void ShowTrack(frmMIDIPlayer &form);

} // namespace velluto
