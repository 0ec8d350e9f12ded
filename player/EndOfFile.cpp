#include "player/EndOfFile.h"

#include "player/CompilationRows.h"
#include "player/Compilations.h"
#include "player/FileSelection.h"
#include "player/ListRows.h"
#include "player/Marks.h"
#include "player/PlayerClock.h"
#include "player/PlayerDisplay.h"
#include "player/Transport.h"
#include "view/Raised.h"

#include <algorithm>

namespace velluto {

namespace {

// The device stays stopped, ready to play from the start mark.
void Rewind(frmMIDIPlayer &form)
{
    form.MMControl1.From(form.HScrollStart.value);
    ShowPosition(form, form.HScrollStart.value);
}

void PlayAgain(frmMIDIPlayer &form)
{
    Rewind(form);
    form.MMControl1.Command("play");
    UpdateTransportButtons(form);
    ContaSecStart(form);
}

// Only a marked section is repeated: at the end of the whole file it rewinds and stands still, on purpose.
void LoopOrRewind(frmMIDIPlayer &form)
{
    constexpr int kGap = 1; // ticks
    if (form.state.MarksActive && form.MMControl1.Position() >= form.HScrollStop.value) {
        WaitForTicks(form, kGap, [&form] { PlayAgain(form); });
    } else {
        Rewind(form);
    }
}

// The compilation shown is the one of the open file.
bool ShowsOpenCompilation(const frmMIDIPlayer &form)
{
    const int row = form.ListComp.ListIndex();
    return row >= 0 && form.ListComp.Row(row) == form.app.settings.PlayerName;
}

// The files of the folder can no longer be followed.
bool FolderIsGone(const frmMIDIPlayer &form)
{
    return !form.app.settings.PlayerPanelOpen || form.ListMidiSel.ListCount() == 0 || form.state.PlayDir != form.app.settings.PlayerDir;
}

// The row behind the open file's, which becomes the open one. From the last row on it is the first, the last one staying
// selected. The path of its file.
std::string NextInCompilation(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    const bool listed = state.CompilationIndex >= 0 && state.CompilationIndex < form.ListComp.ListCount();
    if (!ShowsOpenCompilation(form) && listed) {
        form.ListComp.ClearSelection();
        Choose(form.ListComp, state.CompilationIndex);
        ListComp_Click(form);
    }
    ListBox &list = form.ListMidiCorr;
    const Raised guard(state.SelectionGuard);
    if (list.ListIndex() != state.CurrentCompRow) {
        MoveSelection(list, state.CurrentCompRow);
    }
    if (list.ListIndex() >= list.ListCount() - 1) {
        Choose(list, 0);
    } else {
        MoveSelection(list, list.ListIndex() + 1);
    }
    state.CurrentCompRow = std::max(list.ListIndex(), 0);
    form.app.settings.PlayerFile = CompilationItemPath(form, state.CurrentCompRow);
    return form.app.settings.PlayerFile;
}

// The same in the folder's list, from the last row to the first.
std::string NextInFolder(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    ListBox &list = form.ListMidiSel;
    const Raised guard(state.SelectionGuard);
    if (list.ListIndex() != state.PlayingFileRow) {
        MoveSelection(list, state.PlayingFileRow);
    }
    const int next = list.ListIndex() + 1;
    MoveSelection(list, next < list.ListCount() ? next : 0);
    state.PlayingFileRow = list.ListIndex();
    state.NextFilePath = JoinPath(state.PlayDir, form.FileMidiSel.Row(state.PlayingFileRow));
    return state.NextFilePath;
}

void PlayNext(frmMIDIPlayer &form, const std::string &path)
{
    MMControl &device = form.MMControl1;
    device.FileName = path;
    ShowPlayerCaption(form, path);
    device.Command("open");
    ResetTimeDisplay(form);
    ShowTrack(form);
    SetMaximum(form.HScrollStop, form.state.TrackLength);
    form.HScrollStop.value = form.state.TrackLength;
    form.LabStop.caption = std::to_string(form.state.TrackLength);
    device.From(device.Position());
    device.Command("play");
    LockEditing(form);
    UpdateTransportButtons(form);
    ContaSecStart(form);
}

// "Play all" never ends by itself: it goes round for as long as it is on.
void PlayAll(frmMIDIPlayer &form)
{
    constexpr int kGap = 3; // ticks
    PlayerVariables &state = form.state;
    state.PlayAllArmed = true;
    if (!state.PlayFromCompilation && FolderIsGone(form)) {
        form.CommPlayAll.color = state.PlayAllOff;
        state.PlayAllArmed = false;
        return;
    }
    const std::string path = state.PlayFromCompilation ? NextInCompilation(form) : NextInFolder(form);
    state.PlayAllArmed = false; // clicks on the lists count again, though the button stays green
    form.MMControl1.Command("close");
    WaitForTicks(form, kGap, [&form, path] { PlayNext(form, path); });
}

void Repeat(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    if (!state.PlayFromCompilation && FolderIsGone(form)) {
        form.CommRep.color = state.RepeatOff;
        return;
    }
    ListBox &list = state.PlayFromCompilation ? form.ListMidiCorr : form.ListMidiSel;
    const int openRow = state.PlayFromCompilation ? state.CurrentCompRow : state.PlayingFileRow;
    const bool shown = !state.PlayFromCompilation || ShowsOpenCompilation(form);
    if (shown && list.ListIndex() != openRow) {
        const Raised guard(state.SelectionGuard);
        MoveSelection(list, openRow);
    }
    LoopOrRewind(form);
}

void NormalEnd(frmMIDIPlayer &form)
{
    form.MMControl1.Command("stop");
    UpdateTransportButtons(form);
    ContaSecStop(form);
    if (IsOn(form.CommRep)) {
        Repeat(form);
    } else if (IsOn(form.CommPlayAll)) {
        PlayAll(form);
    } else if (ShowsOpenCompilation(form) && form.ListMidiCorr.ListIndex() != form.state.CurrentCompRow) {
        ListMidiCorr_Click(form); // the row that was chosen while the file played, or none where it was removed
    }
}

void Aborted(frmMIDIPlayer &form)
{
    UpdateAddButtons(form);
    if (IsOn(form.CommRep)) {
        LoopOrRewind(form);
    } else {
        Rewind(form);
    }
}

} // namespace

void MMControl1_Done(frmMIDIPlayer &form, int code)
{
    if (form.MMControl1.Mode() != SequencerMode::kStopped) {
        return;
    }
    if (code == NotifyCode::kNormalEnd) {
        NormalEnd(form);
    } else if (code == NotifyCode::kAborted) {
        Aborted(form);
    }
}

} // namespace velluto
