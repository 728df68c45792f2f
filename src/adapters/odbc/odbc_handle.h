#pragma once

#include <cstdint>
#include <memory>
#include <string>

#include "adapters/sql/odbc_api.h"

namespace catalogador::odbc {

/// A handle of the driver manager, freed with its owner. A handle that was allocated on another
/// keeps that one, so a connection lives as long as the last of its statements.
class OdbcHandle {
  public:
    OdbcHandle() = default;
    /// Allocates a handle of that kind (SQL_HANDLE_…) on its parent, which for an environment is an
    /// empty handle. Raises RuntimeError (statementFailed).
    OdbcHandle(SQLSMALLINT kind, const OdbcHandle& parent);
    /// A handle that somebody else has made and will free.
    static OdbcHandle borrowed(SQLSMALLINT kind, SQLHANDLE handle);
    ~OdbcHandle() = default;
    OdbcHandle(OdbcHandle&& other) noexcept = default;
    OdbcHandle& operator=(OdbcHandle&& other) noexcept = default;
    OdbcHandle(const OdbcHandle&) = delete;
    OdbcHandle& operator=(const OdbcHandle&) = delete;

    [[nodiscard]] SQLHANDLE get() const { return owned_ ? owned_->handle : nullptr; }
    /// The database is left, without what was not committed, when the handle goes.
    void disconnectAtEnd() { owned_->connected = true; }

    /// What the driver last reported on the handle: "SQLSTATE: text", several joined by "; ".
    [[nodiscard]] std::string diagnostics() const;
    /// Raises RuntimeError (statementFailed) with the driver's text and the cause that it tells
    /// when `result` is a failure.
    void check(SQLRETURN result) const;

  private:
    struct Owned {
        Owned() = default;
        ~Owned();
        Owned(const Owned&) = delete;
        Owned& operator=(const Owned&) = delete;

        SQLSMALLINT kind = 0;
        SQLHANDLE handle = nullptr;
        bool borrowed = false;
        bool connected = false;
        std::shared_ptr<Owned> parent;
    };

    std::shared_ptr<Owned> owned_;
};

/// A whole number as the pointer argument in which the interface expects it.
SQLPOINTER attributeValue(std::uintptr_t value);

}  // namespace catalogador::odbc
