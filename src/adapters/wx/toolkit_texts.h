#pragma once
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

/// Has the toolkit's own texts (print preview, progress, buttons) in the language of that code from
/// now on. Only the texts: numbers and dates are written as the program's own settings say.
void speakToolkitTexts(const std::string& language);

}  // namespace catalogador::wx
