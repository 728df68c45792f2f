#pragma once
#include <cstdint>
#include <string>

class wxWindow;

namespace catalogador::help {
class HelpPages;
}

namespace catalogador::wx {

/// A call for help: 3 is the contents, 15 the page of the id in `data`.
struct HelpRequest {
    int command = 0;
    std::int32_t data = 0;
    /// Number of the screen's language.
    int language = 1;
};

/// Texts of the viewer itself.
struct HelpLabels {
    std::string help;
    std::string back;
    std::string forward;
    std::string contents;
    std::string close;
};

/// Shows a page of help in a window of its own beside `parent`, which stays usable; a second call
/// goes on in the same window. The window ends with its parent at the latest. Raises RuntimeError
/// when the page cannot be read.
void showHelp(wxWindow& parent, const help::HelpPages& pages, const HelpLabels& labels,
              const HelpRequest& request);

}  // namespace catalogador::wx
