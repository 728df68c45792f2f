#pragma once
#include <string>
#include <string_view>

#include "adapters/views/view.h"

namespace catalogador::views {

/// A text as TOML: over several lines where it has several or is long, in such a way that reading
/// it gives the very same text. It has to be UTF-8.
std::string tomlText(std::string_view text);

/// The file of a view. The same view always gives the same text.
std::string fileText(const View& view);

/// The new text of a file with the comments of its old text. A comment stays with its entry: on a
/// line of its own before the entry, or behind it. The comment of an entry that is gone goes to the
/// next one. Both texts must be TOML.
std::string withComments(const std::string& text, const std::string& earlier);

}  // namespace catalogador::views
