// The record of notes and help: the texts of the guide and the notebook on their way between file and window, and the
// three windows. Used by the windows of this room; the frame opens them.
#pragma once

#include "app/Modulo1.h"

#include <cstdint>
#include <memory>
#include <string>

namespace velluto {

class frmAbout;
class frmBloccoNote;
class frmGuida;

struct NotesState {
    explicit NotesState(Modulo1 &core);
    ~NotesState();
    NotesState(const NotesState &) = delete;
    NotesState &operator=(const NotesState &) = delete;

    Modulo1 &app;
    std::string GuideText;        // the guide's bytes from the reading of the file until its window has them
    std::int32_t GuideLength = 0; // of the guide's file, bytes
    std::string NotebookText;     // while the notebook is open: its 32000 bytes, blank-padded
    bool NotebookHasRest = false; // its file, a foreign one, holds more

    std::unique_ptr<frmGuida> guide;
    std::unique_ptr<frmBloccoNote> notebook;
    std::unique_ptr<frmAbout> about;
};

} // namespace velluto
