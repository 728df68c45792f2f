#include "adapters/system/replaced_file.h"

#include <filesystem>
#include <system_error>

#include "adapters/system/paths.h"
#include "adapters/system/storing.h"
#include "runtime/error.h"

namespace catalogador::system {

namespace {

constexpr std::int32_t pathAccessError = 75;

}  // namespace

ReplacedFile::ReplacedFile(const std::string& target) : target_(target) {
    const std::filesystem::path path = pathOf(target);
    std::error_code ignored;
    if (std::filesystem::is_directory(path, ignored)) fail("it is a folder");
    try {
        folder_.emplace(path.has_parent_path() ? pathText(path.parent_path()) : ".");
        path_ = folder_->path() + "/file";
        createLike(path_, target_);
    } catch (const std::system_error& error) {
        fail(error.code().message());
    }
}

void ReplacedFile::commit() {
    try {
        storeAs(path_, target_);
    } catch (const std::system_error& error) {
        fail(error.code().message());
    }
}

void ReplacedFile::fail(const std::string& reason) const {
    throw RuntimeError(pathAccessError, "The file " + target_ + " could not be written: " + reason +
                                            ". Choose another folder or make room, and try "
                                            "again; what was there before is as it was");
}

}  // namespace catalogador::system
