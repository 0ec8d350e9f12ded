#include "view/Form.h"

namespace velluto {

std::string Form::FullName() const
{
    return number_ == kNoNumber ? name_ : name_ + "(" + std::to_string(number_) + ")";
}

void Form::Changed(Aspect aspect)
{
    Raise(observer, aspect);
    const Size size{Width(), Height()};
    const bool resized = (aspect == Aspect::Place && size != knownSize_) || aspect == Aspect::State;
    knownSize_ = size;
    if (resized && loaded_) {
        Form_Resize();
    }
}

void Form::Load()
{
    if (!loaded_) {
        Form_Load();
        loaded_ = true;
    }
}

void Form::Unload()
{
    if (loaded_) {
        loaded_ = false;
        Form_Unload();
    }
}

} // namespace velluto
