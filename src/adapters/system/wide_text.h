#pragma once
#include <string>
#include <string_view>

namespace catalogador::system {

/// A UTF-8 text as the calls of Windows take it.
std::wstring wideOf(std::string_view text);
/// The way back.
std::string utf8Of(std::wstring_view text);

}  // namespace catalogador::system
