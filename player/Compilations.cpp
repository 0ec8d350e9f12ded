#include "player/Compilations.h"

#include "app/Catalogue.h"
#include "player/CompilationFiles.h"
#include "player/CompilationImage.h"
#include "player/CompilationRows.h"
#include "player/ListRows.h"
#include "player/PlayerDisplay.h"
#include "player/PlayerErrors.h"
#include "view/Raised.h"

#include <algorithm>
#include <iterator>

namespace velluto {

namespace {

// Lists are being written or the window loads: nothing that changes is the user's doing.
bool HeldOff(const frmMIDIPlayer &form)
{
    return form.app.children.RestoringLayout || form.state.SelectionGuard;
}

// Saves what has changed before another compilation takes its place. False where that failed.
bool SaveChanges(frmMIDIPlayer &form)
{
    if (!form.state.CompilationDirty) {
        return true;
    }
    const std::string prepared = PreparedText(form, CompilationPath(form.app, form.Text2.text.Get()), TextId::Saving);
    const RuntimeError error = SaveCompilation(form);
    HandlePlayerError(form, error, prepared);
    return !error.Failed();
}

} // namespace

void FillCompilations(frmMIDIPlayer &form)
{
    form.Dir1.path = form.app.paths.AppDir;
    form.File1.SetRows(CompilationFiles(form.app));
    std::vector<std::string> rows;
    std::ranges::transform(form.File1.Rows(), std::back_inserter(rows), CompilationNameOf);
    form.ListComp.SetRows(std::move(rows));
    Settings &settings = form.app.settings;
    const std::vector<std::string> &names = form.ListComp.Rows();
    const auto found = std::ranges::find(names, settings.PlayerName);
    if (found == names.end()) {
        settings.PlayerFile.clear();
        return;
    }
    const auto row = static_cast<int>(found - names.begin());
    Choose(form.ListComp, row);
    form.Text2.text = settings.PlayerName;
    form.state.CompilationName = settings.PlayerName;
    form.CommCanc.enabled = true;
    if (LoadCompilation(form, settings.PlayerName)) {
        RebuildCompilationList(form);
    }
}

bool LoadCompilation(frmMIDIPlayer &form, std::string_view name)
{
    form.state.image.clear();
    if (name.empty()) {
        return true;
    }
    const std::string path = CompilationPath(form.app, name);
    const std::string prepared = PreparedText(form, path, TextId::OpeningStep);
    const RuntimeError error = Resumed([&] { return ReadCompilation(form.app, path, form.state.image); });
    HandlePlayerError(form, error, prepared);
    if (error.number == kCompilationTooLong.number) {
        form.app.messages.ShowMessage(MessageNo::DataFormatError, prepared, {});
    }
    return !error.Failed();
}

RuntimeError SaveCompilation(frmMIDIPlayer &form)
{
    const std::string &name = form.Text2.text.Get();
    if (name.empty()) {
        return {};
    }
    form.state.CompilationDirty = false;
    const RuntimeError error = Resumed([&] { return WriteCompilation(form.app, CompilationPath(form.app, name), form.state.image); });
    form.state.CompilationDirty = error.Failed();
    return error;
}

void UpdateRemoveButtons(frmMIDIPlayer &form)
{
    form.CommRimAll.enabled = form.ListMidiCorr.ListCount() > 0;
    form.CommRim.enabled = FirstSelected(form.ListMidiCorr) >= 0;
}

void UpdateAddButtons(frmMIDIPlayer &form)
{
    form.CommAdd.enabled = false;
    if (form.app.settings.PlayerPanelOpen) {
        form.CommAddAll.enabled = form.ListMidiSel.ListCount() > 0;
        form.CommAdd.enabled = FirstSelected(form.ListMidiSel) >= 0;
    }
}

bool CompilationFileInPlay(const frmMIDIPlayer &form)
{
    return form.state.PlayFromCompilation && form.MMControl1.InPlay();
}

void ListComp_Click(frmMIDIPlayer &form)
{
    if (HeldOff(form) || !SaveChanges(form)) {
        return;
    }
    PlayerVariables &state = form.state;
    const std::string name = form.ListComp.Row(form.ListComp.ListIndex());
    form.CommCanc.enabled = true;
    form.Text2.text = name;
    state.CompilationName = name;
    form.ListMidiCorr.Clear();
    if (!LoadCompilation(form, name)) {
        return;
    }
    RebuildCompilationList(form);
    if (!CompilationFileInPlay(form)) {
        UpdateRemoveButtons(form);
    }
    if (name == form.app.settings.PlayerName) {
        const Raised guard(state.SelectionGuard);
        Choose(form.ListMidiCorr, state.CurrentCompRow);
    }
    UpdateTransportButtons(form);
}

void Text2_Change(frmMIDIPlayer &form)
{
    if (HeldOff(form)) {
        return;
    }
    const std::string &text = form.Text2.text.Get();
    form.CommNuovo.enabled = true;
    form.state.CompilationName = text;
    const int row = form.ListComp.ListIndex();
    if (row >= 0 && form.ListComp.Row(row) != text) {
        form.ListComp.SetRow(row, text);
        form.state.CompilationDirty = true;
    }
}

void CommNuovo_Click(frmMIDIPlayer &form)
{
    if (!SaveChanges(form)) {
        return;
    }
    PlayerVariables &state = form.state;
    form.CommNuovo.enabled = false;
    form.ListMidiCorr.Clear();
    state.image.clear();
    {
        const Raised loading(form.app.children.RestoringLayout);
        form.ListComp.ClearSelection();
        form.ListComp.InsertItem({}, 0);
        Choose(form.ListComp, 0);
        if (state.CompilationIndex >= 0) {
            ++state.CompilationIndex;
        }
        form.CommCanc.enabled = false;
        form.Text2.text = "";
    }
    state.CompilationName.clear();
    form.Text2.SetFocus();
    form.CommRimAll.enabled = false;
}

void CommCanc_Click(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    const int row = form.ListComp.ListIndex();
    const std::string name = form.Text2.text;
    if (name.empty() || row < 0) {
        return;
    }
    form.CommCanc.enabled = false;
    const std::string path = CompilationPath(form.app, form.ListComp.Row(row));
    const RuntimeError error = Resumed([&] { return form.app.ports.files.Delete(path); });
    if (!error.Failed() || error.number == FileError::kFileNotFound) {
        state.CompilationDirty = false; // what was changed in it goes with it
    }
    if (error.Failed()) {
        HandlePlayerError(form, error, PreparedText(form, path, TextId::DeletingStep));
        return;
    }
    if (name == form.app.settings.PlayerName) {
        form.app.settings.PlayerName.clear();
    }
    // The row that goes is the one of that name, on purpose: under the guard another one may have been selected meanwhile.
    const std::vector<std::string> &names = form.ListComp.Rows();
    const auto named = static_cast<int>(std::ranges::find(names, name) - names.begin());
    form.ListComp.RemoveItem(named);
    if (state.CompilationIndex > named) {
        --state.CompilationIndex;
    }
    const Raised guard(state.SelectionGuard);
    form.Text2.text = "";
    state.CompilationName.clear();
    form.ListMidiCorr.Clear();
    state.image.clear();
}

void CommAdd_Click(frmMIDIPlayer &form)
{
    form.state.CompilationDirty = true;
    const int first = FirstSelected(form.ListMidiSel);
    if (first >= 0) {
        AddFilesToCompilation(form, first, EndOfRun(form.ListMidiSel, first));
    }
}

void CommAddAll_Click(frmMIDIPlayer &form)
{
    form.state.CompilationDirty = true;
    AddFilesToCompilation(form, 0, form.FileMidiSel.ListCount() - 1);
    form.CommRimAll.enabled = true;
}

void CommRim_Click(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    state.CompilationDirty = true;
    form.CommRim.enabled = false;
    const int first = FirstSelected(form.ListMidiCorr);
    if (form.ListMidiCorr.ListIndex() < 0 || first < 0) {
        return;
    }
    const int last = EndOfRun(form.ListMidiCorr, first);
    for (int k = first; k <= last; ++k) {
        const std::string name = NamePart(CompilationItemPath(form, first));
        form.ListMidiCorr.RemoveItem(first); // the rows below move up
        if (!form.MMControl1.InPlay()) {
            ResetPlayerCaption(form);
        }
        RemoveByName(state.image, name);
    }
    if (!form.MMControl1.InPlay()) {
        form.MMControl1.Command("close");
        UpdateTransportButtons(form);
        form.LabTrackLenght.caption = "0";
    }
}

void CommRimAll_Click(frmMIDIPlayer &form)
{
    if (form.Text2.text.Get().empty()) {
        return;
    }
    form.state.CompilationDirty = true;
    form.CommRim.enabled = false;
    form.CommRimAll.enabled = false;
    form.state.image.clear();
    form.ListMidiCorr.Clear();
}

} // namespace velluto
