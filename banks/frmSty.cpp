#include "banks/frmSty.h"

#include "banks/FactoryRows.h"

namespace velluto {

namespace {

constexpr int kColumns = 4; // one for each group, in a window of any height
constexpr int kRowsInGroup = 37;
constexpr Size kCells{88, 38};
constexpr int kKindBeforeFirst = ViewKind::FactoryStyles1 - 1;

constexpr int kTitleLength = 25; // in the state text, behind its 20 zero characters

constexpr std::size_t kBehindNumber = 2; // 0-based character of a row that is a blank in items alone

} // namespace

frmSty::frmSty(RecallState &recall, int index)
    : FactoryForm("frmSty", index, recall, kKindBeforeFirst + index, recall.app.frame.mnuSty[index], kCells)
{
    List1.columns = kColumns;
    List1.longestColumn = kRowsInGroup;
}

std::vector<std::string> frmSty::Rows() const
{
    return FactoryStyleRows(Recall().tables, Kind());
}

// The role stays out of it; the state is that of the Program record last worked on. Nobody reads either.
WindowTag frmSty::StateText(const WindowPlacement & /*placement*/) const
{
    WindowTag tag = ToolTag(Kind());
    tag.prefix.append(kTitleLength, ' ');
    tag.Put(TagPosition::Path, Kind() == ViewKind::FactoryStyles1 ? "1: Style 1-8" : "2: Style 9-16");
    tag.Set(TagPosition::Slot, Kind() - kKindBeforeFirst);
    tag.Set(TagPosition::State, Recall().files.programs.work.State);
    return tag;
}

bool frmSty::PlaysRow(std::string_view row) const
{
    return !RightTrimmed(row).empty() && row.size() > kBehindNumber && row[kBehindNumber] == ' ';
}

void frmSty::List1_Click()
{
    if (PlaysCurrentRow()) {
        RefreshWindowMenu(app);
        PlayCurrentRow();
    }
}

} // namespace velluto
