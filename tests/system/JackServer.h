// Processes that the system tests start and end: a JACK server under a name of its own, and clients of it. They are
// processes of their own because JACK's library does not survive a server's death next to clients of another one.
#pragma once

#include <chrono>
#include <functional>
#include <memory>
#include <string>
#include <sys/types.h>
#include <vector>

namespace velluto::test {

// Waits for the condition. False where it has not come true after the limit.
bool Eventually(const std::function<bool()> &condition, std::chrono::milliseconds limit = std::chrono::seconds(5));

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

// A server under a name of the tests; the environment names it to all clients. The name is the same every time: JACK has
// room for eight names on a machine, and a server that was killed gives its own up only to the next one of that name.
class JackServer {
public:
    // A patient server waits for a client that is late, so that a busy machine loses no message; but it stands still when a
    // connected client leaves. A hasty one goes on, in periods so long that a message is hardly ever late.
    enum class Temper { Patient, Hasty };

    JackServer();
    ~JackServer(); // ends it in an orderly way
    JackServer(const JackServer &) = delete;
    JackServer &operator=(const JackServer &) = delete;
    void Start(Temper temper); // and waits until clients are taken
    void End(int signal);
    void Signal(int number) const { process_->Signal(number); }

private:
    int lock_ = -1; // held while this lives: only one test on the machine has a server of this name
    std::unique_ptr<Process> process_;
};

} // namespace velluto::test
