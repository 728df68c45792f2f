#include "adapters/odbc/result.h"

#include <algorithm>

#include "adapters/odbc/driver_text.h"
#include "adapters/odbc/odbc_rows.h"
#include "adapters/sql/statement_text.h"

namespace catalogador::odbc {

namespace {

sql::ColumnInfo columnInfo(const Statement& statement, const sql::Dialect& dialect,
                           SQLUSMALLINT number) {
    DescribedColumn described;
    statement.check(describeColumn(statement.get(), number, described));
    sql::ColumnInfo column;
    column.name = described.name;
    // Drivers give a computed column a name, but no table.
    if (!columnText(statement.get(), number, SQL_DESC_BASE_TABLE_NAME).empty())
        column.baseName = columnText(statement.get(), number, SQL_DESC_BASE_COLUMN_NAME);
    column.typeName = columnText(statement.get(), number, SQL_DESC_TYPE_NAME);
    column.sqlType = described.type;
    column.reportedLength = static_cast<std::size_t>(described.size);
    column.kind = dialect.columnKind(described.type, column.typeName);
    return column;
}

/// Gives columns their own names where the driver takes an alias for the name. Next to a "*" the
/// position of a column is known only from the nearer end of the list.
void resolveAliases(std::vector<sql::ColumnInfo>& columns,
                    const std::vector<sql::SelectItem>& items) {
    const auto resolve = [](sql::ColumnInfo& column, const sql::SelectItem& item) {
        if (!column.baseName.empty() && !item.aliasedColumn.empty())
            column.baseName = item.aliasedColumn;
    };
    const auto isStar = [](const sql::SelectItem& item) { return item.isStar; };
    const auto star = std::find_if(items.begin(), items.end(), isStar);
    auto column = columns.begin();
    for (auto item = items.begin(); item != star && column != columns.end(); ++item)
        resolve(*column++, *item);
    if (star == items.end()) return;
    const auto lastStar = std::find_if(items.rbegin(), items.rend(), isStar);
    auto fromEnd = columns.rbegin();
    for (auto item = items.rbegin(); item != lastStar && fromEnd != columns.rend(); ++item)
        resolve(*fromEnd++, *item);
}

}  // namespace

std::vector<sql::ColumnInfo> columnsOf(const Statement& statement, const sql::Dialect& dialect,
                                       const sql::SqlSyntax& syntax, const std::string& sql) {
    SQLSMALLINT count = 0;
    statement.check(SQLNumResultCols(statement.get(), &count));
    std::vector<sql::ColumnInfo> columns;
    for (SQLSMALLINT number = 1; number <= count; ++number)
        columns.push_back(columnInfo(statement, dialect, static_cast<SQLUSMALLINT>(number)));
    const bool namesUnknown =
        std::all_of(columns.begin(), columns.end(),
                    [](const sql::ColumnInfo& c) { return c.baseName.empty(); });
    if (namesUnknown && !dialect.facts().reportsBaseNames)
        for (sql::ColumnInfo& column : columns) column.baseName = column.name;
    if (dialect.facts().hidesNamesBehindAliases)
        resolveAliases(columns, sql::selectItems(sql, syntax));
    return columns;
}

std::vector<std::vector<Variant>> rowsOf(const Statement& statement, const sql::Dialect& dialect,
                                         const sql::SqlSyntax& syntax, const std::string& sql) {
    std::vector<std::vector<Variant>> rows;
    SQLLEN count = 0;
    SQLRowCount(statement.get(), &count);
    // A write that returns rows has none to read, and no columns, when it found nothing to write.
    if (dialect.facts().countsRowsOfQueries && count == 0) return rows;
    const auto columns = columnsOf(statement, dialect, syntax, sql);
    if (columns.empty()) return rows;
    const auto reader = makeRowReader(statement, dialect, columns);
    while (reader->next()) {
        auto& row = rows.emplace_back(columns.size());
        for (std::size_t column = 0; column < columns.size(); ++column)
            row[column] = reader->value(column, columns[column].kind);
    }
    return rows;
}

}  // namespace catalogador::odbc
