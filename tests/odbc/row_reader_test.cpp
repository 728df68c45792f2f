#include <gtest/gtest.h>

#include "adapters/odbc/block_reader.h"
#include "adapters/odbc/connection_string.h"
#include "adapters/odbc/odbc_rows.h"
#include "adapters/odbc/odbc_session.h"
#include "adapters/odbc/result.h"
#include "adapters/odbc/single_row_reader.h"
#include "database.h"

namespace catalogador {
namespace {

using Rows = std::vector<std::vector<std::optional<std::string>>>;

constexpr const char* mixedRows =
    "WITH RECURSIVE n(i) AS (SELECT 1 UNION ALL SELECT i + 1 FROM n WHERE i < 700) "
    "SELECT i, CASE i % 5 WHEN 0 THEN NULL WHEN 1 THEN '' ELSE 'x' || i END, "
    "hex(zeroblob(CASE WHEN i % 100 = 0 THEN i * 1000 ELSE i % 40 END)) FROM n";

class RowReaders : public testing::Test {
  protected:
    template <class Reader>
    Rows read(const char* sql) {
        const odbc::Statement statement = session_.execute(sql);
        const auto columns = odbc::columnsOf(statement, session_.dialect(), session_.syntax(), sql);
        Reader reader(statement, session_.dialect(), columns);
        Rows rows;
        while (reader.next()) {
            auto& row = rows.emplace_back();
            for (std::size_t column = 0; column < columns.size(); ++column)
                row.push_back(reader.cell(column));
        }
        EXPECT_FALSE(reader.next()) << "stays at the end";
        return rows;
    }

  private:
    test::TemporaryFile file_;
    odbc::OdbcSession session_{odbc::connectionStringOfSqliteFile(file_.path())};
};

TEST_F(RowReaders, GiveTheSameRowsWhicheverWayTheyFetch) {
    const Rows blocks = read<odbc::BlockReader>(mixedRows);
    const Rows single = read<odbc::SingleRowReader>(mixedRows);
    ASSERT_EQ(blocks.size(), 700U);
    EXPECT_EQ(blocks[699][2]->size(), 1400000U);
    EXPECT_EQ(blocks[4][1], std::nullopt);
    EXPECT_EQ(blocks[5][1], "");
    EXPECT_TRUE(blocks == single);
}

TEST_F(RowReaders, ReadValuesAroundTheWidthsOfTheirBuffers) {
    const char* sql =
        "WITH RECURSIVE n(i) AS (SELECT 0 UNION ALL SELECT i + 1 FROM n WHERE i < 1100) "
        "SELECT substr(hex(zeroblob(600)), 1, i) FROM n";
    const Rows blocks = read<odbc::BlockReader>(sql);
    const Rows single = read<odbc::SingleRowReader>(sql);
    ASSERT_EQ(blocks.size(), 1101U);
    for (std::size_t i = 0; i < blocks.size(); ++i) ASSERT_EQ(blocks[i][0]->size(), i);
    EXPECT_TRUE(blocks == single);
}

TEST_F(RowReaders, GiveNoRowsOfAnEmptyResult) {
    EXPECT_TRUE(read<odbc::BlockReader>("SELECT 1 WHERE 1 = 0").empty());
    EXPECT_TRUE(read<odbc::SingleRowReader>("SELECT 1 WHERE 1 = 0").empty());
}

}  // namespace
}  // namespace catalogador
