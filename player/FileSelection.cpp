#include "player/FileSelection.h"

#include "player/CompilationRows.h"
#include "player/Compilations.h"
#include "player/ListRows.h"
#include "player/Marks.h"
#include "player/PlayerClock.h"
#include "player/PlayerDisplay.h"
#include "player/Transport.h"
#include "view/Raised.h"

#include <algorithm>

namespace velluto {

namespace {

void ZeroTrack(frmMIDIPlayer &form)
{
    form.LabTrackLenght.caption = "0";
    form.LabTrackPosition.caption = "0";
}

// The last selected row was unselected: no file is chosen any more.
void ForgetFile(frmMIDIPlayer &form)
{
    form.state.NextFilePath.clear();
    UpdateTransportButtons(form);
    ZeroTrack(form);
    DisableMarks(form);
}

// Opens FileName. False where the device refuses it, which has been told then.
bool OpenChosen(frmMIDIPlayer &form)
{
    form.MMControl1.Command("open");
    if (CheckDeviceError(form) == 0) {
        return true;
    }
    form.MMControl1.Command("close");
    ZeroTrack(form);
    return false;
}

void ShowChosen(frmMIDIPlayer &form)
{
    ShowTrack(form);
    ShowPlayerCaption(form, form.MMControl1.FileName);
    ShowPosition(form, form.MMControl1.Position());
    MarkWholeFile(form);
    UpdateTransportButtons(form);
}

void EndPlay(frmMIDIPlayer &form)
{
    if (form.MMControl1.InPlay()) {
        form.MMControl1.Command("stop");
        ContaSecStop(form);
    }
}

void PlayChosen(frmMIDIPlayer &form, const std::string &path)
{
    MMControl &device = form.MMControl1;
    device.Command("close");
    device.FileName = path;
    device.Command("open");
    ShowOpenedFile(form);
    device.Command("play");
    UpdateTransportButtons(form);
    ContaSecStart(form);
}

// A file of the folder is chosen now, and none of a compilation.
void LeaveCompilation(frmMIDIPlayer &form)
{
    const Raised guard(form.state.SelectionGuard);
    form.ListMidiCorr.ClearSelection();
    form.app.settings.PlayerFile.clear();
    form.app.settings.PlayerName.clear();
}

// Opens the file of the folder that is shown; row is -1 where the list leaves it out.
void OpenOfFolder(frmMIDIPlayer &form, const std::string &name, int row)
{
    PlayerVariables &state = form.state;
    LeaveCompilation(form);
    state.PlayingFileRow = row;
    state.NextFilePath = name;
    state.PlayDir = form.app.settings.PlayerDir;
    form.MMControl1.FileName = JoinPath(state.PlayDir, name);
    if (!OpenChosen(form)) {
        UpdateTransportButtons(form);
        return;
    }
    state.CurrentFileRow = row;
    state.PlayFromCompilation = false;
    ShowChosen(form);
}

} // namespace

void ListMidiSel_Click(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    MMControl &device = form.MMControl1;
    if (state.SelectionGuard || state.PlayAllArmed || device.InPlay()) {
        return;
    }
    UpdateAddButtons(form);
    if (device.Mode() == SequencerMode::kStopped) {
        device.Command("close");
    }
    if (FirstSelected(form.ListMidiSel) < 0) {
        ForgetFile(form);
        return;
    }
    const int row = form.ListMidiSel.ListIndex(); // the row of the click, also where it was just unselected and others still are
    OpenOfFolder(form, form.FileMidiSel.Row(row), row);
}

void OpenFileOfFolder(frmMIDIPlayer &form, const std::string &name)
{
    form.state.PlayAllArmed = false;
    form.state.SelectionGuard = false;
    EndPlay(form);
    const std::vector<std::string> &names = form.FileMidiSel.Rows();
    const auto found = std::ranges::find(names, name);
    form.ListMidiSel.ClearSelection();
    if (found != names.end()) {
        const int row = static_cast<int>(found - names.begin());
        form.ListMidiSel.SetListIndex(row);
        form.ListMidiSel.Select(row, true);
        ListMidiSel_Click(form);
        return;
    }
    if (form.MMControl1.Mode() == SequencerMode::kStopped) {
        form.MMControl1.Command("close");
    }
    UpdateAddButtons(form);
    OpenOfFolder(form, name, -1);
}

void ListMidiCorr_Click(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    MMControl &device = form.MMControl1;
    if (state.SelectionGuard) {
        return;
    }
    if (!CompilationFileInPlay(form)) {
        UpdateRemoveButtons(form);
    }
    if (state.PlayAllArmed || device.InPlay()) {
        return;
    }
    if (device.Mode() == SequencerMode::kStopped) {
        device.Command("close");
    }
    Settings &settings = form.app.settings;
    const int row = CurrentOrFirstSelected(form.ListMidiCorr);
    if (row < 0) {
        settings.PlayerFile.clear();
        ForgetFile(form);
        return;
    }
    settings.PlayerFile = CompilationItemPath(form, row);
    {
        const Raised guard(state.SelectionGuard);
        form.ListMidiSel.ClearSelection();
    }
    state.NextFilePath.clear();
    state.CurrentCompRow = row;
    state.CompilationIndex = form.ListComp.ListIndex();
    settings.PlayerName = form.ListComp.Row(state.CompilationIndex);
    device.FileName = settings.PlayerFile;
    if (!OpenChosen(form)) {
        ResetPlayerCaption(form);
        UpdateTransportButtons(form);
        return;
    }
    state.PlayFromCompilation = true;
    ShowChosen(form);
}

void ListMidiSel_DblClick(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    const Settings &settings = form.app.settings;
    const int row = form.ListMidiSel.ListIndex();
    state.OpenFilePath = JoinPath(settings.PlayerDir, form.FileMidiSel.Row(row));
    state.PlayDir = settings.PlayerDir;
    state.CurrentFileRow = row;
    state.PlayFromCompilation = false;
    ShowPlayerCaption(form, state.OpenFilePath);
    EndPlay(form);
    PlayChosen(form, state.OpenFilePath);
}

void ListMidiCorr_DblClick(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    Settings &settings = form.app.settings;
    EndPlay(form);
    const int row = form.ListMidiCorr.ListIndex();
    settings.PlayerName = form.Text2.text;
    settings.PlayerFile = CompilationItemPath(form, row);
    ShowPlayerCaption(form, settings.PlayerFile);
    state.CurrentCompRow = row;
    state.PlayFromCompilation = true;
    PlayChosen(form, settings.PlayerFile);
}

void TimerListMidiCorr_Timer(frmMIDIPlayer &form)
{
    form.TimerListMidiCorr.enabled = false;
    const std::string name = NamePart(form.app.settings.PlayerFile);
    for (int row = 0; row < form.ListMidiCorr.ListCount(); ++row) {
        if (BareName(form.ListMidiCorr.Row(row)) == name) {
            Choose(form.ListMidiCorr, row);
            ListMidiCorr_Click(form);
            return;
        }
    }
}

} // namespace velluto
