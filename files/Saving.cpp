#include "files/Saving.h"

#include "app/Catalogue.h"
#include "app/ViewKind.h"
#include "files/ReplaceFile.h"
#include "files/WindowTitle.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr int kSaved = 0;
constexpr int kNotSaved = 1;

// The Open filter but for a blank before the second, third and fourth name.
constexpr std::string_view kSaveFilter = "Program (*.pcg)|*.pcg| Style (*.sty)|*.sty| Performance (*.prf)|*.prf| All files (*.*)|*.*|";

// The judge of Save As: a full disk and a disk that is not ready make it wait, everything else ends it.
Verdict JudgeSaveAs(const Messages &messages, RuntimeError error)
{
    switch (error.number) {
    case FileError::kDiskFull:
        messages.ShowMessage(MessageNo::DiskFull, kProgramTitle, {});
        return Verdict::Repeat;
    case FileError::kDiskNotReady:
        messages.ShowMessage(MessageNo::DiskNotReady, kProgramTitle, {});
        return Verdict::Repeat;
    case FileError::kCancelled:
        return Verdict::GiveUp;
    default:
        messages.ShowMessage(MessageNo::DiskWriteError, kProgramTitle, {});
        return Verdict::GiveUp;
    }
}

FileDialog SaveDialog(const Modulo1 &app, const DocumentType &type)
{
    FileDialog dialog;
    dialog.mode = FileDialog::Mode::Save;
    dialog.title = app.messages.Text(TextId::SaveFileAs);
    dialog.folder = app.settings.LastDir;
    dialog.filter = kSaveFilter;
    dialog.filterIndex = type.filterIndex;
    dialog.extension = LowerCase(type.extension);
    dialog.proposed = app.messages.Text(TextId::Untitled) + "." + dialog.extension; // even for a file with a name
    return dialog;
}

// The slot that held the old path holds the new one now. Only Program slots are looked through, whatever the type: the
// record of a Style or Performance file keeps its old path.
void RenameKnownSlot(FilesState &files, std::string_view oldPath, std::string_view newPath)
{
    const int slot = FindKnown(files.programs, oldPath);
    if (slot > 0) {
        files.programs.work.Path.Set(newPath);
        StoreSlot(files.programs, slot);
    }
}

// Gives the active child its new state text. The image is shared, not copied.
void AssignToActive(Modulo1 &app, const WindowTag &tag)
{
    if (Form *active = app.children.Active()) {
        active->Tag = tag;
    }
}

} // namespace

int SaveDocument(FilesState &files, const WindowTag &tag)
{
    Modulo1 &app = files.app;
    WindowTag saved = tag;
    const std::string path = saved.Path();
    app.CurrentOperation = app.messages.Text(TextId::Saving) + FileNameOf(path);
    if (!ReplaceFile(app.ports.files, path, saved.image.Runs(), ClassifyingJudge{app})) {
        return kNotSaved;
    }
    saved.Set(TagPosition::Modified, 0);
    AssignToActive(app, saved);
    return kSaved;
}

int SaveDocumentAs(FilesState &files, const WindowTag &tag)
{
    Modulo1 &app = files.app;
    WindowTag saved = tag;
    const DocumentType *type = TypeOfKind(files, saved.Kind());
    if (type == nullptr) {
        return kSaved;
    }
    const FileChoice choice = app.face.ShowFileDialog(SaveDialog(app, *type));
    if (choice.cancelled) {
        return kNotSaved;
    }
    if (choice.path.empty()) {
        return kSaved;
    }
    NameFile(files, choice.path);
    app.settings.LastDir = files.FileFolder;
    app.CurrentOperation = app.messages.Text(TextId::Saving) + files.FileName;
    if (RefusedAsTooLong(app, files.FilePath, app.CurrentOperation)) {
        return kNotSaved;
    }
    const auto judge = [&app](RuntimeError error) { return JudgeSaveAs(app.messages, error); };
    if (!ReplaceFile(app.ports.files, files.FilePath, saved.image.Runs(), judge)) {
        return kNotSaved;
    }
    RenameKnownSlot(files, saved.Path(), files.FilePath);
    saved.Set(TagPosition::Modified, 0);
    saved.SetPath(files.FilePath);
    saved.Set(TagPosition::Untitled, 0);
    AssignToActive(app, saved);
    if (Form *active = app.children.Active()) {
        active->caption = WindowTitle(app, saved);
    }
    RefreshWindowMenu(app);
    return kSaved;
}

void mnuSalva_Click(FilesState &files)
{
    const Form *active = files.app.children.Active();
    if (active == nullptr) {
        return;
    }
    if (active->Tag.At(TagPosition::Untitled) == 1) {
        mnuSalvaAs_Click(files);
    } else {
        SaveDocument(files, active->Tag);
    }
}

void mnuSalvaAs_Click(FilesState &files)
{
    if (const Form *active = files.app.children.Active()) {
        SaveDocumentAs(files, active->Tag);
    }
}

bool MayClose(FilesState &files, Form &window, int clearedByNo)
{
    Modulo1 &app = files.app;
    if (window.Tag.At(TagPosition::Modified) == 0) {
        return true;
    }
    const int answer = app.messages.AskSave(SaveQuestion::FileChanged, app.CurrentOperation);
    if (answer == Box::kNo) {
        window.Tag.Set(clearedByNo, 0);
        return true;
    }
    if (answer == Box::kYes) {
        const bool untitled = window.Tag.At(TagPosition::Untitled) != 0;
        const int result = untitled ? SaveDocumentAs(files, window.Tag) : SaveDocument(files, window.Tag);
        if (result == kSaved) {
            return true;
        }
    }
    app.children.ClosingAll = false;
    return false;
}

} // namespace velluto
