#pragma once

namespace catalogador::sqlite {

/// What a statement may do.
enum class Access {
    /// Read tables.
    reading,
    /// Read tables, and what SQLite tells of their columns and keys.
    describing,
    /// Read tables, and write their rows.
    writing,
    /// Whatever SQLite does.
    everything
};

/// Whether a statement may do what SQLite asks its authorizer about: `action` is its code, the
/// others are what stands beside it and may be null.
bool isAllowed(Access access, int action, const char* first, const char* second);

}  // namespace catalogador::sqlite
