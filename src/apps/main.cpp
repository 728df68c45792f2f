#include <exception>
#include <iostream>

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
    }
    return catalogador::exitUnusable;
}

}  // namespace

int main(int argc, char** argv) {
    int exitStatus = catalogador::exitUnusable;
    const catalogador::CommandLine line(argc, argv);
    const auto options = catalogador::readOptions(line.count(), line.values(), exitStatus);
    if (!options) return exitStatus;
    try {
        return perform(*options);
    } catch (const std::exception& error) {
        std::cerr << "catalogador: " << error.what() << '\n';
        return catalogador::exitUnusable;
    }
}
