// The language question of the first run: a modal box with two options and one button.
#pragma once

#include "app/Modulo1.h"
#include "view/ControlArray.h"

namespace velluto {

class frmLingua : public Form {
public:
    explicit frmLingua(Modulo1 &app);
    void Form_Load() override;
    void Form_Unload() override;

    Label Label1{*this, "Label1"};
    ControlArray<OptionButton, 0, 2> Option1{*this, "Option1"};
    Button CommOK{*this, "CommOK"};

private:
    void Option1_Click(int index);
    void CommOK_Click();

    Modulo1 &app_;
    bool confirmed_ = false;
};

} // namespace velluto
