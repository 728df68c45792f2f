#pragma once
#include <cstdint>
#include <deque>
#include <string>
#include <vector>

#include "adapters/sql/row_reader.h"
#include "adapters/sqlite/database.h"

namespace catalogador::sqlite {

/// The columns of a prepared statement's rows; `table`, which may be empty, is the one that rows
/// are written to. What a column without a declared type is, its first row says: the statement
/// stands on it, when there is one.
std::vector<sql::ColumnInfo> columnsOf(sqlite3_stmt* statement, const std::string& table,
                                       bool hasRow);

/// All the rows of a statement, read at once: a statement that stays open would keep others from
/// writing. Blocks of rows are given back as soon as they were read.
class PackedRows : public sql::RowReader {
  public:
    explicit PackedRows(const std::vector<sql::ColumnInfo>& columns);

    /// Takes over the row that the statement stands on. Raises RuntimeError (statementFailed) when
    /// the rows are too many for the memory.
    void add(sqlite3_stmt* statement);

    bool next() override;
    [[nodiscard]] std::size_t rowsAtHand() const override { return blocks_.front().rows - row_; }
    [[nodiscard]] std::optional<sql::TransferredCell> transferred(std::size_t column,
                                                                  std::size_t ahead) const override;
    [[nodiscard]] std::optional<sql::Parameter> exact(std::size_t column) const override;

  private:
    enum class Storage : std::uint8_t { null, integer, real, text, blob };
    struct Block {
        std::size_t rows = 0;
        std::string bytes;
        /// Where each cell ends in the bytes, row by row.
        std::vector<std::uint32_t> ends;
        std::vector<Storage> storages;
    };
    struct Cell {
        Storage storage = Storage::null;
        std::string_view bytes;
    };

    [[nodiscard]] Cell cellAt(std::size_t column, std::size_t row) const;
    static Storage append(std::string& bytes, sqlite3_stmt* statement, int column);

    /// Whether a number with a fraction is shown as a number; else as SQLite's text of it.
    std::vector<bool> realAsNumber_;
    std::deque<Block> blocks_;
    std::size_t totalBytes_ = 0;
    std::size_t row_ = 0;
    bool begun_ = false;
};

}  // namespace catalogador::sqlite
