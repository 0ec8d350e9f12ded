#include "player/PlayerDisplay.h"

#include "app/Catalogue.h"
#include "player/PlayerLayout.h"
#include "player/SequencerTexts.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr std::string_view kPlainCaption = "MIDI PLAYER";

struct ButtonStates {
    std::string_view command;
    std::array<bool, kTransportButtons> enabled; // previous, next, play, pause, back, forward, stop
};
constexpr std::array kButtonStates = {
    ButtonStates{"open", {true, true, true, false, false, false, false}},
    ButtonStates{"stop", {true, true, true, false, false, false, false}},
    ButtonStates{"play", {true, true, false, true, true, true, true}},
    ButtonStates{"pause", {true, true, true, true, true, true, true}},
    ButtonStates{"close", {false, false, false, false, false, false, false}},
};

} // namespace

void ShowPlayerCaption(frmMIDIPlayer &form, std::string_view path)
{
    form.caption = std::string(kPlainCaption) + " - " + FileNameOf(path);
}

void ResetPlayerCaption(frmMIDIPlayer &form)
{
    form.caption = std::string(kPlainCaption);
}

void ResetPositionLine(frmMIDIPlayer &form)
{
    form.Line1.SetX(kLineAtStart);
}

void ResetTimeDisplay(frmMIDIPlayer &form)
{
    ResetPositionLine(form);
    form.state.TickCount = 0;
    form.Label1.caption = "0:00";
    form.LabTrackPosition.caption = "0";
}

void UpdateTransportButtons(frmMIDIPlayer &form)
{
    const auto *const found = std::ranges::find(kButtonStates, form.MMControl1.Command(), &ButtonStates::command);
    if (found == kButtonStates.end()) {
        return;
    }
    for (int i = 0; i < kTransportButtons; ++i) {
        form.MCIPuls[i].enabled = found->enabled.at(static_cast<std::size_t>(i));
    }
}

int CheckDeviceError(frmMIDIPlayer &form)
{
    const int error = form.MMControl1.Error();
    if (error != 0) {
        form.app.messages.ShowMessage(MessageNo::InsertOnly, kProgramTitle,
                                      Sentence(form.MMControl1.Reason(), form.app.messages.LinguaBase));
    }
    return error;
}

void ShowTrack(frmMIDIPlayer &form)
{
    form.state.TrackLength = form.MMControl1.Length();
    form.LabTrackLenght.caption = std::to_string(form.state.TrackLength);
    form.LabTrackPosition.caption = std::to_string(form.MMControl1.Position());
}

} // namespace velluto
