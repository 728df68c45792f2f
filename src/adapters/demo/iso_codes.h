#pragma once
#include <optional>
#include <string>
#include <vector>

namespace catalogador::demo {

struct IsoCountry {
    int number = 0;
    std::string alpha2;
    std::string name;
};

struct IsoSubdivision {
    /// Such as "ES-M": what stands before the dash is the country's alpha2.
    std::string code;
    std::string name;
    /// Kind of subdivision, in English as the standard names it.
    std::string kind;
};

struct IsoCurrency {
    int number = 0;
    std::string alpha3;
    std::string name;
};

struct IsoLanguage {
    std::string alpha3;
    std::string name;
    std::string scope;
    std::string type;
    bool hasTwoLetterCode = false;
};

struct IsoScript {
    int number = 0;
    std::string alpha4;
    std::string name;
};

/// The code lists of the standards ISO 3166-1, 3166-2, 4217, 639-3 and 15924, in the order of
/// their files, with the names translated into Spanish where a translation exists.
struct IsoCodes {
    std::vector<IsoCountry> countries;
    std::vector<IsoSubdivision> subdivisions;
    std::vector<IsoCurrency> currencies;
    std::vector<IsoLanguage> languages;
    std::vector<IsoScript> scripts;
};

/// Reads the lists as the package iso-codes installs them: `folder` holds the JSON files,
/// `translationsFolder` the catalogues (LANGUAGE/LC_MESSAGES/NAME.mo). Raises RuntimeError that
/// names the package when a list is missing, and one that names the file when it is damaged.
IsoCodes readIsoCodes(const std::string& folder, const std::string& translationsFolder);

}  // namespace catalogador::demo
