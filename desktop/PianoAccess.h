// The piano as a screen reader meets it: a group of buttons, one for each key, named by its note and pressed where it
// sounds.
#pragma once

namespace velluto {

class PianoKeys;

// Makes pianos known to Qt's accessibility; more than once is as good as once.
void InstallPianoAccess();
// The piano is about to go.
void ForgetPianoAccess(PianoKeys &piano);
// A key of the piano (number from 0) has changed, or another one has been led to. Costs nothing where nobody listens.
void TellPianoAccess(PianoKeys &piano, int number);
void TellPianoCursor(PianoKeys &piano);

} // namespace velluto
