#include "files/OverviewForm.h"

#include "app/StoredPlace.h"
#include "files/ChildLayout.h"
#include "files/ReadInstrumentFile.h"
#include "files/WindowTitle.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr int kLabelMargin = 90; // twips that a centred label is wider than its text

} // namespace

OverviewForm::OverviewForm(std::string name, int number, FilesState &files, DocumentType &type, int kind, int firstSlot, MenuEntry &command)
    : ChildForm(std::move(name), number, files.app, &command), files_(files), type_(type), kind_(kind), firstSlot_(firstSlot),
      entry_(files.app.settings.PlacementTable.at(static_cast<std::size_t>(kind - 1)))
{
}

void OverviewForm::AddList(ListBox &list, Label &label)
{
    const int number = list.index();
    label.caption = "User " + std::to_string(number); // in the windows of the Direct HD banks too
    label.accessibleName = label.caption;
    label.MouseDown = [this](int button) { Form_MouseDown(button); };
    list.accessibleName = label.caption;
    list.MouseDown = [this](int button) { Form_MouseDown(button); };
    list.Click = [this, number] {
        if (files_.services.SelectFromOverview) {
            files_.services.SelectFromOverview(*this, number);
        }
    };
    columns_.push_back({&list, &label});
}

bool OverviewForm::LoadWindow()
{
    grid_ = NaturalGrid();
    PlaceWindow();
    LayOut();
    if (!ReadBanks()) {
        return false; // with the banks read so far, and without a state text
    }
    Tag = ToolTag(kind_);
    caption = WindowTitle(app, Tag);
    return true;
}

void OverviewForm::PlaceWindow()
{
    PlaceFirst(entry_, {grid_.columns * (grid_.list.width + grid_.gap) + grid_.gap + frame.width,
                        grid_.rows * (grid_.label + grid_.list.height) + grid_.gap + frame.height});
    files_.WorkPlacement = entry_;
    place = PlaceOf(entry_);
}

// The lists share what there is of the window; at its natural size they have their own.
void OverviewForm::LayOut()
{
    const Size inner = InnerSize(app, *this);
    const int width = std::max((inner.width - grid_.gap) / grid_.columns - grid_.gap, 0);
    const int height = std::max((inner.height - grid_.gap) / grid_.rows - grid_.label, 0);
    for (const Column &column : columns_) {
        const int before = column.list->index() - 1;
        const int left = grid_.gap + before % grid_.columns * (width + grid_.gap);
        const int top = before / grid_.columns * (grid_.label + height) + grid_.label;
        column.list->place = Place{left, top, width, height};
        PlaceLabel(column);
    }
}

// Above its list: over its middle, as wide as its text, or over all of it.
void OverviewForm::PlaceLabel(const Column &column) const
{
    const Place list = column.list->place;
    const int text = app.face.LabelWidth(column.label->caption) + kLabelMargin;
    const int width = CentresLabels() ? std::min(text, list.width) : list.width;
    column.label->place = Place{list.left + (list.width - width) / 2, list.top - grid_.label, width, grid_.label};
}

// False where a file cannot be read: its message has been shown, and one that has gone is told to nobody.
bool OverviewForm::ReadBanks()
{
    int slot = firstSlot_;
    for (const Column &column : columns_) {
        TakeSlot(type_, slot++);
        const std::string path = type_.work.Path.Trimmed();
        if (path.empty()) {
            continue;
        }
        if (ReadInstrumentFile(files_, path) != ReadStatus::Good) {
            return false;
        }
        column.list->SetRows(RowsFor(files_.LoadImage.View()));
        ShowFileName(column, path);
    }
    return true;
}

void OverviewForm::ShowFileName(const Column &column, const std::string &path)
{
    Label &label = *column.label;
    label.caption = label.caption.Get() + ": " + FileNameOf(path);
    label.accessibleName = label.caption;
    label.toolTip = path;
    column.list->accessibleName = label.caption;
    PlaceLabel(column);
}

void OverviewForm::Resized()
{
    if (windowState == WindowState::Normal) {
        KeepNoSmaller(app, *this, {entry_.MinWidth, entry_.MinHeight});
    }
    LayOut();
}

// It lowers the count also where its load had stopped and not raised it, on purpose.
void OverviewForm::UnloadWindow()
{
    app.ViewKind = Tag.Kind();
    if (app.ViewKind == kind_) { // a window whose load has stopped is of no kind: its place is not kept
        StorePlace(entry_, *this);
        entry_.State = StoredState::Closed;
        files_.WorkPlacement = entry_;
    }
}

} // namespace velluto
