#pragma once
#include <string>
#include <vector>

namespace catalogador {

/// What the program was called with, in UTF-8. Also makes the standard output carry bytes as they
/// are, where the system would change line ends, and lets writing fail there when it is closed.
class CommandLine {
  public:
    CommandLine(int argc, char** argv);

    [[nodiscard]] int count() const { return static_cast<int>(values_.size()); }
    [[nodiscard]] const char* const* values() const { return values_.data(); }

  private:
    std::vector<std::string> texts_;
    std::vector<const char*> values_;
};

}  // namespace catalogador
