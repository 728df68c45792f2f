#include <filesystem>
#include <fstream>
#include <iostream>
#include <sstream>

#include "adapters/demo/table_rows.h"
#include "adapters/schema/schema.h"
#include "adapters/schema/tables.h"
#include "adapters/system/paths.h"
#include "adapters/system/private_folder.h"
#include "adapters/system/replaced_file.h"
#include "apps/connections.h"
#include "apps/playing.h"
#include "apps/views_files.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador {

namespace {

using views::TestCall;
using views::ViewFile;

bool hasConnection(const Options& options) {
    return !options.database.empty() || !options.connectionString.empty();
}

void createTables(rdoConnection& connection) {
    for (const std::string& statement : schema::schemaStatementList(*sql::dialectNamed("sqlite")))
        connection.Execute(statement);
}

/// The rows that a database has for columns of the schema's table.
demo::TableRows rowsOf(rdoConnection& from, const schema::TableDefinition& table,
                       const checks::TableFacts& facts) {
    demo::TableRows rows{std::string(table.name), {}, {}};
    for (const schema::TableColumn& column : table.columns)
        if (facts.column(column.name) != nullptr)
            rows.columns += (rows.columns.empty() ? "" : ", ") + std::string(column.name);
    rows.rows = from.session()->query("Select " + rows.columns + " From " + rows.table);
    return rows;
}

/// From a server come the tables of the schema; those of an application stay there.
void copyFromServer(rdoConnection& from, rdoConnection& to) {
    createTables(to);
    const auto facts = checks::SchemaFacts::of(checks::Database(from));
    inTransaction(*to.session(), [&] {
        for (const schema::TableDefinition& table : schema::schemaTables())
            if (const auto* known = facts.table(table.name))
                for (const auto& sql : demo::insertStatements(rowsOf(from, table, *known)))
                    to.session()->run(sql);
    });
}

/// Makes the file with what the scripts are played on: the tables, or a copy of the database.
void makeScratch(const Options& options, const std::string& file) {
    if (!options.database.empty()) {
        openOtherDesk(options)->Execute("Vacuum Into '" +
                                        replaceText(file, "'", "''", Compare::binary) + "'");
        return;
    }
    const auto scratch = createDatabase(file);
    if (hasConnection(options))
        copyFromServer(*openDatabase(options), *scratch);
    else
        createTables(*scratch);
}

Options optionsOf(const TestCall& test, std::int64_t view, const std::string& database) {
    Options options;
    options.database = database;
    options.activation.view = static_cast<std::int16_t>(view);
    options.company = test.company;
    options.language = test.language;
    options.user = test.user;
    options.locale = test.locale;
    options.appKey = test.appKey;
    return options;
}

std::string transcriptOf(const ViewFile& file, const std::string& database) {
    std::istringstream lines(
        views::contentOf(file.path.parent_path() / pathOf(file.view.test->script)));
    script::Script script(lines);
    const Options options = optionsOf(*file.view.test, file.view.number(), database);
    std::ostringstream out;
    playScript(options, script, *openDatabase(options), out);
    return out.str();
}

void writeTranscript(const std::filesystem::path& path, const std::string& text) {
    system::ReplacedFile draft(pathText(path));
    std::ofstream(pathOf(draft.path()), std::ios::binary) << text;
    draft.commit();
}

/// The first line in which two texts differ.
void printDifference(std::ostream& out, const std::string& expected, const std::string& given) {
    const auto left = splitText(expected, "\n");
    const auto right = splitText(given, "\n");
    std::size_t line = 0;
    while (line < left.size() && line < right.size() && left[line] == right[line]) ++line;
    const auto shown = [&](const std::vector<std::string>& lines) {
        return line < lines.size() ? lines[line] : std::string("(nothing more)");
    };
    out << "    line " << line + 1 << " should be: " << shown(left)
        << "\n    but is: " << shown(right) << '\n';
}

/// False when the transcript is another one.
bool testView(const ViewFile& file, const std::string& database, bool accept) {
    const auto expectedFile = file.path.parent_path() / pathOf(file.view.test->expected);
    std::string given;
    std::string expected;
    std::cout << "view " << file.view.number() << ": ";
    try {
        given = transcriptOf(file, database);
        if (accept) {
            writeTranscript(expectedFile, given);
            std::cout << "accepted\n";
            return true;
        }
        expected = views::contentOf(expectedFile);
    } catch (const RuntimeError& error) {
        std::cout << error.description() << '\n';
        return false;
    }
    std::cout << (given == expected ? "as expected\n" : "another transcript\n");
    if (given != expected) printDifference(std::cout, expected, given);
    return given == expected;
}

}  // namespace

int testViews(const Options& options) {
    const auto files = views::readFolder(pathOf(options.views.folder));
    const system::PrivateFolder folder(pathText(std::filesystem::temp_directory_path()));
    const std::string scratch = folder.path() + "/scratch.db";
    makeScratch(options, scratch);
    Options applied = options;
    applied.database = scratch;
    applied.connectionString.clear();
    applied.views.widths = true;
    std::ostringstream told;
    if (!applyFiles(told, *openDatabase(applied), files, applied)) {
        std::cout << told.str();
        return exitFindings;
    }
    int failed = 0;
    int played = 0;
    for (const ViewFile& file : files) {
        if (!file.view.test) continue;
        // Each has the database to itself.
        const std::string own = folder.path() + "/view.db";
        std::filesystem::copy_file(pathOf(scratch), pathOf(own),
                                   std::filesystem::copy_options::overwrite_existing);
        ++played;
        if (!testView(file, own, options.views.accept)) ++failed;
    }
    std::cout << files.size() << (files.size() == 1 ? " view, " : " views, ") << played
              << " tested, " << failed << " failed\n";
    return failed > 0 ? exitFindings : exitPlayed;
}

}  // namespace catalogador
