#include "player/Marks.h"

#include "player/PlayerClock.h"
#include "player/PlayerDisplay.h"
#include "player/PlayerLayout.h"

#include <algorithm>
#include <charconv>
#include <limits>

namespace velluto {

namespace {

constexpr int kMarkerBeforeLine = kMarkerAtStart - kLineAtStart;

// Without a file every position is at the start.
int PercentOf(const PlayerVariables &state, std::int32_t position)
{
    return state.TrackLength == 0 ? 0 : static_cast<int>(std::int64_t{position} * 100 / state.TrackLength);
}

int OnScale(const frmMIDIPlayer &form, int percent)
{
    return static_cast<int>(std::int64_t{form.Picture1.place.Get().width - kUntravelled} * percent / 100);
}

void PlaceAtPercent(const frmMIDIPlayer &form, Marker &marker, int percent)
{
    Place place = marker.place;
    place.left = OnScale(form, percent) + kMarkerAtStart;
    marker.place = place;
}

void PlaceMarker(const frmMIDIPlayer &form, Marker &marker, std::int32_t position)
{
    PlaceAtPercent(form, marker, PercentOf(form.state, position));
}

// The number that a label shows; words count as 0.
std::int32_t NumberIn(const Label &label)
{
    const std::string &text = label.caption.Get();
    std::int32_t number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

// Do the marks cut something off the file? Then all files cannot be played in a row.
void TestMarks(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    state.MarksActive = NumberIn(form.LabTrackLenght) > state.StopMark || state.StartMark > 0;
    form.CommPlayAll.enabled = !state.MarksActive;
    if (state.MarksActive) {
        SwitchOff(form.CommPlayAll, state.PlayAllOff);
    }
}

} // namespace

void SwitchOff(Button &toggle, int offColor)
{
    if (toggle.color == kToggledColor) {
        toggle.color = offColor;
    }
}

void ShowPosition(frmMIDIPlayer &form, std::int32_t position)
{
    const int percent = PercentOf(form.state, position);
    form.LabTrackPosition.caption = std::to_string(position) + " (" + std::to_string(percent) + "%)";
    form.Line1.SetX(OnScale(form, percent) + kLineAtStart);
}

void ResetMarkers(frmMIDIPlayer &form)
{
    constexpr int kAll = 100;
    PlaceAtPercent(form, form.Picture2, 0);
    PlaceAtPercent(form, form.Picture3, kAll);
}

void SetMaximum(ScrollBar &slider, std::int32_t maximum)
{
    slider.max = maximum;
    slider.value = std::min(slider.value.Get(), maximum);
}

void EnableMarks(frmMIDIPlayer &form)
{
    const std::int32_t length = form.MMControl1.Length();
    constexpr int kLargeSteps = 10;
    form.Picture2.enabled = true;
    form.Picture3.enabled = true;
    for (ScrollBar *slider : {&form.HScrollStart, &form.HScrollStop}) {
        slider->enabled = true;
        slider->largeChange = length / kLargeSteps;
        SetMaximum(*slider, length);
    }
    form.LabStart.caption = "0";
    form.LabStop.caption = std::to_string(length);
    form.LabStart.alignment = Alignment::Right;
    form.LabStop.alignment = Alignment::Right;
}

void DisableMarks(frmMIDIPlayer &form)
{
    for (Control *mark : std::initializer_list<Control *>{&form.HScrollStart, &form.HScrollStop, &form.Picture2, &form.Picture3}) {
        mark->enabled = false;
    }
    form.LabStart.caption = "Start";
    form.LabStop.caption = "Stop";
    form.LabStart.alignment = Alignment::Centre;
    form.LabStop.alignment = Alignment::Centre;
}

void MarkWholeFile(frmMIDIPlayer &form)
{
    EnableMarks(form);
    form.state.StopMark = form.MMControl1.Length();
    form.state.StartMark = 0;
    form.LabStop.caption = std::to_string(form.state.StopMark);
    form.LabStart.caption = "0";
    form.HScrollStart.value = 0;
    form.HScrollStop.value = form.state.StopMark;
    // A slider that stood there already has told nobody.
    PlaceMarker(form, form.Picture2, 0);
    PlaceMarker(form, form.Picture3, form.state.StopMark);
    TestMarks(form);
}

void ClearTickMap(frmMIDIPlayer &form)
{
    form.state.TickMap.fill(0);
}

std::int32_t KnownPositionBelow(const PlayerVariables &state, std::int32_t position)
{
    std::int32_t at = std::clamp(position, 0, kTickMapSize - 1);
    while (at > 0 && TicksAt(state, at) <= 0) {
        --at;
    }
    return at;
}

int TicksAt(const PlayerVariables &state, std::int32_t position)
{
    return position >= 0 && position < kTickMapSize ? state.TickMap.at(static_cast<std::size_t>(position)) : 0;
}

void HScrollStart_Change(frmMIDIPlayer &form)
{
    PlayerVariables &state = form.state;
    if (state.SelectionGuard) {
        return;
    }
    const std::int32_t mark = std::min(form.HScrollStart.value.Get(), form.HScrollStop.value.Get());
    form.LabStart.caption = std::to_string(mark);
    form.HScrollStart.value = mark;
    state.StartMark = mark;
    if (form.MMControl1.Mode() != SequencerMode::kPlaying) {
        ShowPosition(form, mark);
    }
    PlaceMarker(form, form.Picture2, mark);
    TestMarks(form);
}

void HScrollStop_Change(frmMIDIPlayer &form)
{
    const std::int32_t mark = std::max(form.HScrollStop.value.Get(), form.HScrollStart.value.Get());
    form.LabStop.caption = std::to_string(mark);
    form.HScrollStop.value = mark;
    form.state.StopMark = mark;
    PlaceMarker(form, form.Picture3, mark);
    TestMarks(form);
}

void HScrollStart_Scroll(frmMIDIPlayer &form)
{
    PlaceMarker(form, form.Picture2, form.HScrollStart.value);
    form.LabStart.caption = std::to_string(form.HScrollStart.value.Get());
    if (form.MMControl1.Mode() == SequencerMode::kStopped) {
        form.Line1.SetX(form.Picture2.place.Get().left - kMarkerBeforeLine);
    }
}

void HScrollStop_Scroll(frmMIDIPlayer &form)
{
    PlaceMarker(form, form.Picture3, form.HScrollStop.value);
    form.LabStop.caption = std::to_string(form.HScrollStop.value.Get());
}

void Timer1_Timer(frmMIDIPlayer &form)
{
    constexpr int kTicksInSecond = 5;
    constexpr int kMinute = 60;
    constexpr std::int32_t kPositionsKept = kTickMapSize - 1; // one short on purpose: the last entry stays unused
    PlayerVariables &state = form.state;
    std::int32_t position = 0;
    if (state.TrackLength > 0) {
        // The device lags behind at the start of a play.
        position = std::max(form.MMControl1.Position(), form.MMControl1.From());
        ShowPosition(form, position);
    }
    const int seconds = state.TickCount / kTicksInSecond;
    const std::string twoDigits = std::to_string(seconds % kMinute);
    form.Label1.caption = std::to_string(seconds / kMinute) + ":" + (twoDigits.size() < 2 ? "0" : "") + twoDigits;
    if (position >= 0 && position < kPositionsKept) {
        constexpr int kMostTicks = std::numeric_limits<std::int16_t>::max();
        state.TickMap.at(static_cast<std::size_t>(position)) = static_cast<std::int16_t>(std::min(state.TickCount, kMostTicks));
    }
    if (position >= form.HScrollStop.value) {
        ContaSecStop(form);
        form.MMControl1.Command("stop");
        UpdateTransportButtons(form);
    }
}

} // namespace velluto
