// Compilations: the list of them, the files of the one that is shown, and what may be done to both.
#pragma once

#include "player/frmMIDIPlayer.h"

namespace velluto {

// ListComp from the files beside the program, and the compilation of the last run opened where there is one.
void FillCompilations(frmMIDIPlayer &form);
// False where it failed; HandlePlayerError has heard of it then.
bool LoadCompilation(frmMIDIPlayer &form, std::string_view name);
// Saves under the name in Text2, without one nothing. What could not be saved stays dirty.
RuntimeError SaveCompilation(frmMIDIPlayer &form);

void UpdateRemoveButtons(frmMIDIPlayer &form);
void UpdateAddButtons(frmMIDIPlayer &form);
[[nodiscard]] bool CompilationFileInPlay(const frmMIDIPlayer &form);

void ListComp_Click(frmMIDIPlayer &form);
void Text2_Change(frmMIDIPlayer &form);
void CommNuovo_Click(frmMIDIPlayer &form);
void CommCanc_Click(frmMIDIPlayer &form);
void CommAdd_Click(frmMIDIPlayer &form);
void CommAddAll_Click(frmMIDIPlayer &form);
void CommRim_Click(frmMIDIPlayer &form);
void CommRimAll_Click(frmMIDIPlayer &form);

} // namespace velluto
