#include "adapters/pdf/pdf_writer.h"
#include "runtime/error.h"

namespace catalogador::pdf {

void writePdf(const PrintedDocument& /*document*/, const std::string& path) {
    throw RuntimeError(error_number::invalidProcedureCall,
                       "The file " + path +
                           " was not written: this program writes no PDF files on Windows. Print "
                           "to a printer; Windows has one that writes PDF files");
}

}  // namespace catalogador::pdf
