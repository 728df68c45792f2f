#pragma once
#include <memory>
#include <string>

#include "platform/language.h"

namespace catalogador::languages {

/// Language libraries kept as gettext catalogues in a folder: LNG_QTX_001.po stands for the
/// library LNG_QTX_001.
class CatalogueLanguages : public LanguageLibraries {
  public:
    explicit CatalogueLanguages(std::string folder) : folder_(std::move(folder)) {}
    std::unique_ptr<clsResources> create(const std::string& progId) override;

  private:
    std::string folder_;
};

}  // namespace catalogador::languages
