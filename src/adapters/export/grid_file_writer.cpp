#include "adapters/export/grid_file_writer.h"

#include "adapters/export/tab_text.h"
#include "adapters/export/workbook.h"
#include "runtime/error.h"

namespace catalogador::exporting {

void GridFileWriter::save(const RecordGrid& grid, const std::string& path, int format,
                          const GridFileOptions& options) {
    if (format != grid_format::workbook && format != grid_format::tabText)
        throw RuntimeError(error_number::invalidProcedureCall,
                           "There is no save format " + std::to_string(format));
    system::ReplacedFile file(path);
    if (format == grid_format::workbook)
        writeWorkbook(grid, file, path, options);
    else
        writeTabText(grid, file, options);
    file.commit();
}

}  // namespace catalogador::exporting
