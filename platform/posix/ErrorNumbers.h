// From the system's error codes to the run-time error numbers of the program's ports. Used by both POSIX adapters.
#pragma once

#include "platform/FileStore.h"

namespace velluto {

// code is an errno; one without a meaning of its own is kOther.
[[nodiscard]] RuntimeError FromErrno(int code);

} // namespace velluto
