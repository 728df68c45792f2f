#pragma once
#include <functional>
#include <string>
#include <vector>

#include "adapters/sql/dialect.h"
#include "platform/rdo_plan.h"

namespace catalogador::checks {

/// A database that is looked at and never written to: whatever runs, runs in a transaction that can
/// only read.
class Database {
  public:
    using Rows = std::vector<std::vector<Variant>>;

    /// Raises RuntimeError for a connection that has no transactions or prepares nothing.
    explicit Database(rdoConnection& connection);

    [[nodiscard]] const sql::Dialect& dialect() const { return dialect_; }
    [[nodiscard]] const sql::SqlSyntax& syntax() const { return dialect_.facts().syntax; }

    /// Has the statement read by the database and not run. Raises RuntimeError with the database's
    /// words.
    [[nodiscard]] StatementPlan plan(const std::string& sql) const { return planner_.prepare(sql); }
    /// Runs a statement and hands its rows over. Raises RuntimeError.
    void read(const std::string& sql, const std::function<void(rdoResultset&)>& visit) const;
    [[nodiscard]] Rows rows(const std::string& sql) const;

  private:
    rdoConnection& connection_;
    rdoSession& session_;
    rdoPlanner& planner_;
    const sql::Dialect& dialect_;
};

}  // namespace catalogador::checks
