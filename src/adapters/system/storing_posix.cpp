#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdio>
#include <system_error>

#include "adapters/system/storing.h"

namespace catalogador::system {

namespace {

[[noreturn]] void fail(int reason) {
    throw std::system_error(reason, std::generic_category());
}

}  // namespace

void createLike(const std::string& path, const std::string& earlier) {
    const int file = open(path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600);
    if (file < 0) fail(errno);
    struct stat known {};
    if (lstat(earlier.c_str(), &known) == 0 && S_ISREG(known.st_mode))
        fchmod(file, known.st_mode & 0777U);
    close(file);
}

void storeAs(const std::string& path, const std::string& target) {
    const int file = open(path.c_str(), O_RDONLY | O_NOFOLLOW | O_CLOEXEC);
    if (file < 0) fail(errno);
    const int reason = fsync(file) == 0 ? 0 : errno;
    close(file);
    if (reason != 0) fail(reason);
    if (std::rename(path.c_str(), target.c_str()) != 0) fail(errno);
}

}  // namespace catalogador::system
