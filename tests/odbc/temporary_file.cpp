#include "temporary_file.h"

#include <unistd.h>

#include <cstdlib>

namespace catalogador::test {

TemporaryFile::TemporaryFile(const std::string& name) : name_(name) {
    static int folders = 0;
    // Under Wine the driver does not know the drives that the temporary folder is named by.
    const char* given = std::getenv("CATALOGADOR_TEST_FOLDER");
    const std::filesystem::path parent =
        given != nullptr ? given : std::filesystem::temp_directory_path();
    do {
        folder_ = parent / ("rdo-" + std::to_string(getpid()) + "-" + std::to_string(folders++));
    } while (!std::filesystem::create_directory(folder_));
}

TemporaryFile::~TemporaryFile() {
    std::error_code ignored;
    std::filesystem::remove_all(folder_, ignored);
}

}  // namespace catalogador::test
