#include "adapters/demo/metadata.h"

#include <algorithm>
#include <cstdint>
#include <nlohmann/json.hpp>
#include <string_view>

#include "runtime/error.h"

namespace catalogador::demo {

/// Generated from demo/views.json.
extern const char* const demoMetadataText;

namespace {

using nlohmann::json;

const json& listOf(const json& metadata, const std::string& list) {
    const json& lists = metadata.at("lists");
    if (!lists.contains(list)) {
        throw RuntimeError(error_number::invalidProcedureCall, "There is no list " + list + ".");
    }
    return lists.at(list);
}

Variant optionalValue(const json& object, const char* key) {
    return object.contains(key) ? variantOf(object.at(key)) : Variant();
}

std::string caseExpression(const json& metadata, const std::string& list,
                           const std::string& column) {
    std::string sql = "Case " + column;
    for (const json& entry : listOf(metadata, list)) {
        sql += " When " + std::to_string(entry.at("code").get<int>()) + " Then " +
               sqlLiteral(entry.at("name").get<std::string>());
    }
    return sql + " End";
}

/// The index-th part of each grid column (header, width, alignment code), separated by "|".
std::string columnParts(const json& view, std::size_t index) {
    std::string parts;
    for (const json& column : view.at("columns")) {
        const json& part = column.at(index);
        if (!parts.empty()) parts += "|";
        parts += part.is_string() ? part.get<std::string>() : part.dump();
    }
    return parts;
}

std::vector<Variant> viewRow(const json& metadata, const json& view) {
    return {variantOf(view.at("id")),
            variantOf(view.at("title")),
            variantOf(view.at("name")),
            expandLists(metadata, view.at("query").get<std::string>()),
            columnParts(view, 0),
            columnParts(view, 1),
            columnParts(view, 2),
            variantOf(view.at("width")),
            optionalValue(view, "duplicates"),
            optionalValue(view, "help"),
            optionalValue(view, "access")};
}

std::vector<Variant> fieldRow(const json& metadata, const json& view, const json& field) {
    return {variantOf(view.at("id")),
            variantOf(field.at("key")),
            variantOf(field.at("caption")),
            optionalValue(field, "length"),
            field.value("required", 0),
            field.value("duplicate", 0),
            optionalValue(field, "f2"),
            optionalValue(field, "kind"),
            field.contains("list") ? Variant(listItems(metadata, field.at("list")))
                                   : optionalValue(field, "data")};
}

}  // namespace

const json& demoMetadata() {
    static const json metadata = json::parse(demoMetadataText);
    return metadata;
}

int listCode(const json& metadata, const std::string& list, const std::string& isoName) {
    const json& entries = listOf(metadata, list);
    for (const json& entry : entries) {
        const json names = entry.value("iso", json::array());
        if (std::find(names.begin(), names.end(), isoName) != names.end()) {
            return entry.at("code").get<int>();
        }
    }
    return entries.back().at("code").get<int>();
}

std::string listItems(const json& metadata, const std::string& list) {
    std::string items;
    for (const json& entry : listOf(metadata, list)) {
        if (!items.empty()) items += ";";
        items +=
            std::to_string(entry.at("code").get<int>()) + "," + entry.at("name").get<std::string>();
    }
    return items;
}

std::string expandLists(const json& metadata, const std::string& query) {
    constexpr std::string_view open = "{{";
    constexpr std::string_view close = "}}";
    std::string result;
    std::size_t done = 0;
    for (auto start = query.find(open); start != std::string::npos;
         start = query.find(open, done)) {
        const auto blank = query.find(' ', start);
        const auto end = query.find(close, start);
        if (end == std::string::npos || blank > end) {
            throw RuntimeError(error_number::invalidProcedureCall, "Incomplete list in: " + query);
        }
        const auto nameStart = start + open.size();
        result += query.substr(done, start - done) +
                  caseExpression(metadata, query.substr(nameStart, blank - nameStart),
                                 query.substr(blank + 1, end - blank - 1));
        done = end + close.size();
    }
    return result + query.substr(done);
}

std::vector<TableRows> viewRows(const json& metadata) {
    TableRows views{"Catalogador",
                    "ABMIDFormVista, ABMTitulo, ABMNombreVista, ABMConsulta, ABMColumnasNombre, "
                    "ABMColumnasAncho, ABMColumnasAlineacion, ABMAnchoForm, "
                    "ABMSQLValidarDuplicados, ABMIDAyuda, ABMValidarAcceso",
                    {}};
    TableRows fields{"CatalogadorControles",
                     "ACoIDFormVista, ACoKeyControl, ACoCaption, ACoLen, ACoObligatorio, "
                     "ACoDuplicado, ACoAccionF2, ACoTipo, ACoDatosCombo",
                     {}};
    for (const json& view : metadata.at("views")) {
        views.rows.push_back(viewRow(metadata, view));
        for (const json& field : view.at("fields")) {
            fields.rows.push_back(fieldRow(metadata, view, field));
        }
    }
    return {views, fields};
}

Variant variantOf(const json& value) {
    if (value.is_null()) return {};
    if (value.is_boolean()) return value.get<bool>();
    if (value.is_number_integer()) return value.get<std::int64_t>();
    if (value.is_number()) return value.get<double>();
    return value.get<std::string>();
}

}  // namespace catalogador::demo
