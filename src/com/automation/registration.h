#pragma once
#include <vector>

#include "com/automation/library.h"

namespace catalogador::com {

/// Registers the classes of the library that this code is part of, and its type library, for the
/// whole computer, or for this user where that is not allowed. What was begun is taken back when it
/// fails.
HRESULT registerLibrary(const std::vector<LibraryClass>& classes, const LibraryTypes& types);
/// Takes the registration away, wherever it was made, and leaves nothing of it.
HRESULT unregisterLibrary(const std::vector<LibraryClass>& classes, const LibraryTypes& types);

/// The two halves of it, under a key of classes that is open for writing.
LSTATUS writeClasses(HKEY root, const std::vector<LibraryClass>& classes,
                     const LibraryTypes& types);
LSTATUS removeClasses(HKEY root, const std::vector<LibraryClass>& classes);

}  // namespace catalogador::com
