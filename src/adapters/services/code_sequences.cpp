#include "adapters/services/code_sequences.h"

#include <limits>
#include <optional>

#include "adapters/services/service_queries.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr std::int32_t lastCode = std::numeric_limits<std::int32_t>::max();
/// How often a draw is tried again when another client was faster.
constexpr int maximumTries = 100;
/// How often it is tried at all when the answer to its commit was lost.
constexpr int maximumTriesAfterLoss = 2;

RuntimeError ambiguousName(const std::string& name) {
    return {error_number::noSequence, "The name " + name + " stands twice in genNumeradores"};
}

/// False when there is no row to update.
bool updatesItsRow(rdoSession& session, const std::string& name, const std::string& sql) {
    const std::int64_t touched = session.run(sql, {name});
    if (touched > 1) throw ambiguousName(name);
    return touched == 1;
}

/// Takes the next code in one statement that carries its value: a second one would not have to see
/// the same row, as on a cluster whose nodes check each other's writes at the commit only.
std::vector<std::vector<Variant>> takeNext(rdoSession& session, const std::string& name) {
    const std::string condition = " WHERE NumNombre = ? AND NumUltimo < " + decimalText(lastCode);
    switch (session.dialect()) {
        case Dialect::postgresql:
            return session.query("UPDATE genNumeradores SET NumUltimo = NumUltimo + 1" + condition +
                                     " RETURNING NumUltimo",
                                 {name});
        case Dialect::mariadb:
            if (!updatesItsRow(session, name,
                               "UPDATE genNumeradores SET NumUltimo = LAST_INSERT_ID(NumUltimo + "
                               "1)" +
                                   condition))
                return {};
            return session.query("SELECT LAST_INSERT_ID()");
        default:
            // The update holds the row until the commit, in SQLite all rows, so what is read is
            // what was written.
            if (!updatesItsRow(session, name,
                               "UPDATE genNumeradores SET NumUltimo = NumUltimo + 1" + condition))
                return {};
            return session.query("SELECT NumUltimo FROM genNumeradores WHERE NumNombre = ?",
                                 {name});
    }
}

std::optional<std::int32_t> drawInTransaction(rdoSession& session, const std::string& name) {
    std::optional<std::int32_t> code;
    // A code that was drawn twice because the first answer was lost is left unused.
    for (int tries = 1;; ++tries) {
        try {
            inTransaction(session, [&] {
                const auto rows = takeNext(session, name);
                code.reset();
                if (rows.size() > 1) throw ambiguousName(name);
                if (rows.size() == 1) code = toLong(rows.front().front(), Regional{});
            });
            return code;
        } catch (const RuntimeError& error) {
            if (error.cause() != ErrorCause::outcomeUnknown || tries == maximumTriesAfterLoss)
                throw;
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

bool isNameOfSequence(rdoConnection& connection, const std::string& name) {
    return !rowsWhere(connection, {"genNumeradores", {"NumUltimo"}, {{"NumNombre", name}}}).empty();
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
    // To MariaDB another spelling is the same name, but not here.
    if (session != nullptr && session->dialect() == Dialect::mariadb &&
        !isNameOfSequence(connection, name))
        throw nothingDrawn(connection, name);
    const auto code =
        session != nullptr ? drawInTransaction(*session, name) : drawByValues(connection, name);
    if (!code) throw nothingDrawn(connection, name);
    return *code;
}

}  // namespace catalogador
