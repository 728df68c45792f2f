#pragma once
#include "platform/grid_files.h"

namespace catalogador::exporting {

/// Writes grids to files of this system.
class GridFileWriter : public GridFiles {
  public:
    void save(const RecordGrid& grid, const std::string& path, int format,
              const GridFileOptions& options) override;
};

}  // namespace catalogador::exporting
