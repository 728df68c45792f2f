#include "adapters/services/code_sequences.h"

#include <limits>

#include "adapters/services/service_queries.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

constexpr std::int32_t lastCode = std::numeric_limits<std::int32_t>::max();
/// How often a draw is tried again when another client was faster.
constexpr int maximumTries = 100;

/// The update takes the row's lock, so that of several clients at once each reads its own number.
std::optional<std::int32_t> drawInTransaction(rdoConnection& connection, rdoSession& session,
                                              const std::string& name) {
    rdoTransaction transaction(session);
    const std::int64_t touched = session.run(
        "UPDATE genNumeradores SET NumUltimo = NumUltimo + 1 WHERE NumNombre = ? AND NumUltimo < " +
            decimalText(lastCode),
        {name});
    if (touched != 1) return std::nullopt;
    const auto rows =
        rowsWhere(connection, {"genNumeradores", {"NumUltimo"}, {{"NumNombre", name}}});
    if (rows.size() != 1) return std::nullopt;
    const std::int32_t code = toLong(rows.front().front(), Regional{});
    transaction.commit();
    return code;
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

}  // namespace

std::optional<std::int32_t> drawCode(rdoConnection& connection, const std::string& name) {
    if (rdoSession* session = connection.session())
        return drawInTransaction(connection, *session, name);
    for (int tries = 1;; ++tries) {
        try {
            return drawByValue(connection, name);
        } catch (const RuntimeError& error) {
            if (error.number() != error_number::rowChanged || tries == maximumTries) throw;
        }
    }
}

}  // namespace catalogador
