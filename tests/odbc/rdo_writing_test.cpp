#include <gtest/gtest.h>

#include <functional>

#include "../sql/dialects.h"
#include "database.h"
#include "runtime/text.h"

namespace catalogador {
namespace {

using test::errorNumberOf;

class RdoWriting : public test::RdoTest {
  protected:
    /// One record of each usual kind of column, with and without Null.
    void createRecords() {
        create("Code INTEGER, Name VARCHAR(60), Note " + types().longText +
               ", Amount DECIMAL(10,2)" + ", Rate " + types().real + ", Flag " + types().boolean +
               ", Stamp " + types().timestamp + ", Day DATE");
        connection->run("INSERT INTO " + table + " VALUES (?, ?, ?, ?, ?, ?, ?, ?)",
                        {1, "Ana", "long", Decimal{"12.50"}, 0.1 + 0.2, true,
                         Date{2024, 1, 2, 3, 4, 5}, "2024-01-02"});
        connection->run("INSERT INTO " + table + " (Code) VALUES (2)");
    }

    [[nodiscard]] std::unique_ptr<rdoResultset> record(int code) const {
        return connection->OpenResultset(select("Where Code = " + std::to_string(code)));
    }
};
INSTANTIATE_TEST_SUITE_P(, RdoWriting, testing::ValuesIn(test::databaseKinds()), test::kindName);

TEST_P(RdoWriting, AddsRowWithTheColumnsSet) {
    createRecords();
    const auto rows = record(99);
    rows->AddNew();
    rows->setValue("code", 7);
    rows->setValue("NAME", "O'Brien; -- \\ \"x\" \U0001F600");
    rows->setValue("Rate", 1.0 / 3);
    rows->setValue("Flag", 1);
    rows->setValue("Stamp", Date{2024, 2, 29, 23, 59, 59});
    rows->setValue("Day", Date{2024, 2, 29});
    rows->setValue("Note", Null{});
    rows->Update();
    const auto added = record(7);
    ASSERT_FALSE(added->atEnd());
    EXPECT_EQ(added->value("Name"), Variant("O'Brien; -- \\ \"x\" \U0001F600"));
    EXPECT_TRUE(added->value("Note").isNull());
    EXPECT_TRUE(added->value("Amount").isNull());
    EXPECT_NEAR(*added->value("Rate").as<double>(), 1.0 / 3, 1e-15);
    EXPECT_EQ(added->value("Flag"), Variant(true));
    EXPECT_EQ(added->value("Stamp"), Variant(Date{2024, 2, 29, 23, 59, 59}));
    EXPECT_EQ(added->value("Day"), Variant(Date{2024, 2, 29}));
    added->MoveNext();
    EXPECT_TRUE(added->atEnd());
}

TEST_P(RdoWriting, StaysOnItsRowAfterAddingOne) {
    createRecords();
    const auto rows = connection->OpenResultset(select("Order By Code"));
    rows->AddNew();
    EXPECT_TRUE(rows->value("Code").isNull());
    rows->setValue("Code", 3);
    EXPECT_EQ(rows->value("Code"), Variant(3));
    rows->Update();
    EXPECT_EQ(rows->value("Code"), Variant(1));
    rows->MoveNext();
    EXPECT_EQ(rows->value("Code"), Variant(2));
}

TEST_P(RdoWriting, AddsRowOfDefaultsWhenNothingWasSet) {
    create("a INTEGER DEFAULT 4, b VARCHAR(10)");
    const auto rows = connection->OpenResultset(select());
    rows->AddNew();
    rows->Update();
    ASSERT_EQ(all().size(), 1U);
    EXPECT_EQ(all()[0][0], Variant(4));
}

TEST_P(RdoWriting, ChangesOnlyTheColumnsSet) {
    createRecords();
    const auto rows = record(1);
    rows->Edit();
    rows->setValue("Name", "Eva");
    EXPECT_EQ(rows->value("Name"), Variant("Eva"));
    EXPECT_EQ(rows->value("Code"), Variant(1));
    rows->Update();
    EXPECT_EQ(rows->value("Name"), Variant("Eva"));
    const auto again = record(1);
    EXPECT_EQ(again->value("Name"), Variant("Eva"));
    EXPECT_EQ(again->value("Note"), Variant("long"));
    EXPECT_EQ(again->value("Stamp"), Variant(Date{2024, 1, 2, 3, 4, 5}));
    EXPECT_TRUE(record(2)->value("Name").isNull());
}

TEST_P(RdoWriting, ChangesRowOfNulls) {
    createRecords();
    const auto rows = record(2);
    rows->Edit();
    rows->setValue("Flag", false);
    rows->setValue("Amount", "3.25");
    rows->Update();
    EXPECT_EQ(record(2)->value("Flag"), Variant(false));
    EXPECT_EQ(record(2)->value("Amount"), Variant(Decimal{"3.25"}));
}

TEST_P(RdoWriting, SetsEveryColumnToNull) {
    createRecords();
    const auto rows = record(1);
    rows->Edit();
    for (const char* column : {"Name", "Note", "Amount", "Rate", "Flag", "Stamp", "Day"})
        rows->setValue(column, Null{});
    rows->Update();
    const auto again = record(1);
    for (int column = 1; column < again->columnCount(); ++column)
        EXPECT_TRUE(again->value(column).isNull()) << column;
}

TEST_P(RdoWriting, WritesTheSameRowAgain) {
    createRecords();
    const auto rows = record(1);
    for (const char* name : {"one", "two"}) {
        rows->Edit();
        rows->setValue("Name", name);
        rows->setValue("Stamp", Date{2024, 3, 4, 5, 6, 7});
        rows->setValue("Rate", 2.0 / 3);
        rows->setValue("Flag", 0);
        rows->setValue("Amount", "7.50");
        rows->Update();
    }
    EXPECT_EQ(record(1)->value("Name"), Variant("two"));
}

TEST_P(RdoWriting, AcceptsValuesThatAreThereAlready) {
    createRecords();
    const auto rows = record(1);
    rows->Edit();
    rows->setValue("Name", "Ana");
    EXPECT_EQ(errorNumberOf([&] { rows->Update(); }), 0);
    rows->Edit();
    EXPECT_EQ(errorNumberOf([&] { rows->Update(); }), 0);
}

TEST_P(RdoWriting, RaisesWhenAnotherUserChangedTheRow) {
    createRecords();
    for (const char* change :
         {"Name = 'ANA'", "Name = 'Ana '", "Note = NULL", "Amount = 12.51", "Rate = 0.31",
          "Stamp = '2024-01-02 03:04:06'", "Day = '2024-01-03'", "Code = 11"}) {
        connection->run("DELETE FROM " + table);
        connection->run("DROP TABLE " + table);
        createRecords();
        const auto rows = record(1);
        other->run("UPDATE " + table + " SET " + change + " WHERE Code = 1");
        rows->Edit();
        rows->setValue("Flag", false);
        EXPECT_EQ(errorNumberOf([&] { rows->Update(); }), error_number::rowChanged) << change;
        EXPECT_EQ(errorNumberOf([&] { rows->Delete(); }), error_number::rowChanged) << change;
        EXPECT_EQ(other->query("SELECT Flag FROM " + table + " WHERE Flag IS NOT NULL")[0][0],
                  Variant(true))
            << change;
    }
}

TEST_P(RdoWriting, RaisesWhenAnotherUserFilledANull) {
    createRecords();
    const auto rows = record(2);
    other->run("UPDATE " + table + " SET Name = '' WHERE Code = 2");
    rows->Edit();
    rows->setValue("Code", 3);
    EXPECT_EQ(errorNumberOf([&] { rows->Update(); }), error_number::rowChanged);
}

TEST_P(RdoWriting, RaisesWhenAnotherUserRemovedTheRow) {
    createRecords();
    const auto rows = record(1);
    other->run("DELETE FROM " + table + " WHERE Code = 1");
    rows->Edit();
    rows->setValue("Name", "x");
    EXPECT_EQ(errorNumberOf([&] { rows->Update(); }), error_number::rowChanged);
    EXPECT_EQ(errorNumberOf([&] { rows->Delete(); }), error_number::rowChanged);
}

TEST_P(RdoWriting, DeletesRowsOneAfterAnother) {
    createRecords();
    const auto rows = connection->OpenResultset(select("Order By Code"));
    rows->Delete();
    EXPECT_EQ(errorNumberOf([&] { rows->value("Code"); }), error_number::noCurrentRow);
    EXPECT_EQ(errorNumberOf([&] { rows->Delete(); }), error_number::noCurrentRow);
    EXPECT_EQ(errorNumberOf([&] { rows->Edit(); }), error_number::noCurrentRow);
    EXPECT_FALSE(rows->atEnd());
    rows->MoveNext();
    EXPECT_EQ(rows->value("Code"), Variant(2));
    rows->Delete();
    rows->MoveNext();
    EXPECT_TRUE(rows->atEnd());
    EXPECT_TRUE(all().empty());
}

TEST_P(RdoWriting, OpensToWriteWhatHasNoRowsOfItsOwn) {
    create("a INTEGER", {"1"});
    for (const std::string& sql :
         {"Select Count(*) As n From " + table, "Select Distinct a As n From " + table,
          "Select n From (Select a As n From " + table + ") z", std::string("Select 1 As n")}) {
        const auto rows = connection->OpenToWrite(sql);
        EXPECT_EQ(rows->columnCount(), 1) << sql;
        EXPECT_EQ(rows->value("n"), Variant(1)) << sql;
        EXPECT_EQ(errorNumberOf([&] { rows->Delete(); }), error_number::statementFailed) << sql;
    }
    EXPECT_EQ(all().size(), 1U);
    EXPECT_EQ(errorNumberOf([&] { connection->OpenToWrite("Select * From no_such"); }),
              error_number::statementFailed);
}

TEST_P(RdoWriting, IsRefusedForRowsThatAreNotThoseOfOneTable) {
    create("a INTEGER", {"1"});
    for (const std::string& sql :
         {"Select x.a From " + table + " x, " + table + " y", "Select Distinct a From " + table,
          "Select a From " + table + " Group By a",
          "Select a From (Select a From " + table + ") z"}) {
        const auto rows = connection->OpenResultset(sql);
        for (const auto& write : std::vector<std::function<void()>>{
                 [&] { rows->AddNew(); }, [&] { rows->Edit(); }, [&] { rows->Delete(); }}) {
            EXPECT_EQ(errorNumberOf(write), error_number::statementFailed) << sql;
        }
    }
    const auto counted = connection->OpenResultset("Select Count(*) As n From " + table);
    EXPECT_EQ(errorNumberOf([&] { counted->Delete(); }), error_number::statementFailed);
    EXPECT_EQ(all().size(), 1U);
}

TEST_P(RdoWriting, WritesThroughAliasesOfColumnsButNotThroughComputedOnes) {
    create("a INTEGER, b VARCHAR(10)", {"1, 'x'"});
    const auto rows =
        connection->OpenResultset("Select z.b As txt, a + 1 As more, a From " + table + " z");
    rows->Edit();
    rows->setValue("txt", "y");
    EXPECT_EQ(errorNumberOf([&] { rows->setValue("more", 1); }), error_number::columnNotFound);
    rows->Update();
    EXPECT_EQ(all()[0][1], Variant("y"));
}

TEST_P(RdoWriting, IsNotMisledByAliasesThatAreOtherColumns) {
    create("a INTEGER, b INTEGER", {"1, 2"});
    for (const char* items : {"a As b, b As a", "a b, z.b a"}) {
        const auto rows =
            connection->OpenResultset(std::string("Select ") + items + " From " + table + " z");
        rows->Edit();
        rows->setValue("b", 7);
        rows->Update();
        EXPECT_EQ(all()[0][0], Variant(7)) << items;
        EXPECT_EQ(all()[0][1], Variant(2)) << items;
    }
}

TEST_P(RdoWriting, NeedsEditOrAddNewBeforeSetAndUpdate) {
    create("a INTEGER", {"1"});
    const auto rows = connection->OpenResultset(select());
    EXPECT_EQ(errorNumberOf([&] { rows->setValue("a", 2); }), error_number::invalidProcedureCall);
    EXPECT_EQ(errorNumberOf([&] { rows->Update(); }), error_number::invalidProcedureCall);
    rows->Edit();
    EXPECT_EQ(errorNumberOf([&] { rows->setValue("b", 2); }), error_number::columnNotFound);
    rows->setValue("a", 2);
    rows->Edit();
    EXPECT_EQ(rows->value("a"), Variant(1)) << "a new Edit forgets what was set";
}

TEST_P(RdoWriting, CanBeCorrectedAfterTheDatabaseRefusedIt) {
    create("a INTEGER NOT NULL PRIMARY KEY, b VARCHAR(10)", {"1, 'x'", "2, 'y'"});
    const auto rows = connection->OpenResultset(select("Order By a"));
    rows->AddNew();
    rows->setValue("a", 2);
    rows->setValue("b", "z");
    EXPECT_EQ(errorNumberOf([&] { rows->Update(); }), error_number::statementFailed);
    rows->setValue("a", 3);
    rows->Update();
    rows->Edit();
    rows->setValue("a", 3);
    EXPECT_EQ(errorNumberOf([&] { rows->Update(); }), error_number::statementFailed);
    rows->setValue("a", 4);
    rows->Update();
    const auto left = all();
    ASSERT_EQ(left.size(), 3U);
    EXPECT_EQ(left[2][0], Variant(4));
}

TEST_P(RdoWriting, PassesTextForNumbersOnAsTyped) {
    create("a " + types().real + ", b INTEGER", {"1, 1"});
    const auto rows = connection->OpenResultset(select());
    rows->Edit();
    rows->setValue("a", "12.5");
    rows->setValue("b", "7");
    rows->Update();
    EXPECT_EQ(all()[0][0], Variant(12.5));
    EXPECT_EQ(all()[0][1], Variant(7));
    rows->Edit();
    rows->setValue("a", "12,5");
    // SQLite takes anything.
    if (dialect() == dialects::sqlite) return;
    EXPECT_EQ(errorNumberOf([&] { rows->Update(); }), error_number::statementFailed);
}

TEST_P(RdoWriting, PutsNumbersIntoTextColumns) {
    create("a INTEGER, b VARCHAR(20)", {"1, 'x'"});
    const auto rows = connection->OpenResultset(select());
    for (int round = 0; round < 2; ++round) {
        rows->Edit();
        rows->setValue("b", rows->value("a"));
        rows->Update();
    }
    EXPECT_EQ(all()[0][1], Variant("1"));
}

TEST_P(RdoWriting, WritesLongText) {
    create("a INTEGER, b " + types().longText, {"1, 'x'"});
    std::string text;
    while (text.size() < (1U << 20)) text += "l\u00ednea \U0001F600 ' \\ ";
    const auto rows = connection->OpenResultset(select());
    rows->Edit();
    rows->setValue("b", text);
    rows->Update();
    const auto again = connection->OpenResultset(select());
    EXPECT_TRUE(again->value("b") == Variant(text));
    again->Edit();
    again->setValue("b", "short");
    again->Update();
    EXPECT_EQ(all()[0][1], Variant("short"));
}

TEST_P(RdoWriting, HappensWhileRowsAreStillBeingRead) {
    create("a INTEGER, b INTEGER");
    connection->begin();
    for (int i = 0; i < 600; ++i) connection->run("INSERT INTO " + table + " VALUES (?, 0)", {i});
    connection->commit();
    const auto rows = connection->OpenResultset(select("Order By a"));
    int written = 0;
    for (; !rows->atEnd(); rows->MoveNext(), ++written) {
        rows->Edit();
        rows->setValue("b", 1);
        rows->Update();
    }
    EXPECT_EQ(written, 600);
    EXPECT_EQ(other->query("SELECT a FROM " + table + " WHERE b = 1").size(), 600U);
}

TEST_P(RdoWriting, WritesRowsThatHoldAZeroDate) {
    if (dialect() != dialects::mariadb) GTEST_SKIP() << "Only MariaDB stores dates of zeros";
    create("Code INTEGER, Stamp DATETIME, Day DATE",
           {"1, '0000-00-00 00:00:00', '0000-00-00'", "2, '2024-05-00 00:00:00', '2024-00-00'"});
    for (const int code : {1, 2}) {
        const auto rows = connection->OpenResultset(select("Where Code = " + decimalText(code)));
        rows->Edit();
        rows->setValue("Code", code + 10);
        rows->Update();
        EXPECT_EQ(rows->value("Code"), Variant(code + 10));
        rows->Delete();
    }
    EXPECT_TRUE(all().empty());
}

}  // namespace
}  // namespace catalogador
