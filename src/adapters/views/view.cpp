#include "adapters/views/view.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <tuple>

#include "adapters/checks/field_rules.h"
#include "runtime/convert.h"
#include "runtime/text.h"

namespace catalogador::views {

namespace {

constexpr Column columnsOfView[] = {{"ABMIDFormVista", Contents::smallNumber},
                                    {"ABMTitulo", Contents::text},
                                    {"ABMNombreVista", Contents::text},
                                    {"ABMAnchoForm", Contents::number},
                                    {"ABMConsulta", Contents::text},
                                    {"ABMColumnasNombre", Contents::text},
                                    {"ABMColumnasAncho", Contents::text},
                                    {"ABMColumnasAlineacion", Contents::text},
                                    {"ABMSQLValidarDuplicados", Contents::text},
                                    {"ABMIDAyuda", Contents::smallNumber},
                                    {"ABMValidarAcceso", Contents::text}};

constexpr Column columnsOfField[] = {
    {"ACoKeyControl", Contents::text},       {"ACoCaption", Contents::text},
    {"ACoLen", Contents::longNumber},        {"ACoObligatorio", Contents::smallNumber},
    {"ACoDuplicado", Contents::smallNumber}, {"ACoAccionF2", Contents::text},
    {"ACoTipo", Contents::smallNumber},      {"ACoDatosCombo", Contents::text}};

constexpr Column columnsOfRule[] = {{"ForOrdenSQL", Contents::longNumber},
                                    {"ForSQLForanea", Contents::text},
                                    {"ForMensaje", Contents::text},
                                    {"ForSQLUpdate", Contents::text}};

constexpr Column columnsOfRight[] = {{"UsuNombre", Contents::text},
                                     {"PerEmpresa", Contents::smallNumber},
                                     {"PerDerechos", Contents::text}};

std::string textOf(const Variant& value) {
    return toTextOrEmpty(value, Regional{});
}

/// What single precision keeps of a number, with as few digits as tell it.
double asSingle(double number) {
    std::array<char, 32> digits{};
    const auto end =
        std::to_chars(digits.data(), digits.data() + digits.size(), static_cast<float>(number)).ptr;
    double result = 0;
    std::from_chars(digits.data(), end, result);
    return result;
}

std::optional<double> numberIn(const Variant& value) {
    if (const auto* flag = value.as<bool>()) return *flag ? 1 : 0;
    if (const auto* whole = value.as<std::int64_t>()) return static_cast<double>(*whole);
    if (const auto* number = value.as<double>()) return *number;
    const auto* exact = value.as<Decimal>();
    if (exact == nullptr) return std::nullopt;
    double result = 0;
    std::from_chars(exact->text.data(), exact->text.data() + exact->text.size(), result);
    return result;
}

bool isWhole(double number) {
    constexpr double limit = 1e15;
    return std::abs(number) < limit && number == std::trunc(number);
}

template <class T>
bool fits(double number) {
    return isWhole(number) && number >= std::numeric_limits<T>::min() &&
           number <= std::numeric_limits<T>::max();
}

/// The place of a field on the screen; the last for what is none.
std::ptrdiff_t placeOfField(const Row& field) {
    const std::string key = textOf(field.front());
    return std::find(std::begin(checks::fieldKeys), std::end(checks::fieldKeys), key) -
           std::begin(checks::fieldKeys);
}

/// Null comes before everything.
std::tuple<bool, std::int64_t> orderOfNumber(const Variant& value) {
    const auto* number = value.as<std::int64_t>();
    return {number != nullptr, number == nullptr ? 0 : *number};
}

}  // namespace

std::span<const Column> viewColumns() {
    return columnsOfView;
}

std::span<const Column> fieldColumns() {
    return columnsOfField;
}

std::span<const Column> ruleColumns() {
    return columnsOfRule;
}

std::span<const Column> rightColumns() {
    return columnsOfRight;
}

std::int64_t View::number() const {
    return *view.front().as<std::int64_t>();
}

std::string View::name() const {
    return textOf(valueOf(*this, "ABMNombreVista"));
}

std::string View::option() const {
    const std::string access = textOf(valueOf(*this, "ABMValidarAcceso"));
    return access.substr(0, access.find('|'));
}

bool View::describesTheSameAs(const View& other) const {
    return view == other.view && fields == other.fields && hasSequence == other.hasSequence &&
           rules == other.rules && rights == other.rights;
}

std::size_t placeOf(std::span<const Column> columns, std::string_view name) {
    return static_cast<std::size_t>(
        std::find_if(columns.begin(), columns.end(),
                     [&](const Column& column) { return column.name == name; }) -
        columns.begin());
}

const Variant& valueOf(const View& view, std::string_view column) {
    return view.view.at(placeOf(columnsOfView, column));
}

std::optional<Variant> fitting(const Variant& value, Contents contents) {
    if (value.isNull()) return value;
    if (contents == Contents::text) {
        if (value.as<std::string>() == nullptr) return std::nullopt;
        return value;
    }
    const auto number = numberIn(value);
    if (!number) return std::nullopt;
    if (contents == Contents::smallNumber && !fits<std::int16_t>(*number)) return std::nullopt;
    if (contents == Contents::longNumber && !fits<std::int32_t>(*number)) return std::nullopt;
    if (!std::isfinite(static_cast<float>(*number))) return std::nullopt;
    const double kept = contents == Contents::number ? asSingle(*number) : *number;
    if (isWhole(kept)) return Variant(static_cast<std::int64_t>(kept));
    return Variant(kept);
}

std::string_view nameOf(Contents contents) {
    switch (contents) {
        case Contents::smallNumber:
            return "a whole number from -32768 to 32767";
        case Contents::longNumber:
            return "a whole number from -2147483648 to 2147483647";
        case Contents::number:
            return "a number";
        default:
            return "a text";
    }
}

void putInOrder(View& view) {
    std::stable_sort(view.fields.begin(), view.fields.end(), [](const Row& left, const Row& right) {
        return std::tuple(placeOfField(left), textOf(left.front())) <
               std::tuple(placeOfField(right), textOf(right.front()));
    });
    std::stable_sort(view.rules.begin(), view.rules.end(), [](const Row& left, const Row& right) {
        return std::tuple(orderOfNumber(left[0]), textOf(left[1]), textOf(left[2]),
                          textOf(left[3])) < std::tuple(orderOfNumber(right[0]), textOf(right[1]),
                                                        textOf(right[2]), textOf(right[3]));
    });
    std::stable_sort(view.rights.begin(), view.rights.end(), [](const Row& left, const Row& right) {
        return std::tuple(textOf(left[0]), orderOfNumber(left[1])) <
               std::tuple(textOf(right[0]), orderOfNumber(right[1]));
    });
}

}  // namespace catalogador::views
