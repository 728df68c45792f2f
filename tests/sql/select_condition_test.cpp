#include "adapters/sql/select_condition.h"

#include <gtest/gtest.h>

#include "dialects.h"

namespace catalogador {
namespace {

std::string condition(std::string_view sql) {
    return sql::selectCondition(sql, dialects::sqlite.facts().syntax);
}

TEST(SelectCondition, IsWhatStandsBetweenWhereAndTheClauseAfterIt) {
    EXPECT_EQ(condition("Select * From T Where a = 1 And b = 'x' Order By a"), "a = 1 And b = 'x'");
    EXPECT_EQ(condition("select * from T where a in (select b from U where c = 1 order by d)"),
              "a in (select b from U where c = 1 order by d)");
    EXPECT_EQ(condition("Select * From T Where a = 'order by' Limit 3"), "a = 'order by'");
}

TEST(SelectCondition, IsEmptyWithoutWhere) {
    EXPECT_EQ(condition("Select * From T"), "");
    EXPECT_EQ(condition("Select 'where x' From T Order By a"), "");
}

TEST(SelectCondition, IsEmptyWhenTheTableHasAnotherName) {
    EXPECT_EQ(condition("Select * From T x Where x.a = 1"), "");
    EXPECT_EQ(condition("Select * From T As x Where x.a = 1"), "");
    EXPECT_EQ(condition("Select * From main.T Where a = 1"), "a = 1");
}

}  // namespace
}  // namespace catalogador
