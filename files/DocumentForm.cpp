#include "files/DocumentForm.h"

#include "app/Catalogue.h"
#include "app/RecentFiles.h"
#include "app/StoredPlace.h"
#include "files/ChildLayout.h"
#include "files/WindowTitle.h"

#include <algorithm>

namespace velluto {

DocumentForm::DocumentForm(std::string name, FilesState &files, DocumentType &type, int slot, MenuEntry *command)
    : ChildForm(std::move(name), slot, files.app, command), files_(files), type_(type), slot_(slot)
{
    List1.Click = [this] { List1_Click(); };
    List1.KeyDown = [this](int key) { List1_KeyDown(key); };
    List1.MouseDown = [this](int button) { Form_MouseDown(button); };
}

void DocumentForm::AddBankButton(Button &button, int bankSlot, std::string bankName)
{
    button.accessibleName = bankName;
    button.visible = IsFileWindow();
    button.Click = [this, bankSlot] { TieTo(bankSlot); };
    banks_.push_back({&button, bankSlot, std::move(bankName)});
}

void DocumentForm::AddCloseButton(Button &button, bool visible)
{
    button.visible = visible;
    button.Click = [this] { CommClose_Click(); };
    close_ = &button;
}

bool DocumentForm::LoadWindow()
{
    const int kind = app.ViewKind;
    PlaceWindow();
    close_->caption = app.messages.Text(TextId::Close);
    close_->accessibleName = close_->caption.Get();
    std::erase(close_->accessibleName, '&');
    RefreshToolTips();
    LayOut();

    DocRecord &record = Work();
    WindowTag tag;
    tag.prefix = TagPrefix();
    tag.Set(TagPosition::Slot, slot_);
    if (type_.IsNewKind(kind)) {
        tag.Set(TagPosition::Untitled, 1);
        record.Path.Set(NewName()); // in the working record only
        tag.SetPath(record.Path.All());
        ShowNew(tag);
    } else {
        tag.image = files_.LoadImage;
        tag.SetPath(record.Path.All());
        ShowFile(tag);
        tag.Set(TagPosition::State, record.State);
        tag.Set(TagPosition::Role, record.Role);
        tag.Set(TagPosition::RecentKind, record.Tag7);
    }
    tag.Set(TagPosition::Kind, KindOnceLoaded(kind));
    Tag = tag;
    caption = WindowTitle(app, Tag);
    return true;
}

// The window's rectangle from its record, or its natural size where it was never placed.
void DocumentForm::PlaceWindow()
{
    const Size natural = NaturalSize();
    TakeSlot(type_, slot_);
    CheckPlace();
    DocRecord &record = Work();
    PlaceFirst(record, natural);
    record.State = StoredState::Normal;
    record.Tag7 = static_cast<std::uint8_t>(files_.RecentKind);
    place = PlaceOf(record);
    StoreSlot(type_, slot_);
}

// The list above, the buttons below it.
void DocumentForm::LayOut()
{
    const Size inner = InnerSize(app, *this);
    const int listHeight = std::max(inner.height - ButtonsHeight(), 0);
    List1.place = Place{0, 0, inner.width, listHeight};
    LayOutButtons(inner.width, listHeight);
}

void DocumentForm::Resized()
{
    TakeSlot(type_, slot_);
    DocRecord &record = Work();
    if (windowState == WindowState::Normal) {
        KeepNoSmaller(app, *this, {record.MinWidth, record.MinHeight});
    }
    LayOut();
    StoreSize(record, *this);
    StoreState(record, *this);
    StoreSlot(type_, slot_);
}

bool DocumentForm::IsCopySource() const
{
    return files_.clipboard.ClipSlot == slot_ && files_.clipboard.ClipKind == Tag.Kind();
}

void DocumentForm::UnloadWindow()
{
    app.ViewKind = Tag.Kind();
    type_.current = Tag.Slot();
    if (IsCopySource()) {
        files_.clipboard.ClipValid = 0;
    }
    TakeSlot(type_, slot_);
    Work().State = StoredState::Closed;
    StorePlace(Work(), *this);
    StoreSlot(type_, slot_);
    if (IsFileWindow()) {
        if (type_.freesSlot) {
            type_.openFlags[static_cast<std::size_t>(slot_)] = false;
        }
        type_.openCommand.enabled = true;
        UpdateRecentPlacement(app);
    }
}

void DocumentForm::List1_Click()
{
    const int row = List1.ListIndex();
    const bool selects = SelectsRow(RightTrimmed(List1.Row(row)).size());
    RefreshWindowMenu(app); // either way
    if (row >= 0 && selects && files_.services.SelectOnInstrument) {
        files_.services.SelectOnInstrument(*this, row);
    }
}

void DocumentForm::List1_KeyDown(int key) const
{
    if (key == Key::Delete) {
        Raise(app.frame.mnuTaglia.Click); // also where the menu does not offer it
    }
}

void DocumentForm::CommClose_Click()
{
    app.children.Unload(*this);
}

void DocumentForm::TakeBank(int bankSlot)
{
    TakeSlot(type_, bankSlot);
    if (Work().State != StoredState::Normal) {
        return;
    }
    for (Form *form : app.children.All()) {
        const auto *document = dynamic_cast<DocumentForm *>(form);
        if (document != nullptr && &document->type_ == &type_ && document->slot_ == bankSlot) {
            app.children.Unload(*form);
            TakeSlot(type_, bankSlot);
            return;
        }
    }
}

void DocumentForm::StoreBank(int bankSlot, MenuEntry &entry, const std::string &words)
{
    StoreSlot(type_, bankSlot);
    entry.caption = words;
    entry.enabled = true;
    for (Form *form : app.children.All()) {
        auto *document = dynamic_cast<DocumentForm *>(form);
        if (document != nullptr && &document->type_ == &type_) {
            document->RefreshToolTips();
        }
    }
}

// Each button of a bank tells which bank it means and which file is tied to it now.
void DocumentForm::RefreshToolTips()
{
    for (const BankButton &bank : banks_) {
        const std::string path = type_.table[static_cast<std::size_t>(bank.slot)].Path.Trimmed();
        bank.button->toolTip = path.empty() ? bank.name : bank.name + ": " + path;
    }
}

} // namespace velluto
