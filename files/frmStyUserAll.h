// The overview of three Style banks side by side: User 1 to 3, or Direct HD 1 to 3, 4 to 6, 7 to 9. One window for each
// ViewKind 25 to 28. Nothing can be edited here; a click on a row plays it on the instrument.
#pragma once

#include "files/OverviewForm.h"
#include "view/ControlArray.h"

namespace velluto {

// The command that shows the overview of a kind.
[[nodiscard]] MenuEntry &StyleOverviewEntry(frmMain &menu, int kind);

class frmStyUserAll : public OverviewForm {
public:
    // kind 25 to 28
    frmStyUserAll(FilesState &files, int kind);

    ControlArray<Label, 1, kStyOverviewLists> Label1{*this, "Label1"};
    ControlArray<ListBox, 1, kStyOverviewLists> List1{*this, "List1"};

private:
    [[nodiscard]] Grid NaturalGrid() const override;
    [[nodiscard]] std::vector<std::string> RowsFor(ImageView image) override;
    [[nodiscard]] bool CentresLabels() const override { return true; }
};

} // namespace velluto
