#include <fcntl.h>
#include <sys/file.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cerrno>
#include <cstdlib>
#include <filesystem>
#include <system_error>

#include "adapters/system/private_folder.h"

namespace catalogador::system {

namespace {

constexpr int none = -1;
constexpr const char* prefix = ".catalogador-";

/// Marks a folder as in use until the descriptor is closed; `none` when somebody else has, or when
/// the path is no folder of this user.
int marked(const std::string& path) {
    const int folder = open(path.c_str(), O_RDONLY | O_DIRECTORY | O_NOFOLLOW | O_CLOEXEC);
    if (folder == none) return none;
    struct stat opened {};
    struct stat named {};
    // Between its making and its mark another program may have taken a folder for left behind.
    if (flock(folder, LOCK_EX | LOCK_NB) == 0 && fstat(folder, &opened) == 0 &&
        lstat(path.c_str(), &named) == 0 && opened.st_ino == named.st_ino &&
        opened.st_dev == named.st_dev && opened.st_uid == geteuid())
        return folder;
    close(folder);
    return none;
}

void removeLeftBehind(const std::string& parent) {
    std::error_code ignored;
    for (std::filesystem::directory_iterator entry(parent, ignored), end; entry != end;
         entry.increment(ignored)) {
        if (!entry->path().filename().string().starts_with(prefix)) continue;
        const int mark = marked(entry->path().string());
        if (mark == none) continue;
        std::filesystem::remove_all(entry->path(), ignored);
        close(mark);
    }
}

}  // namespace

PrivateFolder::PrivateFolder(const std::string& parent) : mark_(none) {
    removeLeftBehind(parent);
    constexpr int tries = 100;
    for (int n = 0; n < tries && mark_ == none; ++n) {
        path_ = parent + "/" + prefix + "XXXXXX";
        if (mkdtemp(path_.data()) == nullptr)
            throw std::system_error(errno, std::generic_category());
        mark_ = marked(path_);
        // A file system without locks has no mark; the folder is used all the same.
        if (mark_ == none && access(path_.c_str(), F_OK) == 0) break;
    }
}

PrivateFolder::~PrivateFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
    if (mark_ != none) close(static_cast<int>(mark_));
}

}  // namespace catalogador::system
