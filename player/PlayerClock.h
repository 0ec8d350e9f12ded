// The player's own clock: a tick of 200 ms that is counted while a file plays, and handlers that wait for ticks while other
// events come in. Used by the transport and the end of a file.
#pragma once

#include "player/frmMIDIPlayer.h"

namespace velluto {

// Ends a running tick first.
void StartTickTimer(frmMIDIPlayer &form);
void StopTickTimer(frmMIDIPlayer &form);
// Tick and Timer1 go on; Start counts from 0, Stop ends both.
void ContaSecContinua(frmMIDIPlayer &form);
void ContaSecStart(frmMIDIPlayer &form);
void ContaSecStop(frmMIDIPlayer &form);

// The handler under way waits: counts anew, and goOn is its rest. It goes on between two events once so many ticks have been
// counted, by whomever; where somebody stops the tick meanwhile, it waits until somebody starts it. Of several that wait only
// the last can go on, as the innermost of nested handlers. The end of the window ends them all.
void WaitForTicks(frmMIDIPlayer &form, int ticks, std::function<void()> goOn);
// Between two events: lets the waiting handlers go on whose time has come.
void GoOn(frmMIDIPlayer &form);

} // namespace velluto
