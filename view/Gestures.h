// What a person does to a control, told once for every face: a click on a list row with its modifiers, a slider
// moved, a key, a press.
#pragma once

#include "view/Control.h"

namespace velluto {

enum class Modifier { None, Ctrl, Shift, CtrlShift };

class ListGesture {
public:
    // Mouse on a row (0-based, in the list). Changes the selection as an extended-selection list does, makes the row
    // current, then raises Click once. Shift without Ctrl replaces the selection by the range from the anchor.
    static void ClickRow(ListBox &list, int row, Modifier modifier);
    // The second press of a double click: Click first, then DblClick.
    static void DoubleClickRow(ListBox &list, int row);
    // The mouse drawn over the rows with the button held: the range from the anchor, no event.
    static void DragTo(ListBox &list, int row);
};

class ScrollGesture {
public:
    // Steps, or moves the slider and lets it go: Change, where the value differs or a hand held the slider.
    static void MoveTo(ScrollBar &bar, int value);
    // The slider drawn along and still held: Scroll, where the value differs.
    static void DragTo(ScrollBar &bar, int value);
    // The hand leaves a slider that it has moved: Change.
    static void LetGo(ScrollBar &bar);
};

// Raises KeyDown of a list or a text box, then moves through the list where the key does: a plain key clicks the row it
// leads to, with Shift it draws the range, with Ctrl it only moves; Return double-clicks the current row of a list that
// listens to that. False where the control takes no keys.
bool PressKey(Control &control, int key, Modifier modifier = Modifier::None);
// Presses a button, flips a check box, sets an option. False where the control cannot be pressed, is hidden or disabled.
bool Press(Control &control);

} // namespace velluto
