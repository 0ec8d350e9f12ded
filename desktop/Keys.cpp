#include "desktop/Keys.h"

namespace velluto {

namespace {

constexpr int kBackspace = 8;
constexpr int kTab = 9;
constexpr int kReturn = 13;
constexpr int kEscape = 27;
constexpr int kSpace = 32;
constexpr int kF1 = 112;
constexpr int kMiddleButton = 4;

int NavigationCode(int key)
{
    switch (key) {
    case Qt::Key_PageUp:
        return Key::PageUp;
    case Qt::Key_PageDown:
        return Key::PageDown;
    case Qt::Key_End:
        return Key::End;
    case Qt::Key_Home:
        return Key::Home;
    case Qt::Key_Left:
        return Key::Left;
    case Qt::Key_Up:
        return Key::Up;
    case Qt::Key_Right:
        return Key::Right;
    case Qt::Key_Down:
        return Key::Down;
    case Qt::Key_Insert:
        return Key::Insert;
    case Qt::Key_Delete:
        return Key::Delete;
    default:
        return 0;
    }
}

} // namespace

int KeyCode(const QKeyEvent &event)
{
    const int key = event.key();
    if ((key >= Qt::Key_A && key <= Qt::Key_Z) || (key >= Qt::Key_0 && key <= Qt::Key_9)) {
        return key;
    }
    if (key >= Qt::Key_F1 && key <= Qt::Key_F16) {
        return kF1 + key - Qt::Key_F1;
    }
    switch (key) {
    case Qt::Key_Backspace:
        return kBackspace;
    case Qt::Key_Tab:
        return kTab;
    case Qt::Key_Return:
    case Qt::Key_Enter:
        return kReturn;
    case Qt::Key_Escape:
        return kEscape;
    case Qt::Key_Space:
        return kSpace;
    default:
        return NavigationCode(key);
    }
}

Modifier ToModifier(Qt::KeyboardModifiers modifiers)
{
    const bool ctrl = modifiers.testFlag(Qt::ControlModifier);
    const bool shift = modifiers.testFlag(Qt::ShiftModifier);
    if (ctrl) {
        return shift ? Modifier::CtrlShift : Modifier::Ctrl;
    }
    return shift ? Modifier::Shift : Modifier::None;
}

int ButtonCode(Qt::MouseButton button)
{
    switch (button) {
    case Qt::LeftButton:
        return MouseButton::Left;
    case Qt::RightButton:
        return MouseButton::Right;
    case Qt::MiddleButton:
        return kMiddleButton;
    default:
        return 0;
    }
}

} // namespace velluto
