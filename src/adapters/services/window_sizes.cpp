#include "adapters/services/window_sizes.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <memory>
#include <sstream>
#include <vector>

#include "adapters/services/settings.h"
#include "adapters/system/desk.h"
#include "adapters/system/paths.h"
#include "adapters/system/replaced_file.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::services {

namespace {

constexpr const char* maximizedWord = "maximized";
/// What a damaged file says must not become a window that nobody can use.
constexpr int largestSide = 1'000'000;

std::vector<std::string> linesOf(const std::string& file) {
    std::vector<std::string> lines;
    std::ifstream input(pathOf(file));
    for (std::string line; std::getline(input, line);) lines.push_back(line);
    return lines;
}

/// The line gets its place in the section, which is added where it is missing.
void putLine(std::vector<std::string>& lines, const std::string& section, const std::string& name,
             const std::string& line) {
    auto at = std::find(lines.begin(), lines.end(), section);
    if (at == lines.end()) at = lines.insert(lines.end(), section);
    for (++at; at != lines.end() && !at->starts_with('['); ++at) {
        if (trim(at->substr(0, at->find('='))) != name) continue;
        *at = line;
        return;
    }
    lines.insert(at, line);
}

}  // namespace

WindowSizes::WindowSizes(std::string file, const std::string& user) : file_(std::move(file)) {
    user_ = trim(user);
    // A name that would be no single line could not be read again.
    const auto isControl = [](char c) { return static_cast<unsigned char>(c) < ' '; };
    if (std::any_of(user_.begin(), user_.end(), isControl)) file_.clear();
}

std::string WindowSizes::defaultFile() {
    const std::filesystem::path folder = system::configurationFolder();
    return folder.empty() ? "" : pathText(folder / "catalogador" / "window-sizes.ini");
}

std::optional<WindowSize> WindowSizes::read(const std::string& window) const {
    if (file_.empty()) return std::nullopt;
    std::istringstream text(Settings(file_, {}).read(user_, window).value_or(""));
    WindowSize size;
    char by = 0;
    std::string word;
    if (!(text >> size.size.width >> by >> size.size.height) || by != 'x') return std::nullopt;
    const auto usable = [](int side) { return side > 0 && side <= largestSide; };
    if (!usable(size.size.width) || !usable(size.size.height)) return std::nullopt;
    size.maximized = (text >> word) && word == maximizedWord;
    return size;
}

void WindowSizes::write(const std::string& window, const WindowSize& size) const {
    if (file_.empty()) return;
    std::vector<std::string> lines = linesOf(file_);
    std::string line =
        window + " = " + decimalText(size.size.width) + " x " + decimalText(size.size.height);
    if (size.maximized) line += std::string(" ") + maximizedWord;
    putLine(lines, "[" + user_ + "]", window, line);
    try {
        std::filesystem::create_directories(pathOf(file_).parent_path());
        system::ReplacedFile replaced(file_);
        std::ofstream output(pathOf(replaced.path()));
        for (const std::string& each : lines) output << each << '\n';
        output.close();
        if (output) replaced.commit();
    } catch (const RuntimeError&) {
        // A size that cannot be kept must not stop the user.
    } catch (const std::filesystem::filesystem_error&) {
    }
}

WindowMemory windowMemoryOf(const std::string& user) {
    const auto sizes = std::make_shared<WindowSizes>(WindowSizes::defaultFile(), user);
    return {[sizes](const std::string& name) { return sizes->read(name); },
            [sizes](const std::string& name, const WindowSize& size) { sizes->write(name, size); }};
}

}  // namespace catalogador::services
