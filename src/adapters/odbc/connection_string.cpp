#include "adapters/odbc/connection_string.h"

#include <algorithm>
#include <string_view>
#include <vector>

#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

/// How long a statement waits for another user's lock before it fails, in milliseconds.
constexpr std::string_view lockTimeout = "5000";

bool isPasswordKey(std::string_view key) {
    const std::string name = upperCase(trim(key));
    return name == "PWD" || name == "PASSWORD";
}

/// Whether the driver would not take the text for the path that it is.
bool isOdd(const std::string& file) {
    return file.find(';') != std::string::npos || file.front() == ' ' || file.back() == ' ' ||
           file.front() == '{' || file.starts_with("file:");
}

/// The path as SQLite reads it after "file:".
std::string uriOf(const std::string& file) {
    constexpr std::string_view plain = "/-._~";
    constexpr std::string_view hexadecimal = "0123456789ABCDEF";
    std::string uri = "file:";
    for (const char c : file) {
        const auto byte = static_cast<unsigned char>(c);
        const bool alphanumeric =
            (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9');
        if (alphanumeric || plain.find(c) != std::string_view::npos) {
            uri += c;
        } else {
            uri += '%';
            uri += hexadecimal[byte >> 4U];
            uri += hexadecimal[byte & 0xFU];
        }
    }
    return uri;
}

/// The values of the password keys, with the braces and without.
std::vector<std::string> passwordsOf(std::string_view connection) {
    std::vector<std::string> passwords;
    while (!connection.empty()) {
        const std::size_t equals = connection.find('=');
        if (equals == std::string_view::npos) break;
        const std::string_view key = connection.substr(0, equals);
        connection.remove_prefix(equals + 1);
        connection.remove_prefix(std::min(connection.find_first_not_of(' '), connection.size()));
        const bool braced = connection.starts_with('{');
        std::size_t end = connection.find(braced ? '}' : ';');
        while (braced && end != std::string_view::npos && connection.substr(end + 1, 1) == "}")
            end = connection.find('}', end + 2);
        if (end == std::string_view::npos) end = connection.size();
        std::string_view value = connection.substr(0, end);
        if (braced) value.remove_prefix(1);
        if (isPasswordKey(key)) {
            passwords.emplace_back(value);
            passwords.push_back(replaceText(value, "}}", "}", Compare::binary));
        }
        const std::size_t next = connection.find(';', end);
        connection.remove_prefix(next == std::string_view::npos ? connection.size() : next + 1);
    }
    return passwords;
}

}  // namespace

std::string connectionStringOfSqliteFile(const std::string& file) {
    if (file.empty() || file.find('\0') != std::string::npos)
        throw RuntimeError(error_number::invalidProcedureCall,
                           "This is no name of a file: " + file);
    return "DRIVER={SQLite3};Database=" + (isOdd(file) ? uriOf(file) : file) +
           ";Timeout=" + std::string(lockTimeout) + ";FKSupport=1";
}

std::string withoutPasswords(std::string text, const std::string& connectionString) {
    for (const std::string& password : passwordsOf(connectionString))
        text = replaceText(text, password, "***", Compare::binary);
    return text;
}

}  // namespace catalogador
