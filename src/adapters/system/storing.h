#pragma once
#include <string>

namespace catalogador::system {

/// Creates an empty file that must not exist yet: its user's alone, or open to whom the file
/// `earlier` is open where there is one. Raises std::system_error.
void createLike(const std::string& path, const std::string& earlier);

/// Waits until the content of a file is on the disk and gives the file another name in the same
/// file system, in the place of what has that name. Raises std::system_error.
void storeAs(const std::string& path, const std::string& target);

}  // namespace catalogador::system
