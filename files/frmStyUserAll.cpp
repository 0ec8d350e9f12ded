#include "files/frmStyUserAll.h"

#include "app/ViewKind.h"
#include "files/StyleRows.h"

namespace velluto {

namespace {

constexpr int kListColumns = 2;
constexpr int kListCharacters = 58; // natural width of a list
constexpr int kLetterSize = 9;      // points; the three lists then have room side by side on a screen of 1280 pixels
constexpr int kListHalfLines = 17;  // natural height: eight lines and a half

// Twips.
constexpr int kLabelHeight = 300;
constexpr int kGap = 120;

Font ListFont()
{
    Font font;
    font.size = kLetterSize;
    return font;
}

int FirstSlot(int kind)
{
    return kFirstStyUserSlot + kStyOverviewLists * (kind - ViewKind::StyleOverview);
}

} // namespace

MenuEntry &StyleOverviewEntry(frmMain &menu, int kind)
{
    const std::array<MenuEntry *, 4> commands{&menu.mnuStyUserAll, &menu.mnuStyDirectHD123, &menu.mnuStyDirectHD456,
                                              &menu.mnuStyDirectHD789};
    return *commands.at(static_cast<std::size_t>(kind - ViewKind::StyleOverview));
}

frmStyUserAll::frmStyUserAll(FilesState &files, int kind)
    : OverviewForm("frmStyUserAll", kind, files, files.styles, kind, FirstSlot(kind), StyleOverviewEntry(files.app.frame, kind))
{
    for (ListBox &list : List1) {
        list.columns = kListColumns;
        list.font = ListFont();
        AddList(list, Label1[list.index()]);
    }
}

OverviewForm::Grid frmStyUserAll::NaturalGrid() const
{
    const Size letter = app.face.MeasureA(ListFont());
    return {kStyOverviewLists, 1, {kListCharacters * letter.width, kListHalfLines * letter.height / 2}, kLabelHeight, kGap};
}

std::vector<std::string> frmStyUserAll::RowsFor(ImageView image)
{
    IndexItems(image, Files().ItemIndex);
    PutOverviewRows(Files().RowBuffer, image, Files().ItemIndex);
    return RowsOf(Files().RowBuffer);
}

} // namespace velluto
