#include "keyboard/Controllers.h"

#include "midi/MidiOut.h"
#include "midi/Monitor.h"

#include <algorithm>
#include <array>
#include <string>
#include <string_view>

namespace velluto {

namespace {

using MidiStatus::kControlChange;

constexpr int kBendFineByte = 127; // fixed: the middle, 64, lies just above the centre on purpose
constexpr std::uint8_t kNoMessage = 0;
constexpr int kHighest = 127;
constexpr int kMiddle = 64;

struct Slider {
    const char *title;
    int shownLess;       // what the readout and the marks show is the value less this
    std::uint8_t status; // kNoMessage: the slider composes none
    int firstData;       // controller, or the bend's low byte
};

constexpr std::array<Slider, kSliderCount> kSliders{{{"Volume", 0, kControlChange, MidiController::kVolume},
                                                     {"Pan", kMiddle, kControlChange, MidiController::kPan},
                                                     {"Vel On", 0, kNoMessage, 0},
                                                     {"Vel Off", 0, kNoMessage, 0},
                                                     {"Att Time", 0, kControlChange, MidiController::kAttackTime},
                                                     {"Rel Time", 0, kControlChange, MidiController::kReleaseTime},
                                                     {"Bend", kMiddle, MidiStatus::kPitchBend, kBendFineByte},
                                                     {"PMod", 0, kControlChange, MidiController::kModulation},
                                                     {"COMod", 0, kControlChange, MidiController::kBreath},
                                                     {"Reverb", 0, kControlChange, MidiController::kReverb},
                                                     {"Chorus", 0, kControlChange, MidiController::kChorus}}};

// Of a first run.
int FirstRun(int slider)
{
    return kKeyboardDefaults.at(static_cast<std::size_t>(slider) + KeyboardByte::FirstSlider);
}

// In the KeyboardRecord.
std::uint8_t &KeptValue(frmTastiera &form, int slider)
{
    return form.app.settings.KeyboardRecord.at(static_cast<std::size_t>(slider) + KeyboardByte::FirstSlider);
}

const Slider &RowOf(int slider)
{
    return kSliders.at(static_cast<std::size_t>(slider));
}

} // namespace

void SetUpSliders(frmTastiera &form)
{
    for (ScrollBar &bar : form.VScroll) {
        const int i = bar.index();
        bar.vertical = true;
        bar.min = kHighest;
        bar.max = 0;
        bar.accessibleName = RowOf(i).title;
        form.Label2[i].caption = std::string(RowOf(i).title);
        form.Label3[i].caption = std::to_string(bar.value - RowOf(i).shownLess);
        form.Label4[i].caption = std::to_string(kHighest - RowOf(i).shownLess);
        form.Label5[i].caption = std::to_string(-RowOf(i).shownLess);
        for (Label *label : {&form.Label2[i], &form.Label3[i]}) {
            label->alignment = Alignment::Centre;
        }
        for (Label *mark : {&form.Label4[i], &form.Label5[i]}) { // they end beside the slider
            mark->alignment = Alignment::Right;
        }
        form.Label3[i].bold = true;
    }
    form.Label2[kPanRight].caption = "R";
    form.Label2[kPanLeft].caption = "L";
    form.Label2[kPanCentre].caption = "C";
}

void SetSliderTips(frmTastiera &form)
{
    const std::string hint = form.app.messages.Text(TwoTexts{"Doppio clic: ", "Double-click: "});
    for (int i = 0; i < kSliderCount; ++i) {
        form.Label2[i].toolTip = hint + std::to_string(FirstRun(i) - RowOf(i).shownLess);
    }
}

void TakeSliders(frmTastiera &form)
{
    for (ScrollBar &bar : form.VScroll) {
        // A value other than the form's own 0 is thus told twice.
        bar.value = std::min<int>(KeptValue(form, bar.index()), kHighest);
        VScroll_Change(form, bar.index());
    }
}

void VScroll_Change(frmTastiera &form, int slider)
{
    const Slider &row = RowOf(slider);
    MidiState &midi = form.midi;
    const int value = form.VScroll[slider].value;
    form.Label3[slider].caption = std::to_string(value - row.shownLess);
    if (row.status != kNoMessage) {
        midi.ShortMsg = {row.status, 0, row.firstData, value};
    }
    midi.ShortMsg.bytes[0] |= static_cast<std::uint8_t>(form.Combo1.ListIndex); // over the channel of what is sent again
    SendShortMsg(midi);
    KeptValue(form, slider) = static_cast<std::uint8_t>(value);
    midi.MonitorEnabled = true;
    MonitorShow(midi, midi.ShortMsg.bytes);
}

void Label2_DblClick(frmTastiera &form, int slider)
{
    form.VScroll[slider].value = FirstRun(slider);
}

void ShowSplitPoint(frmTastiera &form)
{
    constexpr std::array<std::string_view, kNotesPerOctave> kNames{" C", " C", " D", " D", " E", " F", " F", " G", " G", " A", " A", " B"};
    constexpr int kLowest = 36;
    constexpr int kLowestOctave = 2;
    const int note = form.VScroll1.value;
    int octave = (note - kLowest) / kNotesPerOctave;
    if (octave % kNotesPerOctave == 0 && octave > 0) {
        --octave;
    }
    std::string text(kNames.at(static_cast<std::size_t>(note % kNotesPerOctave)));
    text += std::to_string(octave + kLowestOctave);
    if (IsBlackKey(note)) {
        text += '#';
    }
    form.Text3.text = std::move(text);
}

} // namespace velluto
