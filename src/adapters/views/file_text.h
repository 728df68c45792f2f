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

/// The text of a file with the comments of an earlier text of it, each at what it stood at: alone
/// on its line before an entry, or behind it. A comment on what is gone stands before what follows.
/// Both have to be TOML.
std::string withComments(const std::string& text, const std::string& earlier);

}  // namespace catalogador::views
