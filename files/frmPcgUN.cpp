#include "files/frmPcgUN.h"

#include "app/Catalogue.h"
#include "app/RecentFiles.h"
#include "app/StoredPlace.h"
#include "app/ViewKind.h"
#include "files/Documents.h"
#include "files/ProgramRows.h"
#include "files/Saving.h"
#include "files/WindowTitle.h"

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

std::string WithoutAccessKey(std::string caption)
{
    std::erase(caption, '&');
    return caption;
}

} // namespace

frmPcgUN::frmPcgUN(FilesState &files, int slot) : Form("frmPcgUN", slot), files_(files), slot_(slot)
{
    List1.columns = kColumns;
    List1.accessibleName = "Program";
    List1.Click = [this] { List1_Click(); };
    List1.KeyDown = [this](int key) { List1_KeyDown(key); };
    List1.MouseDown = [this](int button) { Form_MouseDown(button); };
    for (Button &button : CommUser) {
        button.caption = "&User " + std::to_string(button.index() - kFirstPcgUserSlot + 1);
        button.accessibleName = WithoutAccessKey(button.caption);
        button.Click = [this, index = button.index()] { CommUser_Click(index); };
    }
    CommClose.Click = [this] { CommClose_Click(); };
}

bool frmPcgUN::IsFileWindow() const
{
    return IsFileSlot(slot_);
}

void frmPcgUN::Form_Load()
{
    Modulo1 &app = files_.app;
    app.children.RestoringLayout = true;
    const bool isNew = app.ViewKind == ViewKind::NewProgram64 || app.ViewKind == ViewKind::NewProgram128;
    WindowTag tag;
    tag.prefix = TagPrefix();
    int places = ProgramPlaces(files_.LoadImage.View());
    if (slot_ == kNewPcg64Slot || slot_ == kNewPcg128Slot) {
        places = slot_ == kNewPcg64Slot ? kProgramPlaces : kProgramPlacesLarge;
    }
    tag.Set(TagPosition::Places, places);
    PlaceWindow(places);
    ShowButtons();
    tag.Set(TagPosition::Slot, slot_);
    if (isNew) {
        MakeNewFile(tag, places);
    } else {
        MakeFile(tag, places);
    }
    tag.Set(TagPosition::Kind, ViewKind::ProgramFile); // a new file, too, from here on
    Tag = tag;
    caption = WindowTitle(app, Tag);
    app.children.RestoringLayout = false;
    ++app.children.ChildCount;
}

// The window's rectangle from its record, or its natural size where the record does not fit.
void frmPcgUN::PlaceWindow(int places)
{
    TakeSlot(files_, ProgramType(), slot_);
    DocRecord &record = files_.WorkPcgRecord;
    const bool large = places != kProgramPlaces;
    if ((!large && record.Height >= kHeightOfLarge) || files_.KnownFileFlag == 0) {
        record.MinWidth = 0;
    }
    const Size letter = files_.app.face.MeasureA(List1.font);
    const int listHeight = (large ? kListLinesLarge : kListLines) * letter.height;
    const int room = kHeightOfLarge - 1 - frame.height - listHeight;
    buttonRow_ = large ? kButtonRow : std::clamp(room, kLeastButtonRow, kButtonRow);
    if (record.MinWidth <= 0) { // below 0 only in a settings file that no window has written
        record.Left = 0;
        record.Top = 0;
        record.Width = NearestIn<std::int16_t>(kListCharacters * letter.width + frame.width);
        record.MinWidth = record.Width;
        record.Height = NearestIn<std::int16_t>(listHeight + buttonRow_ + frame.height);
        record.MinHeight = record.Height;
    }
    record.State = 1;
    record.Tag7 = static_cast<std::uint8_t>(files_.RecentKind);
    place = Place{record.Left, record.Top, record.Width, record.Height};
    StoreSlot(files_, ProgramType(), slot_);
}

void frmPcgUN::ShowButtons()
{
    for (Button &button : CommUser) {
        button.visible = IsFileWindow();
    }
    CommClose.caption = files_.app.messages.Text(TextId::Close);
    CommClose.accessibleName = WithoutAccessKey(CommClose.caption);
    Layout();
}

// The list above, the buttons side by side in the middle of the row below it.
void frmPcgUN::Layout()
{
    const bool maximised = windowState == WindowState::Maximised;
    const Size inner = maximised ? files_.app.face.Workspace() : Size{ScaleWidth(), ScaleHeight()};
    const int listHeight = std::max(inner.height - buttonRow_, 0);
    List1.place = Place{0, 0, std::max(inner.width, 0), listHeight};

    const int count = IsFileWindow() ? 3 : 1;
    int left = (inner.width - count * kButtonWidth - (count - 1) * kButtonGap) / 2;
    const auto put = [&](Button &button) {
        button.place = Place{left, listHeight + kButtonMargin, kButtonWidth, buttonRow_ - 2 * kButtonMargin};
        left += kButtonWidth + kButtonGap;
    };
    if (IsFileWindow()) {
        std::ranges::for_each(CommUser, put);
    }
    put(CommClose);
}

void frmPcgUN::MakeNewFile(WindowTag &tag, int places)
{
    tag.Set(TagPosition::Untitled, 1);
    DocRecord &record = files_.WorkPcgRecord;
    record.Path.Set(files_.app.messages.Text(TextId::Untitled) + ".pcg");
    tag.SetPath(record.Path.All());
    List1.SetRows(EmptyProgramRows(places));
}

void frmPcgUN::MakeFile(WindowTag &tag, int places)
{
    const DocRecord &record = files_.WorkPcgRecord;
    tag.image = files_.LoadImage;
    tag.SetPath(record.Path.All());
    const ImageView image = tag.image.View();
    List1.SetRows(CountItems(image) == 0 ? EmptyProgramRows(places) : ProgramRows(image, places));
    tag.Set(TagPosition::State, record.State);
    tag.Set(TagPosition::Role, record.Role);
    tag.Set(TagPosition::RecentKind, record.Tag7);
}

void frmPcgUN::Form_Activate()
{
    RefreshWindowMenu(files_.app);
}

void frmPcgUN::Form_Resize()
{
    Modulo1 &app = files_.app;
    if (app.children.RestoringLayout) {
        return;
    }
    TakeSlot(files_, ProgramType(), slot_);
    DocRecord &record = files_.WorkPcgRecord;
    if (windowState == WindowState::Normal) {
        // Not to be taken for a second resize.
        app.children.RestoringLayout = true;
        const int width = std::max({Width(), int{record.MinWidth}, frame.width});
        const int height = std::max({Height(), int{record.MinHeight}, frame.height});
        place = Place{Left(), Top(), width, height};
        app.children.RestoringLayout = false;
    }
    Layout();
    StoreSize(record, *this);
    if (windowState != WindowState::Maximised) {
        record.State = windowState == WindowState::Minimised ? 2 : 1;
    }
    StoreSlot(files_, ProgramType(), slot_);
}

bool frmPcgUN::Form_QueryUnload()
{
    Modulo1 &app = files_.app;
    app.ViewKind = Tag.Kind();
    app.CurrentOperation = "File Program - " + FileNameOf(Tag.Path()) + " (" + std::to_string(app.slot) + ")";
    return MayClose(files_, *this, TagPosition::ProgramEdited);
}

void frmPcgUN::Form_Unload()
{
    Modulo1 &app = files_.app;
    files_.CurrentPcgSlot = Tag.Slot();
    if (files_.clipboard.ClipSlot == slot_) { // whatever the kind of the copy
        files_.clipboard.ClipValid = 0;
    }
    TakeSlot(files_, ProgramType(), slot_);
    files_.WorkPcgRecord.State = 0;
    StorePlace(files_.WorkPcgRecord, *this);
    StoreSlot(files_, ProgramType(), slot_);
    if (slot_ == kNewPcg64Slot) {
        app.frame.mnuPcgNuovo64.enabled = true;
    } else if (slot_ == kNewPcg128Slot) {
        app.frame.mnuPcgNuovo128.enabled = true;
    } else if (IsFileWindow()) {
        files_.PcgOpenFlags[static_cast<std::size_t>(slot_)] = false;
        app.frame.mnuPcgApri.enabled = true;
        UpdateRecentPlacement(app);
    } else {
        app.frame.mnuPcgUser[slot_].enabled = true;
    }
    --app.children.ChildCount;
    RefreshAfterClose(app);
    app.children.Bury(std::move(files_.PcgWindows[static_cast<std::size_t>(slot_)]));
}

void frmPcgUN::Form_MouseDown(int button)
{
    MenuEntry &menu = files_.app.frame.mnuModifica;
    if (button == MouseButton::Right && DropMenu(menu)) {
        files_.app.face.PopUpMenu(menu);
    }
}

void frmPcgUN::List1_Click()
{
    const int row = List1.ListIndex();
    const bool passes = RightTrimmed(List1.Row(row)).size() != kIgnoredRow;
    RefreshWindowMenu(files_.app);
    const int slot = Tag.Slot();
    const bool isBank = slot >= kFirstPcgUserSlot && slot <= kLastPcgUserSlot;
    if (row >= 0 && passes && isBank && files_.services.SelectOnInstrument) {
        files_.services.SelectOnInstrument(*this, row);
    }
}

void frmPcgUN::List1_KeyDown(int key) const
{
    if (key == Key::Delete) {
        Raise(files_.app.frame.mnuTaglia.Click); // also where the menu does not offer it
    }
}

void frmPcgUN::CommClose_Click()
{
    files_.app.children.Unload(*this);
}

// Ties this file to a user bank. The window stays a file window; the bank is opened from the View menu.
void frmPcgUN::CommUser_Click(int index)
{
    Modulo1 &app = files_.app;
    TakeSlot(files_, ProgramType(), index);
    frmPcgUN *bank = files_.PcgWindows[static_cast<std::size_t>(index)].get();
    if (files_.WorkPcgRecord.State == 1 && bank != nullptr) {
        app.children.Unload(*bank);
        TakeSlot(files_, ProgramType(), index);
    }
    const std::string path = Tag.Path();
    files_.WorkPcgRecord.Path.Set(path);
    StoreSlot(files_, ProgramType(), index);
    app.settings.PcgUserAssigned = true;

    MenuEntry &entry = app.frame.mnuPcgUser[index];
    entry.caption = entry.caption.Get().substr(0, kUserCaption) + " " + FileNameOf(path);
    entry.enabled = true;
}

void ShowPcgWindow(FilesState &files, int slot)
{
    std::unique_ptr<frmPcgUN> &window = files.PcgWindows.at(static_cast<std::size_t>(slot));
    if (!window) {
        window = std::make_unique<frmPcgUN>(files, slot);
    }
    files.app.children.Show(*window);
}

} // namespace velluto
