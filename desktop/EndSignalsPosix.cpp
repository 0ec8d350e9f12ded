#include "desktop/EndSignals.h"

#include <QCoreApplication>
#include <QSocketNotifier>

#include <array>
#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace velluto {

namespace {

constexpr std::array<int, 3> kSignals = {SIGTERM, SIGINT, SIGHUP};

// The end of the pipe that the handler writes to: a signal handler can reach nothing but what is global.
volatile std::sig_atomic_t writeEnd = -1;

void TellLoop(int /*signal*/)
{
    const char byte = 1;
    // A full pipe has told it already.
    static_cast<void>(::write(writeEnd, &byte, 1) == 1);
}

} // namespace

struct EndSignals::Listener {
    std::array<int, 2> pipe{-1, -1};
    std::unique_ptr<QSocketNotifier> notifier;
};

EndSignals::EndSignals(const std::function<bool()> & /*close*/) : listener_(std::make_unique<Listener>())
{
    if (::pipe2(listener_->pipe.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    writeEnd = listener_->pipe[1];
    listener_->notifier = std::make_unique<QSocketNotifier>(listener_->pipe[0], QSocketNotifier::Read);
    QSocketNotifier &notifier = *listener_->notifier;
    QObject::connect(&notifier, &QSocketNotifier::activated, &notifier, [this] {
        char byte = 0;
        static_cast<void>(::read(listener_->pipe[0], &byte, 1) == 1);
        told_ = true;
        QCoreApplication::exit(0);
    });
    for (const int signal : kSignals) {
        std::signal(signal, TellLoop);
    }
}

EndSignals::~EndSignals()
{
    if (listener_->notifier == nullptr) {
        return;
    }
    for (const int signal : kSignals) {
        std::signal(signal, SIG_DFL);
    }
    listener_->notifier.reset();
    for (const int end : listener_->pipe) {
        ::close(end);
    }
}

} // namespace velluto
