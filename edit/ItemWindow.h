// A file window as the editing commands see it: how many rows its kind has and which of them hold an item.
#pragma once

#include "files/Files.h"

#include <cstddef>
#include <optional>

namespace velluto {

// Rows are 0-based; one past the end of the list reads as empty text.
struct ItemWindow {
    Form &form;
    ListBox &list;
    RowRules rules;

    [[nodiscard]] std::size_t Length(int row) const; // trailing blanks not counted
    [[nodiscard]] bool IsOccupied(int row) const { return Length(row) > rules.emptyLength; }
    // Exactly as long as a row without an item: a shorter one is neither this nor occupied.
    [[nodiscard]] bool IsEmpty(int row) const { return Length(row) == rules.emptyLength; }
    [[nodiscard]] bool IsSelected(int row) const { return list.Selected(row); }
};

// The active child, where it holds items of a file.
[[nodiscard]] std::optional<ItemWindow> ActiveItemWindow(FilesState &files);

} // namespace velluto
