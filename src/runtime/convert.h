#pragma once
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "runtime/regional.h"
#include "runtime/variant.h"

namespace catalogador {

/// The number at the start of a text: blanks, tabs and line feeds anywhere are skipped, then an
/// optional sign, digits with "." as decimal point whatever the locale, an exponent (1e3, 1d3),
/// or &H / &O for hexadecimal / octal. A text that does not start with a number gives 0. Raises
/// overflow for a number beyond what there is.
double leadingNumber(std::string_view text);

/// Whether the whole value can be read as a number in this locale: of a text, whether typedNumber
/// reads it. Null, the empty text and dates are not numeric; booleans and numbers are.
bool isNumeric(const Variant& value, const Regional& regional);

/// The text of a value as the user reads it: numbers without thousands separator and with the
/// locale's decimal separator (up to 15 significant digits), dates as short date and, when it is
/// not midnight, time. Raises invalidUseOfNull for Null.
std::string toText(const Variant& value, const Regional& regional);
/// The same, but Null gives the empty text.
std::string toTextOrEmpty(const Variant& value, const Regional& regional);

/// The texts of an exact number in the form of Decimal, of a number and of a date, appended.
void appendDecimalText(std::string& text, std::string_view number, const Regional& regional);
void appendNumberText(std::string& text, double number, const Regional& regional);
void appendDateText(std::string& text, const Date& date, const Regional& regional);

/// Conversions to whole numbers round half to even. They raise invalidUseOfNull, typeMismatch (a
/// text that is not numeric) or overflow.
std::uint8_t toByte(const Variant& value, const Regional& regional);
std::int16_t toInteger(const Variant& value, const Regional& regional);
std::int32_t toLong(const Variant& value, const Regional& regional);
double toDouble(const Variant& value, const Regional& regional);
float toSingle(const Variant& value, const Regional& regional);
/// 0 and "0" are false, other numbers true; "True"/"False" in any case are read; raises like the
/// numbers otherwise.
bool toBoolean(const Variant& value, const Regional& regional);

/// Whether two values are equal: as numbers when both can be read as numbers and one of them is a
/// number, otherwise as texts. nullopt when one is Null (Null spreads).
std::optional<bool> equalValues(const Variant& left, const Variant& right,
                                const Regional& regional);

/// "dd/mm/yy hh:mm".
std::string dayAndTime(const Date& date);
/// "YYYY-MM-DD HH:MM:SS", followed by the fraction of the second when there is one.
std::string isoText(const Date& date);
/// Reads "YYYY-MM-DD", optionally followed by "T" or a blank and "HH:MM[:SS[.fraction]]".
std::optional<Date> dateFromIso(std::string_view text);

}  // namespace catalogador
