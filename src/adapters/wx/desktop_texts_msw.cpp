#include <wx/msw/private.h>

#include <algorithm>

#include "adapters/wx/appearance.h"
#include "adapters/wx/desktop_texts.h"
#include "runtime/text.h"

namespace catalogador::wx {

DesktopTexts::DesktopTexts(const std::string& language)
    : before_(decimalText(GetThreadUILanguage())) {
    std::string name = language;
    std::replace(name.begin(), name.end(), '_', '-');
    const LCID locale = LocaleNameToLCID(wxText(name).wc_str(), LOCALE_ALLOW_NEUTRAL_NAMES);
    if (locale != 0) SetThreadUILanguage(LANGIDFROMLCID(locale));
}

DesktopTexts::~DesktopTexts() {
    SetThreadUILanguage(static_cast<LANGID>(std::stoi(before_)));
}

}  // namespace catalogador::wx
