#include "apps/command_line.h"

namespace catalogador {

CommandLine::CommandLine(int argc, char** argv) : values_(argv, argv + argc) {}

}  // namespace catalogador
