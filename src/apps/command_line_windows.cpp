#include <fcntl.h>
#include <io.h>
#include <windows.h>
// windows.h comes first: the other builds on it.
#include <shellapi.h>

#include <cstdio>

#include "adapters/system/wide_text.h"
#include "apps/command_line.h"

namespace catalogador {

CommandLine::CommandLine(int /*argc*/, char** /*argv*/) {
    _setmode(_fileno(stdout), _O_BINARY);
    int count = 0;
    wchar_t** wide = CommandLineToArgvW(GetCommandLineW(), &count);
    for (int i = 0; i < count; ++i) texts_.push_back(system::utf8Of(wide[i]));
    LocalFree(wide);
    for (const std::string& text : texts_) values_.push_back(text.c_str());
}

}  // namespace catalogador
