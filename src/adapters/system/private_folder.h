#pragma once
#include <cstdint>
#include <string>

namespace catalogador::system {

/// A new folder that only this user may enter, for files that are not complete yet: nobody else can
/// put a link or a file of their own into it. It is marked as in use, so that another program that
/// makes one in the same place removes those that programs which were killed have left behind.
class PrivateFolder {
  public:
    /// Makes it inside of `parent` and removes what was left behind there. Raises
    /// std::system_error.
    explicit PrivateFolder(const std::string& parent);
    /// Removes the folder with all that is in it.
    ~PrivateFolder();
    PrivateFolder(const PrivateFolder&) = delete;
    PrivateFolder& operator=(const PrivateFolder&) = delete;

    [[nodiscard]] const std::string& path() const { return path_; }

  private:
    std::string path_;
    /// Handle or descriptor that marks the folder as in use; the system closes it with the process.
    std::intptr_t mark_;
};

}  // namespace catalogador::system
