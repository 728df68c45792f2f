#include "apps/options.h"

#include "adapters/checks/finding.h"
#include "adapters/sql/dialect.h"
#include "apps/option_values.h"

namespace catalogador {

namespace {

void readSetting(Options& options, const std::string& text) {
    const std::size_t equals = text.find('=');
    if (equals == 0 || equals == std::string::npos)
        throw CLI::ValidationError("--setting", "a setting is written NAME=VALUE, not " + text);
    options.settings[text.substr(0, equals)] = text.substr(equals + 1);
}

void addHost(CLI::App& app, Options& options) {
    addNumber<std::int16_t>(app, "--view", options.activation.view, "View to open")->required();
    addNumber<std::int16_t>(app, "--company", options.company, "Company id, default 1");
    app.add_option("--app-key", options.appKey, "Application key, default VEM04")
        ->type_name("TEXT");
    addNumber<std::int16_t>(app, "--language", options.language,
                            "Language of the texts, default: the setting, else 1");
    app.add_option("--user", options.user, "User name, default: the operating system's user")
        ->type_name("NAME");
    addNumber<std::int32_t>(app, "--code", options.activation.code,
                            "Record to open, -1 to start a new one, default 0");
    app.add_option("--value", options.activation.value, "Text to start a new record with")
        ->type_name("TEXT");
    app.add_option("--messages", options.messages, "Folder of the language catalogues")
        ->type_name("DIR");
    app.add_option_function<std::vector<std::string>>(
           "--setting",
           [&options](const std::vector<std::string>& given) {
               for (const std::string& text : given) readSetting(options, text);
           },
           "Overrides the settings file; may be repeated")
        ->type_name("NAME=VALUE")
        ->allow_extra_args(false);
    app.add_option("--locale", options.locale,
                   "Decimal and thousands separators, default the environment's")
        ->type_name("NAME");
    app.add_flag("--trace", options.trace, "Prints statements, focus, pointer and service calls");
}

void addPlaying(CLI::App& app, Options& options) {
    app.add_option("--surface", options.surface, "What the screen is shown on, default script")
        ->check(CLI::IsMember({"script", "wx"}));
    app.add_option("--script", options.script, "Screen script, default -: the standard input")
        ->type_name("FILE");
    app.add_flag("--keep-going", options.keepGoing,
                 "Goes on after a line that cannot be carried out");
}

IgnoredFinding ignoredOf(const std::string& text) {
    const std::size_t colon = text.find(':');
    const auto number = checks::numberOf(text.substr(0, colon));
    if (colon == std::string::npos || !number)
        throw CLI::ValidationError(
            "--ignore", "what is ignored is written ID:VIEW, such as CAT017:41, not " + text);
    return {*number, numberOf<std::int16_t>("--ignore", text.substr(colon + 1))};
}

void addChecking(CLI::App& app, CheckCall& call) {
    addRepeated(
        app, "--view",
        [&call](const std::string& text) {
            call.views.push_back(numberOf<std::int16_t>("--view", text));
        },
        "View to check, default all; may be repeated", "N");
    addRepeated(
        app, "--ignore",
        [&call](const std::string& text) { call.ignored.push_back(ignoredOf(text)); },
        "Finding that is not told for a view; may be repeated", "ID:VIEW");
    app.add_option("--format", call.format, "How findings are printed, default text")
        ->check(CLI::IsMember({"text", "json", "github"}));
    app.add_flag("--strict", call.strict, "Warnings count as errors do");
    app.add_flag("--fix-hints", call.fixHints, "Prints statements that mend what was found");
}

void addCommands(CLI::App& app, Options& options) {
    const auto command = [&](const char* name, const char* description, Command which) {
        CLI::App* added = app.add_subcommand(name, description);
        added->callback([&options, which] { options.command = which; });
        return added;
    };
    CLI::App* run = command("run", "Plays a screen script and prints what happens", Command::run);
    CLI::App* open = command("open", "Opens the maintenance screen", Command::open);
    CLI::App* add = command("add", "Adds a text to a view without a screen", Command::add);
    for (CLI::App* shown : {run, open})
        shown->add_flag("--fresh", options.fresh,
                        "Windows have the size of their design, not the one that their user gave "
                        "them, as they always have under a script");
    for (CLI::App* hosted : {run, open, add}) {
        addConnection(*hosted, options);
        addHost(*hosted, options);
    }
    addPlaying(*run, options);
    add->add_option("--name", options.sequence, "Sequence that gives the code")
        ->type_name("SEQUENCE")
        ->required();
    add->get_option("--value")->required();
    CLI::App* demo = command("demo", "Writes a demonstration database", Command::demo);
    CLI::Option_group* place = demo->add_option_group("Place");
    place->add_option("DIRECTORY", options.directory, "Where demo.db (SQLite) is written");
    place
        ->add_option("--connect", options.connectionString,
                     "ODBC connection string of an empty database, whose tables are made")
        ->type_name("STRING");
    place->require_option(1);
    CLI::App* check = command("check", "Says what is wrong with the metadata", Command::check);
    addConnection(*check, options);
    addChecking(*check, options.check);
    addNumber<std::int16_t>(*check, "--company", options.company, "Company id, default 1");
    addViews(*command("views", "Views as files", Command::views), options);
    std::vector<std::string> names;
    for (const sql::Dialect* dialect : sql::dialects()) names.emplace_back(dialect->facts().name);
    command("schema", "Prints the statements that create every table", Command::schema)
        ->add_option("--dialect", options.dialect, "Whose statements")
        ->required()
        ->check(CLI::IsMember(names));
}

}  // namespace

void addRepeated(CLI::App& app, const char* name,
                 const std::function<void(const std::string&)>& read, const char* description,
                 const char* type) {
    app.add_option_function<std::vector<std::string>>(
           name,
           [read](const std::vector<std::string>& given) {
               for (const std::string& text : given) read(text);
           },
           description)
        ->type_name(type)
        ->allow_extra_args(false);
}

CLI::Option_group* addConnection(CLI::App& app, Options& options) {
    auto* group = app.add_option_group("connection", "The database");
    group->add_option("--database", options.database, "SQLite file")->type_name("FILE");
    group->add_option("--connect", options.connectionString, "ODBC connection string")
        ->type_name("TEXT");
    group->require_option(1);
    return group;
}

std::optional<Options> readOptions(int argc, const char* const* argv, int& exitStatus) {
    Options options;
    CLI::App app("Maintenance screen for coded records", "catalogador");
    app.set_version_flag("--version", "catalogador " CATALOGADOR_VERSION);
    app.require_subcommand(1);
    // A path may begin with a slash on every system.
    app.allow_windows_style_options(false);
    addCommands(app, options);
    try {
        app.parse(argc, argv);
        return options;
    } catch (const CLI::ParseError& error) {
        const bool mistake = app.exit(error) != 0;
        exitStatus = mistake ? exitUnusable : exitPlayed;
        return std::nullopt;
    }
}

}  // namespace catalogador
