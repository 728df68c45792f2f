#pragma once
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace catalogador::wx {

/// The toolkit's own texts in a language, as a compiled catalogue.
struct ToolkitCatalogue {
    std::string_view language;
    std::string_view bytes;
};
const std::vector<ToolkitCatalogue>& toolkitCatalogues();

/// The code by which the desktop and the toolkit know the language of that number: "es", also for a
/// number that no language has.
std::string languageCode(std::int16_t language);

/// Has the toolkit's own texts (print preview, progress, buttons) in the language of that code from
/// now on. Only the texts: numbers and dates are written as the program's own settings say.
void speakToolkitTexts(const std::string& language);

}  // namespace catalogador::wx
