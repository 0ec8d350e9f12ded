// The files and the menu over the MIDI link, without a whole program: what the tests of the Edit menu and of the roles
// stand on.
#pragma once

#include "edit/EditMenu.h"
#include "unit/support/MidiLink.h"

#include <vector>

namespace velluto::test {

using Numbers = std::vector<int>;

struct EditLink : MidiLink {
    FilesState files{app};
    Settings &settings = app.settings;
    frmMain &frame = app.frame;

    EditLink() { settings.ChannelRole = {2, 14, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}; }
    // Makes the window the active child and drops the menu.
    void Drop(Form &window)
    {
        if (!app.children.IsOpen(window)) {
            app.children.Show(window);
        }
        mnuModifica_Click(files);
    }
    Numbers Enabled()
    {
        Numbers roles;
        for (MenuEntry &entry : frame.mnuMIDIStp) {
            if (entry.enabled) {
                roles.push_back(entry.index());
            }
        }
        return roles;
    }
    Numbers Checked()
    {
        Numbers roles;
        for (MenuEntry &entry : frame.mnuMIDIStp) {
            if (entry.checked) {
                roles.push_back(entry.index());
            }
        }
        return roles;
    }
};

} // namespace velluto::test
