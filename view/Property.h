// One visible attribute of a control or a form. Used by every logical window; a write that changes the value is
// told to the owner at once, inside the write, and a write of the same value tells nobody.
#pragma once

#include <functional>
#include <utility>

namespace velluto {

// What of a control or a form has changed. A face repaints by aspect.
enum class Aspect {
    Caption,
    Text,
    Caret,
    Top,
    Rows,
    Selection, // of a list, and its current row
    Current,
    Value,
    Range,
    Enabled,
    Visible,
    Checked,
    Color,
    Place,
    State,
    ToolTip,
    Focus
};

// Calls a handler where there is one.
template <class F, class... Args>
void Raise(const F &handler, Args... args)
{
    if (handler) {
        handler(args...);
    }
}

class PropertyOwner {
public:
    std::function<void(Aspect)> observer; // the face that draws it; at most one
    virtual void Changed(Aspect aspect) = 0;

protected:
    ~PropertyOwner() = default;
};

template <class T>
class Property {
public:
    Property(PropertyOwner &owner, Aspect aspect, T initial = {}) : owner_(owner), aspect_(aspect), value_(std::move(initial)) {}
    Property(const Property &) = delete;

    Property &operator=(const Property &other) { return *this = other.value_; }
    Property &operator=(T value)
    {
        if (!(value == value_)) {
            value_ = std::move(value);
            owner_.Changed(aspect_);
        }
        return *this;
    }
    // The same from a view of a value, which is copied into the room that this one has.
    template <class View>
    void Copy(const View &value)
    {
        if (!(value_ == value)) {
            value_ = value;
            owner_.Changed(aspect_);
        }
    }

    [[nodiscard]] const T &Get() const { return value_; }
    // NOLINTNEXTLINE(google-explicit-constructor): a property reads like the plain field that it stands for.
    operator const T &() const { return value_; }

private:
    PropertyOwner &owner_;
    Aspect aspect_;
    T value_;
};

} // namespace velluto
