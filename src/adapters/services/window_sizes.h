#pragma once
#include <optional>
#include <string>

#include "platform/window_memory.h"

namespace catalogador::services {

/// The sizes that a user gave the windows at this desk, in a file of their own:
///
///     [maria]
///     4 = 10500 x 9000
///     7 = 9000 x 7500 maximized
///
/// Lines of other users stay as they are. What cannot be read or written is not remembered.
class WindowSizes {
  public:
    /// An empty file name remembers nothing.
    WindowSizes(std::string file, const std::string& user);

    /// The file in the user's configuration folder, which need not exist; empty without a folder.
    static std::string defaultFile();

    [[nodiscard]] std::optional<WindowSize> read(const std::string& window) const;
    void write(const std::string& window, const WindowSize& size) const;

  private:
    std::string file_;
    std::string user_;
};

/// Reads and writes the default file for a user.
WindowMemory windowMemoryOf(const std::string& user);

}  // namespace catalogador::services
