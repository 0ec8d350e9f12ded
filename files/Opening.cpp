#include "files/Opening.h"

#include "app/Catalogue.h"
#include "app/RecentFiles.h"
#include "app/ViewKind.h"
#include "files/DocumentWindows.h"
#include "files/ErrorTrap.h"
#include "files/ReadInstrumentFile.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr std::string_view kOpenFilter = "Program (*.pcg)|*.pcg|Style (*.sty)|*.sty|Performance (*.prf)|*.prf|All files (*.*)|*.*|";
constexpr int kAllFilesFilter = 4;

std::string OpeningTitle(const FilesState &files)
{
    return files.app.messages.Text(TextId::Opening) + files.FileName;
}

// The type that the last three characters of a name tell, with or without a dot before them.
DocumentType *TypeOfName(FilesState &files, std::string_view name)
{
    const std::string end = UpperCase(name.substr(name.size() - std::min<std::size_t>(name.size(), 3)));
    auto *const found = std::ranges::find(files.types, end, &DocumentType::extension);
    return found == files.types.end() ? nullptr : &*found;
}

// The type of a recent entry: its extension in capitals or in small letters, but in no mixture of both.
DocumentType *TypeOfExtension(FilesState &files, std::string_view path)
{
    const auto dot = path.find_last_of('.');
    const std::string_view extension = dot == std::string_view::npos ? path : path.substr(dot + 1);
    auto *const found = std::ranges::find_if(files.types, [extension](const DocumentType &type) {
        return extension == type.extension || extension == LowerCase(type.extension);
    });
    return found == files.types.end() ? nullptr : &*found;
}

FileDialog OpenDialog(const Modulo1 &app, const DocumentType &type)
{
    FileDialog dialog;
    dialog.mode = FileDialog::Mode::Open;
    dialog.title = std::string(kProgramTitle) + "- " + app.messages.Text(TextId::OpenFile);
    dialog.folder = app.settings.LastDir.empty() ? app.paths.AppDir : app.settings.LastDir;
    dialog.filter = kOpenFilter;
    dialog.filterIndex = type.filterIndex;
    return dialog;
}

// Brings the file in LoadImage to the screen: in the slot that knew it before, or else in the free slot found already.
void ShowLoadedFile(FilesState &files, DocumentType &type)
{
    Modulo1 &app = files.app;
    const std::string path = files.FilePath;
    if (RefusedAsTooLong(app, path, OpeningTitle(files))) {
        return;
    }
    files.OpenChainCode = 0;
    app.ViewKind = type.kind;
    files.PcgFileSlot = FindKnown(type, path);
    if (type.remembersKnown) {
        files.KnownFileFlag = files.PcgFileSlot > 0 ? 1 : 0;
    }
    if (files.PcgFileSlot > 0) {
        type.current = files.PcgFileSlot;
    }
    const int slot = type.current;
    type.work.Path.Set(path);
    StoreSlot(type, slot);

    bool &taken = type.openFlags[static_cast<std::size_t>(slot)];
    taken = taken || type.flagBeforeShow;
    ShowDocument(files, type, slot);
    taken = true;
    AddRecent(app, path, static_cast<std::uint8_t>(files.RecentKind));

    const int free = FindFree(type);
    type.current = free > 0 ? free : kLastFileSlot + 1;
    if (free == 0) {
        type.openCommand.enabled = false;
    }
}

void OpenCommand(FilesState &files, DocumentType &type);

// Shows the dialog of an Open command and acts on its outcome. True when the command's own file, or the last file once
// more, is to be shown.
bool ChosenForThisCommand(FilesState &files, DocumentType &type)
{
    const int outcome = ChooseFile(files, type.kind);
    if (outcome == type.chainCode) {
        return true;
    }
    switch (outcome) {
    case ChooseOutcome::Nothing:
        return false;
    case ChooseOutcome::ForeignName:
        // The last file comes once more, on purpose; where nothing has been loaded yet there is none.
        return !files.LoadImage.empty() && !files.FileName.empty();
    case ChooseOutcome::AlreadyOpen:
        files.app.messages.ShowMessage(MessageNo::FileAlreadyOpen, OpeningTitle(files), {});
        return false;
    case ChooseOutcome::Missing:
        files.app.messages.ShowMessage(MessageNo::FileNotFound, OpeningTitle(files), {});
        return false;
    default:
        files.OpenChainCode = outcome;
        OpenCommand(files, *std::ranges::find(files.types, outcome, &DocumentType::chainCode));
        return false;
    }
}

void OpenCommand(FilesState &files, DocumentType &type)
{
    type.current = FindFree(type);
    if (type.current == 0) {
        return;
    }
    if (files.OpenChainCode == type.chainCode || ChosenForThisCommand(files, type)) {
        ShowLoadedFile(files, type);
    }
}

// Loads the new file's window in its own slot, which can have one window only: the entry is off until that has gone.
void NewCommand(FilesState &files, DocumentType &type, MenuEntry &entry, int slot, int kind)
{
    entry.enabled = false;
    type.current = slot;
    files.app.ViewKind = kind;
    ShowDocument(files, type, slot);
}

// Opens a path that nobody has to choose any more. type is null where the name is of none of the three.
void OpenPath(FilesState &files, const std::string &path, DocumentType *type)
{
    Modulo1 &app = files.app;
    NameFile(files, path);
    app.CurrentOperation = OpeningTitle(files);
    app.settings.LastDir = files.FileFolder;
    if (type == nullptr || !type->openCommand.enabled) {
        return;
    }
    if (FindOpen(*type, files.FilePath)) {
        app.messages.ShowMessage(MessageNo::FileAlreadyOpen, app.CurrentOperation, {});
        return;
    }
    type->current = FindFree(*type);
    if (type->current == 0) {
        return;
    }
    const int status = ReadInstrumentFile(files, files.FilePath);
    if (status == ReadStatus::Missing) {
        app.messages.ShowMessage(MessageNo::FileNotFound, app.CurrentOperation, {});
    }
    if (status == ReadStatus::Good) {
        ShowLoadedFile(files, *type);
    }
}

} // namespace

int ChooseFile(FilesState &files, int number)
{
    Modulo1 &app = files.app;
    auto *const first = std::ranges::find(files.types, number, &DocumentType::kind);
    if (first == files.types.end()) {
        return ChooseOutcome::Nothing;
    }
    const FileChoice choice = app.face.ShowFileDialog(OpenDialog(app, *first));
    if (choice.cancelled) {
        return ChooseOutcome::Nothing;
    }
    if (choice.path.empty()) {
        return ChooseOutcome::ForeignName;
    }
    app.settings.LastDir = FolderOf(choice.path);
    if (choice.filterIndex < 1 || choice.filterIndex > kAllFilesFilter) {
        return ChooseOutcome::Nothing;
    }
    DocumentType *type = TypeOfName(files, choice.path);
    if (type == nullptr) {
        return choice.filterIndex == kAllFilesFilter ? ChooseOutcome::ForeignName : ChooseOutcome::Nothing;
    }
    NameFile(files, choice.path);
    if (FindOpen(*type, files.FilePath)) {
        return ChooseOutcome::AlreadyOpen;
    }
    switch (ReadInstrumentFile(files, files.FilePath)) {
    case ReadStatus::Missing:
        return ChooseOutcome::Missing;
    case ReadStatus::InputOutputError:
    case ReadStatus::NotAnInstrumentFile:
        return ChooseOutcome::Nothing;
    default:
        return type->chainCode;
    }
}

void mnuPcgApri_Click(FilesState &files)
{
    OpenCommand(files, files.programs);
}

void mnuStyApri_Click(FilesState &files)
{
    OpenCommand(files, files.styles);
}

void mnuPrfApri_Click(FilesState &files)
{
    OpenCommand(files, files.performances);
}

void mnuPcgNuovo64_Click(FilesState &files)
{
    NewCommand(files, files.programs, files.app.frame.mnuPcgNuovo64, kNewPcg64Slot, ViewKind::NewProgram64);
}

void mnuPcgNuovo128_Click(FilesState &files)
{
    NewCommand(files, files.programs, files.app.frame.mnuPcgNuovo128, kNewPcg128Slot, ViewKind::NewProgram128);
}

void mnuStyNuovo_Click(FilesState &files)
{
    NewCommand(files, files.styles, files.app.frame.mnuStyNuovo, kNewStySlot, ViewKind::NewStyle);
}

void mnuPrfNuovo_Click(FilesState &files)
{
    NewCommand(files, files.performances, files.app.frame.mnuPrfNuovo, kNewPrfSlot, ViewKind::NewPerformance);
}

void mnuRecentFile_Click(FilesState &files, int index)
{
    Modulo1 &app = files.app;
    if (index < 1 || index > kRecentFiles) {
        return;
    }
    app.WorkRecentRecord = app.settings.RecentTable[static_cast<std::size_t>(index)];
    const std::string path = app.WorkRecentRecord.Path.Trimmed();
    OpenPath(files, path, TypeOfExtension(files, path));
}

void OpenNamedFile(FilesState &files, const std::string &path)
{
    OpenPath(files, path, TypeOfName(files, path));
}

void OpenArgument(FilesState &files, const std::string &path, Argument what)
{
    if (TypeOfName(files, path) != nullptr) {
        OpenNamedFile(files, path);
        return;
    }
    const std::string extension = UpperCase(ExtensionOf(path));
    if (what == Argument::File && (extension == "MID" || extension == "MIDI")) {
        return;
    }
    NameFile(files, path);
    const int number = what == Argument::Missing ? MessageNo::FileNotFound : MessageNo::DataFormatError;
    files.app.messages.ShowMessage(number, OpeningTitle(files), {});
}

} // namespace velluto
