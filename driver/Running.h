// What the groups of commands share about a running program: its end, its frame, and the words for the buttons of its
// boxes.
#pragma once

#include "driver/Json.h"
#include "driver/Session.h"

#include <string_view>

namespace velluto::driver {

// The user closes the frame. Answers "running".
[[nodiscard]] Json ExitProgram(Session &session);
// "yes", "no", "cancel", "ok" as the buttons of view/Face.h; 0 for any other word.
[[nodiscard]] int ButtonOf(std::string_view word);
[[nodiscard]] std::string_view WordOfButton(int button);

// The frame goes by other ways than its children: it is never brought to the front, and its end is the program's.
[[nodiscard]] bool IsFrame(const Session &session, const Form &window);

} // namespace velluto::driver
