#include "JackServer.h"

#include <cstdlib>
#include <fcntl.h>
#include <sched.h>
#include <stdexcept>
#include <sys/file.h>
#include <sys/mount.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <thread>
#include <unistd.h>

namespace velluto::test {

namespace {

constexpr std::chrono::seconds kWaitForLane(250); // where others test too

bool WriteFile(const char *path, const std::string &text)
{
    const int file = ::open(path, O_WRONLY | O_CLOEXEC);
    const bool written = file >= 0 && ::write(file, text.data(), text.size()) == static_cast<ssize_t>(text.size());
    ::close(file);
    return written;
}

// JACK's clients meet their servers in /dev/shm, under the client's name alone: two that are called alike, on two servers, may
// get each other's server. So each test has a /dev/shm of its own (as in gui-lib.sh); false where the machine does not let it.
bool TakeOwnSharedMemory()
{
    const ::uid_t user = ::getuid();
    if (user != 0) {
        const std::string map = std::to_string(user) + " " + std::to_string(user) + " 1";
        if (::unshare(CLONE_NEWUSER | CLONE_NEWNS | CLONE_NEWIPC) != 0 || !WriteFile("/proc/self/uid_map", map)) {
            return false;
        }
    } else if (::unshare(CLONE_NEWNS | CLONE_NEWIPC) != 0) {
        return false;
    }
    return ::mount(nullptr, "/", nullptr, MS_REC | MS_PRIVATE, nullptr) == 0 && ::mount("tmpfs", "/dev/shm", "tmpfs", 0, nullptr) == 0;
}

} // namespace

bool Eventually(const std::function<bool()> &condition, std::chrono::milliseconds limit)
{
    constexpr std::chrono::milliseconds kLookEvery(2);
    const auto end = std::chrono::steady_clock::now() + limit;
    while (!condition()) {
        if (std::chrono::steady_clock::now() > end) {
            return false;
        }
        std::this_thread::sleep_for(kLookEvery);
    }
    return true;
}

Process::Process(const std::vector<std::string> &words)
{
    int toChild[2];
    int fromChild[2];
    if (::pipe2(toChild, O_CLOEXEC) != 0 || ::pipe2(fromChild, O_CLOEXEC) != 0) {
        throw std::runtime_error("no pipe");
    }
    std::vector<char *> arguments;
    for (const std::string &word : words) {
        arguments.push_back(const_cast<char *>(word.c_str()));
    }
    arguments.push_back(nullptr);
    pid_ = ::fork();
    if (pid_ == 0) {
        ::prctl(PR_SET_PDEATHSIG, SIGKILL);
        ::dup2(toChild[0], STDIN_FILENO);
        ::dup2(fromChild[1], STDOUT_FILENO);
        const int nowhere = ::open("/dev/null", O_WRONLY | O_CLOEXEC);
        ::dup2(nowhere, STDERR_FILENO);
        ::execv(arguments[0], arguments.data());
        ::_exit(127);
    }
    ::close(toChild[0]);
    ::close(fromChild[1]);
    input_ = toChild[1];
    output_ = fromChild[0];
    ::fcntl(output_, F_SETFL, O_NONBLOCK);
}

Process::~Process()
{
    Leave();
    ::close(output_);
}

void Process::CloseInput()
{
    if (input_ >= 0) {
        ::close(input_);
        input_ = -1;
    }
}

void Process::Leave()
{
    CloseInput();
    End(0);
}

void Process::Write(const std::string &line)
{
    const std::string text = line + "\n";
    if (::write(input_, text.data(), text.size()) != static_cast<ssize_t>(text.size())) {
        throw std::runtime_error("the process takes no line");
    }
}

void Process::Read()
{
    char buffer[4096];
    for (ssize_t got = 0; (got = ::read(output_, buffer, sizeof(buffer))) > 0;) {
        rest_.append(buffer, static_cast<std::size_t>(got));
    }
    for (std::size_t end = 0; (end = rest_.find('\n')) != std::string::npos;) {
        const std::string line = rest_.substr(0, end);
        rest_.erase(0, end + 1);
        if (line == "ready") {
            ready_ = true;
        } else {
            lines_.push_back(line);
        }
    }
}

const std::vector<std::string> &Process::Lines()
{
    Read();
    return lines_;
}

bool Process::WaitUntilReady()
{
    return Eventually([this]() {
        Read();
        return ready_;
    });
}

bool Process::Runs()
{
    if (pid_ > 0 && ::waitpid(pid_, nullptr, WNOHANG) == pid_) {
        pid_ = -1;
    }
    return pid_ > 0;
}

void Process::Signal(int number) const
{
    if (pid_ > 0) {
        ::kill(pid_, number);
    }
}

void Process::Stop() const
{
    if (pid_ > 0) {
        ::kill(pid_, SIGSTOP);
        ::waitpid(pid_, nullptr, WUNTRACED);
    }
}

void Process::End(int signal)
{
    if (pid_ > 0) {
        ::kill(pid_, signal);
        if (!Eventually([this]() { return ::waitpid(pid_, nullptr, WNOHANG) == pid_; })) {
            ::kill(pid_, SIGKILL);
            ::waitpid(pid_, nullptr, 0);
        }
        pid_ = -1;
    }
}

JackServer::JackServer()
{
    // A lane each, with a server's name (as in gui-lib.sh).
    const auto taken = [this, lanes = TakeOwnSharedMemory() ? 4 : 1]() {
        for (int number = 1; number <= lanes; ++number) {
            const std::string file = "/tmp/velluto-test-" + std::to_string(::getuid()) + "-" + std::to_string(number) + ".lock";
            lock_ = ::open(file.c_str(), O_RDWR | O_CREAT | O_CLOEXEC, 0666);
            if (::flock(lock_, LOCK_EX | LOCK_NB) == 0) {
                name_ = "velluto-" + std::to_string(number);
                return true;
            }
            ::close(lock_);
        }
        return false;
    };
    if (!Eventually(taken, kWaitForLane)) {
        throw std::runtime_error("every server's name is taken");
    }
    ::setenv("JACK_DEFAULT_SERVER", name_.c_str(), 1);
    ::setenv("JACK_NO_AUDIO_RESERVATION", "1", 1);
    ::setenv("JACK_NO_START_SERVER", "1", 1);
}

JackServer::~JackServer()
{
    if (process_) {
        Continue(); // a test that failed may have left it standing
        process_->End(SIGTERM);
    }
    ::close(lock_);
}

void JackServer::Start(int frames)
{
    const std::vector<std::string> words{JACKD, "-n",    name_, "--no-realtime",       "-S", "-t", "500", "-d", "dummy",
                                         "-r",  "48000", "-p",  std::to_string(frames)};
    const std::string look = std::string(JACK_WAIT) + " -c 2>/dev/null | grep -q '^running'";
    const auto running = [&]() { return std::system(look.c_str()) == 0; }; // NOLINT: before any thread
    // The name of a server that was killed is free again only when the system has buried that one.
    const auto starts = [&]() {
        process_ = std::make_unique<Process>(words);
        return Eventually([&]() { return running() || !process_->Runs(); }) && process_->Runs();
    };
    if (Eventually(starts, std::chrono::seconds(60))) {
        return;
    }
    throw std::runtime_error("the JACK server does not start");
}

void JackServer::End(int signal)
{
    process_->End(signal);
    process_.reset();
}

} // namespace velluto::test
