#include "adapters/sqlite/packed_rows.h"

#include <array>
#include <charconv>
#include <cstring>

#include "adapters/sql/dialects/sqlite.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::sqlite {

namespace {

constexpr std::size_t rowsPerBlock = 256;
constexpr std::size_t bytesPerBlock = std::size_t{4} << 20;
/// More rows than these bytes hold are no list that anybody reads, but would take the machine down.
constexpr std::size_t mostBytes = std::size_t{1} << (sizeof(std::size_t) > 4 ? 32 : 30);

std::string textOrNothing(const char* text) {
    return text == nullptr ? std::string() : std::string(text);
}

/// The code by which hosts know a column; those that columnTypeCode does not take from the kind.
int sqlTypeOf(sql::ColumnKind kind, const std::string& typeName) {
    const auto has = [&](std::string_view part) {
        return containsText(typeName, part, Compare::text);
    };
    switch (kind) {
        case sql::ColumnKind::integer:
            if (has("TINY")) return SQL_TINYINT;
            if (has("SMALL")) return SQL_SMALLINT;
            return has("BIG") ? SQL_BIGINT : SQL_INTEGER;
        case sql::ColumnKind::real:
            return SQL_DOUBLE;
        case sql::ColumnKind::binary:
            return SQL_BINARY;
        default:
            return has("TEXT") ? SQL_LONGVARCHAR : SQL_VARCHAR;
    }
}

int sqlTypeOf(sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_INTEGER:
            return SQL_INTEGER;
        case SQLITE_FLOAT:
            return SQL_DOUBLE;
        case SQLITE_BLOB:
            return SQL_BINARY;
        default:
            return SQL_VARCHAR;
    }
}

void appendHexadecimal(std::string& bytes, const unsigned char* data, std::size_t size) {
    constexpr std::string_view digits = "0123456789ABCDEF";
    bytes += "X'";
    for (std::size_t i = 0; i < size; ++i) {
        bytes += digits[data[i] >> 4U];
        bytes += digits[data[i] & 0xFU];
    }
    bytes += "'";
}

/// What appendHexadecimal made the text of.
std::string bytesOf(std::string_view hexadecimal) {
    constexpr std::size_t frame = 2;
    std::string bytes;
    for (std::size_t i = frame; i + frame < hexadecimal.size(); i += 2) {
        unsigned byte = 0;
        std::from_chars(hexadecimal.data() + i, hexadecimal.data() + i + 2, byte, 16);
        bytes += static_cast<char>(byte);
    }
    return bytes;
}

}  // namespace

std::vector<sql::ColumnInfo> columnsOf(sqlite3_stmt* statement, const std::string& table,
                                       bool hasRow) {
    std::vector<sql::ColumnInfo> columns;
    bool ofTable = false;
    std::vector<std::string> tables;
    for (int index = 0; index < sqlite3_column_count(statement); ++index) {
        sql::ColumnInfo column;
        column.name = textOrNothing(sqlite3_column_name(statement, index));
        column.baseName = textOrNothing(sqlite3_column_origin_name(statement, index));
        column.typeName = textOrNothing(sqlite3_column_decltype(statement, index));
        column.kind = column.typeName.empty()
                          ? sql::ColumnKind::other
                          : sql::sqliteDialect().columnKind(SQL_VARCHAR, column.typeName);
        column.sqlType = column.typeName.empty() && hasRow
                             ? sqlTypeOf(statement, index)
                             : sqlTypeOf(column.kind, column.typeName);
        tables.push_back(textOrNothing(sqlite3_column_table_name(statement, index)));
        ofTable = ofTable || equalText(tables.back(), table);
        columns.push_back(std::move(column));
    }
    // A column of another table, by way of a subquery, is computed as far as this table goes.
    for (std::size_t index = 0; ofTable && index < columns.size(); ++index)
        if (!equalText(tables[index], table)) columns[index].baseName.clear();
    return columns;
}

PackedRows::PackedRows(const std::vector<sql::ColumnInfo>& columns) {
    for (const sql::ColumnInfo& column : columns)
        realAsNumber_.push_back(column.kind == sql::ColumnKind::real ||
                                column.kind == sql::ColumnKind::other);
}

void PackedRows::add(sqlite3_stmt* statement) {
    if (blocks_.empty() || blocks_.back().rows == rowsPerBlock ||
        blocks_.back().bytes.size() > bytesPerBlock) {
        Block& block = blocks_.emplace_back();
        block.ends.reserve(rowsPerBlock * realAsNumber_.size());
        block.storages.reserve(rowsPerBlock * realAsNumber_.size());
    }
    Block& block = blocks_.back();
    const std::size_t before = block.bytes.size();
    for (std::size_t column = 0; column < realAsNumber_.size(); ++column) {
        const Storage storage = append(block.bytes, statement, static_cast<int>(column));
        if (storage == Storage::real && !realAsNumber_[column])
            block.bytes += reinterpret_cast<const char*>(
                sqlite3_column_text(statement, static_cast<int>(column)));
        block.storages.push_back(storage);
        block.ends.push_back(static_cast<std::uint32_t>(block.bytes.size()));
    }
    ++block.rows;
    totalBytes_ += block.bytes.size() - before + realAsNumber_.size() * (sizeof before);
    if (totalBytes_ > mostBytes)
        throw RuntimeError(error_number::statementFailed,
                           "HY001: [SQLite]the statement returns more rows than there is room for");
}

PackedRows::Storage PackedRows::append(std::string& bytes, sqlite3_stmt* statement, int column) {
    switch (sqlite3_column_type(statement, column)) {
        case SQLITE_NULL:
            return Storage::null;
        case SQLITE_INTEGER: {
            std::array<char, 24> digits{};
            const auto number = sqlite3_column_int64(statement, column);
            const auto end = std::to_chars(digits.begin(), digits.end(), number).ptr;
            bytes.append(digits.data(), end);
            return Storage::integer;
        }
        case SQLITE_FLOAT: {
            const double number = sqlite3_column_double(statement, column);
            bytes.append(reinterpret_cast<const char*>(&number), sizeof number);
            return Storage::real;
        }
        case SQLITE_BLOB: {
            const auto* data =
                static_cast<const unsigned char*>(sqlite3_column_blob(statement, column));
            appendHexadecimal(bytes, data,
                              static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
            return Storage::blob;
        }
        default: {
            const auto* text = sqlite3_column_text(statement, column);
            bytes.append(reinterpret_cast<const char*>(text),
                         static_cast<std::size_t>(sqlite3_column_bytes(statement, column)));
            return Storage::text;
        }
    }
}

bool PackedRows::next() {
    if (blocks_.empty()) return false;
    if (begun_) ++row_;
    begun_ = true;
    if (row_ < blocks_.front().rows) return true;
    blocks_.pop_front();
    row_ = 0;
    return !blocks_.empty();
}

PackedRows::Cell PackedRows::cellAt(std::size_t column, std::size_t row) const {
    const Block& block = blocks_.front();
    const std::size_t index = row * realAsNumber_.size() + column;
    const std::size_t begin = index == 0 ? 0 : block.ends[index - 1];
    return {block.storages[index],
            std::string_view(block.bytes).substr(begin, block.ends[index] - begin)};
}

std::optional<sql::TransferredCell> PackedRows::transferred(std::size_t column,
                                                            std::size_t ahead) const {
    const Cell cell = cellAt(column, row_ + ahead);
    if (cell.storage == Storage::null) return std::nullopt;
    if (cell.storage != Storage::real) return sql::TransferredCell{SQL_C_CHAR, cell.bytes};
    if (realAsNumber_[column]) return sql::TransferredCell{SQL_C_DOUBLE, cell.bytes};
    return sql::TransferredCell{SQL_C_CHAR, cell.bytes.substr(sizeof(double))};
}

std::optional<sql::Parameter> PackedRows::exact(std::size_t column) const {
    const Cell cell = cellAt(column, row_);
    switch (cell.storage) {
        case Storage::integer: {
            std::int64_t number = 0;
            std::from_chars(cell.bytes.data(), cell.bytes.data() + cell.bytes.size(), number);
            return sql::Parameter{number, SQL_BIGINT};
        }
        case Storage::real: {
            double number = 0;
            std::memcpy(&number, cell.bytes.data(), sizeof number);
            return sql::Parameter{number, SQL_DOUBLE};
        }
        case Storage::text:
            return sql::Parameter{std::string(cell.bytes), SQL_VARCHAR};
        case Storage::blob:
            return sql::Parameter{bytesOf(cell.bytes), SQL_VARBINARY};
        default:
            return std::nullopt;
    }
}

}  // namespace catalogador::sqlite
