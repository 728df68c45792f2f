#include <gtest/gtest.h>

#include "../sql/dialects.h"
#include "database.h"

namespace catalogador {
namespace {

using test::errorNumberOf;

/// Which row a write means.
class RdoWrittenRow : public test::RdoTest {};
INSTANTIATE_TEST_SUITE_P(, RdoWrittenRow, testing::ValuesIn(test::databaseKinds()), test::kindName);

TEST_P(RdoWrittenRow, KeepsToTheConditionOfItsStatement) {
    create("a INTEGER, b VARCHAR(10)", {"1, 'x'", "2, 'x'"});
    const auto rows = connection->OpenResultset("Select b From " + table + " Where a = 2 Or a = 3");
    rows->Edit();
    rows->setValue("b", "y");
    rows->Update();
    const auto left = all();
    ASSERT_EQ(left.size(), 2U);
    EXPECT_EQ(left[0][1], Variant("x"));
    EXPECT_EQ(left[1][1], Variant("y"));
}

TEST_P(RdoWrittenRow, MayTakeTheRowOutOfTheConditionOfItsStatement) {
    create("a INTEGER, b VARCHAR(10)", {"1, 'x'", "2, 'x'"});
    const auto rows = connection->OpenResultset(select("Where a = 2 -- it's (the second"));
    for (const int value : {5, 6}) {
        rows->Edit();
        rows->setValue("a", value);
        rows->Update();
    }
    EXPECT_EQ(all()[1][0], Variant(6));
    rows->Delete();
    EXPECT_EQ(all().size(), 1U);
}

TEST_P(RdoWrittenRow, TouchesNoneOfSeveralEqualRows) {
    if (GetParam().automation) GTEST_SKIP() << "there, all rows are opened to be written";
    create("a INTEGER, b VARCHAR(10)", {"1, 'x'", "1, 'x'"});
    const auto rows = connection->OpenResultset(select());
    rows->Edit();
    rows->setValue("b", "y");
    EXPECT_EQ(errorNumberOf([&] { rows->Update(); }), error_number::statementFailed);
    EXPECT_EQ(errorNumberOf([&] { rows->Delete(); }), error_number::statementFailed);
    const auto left = all();
    ASSERT_EQ(left.size(), 2U);
    EXPECT_EQ(left[0][1], Variant("x"));
    EXPECT_EQ(left[1][1], Variant("x"));
}

/// Deletes every row that a statement returns, from the first to the last;
/// gives their number.
int deleteAll(test::TestedConnection& connection, const std::string& sql) {
    int deleted = 0;
    const auto rows = connection.OpenToWrite(sql);
    for (; !rows->atEnd(); rows->MoveNext(), ++deleted) rows->Delete();
    return deleted;
}

TEST_P(RdoWrittenRow, DeletesEveryRowThatWasReadAlsoWhereTheyAreAlike) {
    for (const char* key : {"", ", c INTEGER NOT NULL PRIMARY KEY", ", c INTEGER NOT NULL UNIQUE",
                            ", c INTEGER UNIQUE", ", c INTEGER"}) {
        const bool keyed = *key != '\0';
        connection->run("DROP TABLE IF EXISTS " + table);
        create(std::string("a INTEGER, b VARCHAR(10)") + key);
        const auto add = [&](const std::string& row, int number) {
            connection->run("INSERT INTO " + table + (keyed ? " (a, b, c)" : " (a, b)") +
                            " VALUES (" + row + (keyed ? ", " + std::to_string(number) : "") + ")");
        };
        for (int number = 0; number < 3; ++number) add("5, 'x'", number);
        add("5, NULL", 3);
        add("6, 'x'", 4);
        EXPECT_EQ(deleteAll(*connection, "Select a From " + table + " Where a = 5"), 4) << key;
        ASSERT_EQ(all().size(), 1U) << key;
        EXPECT_EQ(all()[0][0], Variant(6)) << key;
    }
}

TEST_P(RdoWrittenRow, DeletesOneForEachThatWasReadOfRowsThatAreAlikeInEverything) {
    create("a INTEGER, b VARCHAR(10)", {"5, 'x'", "5, 'x'", "5, 'x'"});
    EXPECT_EQ(deleteAll(*connection, "Select a From " + table + " Where a = 5 Limit 2"), 2);
    EXPECT_EQ(all().size(), 1U);
    EXPECT_EQ(deleteAll(*connection, select()), 1);
    EXPECT_TRUE(all().empty());
}

TEST_P(RdoWrittenRow, DeletesWhatWasReadWithoutAskingTheConditionAgain) {
    create("a INTEGER, b VARCHAR(10)", {"5, 'x'", "5, 'y'", "5, 'z'", "6, 'x'"});
    EXPECT_EQ(deleteAll(*connection, "Select a From " + table +
                                         " Where a = 5 And (Select Count(*) From " + table +
                                         " o Where o.a = 5) > 1 Order By b"),
              3);
    EXPECT_EQ(all().size(), 1U);
}

TEST_P(RdoWrittenRow, DeletesRowsOfWhichNothingWasAskedFor) {
    create("a INTEGER, b VARCHAR(10)", {"5, 'x'", "5, 'x'", "6, 'y'"});
    EXPECT_EQ(deleteAll(*connection, "Select 1 As One From " + table + " Where a = 5"), 2);
    EXPECT_EQ(all().size(), 1U);
}

TEST_P(RdoWrittenRow, ChangesTheRowThatWasReadOfRowsThatAreAlike) {
    create("a INTEGER, b VARCHAR(10)", {"1, 'x'", "1, 'x'"});
    const auto rows = connection->OpenToWrite(select());
    EXPECT_EQ(rows->columnCount(), 2);
    rows->Edit();
    rows->setValue("b", "y");
    rows->Update();
    rows->Edit();
    rows->setValue("b", "z");
    rows->Update();
    rows->MoveNext();
    EXPECT_EQ(rows->value("b"), Variant("x"));
    rows->Delete();
    ASSERT_EQ(all().size(), 1U);
    EXPECT_EQ(all()[0][1], Variant("z"));
}

TEST_P(RdoWrittenRow, MeansTheRowThatWasReadAlsoAfterAnotherUserWroteWhatWasNotRead) {
    create("a INTEGER, b VARCHAR(10)", {"1, 'x'", "2, 'x'"});
    const auto rows = connection->OpenToWrite("Select a From " + table + " Where a = 1");
    other->run("UPDATE " + table + " SET b = 'y' WHERE a = 1");
    rows->Delete();
    ASSERT_EQ(all().size(), 1U);
    EXPECT_EQ(all()[0][0], Variant(2));
}

TEST_P(RdoWrittenRow, RaisesForTheRowThatAnotherUserChangedAlsoWhereItIsIdentified) {
    create("a INTEGER NOT NULL PRIMARY KEY, b VARCHAR(10)", {"1, 'x'", "2, 'x'"});
    const auto rows = connection->OpenToWrite(select("Where a = 1"));
    other->run("UPDATE " + table + " SET b = 'y' WHERE a = 1");
    EXPECT_EQ(errorNumberOf([&] { rows->Delete(); }), error_number::rowChanged);
    other->run("DELETE FROM " + table + " WHERE a = 1");
    other->run("INSERT INTO " + table + " VALUES (1, 'z')");
    EXPECT_EQ(errorNumberOf([&] { rows->Delete(); }), error_number::rowChanged);
    EXPECT_EQ(all().size(), 2U);
}

TEST_P(RdoWrittenRow, SeesTheWriteOfAnotherUserAlsoWithinATransactionOfTheHost) {
    if (dialect() == dialects::sqlite) GTEST_SKIP() << "its transactions keep other users out";
    create("Code INTEGER, Text VARCHAR(20)", {"1, 'first'"});
    connection->begin();
    const auto rows = connection->OpenResultset(select("Where Code = 1"));
    other->run("UPDATE " + table + " SET Text = 'second'");
    rows->Edit();
    rows->setValue("Text", "first");
    EXPECT_EQ(errorNumberOf([&] { rows->Update(); }), error_number::rowChanged);
    connection->rollback();
    EXPECT_EQ(all().at(0).at(1), Variant("second"));
}

}  // namespace
}  // namespace catalogador
