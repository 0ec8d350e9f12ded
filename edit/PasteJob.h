// A Paste as the window and the clipboard set it: where the run goes and how much of it. Rows of the window are 0-based, rows
// of the clipboard count from 1. Used by the two procedures that build the new image.
#pragma once

#include "edit/Assembly.h"
#include "edit/ItemWindow.h"

#include <string>
#include <utility>
#include <vector>

namespace velluto {

struct PasteJob {
    PasteJob(FilesState &state, const ItemWindow &target);

    FilesState &files;
    const ItemWindow &window;
    int last;  // 1-based last occupied row, 0 for none
    int dest;  // first selected empty row; as many as there are rows where there is none
    int take;  // rows of the clipboard that come in: as many as are free from dest on
    int first; // of them
    int stop;  // the last of them

    std::vector<std::pair<int, std::string>> newRows; // what the list is to show, once the image stands

    [[nodiscard]] int RowOf(int r) const { return dest + r - first; } // where row r of the clipboard goes
    // The row shows that text behind its first headLength characters.
    void ShowInRow(int row, std::size_t headLength, const std::string &text)
    {
        newRows.emplace_back(row, window.list.Row(row).substr(0, headLength) + text);
    }
};

} // namespace velluto
