#include "adapters/help/help_pages.h"

#include <array>
#include <fstream>
#include <iterator>
#include <sstream>

#include "adapters/system/paths.h"
#include "platform/services.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::help {

namespace {

constexpr const char* contentsPage = "index.html";
constexpr const char* unknownIdPage = "unknown.html";
/// Those of the languages by their numbers, from 1.
constexpr std::array<const char*, 3> languageFolders{"es", "en", "pt"};

std::string readText(const std::filesystem::path& file) {
    std::ifstream stream(file, std::ios::binary);
    if (!stream || !std::filesystem::is_regular_file(file))
        throw RuntimeError(error_number::cannotCreateObject,
                           "The help file " + pathText(file) +
                               " cannot be read; install the help of the program again");
    return {std::istreambuf_iterator<char>(stream), {}};
}

/// What stands between two marks, from `at` on, which then stands behind the second one; the empty
/// text and the end when they are not there.
std::string_view between(std::string_view text, std::string_view open, std::string_view close,
                         std::size_t& at) {
    const std::size_t begin = text.find(open, at);
    const std::size_t end =
        begin == std::string_view::npos ? begin : text.find(close, begin + open.size());
    if (end == std::string_view::npos) {
        at = text.size();
        return {};
    }
    at = end + close.size();
    return text.substr(begin + open.size(), end - begin - open.size());
}

std::string_view between(std::string_view text, std::string_view open, std::string_view close) {
    std::size_t at = 0;
    return between(text, open, close, at);
}

std::map<std::int32_t, std::string> readIds(const std::filesystem::path& file) {
    std::map<std::int32_t, std::string> ids;
    std::istringstream lines(readText(file));
    for (std::string line; std::getline(lines, line);) {
        std::istringstream words(line);
        std::int32_t id = 0;
        std::string page;
        if (words >> id >> page) ids.emplace(id, page);
    }
    return ids;
}

}  // namespace

HelpPages::HelpPages(std::filesystem::path folder) : folder_(std::move(folder)) {
    if (!std::filesystem::is_directory(folder_))
        throw RuntimeError(error_number::cannotCreateObject,
                           "There is no help folder " + pathText(folder_) +
                               "; install the help of the program again");
    look_ = readText(folder_ / "look.html");
    ids_ = readIds(folder_ / "ids.txt");
}

std::filesystem::path HelpPages::folderOf(int language) const {
    const auto index = static_cast<std::size_t>(language - 1);
    return folder_ / (index < languageFolders.size() ? languageFolders[index] : "es");
}

HelpPage HelpPages::page(const std::string& link, int language) const {
    HelpPage page;
    page.name = link.substr(0, link.find('#'));
    page.folder = folderOf(language);
    const std::string source = readText(page.folder / page.name);
    page.title = trim(between(source, "<title>", "</title>"));
    page.html = replaceText(look_, "[title]", page.title, Compare::binary);
    page.html = replaceText(page.html, "[body]", std::string(between(source, "<body>", "</body>")),
                            Compare::binary);
    return page;
}

HelpPage HelpPages::page(int command, std::int32_t id, int language) const {
    if (command != help_command::page) return page(contentsPage, language);
    if (const auto found = ids_.find(id); found != ids_.end()) return page(found->second, language);
    HelpPage unknown = page(unknownIdPage, language);
    unknown.html = replaceText(unknown.html, "[id]", decimalText(id), Compare::binary);
    return unknown;
}

std::vector<HelpTopic> HelpPages::topics(int language) const {
    const std::string contents = readText(folderOf(language) / contentsPage);
    std::vector<HelpTopic> topics{
        {std::string(trim(between(contents, "<title>", "</title>"))), contentsPage}};
    for (std::size_t at = 0; at < contents.size();) {
        const std::size_t heading = contents.find("<h3>", at);
        const std::size_t link = contents.find("<a href=\"", at);
        if (heading < link) {
            topics.push_back({std::string(between(contents, "<h3>", "</h3>", at)), ""});
        } else if (link != std::string::npos) {
            const std::string_view name = between(contents, "<a href=\"", "\"", at);
            topics.push_back({std::string(between(contents, ">", "</a>", at)), std::string(name)});
        } else {
            break;
        }
    }
    return topics;
}

}  // namespace catalogador::help
