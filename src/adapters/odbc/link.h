#pragma once
#include <cstddef>
#include <functional>
#include <string>
#include <vector>

#include "adapters/odbc/defences.h"
#include "adapters/odbc/odbc_handle.h"
#include "adapters/sql/dialect.h"
#include "adapters/sql/timeouts.h"
#include "runtime/error.h"

namespace catalogador::odbc {

/// The connection that a session works on: how it is made, whether it was lost, and to which host
/// it can be made again. It runs no statements.
class Link {
  public:
    /// Does not connect yet. Raises RuntimeError (statementFailed).
    Link(const std::string& connectionString, const sql::Timeouts& timeouts,
         const Defences& defences);
    /// A connection that somebody else has opened and will close. It is not made again when it is
    /// lost, and its settings are left as they are.
    explicit Link(OdbcHandle borrowed);
    Link(const Link&) = delete;
    Link& operator=(const Link&) = delete;

    /// Connects to the host in use, or to the next in the list that takes connections. `setUp` is
    /// called on each new connection, and the next host is tried when it raises RuntimeError.
    /// Raises what the last host has raised; the driver's text shows no password.
    void connect(const std::function<void()>& setUp);
    /// The same, beginning with the next host, after a connection was lost; it counts as lost until
    /// setFound().
    void connectAgain(const std::function<void()>& setUp);

    [[nodiscard]] const OdbcHandle& connection() const { return connection_; }
    [[nodiscard]] const sql::Timeouts& timeouts() const { return timeouts_; }
    [[nodiscard]] const Defences& defences() const { return defences_; }
    /// The database, by what the driver tells of the connection in use.
    [[nodiscard]] const sql::Dialect& dialect() const { return *dialect_; }
    /// How the dialect is to set up a session on this connection.
    [[nodiscard]] sql::SessionSetUp setUp() const;

    /// What is known of the session on the connection in use.
    sql::SessionState state;

    [[nodiscard]] bool isBorrowed() const { return borrowed_; }
    /// From here on somebody else uses the connection too.
    void lend() { lent_ = true; }
    [[nodiscard]] bool isShared() const { return borrowed_ || lent_; }
    /// Whether the program sets what the database does in this session.
    [[nodiscard]] bool isGuarded() const { return !isShared() && defences_.engine; }

    [[nodiscard]] bool isLost() const { return lost_; }
    void setLost() { lost_ = true; }
    /// What was lost has been made again.
    void setFound() { lost_ = false; }
    /// Whether a failure, in a transaction or not, means that the connection is gone.
    [[nodiscard]] bool isLostBy(const RuntimeError& error, bool inTransaction) const;

    /// A commit was sent and not answered.
    void leaveUnanswered();
    /// The number of the session whose commit was not answered, if the connection in use leads to
    /// the same host; else empty. It is given once.
    [[nodiscard]] std::string takeUnanswered();

    /// A command on a connection of its own, which fails silently. May be called from any thread
    /// while the link is not being changed.
    void runBeside(const std::string& text) const;

  private:
    void connectTo(const std::string& connectionString);
    [[nodiscard]] OdbcHandle unconnected() const;
    void useNextHost() { host_ = (host_ + 1) % hosts_.size(); }

    std::string connectionString_;
    /// A connection string for each host that it names, and the one in use.
    std::vector<std::string> hosts_;
    std::size_t host_ = 0;
    sql::Timeouts timeouts_;
    Defences defences_;
    OdbcHandle environment_;
    OdbcHandle connection_;
    const sql::Dialect* dialect_ = &sql::standardDialect();
    std::string unanswered_;
    std::size_t unansweredHost_ = 0;
    bool borrowed_ = false;
    bool lent_ = false;
    bool lost_ = false;
};

}  // namespace catalogador::odbc
