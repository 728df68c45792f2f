#pragma once
#include <cstdint>
#include <ctime>
#include <filesystem>
#include <string>

namespace catalogador::system {

// What the operating system knows about the desk that the program runs at. Paths are UTF-8.

/// The folder of the running program or, where this is part of a library that another program has
/// loaded, of that library; without a trailing separator, empty when the system does not know it.
std::string programFolder();
/// Number of this process.
std::int64_t processId();
/// Name of the person who runs the program, empty when the system does not know it.
std::string systemUser();
/// Where the settings of this user's programs are kept; empty when the system does not know it.
std::filesystem::path configurationFolder();
/// Where this user's own files are kept; empty when the system does not know it.
std::filesystem::path userFolder();
/// Whether files may be made in a folder.
bool mayWriteTo(const std::filesystem::path& folder);
/// The time at this desk.
std::tm localTime(std::time_t time);

}  // namespace catalogador::system
