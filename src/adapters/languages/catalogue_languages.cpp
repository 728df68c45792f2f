#include "adapters/languages/catalogue_languages.h"

#include <filesystem>
#include <map>

#include "adapters/languages/po_file.h"
#include "adapters/system/paths.h"
#include "runtime/error.h"
#include "runtime/text.h"

namespace catalogador::languages {

namespace {

class CatalogueTexts : public clsResources {
  public:
    explicit CatalogueTexts(std::map<std::string, std::string> texts) : texts_(std::move(texts)) {}

    [[nodiscard]] std::string resLoad(std::int32_t id) const override {
        const auto text = texts_.find(decimalText(id));
        if (text == texts_.end())
            throw RuntimeError(error_number::invalidProcedureCall,
                               "The language has no text " + decimalText(id));
        return text->second;
    }
    // A catalogue has one set of texts, whoever asks and whatever the secondary language is.
    void IDAppName(const std::string&) override {}
    void IDSLng(std::uint8_t) override {}

  private:
    std::map<std::string, std::string> texts_;
};

}  // namespace

std::unique_ptr<clsResources> CatalogueLanguages::create(const std::string& progId) {
    const std::string library = progId.substr(0, progId.find('.'));
    const std::filesystem::path file = pathOf(folder_) / pathOf(library + ".po");
    return std::make_unique<CatalogueTexts>(readPoFile(pathText(file)));
}

}  // namespace catalogador::languages
