// The load of the frame, step by step: captions in the language of the run, states from the settings, the device
// lists, the factory tables, the place on the screen. Run by the frame's Form_Load.
#pragma once

#include "program/Velluto.h"

namespace velluto {

void frmMain_Load(Velluto &program);

} // namespace velluto
