#pragma once
#include <string>

namespace catalogador::wx {

/// While it lives, the dialogs and menus that are the desktop's own (files, printers, the context
/// menus of text boxes) speak a language, as far as the desktop has it. What the process spoke
/// before comes back at the end.
class DesktopTexts {
  public:
    /// `language` is a code such as "es" or "pt_BR".
    explicit DesktopTexts(const std::string& language);
    ~DesktopTexts();
    DesktopTexts(const DesktopTexts&) = delete;
    DesktopTexts& operator=(const DesktopTexts&) = delete;

  private:
    std::string before_;
    std::string localeBefore_;
};

}  // namespace catalogador::wx
