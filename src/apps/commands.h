#pragma once
#include "apps/options.h"

namespace catalogador {

/// The commands of the program. Each gives the exit status; what keeps it from working is raised as
/// a RuntimeError.
int runCommand(const Options& options);
int openCommand(const Options& options);
int addCommand(const Options& options);
int demoCommand(const Options& options);
int schemaCommand(const Options& options);
int checkCommand(const Options& options);
int viewsCommand(const Options& options);

}  // namespace catalogador
