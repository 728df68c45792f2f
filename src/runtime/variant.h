#pragma once
#include <compare>
#include <concepts>
#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace catalogador {

/// The value of a database column that holds nothing.
struct Null {
    friend bool operator==(Null, Null) = default;
};

/// A date and time of the Gregorian calendar; `nanosecond` is 0 to 999,999,999.
struct Date {
    int year = 1899;
    int month = 12;
    int day = 30;
    int hour = 0;
    int minute = 0;
    int second = 0;
    std::int32_t nanosecond = 0;

    friend auto operator<=>(const Date&, const Date&) = default;
};

/// An exact number as the database wrote it: sign, digits and "." as decimal point.
struct Decimal {
    std::string text;

    friend bool operator==(const Decimal&, const Decimal&) = default;
};

/// A value of the host language: Null, a boolean, a number, a date or a text (UTF-8).
class Variant {
  public:
    using Storage = std::variant<Null, bool, std::int64_t, double, Decimal, Date, std::string>;

    Variant() = default;
    Variant(Null) {}
    Variant(std::same_as<bool> auto value) : storage_(value) {}
    template <std::integral T>
    requires(!std::same_as<T, bool>) Variant(T value)
        : storage_(static_cast<std::int64_t>(value)) {}
    Variant(double value) : storage_(value) {}
    Variant(Decimal value) : storage_(std::move(value)) {}
    Variant(Date value) : storage_(value) {}
    Variant(std::string value) : storage_(std::move(value)) {}
    Variant(std::string_view value) : storage_(std::string(value)) {}
    Variant(const char* value) : storage_(std::string(value)) {}

    [[nodiscard]] bool isNull() const { return std::holds_alternative<Null>(storage_); }
    [[nodiscard]] const Storage& storage() const { return storage_; }
    template <class T>
    [[nodiscard]] const T* as() const {
        return std::get_if<T>(&storage_);
    }

    friend bool operator==(const Variant&, const Variant&) = default;

  private:
    Storage storage_;
};

}  // namespace catalogador
