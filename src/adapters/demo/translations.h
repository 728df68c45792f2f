#pragma once
#include <string>
#include <string_view>
#include <unordered_map>

namespace catalogador::demo {

/// The translations of one compiled message catalogue (GNU .mo file, UTF-8).
class Translations {
  public:
    /// Translates nothing.
    Translations() = default;
    /// Reads the content of a catalogue. Raises RuntimeError (invalidProcedureCall) when it is no
    /// catalogue or one of its entries points outside of it.
    explicit Translations(std::string_view content);

    /// Reads a file; one that does not exist translates nothing, as systems may be installed
    /// without the catalogues of other languages. Raises as above for a damaged one.
    static Translations fromFile(const std::string& path);

    /// The translation of a text, or the text itself when there is none.
    [[nodiscard]] std::string of(const std::string& text) const;
    [[nodiscard]] bool empty() const { return texts_.empty(); }

  private:
    std::unordered_map<std::string, std::string> texts_;
};

}  // namespace catalogador::demo
