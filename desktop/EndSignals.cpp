#include "desktop/EndSignals.h"

#include <QCoreApplication>

#ifdef Q_OS_UNIX

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

EndSignals::EndSignals()
{
    if (::pipe2(pipe_.data(), O_CLOEXEC | O_NONBLOCK) != 0) {
        return;
    }
    writeEnd = pipe_[1];
    notifier_ = std::make_unique<QSocketNotifier>(pipe_[0], QSocketNotifier::Read);
    QObject::connect(notifier_.get(), &QSocketNotifier::activated, notifier_.get(), [this] {
        char byte = 0;
        static_cast<void>(::read(pipe_[0], &byte, 1) == 1);
        told_ = true;
        QCoreApplication::exit(0);
    });
    for (const int signal : kSignals) {
        std::signal(signal, TellLoop);
    }
}

EndSignals::~EndSignals()
{
    if (notifier_ == nullptr) {
        return;
    }
    for (const int signal : kSignals) {
        std::signal(signal, SIG_DFL);
    }
    notifier_.reset();
    for (const int end : pipe_) {
        ::close(end);
    }
}

} // namespace velluto

#else

namespace velluto {

EndSignals::EndSignals() = default;
EndSignals::~EndSignals() = default;

} // namespace velluto

#endif
