// The leak check asks for this by name.
// NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" const char* __lsan_default_suppressions() {
    return
        // It keeps distances between its blocks where others keep pointers, so that blocks in use
        // look lost; how many depends on the fonts of the machine.
        "leak:libfontconfig\n"
        // The C library forgets its own list of the folders that LOCPATH names.
        "leak:__argz_add_sep\n";
}
