// Windows and controls by the names that the driver's commands give them: "frmPcgUN(3)", "active", "CommUser(9)".
#pragma once

#include "program/Velluto.h"
#include "view/Form.h"

#include <string_view>

namespace velluto::driver {

inline constexpr std::string_view kActiveWindow = "active";

// An open window: the frame, the active child, or a child by its full name. Throws BadCommand where it is not open.
[[nodiscard]] Form &FindWindow(Velluto &program, std::string_view name);
// A control by its full name. Throws BadCommand where the window has none of that name.
[[nodiscard]] Control &FindControl(const Form &window, std::string_view name);
// A menu entry by its full name. Throws BadCommand where there is none.
[[nodiscard]] MenuEntry &FindEntry(Velluto &program, std::string_view name);
// The control as the kind C that a command needs; kind names what it is not in the error.
template <class C>
[[nodiscard]] C &As(Control &control, std::string_view kind);

[[noreturn]] void RefuseKind(const Control &control, std::string_view kind);

template <class C>
C &As(Control &control, std::string_view kind)
{
    if (auto *found = dynamic_cast<C *>(&control)) {
        return *found;
    }
    RefuseKind(control, kind);
}

} // namespace velluto::driver
