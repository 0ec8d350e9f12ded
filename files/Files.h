// The record of the instrument's files: the work areas of the container routines, the three types of document, the windows.
// Work areas are valid within one command only, but keep what the last command left.
#pragma once

#include "files/DocumentType.h"
#include "files/StyleRows.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>

namespace velluto {

// The items' positions and lengths, as ItemTable, for the 32 items of a Style file.
using SavedItemTable = std::array<std::int32_t, 64>;

// What a Copy or Cut left for Paste.
struct ItemClipboard {
    int ClipValid = 0;
    FileImage ClipImage;
    int ClipFirstRow = 0;
    int ClipCount = 0;
    int ClipKind = 0;
    int ClipSlot = 0;
    int ClipHasSts = 0;
};

// What the file windows ask of rooms above them; the frame fills it in.
struct ViewServices {
    // A click on a row of a list window that passed the window's own test: resolves the channel and recalls.
    std::function<void(Form &window, int row)> SelectOnInstrument;
    // A click in list number `list` (from 1) of an overview: leaves the selection in that list alone, then recalls.
    std::function<void(Form &window, int list)> SelectFromOverview;
};

struct FilesState {
    explicit FilesState(Modulo1 &core);
    FilesState(const FilesState &) = delete;
    FilesState &operator=(const FilesState &) = delete;

    Modulo1 &app;
    ViewServices services;

    FileImage LoadImage;  // result of the last ReadInstrumentFile
    FileImage BuildImage; // what the last edit assembled
    std::string BuildPrefix;
    std::string RowBuffer = std::string(kRowBufferLength, ' ');
    ItemTable ItemIndex{};
    ItemTable BuildItemIndex{};
    SavedItemTable SavedItemIndex{}; // the target's ItemIndex while Paste indexes the clipboard's image
    int CutCount = 0;                // rows that the last Cut found; one that finds none goes by it
    ItemClipboard clipboard;

    std::array<DocumentType, 3> types; // in the order of the dialogs' filter
    DocumentType &programs = types[0];
    DocumentType &styles = types[1];
    DocumentType &performances = types[2];
    WindowPlacement WorkPlacement;

    std::string FileFolder; // of the file being opened, or last saved under a new name
    std::string FileName;
    std::string FilePath;  // both as they were given, whatever separates them
    int OpenChainCode = 0; // 4, 5 or 6 while one Open command hands over to another
    int KnownFileFlag = 0;
    int PcgFileSlot = 0;
    int RecentKind = 0;

    std::array<std::unique_ptr<ChildForm>, 5> overviews; // ViewKind 24 to 28
};

// The type whose files a window of this kind holds, new ones too; nullptr for a window without a document.
[[nodiscard]] DocumentType *TypeOfKind(FilesState &files, int kind);

// Notes in FilePath, FileFolder and FileName which file the next steps are about.
void NameFile(FilesState &files, std::string_view path);

} // namespace velluto
