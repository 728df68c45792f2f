#include "adapters/checks/record_facts.h"

#include <algorithm>

#include "adapters/checks/numbers.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

constexpr const char* table = "genCodigoTexto";

std::string textOf(const Variant& value) {
    return toTextOrEmpty(value, Regional{});
}

std::int64_t numberOf(const Variant& value) {
    return wholeNumber(textOf(value)).value_or(0);
}

void readCodes(const Database& database, std::map<std::int64_t, RecordFacts>& facts) {
    database.read("Select CTeIDTipoVista, CTeCodigo From genCodigoTexto", [&](rdoResultset& rows) {
        TextBlock views;
        TextBlock codes;
        while (!rows.atEnd()) {
            rows.shownTexts(0, Regional{}, views);
            std::vector<std::int64_t> numbers;
            for (const auto text : views.texts) numbers.push_back(wholeNumber(text).value_or(0));
            rows.shownTexts(1, Regional{}, codes);
            for (std::size_t i = 0; i < numbers.size(); ++i)
                if (const auto code = wholeNumber(codes.texts[i]))
                    facts[numbers[i]].codes.push_back(*code);
            rows.skipRows(numbers.size());
        }
    });
    for (auto& [view, records] : facts) std::sort(records.codes.begin(), records.codes.end());
}

void readLengths(const Database& database, const std::string& column, std::size_t index,
                 std::map<std::int64_t, RecordFacts>& facts) {
    const std::string length = std::string(database.dialect().facts().lengthFunction) + "(";
    for (const auto& row : database.rows("Select CTeIDTipoVista, Max(" + length + column +
                                         ")) From genCodigoTexto Group By CTeIDTipoVista"))
        facts[numberOf(row[0])].longest.at(index) = numberOf(row[1]);
}

void readValues(const Database& database, std::size_t index,
                std::map<std::int64_t, RecordFacts>& facts) {
    const std::string column = "CTeValor" + decimalText(static_cast<std::int64_t>(index) + 1);
    for (const auto& row : database.rows("Select Distinct CTeIDTipoVista, " + column +
                                         " From genCodigoTexto Where " + column + " Is Not Null"))
        facts[numberOf(row[0])].values.at(index).push_back(textOf(row[1]));
}

}  // namespace

std::map<std::int64_t, RecordFacts> readRecords(const Database& database,
                                                const SchemaFacts& schema) {
    std::map<std::int64_t, RecordFacts> facts;
    const auto has = [&](const std::string& column) {
        return schema.column(table, column) != nullptr;
    };
    if (!has("CTeIDTipoVista")) return facts;
    if (has("CTeCodigo")) readCodes(database, facts);
    if (has("CTeTextoCorto")) readLengths(database, "CTeTextoCorto", 0, facts);
    if (has("CTeTextoLargo")) readLengths(database, "CTeTextoLargo", 1, facts);
    for (std::size_t index = 0; index < 3; ++index)
        if (has("CTeValor" + decimalText(static_cast<std::int64_t>(index) + 1)))
            readValues(database, index, facts);
    return facts;
}

void forEachText(rdoResultset& rows, int column,
                 const std::function<void(std::string_view)>& each) {
    TextBlock block;
    while (!rows.atEnd()) {
        rows.shownTexts(column, Regional{}, block);
        for (const std::string_view text : block.texts) each(text);
        rows.skipRows(block.texts.size());
    }
}

}  // namespace catalogador::checks
