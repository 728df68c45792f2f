#pragma once
#include <functional>
#include <optional>
#include <string>

#include "platform/geometry.h"

namespace catalogador {

/// The size in twips that a user gave a window.
struct WindowSize {
    Size size;
    bool maximized = false;
    friend bool operator==(const WindowSize&, const WindowSize&) = default;
};

/// Keeps sizes of windows from one start of the program to the next, each under the name of its
/// window (Window::memoryName). Either function may be empty.
struct WindowMemory {
    std::function<std::optional<WindowSize>(const std::string& name)> recall;
    std::function<void(const std::string& name, const WindowSize& size)> keep;
};

}  // namespace catalogador
