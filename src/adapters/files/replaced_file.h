#pragma once
#include <string>

namespace catalogador {

/// A file that is written beside its target and takes the target's place when it is complete. Until
/// then, and when it never gets there, an earlier file of that name stays as it was.
class ReplacedFile {
  public:
    /// Raises RuntimeError when no file can be made in the target's folder.
    explicit ReplacedFile(const std::string& target);
    /// Removes what was written, unless it has taken the target's place.
    ~ReplacedFile();
    ReplacedFile(const ReplacedFile&) = delete;
    ReplacedFile& operator=(const ReplacedFile&) = delete;

    /// Where to write meanwhile.
    [[nodiscard]] const std::string& path() const { return path_; }
    /// The target's folder.
    [[nodiscard]] const std::string& folder() const { return folder_; }
    /// Waits until the file is on the disk and puts it in the target's place. Raises RuntimeError.
    void commit();
    /// Raises the error that tells the user what to do.
    [[noreturn]] void fail(const std::string& reason) const;

  private:
    std::string target_;
    std::string folder_;
    std::string path_;
    bool committed_ = false;
};

}  // namespace catalogador
