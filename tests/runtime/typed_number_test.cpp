#include "runtime/typed_number.h"

#include <gtest/gtest.h>

#include <array>
#include <random>

#include "runtime/convert.h"

namespace catalogador {
namespace {

const Regional english{".", ",", DateOrder::monthDayYear, "/"};
const Regional spanish{",", ".", DateOrder::dayMonthYear, "/"};
const Regional swiss{".", "’", DateOrder::dayMonthYear, "."};
const Regional french{",", "\u202F", DateOrder::dayMonthYear, "/"};
const Regional canadian{",", "\u00A0", DateOrder::yearMonthDay, "-"};

struct Reading {
    const char* typed;
    /// Null where it is no number.
    const char* written;
};

void expectReadings(const Regional& regional, std::initializer_list<Reading> readings) {
    for (const Reading& reading : readings) {
        const auto number = typedNumber(reading.typed, regional);
        EXPECT_EQ(isNumeric(Variant(reading.typed), regional), reading.written != nullptr)
            << reading.typed;
        ASSERT_EQ(number.has_value(), reading.written != nullptr) << reading.typed;
        if (!number) continue;
        EXPECT_EQ(number->text, reading.written) << reading.typed;
        EXPECT_EQ(number->value, toDouble(Variant(reading.written), english)) << reading.typed;
        EXPECT_EQ(number->value, toDouble(Variant(reading.typed), regional)) << reading.typed;
    }
}

TEST(TypedNumber, GroupsWithCommasByThreesOnly) {
    expectReadings(english, {{"1,234.5", "1234.5"},
                             {"12,345,678", "12345678"},
                             {"1,234", "1234"},
                             {"-1,234", "-1234"},
                             {"10,5", nullptr},
                             {"1,23", nullptr},
                             {"1,2345", nullptr},
                             {"1234,567", nullptr},
                             {"1,234,56", nullptr},
                             {"1,,234", nullptr},
                             {",234", nullptr},
                             {"1,", nullptr},
                             {"0,123", nullptr},
                             {"1.234,567", nullptr},
                             {"1.5,000", nullptr}});
}

TEST(TypedNumber, CountsNoZerosAtTheEndsWhenItHasTooManyDigits) {
    const std::string zeros(80, '0');
    expectReadings(english, {{(zeros + "12297829382473034").c_str(), "12297829382473034"},
                             {(zeros + "5.25").c_str(), "5.25"},
                             {("5.25" + zeros).c_str(), "5.25"},
                             {("5" + zeros).c_str(), "5e80"},
                             {(zeros + "." + zeros + "5").c_str(), "5e-81"}});
}

TEST(TypedNumber, GroupsWithPointsByThreesOnly) {
    expectReadings(spanish, {{"1.234,5", "1234.5"},
                             {"10,5", "10.5"},
                             {"1.234", "1234"},
                             {"1.23", nullptr},
                             {"0.123", nullptr},
                             {"1.2345", nullptr},
                             {"1,234.5", nullptr},
                             {"1.234.567,89", "1234567.89"},
                             {"1,5,5", nullptr}});
}

TEST(TypedNumber, GroupsWithAnyKindOfApostropheOrBlankWhereThatGroups) {
    expectReadings(swiss, {{"1’234", "1234"},
                           {"1'234.5", "1234.5"},
                           {"1’23", nullptr},
                           {"1,234", nullptr},
                           {"1 234", nullptr}});
    for (const Regional& regional : {french, canadian})
        expectReadings(regional, {{"1\u202F234,5", "1234.5"},
                                  {"1\u00A0234\u00A0567", "1234567"},
                                  {"1 234", "1234"},
                                  {"1\u202F23", nullptr},
                                  {"10 5", nullptr},
                                  {"1.234", nullptr},
                                  {"\u202F1", nullptr}});
}

TEST(TypedNumber, KnowsSignsBeforeAfterAndParentheses) {
    expectReadings(english, {{"5", "5"},
                             {"-5", "-5"},
                             {"- 5", "-5"},
                             {"+5", "5"},
                             {"5-", "-5"},
                             {"5 -", "-5"},
                             {"5+", "5"},
                             {"(5)", "-5"},
                             {" ( 1,234.50 ) ", "-1234.50"},
                             {"(-5)", nullptr},
                             {"-5-", nullptr},
                             {"(5", nullptr},
                             {"()", nullptr},
                             {"--5", nullptr},
                             {"-0", "0"}});
}

TEST(TypedNumber, WritesExponentsAndBasesAsTheNumberTheyAre) {
    expectReadings(english, {{"1e3", "1000"},
                             {"1.5D3", "1500"},
                             {"-1.25e-2", "-0.0125"},
                             {"1.50e1", "15"},
                             {"(1e2)", "-100"},
                             {"12e-400", "0"},
                             {"0e5", "0"},
                             {"1e300", "1e300"},
                             {"-12.5e299", "-1.25e300"},
                             {"1e400", nullptr},
                             {"1e99999999999999999999", nullptr},
                             {"1e", nullptr},
                             {"e3", nullptr},
                             {"&H10", "16"},
                             {"&hFFFF", "-1"},
                             {"&H10000", "65536"},
                             {"&O17", "15"},
                             {"&HG", nullptr},
                             {"&H", nullptr},
                             {"-&H10", nullptr}});
}

TEST(TypedNumber, KeepsTheDigitsThatWereTyped) {
    expectReadings(english, {{"007", "007"},
                             {"1.50", "1.50"},
                             {"0.00", "0.00"},
                             {".5", "0.5"},
                             {"5.", "5"},
                             {"12345678901234567890.123456789", "12345678901234567890.123456789"},
                             {"", nullptr},
                             {" ", nullptr},
                             {".", nullptr},
                             {"12a", nullptr},
                             {"1 2", nullptr},
                             {"NaN", nullptr},
                             {"inf", nullptr},
                             {"0x10", nullptr},
                             {"1_000", nullptr},
                             {"１２", nullptr}});
    EXPECT_EQ(typedNumber(std::string(70, '9'), english)->text,
              "9." + std::string(69, '9') + "e69");
    EXPECT_FALSE(typedNumber(std::string(400, '9'), english));
    EXPECT_EQ(typedNumber("0." + std::string(400, '0') + "1", english)->text, "0");
}

TEST(TypedNumber, IsReadAgainAsTheValueFromWhatItIsWrittenAs) {
    const std::array<const char*, 24> pieces{
        "0", "1", "5", "9", "12", "000",    "234",    "-", "+", "(",  ")", ".",
        ",", "e", "D", " ", "&H", "\u00A0", "\u202F", "’", "'", "&O", "F", "e-"};
    const std::array<Regional, 5> regionals{english, spanish, swiss, french, canadian};
    std::mt19937 chance(5);
    int numbers = 0;
    for (int i = 0; i < 400'000; ++i) {
        const Regional& regional = regionals[chance() % regionals.size()];
        std::string text;
        for (auto count = 1 + chance() % 7; count > 0; --count)
            text += pieces[chance() % pieces.size()];
        const auto number = typedNumber(text, regional);
        if (!number) continue;
        ++numbers;
        const auto again = typedNumber(number->text, Regional{".", "", {}, "/"});
        ASSERT_TRUE(again) << text;
        ASSERT_EQ(again->value, number->value) << text;
        ASSERT_EQ(again->text, number->text) << text;
        ASSERT_EQ(number->text.find_first_not_of("-0123456789.e"), std::string::npos) << text;
    }
    EXPECT_GT(numbers, 10'000);
}

}  // namespace
}  // namespace catalogador
