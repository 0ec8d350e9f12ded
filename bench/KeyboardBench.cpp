// From an event of the pointer on the on-screen keyboard to the last of its bytes at the device, without the screen.
#include "RatioReporter.h"
#include "keyboard/KeyboardWindow.h"
#include "midi/DeviceMenus.h"
#include "midi/frmMsgEx.h"
#include "unit/support/TestProgram.h"

namespace velluto::bench {
namespace {

constexpr int kMiddleC = 24;
constexpr int kAboveBlackKeys = 100; // twips

// A program with one output and the keyboard open.
struct Stage {
    Stage()
    {
        run.Start(test::TestProgram::English);
        mnuDevMIDIOut_Click(run.program.midi, 0);
        mnuTastiera_Click(run.program.keyboard);
        run.midi.sent.reserve(kRoom);
    }
    static constexpr std::size_t kRoom = 64;
    test::TestProgram run;
    frmTastiera &Form() { return *run.program.keyboard.window; }
    // Whether as many messages have come as were due; forgets them.
    bool Took(std::size_t due)
    {
        const bool took = run.midi.sent.size() == due;
        run.midi.sent.clear();
        return took;
    }
    // Glide, Press or Latch.
    void SetMode(bool click, bool hold)
    {
        Form().CheckHoldNote.value = false;
        Form().CheckClickKey.value = click;
        if (hold) {
            Form().CheckHoldNote.value = true;
        }
        run.midi.sent.clear();
    }
};

Stage &TheStage()
{
    static Stage stage;
    return stage;
}

// A press and its release: two events, two messages.
void PressAndRelease(benchmark::State &state)
{
    Stage &stage = TheStage();
    stage.SetMode(true, false);
    PianoKey &key = stage.Form().Key[kMiddleC];
    for (auto _ : state) {
        key.MouseDown(MouseButton::Left);
        key.MouseUp(MouseButton::Left);
        if (!stage.Took(2)) {
            state.SkipWithError("a press did not play");
        }
    }
}

void PressMonitorClosed(benchmark::State &state)
{
    PressAndRelease(state);
}

void PressMonitorOpen(benchmark::State &state)
{
    Stage &stage = TheStage();
    mnuMsgEx_Click(stage.run.program.midi);
    PressAndRelease(state);
    stage.run.program.app.children.Unload(*stage.run.program.midi.monitor);
    stage.run.program.app.children.Sweep();
}

// From key to key: one event, two messages.
void Glide(benchmark::State &state)
{
    Stage &stage = TheStage();
    stage.SetMode(false, false);
    int key = 0;
    stage.Form().Key[key].MouseMove(kAboveBlackKeys);
    stage.run.midi.sent.clear();
    for (auto _ : state) {
        key = (key + 1) % kKeyCount;
        stage.Form().Key[key].MouseMove(kAboveBlackKeys);
        if (!stage.Took(2)) {
            state.SkipWithError("a glide did not play");
        }
    }
    stage.Form().Frame1.MouseMove();
}

// Four frozen notes moved to another key: one event, five messages.
void Chord(benchmark::State &state)
{
    Stage &stage = TheStage();
    stage.SetMode(true, true);
    for (const int key : {0, 4, 7, 10}) {
        stage.Form().Key[key].MouseDown(MouseButton::Left);
    }
    stage.Form().CommHoldChord.Click();
    stage.run.midi.sent.clear();
    int key = 0;
    for (auto _ : state) {
        key = (key + 1) % (kKeyCount - kNotesPerOctave);
        stage.Form().Key[key].MouseDown(MouseButton::Left);
        if (!stage.Took(5)) {
            state.SkipWithError("a chord did not play");
        }
    }
    stage.Form().CommAllNoteOff.Click();
}

// A slider drawn along: one event, one message.
void Slider(benchmark::State &state)
{
    Stage &stage = TheStage();
    stage.run.midi.sent.clear();
    int value = 0;
    for (auto _ : state) {
        value = (value + 1) % 128;
        ScrollGesture::DragTo(stage.Form().VScroll[0], value);
        stage.run.midi.sent.clear();
    }
    ScrollGesture::LetGo(stage.Form().VScroll[0]);
}

BENCHMARK(PressMonitorClosed)->Unit(benchmark::kMicrosecond);
BENCHMARK(PressMonitorOpen)->Unit(benchmark::kMicrosecond);
BENCHMARK(Glide)->Unit(benchmark::kMicrosecond);
BENCHMARK(Chord)->Unit(benchmark::kMicrosecond);
BENCHMARK(Slider)->Unit(benchmark::kMicrosecond);

const std::vector<Limit> kLimits = {
    {"Key press and release to their bytes", "PressMonitorClosed", "", 5},
    {"Key press and release to their bytes, monitor open", "PressMonitorOpen", "", 5},
    {"Glide from key to key to its two messages", "Glide", "", 5},
    {"Chord press to its five messages", "Chord", "", 5},
    {"Slider step to its message", "Slider", "", 5},
};

} // namespace
} // namespace velluto::bench

int main(int argc, char **argv)
{
    return velluto::bench::RunBenchmarks(argc, argv, velluto::bench::kLimits) ? 0 : 1;
}
