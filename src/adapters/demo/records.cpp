#include "adapters/demo/records.h"

#include <algorithm>
#include <cstdint>
#include <map>
#include <nlohmann/json.hpp>
#include <string>
#include <unordered_map>
#include <utility>

#include "adapters/demo/metadata.h"
#include "runtime/error.h"

namespace catalogador::demo {

namespace {

using nlohmann::json;

constexpr int countriesView = 1;
constexpr int subdivisionsView = 2;
constexpr int currenciesView = 3;
constexpr int languagesView = 4;
constexpr int scriptsView = 5;

struct CodeRecord {
    int view = 0;
    std::int64_t code = 0;
    Variant shortText;
    Variant longText;
    Variant value1 = {};
    Variant value2 = {};
    Variant value3 = {};
    Variant flag = {};
};

/// Collects records as rows; all were last changed at one moment in the past.
class RecordRows {
  public:
    void add(CodeRecord record) {
        table_.rows.push_back({record.view, record.code, std::move(record.shortText),
                               std::move(record.longText), std::move(record.value1),
                               std::move(record.value2), std::move(record.value3),
                               std::move(record.flag), Date{2024, 3, 1, 9, 30, 0, 0}});
    }
    [[nodiscard]] TableRows take() { return std::move(table_); }

  private:
    TableRows table_{"genCodigoTexto",
                     "CTeIDTipoVista, CTeCodigo, CTeTextoCorto, CTeTextoLargo, CTeValor1, "
                     "CTeValor2, CTeValor3, CTeSiNo1, Modificado",
                     {}};
};

using CountryNumbers = std::unordered_map<std::string, int>;

/// The number of the country with whose letters a code begins, Null when there is none.
Variant countryOf(const CountryNumbers& countries, const std::string& code) {
    const auto found = countries.find(code.substr(0, 2));
    return found == countries.end() ? Variant() : Variant(found->second);
}

/// How many decimals a currency has: 2 unless the metadata says otherwise, Null for those that
/// are no money ("none").
Variant decimalsOf(const json& metadata, const std::string& alpha3) {
    for (const auto& [decimals, currencies] : metadata.at("currencyDecimals").items()) {
        if (std::find(currencies.begin(), currencies.end(), alpha3) == currencies.end()) continue;
        return decimals == "none" ? Variant() : Variant(std::stoi(decimals));
    }
    return 2;
}

void addSubdivisions(RecordRows& rows, const json& metadata, const IsoCodes& codes,
                     const CountryNumbers& countries) {
    std::unordered_map<std::string, int> kinds;
    std::int64_t code = 0;
    for (const IsoSubdivision& subdivision : codes.subdivisions) {
        auto [kind, isNew] = kinds.try_emplace(subdivision.kind, 0);
        if (isNew) kind->second = listCode(metadata, "subdivisionKinds", subdivision.kind);
        rows.add({subdivisionsView, ++code, subdivision.code, subdivision.name,
                  countryOf(countries, subdivision.code), kind->second});
    }
}

void addLanguages(RecordRows& rows, const json& metadata, const IsoCodes& codes) {
    std::int64_t code = 0;
    for (const IsoLanguage& language : codes.languages) {
        rows.add({languagesView, ++code, language.alpha3, language.name,
                  listCode(metadata, "languageScopes", language.scope),
                  listCode(metadata, "languageTypes", language.type), Null(),
                  language.hasTwoLetterCode});
    }
}

void addListed(RecordRows& rows, const json& view) {
    for (const json& record : view.value("records", json::array())) {
        rows.add({view.at("id").get<int>(), record.at(0).get<std::int64_t>(),
                  variantOf(record.at(1)), variantOf(record.at(2)), variantOf(record.at(3)),
                  variantOf(record.at(4)), variantOf(record.at(5)),
                  record.size() > 6 ? variantOf(record.at(6)) : Variant()});
    }
}

}  // namespace

TableRows codeRecords(const json& metadata, const IsoCodes& codes) {
    RecordRows rows;
    CountryNumbers countries;
    for (const IsoCountry& country : codes.countries) {
        countries.emplace(country.alpha2, country.number);
        rows.add({countriesView, country.number, country.alpha2, country.name});
    }
    addSubdivisions(rows, metadata, codes, countries);
    for (const IsoCurrency& currency : codes.currencies) {
        rows.add({currenciesView, currency.number, currency.alpha3, currency.name,
                  decimalsOf(metadata, currency.alpha3), countryOf(countries, currency.alpha3)});
    }
    addLanguages(rows, metadata, codes);
    std::int64_t code = 0;
    for (const IsoScript& script : codes.scripts) {
        rows.add({scriptsView, ++code, script.alpha4, script.name, script.number});
    }
    for (const json& view : metadata.at("views")) addListed(rows, view);
    return rows.take();
}

TableRows sequences(const json& metadata, const TableRows& records) {
    std::map<std::int64_t, std::int64_t> highest;
    for (const auto& row : records.rows) {
        std::int64_t& last = highest[*row.at(0).as<std::int64_t>()];
        last = std::max(last, *row.at(1).as<std::int64_t>());
    }
    TableRows table{"genNumeradores", "NumNombre, NumUltimo", {}};
    for (const json& view : metadata.at("views")) {
        table.rows.push_back(
            {variantOf(view.at("name")), highest[view.at("id").get<std::int64_t>()]});
    }
    return table;
}

}  // namespace catalogador::demo
