// The settings file "Velluto.ini": 80 records of 500 bytes, read once at the start and written once at the end of a
// run. Used by the entry routine and by the frame's unload.
#pragma once

#include "app/Modulo1.h"

namespace velluto {

// Fills app.settings from the file and sets the language of the run. A missing, foreign or short file begins a first
// run: it is created anew and frmLingua asks for the language; app.StartAborted is set, and the file gone again, where
// nobody chose. A disk that is not ready is tried again for ever; any other failure ends the routine in silence with
// what has been read until then.
void ReadSettings(Modulo1 &app);

// Writes all that is kept between runs, the frame's place and state among it. The first failure is shown under
// app.CurrentOperation and ends the routine; the file stays as far as it was written.
void WriteSettings(Modulo1 &app);

} // namespace velluto
