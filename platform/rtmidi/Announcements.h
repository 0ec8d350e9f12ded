// Word from the ALSA sequencer that its ports have come or gone: a thread that sleeps until the kernel announces something. Used by
// AlsaSystem; the tests announce by themselves.
#pragma once

#include <atomic>
#include <functional>
#include <memory>
#include <thread>

namespace velluto {

// Where announcements come from.
class Announcer {
public:
    enum class Word { None, OfPorts, End };

    virtual ~Announcer() = default;
    // Can be read when there is something to take.
    [[nodiscard]] virtual int Descriptor() const = 0;
    // Takes all that there is, without waiting. After an End no word comes any more.
    virtual Word Take() = 0;
};

// The kernel's. Null, and silent, where it cannot be had.
std::unique_ptr<Announcer> OpenAlsaAnnouncer();

class Announcements {
public:
    // heard is called by the thread: after word of ports, and once more when the announcements have ended. Throws std::system_error
    // where there is no thread to be had.
    Announcements(std::unique_ptr<Announcer> announcer, std::function<void()> heard);
    ~Announcements();
    Announcements(const Announcements &) = delete;
    Announcements &operator=(const Announcements &) = delete;

    [[nodiscard]] bool GoOn() const { return goOn_.load(); }

private:
    void Run();
    // Waits for word; false at the end of this object.
    bool Wait(Announcer::Word &word);

    std::unique_ptr<Announcer> announcer_;
    std::function<void()> heard_;
    int end_; // an event: can be read when the thread is to end
    std::atomic<bool> goOn_ = true;
    std::thread thread_;
};

} // namespace velluto
