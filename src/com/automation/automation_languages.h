#pragma once
#include <memory>
#include <string>

#include "platform/language.h"

namespace catalogador::com {

/// Language libraries that are registered on this computer, found by their ProgID.
class AutomationLanguages : public LanguageLibraries {
  public:
    std::unique_ptr<clsResources> create(const std::string& progId) override;
};

}  // namespace catalogador::com
