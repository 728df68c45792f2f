#pragma once
#include <cstdint>
#include <map>
#include <optional>
#include <string>
#include <vector>

#include "adapters/script/player.h"

namespace catalogador {

enum class Command { run, open, add, demo, schema, check, views };

/// A finding that is not to be told for a view; view 0 stands for findings of no view.
struct IgnoredFinding {
    int number = 0;
    std::int16_t view = 0;
};

/// What `check` was called with.
struct CheckCall {
    /// Empty for all views.
    std::vector<std::int16_t> views;
    std::string format = "text";
    /// Warnings count as errors do.
    bool strict = false;
    /// Statements that mend findings are printed.
    bool fixHints = false;
    std::vector<IgnoredFinding> ignored;
};

/// What `views` was called with.
struct ViewsCall {
    enum class Action { write, diff, apply, test };

    Action action = Action::diff;
    /// The folder of the files.
    std::string folder;
    /// Empty for all views.
    std::vector<std::int16_t> views;
    bool dryRun = false;
    bool deleteMissing = false;
    /// Widths of columns are taken from the files.
    bool widths = false;
    /// The scratch database has no more than the tables.
    bool scratch = false;
    /// What happens is what is expected from now on.
    bool accept = false;
};

/// What the program was called with.
struct Options {
    Command command = Command::run;

    /// Either a SQLite file or an ODBC connection string.
    std::string database;
    std::string connectionString;

    script::Activation activation;
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
    /// Windows have the size that they are designed with.
    bool fresh = false;

    std::string surface = "script";
    /// "-" is the standard input.
    std::string script = "-";
    bool keepGoing = false;

    /// The sequence of `add`.
    std::string sequence;
    /// The folder of `demo`.
    std::string directory;
    std::string dialect;

    CheckCall check;
    ViewsCall views;
};

constexpr int exitPlayed = 0;
/// `check` found an error, or `views` a difference.
constexpr int exitFindings = 1;
/// Wrong usage, no connection, or no component.
constexpr int exitUnusable = 2;

/// Reads the command line. Without a value the program ends with `exitStatus`: what there was to be
/// said (help, version, a mistake) has been printed.
std::optional<Options> readOptions(int argc, const char* const* argv, int& exitStatus);

}  // namespace catalogador
