#pragma once
#include "adapters/sql/row_reader.h"
#include "platform/rdo.h"
#include "runtime/regional.h"

namespace catalogador::sql {

/// The texts that toText gives for the values of a column, for all the rows at hand.
void cellTexts(const RowReader& reader, std::size_t column, ColumnKind kind,
               const Regional& regional, TextBlock& block);

}  // namespace catalogador::sql
