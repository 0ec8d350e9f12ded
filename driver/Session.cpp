#include "driver/Session.h"

#include "driver/Commands.h"
#include "driver/Words.h"

#include <cctype>
#include <exception>
#include <filesystem>

namespace velluto::driver {

namespace {

// "C:\..." or "C:/...", as settings from another system hold them.
bool IsDrivePath(std::string_view path)
{
    return path.size() > 2 && std::isalpha(static_cast<unsigned char>(path[0])) != 0 && path[1] == ':' && IsPathSeparator(path[2]);
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

std::optional<std::string> Session::Answer(std::string_view line)
{
    if (IsRemark(line)) {
        return std::nullopt;
    }
    return OneLine(Run(line));
}

Json Session::Run(std::string_view line)
{
    try {
        Json answer = RunCommand(*this, SplitWords(line));
        Settle();
        return answer;
    } catch (const BadCommand &bad) {
        return Bad(bad.what());
    } catch (const std::exception &failure) {
        return Bad(std::string("the program failed: ") + failure.what());
    }
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
    midi.ReleaseAll();
    face.popUps.clear();
    program_ = std::make_unique<Velluto>(Ports{files, midi, clock, printer, player}, face);
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
    if (path.empty() || IsDrivePath(path) || std::filesystem::path(path).is_absolute()) {
        return path;
    }
    return (std::filesystem::path(files.CurrentFolder()) / path).lexically_normal().string();
}

void Session::Settle()
{
    if (program_ != nullptr) {
        program_->app.children.Sweep();
    }
    timers.Follow(RunningTimers());
}

} // namespace velluto::driver
