#pragma once
#include <string>

namespace catalogador::services {

/// Has the desktop open a file with the program that it associates with it, and does not wait for
/// it. Raises RuntimeError (invalidProcedureCall) when there is no such file or no desktop.
void openWithDesktop(const std::string& path);

}  // namespace catalogador::services
