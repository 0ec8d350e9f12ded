// The system's wish that the program end (SIGTERM, SIGINT, SIGHUP), handed to the event loop: the loop ends, and main
// closes the frame as the user would have, so that no note goes on sounding and the settings are written.
#pragma once

#include <QSocketNotifier>

#include <array>
#include <memory>

namespace velluto {

// One at a time; takes effect while it lives.
class EndSignals {
public:
    EndSignals();
    ~EndSignals();
    EndSignals(const EndSignals &) = delete;
    EndSignals &operator=(const EndSignals &) = delete;

    // Whether that wish has been heard.
    [[nodiscard]] bool Told() const { return told_; }

private:
    bool told_ = false;
    std::array<int, 2> pipe_{-1, -1};
    std::unique_ptr<QSocketNotifier> notifier_;
};

} // namespace velluto
