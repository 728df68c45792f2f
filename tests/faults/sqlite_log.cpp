// Preloaded into a program, this writes every statement that SQLite runs there to the file that
// CATALOGADOR_TEST_SQLITE_LOG names, each ended by a NUL.
#include <dlfcn.h>
#include <fcntl.h>
#include <sqlite3.h>
#include <unistd.h>

#include <cstdlib>
#include <string>

namespace {

int note(unsigned /*event*/, void* /*context*/, void* /*statement*/, void* text) {
    static const int file = open(std::getenv("CATALOGADOR_TEST_SQLITE_LOG"),
                                 O_WRONLY | O_CREAT | O_APPEND | O_CLOEXEC, S_IRUSR | S_IWUSR);
    const std::string statement(static_cast<const char*>(text));
    // A witness that cannot write must not be taken for one that has seen nothing.
    if (write(file, statement.c_str(), statement.size() + 1) !=
        static_cast<ssize_t>(statement.size() + 1))
        std::abort();
    return 0;
}

template <class Function>
Function original(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_NEXT, name));
}

int watched(int result, sqlite3** handle) {
    if (result == SQLITE_OK) sqlite3_trace_v2(*handle, SQLITE_TRACE_STMT, note, nullptr);
    return result;
}

}  // namespace

extern "C" int sqlite3_open_v2(const char* file, sqlite3** handle, int flags, const char* system) {
    static const auto open = original<decltype(&sqlite3_open_v2)>("sqlite3_open_v2");
    return watched(open(file, handle, flags, system), handle);
}

extern "C" int sqlite3_open(const char* file, sqlite3** handle) {
    static const auto open = original<decltype(&sqlite3_open)>("sqlite3_open");
    return watched(open(file, handle), handle);
}
