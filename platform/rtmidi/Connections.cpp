#include "platform/rtmidi/Connections.h"

#include "platform/MidiDevices.h"
#include "platform/music/SpinLock.h"

#include <mutex>
#include <new>

namespace velluto {

namespace {

// Lets go of a connection's end: it ends where nobody waits for it, after what was handed over has passed.
template <typename End>
void EndWhenPassed(const ConnectionHost &host, SpinLock &lock, std::unique_ptr<End> &end)
{
    std::unique_ptr<End> leaving;
    {
        const std::lock_guard guard(lock);
        leaving = std::move(end);
    }
    if (leaving) {
        host.retirement.Retire([shared = std::shared_ptr<End>(std::move(leaving))]() mutable {
            shared->Drain();
            shared.reset();
        });
    }
}

class WatchedOutput : public OutputPort, public WatchedPort {
public:
    WatchedOutput(const ConnectionHost &host, const std::string &portName, std::unique_ptr<SystemOutput> end)
        : host_(host), end_(std::move(end))
    {
        kind = PortKind::Output;
        name = portName;
        host_.watch.Add(*this);
    }
    ~WatchedOutput() override
    {
        host_.watch.Remove(*this);
        LetGo();
    }
    WatchedOutput(const WatchedOutput &) = delete;
    WatchedOutput &operator=(const WatchedOutput &) = delete;

    int Send(std::span<const std::uint8_t> message) override
    {
        const std::lock_guard lock(lock_);
        return Passes() ? end_->Send(message) : MidiCode::kNoDevice;
    }
    int SendAt(std::span<const std::uint8_t> message, TimePoint due) override
    {
        const std::lock_guard lock(lock_);
        return Passes() ? end_->SendAt(message, due) : MidiCode::kNoDevice;
    }
    [[nodiscard]] bool Gone() const override
    {
        const std::lock_guard lock(lock_);
        return !Passes();
    }

    void LetGo() override { EndWhenPassed(host_, lock_, end_); }

private:
    [[nodiscard]] bool Passes() const { return end_ && host_.system.Alive(); }

    ConnectionHost host_;
    mutable SpinLock lock_;             // between a send and the moment at which the port is let go
    std::unique_ptr<SystemOutput> end_; // empty once the port has gone
};

class WatchedInput : public InputPort, public WatchedPort {
public:
    WatchedInput(const ConnectionHost &host, const std::string &portName, std::shared_ptr<MessageSink> sink,
                 std::unique_ptr<SystemInput> end)
        : host_(host), sink_(std::move(sink)), end_(std::move(end))
    {
        kind = PortKind::Input;
        name = portName;
        host_.watch.Add(*this);
    }
    ~WatchedInput() override
    {
        host_.watch.Remove(*this);
        host_.retirement.End(std::move(end_));
    }
    WatchedInput(const WatchedInput &) = delete;
    WatchedInput &operator=(const WatchedInput &) = delete;

    void LetGo() override
    {
        host_.retirement.End(std::move(end_));
        sink_->Gone();
    }

private:
    ConnectionHost host_;
    std::shared_ptr<MessageSink> sink_;
    std::unique_ptr<SystemInput> end_;
};

// A source port of a system that may end.
class WatchedSource : public SourcePort, public WatchedPort {
public:
    WatchedSource(const ConnectionHost &host, std::unique_ptr<SourcePort> source) : host_(host), source_(std::move(source))
    {
        kind = PortKind::Source;
        host_.watch.Add(*this);
    }
    ~WatchedSource() override
    {
        host_.watch.Remove(*this);
        LetGo();
    }
    WatchedSource(const WatchedSource &) = delete;
    WatchedSource &operator=(const WatchedSource &) = delete;

    void Send(std::span<const std::uint8_t> message, TimePoint due) override
    {
        const std::lock_guard lock(lock_);
        if (source_) {
            source_->Send(message, due);
        }
    }
    [[nodiscard]] bool Gone() const override
    {
        const std::lock_guard lock(lock_);
        return !source_ || source_->Gone();
    }
    void LetGo() override { EndWhenPassed(host_, lock_, source_); }

private:
    ConnectionHost host_;
    mutable SpinLock lock_;              // between a send and the moment at which the port is let go
    std::unique_ptr<SourcePort> source_; // empty once the system has ended
};

// The code of a step that may throw.
template <typename Step>
int Guarded(Step step)
{
    try {
        return step();
    } catch (const std::bad_alloc &) {
        return MidiCode::kNoMemory;
    } catch (const std::exception &) {
        return MidiCode::kError;
    }
}

// The same for a step that sets an end.
template <typename End, typename Step>
Opened<End> OpenedBy(Step step)
{
    Opened<End> opened;
    opened.code = Guarded([&]() { return step(opened.end); });
    return opened;
}

} // namespace

Opened<SystemOutput> OpenOutputEnd(MidiSystem &system, const std::string &name)
{
    return OpenedBy<SystemOutput>([&](auto &end) { return system.OpenOutput(name, end); });
}

Opened<SystemInput> OpenInputEnd(MidiSystem &system, const std::string &name, std::shared_ptr<MessageSink> sink)
{
    return OpenedBy<SystemInput>([&](auto &end) { return system.OpenInput(name, std::move(sink), end); });
}

Opened<SourcePort> OpenSourceEnd(MidiSystem &system)
{
    return OpenedBy<SourcePort>([&](auto &end) {
        end = system.MakeSource();
        return MidiCode::kSuccess;
    });
}

int ConnectOutput(const ConnectionHost &host, const std::string &name, Opened<SystemOutput> opened, std::unique_ptr<OutputPort> &port)
{
    return opened.code != MidiCode::kSuccess ? opened.code : Guarded([&]() {
        port = std::make_unique<WatchedOutput>(host, name, std::move(opened.end));
        return MidiCode::kSuccess;
    });
}

int ConnectInput(const ConnectionHost &host, const std::string &name, std::shared_ptr<MessageSink> sink, Opened<SystemInput> opened,
                 std::unique_ptr<InputPort> &port)
{
    return opened.code != MidiCode::kSuccess ? opened.code : Guarded([&]() {
        port = std::make_unique<WatchedInput>(host, name, std::move(sink), std::move(opened.end));
        return MidiCode::kSuccess;
    });
}

std::unique_ptr<SourcePort> ConnectSource(const ConnectionHost &host, Opened<SourcePort> opened)
{
    std::unique_ptr<SourcePort> source = std::move(opened.end);
    if (source && host.system.TellsChanges()) { // one that has to be looked at does not end
        const int code = Guarded([&]() {
            source = std::make_unique<WatchedSource>(host, std::move(source));
            return MidiCode::kSuccess;
        });
        if (code != MidiCode::kSuccess) {
            return nullptr;
        }
    }
    return source;
}

} // namespace velluto
