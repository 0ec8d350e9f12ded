#include "view/Gestures.h"

#include <algorithm>

namespace velluto {

namespace {

bool HasShift(Modifier modifier)
{
    return modifier == Modifier::Shift || modifier == Modifier::CtrlShift;
}

bool HasCtrl(Modifier modifier)
{
    return modifier == Modifier::Ctrl || modifier == Modifier::CtrlShift;
}

// The row that a navigation key leads to in a list of snaking columns, or -1 where the key does not navigate.
int RowReachedBy(const ListBox &list, int key)
{
    const int count = list.ListCount();
    const int columns = std::max(list.columns, 1);
    const int perColumn = list.rowsPerColumn > 0 ? list.rowsPerColumn : (count + columns - 1) / columns;
    const int sideways = list.columns == 0 ? 1 : perColumn;
    const int from = std::max(list.ListIndex(), 0);
    const bool none = list.ListIndex() < 0;
    switch (key) {
    case Key::Up:
        return std::max(from - 1, 0);
    case Key::Down:
        return none ? 0 : std::min(from + 1, count - 1);
    case Key::Left:
        return from - sideways >= 0 ? from - sideways : from;
    case Key::Right:
        return from + sideways < count ? from + sideways : from;
    case Key::Home:
        return 0;
    case Key::End:
        return count - 1;
    case Key::PageUp:
        return std::max(from - perColumn, 0);
    case Key::PageDown:
        return std::min(from + perColumn, count - 1);
    default:
        return -1;
    }
}

int InRange(const ScrollBar &bar, int value)
{
    return std::clamp(value, std::min(bar.min.Get(), bar.max.Get()), std::max(bar.min.Get(), bar.max.Get()));
}

} // namespace

void ListGesture::ClickRow(ListBox &list, int row, Modifier modifier)
{
    if (row < 0 || row >= list.ListCount()) {
        return;
    }
    const bool range = list.multiSelect && HasShift(modifier);
    const bool toggle = list.multiSelect && HasCtrl(modifier) && !range;
    if (!toggle && !(range && HasCtrl(modifier))) {
        list.selected_.assign(list.rows_.size(), false);
    }
    if (range) {
        const int anchor = std::clamp(list.anchor_, 0, list.ListCount() - 1);
        for (int i = std::min(anchor, row); i <= std::max(anchor, row); ++i) {
            list.selected_[static_cast<std::size_t>(i)] = true;
        }
    } else {
        list.selected_[static_cast<std::size_t>(row)] = toggle ? !list.Selected(row) : true;
        list.anchor_ = row;
    }
    list.current_ = row;
    list.Changed(Aspect::Selection);
    Raise(list.Click);
}

void ListGesture::DoubleClickRow(ListBox &list, int row)
{
    if (row < 0 || row >= list.ListCount()) {
        return;
    }
    ClickRow(list, row, Modifier::None);
    Raise(list.DblClick);
}

void ListGesture::DragTo(ListBox &list, int row)
{
    if (!list.multiSelect || list.anchor_ < 0 || row < 0 || row >= list.ListCount() || row == list.ListIndex()) {
        return;
    }
    list.selected_.assign(list.rows_.size(), false);
    for (int i = std::min(list.anchor_, row); i <= std::max(list.anchor_, row); ++i) {
        list.selected_[static_cast<std::size_t>(i)] = true;
    }
    list.current_ = row;
    list.Changed(Aspect::Selection);
}

void ScrollGesture::MoveTo(ScrollBar &bar, int value)
{
    const int wanted = InRange(bar, value);
    if (wanted == bar.value) {
        LetGo(bar);
    } else {
        bar.held_ = false;
        bar.value = wanted;
    }
}

void ScrollGesture::DragTo(ScrollBar &bar, int value)
{
    const int wanted = InRange(bar, value);
    if (wanted != bar.value) {
        bar.held_ = true;
        bar.value = wanted;
    }
}

void ScrollGesture::LetGo(ScrollBar &bar)
{
    if (bar.held_) {
        bar.held_ = false;
        Raise(bar.Change);
    }
}

bool PressKey(Control &control, int key, Modifier modifier)
{
    if (!control.enabled || !control.visible) {
        return false;
    }
    if (auto *text = dynamic_cast<TextBox *>(&control)) {
        Raise(text->KeyDown, key);
        return true;
    }
    auto *list = dynamic_cast<ListBox *>(&control);
    if (list == nullptr) {
        return false;
    }
    Raise(list->KeyDown, key);
    if (key == Key::Return && list->DblClick && list->ListIndex() >= 0) {
        ListGesture::DoubleClickRow(*list, list->ListIndex());
        return true;
    }
    const int row = list->ListCount() > 0 ? RowReachedBy(*list, key) : -1;
    if (row < 0) {
        return true;
    }
    if (modifier == Modifier::Ctrl) {
        list->SetListIndex(row);
    } else {
        ListGesture::ClickRow(*list, row, HasShift(modifier) ? Modifier::Shift : Modifier::None);
    }
    return true;
}

bool Press(Control &control)
{
    if (!control.enabled || !control.visible) {
        return false;
    }
    if (auto *button = dynamic_cast<Button *>(&control)) {
        Raise(button->Click);
    } else if (auto *box = dynamic_cast<CheckBox *>(&control)) {
        box->value = !box->value;
    } else if (auto *option = dynamic_cast<OptionButton *>(&control)) {
        option->value = true;
    } else {
        return false;
    }
    return true;
}

} // namespace velluto
