#pragma once
#include <filesystem>
#include <string>

#include "runtime/error.h"

namespace catalogador::test {

/// A file name that nothing else uses, removed with its owner.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::string& name = "test.db");
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    [[nodiscard]] std::string path() const { return (folder_ / name_).generic_string(); }

  private:
    std::filesystem::path folder_;
    std::string name_;
};

/// The number of the RuntimeError that `action` raises; 0 when it raises none.
template <class Action>
std::int32_t errorNumberOf(Action action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

/// Its description; empty when it raises none.
template <class Action>
std::string errorOf(Action action) {
    try {
        action();
    } catch (const RuntimeError& error) {
        return error.description();
    }
    return {};
}

}  // namespace catalogador::test
