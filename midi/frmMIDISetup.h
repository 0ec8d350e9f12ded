// The channel setup window: which part of the instrument each of the sixteen MIDI channels serves.
#pragma once

#include "midi/MIDI.h"
#include "view/ControlArray.h"

namespace velluto {

class frmMIDISetup : public Form {
public:
    explicit frmMIDISetup(MidiState &midi);
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Activate() override;
    void Form_Deactivate() override;
    void Form_LostFocus() override;
    void Form_MouseDown(int button) override;

    ControlArray<Label, 1, 16> Label1Ch{*this, "Label1Ch"};
    ControlArray<ComboBox, 1, 16> Combo1{*this, "Combo1"};

private:
    void LayOut();
    void TakeOverRoles();

    MidiState &midi_;
    Modulo1 &app_;
};

void mnuMIDISetup_Click(MidiState &midi);

} // namespace velluto
