#include <algorithm>

#include "adapters/checks/context.h"
#include "adapters/checks/field_rules.h"
#include "adapters/checks/sql_reading.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::checks {

namespace {

constexpr const char* column = "ABMSQLValidarDuplicados";
constexpr const char* codePlaceholder = "[Codigo]";
constexpr std::string_view textPlaceholders[] = {"[TextoCorto]", "[TextoLargo]"};

std::string placeholderOf(std::string_view key) {
    return "[" + std::string(key) + "]";
}

bool has(const std::string& sql, std::string_view placeholder) {
    return containsText(sql, placeholder, Compare::text);
}

/// The statement as the screen runs it for a new record with short texts.
std::string statementOf(const Context& context, std::string sql) {
    const auto put = [&](std::string_view placeholder, const std::string& value) {
        sql = replaceText(sql, placeholder, value, Compare::text);
    };
    put(codePlaceholder, "0");
    for (const std::string_view placeholder : textPlaceholders) put(placeholder, "a");
    for (const std::string_view key : fieldKeys) put(placeholderOf(key), "0");
    put("[prmIdEmpresa]", decimalText(context.options.company));
    put("[prm99]", "0");
    return sql;
}

bool looksAtRecord(const std::string& sql) {
    return std::any_of(std::begin(fieldKeys), std::end(fieldKeys),
                       [&](std::string_view key) { return has(sql, placeholderOf(key)); });
}

/// Gives whether all texts stand in quotes.
bool checkQuotes(const Context& context, const Place& place, const std::string& sql) {
    for (const std::string_view placeholder : textPlaceholders) {
        if (insideQuotes(sql, placeholder)) continue;
        context.findings.add(kind::duplicatesQuotes, place, placeholder);
        return false;
    }
    return true;
}

void checkFieldsNamed(const Context& context, const ViewRow& view, const Place& place,
                      const std::string& sql) {
    for (const std::string_view key : fieldKeys) {
        if (!has(sql, placeholderOf(key))) continue;
        const FieldRow* field = view.field(key);
        if (field == nullptr || kindOf(*field) == FieldKind::hidden)
            context.findings.add(kind::duplicatesHiddenField, place, placeholderOf(key));
    }
}

void checkMeaning(const Context& context, const ViewRow& view, const Place& place,
                  const std::string& sql) {
    if (!looksAtRecord(sql)) {
        context.findings.add(kind::duplicatesWithoutPlaceholder, place);
        return;
    }
    if (!has(sql, codePlaceholder) || !comparedAsDifferent(sql, codePlaceholder))
        context.findings.add(kind::duplicatesWithoutCode, place);
    checkFieldsNamed(context, view, place, sql);
    const auto named = viewsOfFirstColumn(sql, context.database.syntax());
    if (!named.empty() && std::find(named.begin(), named.end(), view.number) == named.end())
        context.findings.add(kind::duplicatesOtherView, place, decimalText(named.front()));
}

}  // namespace

void checkDuplicateRule(const Context& context, const ViewRow& view) {
    const std::string& sql = orEmpty(view.duplicates);
    if (sql.empty()) return;
    const Place place = ofView(view, column);
    if (!checkQuotes(context, place, sql)) return;
    try {
        if (context.database.plan(statementOf(context, sql)).writes) {
            context.findings.add(kind::duplicatesWrite, place);
            return;
        }
    } catch (const RuntimeError& error) {
        context.findings.add(kind::duplicatesFail, place, error.description());
        return;
    }
    checkMeaning(context, view, place, sql);
}

}  // namespace catalogador::checks
