// The text of a statement, as each database reads it.
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>

#include "adapters/sql/select_condition.h"
#include "adapters/sql/statement_text.h"
#include "runtime/error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace catalogador;
    FuzzedDataProvider data(bytes, size);
    static const Dialect dialects[] = {Dialect::sqlite, Dialect::postgresql, Dialect::mariadb,
                                       Dialect::other};
    const sql::SqlSyntax syntax = sql::syntaxOf(data.PickValueInArray(dialects));
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
