#include "adapters/script/transcript.h"

#include <cmath>
#include <type_traits>

#include "runtime/convert.h"

namespace catalogador::script {

namespace {

/// Beyond it a double no longer tells every whole number.
constexpr double largestWholeDouble = 9007199254740992.0;

Json jsonOfNumber(double value) {
    if (std::trunc(value) == value && std::abs(value) <= largestWholeDouble)
        return static_cast<std::int64_t>(value);
    return value;
}

Json jsonOfDecimal(const std::string& text) {
    Json number = Json::parse(text, nullptr, false);
    if (number.is_number_integer()) return number;
    return jsonOfNumber(number.is_number() ? number.get<double>() : leadingNumber(text));
}

}  // namespace

Json jsonOf(const Variant& value) {
    return std::visit(
        [](const auto& held) -> Json {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, Null>)
                return nullptr;
            else if constexpr (std::is_same_v<Held, double>)
                return jsonOfNumber(held);
            else if constexpr (std::is_same_v<Held, Decimal>)
                return jsonOfDecimal(held.text);
            else if constexpr (std::is_same_v<Held, Date>)
                return isoText(held);
            else
                return held;
        },
        value.storage());
}

std::string lineOf(const Json& value) {
    constexpr int oneLine = -1;
    return value.dump(oneLine, ' ', false, Json::error_handler_t::replace);
}

OutputFailed::OutputFailed()
    : std::runtime_error(
          "the output could not be written; check that what it is sent to is open and has room") {}

void Transcript::check() const {
    if (!out_) throw OutputFailed();
}

void Transcript::print(const Json& event) {
    // A reader at the other end of a pipe answers to what it reads.
    out_ << lineOf(event) << '\n' << std::flush;
}

void Transcript::trace(const Json& event) {
    if (traced_) print(event);
}

void TranscriptStatements::trace(const Json& event) {
    if (quiet_ == 0) transcript_.trace(event);
}

void TranscriptStatements::opened(const std::string& sql, int type, int lock) {
    trace({{"event", "statement"}, {"sql", sql}, {"type", type}, {"lock", lock}});
}

void TranscriptStatements::executed(const std::string& sql) {
    trace({{"event", "statement"}, {"sql", sql}, {"execute", true}});
}

void TranscriptStatements::written(std::string_view kind, const std::string& table,
                                   const std::vector<std::pair<std::string, Variant>>& columns,
                                   std::optional<bool> done) {
    Json values = Json::object();
    for (const auto& [name, value] : columns) values[name] = jsonOf(value);
    Json event = {{"event", "write"}, {"kind", kind}, {"table", table}, {"columns", values}};
    if (!done)
        event["unknown"] = true;
    else if (!*done)
        event["failed"] = true;
    trace(event);
}

}  // namespace catalogador::script
