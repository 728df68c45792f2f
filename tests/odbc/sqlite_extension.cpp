// Code for SQLite to load: it makes the file that CATALOGADOR_TEST_CANARY names.
#include <cstdio>
#include <cstdlib>

extern "C" int sqlite3_extension_init(void* /*database*/, char** /*error*/, const void* /*api*/) {
    if (const char* name = std::getenv("CATALOGADOR_TEST_CANARY"))
        if (std::FILE* file = std::fopen(name, "w")) std::fclose(file);
    return 0;
}
