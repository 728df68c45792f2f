#include <gtest/gtest.h>

#include "../sql/dialects.h"
#include "database.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador {
namespace {

using test::errorNumberOf;

class RdoReading : public test::RdoTest {};
INSTANTIATE_TEST_SUITE_P(, RdoReading, testing::ValuesIn(test::databaseKinds()), test::kindName);

TEST_P(RdoReading, GivesEachKindOfColumnItsKindOfValue) {
    create("a SMALLINT, b INTEGER, c BIGINT, d " + types().boolean + ", e DECIMAL(10,2), f " +
               types().real + ", g VARCHAR(20), h " + types().timestamp + ", i DATE, j " +
               types().boolean,
           {"-32768, 2147483647, -9223372036854775808, " +
            std::string(dialect() == dialects::postgresql ? "true" : "1") +
            ", 12.34, 0.5, 'text', '2024-02-29 23:59:58', '2024-02-29', " +
            (dialect() == dialects::postgresql ? "false" : "0")});
    const auto rows = connection->OpenResultset(select());
    ASSERT_FALSE(rows->atEnd());
    EXPECT_EQ(rows->value("a"), Variant(-32768));
    EXPECT_EQ(rows->value("b"), Variant(2147483647));
    EXPECT_EQ(rows->value("c"), Variant(INT64_MIN));
    EXPECT_EQ(rows->value("d"), Variant(true));
    EXPECT_EQ(rows->value("e"), Variant(Decimal{"12.34"}));
    EXPECT_EQ(rows->value("f"), Variant(0.5));
    EXPECT_EQ(rows->value("g"), Variant("text"));
    EXPECT_EQ(rows->value("h"), Variant(Date{2024, 2, 29, 23, 59, 58}));
    EXPECT_EQ(rows->value("i"), Variant(Date{2024, 2, 29}));
    EXPECT_EQ(rows->value("j"), Variant(false));
    EXPECT_EQ(rows->column(3).type, bitColumnType);
    EXPECT_EQ(rows->column(9).type, bitColumnType);
    EXPECT_NE(rows->column(0).type, bitColumnType);
}

TEST_P(RdoReading, GivesNullForEveryKindOfColumn) {
    create("a INTEGER, d " + types().boolean + ", e DECIMAL(10,2), f " + types().real +
               ", g VARCHAR(20), h " + types().timestamp + ", i DATE, k " + types().longText,
           {"NULL, NULL, NULL, NULL, NULL, NULL, NULL, NULL"});
    const auto rows = connection->OpenResultset(select());
    for (int column = 0; column < rows->columnCount(); ++column)
        EXPECT_TRUE(rows->value(column).isNull()) << column;
}

TEST_P(RdoReading, TellsEmptyTextFromNull) {
    create("a VARCHAR(10), b " + types().longText, {"'', ''"});
    const auto rows = connection->OpenResultset(select());
    EXPECT_EQ(rows->value(0), Variant(""));
    EXPECT_EQ(rows->value(1), Variant(""));
}

TEST_P(RdoReading, FindsColumnsByNameWithoutRegardToCaseAndByIndex) {
    create("Code INTEGER, Name VARCHAR(10)", {"7, 'x'"});
    const auto rows = connection->OpenResultset("Select Code, Name, 8 As code From " + table);
    EXPECT_EQ(rows->columnCount(), 3);
    EXPECT_EQ(rows->value("cODE"), Variant(7));
    EXPECT_EQ(rows->value("NAME"), Variant("x"));
    EXPECT_EQ(rows->value(2), Variant(8));
    EXPECT_EQ(errorNumberOf([&] { rows->value("nope"); }), error_number::columnNotFound);
    EXPECT_EQ(errorNumberOf([&] { rows->value(3); }), error_number::columnNotFound);
    EXPECT_EQ(errorNumberOf([&] { rows->value(-1); }), error_number::columnNotFound);
}

TEST_P(RdoReading, HasNoCurrentRowInEmptyResult) {
    create("a INTEGER");
    const auto rows = connection->OpenResultset(select());
    EXPECT_TRUE(rows->atEnd());
    EXPECT_EQ(rows->columnCount(), 1);
    EXPECT_EQ(errorNumberOf([&] { rows->value(0); }), error_number::noCurrentRow);
    EXPECT_EQ(errorNumberOf([&] { rows->MoveNext(); }), error_number::noCurrentRow);
    EXPECT_EQ(errorNumberOf([&] { rows->Edit(); }), error_number::noCurrentRow);
    EXPECT_EQ(errorNumberOf([&] { rows->Delete(); }), error_number::noCurrentRow);
}

TEST_P(RdoReading, ReadsEveryRowInOrderAcrossBlocks) {
    constexpr std::int64_t count = 1000;
    create("a INTEGER, b VARCHAR(20)");
    connection->begin();
    for (std::int64_t i = 0; i < count; ++i)
        connection->run("INSERT INTO " + table + " VALUES (?, ?)", {i, "row " + decimalText(i)});
    connection->commit();
    const auto rows = connection->OpenResultset(select("Order By a"));
    std::int64_t read = 0;
    for (; !rows->atEnd(); rows->MoveNext(), ++read) {
        ASSERT_EQ(rows->value(0), Variant(read));
        ASSERT_EQ(rows->value(1), Variant("row " + decimalText(read)));
    }
    EXPECT_EQ(read, count);
    EXPECT_EQ(errorNumberOf([&] { rows->MoveNext(); }), error_number::noCurrentRow);
}

TEST_P(RdoReading, DeliversLongTextsWhole) {
    create("a INTEGER, b " + types().longText);
    const auto textOf = [](std::int64_t row) {
        std::string text;
        const std::size_t length = row == 300 ? 1 << 20 : row % 7 == 0 ? 5000 : 10;
        while (text.size() < length) text += "\u00f1\U0001F600" + decimalText(row);
        return text;
    };
    constexpr std::int64_t count = 320;
    connection->begin();
    for (std::int64_t i = 0; i < count; ++i)
        connection->run("INSERT INTO " + table + " VALUES (?, ?)", {i, textOf(i)});
    connection->commit();
    const auto rows = connection->OpenResultset(select("Order By a"));
    for (std::int64_t i = 0; i < count; ++i, rows->MoveNext()) {
        ASSERT_EQ(rows->value("a"), Variant(i));
        ASSERT_TRUE(rows->value("b") == Variant(textOf(i))) << i;
    }
    EXPECT_TRUE(rows->atEnd());
}

TEST_P(RdoReading, KeepsUtf8OfEveryPlane) {
    const std::string text = "A\u00f1\u03a9\u0416\u20ac\U0001F600\U0001F468\u200D\U0001F4BB";
    create("a VARCHAR(60)");
    connection->Execute("Insert Into " + table + " Values ('" + text + "')");
    const auto rows = connection->OpenResultset("Select a, a As se\u00f1al From " + table +
                                                " Where a = '" + text + "'");
    EXPECT_EQ(rows->value(0), Variant(text));
    EXPECT_EQ(rows->value("se\u00f1al"), Variant(text));
}

TEST_P(RdoReading, OutlivesItsConnection) {
    create("a INTEGER", {"1", "2"});
    auto rows = connection->OpenResultset(select("Order By a"));
    connection = connect();
    rows->MoveNext();
    EXPECT_EQ(rows->value(0), Variant(2));
    rows->Delete();
    rows.reset();
    EXPECT_EQ(all().size(), 1U);
}

TEST_P(RdoReading, IsAtEndAndEmptyAfterClose) {
    create("a INTEGER", {"1"});
    const auto rows = connection->OpenResultset(select());
    rows->Close();
    rows->Close();
    EXPECT_TRUE(rows->atEnd());
    EXPECT_NE(errorNumberOf([&] { rows->value(0); }), 0);
    EXPECT_NE(errorNumberOf([&] { rows->MoveNext(); }), 0);
    EXPECT_NE(errorNumberOf([&] { rows->AddNew(); }), 0);
}

TEST_P(RdoReading, TheConnectionIsUsableAtOnceAfterALongListWasClosed) {
    std::vector<std::string> values;
    for (int row = 0; row < 2000; ++row) values.push_back(decimalText(row) + ", 'text'");
    create("a INTEGER, b VARCHAR(10)", values);
    const auto readToItsEnd = [&] {
        auto rows = connection->OpenResultset(select());
        while (!rows->atEnd()) rows->MoveNext();
        return rows;
    };
    for (int round = 0; round < 10; ++round) {
        const auto left = readToItsEnd();
        const auto half = connection->OpenResultset(select("Order By a"));
        readToItsEnd()->Close();
        half->MoveNext();
        EXPECT_EQ(half->value(0), Variant(1));
        left->Close();
        connection->begin();
        connection->Execute("Update " + table +
                            " Set b = 'changed' Where a = " + decimalText(round));
        readToItsEnd()->Close();
        connection->commit();
        readToItsEnd().reset();
        half->Close();
    }
    const auto changed = connection->OpenResultset(select("Where b = 'changed' Order By a Desc"));
    EXPECT_EQ(changed->value(0), Variant(9));
}

TEST_P(RdoReading, KeepsSeveralResultsetsOpenAtOnce) {
    create("a INTEGER", {"1", "2"});
    const auto first = connection->OpenResultset(select("Order By a"));
    const auto second = connection->OpenResultset(select("Order By a Desc"));
    EXPECT_EQ(first->value(0), Variant(1));
    EXPECT_EQ(second->value(0), Variant(2));
    first->MoveNext();
    second->MoveNext();
    EXPECT_EQ(first->value(0), Variant(2));
    EXPECT_EQ(second->value(0), Variant(1));
}

}  // namespace
}  // namespace catalogador
