#pragma once
#include <string>

#include "platform/rdo.h"

namespace catalogador {

/// What is known of a statement that was read and not run.
struct StatementPlan {
    /// Whether it could do anything but give rows.
    bool writes = false;
    /// The one table that its rows come from and can be deleted from; empty when there is none.
    std::string table;
};

/// What a session offers besides to whoever only looks at a database. A session that offers it is
/// one of these too.
class rdoPlanner {
  public:
    virtual ~rdoPlanner() = default;

    /// Has the database read one statement and look up what it names, without running it. One that
    /// changes anything but rows (tables, for one) is not even handed to the database. Raises the
    /// error that running it would raise, as far as that can be known.
    virtual StatementPlan prepare(const std::string& sql) = 0;
    /// Begins a transaction in which the database itself refuses to write; it ends with rollback()
    /// of the session. Not inside of another.
    virtual void beginReading() = 0;
};

/// A transaction that can only read, over with its owner.
class rdoReading {
  public:
    rdoReading(rdoSession& session, rdoPlanner& planner) : session_(session) {
        planner.beginReading();
    }
    ~rdoReading();
    rdoReading(const rdoReading&) = delete;
    rdoReading& operator=(const rdoReading&) = delete;

  private:
    rdoSession& session_;
};

}  // namespace catalogador
