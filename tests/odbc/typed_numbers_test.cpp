#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <random>

#include "database.h"
#include "runtime/typed_number.h"

namespace catalogador {
namespace {

/// What passes the test of numbers, on its way through a column and a statement.
class TypedNumbers : public test::RdoTest {
  protected:
    void SetUp() override {
        RdoTest::SetUp();
        if (connection) create("Code INTEGER, Rate " + types().real, {"1, NULL"});
    }

    void expectWritten(const std::string& typed, const Regional& regional) {
        const auto number = typedNumber(typed, regional);
        ASSERT_TRUE(number) << typed;
        const auto row = connection->OpenResultset(select());
        row->Edit();
        row->setValue("Rate", number->text);
        row->Update();
        const auto written = connection->query("Select Rate From " + table)[0][0];
        ASSERT_NE(written.as<double>(), nullptr) << typed;
        // SQLite's driver gives 15 digits of a number.
        ASSERT_NEAR(*written.as<double>(), number->value, std::abs(number->value) * 1e-14)
            << typed << " as " << number->text;
        const auto same = connection->OpenResultset(
            "Select Code From " + table + " Where Abs(Rate - (" + SqlText::ofData(number->text) +
            ")) <= Abs(Rate) / 1000000000000000");
        ASSERT_FALSE(same->atEnd()) << typed << " in a statement";
    }
};
INSTANTIATE_TEST_SUITE_P(, TypedNumbers, testing::ValuesIn(test::databaseKinds()), test::kindName);

const std::array<Regional, 4> regionals{{{".", ",", DateOrder::monthDayYear, "/"},
                                         {",", ".", DateOrder::dayMonthYear, "/"},
                                         {".", "’", DateOrder::dayMonthYear, "."},
                                         {",", "\u202F", DateOrder::dayMonthYear, "/"}}};

TEST_P(TypedNumbers, AreWrittenAsTheValueTheyAreReadAs) {
    for (const char* typed : {"5",      "-5",    "5-",      "(5)",      "+5",
                              ".5",     "5.",    "007",     "1,234.50", "1e3",
                              "1.5D-3", "&H10",  "&HFFFF",  "&O17",     "0.00",
                              "-0",     "1e300", "-1e-300", "1e-400",   "12345678901234567890"})
        expectWritten(typed, regionals[0]);
    expectWritten(std::string(60, '9'), regionals[0]);
    expectWritten(std::string(200, '9'), regionals[0]);
    expectWritten("1.234,5", regionals[1]);
    expectWritten("1’234", regionals[2]);
    expectWritten("1\u202F234,5", regionals[3]);
}

TEST_P(TypedNumbers, OfAnyFormAreWrittenAsTheValueTheyAreReadAs) {
    const std::array<const char*, 20> pieces{"0", "1", "5",  "9",  "12", "000",   "234",
                                             "-", "+", "(",  ")",  ".",  ",",     "e",
                                             "D", " ", "&H", "e-", "’",  "\u202F"};
    std::mt19937 chance(7);
    for (int numbers = 0; numbers < 300;) {
        const Regional& regional = regionals[chance() % regionals.size()];
        std::string text;
        for (auto count = 1 + chance() % 7; count > 0; --count)
            text += pieces[chance() % pieces.size()];
        if (!typedNumber(text, regional)) continue;
        ++numbers;
        expectWritten(text, regional);
        if (HasFatalFailure()) return;
    }
}

}  // namespace
}  // namespace catalogador
