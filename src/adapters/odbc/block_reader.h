#pragma once
#include <optional>
#include <string>
#include <vector>

#include "adapters/odbc/statement_runner.h"
#include "adapters/sql/dialect.h"
#include "adapters/sql/row_reader.h"

namespace catalogador::odbc {

/// Fetches blocks of rows into buffers of one array per column. A value that does not fit makes
/// its column's buffer larger and the same block is fetched again, so the reported length of a
/// column decides only how wide its buffer is at first.
class BlockReader : public sql::RowReader {
  public:
    BlockReader(const Statement& statement, const sql::Dialect& dialect,
                const std::vector<sql::ColumnInfo>& columns);
    ~BlockReader() override;
    BlockReader(const BlockReader&) = delete;
    BlockReader& operator=(const BlockReader&) = delete;

    bool next() override;
    [[nodiscard]] std::size_t rowsAtHand() const override { return fetched_ - row_; }
    /// Rows that were fetched so far.
    [[nodiscard]] std::size_t rowsRead() const;
    [[nodiscard]] std::optional<sql::TransferredCell> transferred(std::size_t column,
                                                                  std::size_t ahead) const override;

  private:
    struct Buffer {
        SQLSMALLINT type = SQL_C_CHAR;
        std::size_t width = 0;
        std::vector<char> data;
        std::vector<SQLLEN> indicators;
        /// The block's texts in UTF-8 where the driver gives them in another form.
        std::vector<std::string> texts;
    };

    bool fetchBlock();
    void bind();
    bool widenWhatWasCut();
    void convertTexts();
    void checkRows(SQLRETURN result) const;

    const Statement& statement_;
    std::vector<Buffer> buffers_;
    std::vector<SQLUSMALLINT> status_;
    /// Rows that a block may hold with the buffers as they are.
    std::size_t capacity_ = 0;
    SQLULEN fetched_ = 0;
    std::size_t row_ = 0;
    /// Number of the block's first row in the resultset, counted from 1.
    SQLLEN blockStart_ = 1;
    bool bound_ = false;
    bool ended_ = false;
};

}  // namespace catalogador::odbc
