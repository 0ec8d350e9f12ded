// The monitor window: a text box that shows the latest message or group of messages sent.
#pragma once

#include "midi/MIDI.h"

namespace velluto {

class frmMsgEx : public Form {
public:
    explicit frmMsgEx(MidiState &midi);
    void Form_Load() override;
    void Form_Unload() override;
    void Form_Activate() override;
    void Form_Resize() override;
    void Form_MouseDown(int button) override;

    TextBox Text1{*this, "Text1"};

private:
    [[nodiscard]] Size NaturalTextSize() const;
    void LayOut();

    MidiState &midi_;
    Modulo1 &app_;
};

void mnuMsgEx_Click(MidiState &midi);

} // namespace velluto
