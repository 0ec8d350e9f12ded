// What can be seen of windows, controls and menus, as JSON. Used by the looking commands.
#pragma once

#include "driver/Json.h"
#include "program/Velluto.h"

namespace velluto::driver {

// The attributes that a control of its kind has.
[[nodiscard]] Json DescribeControl(const Control &control);
// All controls of a window by their full names.
[[nodiscard]] Json DescribeControls(const Form &window);
[[nodiscard]] Json DescribeMenus(const frmMain &frame);
// The children in the order of their opening.
[[nodiscard]] Json DescribeWindows(const ChildWindows &children);

} // namespace velluto::driver
