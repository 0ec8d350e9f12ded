// Windows with lists as recall and the Edit menu see them: a Tag, and one or several lists named List1.
#pragma once

#include "view/Control.h"
#include "view/ControlArray.h"

#include <string>

namespace velluto::test {

// A window of kind and slot that is already loaded as far as its Tag goes.
struct ListWindow : Form {
    ListWindow(int kind, int slot) : Form("frmList")
    {
        Tag.prefix = TagPrefix();
        Tag.Set(TagPosition::Kind, kind);
        Tag.Set(TagPosition::Slot, slot);
    }
    ListBox List1{*this, "List1"};
};

// An overview of Count lists, each with Rows rows "row 0" and so on.
template <int Count, int Rows>
struct Overview : Form {
    explicit Overview(int kind) : Form("frmOverview")
    {
        Tag = ToolTag(kind);
        for (ListBox &list : List1) {
            for (int row = 0; row < Rows; ++row) {
                list.AddItem("row " + std::to_string(row));
            }
        }
    }
    ControlArray<ListBox, 1, Count> List1{*this, "List1"};
    // Selects the row and makes it current, as a click does.
    void Pick(int list, int row)
    {
        List1[list].Select(row, true);
        List1[list].SetListIndex(row);
    }
};
using PerformanceOverview = Overview<20, 8>;
using StyleOverview = Overview<3, 16>;

} // namespace velluto::test
