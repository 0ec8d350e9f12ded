// The monitor's last bytes in words, in the strip that its text leaves free. Used by the surface of a form.
#pragma once

#include "view/Form.h"

#include <QWidget>

namespace velluto {

// Does nothing for other windows than the monitor. The words are the surface's.
void AddMonitorWords(const Form &form, QWidget &surface);

} // namespace velluto
