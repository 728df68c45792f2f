// The text of a statement, as each database reads it.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>
#include <functional>

#include "../sql/dialects.h"
#include "adapters/sql/select_condition.h"
#include "adapters/sql/statement_text.h"
#include "runtime/error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace catalogador;
    FuzzedDataProvider data(bytes, size);
    static const std::reference_wrapper<const sql::Dialect> all[] = {
        dialects::sqlite, dialects::postgresql, dialects::mariadb, dialects::other};
    const sql::SqlSyntax syntax = data.PickValueInArray(all).get().facts().syntax;
    const std::string sql = data.ConsumeRemainingBytesAsString();
    sql::writableTable(sql, syntax);
    sql::selectItems(sql, syntax);
    sql::selectCondition(sql::withoutComments(sql, syntax), syntax);
    try {
        const std::string one = sql::singleStatement(sql, syntax);
        // What was let through as one statement has no second one.
        for (const sql::SqlToken& token : sql::tokensOf(one, syntax))
            if (token.kind == sql::TokenKind::separator) std::abort();
        if (sql::singleStatement(one, syntax) != one) std::abort();
    } catch (const RuntimeError& error) {
        if (error.number() != error_number::statementFailed) throw;
    }
    return 0;
}
