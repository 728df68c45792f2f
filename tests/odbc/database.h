#pragma once
#include <gtest/gtest.h>

#include <iosfwd>
#include <memory>
#include <string>
#include <vector>

#include "../sql/dialects.h"
#include "adapters/odbc/odbc_connection.h"
#include "adapters/sqlite/connection.h"
#include "temporary_file.h"

namespace catalogador::test {

/// A kind of database that the suites run on. SQLite is always there; the others when the
/// environment variable holds a connection string to an empty database.
struct DatabaseKind {
    std::string name;
    const sql::Dialect& dialect;
    std::string variable;
    /// Over the objects that hosts of Windows have, in the place of the driver itself.
    bool automation = false;
    /// Without a driver, by a connection that refuses what no screen does.
    bool guarded = false;
};
const std::vector<DatabaseKind>& databaseKinds();
std::string kindName(const testing::TestParamInfo<DatabaseKind>& info);

/// A connection that a suite runs on.
class TestedConnection {
  public:
    explicit TestedConnection(std::shared_ptr<rdoConnection> direct) : direct_(std::move(direct)) {}
    /// What the suite asks of the interface goes by way of `rdo`, which works on the same database
    /// connection.
    TestedConnection(std::shared_ptr<rdoConnection> direct, std::unique_ptr<rdoConnection> rdo)
        : direct_(std::move(direct)), rdo_(std::move(rdo)) {}

    /// Statements that make and remove tables go by way of another connection.
    void makeTablesBy(std::unique_ptr<rdoConnection> maker) { maker_ = std::move(maker); }

    std::unique_ptr<rdoResultset> OpenResultset(const SqlText& sql, int type = openDynamic,
                                                int lock = lockOptimisticByValues) {
        return rdo().OpenResultset(sql, type, lock);
    }
    std::unique_ptr<rdoResultset> OpenToWrite(const SqlText& sql) { return rdo().OpenToWrite(sql); }
    std::int64_t Execute(const SqlText& sql) { return rdo().Execute(sql); }
    void setListener(StatementListener* listener) { rdo().setListener(listener); }

    /// The database connection itself.
    operator rdoConnection&() { return *direct_; }
    [[nodiscard]] const rdoDialect& dialect() const { return direct_->session()->dialect(); }
    auto query(const std::string& sql, const std::vector<Variant>& values = {}) {
        return direct_->session()->query(sql, values);
    }
    std::int64_t run(const std::string& sql, const std::vector<Variant>& values = {}) {
        const bool made = maker_ && (sql.starts_with("CREATE") || sql.starts_with("DROP"));
        return (made ? *maker_ : *direct_).session()->run(sql, values);
    }
    void begin() { direct_->session()->begin(); }
    void commit() { direct_->session()->commit(); }
    void rollback() { direct_->session()->rollback(); }

  private:
    rdoConnection& rdo() { return rdo_ ? *rdo_ : *direct_; }

    std::shared_ptr<rdoConnection> direct_;
    std::unique_ptr<rdoConnection> rdo_;
    std::unique_ptr<rdoConnection> maker_;
};

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

    [[nodiscard]] const sql::Dialect& dialect() const { return GetParam().dialect; }
    [[nodiscard]] TypeNames types() const;
    [[nodiscard]] std::unique_ptr<TestedConnection> connect(const sql::Timeouts& timeouts = {},
                                                            const odbc::Defences& defences = {},
                                                            const std::string& options = {}) const;
    /// Of a database that is a file without a driver.
    [[nodiscard]] std::unique_ptr<TestedConnection> connectFile(const sql::Timeouts& timeouts,
                                                                sqlite::Opening opening) const;
    /// Creates a table with these columns and fills it with these value lists.
    void create(const std::string& columns, const std::vector<std::string>& rows = {});
    std::vector<std::vector<Variant>> all(const std::string& order = "1");
    [[nodiscard]] std::string select(const std::string& tail = {}) const {
        return "Select * From " + table + (tail.empty() ? "" : " " + tail);
    }

    std::string table;
    std::unique_ptr<TestedConnection> connection;
    /// Another user at another desk.
    std::unique_ptr<TestedConnection> other;

  private:
    TemporaryFile file_;
    std::string connectionString_;
};

void PrintTo(const DatabaseKind& kind, std::ostream* out);

}  // namespace catalogador::test

namespace catalogador {

/// How a failed expectation shows a value.
void PrintTo(const Variant& value, std::ostream* out);

}  // namespace catalogador
