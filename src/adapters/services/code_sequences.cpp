#include "adapters/services/code_sequences.h"

#include <limits>
#include <optional>

#include "adapters/services/service_queries.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::services {

namespace {

constexpr std::int32_t lastCode = std::numeric_limits<std::int32_t>::max();
/// How often a draw is tried again when another client was faster.
constexpr int maximumTries = 100;
/// How often it is tried at all when the connection is lost on the way.
constexpr int maximumTriesAfterLoss = 2;

RuntimeError ambiguousName(const std::string& name) {
    return {error_number::noSequence, "The name " + name + " stands twice in genNumeradores"};
}

/// False when there is no row to update.
bool updatesItsRow(rdoSession& session, const std::string& name, const std::string& assignment) {
    const std::int64_t touched =
        session.run("UPDATE genNumeradores SET NumUltimo = " + assignment +
                        " WHERE NumNombre = ? AND NumUltimo < " + decimalText(lastCode),
                    {name});
    if (touched > 1) throw ambiguousName(name);
    return touched == 1;
}

std::vector<std::vector<Variant>> takeNext(rdoSession& session, const std::string& name) {
    if (session.dialect().drawing() == Drawing::returning)
        return session.query(
            "UPDATE genNumeradores SET NumUltimo = NumUltimo + 1 WHERE NumNombre = ? AND NumUltimo "
            "< " +
                decimalText(lastCode) + " RETURNING NumUltimo",
            {name});
    // The update holds the row until the commit, in SQLite all rows, so what is read is what was
    // written.
    if (!updatesItsRow(session, name, "NumUltimo + 1")) return {};
    return session.query("SELECT NumUltimo FROM genNumeradores WHERE NumNombre = ?", {name});
}

std::optional<std::int32_t> drawInTransaction(rdoSession& session, const std::string& name) {
    std::optional<std::int32_t> code;
    inTransaction(session, [&] {
        const auto rows = takeNext(session, name);
        code.reset();
        if (rows.size() > 1) throw ambiguousName(name);
        if (rows.size() == 1) code = toLong(rows.front().front(), Regional{});
    });
    return code;
}

/// To MariaDB another spelling is the same name, but not here.
bool isNameOfSequence(rdoSession& session, const std::string& name) {
    const auto rows =
        session.query("SELECT NumNombre FROM genNumeradores WHERE NumNombre = ?", {name});
    if (rows.size() > 1) throw ambiguousName(name);
    return rows.size() == 1 && rows.front().front() == Variant(name);
}

/// In a statement that commits itself. When a cluster undoes a transaction while a query in it
/// runs, its commit is answered all the same, and the other node hands out the same code.
std::optional<std::int32_t> drawOfSession(rdoSession& session, const std::string& name) {
    if (!isNameOfSequence(session, name)) return std::nullopt;
    bool taken = false;
    retryConflicts(session,
                   [&] { taken = updatesItsRow(session, name, "LAST_INSERT_ID(NumUltimo + 1)"); });
    if (!taken) return std::nullopt;
    const auto rows = session.query("SELECT LAST_INSERT_ID()");
    const std::int32_t code = toLong(rows.at(0).at(0), Regional{});
    if (code > 0) return code;
    throw RuntimeError(error_number::statementFailed,
                       "The connection was lost before it told which code was drawn",
                       ErrorCause::lost);
}

std::optional<std::int32_t> drawInSession(rdoSession& session, const std::string& name) {
    const auto draw =
        session.dialect().drawing() == Drawing::inSession ? drawOfSession : drawInTransaction;
    // A code that was drawn on a connection that was lost since is left unused.
    for (int tries = 1;; ++tries) {
        try {
            return draw(session, name);
        } catch (const RuntimeError& error) {
            const bool lost = error.cause() == ErrorCause::outcomeUnknown ||
                              (error.cause() == ErrorCause::lost && !session.inTransaction());
            if (!lost || tries == maximumTriesAfterLoss) throw;
        }
    }
}

/// Without transactions the row is taken by its value: who finds it changed reads it again.
std::optional<std::int32_t> drawByValue(rdoConnection& connection, const std::string& name) {
    const auto rows = connection.OpenResultset("Select * From genNumeradores");
    while (!rows->atEnd() && rows->value("NumNombre") != Variant(name)) rows->MoveNext();
    if (rows->atEnd() || rows->value("NumUltimo").isNull()) return std::nullopt;
    const std::int32_t last = toLong(rows->value("NumUltimo"), Regional{});
    if (last == lastCode) return std::nullopt;
    rows->Edit();
    rows->setValue("NumUltimo", last + 1);
    rows->Update();
    return last + 1;
}

/// What a draw that found no row to take a code from means.
RuntimeError nothingDrawn(rdoConnection& connection, const std::string& name) {
    const auto rows =
        rowsWhere(connection, {"genNumeradores", {"NumUltimo"}, {{"NumNombre", name}}});
    if (rows.size() > 1) return ambiguousName(name);
    const bool usedUp = !rows.empty() && !rows.front().front().isNull();
    if (usedUp)
        return {error_number::sequenceUsedUp, "The last code of " + name + " was drawn",
                ErrorCause::sequenceUsedUp};
    return {error_number::noSequence, "genNumeradores has no number for " + name,
            ErrorCause::sequenceMissing};
}

std::optional<std::int32_t> drawByValues(rdoConnection& connection, const std::string& name) {
    for (int tries = 1;; ++tries) {
        try {
            return drawByValue(connection, name);
        } catch (const RuntimeError& error) {
            if (error.number() != error_number::rowChanged || tries == maximumTries) throw;
        }
    }
}

}  // namespace

std::int32_t drawCode(rdoConnection& connection, const std::string& name) {
    rdoSession* session = connection.session();
    const auto code =
        session != nullptr ? drawInSession(*session, name) : drawByValues(connection, name);
    if (!code) throw nothingDrawn(connection, name);
    return *code;
}

}  // namespace catalogador::services
