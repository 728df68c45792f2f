#include <array>
#include <charconv>
#include <cstdio>

#include "runtime/convert.h"

namespace catalogador {

namespace {

int daysInMonth(int year, int month) {
    constexpr std::array<int, 12> days{31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    const bool leap = (year % 4 == 0 && year % 100 != 0) || year % 400 == 0;
    return month == 2 && leap ? 29 : days[static_cast<std::size_t>(month - 1)];
}

bool isValid(const Date& date) {
    return date.year >= 1 && date.year <= 9999 && date.month >= 1 && date.month <= 12 &&
           date.day >= 1 && date.day <= daysInMonth(date.year, date.month) && date.hour < 24 &&
           date.minute < 60 && date.second < 60;
}

/// Reads fixed-width parts of a date text one after another.
class Reader {
  public:
    explicit Reader(std::string_view text) : text_(text) {}

    bool digits(std::size_t count, int& value) {
        if (text_.size() < count) return false;
        const char* end = text_.data() + count;
        const auto [stop, error] = std::from_chars(text_.data(), end, value);
        if (error != std::errc() || stop != end || value < 0) return false;
        text_.remove_prefix(count);
        return true;
    }
    bool one(std::string_view of) {
        if (text_.empty() || of.find(text_.front()) == std::string_view::npos) return false;
        text_.remove_prefix(1);
        return true;
    }
    /// The digits of a fraction, as nanoseconds; more than nine are cut.
    bool fraction(std::int32_t& nanosecond) {
        std::int32_t unit = 100'000'000;
        const std::size_t before = text_.size();
        while (!text_.empty() && text_.front() >= '0' && text_.front() <= '9') {
            nanosecond += (text_.front() - '0') * unit;
            unit /= 10;
            text_.remove_prefix(1);
        }
        return text_.size() < before;
    }
    [[nodiscard]] bool atEnd() const { return text_.empty(); }

  private:
    std::string_view text_;
};

template <class... Values>
std::string formatted(const char* format, Values... values) {
    std::array<char, 64> text{};
    std::snprintf(text.data(), text.size(), format, values...);
    return text.data();
}

}  // namespace

std::string dayAndTime(const Date& date) {
    return formatted("%02d/%02d/%02d %02d:%02d", date.day, date.month, date.year % 100, date.hour,
                     date.minute);
}

std::string isoText(const Date& date) {
    std::string text = formatted("%04d-%02d-%02d %02d:%02d:%02d", date.year, date.month, date.day,
                                 date.hour, date.minute, date.second);
    if (date.nanosecond == 0) return text;
    std::string fraction = formatted("%09d", date.nanosecond);
    fraction.erase(fraction.find_last_not_of('0') + 1);
    return text + "." + fraction;
}

namespace {

/// The number of some digits, negative when one of them is no digit.
int digitsAt(const char* text, int count) {
    int number = 0;
    for (int i = 0; i < count; ++i) {
        const int digit = text[i] - '0';
        if (digit < 0 || digit > 9) return -1;
        number = 10 * number + digit;
    }
    return number;
}

/// A day without a time, or at midnight, which is what most dates of a list are.
std::optional<Date> wholeDay(std::string_view text) {
    constexpr std::size_t daySize = 10;
    if (text.size() < daySize || text[4] != '-' || text[7] != '-') return std::nullopt;
    if (text.size() > daySize && text.substr(daySize) != " 00:00:00") return std::nullopt;
    const Date date{digitsAt(text.data(), 4), digitsAt(text.data() + 5, 2),
                    digitsAt(text.data() + 8, 2)};
    return isValid(date) ? std::optional(date) : std::nullopt;
}

}  // namespace

std::optional<Date> dateFromIso(std::string_view text) {
    if (const auto day = wholeDay(text)) return day;
    Reader reader(text);
    Date date{0, 0, 0};
    if (!reader.digits(4, date.year) || !reader.one("-") || !reader.digits(2, date.month) ||
        !reader.one("-") || !reader.digits(2, date.day))
        return std::nullopt;
    if (!reader.atEnd()) {
        if (!reader.one("T ") || !reader.digits(2, date.hour) || !reader.one(":") ||
            !reader.digits(2, date.minute))
            return std::nullopt;
        if (reader.one(":") && !reader.digits(2, date.second)) return std::nullopt;
        if (reader.one(".") && !reader.fraction(date.nanosecond)) return std::nullopt;
    }
    if (!reader.atEnd() || !isValid(date)) return std::nullopt;
    return date;
}

}  // namespace catalogador
