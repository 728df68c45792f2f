#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>

#include "adapters/files/replaced_file.h"
#include "runtime/error.h"

namespace catalogador {

namespace {

constexpr std::int32_t pathAccessError = 75;

}  // namespace

ReplacedFile::ReplacedFile(const std::string& target) : target_(target) {
    const std::filesystem::path path(target);
    folder_ = path.has_parent_path() ? path.parent_path().string() : ".";
    if (std::filesystem::is_directory(path)) fail("it is a folder");
    path_ = folder_ + "/.catalogador-XXXXXX";
    const int file = mkstemp(path_.data());
    if (file < 0) fail(std::strerror(errno));
    // A new file is its user's alone; one that is replaced stays open to whom it was.
    struct stat earlier {};
    if (stat(target.c_str(), &earlier) == 0) fchmod(file, earlier.st_mode & 0777U);
    close(file);
}

ReplacedFile::~ReplacedFile() {
    if (!committed_) unlink(path_.c_str());
}

void ReplacedFile::commit() {
    const int file = open(path_.c_str(), O_RDONLY | O_CLOEXEC);
    const bool stored = file >= 0 && fsync(file) == 0;
    const int reason = errno;
    if (file >= 0) close(file);
    if (!stored) fail(std::strerror(reason));
    if (std::rename(path_.c_str(), target_.c_str()) != 0) fail(std::strerror(errno));
    committed_ = true;
}

void ReplacedFile::fail(const std::string& reason) const {
    throw RuntimeError(pathAccessError, "The file " + target_ + " could not be written: " + reason +
                                            ". Choose another folder or make room, and try "
                                            "again; what was there before is as it was");
}

}  // namespace catalogador
