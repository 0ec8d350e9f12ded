// The eleven sliders: controllers, pitch bend and the two velocities, as one table and what happens when one moves. The
// split point's readout is here too; nothing shows it.
#pragma once

#include "keyboard/frmTastiera.h"

namespace velluto {

// Titles and marks, as the form is made.
void SetUpSliders(frmTastiera &form);
// What the tips of the titles say, in the language of the run.
void SetSliderTips(frmTastiera &form);
// The values that the KeyboardRecord keeps, each told to the instrument.
void TakeSliders(frmTastiera &form);
// slider 0 to 10, on each change and on each scroll: shows the value, sends, and keeps it in the KeyboardRecord. The
// velocities compose no message of their own and send the program's last one again on purpose.
void VScroll_Change(frmTastiera &form, int slider);
// Back to the value of a first run.
void Label2_DblClick(frmTastiera &form, int slider);
// Text3 from VScroll1: the octave, and behind it the sharp.
void ShowSplitPoint(frmTastiera &form);

} // namespace velluto
