#include <fcntl.h>
#include <unistd.h>

#include <csignal>

#include "apps/command_line.h"

namespace catalogador {

namespace {

/// A database or a file that is opened later must not take the number of a standard stream that
/// was handed over closed, and get what is written there. The streams still fail: each is opened
/// for what it is not used for.
void occupyStandardStreams() {
    constexpr int uses[] = {O_WRONLY, O_RDONLY, O_RDONLY};
    for (int stream = STDIN_FILENO; stream <= STDERR_FILENO; ++stream)
        if (fcntl(stream, F_GETFD) == -1) open("/dev/null", uses[stream]);
}

}  // namespace

CommandLine::CommandLine(int argc, char** argv) : values_(argv, argv + argc) {
    occupyStandardStreams();
    // A reader that goes away is told like a full disk, after records were finished.
    std::signal(SIGPIPE, SIG_IGN);
}

}  // namespace catalogador
