// A Paste in its steps, from the rows of the window to the new image. Rows of the window are 0-based, rows of the clipboard
// and entries count from 1.
#pragma once

#include "edit/Assembly.h"
#include "edit/ItemWindow.h"

#include <string>
#include <utility>
#include <vector>

namespace velluto {

struct PasteJob {
    PasteJob(FilesState &state, const ItemRows &window);

    FilesState &files;
    const ItemRows &rows;
    int last; // 1-based last occupied row, 0 for none
    int dest; // first selected empty row; as many as there are rows where there is none
    int gap;  // rows from dest to the next occupied one or the end
    int take; // items that come in; in the end, items of the new image
    int first;
    int stop;                                         // rows of the clipboard's run, the last one included
    std::vector<std::pair<int, std::string>> newRows; // what the list is to show, once the image stands

    [[nodiscard]] int RowOf(int r) const { return dest + r - first; } // where row r of the clipboard goes
};

// What a Paste changes of the window beside its image.
enum class PasteOutcome { Filled, Began, BeganWithSts };

// For Style windows. target is the window's image.
PasteOutcome PasteStyles(Assembly &assembly, PasteJob &job, const FileImage &target);
void PasteIntoEmptyStyles(Assembly &assembly, PasteJob &job, const ImagePieces &clip, int layout);
void PasteIntoGroupedStyles(Assembly &assembly, PasteJob &job, const ImagePieces &clip, int clipLayout, ImagePieces target);
void AppendStyles(Assembly &assembly, PasteJob &job, const ImagePieces &clip, int clipLayout, const ImagePieces &target, int targetLayout);

// For Program and Performance windows. The target may be a new one, without an image.
void PasteItems(Assembly &assembly, PasteJob &job, const FileImage &target);

} // namespace velluto
