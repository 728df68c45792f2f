#include "adapters/wx/toolkit_texts.h"

#include <wx/translation.h>

#include <algorithm>

#include "adapters/wx/appearance.h"

namespace catalogador::wx {

namespace {

constexpr const char* ownDomain = "catalogador-toolkit";

/// The program's own catalogues; others are looked for where the system keeps them.
class Catalogues : public wxTranslationsLoader {
  public:
    wxMsgCatalog* LoadCatalog(const wxString& domain, const wxString& language) override {
        if (domain != ownDomain) return files_.LoadCatalog(domain, language);
        const auto& all = toolkitCatalogues();
        const auto found = std::ranges::find(all, utf8Text(language), &ToolkitCatalogue::language);
        if (found == all.end()) return nullptr;
        return wxMsgCatalog::CreateFromData(
            wxScopedCharBuffer::CreateNonOwned(found->bytes.data(), found->bytes.size()), domain);
    }
    [[nodiscard]] wxArrayString GetAvailableTranslations(const wxString& domain) const override {
        if (domain != ownDomain) return files_.GetAvailableTranslations(domain);
        wxArrayString languages;
        for (const ToolkitCatalogue& catalogue : toolkitCatalogues())
            languages.Add(wxText(std::string(catalogue.language)));
        return languages;
    }

  private:
    wxFileTranslationsLoader files_;
};

}  // namespace

std::string languageCode(std::int16_t language) {
    if (language == 2) return "en";
    return language == 3 ? "pt_BR" : "es";
}

void speakToolkitTexts(const std::string& language) {
    auto* texts = new wxTranslations;
    texts->SetLoader(new Catalogues);
    texts->SetLanguage(wxText(language));
    texts->AddStdCatalog();
    // The catalogue that was added last is asked first.
    texts->AddCatalog(ownDomain);
    wxTranslations::Set(texts);
}

}  // namespace catalogador::wx
