#pragma once
#include <nlohmann/json_fwd.hpp>

#include "adapters/demo/iso_codes.h"
#include "adapters/demo/table_rows.h"

namespace catalogador::demo {

/// The rows of genCodigoTexto: those of the standards and those that the metadata lists.
TableRows codeRecords(const nlohmann::json& metadata, const IsoCodes& codes);

/// The rows of genNumeradores: for each view's name the highest code in `records`, 0 without any.
TableRows sequences(const nlohmann::json& metadata, const TableRows& records);

}  // namespace catalogador::demo
