// Qt's keys, modifiers and mouse buttons as the program's handlers compare them.
#pragma once

#include "view/Gestures.h"

#include <QKeyEvent>
#include <QMouseEvent>

namespace velluto {

// The key's code: letters and digits by their capital, function keys from 112, navigation keys as in Key. 0 for the
// keys that no handler can ask about.
[[nodiscard]] int KeyCode(const QKeyEvent &event);
[[nodiscard]] Modifier ToModifier(Qt::KeyboardModifiers modifiers);
// 1 left, 2 right, 4 middle.
[[nodiscard]] int ButtonCode(Qt::MouseButton button);

} // namespace velluto
