#pragma once
#include <nlohmann/json.hpp>
#include <ostream>
#include <stdexcept>

#include "platform/rdo.h"
#include "runtime/variant.h"

namespace catalogador::script {

/// Keys stay in the order in which they are written.
using Json = nlohmann::ordered_json;

/// Null as null, booleans and numbers as such (a whole number without fraction), a date as
/// "YYYY-MM-DD HH:MM:SS".
Json jsonOf(const Variant& value);
/// One line; bytes that are no UTF-8 are replaced.
std::string lineOf(const Json& value);

/// What was printed did not get where it should.
class OutputFailed : public std::runtime_error {
  public:
    OutputFailed();
};

/// What happens on the screen, one JSON object a line, written out at once.
class Transcript {
  public:
    Transcript(std::ostream& out, bool traced) : out_(out), traced_(traced) {}

    void print(const Json& event);
    /// Prints an event that only traces show.
    void trace(const Json& event);
    /// For events that are too long to be held as one object. Ends with a line end.
    [[nodiscard]] std::ostream& stream() { return out_; }
    /// Raises OutputFailed when something printed before was lost; printing itself raises nothing.
    void check() const;

  private:
    std::ostream& out_;
    bool traced_;
};

/// Traces what goes through a connection as "statement" and "write" events.
class TranscriptStatements : public StatementListener {
  public:
    explicit TranscriptStatements(Transcript& transcript) : transcript_(transcript) {}

    void opened(const std::string& sql, int type, int lock) override;
    void executed(const std::string& sql) override;
    void written(std::string_view kind, const std::string& table,
                 const std::vector<std::pair<std::string, Variant>>& columns,
                 std::optional<bool> done) override;

    /// During its life nothing is traced: what the services of the host do inside is theirs.
    class Quiet {
      public:
        explicit Quiet(TranscriptStatements& statements) : statements_(statements) {
            ++statements_.quiet_;
        }
        ~Quiet() { --statements_.quiet_; }
        Quiet(const Quiet&) = delete;
        Quiet& operator=(const Quiet&) = delete;

      private:
        TranscriptStatements& statements_;
    };

  private:
    void trace(const Json& event);

    Transcript& transcript_;
    int quiet_ = 0;
};

}  // namespace catalogador::script
