// The channel setup window: which part of the instrument each of the sixteen MIDI channels serves.
#pragma once

#include "app/ChildForm.h"
#include "midi/MIDI.h"
#include "view/ControlArray.h"

namespace velluto {

class frmMIDISetup : public ChildForm {
public:
    explicit frmMIDISetup(MidiState &midi);
    void Form_Deactivate() override;
    void Form_LostFocus() override;

    ControlArray<Label, 1, 16> Label1Ch{*this, "Label1Ch"};
    ControlArray<ComboBox, 1, 16> Combo1{*this, "Combo1"};

private:
    bool LoadWindow() override;
    void UnloadWindow() override;
    void LayOut();
    void TakeOverRoles();

    WindowPlacement &entry_;
};

void mnuMIDISetup_Click(MidiState &midi);

} // namespace velluto
