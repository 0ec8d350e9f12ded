// What the two overviews share: lists side by side with a label above each, read once from the files that their banks
// are tied to. They keep no image, and a load that meets a file it cannot read ends there.
#pragma once

#include "files/Files.h"

#include <string>
#include <vector>

namespace velluto {

// The lists of each overview, one for a bank.
inline constexpr int kPrfOverviewLists = 20;
inline constexpr int kStyOverviewLists = 3;

class OverviewForm : public ChildForm {
protected:
    // How the lists stand, and how far apart. Twips.
    struct Grid {
        int columns = 1;
        int rows = 1;
        Size list; // natural size of one
        int label = 0;
        int gap = 0;
    };

    // kind is the window's ViewKind, firstSlot the slot of its first list's bank, command what shows the window.
    OverviewForm(std::string name, int number, FilesState &files, DocumentType &type, int kind, int firstSlot, MenuEntry &command);

    // Adds the next list; banks follow each other in the order of their slots.
    void AddList(ListBox &list, Label &label);

    [[nodiscard]] FilesState &Files() const { return files_; }

private:
    bool LoadWindow() final;
    void UnloadWindow() final;
    void Resized() final;
    [[nodiscard]] virtual Grid NaturalGrid() const = 0;
    // The rows of one list from the file's image.
    [[nodiscard]] virtual std::vector<std::string> RowsFor(ImageView image) = 0;
    [[nodiscard]] virtual bool CentresLabels() const = 0;

    struct Column {
        ListBox *list;
        Label *label;
    };
    void PlaceWindow();
    void LayOut();
    void PlaceLabel(const Column &column) const;
    [[nodiscard]] bool ReadBanks();
    void ShowFileName(const Column &column, const std::string &path);

    FilesState &files_;
    DocumentType &type_;
    int kind_;
    int firstSlot_;
    WindowPlacement &entry_;
    std::vector<Column> columns_;
    Grid grid_;
};

} // namespace velluto
