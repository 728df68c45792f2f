// A language catalogue of any content.
#include <sys/mman.h>
#include <unistd.h>

#include <cstdint>
#include <cstdlib>
#include <string>

#include "adapters/languages/po_file.h"
#include "runtime/error.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    using namespace catalogador;
    const int file = memfd_create("catalogue", 0);
    if (file < 0 || write(file, bytes, size) != static_cast<ssize_t>(size)) std::abort();
    try {
        languages::readPoFile("/proc/self/fd/" + std::to_string(file));
    } catch (const RuntimeError& error) {
        if (error.number() != error_number::cannotCreateObject) throw;
    }
    close(file);
    return 0;
}
