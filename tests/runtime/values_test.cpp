#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdio>
#include <random>

#include "runtime/convert.h"
#include "runtime/error.h"

namespace catalogador {
namespace {

const Regional english{".", ",", DateOrder::monthDayYear, "/"};
const Regional spanish{",", ".", DateOrder::dayMonthYear, "/"};

template <class Body>
std::int32_t errorOf(Body body) {
    try {
        body();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

TEST(LeadingNumber, ReadsWhatTheTextStartsWith) {
    EXPECT_EQ(leadingNumber("12abc"), 12);
    EXPECT_EQ(leadingNumber(" 1 2 3 "), 123);
    EXPECT_EQ(leadingNumber("\t-4.5x"), -4.5);
    EXPECT_EQ(leadingNumber("+7"), 7);
    EXPECT_EQ(leadingNumber(".5"), 0.5);
    EXPECT_EQ(leadingNumber("1e3"), 1000);
    EXPECT_EQ(leadingNumber("1d-2"), 0.01);
    EXPECT_EQ(leadingNumber("1,5"), 1);
    EXPECT_EQ(leadingNumber("1e"), 1);
}

TEST(LeadingNumber, ReadsHexadecimalAndOctalWithTheirSigns) {
    EXPECT_EQ(leadingNumber("&HFF"), 255);
    EXPECT_EQ(leadingNumber("&hFFFF"), -1);
    EXPECT_EQ(leadingNumber("&H10000"), 65536);
    EXPECT_EQ(leadingNumber("&HFFFFFFFF"), -1);
    EXPECT_EQ(leadingNumber("&O17"), 15);
    EXPECT_EQ(leadingNumber("&Hx"), 0);
}

TEST(LeadingNumber, IsZeroWithoutANumber) {
    for (const char* text : {"", "abc", "[Abrir]", "-", ".", "$5", "e3"})
        EXPECT_EQ(leadingNumber(text), 0) << text;
}

TEST(IsNumeric, KnowsTheSeparatorsOfTheLocale) {
    for (const char* text : {"12", " 12 ", "-12", "12-", "+1", "(12)", "1e3", "&HFF", ".5", "5."})
        EXPECT_TRUE(isNumeric(Variant(text), english)) << text;
    EXPECT_TRUE(isNumeric(Variant("1,234.5"), english));
    EXPECT_TRUE(isNumeric(Variant("1.234,5"), spanish));
    EXPECT_FALSE(isNumeric(Variant("1,234.5"), spanish));
}

TEST(IsNumeric, RefusesWhatIsNoNumberAsAWhole) {
    for (const char* text : {"", "  ", "12a", "a12", "1 2", "--1", "1.2.3", "-", "&HG"})
        EXPECT_FALSE(isNumeric(Variant(text), english)) << text;
    EXPECT_FALSE(isNumeric(Variant(Null{}), english));
    EXPECT_FALSE(isNumeric(Variant(Date{}), english));
    EXPECT_TRUE(isNumeric(Variant(true), english));
    EXPECT_TRUE(isNumeric(Variant(Decimal{"1.5"}), english));
}

TEST(ToText, WritesNumbersInTheLocale) {
    EXPECT_EQ(toText(Variant(0.5), spanish), "0,5");
    EXPECT_EQ(toText(Variant(-0.0), english), "0");
    EXPECT_EQ(toText(Variant(724.0), english), "724");
    EXPECT_EQ(toText(Variant(1e20), english), "1E+20");
    EXPECT_EQ(toText(Variant(0.1 + 0.2), english), "0.3");
    EXPECT_EQ(toText(Variant(Decimal{"724.0000"}), english), "724");
    EXPECT_EQ(toText(Variant(Decimal{"-.50"}), spanish), "-0,5");
    EXPECT_EQ(toText(Variant(INT64_MIN), english), "-9223372036854775808");
    EXPECT_EQ(toText(Variant(true), english), "True");
}

TEST(ToText, WritesDatesInTheOrderOfTheLocale) {
    const Date noon{2026, 3, 1, 12, 5, 9};
    EXPECT_EQ(toText(Variant(noon), spanish), "01/03/2026 12:05:09");
    EXPECT_EQ(toText(Variant(Date{2026, 3, 1}), english), "03/01/2026");
    EXPECT_EQ(dayAndTime(noon), "01/03/26 12:05");
}

TEST(ToText, SpreadsNull) {
    EXPECT_EQ(errorOf([] { (void)toText(Variant(Null{}), english); }), 94);
    EXPECT_EQ(toTextOrEmpty(Variant(Null{}), english), "");
    EXPECT_EQ(equalValues(Variant(Null{}), Variant(1), english), std::nullopt);
}

TEST(WholeNumbers, RoundHalfToEvenAndKeepTheirRange) {
    EXPECT_EQ(toLong(Variant(2.5), english), 2);
    EXPECT_EQ(toLong(Variant(3.5), english), 4);
    EXPECT_EQ(toInteger(Variant("-32768"), english), -32768);
    EXPECT_EQ(toByte(Variant(255), english), 255);
    EXPECT_EQ(errorOf([] { (void)toByte(Variant(256), english); }), 6);
    EXPECT_EQ(errorOf([] { (void)toByte(Variant(-1), english); }), 6);
    EXPECT_EQ(errorOf([] { (void)toInteger(Variant(32768), english); }), 6);
    EXPECT_EQ(errorOf([] { (void)toLong(Variant(2147483648.0), english); }), 6);
    EXPECT_EQ(errorOf([] { (void)toLong(Variant("x"), english); }), 13);
    EXPECT_EQ(errorOf([] { (void)toLong(Variant(Null{}), english); }), 94);
}

TEST(EqualValues, ComparesAsNumbersWhenOneIsANumber) {
    EXPECT_EQ(equalValues(Variant("1"), Variant(1), english), true);
    EXPECT_EQ(equalValues(Variant("1.0"), Variant("1"), english), false);
    EXPECT_EQ(equalValues(Variant("a"), Variant(1), english), false);
}

TEST(ToBoolean, ReadsNumbersAndTheTwoWords) {
    EXPECT_TRUE(toBoolean(Variant(-1), english));
    EXPECT_FALSE(toBoolean(Variant("0"), english));
    EXPECT_TRUE(toBoolean(Variant("TRUE"), english));
    EXPECT_EQ(errorOf([] { (void)toBoolean(Variant("si"), english); }), 13);
}

TEST(DateFromIso, ReadsDatesThatExist) {
    EXPECT_EQ(dateFromIso("2024-02-29"), (Date{2024, 2, 29}));
    EXPECT_EQ(dateFromIso("2024-02-29T10:11"), (Date{2024, 2, 29, 10, 11}));
    EXPECT_EQ(dateFromIso("2024-01-02 03:04:05.25"), (Date{2024, 1, 2, 3, 4, 5, 250000000}));
    EXPECT_EQ(isoText(Date{2024, 1, 2, 3, 4, 5, 250000000}), "2024-01-02 03:04:05.25");
    for (const char* text : {"", "2023-02-29", "2024-13-01", "2024-01-01 25:00", "2024-01-01x"})
        EXPECT_EQ(dateFromIso(text), std::nullopt) << text;
}

TEST(ToText, OfANumberHasItsFifteenSignificantDigits) {
    std::mt19937_64 chance(11);
    std::uniform_int_distribution<std::int64_t> whole(-999'999'999'999'999'999,
                                                      999'999'999'999'999'999);
    std::uniform_int_distribution<int> size(-12, 12);
    for (int i = 0; i < 200'000; ++i) {
        // Some have few digits, some more than fit.
        const auto few = static_cast<double>(whole(chance) >> (i % 60));
        const double number = few * std::pow(10, size(chance));
        std::array<char, 40> expected{};
        std::snprintf(expected.data(), expected.size(), "%.15g", number);
        std::string text = expected.data();
        std::replace(text.begin(), text.end(), 'e', 'E');
        ASSERT_EQ(toText(Variant(number), Regional()), text);
    }
}

}  // namespace
}  // namespace catalogador
