#pragma once
#include <cstdint>
#include <string>

namespace catalogador::exporting {

/// Whether every part of a finished workbook can be read to its end and the sheet has at least that
/// many bytes. The library that writes it does not notice when one of its intermediate files was
/// cut short by a full disk.
bool workbookIsWhole(const std::string& path, std::uint64_t leastSheetBytes);

}  // namespace catalogador::exporting
