#include "player/PlayerLayout.h"

#include "app/StoredPlace.h"

#include <algorithm>

namespace velluto {

namespace {

constexpr int kMargin = 120;  // round the frames and inside them
constexpr int kCaption = 405; // of a frame, above what it holds
constexpr int kGap = 90;
constexpr int kButtonHeight = 390;
constexpr int kEditHeight = 360;
constexpr int kLabelHeight = 285;

constexpr int kNarrowWidth = 9600;
constexpr int kPanelWidth = 4200;
constexpr int kDeckHeight = 2880;
constexpr int kListsHeight = 4200; // at least
constexpr int kCompilationsWidth = 3000;

// The seven buttons, and the toggles to their right.
constexpr int kPulsWidth = 645;
constexpr int kPulsHeight = 540;
constexpr int kPulsGap = 45;
constexpr int kToggleWidth = 1050;
constexpr int kReadingsHeight = 585; // of the elapsed time's large letters

// The scale; the rest of it stands in the header.
constexpr int kMarkerWidth = 330; // two halves, each wide enough for a hand
constexpr int kMarkerHeight = 180;
constexpr int kBarLeft = kMarkerAtStart + kMarkerWidth / 2 - kLineAtStart;
constexpr int kBarHeight = 240;
constexpr int kHalfHandle = 105; // of a slider
constexpr int kSliderHeight = 330;
constexpr int kMarkLabelWidth = 780;

class Holder {
public:
    explicit Holder(Control &container) : container_(container) {}
    void Put(Control &control, Place place) const
    {
        control.container = &container_;
        control.place = place;
    }

private:
    Control &container_;
};

void LayOutButtons(frmMIDIPlayer &form, const Holder &deck, int width)
{
    int left = kMargin;
    for (Button &button : form.MCIPuls) {
        deck.Put(button, {left, kCaption, kPulsWidth, kPulsHeight});
        left += kPulsWidth + kPulsGap;
    }
    left += kGap;
    for (Button *toggle : {&form.CommRep, &form.CommPlayAll}) {
        deck.Put(*toggle, {left, kCaption, kToggleWidth, kPulsHeight});
        left += kToggleWidth + kGap;
    }
    deck.Put(form.CommSel, {left, kCaption, width - kMargin - left, kPulsHeight});
}

void LayOutReadings(frmMIDIPlayer &form, const Holder &deck, int top, int width)
{
    constexpr int kTitleWidth = 900;
    constexpr int kNumberWidth = 1100;
    constexpr int kPositionWidth = 1800;
    constexpr int kTimeWidth = 2400;
    int left = kMargin;
    const auto next = [&](Control &control, int taken) {
        deck.Put(control, {left, top + (kReadingsHeight - kLabelHeight) / 2, taken, kLabelHeight});
        left += taken;
    };
    next(form.Label2[0], kTitleWidth);
    next(form.LabTrackLenght, kNumberWidth);
    next(form.Label2[1], kTitleWidth);
    next(form.LabTrackPosition, kPositionWidth);
    deck.Put(form.Label1, {width - kMargin - kTimeWidth, top, kTimeWidth, kReadingsHeight});
}

// Bar, line and markers stand on one scale with the handles of the sliders below.
void LayOutScale(frmMIDIPlayer &form, const Holder &deck, int top, int width)
{
    const int right = width - kMargin - kMarkLabelWidth - kGap;
    const int barWidth = right - kBarLeft;
    const int sliderLeft = kBarLeft + kLineAtStart - kHalfHandle;
    const int sliderWidth = barWidth - kUntravelled + 2 * kHalfHandle;
    const int markersTop = top;
    const int barTop = markersTop + kMarkerHeight + 15;
    const int sliderTop = barTop + kBarHeight + 60;
    deck.Put(form.Picture1, {kBarLeft, barTop, barWidth, kBarHeight});
    Holder(form.Picture1).Put(form.Line1, {form.Line1.X1(), 0, 0, kBarHeight});
    for (Marker *marker : {&form.Picture2, &form.Picture3}) {
        deck.Put(*marker, {marker->place.Get().left, markersTop, kMarkerWidth, kMarkerHeight});
        marker->travel = barWidth - kUntravelled;
    }
    const auto slider = [&](ScrollBar &bar, Label &label, int at) {
        deck.Put(bar, {sliderLeft, at, sliderWidth, kSliderHeight});
        deck.Put(label, {right + kGap, at + (kSliderHeight - kLabelHeight) / 2, kMarkLabelWidth, kLabelHeight});
    };
    slider(form.HScrollStart, form.LabStart, sliderTop);
    slider(form.HScrollStop, form.LabStop, sliderTop + kSliderHeight + 30);
}

void LayOutCompilations(frmMIDIPlayer &form, Size size)
{
    const Holder frame(form.Frame2);
    const int width = size.width - 2 * kMargin;
    const int buttonsTop = size.height - kMargin - kButtonHeight;
    const int editTop = buttonsTop - kGap - kEditHeight;
    const int half = (width - kGap) / 2;
    frame.Put(form.ListComp, {kMargin, kCaption, width, editTop - kGap - kCaption});
    frame.Put(form.Text2, {kMargin, editTop, width, kEditHeight});
    frame.Put(form.CommNuovo, {kMargin, buttonsTop, half, kButtonHeight});
    frame.Put(form.CommCanc, {kMargin + half + kGap, buttonsTop, half, kButtonHeight});
    frame.Put(form.Dir1, {});
    frame.Put(form.File1, {});
}

void LayOutFiles(frmMIDIPlayer &form, Size size)
{
    const Holder frame(form.Frame3);
    const int width = size.width - 2 * kMargin;
    const int lower = size.height - kMargin - kButtonHeight;
    const int upper = lower - kGap - kButtonHeight;
    const int half = (width - kGap) / 2;
    const int second = kMargin + half + kGap;
    frame.Put(form.ListMidiCorr, {kMargin, kCaption, width, upper - kGap - kCaption});
    frame.Put(form.CommAdd, {kMargin, upper, half, kButtonHeight});
    frame.Put(form.CommAddAll, {second, upper, half, kButtonHeight});
    frame.Put(form.CommRim, {kMargin, lower, half, kButtonHeight});
    frame.Put(form.CommRimAll, {second, lower, half, kButtonHeight});
}

void LayOutPanel(frmMIDIPlayer &form, Size size)
{
    const Holder frame(form.Frame4);
    const int width = size.width - 2 * kMargin;
    const int foldersTop = kCaption + kEditHeight + kGap;
    const int room = size.height - kMargin - foldersTop - kGap;
    const int folders = room * 2 / 5;
    frame.Put(form.DriveMidiSel, {kMargin, kCaption, width, kEditHeight});
    frame.Put(form.DirMidiSel, {kMargin, foldersTop, width, folders});
    frame.Put(form.ListMidiSel, {kMargin, foldersTop + folders + kGap, width, room - folders});
    frame.Put(form.FileMidiSel, {});
}

} // namespace

Size PlayerSize(bool panelOpen)
{
    constexpr int kHeight = kMargin + kDeckHeight + kGap + kListsHeight + kMargin;
    return {panelOpen ? kNarrowWidth + kPanelWidth : kNarrowWidth, kHeight};
}

void LayOutPlayer(frmMIDIPlayer &form, Size inside)
{
    const Size least = PlayerSize(form.app.settings.PlayerPanelOpen);
    const int height = std::max(inside.height, least.height);
    const int left = std::max(inside.width - least.width, 0) / 2 + kMargin; // a maximised window has it in its middle
    const int listsTop = kMargin + kDeckHeight + kGap;
    const int listsHeight = height - listsTop - kMargin;
    const int deckWidth = kNarrowWidth - 2 * kMargin;
    const int filesLeft = kCompilationsWidth + kGap;

    form.Frame1.place = Place{left, kMargin, deckWidth, kDeckHeight};
    const Holder deck(form.Frame1);
    LayOutButtons(form, deck, deckWidth);
    const int readingsTop = kCaption + kPulsHeight + kGap / 2;
    LayOutReadings(form, deck, readingsTop, deckWidth);
    LayOutScale(form, deck, readingsTop + kReadingsHeight, deckWidth);

    form.Frame2.place = Place{left, listsTop, kCompilationsWidth, listsHeight};
    LayOutCompilations(form, {kCompilationsWidth, listsHeight});
    const int filesWidth = deckWidth - filesLeft;
    form.Frame3.place = Place{left + filesLeft, listsTop, filesWidth, listsHeight};
    LayOutFiles(form, {filesWidth, listsHeight});
    const int panelWidth = kPanelWidth - kGap;
    form.Frame4.place = Place{left + deckWidth + kGap, kMargin, panelWidth, height - 2 * kMargin};
    LayOutPanel(form, {panelWidth, height - 2 * kMargin});
}

void TakeFormWidth(frmMIDIPlayer &form)
{
    const Size natural = PlayerSize(form.app.settings.PlayerPanelOpen);
    form.entry.MinWidth = NearestIn<std::uint16_t>(natural.width + form.frame.width);
    form.entry.MinHeight = NearestIn<std::uint16_t>(natural.height + form.frame.height);
    form.entry.Width = form.entry.MinWidth;
    form.place = Place{form.Left(), form.Top(), form.entry.Width, std::max<int>(form.Height(), form.entry.MinHeight)};
    LayOutPlayer(form, {form.ScaleWidth(), form.ScaleHeight()});
}

} // namespace velluto
