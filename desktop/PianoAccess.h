// The piano as a screen reader meets it: a group of buttons, one for each key, named by its note and pressed where it
// sounds.
#pragma once

namespace velluto {

class Piano;

// Makes pianos known to Qt's accessibility; more than once is as good as once.
void InstallPianoAccess();
// The piano is about to go.
void ForgetPianoAccess(Piano &piano);
// A key of the piano (number from 0) has changed, or another one has been led to. Costs nothing where nobody listens.
void TellPianoAccess(Piano &piano, int number);
void TellPianoCursor(Piano &piano);

} // namespace velluto
