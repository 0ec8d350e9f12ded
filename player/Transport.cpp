#include "player/Transport.h"

#include "app/Catalogue.h"
#include "player/CompilationRows.h"
#include "player/Compilations.h"
#include "player/ListRows.h"
#include "player/Marks.h"
#include "player/PlayerClock.h"
#include "player/PlayerDisplay.h"

#include <algorithm>

namespace velluto {

namespace {

// The row one step on, round the ends. rows is above 0.
int Neighbour(int row, int step, int rows)
{
    if (step < 0) {
        return row <= 0 ? rows - 1 : std::min(row - 1, rows - 1);
    }
    return row >= rows - 1 ? 0 : std::max(row + 1, 0);
}

// A file of the list, its row selected instead of the one of the open file. False where there is none.
bool StepIn(ListBox &list, int &openRow, int step)
{
    if (list.ListCount() == 0) {
        return false;
    }
    MoveSelection(list, openRow);
    openRow = Neighbour(openRow, step, list.ListCount());
    MoveSelection(list, openRow);
    return true;
}

// step -1: the previous button, 1: the next one. The guard stays up after the previous one in the file list, on purpose: the
// lists then only change their selection until something lowers it.
void StepFile(frmMIDIPlayer &form, int step)
{
    PlayerVariables &state = form.state;
    Settings &settings = form.app.settings;
    state.SelectionGuard = true;
    bool found = false;
    if (state.PlayFromCompilation) {
        found = StepIn(form.ListMidiCorr, state.CurrentCompRow, step);
        if (found) {
            settings.PlayerFile = CompilationItemPath(form, state.CurrentCompRow);
        }
        state.SelectionGuard = false;
    } else {
        found = StepIn(form.ListMidiSel, state.CurrentFileRow, step);
        if (found) {
            state.NextFilePath = JoinPath(settings.PlayerDir, form.FileMidiSel.Row(state.CurrentFileRow));
        }
        if (step > 0 || !found) {
            state.SelectionGuard = false;
        }
    }
    if (found) {
        form.TimerComandi.enabled = true;
    }
}

// Without a file the first press only tries to open one.
void PlayWithoutFile(frmMIDIPlayer &form)
{
    if (form.state.DeviceOpenTried) {
        form.app.messages.ShowMessage(MessageNo::SequencerNotReady, kProgramTitle, {});
    }
    form.MMControl1.Command("open");
    form.state.DeviceOpenTried = true;
}

void PlayFromStopped(frmMIDIPlayer &form)
{
    if (CheckDeviceError(form) != 0) {
        return;
    }
    PlayerVariables &state = form.state;
    MMControl &device = form.MMControl1;
    state.TrackLength = device.Length();
    form.LabTrackLenght.caption = std::to_string(state.TrackLength);
    device.From(form.HScrollStart.value);
    ShowPosition(form, form.HScrollStart.value);
    form.LabTrackPosition.caption = std::to_string(device.Position());
    ClearTickMap(form);
    device.Command("play");
    LockEditing(form);
    state.OpenFilePath = device.FileName;
    UpdateTransportButtons(form);
    ContaSecStart(form);
}

void Play(frmMIDIPlayer &form)
{
    switch (form.MMControl1.Mode()) {
    case SequencerMode::kNotReady:
        PlayWithoutFile(form);
        break;
    case SequencerMode::kStopped:
        PlayFromStopped(form);
        break;
    case SequencerMode::kPaused:
        form.MMControl1.Command("play");
        UpdateTransportButtons(form);
        ContaSecStart(form); // from zero, unlike the pause button
        break;
    default:
        break;
    }
}

void Pause(frmMIDIPlayer &form)
{
    if (form.MMControl1.Mode() == SequencerMode::kPlaying) {
        form.MMControl1.Command("pause");
        ContaSecStop(form);
    } else if (form.MMControl1.Mode() == SequencerMode::kPaused) {
        form.MMControl1.Command("play");
        ContaSecContinua(form);
    }
    UpdateTransportButtons(form);
}

// 5% of the file.
std::int32_t StepLength(const frmMIDIPlayer &form)
{
    return static_cast<std::int32_t>(std::int64_t{form.MMControl1.Length()} * 5 / 100);
}

void Back(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    MMControl &device = form.MMControl1;
    ContaSecStop(form);
    device.Command("stop");
    const std::int32_t wanted = std::max(device.Position() - StepLength(form), form.HScrollStart.value.Get());
    const std::int32_t known = KnownPositionBelow(state, wanted);
    device.From(known);
    state.TickCount = TicksAt(state, known);
    device.Command("play");
    ContaSecContinua(form);
}

void Forward(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    MMControl &device = form.MMControl1;
    ContaSecStop(form);
    device.Command("stop");
    const std::int64_t position = device.Position();
    const std::int64_t wanted = position + StepLength(form);
    if (position > 0) {                                    // the time in proportion; at the very start it stays
        constexpr std::int64_t kMostTicks = 1'000'000'000; // six years
        state.TickCount = static_cast<int>(std::min(wanted * state.TickCount / position, kMostTicks));
    }
    device.From(static_cast<std::int32_t>(std::min<std::int64_t>(wanted, form.HScrollStop.value.Get())));
    device.Command("play");
    ContaSecContinua(form);
}

void Stop(frmMIDIPlayer &form)
{
    UpdateAddButtons(form);
    form.MMControl1.Command("stop");
    UpdateTransportButtons(form);
    ContaSecStop(form);
    ResetPositionLine(form);
    form.Label1.caption = "0:00";
    if (form.state.PlayFromCompilation && form.ListMidiCorr.ListIndex() >= 0) {
        form.MMControl1.Command("close");
        form.MMControl1.Command("open");
        ShowTrack(form);
        ShowPlayerCaption(form, form.MMControl1.FileName);
    }
}

} // namespace

bool IsOn(const Button &toggle)
{
    return toggle.color == kToggledColor;
}

void LockRemoving(frmMIDIPlayer &form)
{
    form.CommRim.enabled = false;
    form.CommRimAll.enabled = false;
}

void LockEditing(frmMIDIPlayer &form)
{
    LockRemoving(form);
    form.CommAdd.enabled = false;
    form.CommAddAll.enabled = false;
}

void ShowOpenedFile(frmMIDIPlayer &form)
{
    ShowTrack(form);
    ShowPosition(form, form.MMControl1.Position());
    MarkWholeFile(form);
}

void MCIPuls_Click(frmMIDIPlayer &form, int button)
{
    form.ListMidiCorr.SetFocus();
    switch (button) {
    case TransportButton::Previous:
        StepFile(form, -1);
        break;
    case TransportButton::Next:
        StepFile(form, 1);
        break;
    case TransportButton::Play:
        Play(form);
        break;
    case TransportButton::Pause:
        Pause(form);
        break;
    case TransportButton::Back:
        Back(form);
        break;
    case TransportButton::Forward:
        Forward(form);
        break;
    case TransportButton::Stop:
        Stop(form);
        break;
    default:
        break;
    }
}

void TimerComandi_Timer(frmMIDIPlayer &form)
{
    form.TimerComandi.enabled = false;
    MMControl &device = form.MMControl1;
    if (device.InPlay()) {
        ContaSecStop(form);
        device.Command("stop");
    }
    device.Command("close");
    device.FileName = form.state.PlayFromCompilation ? form.app.settings.PlayerFile : form.state.NextFilePath;
    device.Command("open");
    ShowOpenedFile(form);
    device.Command("play");
    LockRemoving(form);
    ContaSecStart(form);
    UpdateTransportButtons(form);
    ShowPlayerCaption(form, device.FileName);
}

void CommRep_Click(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    if (IsOn(form.CommRep)) {
        form.CommRep.color = state.RepeatOff;
        return;
    }
    form.CommRep.color = kToggledColor;
    if (state.PlayAllArmed) {
        state.PlayAllArmed = false;
        form.CommPlayAll.color = state.PlayAllOff;
        EnableMarks(form);
    }
}

void CommPlayAll_Click(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    SwitchOff(form.CommRep, state.RepeatOff);
    if (!IsOn(form.CommPlayAll)) {
        state.PlayAllArmed = true;
        form.CommPlayAll.color = kToggledColor;
        DisableMarks(form);
    } else {
        state.PlayAllArmed = false;
        form.CommPlayAll.color = state.PlayAllOff;
        EnableMarks(form);
    }
}

} // namespace velluto
