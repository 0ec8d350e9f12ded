#include "player/MMControl.h"

namespace velluto {

void MMControl::Command(std::string_view word)
{
    command_ = word;
    if (word == "open") {
        device_.SetFileName(FileName);
    }
    device_.SetCommand(word);
}

void MMControl::Take()
{
    if (device_.Mode() != SequencerMode::kNotReady) {
        device_.SetCommand("close");
    }
    device_.Done = [this](int code) { Raise(Done, code); };
}

void MMControl::LetGo()
{
    device_.Done = nullptr;
    if (InPlay()) {
        device_.SetCommand("stop");
    }
}

} // namespace velluto
