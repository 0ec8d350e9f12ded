// The monitor window: a text box that shows the latest message or group of messages sent.
#pragma once

#include "app/ChildForm.h"
#include "midi/MIDI.h"

namespace velluto {

class frmMsgEx : public ChildForm {
public:
    explicit frmMsgEx(MidiState &midi);

    TextBox Text1{*this, "Text1"};

private:
    bool LoadWindow() override;
    void UnloadWindow() override;
    void Resized() override;
    void LayOut();

    MidiState &midi_;
    WindowPlacement &entry_;
};

void mnuMsgEx_Click(MidiState &midi);

} // namespace velluto
