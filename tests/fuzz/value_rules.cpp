// The rules of numbers, dates and texts, in any locale.
#include <fuzzer/FuzzedDataProvider.h>

#include <cmath>
#include <cstdlib>

#include "adapters/sql/column_info.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"
#include "runtime/typed_number.h"

namespace {

using namespace catalogador;

void require(bool condition) {
    if (!condition) std::abort();
}

Regional anyRegional(FuzzedDataProvider& data) {
    static const Regional regionals[] = {{".", ",", DateOrder::monthDayYear, "/"},
                                         {",", ".", DateOrder::dayMonthYear, "-"},
                                         {",", "\u00A0", DateOrder::yearMonthDay, "."},
                                         {".", "’", DateOrder::dayMonthYear, "/"}};
    return data.PickValueInArray(regionals);
}

/// The number of the RuntimeError that the conversion raises, 0 for none.
template <class Conversion>
std::int32_t errorOf(Conversion conversion) {
    try {
        conversion();
    } catch (const RuntimeError& error) {
        return error.number();
    }
    return 0;
}

void checkNumbers(const Variant& value, const Regional& regional) {
    const std::int32_t error = errorOf([&] { toDouble(value, regional); });
    if (isNumeric(value, regional)) require(error == 0 || error == error_number::overflow);
    errorOf([&] { toByte(value, regional); });
    errorOf([&] { toInteger(value, regional); });
    errorOf([&] { toLong(value, regional); });
    errorOf([&] { toSingle(value, regional); });
    errorOf([&] { toBoolean(value, regional); });
    toTextOrEmpty(value, regional);
    equalValues(value, Variant(1), regional);
    require(equalValues(value, value, regional).value_or(true));
}

void checkTypedNumber(const std::string& text, const Regional& regional) {
    const auto number = typedNumber(text, regional);
    require(number.has_value() == isNumeric(Variant(text), regional));
    if (!number) return;
    const auto written = typedNumber(number->text, Regional{".", "", regional.dateOrder, "/"});
    require(written && written->value == number->value && written->text == number->text);
}

void checkTexts(const std::string& text, const std::string& other) {
    const std::int32_t error = errorOf([&] { leadingNumber(text); });
    require(error == 0 || error == error_number::overflow);
    require(trim(trim(text)) == trim(text));
    require(upperCase(upperCase(text)) == upperCase(text));
    require(foldCase(foldCase(text)) == foldCase(text));
    require(equalText(text, text) && compareText(text, text, Compare::text) == 0);
    require((compareText(text, other, Compare::text) < 0) ==
            (compareText(other, text, Compare::text) > 0));
    // Without something between them, the bytes of two texts may make up one character.
    const std::string around = text + "|" + other + "|" + text;
    require(containsText(around, other, Compare::binary));
    require(containsText(around, other, Compare::text));
    if (!other.empty())
        require(
            !containsText(replaceText(text, other, "", Compare::binary), other, Compare::binary) ||
            containsText(text, other, Compare::binary));
    require(leftCharacters(text, lengthInCharacters(text)) == text);
    std::string joined;
    for (const std::string& piece : splitText(text, "|")) joined += piece + "|";
    if (!text.empty()) require(joined == text + "|");
}

void checkDates(const std::string& text) {
    const auto date = dateFromIso(text);
    if (!date) return;
    require(dateFromIso(isoText(*date)) == date);
    dayAndTime(*date);
    for (int kind = 0; kind <= static_cast<int>(sql::ColumnKind::other); ++kind)
        sql::variantOf(text, static_cast<sql::ColumnKind>(kind));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    FuzzedDataProvider data(bytes, size);
    const Regional regional = anyRegional(data);
    const double number = data.ConsumeFloatingPoint<double>();
    const std::string other = data.ConsumeRandomLengthString(12);
    const std::string text = data.ConsumeRemainingBytesAsString();
    checkNumbers(Variant(text), regional);
    checkTypedNumber(text, regional);
    // The shortest text of the largest numbers is rounded up, beyond what a number can be.
    if (std::isfinite(number) && std::abs(number) < 1e300) {
        checkNumbers(Variant(number), regional);
        require(isNumeric(Variant(toText(Variant(number), regional)), regional));
    }
    checkTexts(text, other);
    checkDates(text);
    for (int kind = 0; kind <= static_cast<int>(sql::ColumnKind::other); ++kind)
        checkNumbers(sql::variantOf(text, static_cast<sql::ColumnKind>(kind)), regional);
    return 0;
}
