// Windows whose image is another than the file's, as edits leave them. Used by the tests of Save and of Save As.
#pragma once

#include "unit/files/InstrumentFiles.h"

namespace velluto::test {

class EditedWindowsTest : public FilesTest {
protected:
    // Opens a file and puts another image into its window, as an edit does.
    frmPcgUN &OpenEdited(const std::string &name, const Bytes &edited)
    {
        Open(Put(name, FileOfLength(200)));
        Form *active = app.children.Active();
        active->Tag.image = ImageOf(edited);
        MarkModified(*active);
        return Window(active->number());
    }
    void NewEdited(const Bytes &edited)
    {
        run.Choose(app.frame.mnuPcgNuovo64);
        Window(11).Tag.image = ImageOf(edited);
        MarkModified(Window(11));
    }
};

} // namespace velluto::test
