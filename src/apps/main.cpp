#include <exception>
#include <iostream>

#include "adapters/script/transcript.h"
#include "apps/command_line.h"
#include "apps/commands.h"

namespace {

int perform(const catalogador::Options& options) {
    using catalogador::Command;
    switch (options.command) {
        case Command::run:
            return runCommand(options);
        case Command::open:
            return openCommand(options);
        case Command::add:
            return addCommand(options);
        case Command::demo:
            return demoCommand(options);
        case Command::schema:
            return schemaCommand(options);
        case Command::check:
            return checkCommand(options);
        case Command::views:
            return viewsCommand(options);
    }
    return catalogador::exitUnusable;
}

}  // namespace

int main(int argc, char** argv) {
    int exitStatus = catalogador::exitUnusable;
    const catalogador::CommandLine line(argc, argv);
    const auto options = catalogador::readOptions(line.count(), line.values(), exitStatus);
    try {
        if (options) exitStatus = perform(*options);
        if (!std::cout.flush()) throw catalogador::script::OutputFailed();
    } catch (const std::exception& error) {
        std::cerr << "catalogador: " << error.what() << '\n';
        return catalogador::exitUnusable;
    }
    return exitStatus;
}
