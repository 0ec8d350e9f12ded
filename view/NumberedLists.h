// The lists of a window that shows several side by side, numbered from 1, gathered in one walk over its controls.
// Used by those who act on the selection of an overview without knowing its form.
#pragma once

#include "view/Control.h"

#include <array>
#include <string_view>

namespace velluto {

template <int Count>
class NumberedLists {
public:
    NumberedLists(const Form &form, std::string_view name)
    {
        for (Control *control : form.controls()) {
            if (control->index() >= 1 && control->index() <= Count && control->name() == name) {
                lists_[static_cast<std::size_t>(control->index())] = dynamic_cast<ListBox *>(control);
            }
        }
    }
    // number 1 to Count; nullptr where the form has no such list.
    [[nodiscard]] ListBox *At(int number) const
    {
        return number >= 1 && number <= Count ? lists_[static_cast<std::size_t>(number)] : nullptr;
    }
    // The lowest number of a list with a selected row among its first `rows`, or 0. A row counts only where it is
    // longer than shorterRows without its trailing blanks; -1 counts every row.
    [[nodiscard]] int FirstSelected(int rows, int shorterRows = -1) const
    {
        for (int number = 1; number <= Count; ++number) {
            for (int row = 0; At(number) != nullptr && row < rows; ++row) {
                if (At(number)->Selected(row) && TrimmedLength(At(number)->Row(row)) > shorterRows) {
                    return number;
                }
            }
        }
        return 0;
    }

private:
    static int TrimmedLength(const std::string &row) { return static_cast<int>(row.find_last_not_of(' ') + 1); }
    std::array<ListBox *, Count + 1> lists_{};
};

} // namespace velluto
