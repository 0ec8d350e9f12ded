// The editing commands once more, written for comparison: each rule is one plain statement on whole strings, with no
// thought for speed, by other hands than the commands themselves. A document is its prefix, its image and its rows.
#pragma once

#include "unit/edit/PlainImage.h"

#include <array>
#include <cstdint>
#include <string>
#include <vector>

namespace velluto::test {

struct PlainClipboard {
    int ClipValid = 0;
    std::string ClipImage;
    int ClipFirstRow = 0; // 1-based
    int ClipCount = 0;
    int ClipKind = 0;
    int ClipSlot = 0;
    int ClipHasSts = 0;
    bool operator==(const PlainClipboard &) const = default;
};

// What lives for the whole run and keeps what the last command left.
struct PlainGlobals {
    PlainTable ItemIndex{128};
    PlainTable BuildItemIndex{128};
    PlainTable SavedItemIndex{32};
    int CutCount = 0;
    std::string BuildImage;
    PlainClipboard clipboard;
};

struct PlainDocument {
    std::string prefix; // 270 characters
    std::string image;  // empty in a new Program or Performance window
    std::vector<std::string> rows;
    std::vector<bool> selected;
    bool stsEnabled = true;         // the button CommSTS
    std::string stsCaption = "STS"; // what a click on it will show

    // One-character fields of the prefix, by 1-based position.
    [[nodiscard]] int At(int position) const;
    void Set(int position, int value);
    // 0-based; rows past the end are empty and not selected.
    [[nodiscard]] std::string Row(int row) const;
    [[nodiscard]] bool Selected(int row) const;
    // A row that does not exist stays so.
    void SetRow(int row, const std::string &text);
};

struct PlainMenu {
    bool copy = false;
    bool cut = false;
    bool paste = false;
    bool operator==(const PlainMenu &) const = default;
};

// Where a program has its documents: a new one in its slot, or a file's image in a slot with its path.
PlainDocument PlainNewProgram(int places);
PlainDocument PlainNewStyle(PlainGlobals &globals);
PlainDocument PlainNewPerformance();
struct PlainOpened {
    int slot;
    int recentKind;
    int role;
    std::string path;
    std::string image;
};
PlainDocument PlainProgram(const PlainOpened &file);
PlainDocument PlainStyle(PlainGlobals &globals, const PlainOpened &file);
PlainDocument PlainPerformance(const PlainOpened &file);
// The button of a Style window.
void PlainStsClick(PlainGlobals &globals, PlainDocument &document);
// What the clipboard keeps when the document's window goes.
void PlainUnload(PlainGlobals &globals, const PlainDocument &document);

PlainMenu PlainMenuOf(const PlainGlobals &globals, const PlainDocument &document);
void PlainCopy(PlainGlobals &globals, const PlainDocument &document);
// Cut and Paste answer why they stopped, nothing where they went through. A stop leaves document and clipboard as they
// were, and the tables as the steps before it left them.
std::string PlainCut(PlainGlobals &globals, PlainDocument &document);
std::string PlainPaste(PlainGlobals &globals, PlainDocument &document);
void PlainPrint(PlainGlobals &globals, const PlainDocument &document);

// Shared by the commands: trailing blanks off, the limits of a kind, what counts as occupied.
std::string PlainTrimmed(const std::string &text);
int PlainRowCount(const PlainDocument &document);
int PlainEmptyLength(const PlainDocument &document);
bool PlainOccupied(const PlainDocument &document, int row);
bool PlainExactlyEmpty(const PlainDocument &document, int row);
// A number as a row shows it behind a name: blanks to seven characters with its sign place.
std::string PlainSize(std::int32_t length);

} // namespace velluto::test
