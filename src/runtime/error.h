#pragma once
#include <cstdint>
#include <stdexcept>
#include <string>

namespace catalogador {

/// Numbers of the run-time errors the system itself raises.
namespace error_number {
constexpr std::int32_t invalidProcedureCall = 5;
constexpr std::int32_t overflow = 6;
constexpr std::int32_t subscriptOutOfRange = 9;
constexpr std::int32_t typeMismatch = 13;
constexpr std::int32_t objectNotSet = 91;
constexpr std::int32_t invalidPattern = 93;
constexpr std::int32_t invalidUseOfNull = 94;
constexpr std::int32_t cannotCreateObject = 429;
constexpr std::int32_t languageMissing = 9000;
/// What the data-access layer raises when the driver refuses a statement.
constexpr std::int32_t statementFailed = 40002;
/// The row to be written was changed or removed by another user since it was read.
constexpr std::int32_t rowChanged = 40044;
/// A column or a current row that does not exist was asked for.
constexpr std::int32_t noCurrentRow = 40009;
constexpr std::int32_t columnNotFound = 40041;
/// There is no sequence of that name, or it has given its last code.
constexpr std::int32_t noSequence = 40046;
constexpr std::int32_t sequenceUsedUp = 40047;
/// What was typed or stored would not stay a value in its statement, which was not run.
constexpr std::int32_t dataRefused = 40060;
}  // namespace error_number

/// Why a database refused something, as far as it tells.
enum class ErrorCause {
    unknown,
    /// The engine gave others precedence and undid the transaction, which may be done again.
    conflict,
    /// Another user holds what was asked for.
    locked,
    readOnly,
    full,
    /// The connection is gone, or the server is ending or not ready.
    lost,
    /// The connection was lost before a commit was answered: it may have happened or not.
    outcomeUnknown,
    sequenceMissing,
    sequenceUsedUp
};

/// The one exception of the system: a number, a description and, where it is known, the source.
class RuntimeError : public std::runtime_error {
  public:
    RuntimeError(std::int32_t number, const std::string& description, std::string source = {})
        : std::runtime_error(description), number_(number), source_(std::move(source)) {}
    RuntimeError(std::int32_t number, const std::string& description, ErrorCause cause)
        : std::runtime_error(description), number_(number), cause_(cause) {}

    [[nodiscard]] std::int32_t number() const noexcept { return number_; }
    [[nodiscard]] std::string description() const { return what(); }
    [[nodiscard]] const std::string& source() const noexcept { return source_; }
    [[nodiscard]] ErrorCause cause() const noexcept { return cause_; }

  private:
    std::int32_t number_;
    std::string source_;
    ErrorCause cause_ = ErrorCause::unknown;
};

/// The current error of the calling thread; {0, ""} when there is none. Set by whoever swallows an
/// error that a later message has to show, cleared when a procedure starts.
struct CurrentError {
    std::int32_t number = 0;
    std::string description;
    ErrorCause cause = ErrorCause::unknown;

    void clear() { *this = {}; }
};
CurrentError& currentError();

/// "number - description", the form in which every error is shown.
std::string errorText(std::int32_t number, const std::string& description);

}  // namespace catalogador
