#include "files/frmPrfUN.h"

#include "files/ChildLayout.h"
#include "files/ItemRows.h"
#include "files/Saving.h"

namespace velluto {

namespace {

// The list's natural size. Its rows have 20 characters at most; twice that gives the buttons below it room.
constexpr int kListCharacters = 40;
constexpr int kListHalfLines = 17; // eight lines and a half

// Twips.
constexpr int kButtonRow = 390;
constexpr int kButtonHeight = 345;
constexpr int kButtonMargin = 30;
constexpr int kButtonGap = 30;
constexpr int kWidestButton = 1260;
constexpr int kButtonsInRow = 10;

constexpr int kBankOffset = kFirstPrfUserSlot - 1; // from a bank's number to its slot
constexpr std::size_t kIgnoredRow = 3;             // length of a trimmed row that a click ignores: a row of a file without items

MenuEntry *CommandOf(frmMain &menu, int slot)
{
    if (slot == kNewPrfSlot) {
        return &menu.mnuPrfNuovo;
    }
    return IsFileSlot(slot) ? nullptr : &menu.mnuPrfUser[slot - kBankOffset];
}

} // namespace

frmPrfUN::frmPrfUN(FilesState &files, int slot)
    : DocumentForm("frmPrfUN", files, files.performances, slot, CommandOf(files.app.frame, slot))
{
    List1.accessibleName = "Performance";
    for (Button &button : CommUser) {
        const std::string number = std::to_string(button.index());
        button.caption = "U" + number;
        AddBankButton(button, button.index() + kBankOffset, "User " + number);
    }
    AddCloseButton(CommClose, !IsFileWindow());
}

Size frmPrfUN::NaturalSize()
{
    const Size letter = app.face.MeasureA(List1.font);
    return {kListCharacters * letter.width + frame.width, kListHalfLines * letter.height / 2 + ButtonsHeight() + frame.height};
}

int frmPrfUN::ButtonsHeight() const
{
    return IsFileWindow() ? 2 * kButtonRow : kButtonRow;
}

// A file's banks in two rows of ten; elsewhere one button in the middle.
void frmPrfUN::LayOutButtons(int width, int top)
{
    const ButtonColumns columns = ColumnsIn(width - 2 * kButtonMargin, IsFileWindow() ? kButtonsInRow : 1, kWidestButton, kButtonGap);
    const auto put = [&](Button &button, int column, int row) {
        const int under = (kButtonRow - kButtonHeight) / 2 + row * kButtonRow;
        button.place = Place{kButtonMargin + columns.LeftOf(column), top + under, columns.width, kButtonHeight};
    };
    if (!IsFileWindow()) {
        put(CommClose, 0, 0);
        return;
    }
    for (Button &button : CommUser) {
        put(button, (button.index() - 1) % kButtonsInRow, (button.index() - 1) / kButtonsInRow);
    }
}

std::string frmPrfUN::NewName() const
{
    return "Senza titolo.prf"; // in both languages
}

void frmPrfUN::ShowNew(WindowTag & /*tag*/)
{
    List1.SetRows(NewPerformanceRows());
}

void frmPrfUN::ShowFile(WindowTag &tag)
{
    List1.SetRows(PerformanceRows(tag.image.View()));
}

bool frmPrfUN::Form_QueryUnload()
{
    app.ViewKind = Tag.Kind();
    app.CurrentOperation = "File " + FileNameOf(Tag.Path()) + " (" + std::to_string(app.slot) + ")";
    return MayClose(Files(), *this, TagPosition::Modified); // the one view where No takes the mark of the change away
}

// Whether the slot is one that selects is left to recall.
bool frmPrfUN::SelectsRow(std::size_t trimmedLength) const
{
    return trimmedLength != kIgnoredRow;
}

// Ties this file to a user bank, which takes over this window's whole record, its rectangle too.
void frmPrfUN::TieTo(int bankSlot)
{
    TakeBank(bankSlot);
    Type().current = Tag.Slot();
    TakeSlot(Type(), Type().current);
    const std::string path = Tag.Path();
    Work().Path.Set(path);
    Work().Role = static_cast<std::uint8_t>(Tag.At(TagPosition::Role));
    Work().State = StoredState::Closed;
    frmMain &menu = app.frame;
    const int number = bankSlot - kBankOffset;
    StoreBank(bankSlot, menu.mnuPrfUser[number], std::to_string(number) + " " + FileNameOf(path));
    menu.mnuPrfUser120.enabled = true;
    menu.mnuPrfUserAll.enabled = true;
}

} // namespace velluto
