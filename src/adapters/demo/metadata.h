#pragma once
#include <nlohmann/json_fwd.hpp>
#include <string>
#include <vector>

#include "adapters/demo/table_rows.h"

namespace catalogador::demo {

/// The description of the demonstration's views (demo/views.json), built into the program.
const nlohmann::json& demoMetadata();

/// The code under which a list of the metadata keeps an entry of a standard ("Province"), or the
/// code of its last entry, which stands for all others.
int listCode(const nlohmann::json& metadata, const std::string& list, const std::string& isoName);

/// A list as the literal combo source "1,Provincia;2,Departamento".
std::string listItems(const nlohmann::json& metadata, const std::string& list);

/// The query with every "{{list column}}" replaced by the expression that gives the list's text
/// for the code in that column. Raises RuntimeError for a list that does not exist.
std::string expandLists(const nlohmann::json& metadata, const std::string& query);

/// The rows of Catalogador and CatalogadorControles.
std::vector<TableRows> viewRows(const nlohmann::json& metadata);

/// A JSON null, boolean, number or text as a value.
Variant variantOf(const nlohmann::json& value);

}  // namespace catalogador::demo
