#include "banks/frmSty.h"

#include "banks/FactoryRows.h"

namespace velluto {

namespace {

constexpr int kColumns = 4; // one for each group, in a window of any height
constexpr int kRowsInGroup = 37;
constexpr Size kCells{88, 38};
constexpr int kKindBeforeFirst = ViewKind::FactoryStyles1 - 1;

// The state text: 20 zero characters, and 25 for the title.
constexpr int kZeros = 20;
constexpr int kTitleLength = 25;
constexpr int kTitlePosition = 21;

constexpr std::size_t kBehindNumber = 2; // 0-based character of a row that is a blank in items alone

std::size_t WindowIndex(int index)
{
    return static_cast<std::size_t>(index - 1);
}

} // namespace

frmSty::frmSty(BankState &banks, int index) : FactoryForm("frmSty", index, banks.recall, kKindBeforeFirst + index), banks_(banks)
{
    List1.columns = kColumns;
    List1.longestColumn = kRowsInGroup;
}

Size frmSty::NaturalCells() const
{
    return kCells;
}

std::vector<std::string> frmSty::Rows() const
{
    return FactoryStyleRows(Recall().tables, Kind());
}

// The role stays out of it; the state is that of the Program record last worked on. Nobody reads either.
WindowTag frmSty::StateText(const WindowPlacement & /*placement*/) const
{
    WindowTag tag;
    tag.prefix = std::string(kZeros, '\0') + std::string(kTitleLength, ' ');
    tag.Put(kTitlePosition, Kind() == ViewKind::FactoryStyles1 ? "1: Style 1-8" : "2: Style 9-16");
    tag.Set(TagPosition::Kind, Kind());
    tag.Set(TagPosition::Slot, Kind() - kKindBeforeFirst);
    tag.Set(TagPosition::State, Recall().files.WorkPcgRecord.State);
    return tag;
}

bool frmSty::PlaysRow(std::string_view row) const
{
    return !RightTrimmed(row).empty() && row.size() > kBehindNumber && row[kBehindNumber] == ' ';
}

void frmSty::List1_Click()
{
    if (PlaysCurrentRow()) {
        RefreshWindowMenu(App());
        PlayCurrentRow();
    }
}

int frmSty::KindAtUnload() const
{
    return Tag.Slot() + kKindBeforeFirst; // ViewKind stays what it was
}

MenuEntry &frmSty::OwnCommand()
{
    return App().frame.mnuSty[Tag.Slot()];
}

std::unique_ptr<Form> frmSty::TakeOut()
{
    return std::move(banks_.StyListWindows.at(WindowIndex(number())));
}

void ShowStyWindow(BankState &banks, int index)
{
    std::unique_ptr<frmSty> &window = banks.StyListWindows.at(WindowIndex(index));
    if (!window) {
        window = std::make_unique<frmSty>(banks, index);
    }
    banks.recall.app.children.Show(*window);
}

} // namespace velluto
