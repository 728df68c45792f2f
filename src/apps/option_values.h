#pragma once
#include <CLI/CLI.hpp>
#include <charconv>
#include <functional>
#include <limits>
#include <string>

#include "apps/options.h"

namespace catalogador {

/// A whole decimal number; one that does not fit its type is wrong usage.
template <class T>
T numberOf(const std::string& option, const std::string& text) {
    T number{};
    const char* end = text.data() + text.size();
    const auto result = std::from_chars(text.data(), end, number);
    if (result.ec == std::errc() && result.ptr == end) return number;
    using Limits = std::numeric_limits<T>;
    throw CLI::ValidationError(option, "'" + text + "' is no whole number from " +
                                           std::to_string(Limits::min()) + " to " +
                                           std::to_string(Limits::max()));
}

/// `target` is a number or an optional one.
template <class T, class Target>
CLI::Option* addNumber(CLI::App& app, const std::string& name, Target& target,
                       const std::string& description) {
    const auto read = [name, &target](const CLI::results_t& given) {
        target = numberOf<T>(name, given.front());
        return true;
    };
    return app.add_option(name, read, description)->type_name("N");
}

/// An option that may be repeated; `read` gets each text that is given.
void addRepeated(CLI::App& app, const char* name,
                 const std::function<void(const std::string&)>& read, const char* description,
                 const char* type);

/// The options that name the database. Exactly one of the group has to be given.
CLI::Option_group* addConnection(CLI::App& app, Options& options);

/// The commands under `views`.
void addViews(CLI::App& views, Options& options);

}  // namespace catalogador
