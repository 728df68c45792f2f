#pragma once
#include <gtest/gtest.h>

#include <filesystem>
#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "adapters/odbc/odbc_connection.h"
#include "runtime/error.h"

namespace catalogador::test {

/// A file name that nothing else uses, removed with its owner.
class TemporaryFile {
  public:
    explicit TemporaryFile(const std::string& name = "test.db");
    ~TemporaryFile();
    TemporaryFile(const TemporaryFile&) = delete;
    TemporaryFile& operator=(const TemporaryFile&) = delete;
    [[nodiscard]] std::string path() const { return (folder_ / name_).string(); }

  private:
    std::filesystem::path folder_;
    std::string name_;
};

/// A kind of database that the suites run on. SQLite is always there; the others when the
/// environment variable holds a connection string to an empty database.
struct DatabaseKind {
    std::string name;
    Dialect dialect;
    std::string variable;
};
const std::vector<DatabaseKind>& databaseKinds();
std::string kindName(const testing::TestParamInfo<DatabaseKind>& info);

/// Names of column types where the databases differ.
struct TypeNames {
    std::string boolean;
    std::string real;
    std::string longText;
    std::string timestamp;
};

/// Two connections to a fresh database, and the table names of this test alone.
class RdoTest : public testing::TestWithParam<DatabaseKind> {
  protected:
    void SetUp() override;
    void TearDown() override;

    [[nodiscard]] Dialect dialect() const { return GetParam().dialect; }
    [[nodiscard]] TypeNames types() const;
    std::unique_ptr<OdbcConnection> connect(const Timeouts& timeouts = {}) const;
    /// Creates a table with these columns and fills it with these value lists.
    void create(const std::string& columns, const std::vector<std::string>& rows = {});
    std::vector<std::vector<Variant>> all(const std::string& order = "1");
    [[nodiscard]] std::string select(const std::string& tail = {}) const {
        return "Select * From " + table + (tail.empty() ? "" : " " + tail);
    }

    std::string table;
    std::unique_ptr<OdbcConnection> connection;
    /// Another user at another desk.
    std::unique_ptr<OdbcConnection> other;

  private:
    TemporaryFile file_;
    std::string connectionString_;
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

void PrintTo(const DatabaseKind& kind, std::ostream* out);

}  // namespace catalogador::test

namespace catalogador {

/// How a failed expectation shows a value.
void PrintTo(const Variant& value, std::ostream* out);

}  // namespace catalogador
