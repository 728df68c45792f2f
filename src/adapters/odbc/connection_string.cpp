#include "adapters/odbc/connection_string.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <string_view>
#include <vector>

#include "runtime/convert.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::odbc {

namespace {

constexpr std::chrono::seconds timeForTheNetwork{5};

struct Entry {
    /// In capitals.
    std::string key;
    /// As it is written, but for the braces around it.
    std::string_view value;
    bool braced = false;
};

bool isPassword(const Entry& entry) {
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

std::vector<Entry> entriesOf(std::string_view connection) {
    std::vector<Entry> entries;
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
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [&](const Entry& entry) { return entry.key == key; });
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
    return std::any_of(entries.begin(), entries.end(),
                       [&](const Entry& entry) { return equalText(entry.key, key); });
}

std::string withTimeouts(const std::string& connectionString, const sql::Timeouts& timeouts) {
    const auto entries = entriesOf(connectionString);
    const auto driver = std::find_if(entries.begin(), entries.end(),
                                     [](const Entry& entry) { return entry.key == "DRIVER"; });
    if (driver == entries.end()) return connectionString;
    const auto isDriver = [&](std::string_view name) {
        return containsText(driver->value, name, Compare::text);
    };
    std::string result = connectionString;
    const auto add = [&](std::string_view key, const std::string& value) {
        if (!hasKey(connectionString, key)) result += ";" + std::string(key) + "=" + value;
    };
    const bool limited = timeouts.statement.count() > 0;
    const auto answer = sql::wholeSeconds(timeouts.statement) + timeForTheNetwork;
    if (isDriver("SQLite")) {
        add("Timeout", decimalText(sql::endless(timeouts.lock).count()));
    } else if (isDriver("MariaDB")) {
        add("CONN_TIMEOUT", decimalText(sql::wholeSeconds(sql::endless(timeouts.login)).count()));
        if (limited) add("READ_TIMEOUT", decimalText(answer.count()));
        if (limited) add("WRITE_TIMEOUT", decimalText(answer.count()));
    } else if (isDriver("PostgreSQL") && limited) {
        add("pqopt", "{tcp_user_timeout=" + decimalText(answer.count() * 1000) + "}");
    }
    return result;
}

std::string withOneCommand(const std::string& connectionString) {
    const auto entries = entriesOf(connectionString);
    const auto isDriver = [&](std::string_view name) {
        return std::any_of(entries.begin(), entries.end(), [&](const Entry& entry) {
            return entry.key == "DRIVER" && containsText(entry.value, name, Compare::text);
        });
    };
    // Of two values of a key the drivers take the later one.
    if (isDriver("PostgreSQL"))
        return connectionString + ";UseServerSidePrepare=1;UseDeclareFetch=0";
    if (!isDriver("MariaDB")) return connectionString;
    constexpr std::uint64_t severalCommands = 67108864;
    std::string result = connectionString;
    for (const Entry& entry : entries)
        if (entry.key == "OPTION" || entry.key == "OPTIONS")
            result +=
                ";" + entry.key + "=" +
                decimalText(static_cast<std::int64_t>(
                    static_cast<std::uint64_t>(leadingNumber(entry.value)) & ~severalCommands));
    return result;
}

std::vector<std::string> eachHost(const std::string& connectionString) {
    const auto entries = entriesOf(connectionString);
    const auto valueOf = [&](std::string_view key) {
        const auto found = std::find_if(entries.begin(), entries.end(),
                                        [&](const Entry& entry) { return entry.key == key; });
        return found == entries.end() ? std::string_view() : found->value;
    };
    const auto hosts = partsOf(valueOf("SERVER"));
    const bool known = containsText(valueOf("DRIVER"), "MariaDB", Compare::text) ||
                       containsText(valueOf("DRIVER"), "PostgreSQL", Compare::text);
    if (hosts.size() < 2 || !known) return {connectionString};
    const auto ports = partsOf(valueOf("PORT"));
    std::vector<std::string> all;
    for (std::size_t i = 0; i < hosts.size(); ++i) {
        std::string one;
        for (const Entry& entry : entries)
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
    for (const Entry& entry : entriesOf(connectionString)) {
        if (!isPassword(entry)) continue;
        const std::string plain = replaceText(entry.value, "}}", "}", Compare::binary);
        text = replaceText(text, entry.value, "***", Compare::binary);
        text = replaceText(text, plain, "***", Compare::binary);
    }
    return text;
}

}  // namespace catalogador::odbc
