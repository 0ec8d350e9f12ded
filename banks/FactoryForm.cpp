#include "banks/FactoryForm.h"

#include "app/StoredPlace.h"
#include "files/ChildLayout.h"
#include "files/WindowTitle.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr Font kListFont{"courier new", 11, 400};

} // namespace

FactoryForm::FactoryForm(std::string name, int number, RecallState &recall, int kind, MenuEntry &command, Size cells)
    : ChildForm(std::move(name), number, recall.app, &command), recall_(recall), kind_(kind), cells_(cells),
      entry_(recall.app.settings.PlacementTable.at(static_cast<std::size_t>(kind - 1)))
{
    List1.font = kListFont;
    List1.multiSelect = false;
    List1.Click = [this] { List1_Click(); };
    List1.MouseDown = [this](int button) { Form_MouseDown(button); };
}

bool FactoryForm::LoadWindow()
{
    PlaceWindow();
    LayOut();
    ShowRows();
    Tag = StateText(entry_);
    caption = WindowTitle(app, Tag);
    List1.accessibleName = caption.Get();
    std::ranges::replace(List1.accessibleName, '&', '/'); // as the menu has it; spoken "&" is a mark of access keys
    return true;
}

// The window's rectangle from its entry, or its natural size at the first use.
void FactoryForm::PlaceWindow()
{
    const Size letter = app.face.MeasureA(List1.font);
    PlaceFirst(entry_, {cells_.width * letter.width + frame.width, cells_.height * letter.height + frame.height});
    place = PlaceOf(entry_);
    entry_.State = StoredState::Normal;
    recall_.files.WorkPlacement = entry_;
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
    const Size inner = InnerSize(app, *this);
    List1.place = Place{0, 0, inner.width, inner.height};
}

void FactoryForm::Resized()
{
    if (windowState == WindowState::Normal) {
        KeepNoSmaller(app, *this, {entry_.MinWidth, entry_.MinHeight});
    }
    LayOut();
    StoreSize(entry_, *this);
    StoreState(entry_, *this);
    recall_.files.WorkPlacement = entry_;
    RefreshWindowMenu(app);
}

void FactoryForm::UnloadWindow()
{
    StorePlace(entry_, *this);
    entry_.State = StoredState::Closed;
    recall_.files.WorkPlacement = entry_;
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
