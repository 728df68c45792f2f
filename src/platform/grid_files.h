#pragma once
#include <functional>
#include <string>

#include "runtime/regional.h"

namespace catalogador {

class RecordGrid;

/// Save formats of a grid, by their numbers.
namespace grid_format {
constexpr int tabText = 3;
constexpr int workbook = 6;
}  // namespace grid_format

/// What goes into the file besides the rows.
struct GridFileOptions {
    /// Becomes the workbook's sheet name, as far as a sheet name may hold it.
    std::string title;
    /// How numbers are written in the grid's texts.
    Regional regional;
    /// Called repeatedly with the number of rows done and of all rows; false stops the export,
    /// which then leaves no file.
    std::function<bool(int done, int total)> progress;
};

/// Writes the rows that a grid shows (no hidden row, no hidden column, in the order of the sort,
/// header first) to files.
class GridFiles {
  public:
    virtual ~GridFiles() = default;
    /// `format` is one of grid_format. The file appears whole or not at all: an earlier file of
    /// that name stays as it was when something fails. Raises RuntimeError with a text that says
    /// what to do.
    virtual void save(const RecordGrid& grid, const std::string& path, int format,
                      const GridFileOptions& options) = 0;
};

}  // namespace catalogador
