#include "player/PlayerClock.h"

namespace velluto {

void StartTickTimer(frmMIDIPlayer &form)
{
    constexpr int kTick = 200; // milliseconds; so is the resolution
    StopTickTimer(form);
    form.state.tickTimer = form.app.ports.ticks.timeSetEvent(kTick, kTick, [&count = form.state.TickCount] { ++count; });
}

void StopTickTimer(frmMIDIPlayer &form)
{
    if (form.state.tickTimer != 0) {
        form.app.ports.ticks.timeKillEvent(form.state.tickTimer);
        form.state.tickTimer = 0;
    }
}

void ContaSecContinua(frmMIDIPlayer &form)
{
    StartTickTimer(form);
    form.Timer1.enabled = true;
}

void ContaSecStart(frmMIDIPlayer &form)
{
    form.state.TickCount = 0;
    ContaSecContinua(form);
}

void ContaSecStop(frmMIDIPlayer &form)
{
    StopTickTimer(form);
    form.Timer1.enabled = false;
}

void WaitForTicks(frmMIDIPlayer &form, int ticks, std::function<void()> goOn)
{
    form.state.TickCount = 0;
    StartTickTimer(form);
    form.state.waiting.push_back({ticks, std::move(goOn)});
}

void GoOn(frmMIDIPlayer &form)
{
    std::vector<WaitingHandler> &waiting = form.state.waiting;
    while (!waiting.empty() && form.state.TickCount >= waiting.back().ticks) {
        const WaitingHandler handler = std::move(waiting.back());
        waiting.pop_back();
        StopTickTimer(form);
        handler.goOn();
    }
}

} // namespace velluto
