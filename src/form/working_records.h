#pragma once
#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/rdo.h"
#include "platform/sql_text.h"

namespace catalogador {

/// The statement and the rows that the procedures of the form work on, one after another.
class WorkingRecords {
  public:
    enum class Purpose { reading, writing };
    /// Says in the screen's language why a text cannot be used.
    using Refusal = std::function<RuntimeError(const DataRefused&)>;

    /// `connection` and `regional` must outlive the object; the connection may be set and taken
    /// away at any time.
    WorkingRecords(rdoConnection* const& connection, const Regional& regional, Refusal refusal)
        : connection_(connection), regional_(regional), refusal_(std::move(refusal)) {}

    SqlText mstrSQL;
    std::unique_ptr<rdoResultset> mrdoRegistro;

    /// Opens mstrSQL as mrdoRegistro. Raises RuntimeError: objectNotSet without a connection, what
    /// data access raises otherwise.
    void open(Purpose purpose = Purpose::reading);
    /// Opens mstrSQL and closes it; whether there was a row. Raises as open().
    bool findsRow();

    /// The text of a column of the current row; Null gives the empty text.
    [[nodiscard]] std::string textOrEmpty(const char* column) const;
    /// The modification stamp of the current row; 1900-01-01 for Null. Raises typeMismatch for
    /// what is no date.
    [[nodiscard]] Date stamp() const;

    /// Has `look` find out, with rows of its own, whether the write is stored whose answer was
    /// lost, tells data access what it gives, and gives it back.
    std::optional<bool> outcomeOfWrite(const std::function<std::optional<bool>()>& look);
    /// Reads the record again after a write that found it changed. Gives the number of the message
    /// that says what happened to it.
    std::int32_t conflict();

  private:
    rdoConnection* const& connection_;
    const Regional& regional_;
    Refusal refusal_;
};

}  // namespace catalogador
