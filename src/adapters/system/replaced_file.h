#pragma once
#include <optional>
#include <string>

#include "adapters/system/private_folder.h"

namespace catalogador::system {

/// A file that is written beside its target and takes the target's place when it is complete. Until
/// then, and when it never gets there, an earlier file of that name stays as it was. It is written
/// in a folder that only this user may enter.
class ReplacedFile {
  public:
    /// Makes the file, empty. Raises RuntimeError when none can be made in the target's folder.
    explicit ReplacedFile(const std::string& target);
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

    /// Where to write meanwhile.
    [[nodiscard]] const std::string& path() const { return path_; }
    /// The folder that the file is in meanwhile, for other files that the writing needs. It is on
    /// the target's disk.
    [[nodiscard]] const std::string& folder() const { return folder_->path(); }
    /// Waits until the file is on the disk and puts it in the target's place; a link there is
    /// replaced, not followed. Raises RuntimeError.
    void commit();
    /// Raises the error that tells the user what to do.
    [[noreturn]] void fail(const std::string& reason) const;

  private:
    std::string target_;
    std::optional<PrivateFolder> folder_;
    std::string path_;
};

}  // namespace catalogador::system
