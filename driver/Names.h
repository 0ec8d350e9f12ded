// Windows, controls and buttons by the names that the driver's commands give them: "frmPcgUN(3)", "active", "CommUser(9)", "yes".
#pragma once

#include "program/Velluto.h"
#include "view/Form.h"

#include <string_view>

namespace velluto::driver {

inline constexpr std::string_view kActiveWindow = "active";

// An open window: the frame, the active child, or a child by its full name. Throws BadCommand where it is not open.
[[nodiscard]] Form &FindWindow(Velluto &program, std::string_view name);
// The frame goes by other ways than its children: it is never brought to the front, and its end is the program's.
[[nodiscard]] inline bool IsFrame(const Velluto &program, const Form &window)
{
    return &window == &program.app.frame;
}
// A control by its full name. Throws BadCommand where the window has none of that name.
[[nodiscard]] Control &FindControl(const Form &window, std::string_view name);
// A menu entry by its full name. Throws BadCommand where there is none.
[[nodiscard]] MenuEntry &FindEntry(Velluto &program, std::string_view name);

[[noreturn]] void RefuseKind(const Control &control, std::string_view kind);
// The control as the kind C that a command needs; kind names what it is not in the error.
template <class C>
[[nodiscard]] C &As(Control &control, std::string_view kind)
{
    if (auto *found = dynamic_cast<C *>(&control)) {
        return *found;
    }
    RefuseKind(control, kind);
}

// "yes", "no", "cancel", "ok" as the buttons of view/Face.h; 0 for any other word.
[[nodiscard]] int ButtonOf(std::string_view word);
[[nodiscard]] std::string_view WordOfButton(int button);

} // namespace velluto::driver
