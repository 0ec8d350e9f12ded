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

std::size_t WindowIndex(int kind)
{
    return static_cast<std::size_t>(kind - ViewKind::StyleOverview);
}

} // namespace

frmStyUserAll::frmStyUserAll(FilesState &files, int kind) : OverviewForm("frmStyUserAll", kind, files, StyleType(), kind, FirstSlot(kind))
{
    for (ListBox &list : List1) {
        list.columns = kListColumns;
        list.font = ListFont();
        AddList(list, Label1[list.index()]);
    }
}

OverviewForm::Grid frmStyUserAll::NaturalGrid() const
{
    const Size letter = Files().app.face.MeasureA(ListFont());
    return {kStyOverviewLists, 1, {kListCharacters * letter.width, kListHalfLines * letter.height / 2}, kLabelHeight, kGap};
}

std::vector<std::string> frmStyUserAll::RowsFor(ImageView image)
{
    IndexItems(image, Files().ItemIndex);
    PutOverviewRows(Files().RowBuffer, image, Files().ItemIndex);
    return RowsOf(Files().RowBuffer);
}

MenuEntry &frmStyUserAll::OwnCommand()
{
    frmMain &menu = Files().app.frame;
    switch (Kind()) {
    case ViewKind::StyleOverview:
        return menu.mnuStyUserAll;
    case ViewKind::StyleOverview + 1:
        return menu.mnuStyDirectHD123;
    case ViewKind::StyleOverview + 2:
        return menu.mnuStyDirectHD456;
    default:
        return menu.mnuStyDirectHD789;
    }
}

std::unique_ptr<Form> frmStyUserAll::TakeOut()
{
    return std::move(Files().StyUserAllWindows.at(WindowIndex(Kind())));
}

void ShowStyUserAllWindow(FilesState &files, int kind)
{
    std::unique_ptr<frmStyUserAll> &window = files.StyUserAllWindows.at(WindowIndex(kind));
    if (!window) {
        window = std::make_unique<frmStyUserAll>(files, kind);
    }
    files.app.children.Show(*window);
}

} // namespace velluto
