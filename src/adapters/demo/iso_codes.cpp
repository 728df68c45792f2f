#include "adapters/demo/iso_codes.h"

#include <fstream>
#include <nlohmann/json.hpp>
#include <string_view>

#include "adapters/demo/translations.h"
#include "adapters/system/paths.h"
#include "runtime/error.h"

namespace catalogador::demo {

namespace {

using nlohmann::json;

/// One standard's list and the translations of its names.
struct IsoList {
    json entries;
    Translations translations;

    [[nodiscard]] std::string name(const json& entry) const {
        return translations.of(entry.at("name").get<std::string>());
    }
};

std::string textOf(const json& entry, const char* key) {
    return entry.at(key).get<std::string>();
}

int numberOf(const json& entry) {
    return std::stoi(textOf(entry, "numeric"));
}

json readEntries(const std::string& path, const std::string& standard) {
    std::ifstream file(pathOf(path));
    if (!file) {
        throw RuntimeError(error_number::invalidProcedureCall,
                           path + " cannot be read. Install the package iso-codes.");
    }
    return json::parse(file).at(standard);
}

/// Has `convert` turn each entry of a standard's list into a record.
template <class Record, class Convert>
std::vector<Record> readList(const std::string& folder, const std::string& translationsFolder,
                             const std::string& standard, Convert convert) {
    const std::string file = "iso_" + standard;
    const std::string path = folder + "/" + file + ".json";
    try {
        const IsoList list{
            readEntries(path, standard),
            Translations::fromFile(translationsFolder + "/es/LC_MESSAGES/" + file + ".mo")};
        std::vector<Record> records;
        records.reserve(list.entries.size());
        for (const json& entry : list.entries) records.push_back(convert(list, entry));
        return records;
    } catch (const RuntimeError&) {
        throw;
    } catch (const std::exception& error) {
        throw RuntimeError(error_number::invalidProcedureCall, path + ": " + error.what());
    }
}

}  // namespace

IsoCodes readIsoCodes(const std::string& folder, const std::string& translationsFolder) {
    IsoCodes codes;
    codes.countries = readList<IsoCountry>(
        folder, translationsFolder, "3166-1", [](const IsoList& list, const json& entry) {
            return IsoCountry{numberOf(entry), textOf(entry, "alpha_2"), list.name(entry)};
        });
    codes.subdivisions = readList<IsoSubdivision>(
        folder, translationsFolder, "3166-2", [](const IsoList& list, const json& entry) {
            return IsoSubdivision{textOf(entry, "code"), list.name(entry), textOf(entry, "type")};
        });
    codes.currencies = readList<IsoCurrency>(
        folder, translationsFolder, "4217", [](const IsoList& list, const json& entry) {
            return IsoCurrency{numberOf(entry), textOf(entry, "alpha_3"), list.name(entry)};
        });
    codes.languages = readList<IsoLanguage>(
        folder, translationsFolder, "639-3", [](const IsoList& list, const json& entry) {
            return IsoLanguage{textOf(entry, "alpha_3"), list.name(entry), textOf(entry, "scope"),
                               textOf(entry, "type"), entry.contains("alpha_2")};
        });
    codes.scripts = readList<IsoScript>(
        folder, translationsFolder, "15924", [](const IsoList& list, const json& entry) {
            return IsoScript{numberOf(entry), textOf(entry, "alpha_4"), list.name(entry)};
        });
    return codes;
}

}  // namespace catalogador::demo
