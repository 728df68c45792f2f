#pragma once
#include <string_view>

namespace catalogador {

/// How the next code of a sequence is drawn so that no two clients get the same one.
enum class Drawing {
    /// An UPDATE and a SELECT in one transaction, which keeps others from the row.
    inTransaction,
    /// An UPDATE … RETURNING in a transaction.
    returning,
    /// An UPDATE that commits itself and leaves the code in the session (LAST_INSERT_ID).
    inSession
};

/// What the program's own services have to know of a database. There is one object for each
/// database, which lives as long as the program.
class rdoDialect {
  public:
    rdoDialect() = default;
    virtual ~rdoDialect() = default;
    rdoDialect(const rdoDialect&) = delete;
    rdoDialect& operator=(const rdoDialect&) = delete;

    /// The query of the server's local date and time, in one row and column; empty where the server
    /// is this machine.
    [[nodiscard]] virtual std::string_view clock() const = 0;
    [[nodiscard]] virtual Drawing drawing() const = 0;

    friend bool operator==(const rdoDialect& left, const rdoDialect& right) {
        return &left == &right;
    }
};

}  // namespace catalogador
