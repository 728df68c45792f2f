#include "adapters/odbc/block_reader.h"

#include <algorithm>

#include "adapters/odbc/driver_text.h"
#include "adapters/odbc/odbc_rows.h"
#include "runtime/error.h"

namespace catalogador::odbc {

namespace {

constexpr std::size_t rowsPerBlock = 64;
/// All the buffers of a block together; wider rows come in smaller blocks.
constexpr std::size_t blockBytes = std::size_t{4} << 20;
/// What the text of a number has besides the digits that its length counts.
constexpr std::size_t signPointAndEnd = 3;
constexpr std::size_t narrowestText = 32;
constexpr std::size_t widestTextAtFirst = 256;

std::size_t firstWidth(SQLSMALLINT type, const sql::ColumnInfo& column) {
    if (type == SQL_C_UTINYINT) return 1;
    if (type == SQL_C_DOUBLE) return sizeof(double);
    const std::size_t reported = std::min(column.reportedLength, widestTextAtFirst);
    return textUnit * std::clamp(reported + signPointAndEnd, narrowestText, widestTextAtFirst);
}

}  // namespace

BlockReader::BlockReader(const Statement& statement, const sql::Dialect& dialect,
                         const std::vector<sql::ColumnInfo>& columns)
    : statement_(statement) {
    for (const sql::ColumnInfo& column : columns) {
        Buffer buffer;
        buffer.type = transferType(dialect, column.kind);
        buffer.width = firstWidth(buffer.type, column);
        buffers_.push_back(std::move(buffer));
    }
    statement_.check(
        SQLSetStmtAttr(statement_.get(), SQL_ATTR_ROWS_FETCHED_PTR, &fetched_, SQL_IS_POINTER));
}

BlockReader::~BlockReader() {
    SQLFreeStmt(statement_.get(), SQL_UNBIND);
    SQLSetStmtAttr(statement_.get(), SQL_ATTR_ROWS_FETCHED_PTR, nullptr, SQL_IS_POINTER);
    SQLSetStmtAttr(statement_.get(), SQL_ATTR_ROW_STATUS_PTR, nullptr, SQL_IS_POINTER);
}

bool BlockReader::next() {
    if (ended_) return false;
    if (row_ + 1 < fetched_) {
        ++row_;
        return true;
    }
    ended_ = !fetchBlock();
    return !ended_;
}

std::size_t BlockReader::rowsRead() const {
    return static_cast<std::size_t>(blockStart_ - 1) + fetched_;
}

std::optional<sql::TransferredCell> BlockReader::transferred(std::size_t column,
                                                             std::size_t ahead) const {
    const Buffer& buffer = buffers_[column];
    const std::size_t row = row_ + ahead;
    const SQLLEN length = buffer.indicators[row];
    if (length == SQL_NULL_DATA) return std::nullopt;
    if (!buffer.texts.empty()) return sql::TransferredCell{SQL_C_CHAR, buffer.texts[row]};
    // Only texts have a length of their own.
    const std::size_t size =
        buffer.type == SQL_C_CHAR ? static_cast<std::size_t>(length) : buffer.width;
    return sql::TransferredCell{buffer.type, {buffer.data.data() + row * buffer.width, size}};
}

bool BlockReader::fetchBlock() {
    blockStart_ += static_cast<SQLLEN>(fetched_);
    fetched_ = 0;
    row_ = 0;
    if (!bound_) bind();
    SQLRETURN result = SQLFetchScroll(statement_.get(), SQL_FETCH_NEXT, 0);
    while (result != SQL_NO_DATA) {
        checkRows(result);
        if (!widenWhatWasCut()) {
            if constexpr (transferredText != SQL_C_CHAR) convertTexts();
            return fetched_ > 0;
        }
        bind();
        result = SQLFetchScroll(statement_.get(), SQL_FETCH_ABSOLUTE, blockStart_);
    }
    return false;
}

void BlockReader::bind() {
    // A resultset without columns is not read; one byte keeps the division sound all the same.
    std::size_t rowBytes = 1;
    for (const Buffer& buffer : buffers_) rowBytes += buffer.width + sizeof(SQLLEN);
    capacity_ = std::clamp(blockBytes / rowBytes, std::size_t{1}, rowsPerBlock);
    status_.assign(capacity_, SQL_ROW_NOROW);

    SQLHSTMT const handle = statement_.get();
    SQLFreeStmt(handle, SQL_UNBIND);
    statement_.check(SQLSetStmtAttr(handle, SQL_ATTR_ROW_ARRAY_SIZE, attributeValue(capacity_), 0));
    statement_.check(
        SQLSetStmtAttr(handle, SQL_ATTR_ROW_STATUS_PTR, status_.data(), SQL_IS_POINTER));
    SQLUSMALLINT number = 0;
    for (Buffer& buffer : buffers_) {
        buffer.data.resize(capacity_ * buffer.width);
        buffer.indicators.assign(capacity_, SQL_NULL_DATA);
        statement_.check(SQLBindCol(handle, ++number, buffer.type, buffer.data.data(),
                                    static_cast<SQLLEN>(buffer.width), buffer.indicators.data()));
    }
    bound_ = true;
}

bool BlockReader::widenWhatWasCut() {
    bool cut = false;
    for (Buffer& buffer : buffers_) {
        if (buffer.type != transferredText) continue;
        std::size_t needed = buffer.width;
        for (std::size_t row = 0; row < fetched_; ++row) {
            const SQLLEN length = buffer.indicators[row];
            if (length == SQL_NO_TOTAL)
                needed = std::max(needed, 2 * buffer.width);
            else if (length > static_cast<SQLLEN>(buffer.width - textUnit))
                needed = std::max(needed, static_cast<std::size_t>(length) + textUnit);
        }
        if (needed == buffer.width) continue;
        // Doubling at least keeps the number of repeated fetches small.
        buffer.width = std::max(needed, 2 * buffer.width);
        cut = true;
    }
    return cut;
}

void BlockReader::convertTexts() {
    for (Buffer& buffer : buffers_) {
        if (buffer.type != transferredText) continue;
        buffer.texts.resize(fetched_);
        for (std::size_t row = 0; row < fetched_; ++row) {
            const SQLLEN length = buffer.indicators[row];
            if (length != SQL_NULL_DATA)
                buffer.texts[row] = textFromDriver(buffer.data.data() + row * buffer.width,
                                                   static_cast<std::size_t>(length));
        }
    }
}

void BlockReader::checkRows(SQLRETURN result) const {
    statement_.check(result);
    const auto end = status_.begin() + static_cast<std::ptrdiff_t>(fetched_);
    if (result == SQL_SUCCESS_WITH_INFO && std::find(status_.begin(), end, SQL_ROW_ERROR) != end)
        throw RuntimeError(error_number::statementFailed, statement_.diagnostics());
}

}  // namespace catalogador::odbc
