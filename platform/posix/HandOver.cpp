#include "platform/HandOver.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <memory>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/time.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

namespace velluto {

namespace {

// On the line: the activation, then each path, each with a zero byte behind it; then the sender ends its half, and the taker
// answers one byte.
constexpr int kFilesAtOnce = 8;

class Socket {
public:
    explicit Socket(int number) : number_(number) {}
    ~Socket()
    {
        if (number_ >= 0) {
            ::close(number_);
        }
    }
    Socket(const Socket &) = delete;
    Socket &operator=(const Socket &) = delete;
    [[nodiscard]] int Number() const { return number_; }
    int Release() { return std::exchange(number_, -1); }

private:
    int number_;
};

int NewSocket()
{
    return ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
}

bool Name(const std::string &address, sockaddr_un &name)
{
    name = {};
    name.sun_family = AF_UNIX;
    if (address.empty() || address.size() >= sizeof(name.sun_path)) {
        return false;
    }
    std::memcpy(name.sun_path, address.c_str(), address.size());
    return true;
}

bool IsOurs(int socket)
{
    ucred peer{};
    socklen_t length = sizeof(peer);
    return ::getsockopt(socket, SOL_SOCKET, SO_PEERCRED, &peer, &length) == 0 && peer.uid == ::getuid();
}

void SetPatience(int socket, timeval time)
{
    ::setsockopt(socket, SOL_SOCKET, SO_RCVTIMEO, &time, sizeof(time));
    ::setsockopt(socket, SOL_SOCKET, SO_SNDTIMEO, &time, sizeof(time));
}

bool Connects(int socket, const sockaddr_un &name)
{
    return ::connect(socket, reinterpret_cast<const sockaddr *>(&name), sizeof(name)) == 0;
}

// A socket of this user's is there, and nobody behind it.
bool IsDead(const sockaddr_un &name)
{
    struct stat about {};
    if (::lstat(name.sun_path, &about) != 0 || !S_ISSOCK(about.st_mode) || about.st_uid != ::getuid()) {
        return false;
    }
    const Socket socket(NewSocket());
    return !Connects(socket.Number(), name) && errno == ECONNREFUSED;
}

bool Binds(int socket, const sockaddr_un &name)
{
    return ::bind(socket, reinterpret_cast<const sockaddr *>(&name), sizeof(name)) == 0;
}

} // namespace

std::string HandOverAddress()
{
    const char *const folder = std::getenv("XDG_RUNTIME_DIR"); // NOLINT(concurrency-mt-unsafe): there is no other thread yet
    struct stat about {};
    struct stat here {};
    if (folder == nullptr || *folder != '/' || ::stat(folder, &about) != 0 || ::stat(".", &here) != 0) {
        return {};
    }
    if (about.st_uid != ::getuid() || (about.st_mode & (S_IWGRP | S_IWOTH)) != 0) {
        return {};
    }
    return std::string(folder) + "/velluto-" + std::to_string(here.st_dev) + "-" + std::to_string(here.st_ino);
}

bool HandOver(const std::string &address, const HandedFiles &files)
{
    sockaddr_un name{};
    const Socket socket(NewSocket());
    if (!Name(address, name) || !Connects(socket.Number(), name) || !IsOurs(socket.Number())) {
        return false;
    }
    const std::string bytes = BytesOf(files);
    SetPatience(socket.Number(), {10, 0});
    for (std::size_t sent = 0; sent < bytes.size();) {
        const ssize_t step = ::send(socket.Number(), bytes.data() + sent, bytes.size() - sent, MSG_NOSIGNAL);
        if (step <= 0) {
            return false;
        }
        sent += static_cast<std::size_t>(step);
    }
    char answer = 0;
    return ::shutdown(socket.Number(), SHUT_WR) == 0 && ::recv(socket.Number(), &answer, 1, 0) == 1 && answer == kHandedTaken;
}

struct HandOverInbox::Line {
    std::string address;
    int listening = -1;
};

HandOverInbox::HandOverInbox(const std::string &address) : line_(std::make_unique<Line>(Line{address, -1}))
{
    sockaddr_un name{};
    Socket socket(NewSocket());
    if (!Name(line_->address, name)) {
        return;
    }
    bool bound = Binds(socket.Number(), name);
    if (!bound && errno == EADDRINUSE && IsDead(name)) {
        ::unlink(line_->address.c_str());
        bound = Binds(socket.Number(), name);
    }
    if (bound && ::listen(socket.Number(), kFilesAtOnce) == 0) {
        line_->listening = socket.Release();
    }
}

HandOverInbox::~HandOverInbox()
{
    if (line_->listening >= 0) {
        ::unlink(line_->address.c_str());
        ::close(line_->listening);
    }
}

std::intptr_t HandOverInbox::Descriptor() const
{
    return line_->listening;
}

std::optional<HandedFiles> HandOverInbox::Take()
{
    constexpr int kPatience = 500; // ms
    const Socket socket(::accept4(line_->listening, nullptr, nullptr, SOCK_CLOEXEC));
    if (socket.Number() < 0 || !IsOurs(socket.Number())) {
        return std::nullopt;
    }
    timespec now{};
    ::clock_gettime(CLOCK_MONOTONIC, &now);
    const auto milliseconds = [](const timespec &time) { return std::int64_t{time.tv_sec} * 1000 + time.tv_nsec / 1'000'000; };
    const std::int64_t end = milliseconds(now) + kPatience;
    std::string bytes;
    std::string piece(4096, '\0');
    for (;;) {
        ::clock_gettime(CLOCK_MONOTONIC, &now);
        const std::int64_t left = end - milliseconds(now);
        if (left <= 0 || bytes.size() > kMostHanded) {
            return std::nullopt;
        }
        SetPatience(socket.Number(), {0, static_cast<suseconds_t>(left * 1000)});
        const ssize_t got = ::recv(socket.Number(), piece.data(), piece.size(), 0);
        if (got == 0) {
            break;
        }
        if (got < 0) {
            return std::nullopt;
        }
        bytes.append(piece, 0, static_cast<std::size_t>(got));
    }
    std::optional<HandedFiles> files = HandedIn(bytes);
    if (files) {
        ::send(socket.Number(), &kHandedTaken, 1, MSG_NOSIGNAL);
    }
    return files;
}

} // namespace velluto
