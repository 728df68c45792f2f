#include "adapters/system/open_file.h"

namespace catalogador::system {

std::FILE* openFile(const std::string& path, const char* mode) {
    return std::fopen(path.c_str(), mode);
}

std::string narrowPath(const std::string& path) {
    return path;
}

}  // namespace catalogador::system
