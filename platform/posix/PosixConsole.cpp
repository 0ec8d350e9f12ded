#include "platform/posix/PosixConsole.h"

#include <csignal>
#include <fcntl.h>
#include <unistd.h>

namespace velluto {

void PrepareStreams()
{
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        if (::fcntl(stream, F_GETFD) < 0) {
            (void)::open("/dev/null", O_RDONLY); // takes the lowest number; writing to it fails
        }
    }
    std::signal(SIGPIPE, SIG_IGN);
}

std::vector<std::string> WordsOfCommand(int argc, char **argv)
{
    return {argv + (argc > 0 ? 1 : 0), argv + argc};
}

} // namespace velluto
