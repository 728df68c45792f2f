#pragma once
#include <string>

namespace catalogador {

/// The folder of the program, without a trailing separator.
std::string programFolder();
/// Where the language catalogues are: installed beside the program, or those it was built with.
std::string languagesFolder();
/// Where the pages of help are, found in the same way.
std::string helpFolder();
/// Name of the person who runs the program, empty when the system does not know it.
std::string systemUser();

}  // namespace catalogador
