// The system's wish that the program end, handed to the event loop: the loop ends, and main closes the frame as the user would have, so
// that no note goes on sounding and the settings are written. Elsewhere that is a signal (SIGTERM, SIGINT, SIGHUP); Windows asks
// when its session ends, and waits for the answer.
#pragma once

#include <functional>
#include <memory>

namespace velluto {

// One at a time; takes effect while it lives.
class EndSignals {
public:
    // close: closes the frame as its File, Exit does; false where it stays. Called where the system wants its answer at once.
    explicit EndSignals(const std::function<bool()> &close);
    ~EndSignals();
    EndSignals(const EndSignals &) = delete;
    EndSignals &operator=(const EndSignals &) = delete;

    // Whether that wish has been heard.
    [[nodiscard]] bool Told() const { return told_; }

private:
    struct Listener;
    bool told_ = false;
    std::unique_ptr<Listener> listener_;
};

} // namespace velluto
