#pragma once
#include <fuzzer/FuzzedDataProvider.h>

#include <cstdlib>
#include <iostream>
#include <string>
#include <vector>

#include "adapters/sql/data_check.h"

namespace catalogador::fuzz {

/// A statement with data in it, and the same with a digit in the data's place.
struct HostileStatement {
    SqlText sql;
    std::string plain;
};

/// The quotes that a database has around texts, each as it begins and ends them.
struct Quotes {
    std::string open;
    std::string close;
};

/// "Select …" with two pieces of the same data, each between quotes of which one is of `quotes`,
/// and whatever bytes before, between and behind them.
inline HostileStatement hostileStatement(FuzzedDataProvider& bytes,
                                         const std::vector<Quotes>& quotes) {
    constexpr std::size_t longest = 40;
    const Quotes& around = quotes[bytes.ConsumeIntegralInRange<std::size_t>(0, quotes.size() - 1)];
    const bool random = bytes.ConsumeBool();
    const auto piece = [&](const char* usual) {
        return random ? bytes.ConsumeRandomLengthString(longest) : std::string(usual);
    };
    const std::string before = "Select " + piece("") + around.open;
    const std::string between = around.close + piece(" a, ") + around.open;
    const std::string behind = around.close + piece(" b, 'END' c");
    const SqlText data = SqlText::ofData(bytes.ConsumeRemainingBytesAsString());
    return {before + data + between + data + behind, before + "0" + between + "0" + behind};
}

/// Ends the fuzzer's run with what it has found.
[[noreturn]] inline void report(const HostileStatement& statement, const std::string& expected,
                                const std::string& found) {
    std::cerr << statement.plain << "\nis read as " << expected << "\n"
              << statement.sql.text() << "\nis read as " << found << "\n";
    std::abort();
}

/// Whether the statement would be handed to the database, for more than digits, which may be a part
/// of a name.
inline bool isLetThrough(const SqlText& sql, const sql::SqlSyntax& syntax) {
    const auto pieces = sql.data();
    if (pieces.empty()) return false;
    const auto data = sql.text().substr(pieces[0].start, pieces[0].length);
    if (data.find_first_not_of("0123456789") == std::string::npos) return false;
    try {
        sql::requireDataStaysData(sql, syntax);
        return true;
    } catch (const DataRefused&) {
        return false;
    }
}

}  // namespace catalogador::fuzz
