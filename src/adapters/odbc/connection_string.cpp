#include "adapters/odbc/connection_string.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <vector>

#include "adapters/sql/dialect.h"
#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::odbc {

namespace {

bool isDriverOf(const sql::Dialect& dialect, std::string_view driver) {
    return containsText(driver, dialect.facts().title, Compare::text);
}

/// Null for a driver that is not known.
const sql::Dialect* dialectOfDriver(std::string_view driver) {
    for (const sql::Dialect* dialect : sql::dialects())
        if (isDriverOf(*dialect, driver)) return dialect;
    return nullptr;
}

bool isPassword(const sql::ConnectionEntry& entry) {
    return entry.key == "PWD" || entry.key == "PASSWORD";
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

/// The path of which uriOf made that; other texts as they are.
std::string pathOfUri(const std::string& uri) {
    constexpr std::string_view scheme = "file:";
    if (!uri.starts_with(scheme)) return uri;
    std::string path;
    for (std::size_t at = scheme.size(); at < uri.size(); ++at) {
        unsigned byte = 0;
        const char* const digits = uri.data() + at + 1;
        const bool coded = uri[at] == '%' && at + 2 < uri.size() &&
                           std::from_chars(digits, digits + 2, byte, 16).ptr == digits + 2;
        path += coded ? static_cast<char>(byte) : uri[at];
        if (coded) at += 2;
    }
    return path;
}

/// What stands between the commas, without blanks around it.
std::vector<std::string> partsOf(std::string_view list) {
    std::vector<std::string> parts;
    while (!list.empty()) {
        const std::size_t end = std::min(list.find(','), list.size());
        parts.emplace_back(trim(list.substr(0, end)));
        list.remove_prefix(std::min(end + 1, list.size()));
    }
    return parts;
}

std::vector<sql::ConnectionEntry> entriesOf(std::string_view connection) {
    std::vector<sql::ConnectionEntry> entries;
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
        entries.push_back({upperCase(trim(key)), value, braced});
        const std::size_t next = connection.find(';', end);
        connection.remove_prefix(next == std::string_view::npos ? connection.size() : next + 1);
    }
    return entries;
}

}  // namespace

std::string connectionStringOfSqliteFile(const std::string& file) {
    if (file.empty() || file.find('\0') != std::string::npos)
        throw RuntimeError(error_number::invalidProcedureCall,
                           "This is no name of a file: " + file);
    return "DRIVER={SQLite3};Database=" + (isOdd(file) ? uriOf(file) : file) + ";FKSupport=1";
}

std::optional<std::string> sqliteFileOf(const std::string& connectionString) {
    const auto entries = entriesOf(connectionString);
    const auto value = [&](std::string_view key) {
        const auto found =
            std::find_if(entries.begin(), entries.end(),
                         [&](const sql::ConnectionEntry& entry) { return entry.key == key; });
        return found == entries.end() ? std::string()
                                      : replaceText(found->value, "}}", "}", Compare::binary);
    };
    const std::string database = value("DATABASE");
    const bool named = !value("DSN").empty() || !value("FILEDSN").empty();
    const bool served = !value("SERVER").empty() || !value("SERVERNAME").empty();
    const std::string driver = value("DRIVER");
    const bool native = driver.empty() ? !served : containsText(driver, "SQLite", Compare::text);
    if (database.empty() || named || !native) return std::nullopt;
    return pathOfUri(database);
}

bool hasKey(const std::string& connectionString, std::string_view key) {
    const auto entries = entriesOf(connectionString);
    return std::any_of(entries.begin(), entries.end(), [&](const sql::ConnectionEntry& entry) {
        return equalText(entry.key, key);
    });
}

std::string withTimeouts(const std::string& connectionString, const sql::Timeouts& timeouts) {
    const auto entries = entriesOf(connectionString);
    const auto driver =
        std::find_if(entries.begin(), entries.end(),
                     [](const sql::ConnectionEntry& entry) { return entry.key == "DRIVER"; });
    const sql::Dialect* dialect =
        driver == entries.end() ? nullptr : dialectOfDriver(driver->value);
    if (dialect == nullptr) return connectionString;
    std::string result = connectionString;
    for (const auto& [key, value] : dialect->timeoutEntries(timeouts))
        if (!hasKey(connectionString, key)) result += ";" + std::string(key) + "=" + value;
    return result;
}

std::string withOneCommand(const std::string& connectionString) {
    const auto entries = entriesOf(connectionString);
    std::string result = connectionString;
    for (const sql::Dialect* dialect : sql::dialects()) {
        const bool used =
            std::any_of(entries.begin(), entries.end(), [&](const sql::ConnectionEntry& entry) {
                return entry.key == "DRIVER" && isDriverOf(*dialect, entry.value);
            });
        if (used) result += dialect->oneCommandEntries(entries);
    }
    return result;
}

std::vector<std::string> eachHost(const std::string& connectionString) {
    const auto entries = entriesOf(connectionString);
    const auto valueOf = [&](std::string_view key) {
        const auto found =
            std::find_if(entries.begin(), entries.end(),
                         [&](const sql::ConnectionEntry& entry) { return entry.key == key; });
        return found == entries.end() ? std::string_view() : found->value;
    };
    const auto hosts = partsOf(valueOf("SERVER"));
    const sql::Dialect* dialect = dialectOfDriver(valueOf("DRIVER"));
    const bool known = dialect != nullptr && dialect->facts().listsHosts;
    if (hosts.size() < 2 || !known) return {connectionString};
    const auto ports = partsOf(valueOf("PORT"));
    std::vector<std::string> all;
    for (std::size_t i = 0; i < hosts.size(); ++i) {
        std::string one;
        for (const sql::ConnectionEntry& entry : entries)
            if (entry.key != "SERVER" && entry.key != "PORT")
                one += entry.key + (entry.braced ? "={" : "=") + std::string(entry.value) +
                       (entry.braced ? "};" : ";");
        one += "SERVER=" + hosts[i];
        if (!ports.empty()) one += ";PORT=" + ports[std::min(i, ports.size() - 1)];
        all.push_back(one);
    }
    return all;
}

std::string withoutPasswords(std::string text, const std::string& connectionString) {
    for (const sql::ConnectionEntry& entry : entriesOf(connectionString)) {
        if (!isPassword(entry)) continue;
        const std::string plain = replaceText(entry.value, "}}", "}", Compare::binary);
        text = replaceText(text, entry.value, "***", Compare::binary);
        text = replaceText(text, plain, "***", Compare::binary);
    }
    return text;
}

}  // namespace catalogador::odbc
