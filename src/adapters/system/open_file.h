#pragma once
#include <cstdio>
#include <string>

namespace catalogador::system {

/// std::fopen for a UTF-8 path.
std::FILE* openFile(const std::string& path, const char* mode);

/// The name of an existing file or folder for a library that knows only the narrow texts of the
/// system. It is the path itself where these are UTF-8.
std::string narrowPath(const std::string& path);

}  // namespace catalogador::system
