#include "keyboard/KeyboardLayout.h"

#include <array>

namespace velluto {

namespace {

// Twips. The heights of the keys are in KeyModel.
constexpr int kMargin = 120;
constexpr int kWhiteWidth = 240;
constexpr int kBlackWidth = 150;
constexpr int kWhiteKeys = 36;
constexpr int kWhitesPerOctave = 7;
constexpr int kFrameRim = 75;
constexpr int kFrameWidth = kWhiteKeys * kWhiteWidth + 2 * kFrameRim;
constexpr int kFrameHeight = kWhiteKeyHeight + 2 * kFrameRim;

constexpr int kFirstRow = 300;
constexpr int kSecondRow = 1050;
constexpr int kRowHeight = 375;
constexpr int kCaptionHeight = 255;
constexpr int kInnerHeight = 4350;
constexpr int kFrameTop = kInnerHeight - kMargin - kFrameHeight;
constexpr int kCaptionsTop = kFrameTop - kCaptionHeight - 15;

constexpr int kWideButton = 1500;
constexpr int kColumn2 = 2700;
constexpr int kColumn3 = 4200;
constexpr int kColumn4 = kMargin + kFrameWidth - 2 * kWideButton - kMargin;
constexpr int kColumn5 = kMargin + kFrameWidth - kWideButton;

// The sliders stand in two rows, so that the window finds room on a screen of 1024 pixels.
constexpr int kSlidersLeft = kMargin + kFrameWidth + 180;
constexpr int kSlidersInRow = 6;
constexpr int kSliderPitch = 930;
constexpr int kSliderWidth = 360;
constexpr int kSliderText = 240; // height of a title, a mark or a readout
constexpr int kSliderRowGap = 150;
constexpr int kSliderRowHeight = (kInnerHeight - 2 * kMargin - kSliderRowGap) / 2;
constexpr int kMarkWidth = 390; // the longest reads -64
constexpr int kInnerWidth = kSlidersLeft + kSlidersInRow * kSliderPitch + kMargin / 2;

constexpr int kPanSlider = 1;
constexpr int kPanLetter = 150;

// White keys to the left of the key's left edge or of its middle, within an octave.
constexpr std::array<int, kNotesPerOctave> kWhitesBefore{0, 1, 1, 2, 2, 3, 4, 4, 5, 5, 6, 6};

int KeyLeft(int key)
{
    const int whites = key / kNotesPerOctave * kWhitesPerOctave + kWhitesBefore.at(static_cast<std::size_t>(key % kNotesPerOctave));
    const int left = kMargin + kFrameRim + whites * kWhiteWidth;
    return IsBlackKey(key) ? left - kBlackWidth / 2 : left;
}

void LayOutKeys(frmTastiera &form)
{
    form.Frame1.place = Place{kMargin, kFrameTop, kFrameWidth, kFrameHeight};
    for (PianoKey &key : form.Key) {
        const bool black = IsBlackKey(key.index());
        key.place = Place{KeyLeft(key.index()), kFrameTop + kFrameRim, black ? kBlackWidth : kWhiteWidth,
                          black ? kBlackKeyHeight : kWhiteKeyHeight};
    }
    constexpr int kOctaveLabels = 6;
    for (int octave = 0; octave < kOctaveLabels; ++octave) {
        form.Label1[octave].place = Place{KeyLeft(octave * kNotesPerOctave), kCaptionsTop, 2 * kWhiteWidth, kCaptionHeight};
    }
}

void LayOutRows(frmTastiera &form)
{
    constexpr int kComboLeft = 1500;
    constexpr int kComboWidth = 900;
    constexpr int kReadoutWidth = 2400; // the longest reads G#/Sol# (104)
    form.Label1[6].place = Place{kMargin, kFirstRow, kComboLeft - kMargin, kRowHeight};
    form.Combo1.place = Place{kComboLeft, kFirstRow, kComboWidth, kRowHeight};
    form.CheckClickKey.place = Place{kColumn2, kFirstRow, kColumn3 - kColumn2, kRowHeight};
    form.CheckHoldNote.place = Place{kColumn3, kFirstRow, kColumn4 - kColumn3, kRowHeight};
    form.CommHoldChord.place = Place{kColumn4, kFirstRow, kWideButton, kRowHeight};
    form.CommAllNoteOff.place = Place{kColumn5, kFirstRow, kWideButton, kRowHeight};
    form.LabelOctave.place = Place{kMargin, kSecondRow, kComboLeft - kMargin, kRowHeight};
    form.HScroll1.place = Place{kComboLeft, kSecondRow, kComboWidth, kRowHeight};
    form.Label1[7].place = Place{kColumn2, kSecondRow, kColumn3 - kColumn2, kRowHeight};
    form.Text1.place = Place{kColumn3, kSecondRow, kReadoutWidth, kRowHeight};
    form.CommClose.place = Place{kColumn5, kSecondRow, kWideButton, kRowHeight};
}

// Title and value stand above a slider, the marks of its ends to its left, and the letters of the pan to its right.
void LayOutSliders(frmTastiera &form)
{
    constexpr int kBarOffset = 2 * kSliderText + 30; // below the top of a row
    constexpr int kBarHeight = kSliderRowHeight - kBarOffset;
    constexpr int kBarGap = 15; // on either side
    const auto beside = [&form](int i, int down) {
        const Place bar = form.VScroll[i].place;
        return Place{bar.left - kBarGap - kMarkWidth, bar.top + down, kMarkWidth, kSliderText};
    };
    for (int i = 0; i < kSliderCount; ++i) {
        const int left = kSlidersLeft + i % kSlidersInRow * kSliderPitch;
        const int top = kMargin + i / kSlidersInRow * (kSliderRowHeight + kSliderRowGap);
        form.Label2[i].place = Place{left, top, kSliderPitch, kSliderText};
        form.Label3[i].place = Place{left, top + kSliderText, kSliderPitch, kSliderText};
        form.VScroll[i].place = Place{left + (kSliderPitch - kSliderWidth) / 2, top + kBarOffset, kSliderWidth, kBarHeight};
        form.Label4[i].place = beside(i, 0);
        form.Label5[i].place = beside(i, kBarHeight - kSliderText);
    }
    const Place pan = form.VScroll[kPanSlider].place;
    const auto letter = [&pan](int down) { return Place{pan.left + pan.width + kBarGap, pan.top + down, kPanLetter, kSliderText}; };
    form.Label2[kPanRight].place = letter(0);
    form.Label2[kPanCentre].place = letter((kBarHeight - kSliderText) / 2);
    form.Label2[kPanLeft].place = letter(kBarHeight - kSliderText);
}

} // namespace

Size LayOutKeyboard(frmTastiera &form)
{
    LayOutKeys(form);
    LayOutRows(form);
    LayOutSliders(form);
    return {kInnerWidth, kInnerHeight};
}

} // namespace velluto
