#pragma once
#include <map>
#include <string>

namespace catalogador::languages {

/// The texts of a gettext catalogue by their context (msgctxt). Entries without context, fuzzy and
/// obsolete ones are left out. Raises RuntimeError with file and line for a file that cannot be
/// read or is malformed.
std::map<std::string, std::string> readPoFile(const std::string& path);
/// The same for a catalogue that is in memory; `name` is what errors call it.
std::map<std::string, std::string> readPoText(const std::string& content, const std::string& name);

}  // namespace catalogador::languages
