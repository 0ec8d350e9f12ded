#include "player/FilePanel.h"

#include "app/Catalogue.h"
#include "app/Paths.h"
#include "player/Compilations.h"
#include "player/FileSelection.h"
#include "player/ListRows.h"
#include "player/PlayerDisplay.h"
#include "player/PlayerErrors.h"
#include "player/PlayerLayout.h"

#include <algorithm>

namespace velluto {

namespace {

// Without a separator at its end, but for the root.
std::string WithoutTrailingSeparator(std::string path)
{
    while (path.size() > 1 && path.back() == kPathSeparator) {
        path.pop_back();
    }
    return path;
}

// Each row stands a little further to the right than the folder it lies in.
void ShowFolders(FolderList &list, const std::vector<std::string> &inside)
{
    constexpr std::size_t kIndent = 2;
    std::vector<std::string> paths = WayTo(list.path);
    std::vector<std::string> rows;
    for (const std::string &path : paths) {
        const std::string name = NamePart(path);
        rows.push_back(std::string(rows.size() * kIndent, ' ') + (name.empty() ? path : name));
    }
    const int open = static_cast<int>(rows.size()) - 1;
    const std::string indent(rows.size() * kIndent, ' ');
    for (const std::string &name : inside) {
        rows.push_back(indent + name);
        paths.push_back(JoinPath(list.path, name));
    }
    list.paths = std::move(paths);
    list.SetRows(std::move(rows));
    Choose(list, open);
}

// The drive that the folder lies on: of several the one nearest to it.
void ShowDrive(DriveList &drives, const std::string &folder)
{
    int nearest = -1;
    std::size_t length = 0;
    for (int row = 0; row < static_cast<int>(drives.rows.size()); ++row) {
        const std::string &drive = drives.rows[static_cast<std::size_t>(row)];
        const bool above = folder == drive || folder.starts_with(drive.back() == kPathSeparator ? drive : drive + kPathSeparator);
        if (above && drive.size() > length) {
            nearest = row;
            length = drive.size();
        }
    }
    drives.ListIndex = nearest;
}

// The folder among the folders and on its drive.
void ShowPlace(frmMIDIPlayer &form, const std::string &folder)
{
    std::vector<std::string> inside;
    (void)form.app.ports.folders.Subfolders(folder, inside);
    form.DirMidiSel.path = folder;
    ShowFolders(form.DirMidiSel, inside);
    ShowDrive(form.DriveMidiSel, folder);
}

void ShowFiles(frmMIDIPlayer &form, const std::vector<ListedFile> &files)
{
    std::vector<std::string> names;
    std::vector<std::string> rows;
    for (const ListedFile &file : files) {
        names.push_back(file.name);
        rows.push_back(FileRow(file.name, file.length));
    }
    form.FileMidiSel.SetRows(std::move(names));
    form.ListMidiSel.SetRows(std::move(rows));
    form.CommAdd.enabled = false;
    form.CommAddAll.enabled = !files.empty();
}

RuntimeError ReadFolder(const frmMIDIPlayer &form, const std::string &path, std::vector<ListedFile> &files)
{
    return Resumed([&] { return form.app.ports.folders.Files(path, "*.mid", files); });
}

// The path is given once more where the panel opens. What has not changed is not listed anew: the selection stays.
bool ShowsAlready(const frmMIDIPlayer &form, const std::string &path, const std::vector<ListedFile> &files)
{
    return form.DirMidiSel.path == path && form.app.settings.PlayerDir == path &&
           std::ranges::equal(files, form.ListMidiSel.Rows(), {}, [](const ListedFile &file) { return FileRow(file.name, file.length); });
}

void ClosePanel(frmMIDIPlayer &form)
{
    form.app.settings.PlayerPanelOpen = false;
    TakeFormWidth(form);
    form.CommAdd.enabled = false;
    form.CommAddAll.enabled = false;
    form.CommSel.color = form.state.SelOff;
    form.Frame4.visible = false;
}

void OpenPanel(frmMIDIPlayer &form)
{
    form.app.settings.PlayerPanelOpen = true;
    form.Frame4.visible = true;
    TakeFormWidth(form);
    form.CommSel.color = kToggledColor;
    ShowPlayerCaption(form, {});
    form.DriveMidiSel.SetDrives(form.app.ports.folders.Drives()); // something may have been mounted meanwhile
    ShowDrive(form.DriveMidiSel, form.DirMidiSel.path);
    const std::string folder = form.app.settings.PlayerDir;
    const RuntimeError error = OpenFolder(form, folder);
    if (error.Failed()) {
        HandlePlayerError(form, error, PreparedText(form, folder, TextId::OpeningStep));
        return;
    }
    UpdateAddButtons(form);
}

} // namespace

RuntimeError OpenFolder(frmMIDIPlayer &form, const std::string &path)
{
    // Without a folder of the last run it is the program's own.
    const std::string folder = WithoutTrailingSeparator(path.empty() ? form.app.paths.AppDir : path);
    std::vector<ListedFile> files;
    const RuntimeError error = ReadFolder(form, folder, files);
    if (error.Failed() || ShowsAlready(form, folder, files)) {
        return error;
    }
    form.app.settings.PlayerDir = folder;
    ShowPlace(form, folder);
    ShowFiles(form, files);
    return {};
}

void ShowMidiFile(frmMIDIPlayer &form, const std::string &path)
{
    form.TimerListMidiCorr.enabled = false;                     // the file of the last run gives way
    const std::string folder = FolderOf(path) + kPathSeparator; // of a file in the root folder as well
    const RuntimeError error = OpenFolder(form, folder);
    if (error.Failed()) {
        HandlePlayerError(form, error, PreparedText(form, folder, TextId::OpeningStep));
        return;
    }
    if (!form.app.settings.PlayerPanelOpen) {
        OpenPanel(form);
    }
    OpenFileOfFolder(form, NamePart(path));
}

void FillFilePanel(frmMIDIPlayer &form)
{
    const Settings &settings = form.app.settings;
    form.DriveMidiSel.SetDrives(form.app.ports.folders.Drives());
    const bool wanted = settings.PlayerPanelOpen || !settings.PlayerDir.empty();
    if (!wanted || OpenFolder(form, settings.PlayerDir).Failed()) {
        // PlayerDir stays: a folder may come back, as a stick does. The search for another one begins beside the program.
        ShowPlace(form, form.app.paths.AppDir);
    }
}

void DriveMidiSel_Change(frmMIDIPlayer &form)
{
    (void)OpenFolder(form, form.DriveMidiSel.Drive());
}

void DirMidiSel_DblClick(frmMIDIPlayer &form)
{
    const int row = form.DirMidiSel.ListIndex();
    if (row >= 0 && row < static_cast<int>(form.DirMidiSel.paths.size())) {
        const std::string path = form.DirMidiSel.paths[static_cast<std::size_t>(row)];
        (void)OpenFolder(form, path);
    }
}

void CommSel_Click(frmMIDIPlayer &form)
{
    if (form.app.settings.PlayerPanelOpen) {
        ClosePanel(form);
    } else {
        OpenPanel(form);
    }
}

} // namespace velluto
