#pragma once
#include <functional>
#include <string>
#include <vector>

#include "adapters/sql/dialects/sqlite.h"
#include "adapters/sql/fair_turns.h"
#include "adapters/sql/sql_session.h"
#include "adapters/sqlite/connection.h"
#include "adapters/sqlite/database.h"
#include "platform/rdo_plan.h"

namespace catalogador::sqlite {

/// An open database file as the resultsets opened on it share it.
class Session : public sql::SqlSession, public rdoPlanner {
  public:
    /// Raises RuntimeError (statementFailed), also for a file that is no database.
    Session(const std::string& file, Opening opening, const sql::Timeouts& timeouts);
    ~Session() override;
    Session(const Session&) = delete;
    Session& operator=(const Session&) = delete;

    [[nodiscard]] const sql::Dialect& dialect() const override { return sql::sqliteDialect(); }
    [[nodiscard]] const sql::SqlSyntax& syntax() const override { return syntax_; }

    void announce(const SqlText& sql) override;
    void setWaiting(const std::function<bool()>& waiting) override { waiting_ = waiting; }

    /// Only reads in a guarded session, in transactions too.
    std::unique_ptr<sql::SqlRows> open(const std::string& sql) override;
    /// May write in a transaction.
    std::vector<std::vector<Variant>> query(const std::string& sql,
                                            const std::vector<Variant>& values = {}) override;
    std::vector<std::vector<Variant>> query(const sql::ParameterizedStatement& statement) override;
    /// A transaction of its own where none was begun.
    std::int64_t run(const std::string& sql, const std::vector<Variant>& values = {}) override;
    std::int64_t write(const sql::ParameterizedStatement& statement) override;

    /// An inner transaction is a savepoint of the outer.
    void begin() override;
    void commit() override;
    void rollback() override;
    [[nodiscard]] bool inTransaction() const override { return transactions_ > 0; }

    StatementPlan prepare(const std::string& sql) override;
    void beginReading() override;

  private:
    [[nodiscard]] std::unique_ptr<sql::SqlRows> rowsOf(const sql::ParameterizedStatement& statement,
                                                       Access access);
    [[nodiscard]] Access atMost(Access access) const {
        return guarded_ ? access : Access::everything;
    }
    std::int64_t runOnce(const sql::ParameterizedStatement& statement);
    /// A statement of the session itself.
    void control(const std::string& sql);
    void end(const std::string& how);
    void endReading();

    bool guarded_;
    Database database_;
    sql::SqlSyntax syntax_;
    sql::FairTurns turns_;
    std::function<bool()> waiting_;
    int transactions_ = 0;
    bool reading_ = false;
};

}  // namespace catalogador::sqlite
