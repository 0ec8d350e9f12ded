#include "files/OverviewForm.h"

#include "app/StoredPlace.h"
#include "files/ChildLayout.h"
#include "files/Opening.h"
#include "files/WindowTitle.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr int kLabelMargin = 90; // twips that a centred label is wider than its text

} // namespace

OverviewForm::OverviewForm(std::string name, int number, FilesState &files, const DocumentType &type, int kind, int firstSlot)
    : Form(std::move(name), number), files_(files), type_(type), kind_(kind), firstSlot_(firstSlot)
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

WindowPlacement &OverviewForm::Entry() const
{
    return files_.app.settings.PlacementTable.at(static_cast<std::size_t>(kind_ - 1));
}

void OverviewForm::Form_Load()
{
    Modulo1 &app = files_.app;
    app.children.RestoringLayout = true;
    grid_ = NaturalGrid();
    PlaceWindow();
    LayOut();
    if (!ReadBanks()) {
        // The window stays with the banks read so far and without a state text; it is not counted, and no window
        // follows a resize until some other load has come to its end. On purpose.
        return;
    }
    Tag = ToolTag(kind_);
    caption = WindowTitle(app, Tag);
    app.children.RestoringLayout = false;
    ++app.children.ChildCount;
}

void OverviewForm::PlaceWindow()
{
    WindowPlacement &work = files_.WorkPlacement;
    work = Entry();
    if (work.MinWidth == 0) {
        work.Left = 0;
        work.Top = 0;
        work.Width = NearestIn<std::uint16_t>(grid_.columns * (grid_.list.width + grid_.gap) + grid_.gap + frame.width);
        work.MinWidth = work.Width;
        work.Height = NearestIn<std::uint16_t>(grid_.rows * (grid_.label + grid_.list.height) + grid_.gap + frame.height);
        work.MinHeight = work.Height;
    }
    place = Place{work.Left, work.Top, work.Width, work.Height};
    Entry() = work;
}

// The lists share what there is of the window; at its natural size they have their own.
void OverviewForm::LayOut()
{
    const Size inner = InnerSize(files_.app, *this);
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
    const int text = files_.app.face.LabelWidth(column.label->caption) + kLabelMargin;
    const int width = CentresLabels() ? std::min(text, list.width) : list.width;
    column.label->place = Place{list.left + (list.width - width) / 2, list.top - grid_.label, width, grid_.label};
}

// False where a file cannot be read: its message has been shown, and one that has gone is told to nobody.
bool OverviewForm::ReadBanks()
{
    int slot = firstSlot_;
    for (const Column &column : columns_) {
        TakeSlot(files_, type_, slot++);
        const std::string path = (files_.*type_.work).Path.Trimmed();
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

void OverviewForm::Form_Activate()
{
    RefreshWindowMenu(files_.app);
}

void OverviewForm::Form_Resize()
{
    if (files_.app.children.RestoringLayout) {
        return;
    }
    if (windowState == WindowState::Normal) {
        KeepNoSmaller(files_.app, *this, {Entry().MinWidth, Entry().MinHeight});
    }
    LayOut();
}

void OverviewForm::Form_MouseDown(int button)
{
    PopUpEditMenu(files_.app, button);
}

void OverviewForm::Form_Unload()
{
    Modulo1 &app = files_.app;
    app.ViewKind = Tag.Kind();
    // A window whose load has stopped is of no kind: its place is not kept, and its command stays off.
    if (app.ViewKind == kind_) {
        WindowPlacement &work = files_.WorkPlacement;
        work = Entry();
        work.State = StoredState::Closed;
        StorePosition(work, *this);
        StoreSize(work, *this);
        Entry() = work;
        OwnCommand().enabled = true;
    }
    --app.children.ChildCount;
    RefreshAfterClose(app);
    app.children.Bury(TakeOut());
}

} // namespace velluto
