#include "files/frmPrfUserAll.h"

#include "app/ViewKind.h"
#include "files/ItemRows.h"

namespace velluto {

namespace {

constexpr int kColumns = 5;
constexpr int kRows = 4;

// Twips. A list was drawn that large with letters of kDrawnWith, and grows and shrinks with the letters there are.
constexpr Size kDrawnList{2600, 2100};
constexpr Size kDrawnWith{135, 240};
constexpr int kGap = 250; // between two lists; a label fills the one above its list

} // namespace

frmPrfUserAll::frmPrfUserAll(FilesState &files)
    : OverviewForm("frmPrfUserAll", kNoNumber, files, files.performances, ViewKind::PerformanceOverview, kFirstPrfUserSlot,
                   files.app.frame.mnuPrfUserAll)
{
    for (ListBox &list : List1) {
        AddList(list, Label1[list.index()]);
    }
}

OverviewForm::Grid frmPrfUserAll::NaturalGrid() const
{
    const Size letter = app.face.MeasureA(Font{});
    const Size list{kDrawnList.width * letter.width / kDrawnWith.width, kDrawnList.height * letter.height / kDrawnWith.height};
    return {kColumns, kRows, list, kGap, kGap};
}

std::vector<std::string> frmPrfUserAll::RowsFor(ImageView image)
{
    return PerformanceOverviewRows(image);
}

} // namespace velluto
