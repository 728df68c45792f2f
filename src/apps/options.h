#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>

#include "adapters/script/player.h"

namespace catalogador {

enum class Command { run, open, add, demo, schema };

/// What the program was called with.
struct Options {
    Command command = Command::run;

    /// Either a SQLite file or an ODBC connection string.
    std::string database;
    std::string connectionString;

    Activation activation;
    std::int16_t company = 1;
    std::string appKey = "VEM04";
    std::optional<std::int16_t> language;
    /// Empty stands for the operating system's user.
    std::string user;
    /// Folder of the language catalogues; empty for the program's own.
    std::string messages;
    std::map<std::string, std::string> settings;
    /// Empty for the environment's.
    std::string locale;
    bool trace = false;

    std::string surface = "script";
    /// "-" is the standard input.
    std::string script = "-";
    bool keepGoing = false;

    /// The sequence of `add`.
    std::string sequence;
    /// The folder of `demo`.
    std::string directory;
    std::string dialect;
};

constexpr int exitPlayed = 0;
/// Wrong usage, no connection, or no component.
constexpr int exitUnusable = 2;

/// Reads the command line. Without a value the program ends with `exitStatus`: what there was to be
/// said (help, version, a mistake) has been printed.
std::optional<Options> readOptions(int argc, const char* const* argv, int& exitStatus);

}  // namespace catalogador
