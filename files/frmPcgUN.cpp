#include "files/frmPcgUN.h"

#include "app/Catalogue.h"
#include "app/ViewKind.h"
#include "files/ChildLayout.h"
#include "files/ItemRows.h"
#include "files/Saving.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr int kColumns = 4;
constexpr int kListCharacters = 88; // natural width of the list
constexpr int kListLines = 17;      // natural height: rows of a column and a line of margin
constexpr int kListLinesLarge = 33;

// A 64-place record as high as this was left by a 128-place file; so the natural height of a 64-place window has to
// stay below it, or its place would be thrown away at every load.
constexpr int kHeightOfLarge = 5082;

// The row of buttons, twips. It gives way where the font or the window's frame is tall.
constexpr int kButtonRow = 405;
constexpr int kLeastButtonRow = 285;
constexpr int kButtonMargin = 30; // above and below a button
constexpr int kButtonWidth = 1260;
constexpr int kButtonGap = 90;

constexpr std::size_t kUserCaption = 10; // "&G User 1:", the part of mnuPcgUser's caption that stays
constexpr std::size_t kIgnoredRow = 3;   // length of a trimmed row that a click ignores; one short of an empty row on purpose

MenuEntry *CommandOf(frmMain &menu, int slot)
{
    if (slot == kNewPcg64Slot) {
        return &menu.mnuPcgNuovo64;
    }
    if (slot == kNewPcg128Slot) {
        return &menu.mnuPcgNuovo128;
    }
    return IsFileSlot(slot) ? nullptr : &menu.mnuPcgUser[slot];
}

} // namespace

frmPcgUN::frmPcgUN(FilesState &files, int slot) : DocumentForm("frmPcgUN", files, files.programs, slot, CommandOf(files.app.frame, slot))
{
    List1.columns = kColumns;
    List1.accessibleName = "Program";
    for (Button &button : CommUser) {
        const std::string bank = "User " + std::to_string(button.index() - kFirstPcgUserSlot + 1);
        button.caption = "&" + bank;
        AddBankButton(button, button.index(), bank);
    }
    AddCloseButton(CommClose, true);
}

Size frmPcgUN::NaturalSize()
{
    places_ = ProgramPlaces(Files().LoadImage.View());
    if (Slot() == kNewPcg64Slot || Slot() == kNewPcg128Slot) {
        places_ = Slot() == kNewPcg64Slot ? kProgramPlaces : kProgramPlacesLarge;
    }
    const bool large = places_ != kProgramPlaces;
    const Size letter = app.face.MeasureA(List1.font);
    const int listHeight = (large ? kListLinesLarge : kListLines) * letter.height;
    const int room = kHeightOfLarge - 1 - frame.height - listHeight;
    buttonRow_ = large ? kButtonRow : std::clamp(room, kLeastButtonRow, kButtonRow);
    return {kListCharacters * letter.width + frame.width, listHeight + buttonRow_ + frame.height};
}

// A record that does not fit gives way to the natural size.
void frmPcgUN::CheckPlace()
{
    if ((places_ == kProgramPlaces && Work().Height >= kHeightOfLarge) || Files().KnownFileFlag == 0) {
        Work().MinWidth = 0;
    }
}

// Side by side in the middle of the row.
void frmPcgUN::LayOutButtons(int width, int top)
{
    std::vector<Button *> row{&CommClose};
    if (IsFileWindow()) {
        row.insert(row.begin(), {&CommUser[kFirstPcgUserSlot], &CommUser[kLastPcgUserSlot]});
    }
    const ButtonColumns columns = ColumnsIn(width, static_cast<int>(row.size()), kButtonWidth, kButtonGap);
    for (std::size_t i = 0; i < row.size(); ++i) {
        row[i]->place = Place{columns.LeftOf(static_cast<int>(i)), top + kButtonMargin, columns.width, buttonRow_ - 2 * kButtonMargin};
    }
}

std::string frmPcgUN::NewName() const
{
    return app.messages.Text(TextId::Untitled) + ".pcg";
}

void frmPcgUN::ShowNew(WindowTag &tag)
{
    tag.Set(TagPosition::Places, places_);
    List1.SetRows(EmptyProgramRows(places_));
}

void frmPcgUN::ShowFile(WindowTag &tag)
{
    tag.Set(TagPosition::Places, places_);
    const ImageView image = tag.image.View();
    List1.SetRows(CountItems(image) == 0 ? EmptyProgramRows(places_) : ProgramRows(image, places_));
}

int frmPcgUN::KindOnceLoaded(int /*kind*/) const
{
    return ViewKind::ProgramFile; // a new file, too, from here on
}

bool frmPcgUN::Form_QueryUnload()
{
    app.ViewKind = Tag.Kind();
    app.CurrentOperation = "File Program - " + FileNameOf(Tag.Path()) + " (" + std::to_string(app.slot) + ")";
    return MayClose(Files(), *this, TagPosition::ProgramEdited);
}

bool frmPcgUN::IsCopySource() const
{
    return Files().clipboard.ClipSlot == Slot(); // whatever the kind of the copy
}

bool frmPcgUN::SelectsRow(std::size_t trimmedLength) const
{
    return trimmedLength != kIgnoredRow && IsBankSlot(Tag.Slot(), kLastPcgUserSlot);
}

// Ties this file to a user bank. The window stays a file window; the bank is opened from the View menu.
void frmPcgUN::TieTo(int bankSlot)
{
    TakeBank(bankSlot);
    const std::string path = Tag.Path();
    Work().Path.Set(path);
    app.settings.PcgUserAssigned = true;
    MenuEntry &entry = app.frame.mnuPcgUser[bankSlot];
    StoreBank(bankSlot, entry, entry.caption.Get().substr(0, kUserCaption) + " " + FileNameOf(path));
}

} // namespace velluto
