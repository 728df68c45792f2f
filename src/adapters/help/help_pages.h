#pragma once
#include <cstdint>
#include <filesystem>
#include <map>
#include <string>
#include <vector>

namespace catalogador::help {

/// One page of help as it is shown: HTML in UTF-8, its pictures relative to `folder`.
struct HelpPage {
    /// The file's name inside its folder, "filter.html".
    std::string name;
    std::string title;
    std::string html;
    std::filesystem::path folder;
};

/// An entry of the contents: a heading without page, or a page.
struct HelpTopic {
    std::string title;
    std::string page;
};

/// The pages of help in a folder: one folder of HTML files for each language, the look they share
/// (look.html) and the help ids that have a page (ids.txt).
class HelpPages {
  public:
    /// Raises RuntimeError when the folder is not there or has no pages.
    explicit HelpPages(std::filesystem::path folder);

    /// What a call for help shows: the contents, or the page of a help id. An id without a page
    /// gets a page that says so and names it. Raises RuntimeError for a page that cannot be read.
    [[nodiscard]] HelpPage page(int command, std::int32_t id, int language) const;
    /// The page that a link names, with or without "#place". Raises RuntimeError when there is
    /// none.
    [[nodiscard]] HelpPage page(const std::string& link, int language) const;
    /// Headings and pages in the order of the contents page.
    [[nodiscard]] std::vector<HelpTopic> topics(int language) const;
    /// The help ids that have a page, with the page's name.
    [[nodiscard]] const std::map<std::int32_t, std::string>& ids() const { return ids_; }

  private:
    [[nodiscard]] std::filesystem::path folderOf(int language) const;

    std::filesystem::path folder_;
    std::string look_;
    std::map<std::int32_t, std::string> ids_;
};

}  // namespace catalogador::help
