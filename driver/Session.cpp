#include "driver/Session.h"

#include "driver/Words.h"
#include "platform/machine/Utf8Path.h"
#include "platform/sequencer/MidiFile.h"
#include "player/SequencerTexts.h"

#include <algorithm>
#include <cctype>

namespace velluto::driver {

namespace {

// "C:\..." or "C:/...", as settings from another system hold them; where there are drives, "C:" too.
bool IsDrivePath(std::string_view path)
{
    const bool hasDrive = path.size() > 1 && std::isalpha(static_cast<unsigned char>(path[0])) != 0 && path[1] == ':';
    return hasDrive && (path.size() > 2 ? IsPathSeparator(path[2]) : kPathSeparator == '\\');
}

void AddRunning(std::vector<Timer *> &timers, const Form &form)
{
    for (Control *control : form.controls()) {
        auto *timer = dynamic_cast<Timer *>(control);
        if (timer != nullptr && timer->enabled && timer->interval > 0) {
            timers.push_back(timer);
        }
    }
}

} // namespace

void Session::ForgetCalls()
{
    midi.calls.clear();
    files.calls.clear();
    face.popUps.clear();
}

StandinSong Session::RealSong(const std::string &path)
{
    const MidiFile read = ReadMidiFile(files, path);
    if (read.refusal) {
        return {0, SequencerErrorFor(read.refusal), InWords(Sentence(read.refusal, Program().app.messages.LinguaBase))};
    }
    return {read.song.length, 0, {}};
}

Velluto &Session::Program()
{
    if (!Running()) {
        throw BadCommand("the program is not running");
    }
    return *program_;
}

Velluto &Session::LastProgram()
{
    if (program_ == nullptr) {
        throw BadCommand("the program is not running");
    }
    return *program_;
}

Velluto &Session::NewProgram()
{
    program_.reset();
    disk.KeepWhole(disk.CurrentFolder());
    sequencer.OtherSong = [this](const std::string &path) { return RealSong(path); };
    midi.ReleaseAll();
    sequencer.Release();
    ticks.Release();
    program_ = std::make_unique<Velluto>(Ports{files, midi, clock, printer, sequencer, folders, ticks}, face);
    return *program_;
}

std::vector<Timer *> Session::RunningTimers() const
{
    std::vector<Timer *> timersNow;
    if (Running()) {
        AddRunning(timersNow, program_->app.frame);
        for (const Form *child : program_->app.children.All()) {
            AddRunning(timersNow, *child);
        }
    }
    return timersNow;
}

std::string Session::FullPath(const std::string &path)
{
    if (path.empty() || IsDrivePath(path) || PathOfUtf8(path).is_absolute()) {
        return path;
    }
    return Utf8OfPath((PathOfUtf8(files.CurrentFolder()) / PathOfUtf8(path)).lexically_normal());
}

void Session::Settle()
{
    do {
        Raise(ticks.Ticked);
    } while (sequencer.Deliver());
    if (program_ != nullptr) {
        program_->app.children.Sweep();
    }
    timers.Follow(RunningTimers());
}

void Session::PassTime(Timers::Milliseconds time)
{
    // At one moment the file ends first, then ticks count, then the program hears of both, and timers come last.
    const auto advance = [this](Timers::Milliseconds passed) {
        clock.Advance(passed);
        sequencer.Advance(passed);
        ticks.Advance(passed);
        Settle();
    };
    const auto untilNext = [this]() -> std::optional<Timers::Milliseconds> {
        const auto end = sequencer.UntilEnd();
        const auto tick = ticks.UntilNext();
        return end && tick ? std::min(*end, *tick) : (end ? end : tick);
    };
    const auto running = [this] {
        Settle();
        return RunningTimers();
    };
    timers.Pass(time, advance, running, untilNext);
}

} // namespace velluto::driver
