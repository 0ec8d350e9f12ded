#include "banks/FactoryForm.h"

#include "app/StoredPlace.h"
#include "files/ChildLayout.h"
#include "files/WindowTitle.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr Font kListFont{"courier new", 11, 400};

} // namespace

FactoryForm::FactoryForm(std::string name, int number, RecallState &recall, int kind)
    : Form(std::move(name), number), recall_(recall), kind_(kind)
{
    List1.font = kListFont;
    List1.multiSelect = false;
    List1.Click = [this] { List1_Click(); };
    List1.MouseDown = [this](int button) { Form_MouseDown(button); };
}

WindowPlacement &FactoryForm::Entry(int kind) const
{
    return recall_.app.settings.PlacementTable.at(static_cast<std::size_t>(kind - 1));
}

void FactoryForm::Form_Load()
{
    Modulo1 &app = recall_.app;
    app.children.RestoringLayout = true;
    PlaceWindow();
    LayOut();
    ShowRows();
    Tag = StateText(Entry(kind_));
    caption = WindowTitle(app, Tag);
    List1.accessibleName = caption.Get();
    std::ranges::replace(List1.accessibleName, '&', '/'); // as the menu has it; spoken "&" is a mark of access keys
    app.children.RestoringLayout = false;
    ++app.children.ChildCount;
}

// The window's rectangle from its entry, or its natural size at the first use.
void FactoryForm::PlaceWindow()
{
    const Size letter = recall_.app.face.MeasureA(List1.font);
    const Size cells = NaturalCells();
    WindowPlacement &work = recall_.files.WorkPlacement;
    work = Entry(kind_);
    if (work.MinWidth == 0) {
        work.Left = 0;
        work.Top = 0;
        work.Width = NearestIn<std::uint16_t>(cells.width * letter.width + frame.width);
        work.MinWidth = work.Width;
        work.Height = NearestIn<std::uint16_t>(cells.height * letter.height + frame.height);
        work.MinHeight = work.Height;
    }
    place = Place{work.Left, work.Top, work.Width, work.Height};
    work.State = StoredState::Normal;
    Entry(kind_) = work;
}

// What has words and does not play is a heading.
void FactoryForm::ShowRows()
{
    List1.headings.clear();
    List1.SetRows(Rows());
    for (int row = 0; row < List1.ListCount(); ++row) {
        if (!RightTrimmed(List1.Row(row)).empty() && !PlaysRow(List1.Row(row))) {
            List1.headings.push_back(row);
        }
    }
}

void FactoryForm::LayOut()
{
    const Size inner = InnerSize(recall_.app, *this);
    List1.place = Place{0, 0, inner.width, inner.height};
}

void FactoryForm::Form_Activate()
{
    RefreshWindowMenu(recall_.app);
}

void FactoryForm::Form_Resize()
{
    Modulo1 &app = recall_.app;
    if (app.children.RestoringLayout) {
        return;
    }
    if (windowState == WindowState::Normal) {
        KeepNoSmaller(app, *this, {Entry(kind_).MinWidth, Entry(kind_).MinHeight});
    }
    LayOut();
    WindowPlacement &work = recall_.files.WorkPlacement;
    work = Entry(kind_);
    StoreSize(work, *this);
    StoreState(work, *this);
    Entry(kind_) = work;
    RefreshWindowMenu(app);
}

void FactoryForm::Form_MouseDown(int button)
{
    PopUpEditMenu(recall_.app, button);
}

void FactoryForm::Form_Unload()
{
    Modulo1 &app = recall_.app;
    OwnCommand().enabled = true;
    const int kind = KindAtUnload();
    WindowPlacement &work = recall_.files.WorkPlacement;
    work = Entry(kind);
    StorePosition(work, *this);
    StoreSize(work, *this);
    work.State = StoredState::Closed;
    Entry(kind) = work;
    --app.children.ChildCount;
    RefreshAfterClose(app);
    app.children.Bury(TakeOut());
}

bool FactoryForm::PlaysCurrentRow() const
{
    return PlaysRow(List1.Row(List1.ListIndex()));
}

void FactoryForm::PlayCurrentRow()
{
    SelectOnInstrument(recall_, *this, List1.ListIndex());
}

} // namespace velluto
