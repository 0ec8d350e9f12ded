// One record for each of the three types of document: what sets the type apart, its slots in the settings, and what the
// program knows of them while it runs. Opening, saving, editing and the windows are written once over it; a further type is
// one more record and one form.
#pragma once

#include "app/ChildForm.h"
#include "files/Slots.h"

#include <array>
#include <cstddef>
#include <memory>
#include <span>
#include <string_view>

namespace velluto {

// What ChooseFile answers.
namespace ChooseOutcome {
inline constexpr int ForeignName = 0; // "All files" and a name of none of the three types, or no name
inline constexpr int Nothing = 1;     // cancelled, an unknown name, or a failed read that has been told
inline constexpr int AlreadyOpen = 2;
inline constexpr int Missing = 3;
inline constexpr int Program = 4; // the file is in files.LoadImage
inline constexpr int Style = 5;
inline constexpr int Performance = 6;
} // namespace ChooseOutcome

// The rows of a window, as the editing commands see them.
struct RowRules {
    int rows;                // of the window; 0 where its state text tells
    int copied;              // rows that Copy looks at
    std::size_t emptyLength; // of a row without an item, trailing blanks not counted
};

struct DocumentType {
    int kind;         // ViewKind of its files, and the number ChooseFile is called with
    int firstNewKind; // ViewKinds of its new files
    int lastNewKind;
    int lastBank;               // slot of its last bank
    int filterIndex;            // its row in the dialogs' filter
    int chainCode;              // ChooseFile's outcome for it, and what hands a file over to its Open command
    std::string_view extension; // upper case
    RowRules rows;
    bool remembersKnown; // Open tells through KnownFileFlag whether the slot knew the file
    bool flagBeforeShow; // the open flag is set before the window is shown, not after
    bool freesSlot;      // a window that closes clears its open flag; where not, every slot serves once in a run

    std::span<DocRecord> table; // by slot
    MenuEntry &openCommand;

    int current = 0;                                              // slot that the command under way is about
    DocRecord work{};                                             // every access to a slot goes through it
    std::array<bool, kLastFileSlot + 1> openFlags{};              // 1 to 8
    std::array<std::unique_ptr<ChildForm>, kMostSlots> windows{}; // by slot

    [[nodiscard]] bool IsNewKind(int viewKind) const { return viewKind >= firstNewKind && viewKind <= lastNewKind; }
    [[nodiscard]] bool Has(int viewKind) const { return viewKind == kind || IsNewKind(viewKind); }
};

// Copies the slot to the type's working record, the way every access begins.
void TakeSlot(DocumentType &type, int slot);
// Copies the working record back.
void StoreSlot(DocumentType &type, int slot);

// True when a slot 1 to 8 with State 1 holds the path. A minimised window has State 2 and does not count.
bool FindOpen(DocumentType &type, std::string_view path);
// The slot 1 to 8 that holds the path, or 0. Both leave the working record where they stopped, which is slot 8 on a
// miss: a new document inherits the rest of its record from there.
int FindKnown(DocumentType &type, std::string_view path);
// The first slot 1 to 8 whose open flag is clear, or 0.
int FindFree(const DocumentType &type);

} // namespace velluto
