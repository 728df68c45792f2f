#pragma once
#include <optional>
#include <string>
#include <vector>

#include "adapters/odbc/statement_runner.h"
#include "adapters/sql/dialect.h"
#include "adapters/sql/row_reader.h"

namespace catalogador::odbc {

/// Fetches row by row and asks for each value in pieces until it is complete: what every driver
/// can do.
class SingleRowReader : public sql::RowReader {
  public:
    SingleRowReader(const Statement& statement, const sql::Dialect& dialect,
                    const std::vector<sql::ColumnInfo>& columns);

    bool next() override;
    [[nodiscard]] std::optional<sql::TransferredCell> transferred(std::size_t column,
                                                                  std::size_t) const override {
        const auto& cell = cells_[column];
        return cell ? std::optional(sql::TransferredCell{SQL_C_CHAR, *cell}) : std::nullopt;
    }

  private:
    [[nodiscard]] std::optional<std::string> read(SQLUSMALLINT number, SQLSMALLINT type);

    const Statement& statement_;
    std::vector<SQLSMALLINT> types_;
    std::vector<std::optional<std::string>> cells_;
    std::vector<char> piece_;
};

}  // namespace catalogador::odbc
