#pragma once
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "adapters/views/view.h"

namespace catalogador::views {

/// What is wrong with a file.
struct Problem {
    /// From 1; 0 where no line is to blame.
    std::size_t line = 0;
    /// What is wrong and what to do.
    std::string text;
};

/// Reads the text of a file; without a value `problems` says why. Whatever the text is, nothing is
/// raised.
std::optional<View> readView(std::string_view text, std::vector<Problem>& problems);

/// A view with the file that describes it.
struct ViewFile {
    std::filesystem::path path;
    View view;
};

/// Every file of a folder whose name ends in ".toml", by the numbers of their views. Raises
/// RuntimeError when the folder cannot be read, or with a line "FILE:LINE: what is wrong; what to
/// do" for each thing that is wrong with a file, or with two files.
std::vector<ViewFile> readFolder(const std::filesystem::path& folder);

/// The content of a file. Raises RuntimeError.
std::string contentOf(const std::filesystem::path& file);

}  // namespace catalogador::views
