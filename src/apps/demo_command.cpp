#include <filesystem>
#include <iostream>

#include "adapters/demo/demo.h"
#include "adapters/desktop/folders.h"
#include "adapters/system/desk.h"
#include "adapters/system/paths.h"
#include "adapters/system/replaced_file.h"
#include "apps/commands.h"
#include "apps/connections.h"
#include "runtime/error.h"

namespace catalogador {

namespace {

std::filesystem::path write(const Options& options) {
    const std::filesystem::path folder(pathOf(options.directory));
    std::filesystem::create_directories(folder);
    // Written with the separator that every driver understands.
    const std::filesystem::path file = pathOf(options.directory + "/demo.db");
    system::ReplacedFile draft(pathText(file));
    demo::DemoOptions demo;
    demo.userName = system::systemUser();
    demo::writeDemo(*createDatabase(draft.path()), demo);
    draft.commit();
    return file;
}

/// "PostgreSQL, MariaDB or SQLite": servers first.
std::string everyTitle() {
    std::vector<std::string> titles;
    for (const bool file : {false, true})
        for (const sql::Dialect* dialect : sql::dialects())
            if (dialect->facts().isFile == file) titles.emplace_back(dialect->facts().title);
    std::string text;
    for (std::size_t index = 0; index < titles.size(); ++index) {
        if (index > 0) text += index + 1 == titles.size() ? " or " : ", ";
        text += titles[index];
    }
    return text;
}

const sql::Dialect& schemaOf(const rdoSession& session) {
    const sql::Dialect& dialect = sql::dialectOf(session);
    if (!dialect.facts().name.empty()) return dialect;
    throw RuntimeError(
        error_number::invalidProcedureCall,
        "there is no schema for this kind of database; the demonstration needs " + everyTitle());
}

int fillServer(const Options& options) {
    const auto connection = openServer(options);
    demo::DemoOptions demo;
    demo.userName = system::systemUser();
    demo.dialect = &schemaOf(*connection->session());
    demo::writeDemo(*connection, demo);
    std::cout << "The demonstration is in the database. Open it with: catalogador open --connect "
                 "(the same) --view 1\n";
    return exitPlayed;
}

}  // namespace

int demoCommand(const Options& options) {
    if (!options.connectionString.empty()) return fillServer(options);
    try {
        const std::string file = pathText(write(options));
        std::cout << "The demonstration database is " << file << "\n"
                  << "Open it with: catalogador open --database " << file << " --view 1\n";
        return exitPlayed;
    } catch (const std::filesystem::filesystem_error& error) {
        throw RuntimeError(error_number::invalidProcedureCall,
                           "cannot write the demonstration database: " + std::string(error.what()) +
                               "; name a folder that you may write to");
    }
}

int schemaCommand(const Options& options) {
    std::cout << schema::schemaStatements(*sql::dialectNamed(options.dialect));
    return exitPlayed;
}

}  // namespace catalogador
