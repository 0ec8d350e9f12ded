#include "view/Control.h"

#include <algorithm>
#include <iterator>

namespace velluto {

namespace {

bool IsRowOf(const std::vector<std::string> &rows, int row)
{
    return row >= 0 && row < static_cast<int>(rows.size());
}

} // namespace

Control::Control(Form &form, std::string name, int index) : form_(form), name_(std::move(name)), index_(index)
{
    form.controls_.push_back(this);
}

Control *ControlNamed(const Form &form, std::string_view name, int index)
{
    const auto named = [&](const Control *control) { return control->name() == name && control->index() == index; };
    const auto found = std::ranges::find_if(form.controls(), named);
    return found != form.controls().end() ? *found : nullptr;
}

std::string Control::FullName() const
{
    return index_ == kNoIndex ? name_ : name_ + "(" + std::to_string(index_) + ")";
}

void Control::Changed(Aspect aspect)
{
    Raise(observer, aspect);
    RaiseEvent(aspect);
}

void CheckBox::RaiseEvent(Aspect aspect)
{
    if (aspect == Aspect::Checked) {
        Raise(Click);
    }
}

void OptionButton::RaiseEvent(Aspect aspect)
{
    if (aspect != Aspect::Checked || !value) {
        return;
    }
    for (Control *other : form().controls()) {
        auto *option = dynamic_cast<OptionButton *>(other);
        if (option != nullptr && option != this) {
            option->value = false;
        }
    }
    Raise(Click);
}

void ComboBox::RaiseEvent(Aspect aspect)
{
    if (aspect == Aspect::Current) {
        Raise(Click);
    }
}

void ScrollBar::RaiseEvent(Aspect aspect)
{
    if (aspect == Aspect::Value) {
        Raise(held_ ? Scroll : Change);
    }
}

void TextBox::ShowAtTop(int characters)
{
    askedAtTop_ = characters;
    Changed(Aspect::Top); // asked anew each time: the user may have scrolled away
}

void TextBox::RaiseEvent(Aspect aspect)
{
    if (aspect == Aspect::Text) {
        Raise(Change);
    }
}

const std::string &ListBox::Row(int row) const
{
    static const std::string kNone;
    return IsRowOf(rows_, row) ? rows_[static_cast<std::size_t>(row)] : kNone;
}

bool ListBox::Selected(int row) const
{
    return IsRowOf(rows_, row) && selected_[static_cast<std::size_t>(row)];
}

void ListBox::SetRows(std::vector<std::string> rows)
{
    rows_ = std::move(rows);
    selected_.assign(rows_.size(), false);
    current_ = -1;
    anchor_ = -1;
    Changed(Aspect::Rows);
}

void ListBox::InsertItem(std::string row, int at)
{
    const int target = std::clamp(at, 0, ListCount());
    rows_.insert(rows_.begin() + target, std::move(row));
    selected_.insert(selected_.begin() + target, false);
    if (current_ >= target) {
        ++current_;
    }
    if (anchor_ >= target) {
        ++anchor_;
    }
    Changed(Aspect::Rows);
}

void ListBox::RemoveItem(int at)
{
    if (!IsRowOf(rows_, at)) {
        return;
    }
    rows_.erase(rows_.begin() + at);
    selected_.erase(selected_.begin() + at);
    if (current_ == at) {
        current_ = -1;
    } else if (current_ > at) {
        --current_;
    }
    anchor_ = std::min(anchor_, ListCount() - 1);
    Changed(Aspect::Rows);
}

void ListBox::SetRow(int row, std::string text)
{
    if (IsRowOf(rows_, row) && rows_[static_cast<std::size_t>(row)] != text) {
        rows_[static_cast<std::size_t>(row)] = std::move(text);
        Changed(Aspect::Rows);
    }
}

void ListBox::RewriteRows(std::vector<std::string> rows)
{
    const auto beyond = rows.begin() + static_cast<std::ptrdiff_t>(std::min(rows.size(), rows_.size()));
    std::move(rows.begin(), beyond, rows_.begin());
    std::move(beyond, rows.end(), std::back_inserter(rows_));
    selected_.resize(rows_.size(), false);
    Changed(Aspect::Rows);
}

void ListBox::Clear()
{
    SetRows({});
}

void ListBox::Select(int row, bool selected)
{
    if (IsRowOf(rows_, row) && selected_[static_cast<std::size_t>(row)] != selected) {
        selected_[static_cast<std::size_t>(row)] = selected;
        Changed(Aspect::Selection);
    }
}

void ListBox::ClearSelection()
{
    if (std::ranges::find(selected_, true) != selected_.end()) {
        selected_.assign(rows_.size(), false);
        Changed(Aspect::Selection);
    }
}

void ListBox::SetListIndex(int row)
{
    const int wanted = IsRowOf(rows_, row) ? row : -1;
    if (current_ != wanted) {
        current_ = wanted;
        Changed(Aspect::Current);
    }
}

void Timer::RaiseEvent(Aspect aspect)
{
    if (aspect == Aspect::Enabled && enabled) {
        ++starts_;
    }
}

} // namespace velluto
