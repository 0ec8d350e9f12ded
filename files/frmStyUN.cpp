#include "files/frmStyUN.h"

#include "app/Catalogue.h"
#include "files/ChildLayout.h"
#include "files/Saving.h"
#include "files/StyleRows.h"

#include <array>

namespace velluto {

namespace {

constexpr int kColumns = 2;
constexpr int kListCharacters = 58; // natural width of the list
constexpr int kListLines = 9;       // natural height: rows of a column and a line of margin

// Twips. All buttons of a file window stand in nine columns, one for each Direct HD bank.
constexpr int kButtonRow = 390;
constexpr int kButtonHeight = 345;
constexpr int kButtonMargin = 30; // left and right of a row
constexpr int kButtonGap = 30;
constexpr int kWidestButton = 1260;
constexpr int kFileColumns = 9;
constexpr int kStsColumn = 8; // apart from the buttons of the User banks, at the end of their row

constexpr std::size_t kUserCaption = 10;    // "&2 User 1:", the part of mnuStyUser's caption that stays
constexpr std::size_t kDirectHdCaption = 1; // "1", the same of mnuStyDirectHD
constexpr std::size_t kIgnoredRow = 2;      // length of a trimmed row that a click ignores; one short of an empty row on purpose

constexpr int kShowsStyles = 1;
constexpr int kShowsSts = 0;
constexpr const char *kSts = "STS";
constexpr const char *kStyle = "Style";

MenuEntry *CommandOf(frmMain &menu, int slot)
{
    if (slot == kNewStySlot) {
        return &menu.mnuStyNuovo;
    }
    if (IsFileSlot(slot)) {
        return nullptr;
    }
    return slot <= kLastStyUserSlot ? &menu.mnuStyUser[slot] : &menu.mnuStyDirectHD[slot - kFirstDirectHdSlot + 1];
}

} // namespace

frmStyUN::frmStyUN(FilesState &files, int slot) : DocumentForm("frmStyUN", files, files.styles, slot, CommandOf(files.app.frame, slot))
{
    List1.columns = kColumns;
    List1.accessibleName = kStyle;
    for (Button &button : CommUser) {
        button.caption = "User " + std::to_string(button.index() - kFirstStyUserSlot + 1);
        AddBankButton(button, button.index(), button.caption);
    }
    for (Button &button : CommDirectHD) {
        const std::string number = std::to_string(button.index() - kFirstDirectHdSlot + 1);
        button.caption = "Dir. HD " + number;
        AddBankButton(button, button.index(), "Direct HD " + number);
    }
    AddCloseButton(CommClose, !IsFileWindow());
    CommSTS.Click = [this] { CommSTS_Click(); };
    NameStsButton(kSts);
}

void frmStyUN::NameStsButton(const std::string &view)
{
    CommSTS.accessibleName = view;
    CommSTS.caption = view;
}

Size frmStyUN::NaturalSize()
{
    const Size letter = app.face.MeasureA(List1.font);
    return {kListCharacters * letter.width + frame.width, kListLines * letter.height + ButtonsHeight() + frame.height};
}

int frmStyUN::ButtonsHeight() const
{
    return IsFileWindow() ? 2 * kButtonRow : kButtonRow;
}

// A file's User banks above its Direct HD banks, all of one width; elsewhere the two buttons side by side.
void frmStyUN::LayOutButtons(int width, int top)
{
    const int columnCount = IsFileWindow() ? kFileColumns : 2;
    const ButtonColumns columns = ColumnsIn(width - 2 * kButtonMargin, columnCount, kWidestButton, kButtonGap);
    const auto put = [&](Button &button, int column, int row) {
        const int under = (kButtonRow - kButtonHeight) / 2 + row * kButtonRow;
        button.place = Place{kButtonMargin + columns.LeftOf(column), top + under, columns.width, kButtonHeight};
    };
    if (!IsFileWindow()) {
        put(CommSTS, 0, 0);
        put(CommClose, 1, 0);
        return;
    }
    for (Button &button : CommUser) {
        put(button, button.index() - kFirstStyUserSlot, 0);
    }
    put(CommSTS, kStsColumn, 0);
    for (Button &button : CommDirectHD) {
        put(button, button.index() - kFirstDirectHdSlot, 1);
    }
}

std::string frmStyUN::NewName() const
{
    return app.messages.Text(TextId::Untitled) + ".sty";
}

void frmStyUN::ShowNew(WindowTag &tag)
{
    tag.Set(TagPosition::ListShows, kShowsStyles);
    List1.SetRows(NewStyleRows());
    std::string image;
    BuildEmptyImage(image);
    Files().BuildImage = FileImage(std::span(reinterpret_cast<const std::uint8_t *>(image.data()), image.size()));
    tag.image = Files().BuildImage;
}

void frmStyUN::ShowFile(WindowTag &tag)
{
    FilesState &files = Files();
    const ImageView image = tag.image.View();
    const int n = CountItems(image);
    IndexItems(image, files.ItemIndex);
    PutRowNumbers(files.RowBuffer);
    tag.Set(TagPosition::HasSts, 1);
    // A file with exactly one entry shows no item at all, and passes for one with STS.
    if (n > 1) {
        const int layout = ClassifyStyleLayout(image);
        const bool stylesOnly = layout == StyleLayout::StylesOnly;
        tag.Set(TagPosition::HasSts, stylesOnly ? 0 : 1);
        CommSTS.enabled = !stylesOnly;
        PutStylesAtLoad(files.RowBuffer, image, files.ItemIndex, stylesOnly ? n : n / 2, layout == StyleLayout::Interleaved ? 2 : 1);
    }
    List1.SetRows(RowsOf(files.RowBuffer));
    tag.Set(TagPosition::ListShows, kShowsStyles);
}

void frmStyUN::CommSTS_Click()
{
    FilesState &files = Files();
    files.LoadImage = Tag.image;
    IndexItems(Tag.image.View(), files.ItemIndex);
    PutRowNumbers(files.RowBuffer);
    if (CommSTS.caption.Get() == kSts) {
        ShowSts();
    } else {
        ShowStyles();
    }
    List1.SetRows(RowsOf(files.RowBuffer));
}

void frmStyUN::ShowStyles()
{
    NameStsButton(kSts);
    Tag.Set(TagPosition::ListShows, kShowsStyles);
    EndCaptionWith("Y)"); // "(STY)"
    PutStyles(Files().RowBuffer, Tag.image.View(), Files().ItemIndex);
}

void frmStyUN::ShowSts()
{
    NameStsButton(kStyle);
    Tag.Set(TagPosition::ListShows, kShowsSts);
    EndCaptionWith("S)"); // "(STS)"
    PutSts(Files().RowBuffer, Tag.image.View(), Files().ItemIndex);
}

void frmStyUN::EndCaptionWith(const std::string &end)
{
    const std::string &now = caption.Get();
    caption = now.substr(0, now.size() - std::min(now.size(), end.size())) + end;
}

bool frmStyUN::Form_QueryUnload()
{
    app.ViewKind = Tag.Kind();
    app.CurrentOperation = "File Style: " + Tag.Path();
    return MayClose(Files(), *this, TagPosition::ProgramEdited);
}

bool frmStyUN::SelectsRow(std::size_t trimmedLength) const
{
    return trimmedLength != kIgnoredRow && IsBankSlot(Tag.Slot(), kLastDirectHdSlot);
}

void frmStyUN::TieTo(int bankSlot)
{
    if (bankSlot <= kLastStyUserSlot) {
        CommUser_Click(bankSlot);
    } else {
        CommDirectHD_Click(bankSlot);
    }
}

// Ties this file to a user bank, with this window's role.
void frmStyUN::CommUser_Click(int index)
{
    Type().current = index;
    TakeBank(index);
    const std::string path = Tag.Path();
    Work().Path.Set(path);
    Work().Role = static_cast<std::uint8_t>(Tag.At(TagPosition::Role));
    MenuEntry &entry = app.frame.mnuStyUser[index];
    StoreBank(index, entry, entry.caption.Get().substr(0, kUserCaption) + " " + FileNameOf(path));
    app.frame.mnuStyUserAll.enabled = true;
}

// Ties this file to a Direct HD bank, which keeps its own role.
void frmStyUN::CommDirectHD_Click(int index)
{
    Type().current = index;
    TakeBank(index);
    const std::string path = Tag.Path();
    Work().Path.Set(path);
    frmMain &menu = app.frame;
    const int before = index - kFirstDirectHdSlot;
    MenuEntry &entry = menu.mnuStyDirectHD[before + 1];
    StoreBank(index, entry, entry.caption.Get().substr(0, kDirectHdCaption) + " " + FileNameOf(path));
    menu.mnuStyDirectHD19.enabled = true;
    const std::array<MenuEntry *, 3> groups{&menu.mnuStyDirectHD123, &menu.mnuStyDirectHD456, &menu.mnuStyDirectHD789};
    groups.at(static_cast<std::size_t>(before / kDirectHdInGroup))->enabled = true;
}

} // namespace velluto
