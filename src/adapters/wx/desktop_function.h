#pragma once
#include <dlfcn.h>

namespace catalogador::wx {

/// A function of the desktop's own toolkit, which the one used here stands on and has loaded; null
/// when it has no such function.
template <class Function>
Function desktopFunction(const char* name) {
    return reinterpret_cast<Function>(dlsym(RTLD_DEFAULT, name));
}

}  // namespace catalogador::wx
