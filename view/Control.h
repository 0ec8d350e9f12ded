// What a window is made of when nobody draws it: buttons, lists, boxes, labels, menu entries, timers. A control holds
// only what can be seen of it. Forms declare their controls as members; faces (desktop, driver) find them by name.
#pragma once

#include "view/Form.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace velluto {

// Keys and mouse buttons as the handlers compare them.
namespace Key {
inline constexpr int Return = 13;
inline constexpr int PageUp = 33;
inline constexpr int PageDown = 34;
inline constexpr int End = 35;
inline constexpr int Home = 36;
inline constexpr int Left = 37;
inline constexpr int Up = 38;
inline constexpr int Right = 39;
inline constexpr int Down = 40;
inline constexpr int Insert = 45;
inline constexpr int Delete = 46;
} // namespace Key
namespace MouseButton {
inline constexpr int Left = 1;
inline constexpr int Right = 2;
} // namespace MouseButton

using Handler = std::function<void()>;
using KeyHandler = std::function<void(int key)>;
using MouseHandler = std::function<void(int button)>;
using PointerHandler = std::function<void(int y)>; // y in twips below the upper edge of the control

class Control : public PropertyOwner {
public:
    static constexpr int kNoIndex = -1;

    Control(Form &form, std::string name, int index);
    virtual ~Control() = default;
    Control(const Control &) = delete;
    Control &operator=(const Control &) = delete;

    [[nodiscard]] Form &form() const { return form_; }
    [[nodiscard]] const std::string &name() const { return name_; }
    [[nodiscard]] int index() const { return index_; } // kNoIndex outside control arrays
    [[nodiscard]] std::string FullName() const;        // "List1" or "CommUser(9)"

    Property<std::string> caption{*this, Aspect::Caption}; // UTF-8, "&" before the access key
    Property<bool> enabled{*this, Aspect::Enabled, true};
    Property<bool> visible{*this, Aspect::Visible, true};
    Property<Place> place{*this, Aspect::Place};
    Property<std::string> toolTip{*this, Aspect::ToolTip};
    std::string accessibleName;   // what a screen reader says where the caption says too little
    Control *container = nullptr; // the control that holds this one and that place is relative to; none: the form
    bool rulesKeys = false;       // what a piano key plays, and its release ends, depends on it

    MouseHandler MouseDown;

    void Changed(Aspect aspect) override;
    // What is typed from now on is for this control.
    void SetFocus() { Changed(Aspect::Focus); }

protected:
    // The control's own event for a change, raised after the observer has been told.
    virtual void RaiseEvent(Aspect /*aspect*/) {}

private:
    Form &form_;
    std::string name_;
    int index_;
};

// The control of that name among those of the form; nullptr where it has none.
[[nodiscard]] Control *ControlNamed(const Form &form, std::string_view name, int index = Control::kNoIndex);

enum class Alignment { Left, Centre, Right };

class Label : public Control {
public:
    Label(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}
    Property<Alignment> alignment{*this, Aspect::Caption};
    bool bold = false;
    int points = 0; // size of its letters; 0: that of the machine's own
    Handler DblClick;
};

// The program's own picture, as large as its place. Faces know how to draw it.
class Emblem : public Control {
public:
    Emblem(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}
};

// A bordered box that only holds other controls, as a status bar does.
class Picture : public Control {
public:
    Picture(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}
};

// A bordered box around other controls that hears the pointer pass over it.
class Frame : public Control {
public:
    Frame(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}
    Handler MouseMove;
};

// What a pictured button shows in place of its caption.
enum class Glyph { None, Previous, Next, Play, Pause, Back, Forward, Stop };

class Button : public Control {
public:
    static constexpr int kPlainColor = 0xF0F0F0; // drawn as the machine draws its buttons

    Button(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}
    bool answersReturn = false; // pressed by that key wherever the focus is in its form
    bool answersEscape = false;
    Property<int> color{*this, Aspect::Color, kPlainColor}; // 0xRRGGBB
    Glyph glyph = Glyph::None;
    bool isToggle = false; // its colour says that it is on
    Handler Click;
};

// A write to value that changes it raises Click, as a hand on the box does.
class CheckBox : public Control {
public:
    CheckBox(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}
    Property<bool> value{*this, Aspect::Checked};
    Handler Click;

protected:
    void RaiseEvent(Aspect aspect) override;
};

// One of a form's group of options; setting one clears the others, and raises the Click of the one set.
class OptionButton : public Control {
public:
    OptionButton(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}
    Property<bool> value{*this, Aspect::Checked};
    Handler Click;

protected:
    void RaiseEvent(Aspect aspect) override;
};

// Rows are kept with all their bytes; what is drawn of a row ends at its first zero byte.
class ListBox : public Control {
public:
    enum class Encoding { Windows1252, Utf8 };
    ListBox(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}

    int columns = 1;           // the list flows in this many snaking columns; 0: in one that scrolls down
    bool multiSelect = true;   // extended selection
    int longestColumn = 0;     // rows that a column has at most, however high the list is; 0: as many as find room
    int rowsPerColumn = 0;     // as a face draws it; 0: the rows spread evenly over the columns
    std::vector<int> headings; // rows that are titles of those below them; a face sets them off
    Encoding encoding = Encoding::Windows1252;
    Font font;

    [[nodiscard]] const std::vector<std::string> &Rows() const { return rows_; }
    [[nodiscard]] int ListCount() const { return static_cast<int>(rows_.size()); }
    [[nodiscard]] const std::string &Row(int row) const;     // row 0-based; empty outside the list
    [[nodiscard]] bool Selected(int row) const;              // false outside the list
    [[nodiscard]] int ListIndex() const { return current_; } // 0-based current row, -1 for none
    void SetRows(std::vector<std::string> rows);             // clears the selection
    void AddItem(std::string row) { InsertItem(std::move(row), ListCount()); }
    void InsertItem(std::string row, int at);
    void RemoveItem(int at);
    void SetRow(int row, std::string text);
    // Writes the rows from the first on and appends what is beyond the last one. Selection and current row stay by number.
    void RewriteRows(std::vector<std::string> rows);
    void Clear();
    void Select(int row, bool selected); // raises nothing
    void ClearSelection();
    void SetListIndex(int row); // makes the row current, without an event

    Handler Click;
    Handler DblClick;
    KeyHandler KeyDown;

private:
    friend class ListGesture;
    std::vector<std::string> rows_;
    std::vector<bool> selected_;
    int current_ = -1;
    int anchor_ = -1;
};

// A pure drop-down list. A change of the chosen row raises Click.
class ComboBox : public Control {
public:
    ComboBox(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}
    std::vector<std::string> rows; // filled once, before the form is shown
    Property<int> ListIndex{*this, Aspect::Current, -1};
    Handler Click;

protected:
    void RaiseEvent(Aspect aspect) override;
};

// A slider. min is the value at its top or left end, max the one at the other end; either may be the larger number. A
// write to value raises Change, or Scroll while a hand holds the slider; letting it go raises Change.
class ScrollBar : public Control {
public:
    ScrollBar(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}
    bool vertical = false;
    int smallChange = 1;
    int largeChange = 10;
    Property<int> min{*this, Aspect::Range};
    Property<int> max{*this, Aspect::Range};
    Property<int> value{*this, Aspect::Value};
    Handler Change;
    Handler Scroll;

protected:
    void RaiseEvent(Aspect aspect) override;

private:
    friend class ScrollGesture;
    bool held_ = false; // a hand has moved it and not let go yet
};

// One key of a piano. The faces draw the keys of a form as one keyboard.
class PianoKey : public Control {
public:
    PianoKey(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}
    bool black = false;
    Property<int> color{*this, Aspect::Color}; // 0xRRGGBB
    Property<bool> dot{*this, Aspect::Checked};
    MouseHandler MouseUp;
    PointerHandler MouseMove;
};

class TextBox : public Control {
public:
    TextBox(Form &form, std::string name, int index = kNoIndex) : Control(form, std::move(name), index) {}
    bool multiLine = false;
    bool readOnly = false;
    bool takesTabs = false; // the Tab key writes a tab in place of going to the next control
    // More than 0: the text is a part of a file's name that has room for so many bytes. A face takes no letter that the system's
    // file names cannot have.
    int bytesInFileName = 0;
    Font font;
    Property<std::string> text{*this, Aspect::Text}; // UTF-8, lines end in CR LF
    Property<int> caret{*this, Aspect::Caret};       // characters before the caret
    // Asks for the line with that many characters before it at the top of the view, or as near to it as the end of the
    // text allows.
    void ShowAtTop(int characters);
    [[nodiscard]] int AskedAtTop() const { return askedAtTop_; }
    Handler Change;
    Handler DblClick;
    KeyHandler KeyDown;

protected:
    void RaiseEvent(Aspect aspect) override;

private:
    int askedAtTop_ = 0;
};

// Fires while the form is open and enabled is true. The face owns the clock that drives it.
class Timer : public Control {
public:
    Timer(Form &form, std::string name, int intervalMs, int index = kNoIndex) : Control(form, std::move(name), index), interval(intervalMs)
    {
    }
    int interval; // milliseconds
    Handler Tick;
    [[nodiscard]] unsigned Starts() const { return starts_; } // how often it was switched on; each begins an interval

protected:
    void RaiseEvent(Aspect aspect) override;

private:
    unsigned starts_ = 0;
};

} // namespace velluto
