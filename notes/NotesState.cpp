#include "notes/Notes.h"
#include "notes/frmAbout.h"
#include "notes/frmBloccoNote.h"
#include "notes/frmGuida.h"

namespace velluto {

NotesState::NotesState(Modulo1 &core) : app(core) {}

NotesState::~NotesState() = default;

} // namespace velluto
