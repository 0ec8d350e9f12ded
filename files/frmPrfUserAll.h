// The overview of the twenty Performance user banks, in four rows of five lists. Nothing can be edited here; a click on
// a row plays it on the instrument.
#pragma once

#include "files/OverviewForm.h"
#include "view/ControlArray.h"

namespace velluto {

class frmPrfUserAll : public OverviewForm {
public:
    explicit frmPrfUserAll(FilesState &files);

    ControlArray<Label, 1, kPrfOverviewLists> Label1{*this, "Label1"};
    ControlArray<ListBox, 1, kPrfOverviewLists> List1{*this, "List1"};

private:
    [[nodiscard]] Grid NaturalGrid() const override;
    [[nodiscard]] std::vector<std::string> RowsFor(ImageView image) override;
    [[nodiscard]] bool CentresLabels() const override { return false; }
};

} // namespace velluto
