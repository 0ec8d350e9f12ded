#include "platform/rtmidi/Announcements.h"

#include <poll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <system_error>

namespace velluto {

Announcements::Announcements(std::unique_ptr<Announcer> announcer, std::function<void()> heard)
    : announcer_(std::move(announcer)), heard_(std::move(heard)), end_(::eventfd(0, EFD_CLOEXEC))
{
    if (end_ < 0) {
        throw std::system_error(errno, std::generic_category());
    }
    try {
        thread_ = std::thread([this]() { Run(); });
    } catch (const std::system_error &) {
        ::close(end_);
        throw;
    }
}

Announcements::~Announcements()
{
    ::eventfd_write(end_, 1);
    thread_.join();
    ::close(end_);
}

void Announcements::Run()
{
    Announcer::Word word = Announcer::Word::None;
    while (goOn_ && Wait(word)) {
        if (word == Announcer::Word::End) {
            goOn_ = false;
        }
        if (word != Announcer::Word::None) {
            heard_();
        }
    }
}

bool Announcements::Wait(Announcer::Word &word)
{
    constexpr int kForEver = -1;
    std::array<pollfd, 2> ends{pollfd{announcer_->Descriptor(), POLLIN, 0}, pollfd{end_, POLLIN, 0}};
    const bool failed = ::poll(ends.data(), ends.size(), kForEver) < 0 && errno != EINTR;
    const auto [announced, ended] = ends;
    word = Announcer::Word::None;
    if (failed || (announced.revents != 0 && (announced.revents & POLLIN) == 0)) {
        word = Announcer::Word::End;
    } else if (announced.revents != 0) {
        word = announcer_->Take();
    }
    return ended.revents == 0;
}

} // namespace velluto
