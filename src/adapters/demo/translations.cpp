#include "adapters/demo/translations.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <fstream>
#include <iterator>

#include "adapters/system/paths.h"
#include "runtime/error.h"

namespace catalogador::demo {

namespace {

/// Reads the catalogue's 32-bit words, which are in the byte order of whoever wrote the file.
class CatalogueBytes {
  public:
    explicit CatalogueBytes(std::string_view content) : content_(content) {
        constexpr std::uint32_t magic = 0x950412de;
        constexpr std::uint32_t swappedMagic = 0xde120495;
        const std::uint32_t first = word(0);
        if (first != magic && first != swappedMagic) fail();
        swapped_ = first == swappedMagic;
    }

    [[nodiscard]] std::uint32_t word(std::size_t offset) const {
        if (content_.size() < sizeof(std::uint32_t) ||
            offset > content_.size() - sizeof(std::uint32_t)) {
            fail();
        }
        std::uint32_t value = 0;
        std::memcpy(&value, content_.data() + offset, sizeof value);
        return swapped_ ? (value >> 24U) | ((value >> 8U) & 0xff00U) | ((value << 8U) & 0xff0000U) |
                              (value << 24U)
                        : value;
    }

    /// The text that the descriptor at `offset` (length, position) tells of, up to a plural form.
    [[nodiscard]] std::string text(std::size_t offset) const {
        const std::size_t length = word(offset);
        const std::size_t position = word(offset + sizeof(std::uint32_t));
        if (position > content_.size() || length > content_.size() - position) fail();
        const std::string_view whole = content_.substr(position, length);
        return std::string(whole.substr(0, whole.find('\0')));
    }

  private:
    [[noreturn]] static void fail() {
        throw RuntimeError(error_number::invalidProcedureCall,
                           "This is not a compiled message catalogue, or it is damaged.");
    }

    std::string_view content_;
    bool swapped_ = false;
};

}  // namespace

Translations::Translations(std::string_view content) {
    const CatalogueBytes bytes(content);
    const std::size_t count = bytes.word(8);
    const std::size_t originals = bytes.word(12);
    const std::size_t translated = bytes.word(16);
    constexpr std::size_t descriptorSize = 2 * sizeof(std::uint32_t);
    for (std::size_t i = 0; i < count; ++i) {
        std::string original = bytes.text(originals + i * descriptorSize);
        std::string translation = bytes.text(translated + i * descriptorSize);
        // The entry of the empty text is the catalogue's own header.
        if (original.empty() || translation.empty()) continue;
        texts_.insert_or_assign(std::move(original), std::move(translation));
    }
}

Translations Translations::fromFile(const std::string& path) {
    std::ifstream file(pathOf(path), std::ios::binary);
    if (!file) return {};
    const std::string content{std::istreambuf_iterator<char>(file), {}};
    try {
        return Translations(content);
    } catch (const RuntimeError& error) {
        throw RuntimeError(error.number(), path + ": " + error.description());
    }
}

std::string Translations::of(const std::string& text) const {
    const auto found = texts_.find(text);
    return found == texts_.end() ? text : found->second;
}

}  // namespace catalogador::demo
