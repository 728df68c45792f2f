#include "adapters/export/workbook_check.h"

#include <unzip.h>

#include <algorithm>
#include <array>
#include <memory>
#include <string_view>
#include <type_traits>
#include <vector>

namespace catalogador::exporting {

namespace {

using Archive = std::unique_ptr<std::remove_pointer_t<unzFile>, int (*)(unzFile)>;

constexpr std::size_t longestName = 256;
constexpr std::size_t keptAtEnd = 128;

struct Part {
    std::string name;
    std::string start;
    std::string end;
    std::uint64_t bytes = 0;
};

/// What closes the outermost element of an XML text: "</worksheet>".
std::string closingTag(std::string_view start) {
    std::size_t at = start.find("?>");
    if (at == std::string_view::npos) return "";
    at = start.find('<', at);
    if (at == std::string_view::npos) return "";
    const std::string_view name = start.substr(at + 1, start.find_first_of(" >", at) - at - 1);
    return "</" + std::string(name) + ">";
}

bool readPart(unzFile archive, Part& part) {
    std::array<char, longestName> name{};
    if (unzGetCurrentFileInfo64(archive, nullptr, name.data(), name.size() - 1, nullptr, 0, nullptr,
                                0) != UNZ_OK)
        return false;
    part.name = name.data();
    if (unzOpenCurrentFile(archive) != UNZ_OK) return false;
    std::vector<char> block(1U << 16U);
    int read = 0;
    while ((read = unzReadCurrentFile(archive, block.data(), static_cast<unsigned>(block.size()))) >
           0) {
        const std::string_view text(block.data(), static_cast<std::size_t>(read));
        if (part.bytes == 0) part.start = text;
        part.end.append(text.substr(text.size() - std::min(text.size(), keptAtEnd)));
        part.end.erase(0, part.end.size() - std::min(part.end.size(), keptAtEnd));
        part.bytes += text.size();
    }
    return read == 0 && unzCloseCurrentFile(archive) == UNZ_OK;
}

}  // namespace

bool workbookIsWhole(const std::string& path, std::uint64_t leastSheetBytes) {
    const Archive archive(unzOpen64(path.c_str()), unzClose);
    if (!archive) return false;
    bool sheetFound = false;
    int found = unzGoToFirstFile(archive.get());
    for (; found == UNZ_OK; found = unzGoToNextFile(archive.get())) {
        Part part;
        if (!readPart(archive.get(), part)) return false;
        const std::string closing = closingTag(part.start);
        const std::string_view end(part.end.data(), part.end.find_last_not_of('\n') + 1);
        if (closing.empty() || !end.ends_with(closing)) return false;
        if (part.name != "xl/worksheets/sheet1.xml") continue;
        sheetFound = true;
        if (part.bytes < leastSheetBytes) return false;
    }
    return found == UNZ_END_OF_LIST_OF_FILE && sheetFound;
}

}  // namespace catalogador::exporting
