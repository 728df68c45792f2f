#include <clocale>
#include <cstdlib>

#include "adapters/wx/desktop_texts.h"

// Texts are kept once they were looked up; a change of this number has them looked up again.
extern "C" int _nl_msg_cat_cntr;

namespace catalogador::wx {

namespace {

constexpr const char* variable = "LANGUAGE";

void speak(const std::string& language) {
    if (language.empty())
        unsetenv(variable);
    else
        setenv(variable, language.c_str(), 1);
    ++_nl_msg_cat_cntr;
}

}  // namespace

DesktopTexts::DesktopTexts(const std::string& language) {
    const char* const known = std::getenv(variable);
    before_ = known == nullptr ? "" : known;
    const char* const locale = std::setlocale(LC_MESSAGES, nullptr);
    localeBefore_ = locale == nullptr ? "" : locale;
    // A program without a locale of its own would not be asked for the language.
    if (localeBefore_ == "C" || localeBefore_ == "POSIX") std::setlocale(LC_MESSAGES, "C.UTF-8");
    speak(language);
}

DesktopTexts::~DesktopTexts() {
    std::setlocale(LC_MESSAGES, localeBefore_.c_str());
    speak(before_);
}

}  // namespace catalogador::wx
