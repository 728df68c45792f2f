#include "adapters/sql/dialect.h"

#include <algorithm>

#include "adapters/sql/odbc_api.h"
#include "adapters/sql/row_identity.h"
#include "runtime/text.h"

namespace catalogador::sql {

ColumnKind kindOfCode(int sqlType) {
    switch (sqlType) {
        case SQL_BIT:
            return ColumnKind::boolean;
        case SQL_TINYINT:
        case SQL_SMALLINT:
        case SQL_INTEGER:
        case SQL_BIGINT:
            return ColumnKind::integer;
        case SQL_NUMERIC:
        case SQL_DECIMAL:
            return ColumnKind::decimal;
        case SQL_REAL:
            return ColumnKind::single;
        case SQL_FLOAT:
        case SQL_DOUBLE:
            return ColumnKind::real;
        case SQL_DATE:
        case SQL_TYPE_DATE:
            return ColumnKind::date;
        case SQL_TIME:
        case SQL_TYPE_TIME:
            return ColumnKind::time;
        case SQL_TIMESTAMP:
        case SQL_TYPE_TIMESTAMP:
            return ColumnKind::timestamp;
        case SQL_CHAR:
        case SQL_VARCHAR:
        case SQL_LONGVARCHAR:
        case SQL_WCHAR:
        case SQL_WVARCHAR:
        case SQL_WLONGVARCHAR:
            return ColumnKind::text;
        case SQL_BINARY:
        case SQL_VARBINARY:
        case SQL_LONGVARBINARY:
            return ColumnKind::binary;
        default:
            return ColumnKind::other;
    }
}

std::string Dialect::quotedName(const std::string& name) const {
    const std::string quote(1, facts_.nameQuote);
    return quote + replaceText(name, quote, quote + quote, Compare::binary) + quote;
}

ColumnKind Dialect::columnKind(int sqlType, std::string_view /*typeName*/) const {
    return kindOfCode(sqlType);
}

bool Dialect::isComparable(const ColumnInfo& column) const {
    return !column.baseName.empty() && column.kind != ColumnKind::binary;
}

std::string Dialect::equals(const std::string& name, const ColumnInfo& column) const {
    return column.kind == ColumnKind::text ? equalsText(name) : name + " = ?";
}

std::string Dialect::equalsText(const std::string& name) const {
    return name + " = ?";
}

RowIdentity Dialect::rowIdentity(SqlSession& /*session*/, const std::string& /*table*/) const {
    RowIdentity identity;
    for (const std::string_view column : facts_.rowAddress)
        if (!column.empty()) identity.columns.emplace_back(column);
    identity.lasting = facts_.rowAddressLasts;
    return identity;
}

SessionState Dialect::setUp(SessionCommands& /*commands*/, const SessionSetUp& /*how*/) const {
    return {.syntax = facts_.syntax};
}

void Dialect::joinCluster(SessionCommands& /*commands*/, const SessionSetUp& /*how*/) const {}

std::optional<SessionState> Dialect::currentState(SessionCommands& /*commands*/) const {
    return std::nullopt;
}

std::string Dialect::accessStatement(Access /*access*/) const {
    return {};
}

std::string Dialect::beginCheck(bool /*limits*/) const {
    return {};
}

std::string_view Dialect::refusal(std::string_view /*text*/, const SqlSyntax& /*syntax*/) const {
    return {};
}

bool Dialect::mustHaveColumns(std::string_view /*text*/, const SqlSyntax& /*syntax*/) const {
    return false;
}

Preparation Dialect::preparation(const std::string& /*text*/, const SqlSyntax& /*syntax*/) const {
    return {};
}

std::string Dialect::cancelStatement(const std::string& /*process*/) const {
    return {};
}

std::string Dialect::endSessionStatement(const std::string& /*process*/) const {
    return {};
}

std::optional<ErrorCause> Dialect::causeOf(int /*number*/) const {
    return std::nullopt;
}

std::vector<std::pair<std::string_view, std::string>> Dialect::timeoutEntries(
    const Timeouts& /*timeouts*/) const {
    return {};
}

std::string Dialect::oneCommandEntries(const std::vector<ConnectionEntry>& /*entries*/) const {
    return {};
}

const Dialect* dialectNamed(std::string_view name) {
    const auto all = dialects();
    const auto found = std::find_if(all.begin(), all.end(), [&](const Dialect* dialect) {
        return dialect->facts().name == name;
    });
    return found == all.end() ? nullptr : *found;
}

const Dialect& dialectOfProduct(std::string_view product) {
    for (const Dialect* dialect : dialects())
        for (const std::string_view part : dialect->facts().products)
            if (!part.empty() && containsText(product, part, Compare::text)) return *dialect;
    return standardDialect();
}

const Dialect& dialectOf(const rdoSession& session) {
    for (const Dialect* dialect : dialects())
        if (*dialect == session.dialect()) return *dialect;
    return standardDialect();
}

namespace {

DialectFacts standardFacts() {
    DialectFacts facts;
    facts.syntax.unknown = true;
    // The queries of most servers.
    facts.columnsQuery =
        "Select table_name, column_name, data_type, character_maximum_length, "
        "datetime_precision From information_schema.columns "
        "Where table_schema = Database()";
    facts.keysQuery =
        "Select table_name, index_name, column_name From information_schema.statistics "
        "Where table_schema = Database() And non_unique = 0";
    return facts;
}

}  // namespace

const Dialect& standardDialect() {
    static const Dialect standard(standardFacts());
    return standard;
}

}  // namespace catalogador::sql
