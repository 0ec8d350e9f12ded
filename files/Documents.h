// The three types of document in one table of what differs between them: slots, working copies, open flags, menu
// entries, windows. Opening and saving are written once over it; a further type is one row here and one form.
#pragma once

#include "files/Files.h"
#include "files/Slots.h"

#include <array>
#include <span>
#include <string_view>

namespace velluto {

struct DocumentType {
    int kind;                   // ViewKind of its files, and the number ChooseFile is called with
    int filterIndex;            // its row in the dialogs' filter
    int chainCode;              // ChooseFile's outcome for it, and what hands a file over to its Open command
    std::string_view extension; // upper case
    int firstNewKind;           // ViewKinds of its new files
    int lastNewKind;
    bool remembersKnown; // Open tells through KnownFileFlag whether the slot knew the file
    bool flagBeforeShow; // the open flag is set before the window is shown, not after
    bool freesSlot;      // a window that closes clears its open flag; where not, every slot serves once in a run

    std::span<DocRecord> (*table)(Settings &settings); // by slot
    DocRecord FilesState::*work;
    int FilesState::*current;
    std::array<bool, kLastFileSlot + 1> FilesState::*openFlags;
    MenuEntry frmMain::*openCommand;
    void (*show)(FilesState &files, int slot);
};

[[nodiscard]] const DocumentType &ProgramType();
[[nodiscard]] const DocumentType &StyleType();
[[nodiscard]] const DocumentType &PerformanceType();
// In the order of the dialogs' filter.
[[nodiscard]] std::span<const DocumentType> DocumentTypes();

// Copies the slot to the type's working record, the way every access begins.
void TakeSlot(FilesState &files, const DocumentType &type, int slot);
// Copies the working record back.
void StoreSlot(FilesState &files, const DocumentType &type, int slot);

// True when a slot 1 to 8 with State 1 holds the path. A minimised window has State 2 and does not count.
bool FindOpen(FilesState &files, const DocumentType &type, std::string_view path);
// The slot 1 to 8 that holds the path, or 0. Both leave the working record where they stopped, which is slot 8 on a
// miss: a new document inherits the rest of its record from there.
int FindKnown(FilesState &files, const DocumentType &type, std::string_view path);
// The first slot 1 to 8 whose open flag is clear, or 0.
int FindFree(const FilesState &files, const DocumentType &type);

// Notes in FilePath, FileFolder and FileName which file the next steps are about.
void NameFile(FilesState &files, std::string_view path);

} // namespace velluto
