// Processes that the system tests start and end: a JACK server under a name of its own, and clients of it. They are
// processes of their own because JACK's library does not survive a server's death next to clients of another one.
#pragma once

#include <chrono>
#include <csignal>
#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <sys/types.h>
#include <vector>

namespace velluto::test {

inline constexpr std::uint32_t kNoteOn = 0x643C90; // packed: note 60 on channel 1, struck at 100

// Waits for the condition. False where it has not come true after the limit.
bool Eventually(const std::function<bool()> &condition, std::chrono::milliseconds limit = std::chrono::seconds(20));

// A process with its standard input and output in our hands. It ends with this object, and if the test dies.
class Process {
public:
    explicit Process(const std::vector<std::string> &words);
    ~Process();
    Process(const Process &) = delete;
    Process &operator=(const Process &) = delete;

    void Write(const std::string &line);
    // What it has written so far, without the "ready".
    const std::vector<std::string> &Lines();
    bool Runs();           // it has not ended by itself
    bool WaitUntilReady(); // until it has written "ready"
    void Signal(int number) const;
    void Stop() const;    // and waits until it stands still; SIGCONT lets it go on
    void CloseInput();    // at which it is to end by itself
    void Leave();         // ends it by the end of its input
    void End(int signal); // and waits for its end

private:
    void Read();

    pid_t pid_ = -1;
    int input_ = -1;
    int output_ = -1;
    bool ready_ = false;
    std::string rest_;
    std::vector<std::string> lines_;
};

// A server that no other test can meet; the environment names it to all clients. It waits some seconds for a client that is late, since
// what has not been passed on by the end of a period is lost, and the machine may be busy. For as long it stands still where a connected
// client is killed.
class JackServer {
public:
    JackServer();
    ~JackServer(); // ends it in an orderly way
    JackServer(const JackServer &) = delete;
    JackServer &operator=(const JackServer &) = delete;
    void Start(int frames = 256); // in a period, of 48000 a second; waits until clients are taken
    void End(int signal);
    void Stop() const { process_->Stop(); }
    void Continue() const { process_->Signal(SIGCONT); }

private:
    std::string name_;
    int lock_ = -1; // held while this lives: only one test on the machine has a server of this name
    std::unique_ptr<Process> process_;
};

} // namespace velluto::test
