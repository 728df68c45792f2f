#include <fcntl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <csignal>
#include <cstring>
#include <filesystem>
#include <system_error>

#include "adapters/services/opening.h"
#include "runtime/error.h"

namespace catalogador::services {

namespace {

constexpr const char* opener = "xdg-open";

[[noreturn]] void fail(const std::string& path, const std::string& reason) {
    throw RuntimeError(error_number::invalidProcedureCall,
                       "The file " + path + " cannot be opened: " + reason);
}

/// In the child: becomes the opener, or tells through `failed` why not. It must not write to what
/// this program prints.
[[noreturn]] void becomeOpener(const char* path, int failed) {
    setsid();
    std::signal(SIGPIPE, SIG_DFL);
    const int nowhere = open("/dev/null", O_RDWR);
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO})
        if (nowhere >= 0) dup2(nowhere, stream);
    const std::array<const char*, 3> arguments{opener, path, nullptr};
    execvp(opener, const_cast<char* const*>(arguments.data()));
    const int reason = errno;
    // Nobody is left to be told when this fails too.
    [[maybe_unused]] const auto written = write(failed, &reason, sizeof reason);
    _exit(1);
}

}  // namespace

void openWithDesktop(const std::string& path) {
    std::error_code error;
    if (!std::filesystem::exists(path, error)) fail(path, "there is no such file");
    // A name that begins with "-" would be taken for an option.
    const std::string absolute = std::filesystem::absolute(path, error).string();

    std::array<int, 2> pipe{};
    if (pipe2(pipe.data(), O_CLOEXEC) != 0) fail(path, std::strerror(errno));
    const pid_t child = fork();
    if (child == 0) {
        // The second fork leaves the opener to the system, so that nothing has to wait for it.
        const pid_t grandchild = fork();
        if (grandchild == 0) becomeOpener(absolute.c_str(), pipe[1]);
        _exit(grandchild < 0 ? 1 : 0);
    }
    close(pipe[1]);
    int status = 0;
    if (child > 0) waitpid(child, &status, 0);
    int reason = 0;
    // The other end closes without a word when the opener has started.
    const bool told = read(pipe[0], &reason, sizeof reason) == sizeof reason;
    close(pipe[0]);
    if (child < 0 || status != 0) fail(path, "no process could be started");
    if (told) fail(path, std::string(opener) + ": " + std::strerror(reason));
}

}  // namespace catalogador::services
