// The record of the instrument's files: the work areas of the container routines, the current slots, the windows of
// the documents. Work areas are valid within one command only, but keep what the last command left.
#pragma once

#include "app/Modulo1.h"

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>

namespace velluto {

class frmPcgUN;
class frmPrfUN;
class frmPrfUserAll;
class frmStyUN;
class frmStyUserAll;

// The rows of a Style window or of one list of an overview while they are composed: 16 rows of 28 characters. An item's
// slot decides where its row stands; what would stand behind the sixteenth is lost.
inline constexpr int kStyleRowLength = 28;
inline constexpr int kStyleRows = 16;
inline constexpr int kRowBufferLength = kStyleRowLength * kStyleRows;

// Elements 0 to 127: 1-based position of item 1 to 128 in the image; 128 to 255: its length in bytes.
using ItemTable = std::array<std::int32_t, 256>;
// The same for the 32 items of a Style file.
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
    ~FilesState();

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

    int CurrentPcgSlot = 0;
    int CurrentStySlot = 0;
    int CurrentPrfSlot = 0;
    std::array<bool, 9> PcgOpenFlags{}; // 1 to 8
    std::array<bool, 9> StyOpenFlags{};
    std::array<bool, 9> PrfOpenFlags{};
    DocRecord WorkPcgRecord; // every access to a slot goes through the working copy of its type
    DocRecord WorkStyRecord;
    DocRecord WorkPrfRecord;
    WindowPlacement WorkPlacement;

    std::string FileFolder; // of the file being opened, or last saved under a new name
    std::string FileName;
    std::string FilePath;  // both as they were given, whatever separates them
    int OpenChainCode = 0; // 4, 5 or 6 while one Open command hands over to another
    int KnownFileFlag = 0;
    int PcgFileSlot = 0;
    int RecentKind = 0;

    std::array<std::unique_ptr<frmPcgUN>, 13> PcgWindows;            // 1 to 12
    std::array<std::unique_ptr<frmStyUN>, 21> StyWindows;            // 0 to 20
    std::array<std::unique_ptr<frmPrfUN>, 29> PrfWindows;            // 0 to 28
    std::array<std::unique_ptr<frmStyUserAll>, 4> StyUserAllWindows; // ViewKind 25 to 28
    std::unique_ptr<frmPrfUserAll> PrfUserAllWindow;
};

} // namespace velluto
