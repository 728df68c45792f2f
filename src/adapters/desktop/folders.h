#pragma once
#include <string>

namespace catalogador::desktop {

/// Where the language catalogues are: installed beside the program, or those it was built with.
std::string languagesFolder();
/// Where the pages of help are, found in the same way.
std::string helpFolder();

}  // namespace catalogador::desktop
